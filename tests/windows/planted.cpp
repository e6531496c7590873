// Stands in for programs and libraries that lie on a card by chance or by intention: leaves a file
// beside itself when it is started, or loaded, whatever its name.
#include <windows.h>

#include <string>

namespace {

void leaveMark(HMODULE module) {
  wchar_t file[MAX_PATH];
  const std::wstring mark =
      std::wstring(file, GetModuleFileNameW(module, file, MAX_PATH)) + L".ran";
  CloseHandle(CreateFileW(mark.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
}

}  // namespace

#ifdef PLANTED_LIBRARY
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) leaveMark(module);
  return TRUE;
}
#else
int main() { leaveMark(nullptr); }
#endif
