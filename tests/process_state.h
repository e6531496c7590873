#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// Whether a process does anything still: one that has ended may wait for ever to be reaped.
inline bool isRunning(int process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  const std::string state{std::istreambuf_iterator<char>(file), {}};
  return !state.empty() && state.find(") Z ") == std::string::npos;
}
