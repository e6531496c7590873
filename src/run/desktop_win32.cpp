#include <windows.h>
// windows.h comes first: the others need it
#include <knownfolders.h>
#include <shlobj.h>

#include <filesystem>

#include "report/files.h"
#include "report/profile.h"
#include "run/desktop.h"
#include "run/wide_text.h"

namespace run {
namespace {

namespace fs = std::filesystem;

/// The system's objects can be used on this thread while it lives.
class ComScope {
 public:
  ComScope() : begun_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~ComScope() {
    if (begun_) CoUninitialize();
  }
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;

 private:
  bool begun_;
};

/// An object of the system, let go at the end.
template <class Type>
class Interface {
 public:
  Interface() = default;
  ~Interface() {
    if (object_) object_->Release();
  }
  Interface(const Interface&) = delete;
  Interface& operator=(const Interface&) = delete;
  Type* operator->() const { return object_; }
  void** filled() { return reinterpret_cast<void**>(&object_); }

 private:
  Type* object_ = nullptr;
};

/// Starts the program of that file without a console window and without waiting: a window that is
/// still being opened must not hold up the end of a run.
void start(const std::wstring& program, std::wstring commandLine) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                      CREATE_NO_WINDOW, nullptr, nullptr, &startup, &process))
    return;
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
}

/// A folder of the system's own, asked for by one of its two functions.
std::wstring systemFolder(UINT(WINAPI* ask)(wchar_t*, UINT)) {
  wchar_t folder[MAX_PATH];
  return {folder, ask(folder, MAX_PATH)};
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

// As `system` does it, less the console window that it gives to a program without one. The explorer
// is the system's own and is started directly, so that every name is only a name there.
void SystemDesktop::command(const std::string& line) {
  if (line.starts_with("explorer "))
    start(systemFolder(GetWindowsDirectoryW) + L"\\explorer.exe", widened(line));
  else if (isOneCommand(line))
    start(systemFolder(GetSystemDirectoryW) + L"\\cmd.exe", L"cmd /c " + widened(line));
}

void SystemDesktop::show(const std::string&) {}

// A run that was told to use another profile folder than the user's own is not about the desktop.
std::string SystemDesktop::movedTo() {
  const std::wstring profile = report::fromUtf8(report::profileFolder());
  const std::wstring desktop = knownFolder(FOLDERID_Desktop);
  if (desktop.empty() || !areSameName(profile, knownFolder(FOLDERID_Profile))) return {};
  return areSameName(desktop, profile + L"\\Desktop") ? "" : report::nativeUtf8(desktop);
}

bool SystemDesktop::putShortcut(const std::string& target, const std::string& place) {
  const ComScope com;
  const fs::path folder = report::fromUtf8(report::nativeSlashes(target));
  const fs::path file = report::fromUtf8(place) / (folder.filename().wstring() + L".lnk");
  Interface<IShellLinkW> link;
  Interface<IPersistFile> saved;
  return CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                          link.filled()) == S_OK &&
         link->SetPath(folder.c_str()) == S_OK &&
         link->QueryInterface(IID_IPersistFile, saved.filled()) == S_OK &&
         saved->Save(file.c_str(), TRUE) == S_OK;
}

}  // namespace run
