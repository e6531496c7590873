#include <windows.h>

#include <cstdlib>

#include "run/desktop.h"
#include "run/wide_text.h"

namespace run {
namespace {

/// Starts a program without a console window and without waiting: a window that is still being
/// opened must not hold up the end of a run.
void start(std::wstring commandLine) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW,
                      nullptr, nullptr, &startup, &process))
    return;
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
}

std::wstring commandProcessor() {
  const wchar_t* chosen = _wgetenv(L"COMSPEC");
  return chosen ? L"\"" + std::wstring(chosen) + L"\"" : L"cmd.exe";
}

}  // namespace

// As `system` does it, less the console window that it gives to a program without one. A name that
// the command processor would act on goes to the explorer directly, where it is only a name.
void SystemDesktop::command(const std::string& line) {
  if (isOneCommand(line))
    start(commandProcessor() + L" /c " + widened(line));
  else if (line.starts_with("explorer "))
    start(widened(line));
}

void SystemDesktop::show(const std::string&) {}

}  // namespace run
