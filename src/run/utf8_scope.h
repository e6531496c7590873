#pragma once

namespace run {

/// While it lives, libraries that this thread calls turn wide file names into UTF-8, whatever the
/// locale of the program. Does nothing on Windows, where names are wide all the way down.
class Utf8Scope {
 public:
  Utf8Scope();
  ~Utf8Scope();
  Utf8Scope(const Utf8Scope&) = delete;
  Utf8Scope& operator=(const Utf8Scope&) = delete;

 private:
  void* previous_ = nullptr;
};

}  // namespace run
