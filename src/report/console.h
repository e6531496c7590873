#pragma once

#include <string_view>

namespace report {

/// Where the diagnostic lines of a run go: standard output in the window program, nowhere or
/// standard error in others. `line` adds the line end; callable from any thread.
class Console {
 public:
  virtual ~Console() = default;
  virtual void line(std::string_view text) = 0;
};

/// Writes every line to standard output with one call, so that lines of several threads never mix.
class StandardOutput final : public Console {
 public:
  void line(std::string_view text) override;
};

/// Drops every line.
class NoConsole final : public Console {
 public:
  void line(std::string_view) override {}
};

}  // namespace report
