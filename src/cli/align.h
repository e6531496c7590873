#pragma once

#include "cli/arguments.h"

namespace cli {

/// Exit statuses of the program.
inline constexpr int kSynchronised = 0, kFailed = 1, kWrongUsage = 2, kNothingMatched = 3,
                     kInterrupted = 130;

/// Runs a synchronisation as asked: the result goes to standard output, everything else to standard
/// error. Returns the exit status.
int align(const Arguments& arguments);

}  // namespace cli
