#pragma once

#include <string>
#include <string_view>

namespace run {

/// The last lines of what a program writes to its error stream. Lines that it writes over, as it
/// does to show its progress, are forgotten: the reason of a failure comes last, but not as the
/// last of so many bytes.
class LastLines {
 public:
  void add(std::string_view text);
  std::string text() const { return whole_ + line_; }

 private:
  std::string whole_;  // lines that have ended
  std::string line_;   // the one being written
  bool overwritten_ = false;
};

}  // namespace run
