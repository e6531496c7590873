#include <windows.h>
// windows.h comes first: shellapi.h needs it
#include <shellapi.h>

#include <array>
#include <csignal>
#include <string>

#include "cli/terminal.h"

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
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> result;
  for (int i = 1; i < count; ++i) result.push_back(utf8(words[i]));
  LocalFree(words);
  return result;
}

void startBesideFfmpeg() {
  if (GetFileAttributesW(L"ffmpeg.exe") != INVALID_FILE_ATTRIBUTES) return;
  std::wstring program(32768, L'\0');  // the longest path that there is
  program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
  SetCurrentDirectoryW(program.substr(0, program.find_last_of(L'\\')).c_str());
}

void useUtf8Output() { SetConsoleOutputCP(CP_UTF8); }

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
