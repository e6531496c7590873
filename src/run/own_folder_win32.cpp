#include <windows.h>

#include "report/files.h"
#include "run/own_folder.h"

namespace run {

std::string ownFolder() {
  std::wstring program(32768, L'\0');  // the longest path that there is
  program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
  const std::size_t slash = program.find_last_of(L'\\');
  return slash == program.npos ? "" : report::nativeUtf8(program.substr(0, slash));
}

void workInOwnFolder() { SetCurrentDirectoryW(report::fromUtf8(ownFolder()).c_str()); }

}  // namespace run
