#pragma once

#include <string>

#include "report/outcome.h"

namespace cli {

/// The outcome as JSON, set in by two blanks, ended by a line feed; what is not known is null.
/// Bytes of names that are not UTF-8 become U+FFFD.
std::string resultJson(const report::Outcome& outcome);

}  // namespace cli
