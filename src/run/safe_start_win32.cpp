#include <windows.h>

#include "run/safe_start.h"

namespace run {

void startSafely() {
  SetEnvironmentVariableW(L"NoDefaultCurrentDirectoryInExePath", L"1");  // inherited, for cmd.exe
  SetSearchPathMode(BASE_SEARCH_PATH_ENABLE_SAFE_SEARCHMODE | BASE_SEARCH_PATH_PERMANENT);
  SetDllDirectoryW(L"");
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

}  // namespace run
