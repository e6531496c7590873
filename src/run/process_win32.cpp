#include <windows.h>

#include <system_error>

#include "run/process.h"
#include "run/wide_text.h"

namespace run {
namespace {

/// The quoted name that the command line begins with, and what the system answered.
std::string whyNotStarted(const std::string& commandLine, DWORD error) {
  return "cannot start " + commandLine.substr(0, commandLine.find('"', 1) + 1) + ": " +
         std::system_category().message(static_cast<int>(error));
}

constexpr DWORD kPollMilliseconds = 100;  // how late a cancellation may be noticed

/// Waits without a time limit of its own; a cancelled run ends the program.
void waitFor(HANDLE process, const std::atomic<bool>& cancelled) {
  while (WaitForSingleObject(process, kPollMilliseconds) == WAIT_TIMEOUT)
    if (cancelled) TerminateProcess(process, 1);
}

}  // namespace

ProcessResult SystemProcesses::run(const Command& command, const std::atomic<bool>& cancelled) {
  std::wstring line = widened(command.windowsLine);  // the system may write into it
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                      nullptr, &startup, &process))
    return {{whyNotStarted(command.windowsLine, GetLastError())}, 0, {}};
  waitFor(process.hProcess, cancelled);
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
  return {};  // the exit code is not read: the size of the converted file tells
}

}  // namespace run
