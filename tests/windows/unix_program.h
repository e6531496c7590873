#pragma once

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "report/files.h"
#include "tests/fresh_path.h"

/// `argument` as the programs of the system that Wine runs on take it, if it is a whole path.
inline std::string unixArgument(const std::string& argument) {
  if (argument.size() < 3 || argument[1] != ':' || argument.find_first_of("/\\") != 2)
    return argument;
  using Translate = char*(CDECL*)(const wchar_t*);
  static const auto translate = reinterpret_cast<Translate>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name")));
  char* name = translate ? translate(report::fromUtf8(argument).c_str()) : nullptr;
  const std::string result = name ? name : argument;
  if (name) HeapFree(GetProcessHeap(), 0, name);
  return result;
}

inline std::wstring quotedForWindows(const std::string& argument) {
  std::string quoted = "\"";
  for (const char character : argument) {
    if (character == '"') quoted += '\\';
    quoted += character;
  }
  return report::fromUtf8(quoted + '"').wstring();
}

/// Runs a program of the system that Wine runs on, and waits for it: tests make their media with
/// that system's ffmpeg, because the one of the package only writes sound. Wine gives no handle to
/// wait for, so a shell leaves the exit code in a file. False without Wine.
inline bool runUnixProgram(const std::vector<std::string>& arguments) {
  const std::filesystem::path ended = freshPath("ended");
  std::wstring line = L"sh -c \"unset LD_LIBRARY_PATH; \\\"$@\\\"; echo $? >\\\"$0\\\"\" ";
  line += quotedForWindows(unixArgument(report::toUtf8(ended)));
  for (const std::string& argument : arguments)
    line += L' ' + quotedForWindows(unixArgument(argument));
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(L"Z:\\bin\\sh", line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &process))
    return false;
  int code = -1;
  while (!(std::ifstream(ended) >> code)) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  std::filesystem::remove(ended);
  return code == 0;
}
