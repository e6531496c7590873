#include <dlfcn.h>

#include "run/library.h"

namespace run {

bool Library::load(const std::string& fileName) {
  handle_ = dlopen(fileName.c_str(), RTLD_NOW | RTLD_LOCAL);
  return loaded();
}

void Library::unload() {
  if (loaded()) dlclose(handle_);
  handle_ = nullptr;
}

void* Library::entryPoint(const char* name) const { return dlsym(handle_, name); }

}  // namespace run
