#include <windows.h>
// windows.h comes first: the others need it
#include <knownfolders.h>
#include <shlobj.h>

#include <cstdlib>

#include "report/files.h"
#include "report/profile.h"
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

/// A folder that the user may have moved; empty if the system does not know it.
std::wstring knownFolder(const KNOWNFOLDERID& which) {
  wchar_t* path = nullptr;
  std::wstring folder;
  if (SHGetKnownFolderPath(which, KF_FLAG_DONT_VERIFY, nullptr, &path) == S_OK) folder = path;
  CoTaskMemFree(path);
  return folder;
}

bool areSameName(const std::wstring& first, const std::wstring& second) {
  return CompareStringOrdinal(first.c_str(), -1, second.c_str(), -1, TRUE) == CSTR_EQUAL;
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

// A run that was told to use another profile folder than the user's own is not about the desktop.
std::string SystemDesktop::movedTo() {
  const std::wstring profile = report::fromUtf8(report::profileFolder());
  const std::wstring desktop = knownFolder(FOLDERID_Desktop);
  if (desktop.empty() || !areSameName(profile, knownFolder(FOLDERID_Profile))) return {};
  return areSameName(desktop, profile + L"\\Desktop") ? "" : report::nativeUtf8(desktop);
}

}  // namespace run
