#include <windows.h>

#include "run/library.h"
#include "run/own_folder.h"
#include "run/wide_text.h"

namespace run {

bool Library::load(const std::string& fileName) {
  const bool whole = fileName.find_first_of("/\\") != fileName.npos;
  handle_ = LoadLibraryW(widened(whole ? fileName : ownFolder() + '\\' + fileName).c_str());
  return loaded();
}

void Library::unload() {
  if (loaded()) FreeLibrary(static_cast<HMODULE>(handle_));
  handle_ = nullptr;
}

void* Library::entryPoint(const char* name) const {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

}  // namespace run
