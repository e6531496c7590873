#include <windows.h>

#include "run/library.h"
#include "run/wide_text.h"

namespace run {

bool Library::load(const std::string& fileName) {
  handle_ = LoadLibraryW(widened(fileName).c_str());
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
