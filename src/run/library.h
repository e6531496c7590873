#pragma once

#include <string>

namespace run {

/// A library that is loaded while the program runs; unloaded at the end. Not copyable.
class Library {
 public:
  Library() = default;
  ~Library() { unload(); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// Loads `fileName` (UTF-8): on Windows from the program's own folder alone, elsewhere from the
  /// system's folders of libraries. A name with a folder is taken as it is.
  bool load(const std::string& fileName);
  void unload();
  bool loaded() const { return handle_ != nullptr; }
  /// The entry point of that name, or null.
  void* entryPoint(const char* name) const;

 private:
  void* handle_ = nullptr;
};

}  // namespace run
