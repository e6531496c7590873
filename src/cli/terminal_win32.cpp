#include <windows.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>
#include <utility>

#include "cli/command_line.h"
#include "cli/terminal.h"
#include "cli/wildcard.h"

namespace cli {
namespace {

std::string utf8(const wchar_t* text) {
  const int length = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(length > 0 ? length : 1), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), length, nullptr, nullptr);
  result.pop_back();  // the closing zero
  return result;
}

}  // namespace

std::vector<std::string> utf8Arguments(int, char**) {
  const std::vector<std::string> words = windowsWords(utf8(GetCommandLineW()));
  std::vector<std::string> result;
  for (std::size_t i = 1; i < words.size(); ++i)
    for (std::string& word : expanded(words[i])) result.push_back(std::move(word));
  return result;
}

void useUtf8Output() {
  static const UINT before = GetConsoleOutputCP();  // the console stays after the program
  SetConsoleOutputCP(CP_UTF8);
  std::atexit([] { SetConsoleOutputCP(before); });
}

int errorTerminalColumns() {
  CONSOLE_SCREEN_BUFFER_INFO info;
  if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info)) return 0;
  return info.srWindow.Right - info.srWindow.Left + 1;
}

std::span<const int> endSignals() {
  static constexpr std::array kSignals = {SIGINT, SIGTERM, SIGBREAK};
  return kSignals;
}

}  // namespace cli
