#pragma once

#include <string>

namespace report {

/// The outcome of something that can fail. The error is a sentence for the run log: what was
/// tried, on which file, and what the system answered.
struct [[nodiscard]] Status {
  std::string error;  // empty on success
  bool ok() const { return error.empty(); }
};

}  // namespace report
