#pragma once

#include <string>

#include "report/console.h"
#include "report/outcome.h"
#include "report/status.h"

namespace cli {

/// One line on standard error, printable.
void say(const std::string& line);

/// Says what went wrong; returns the exit status for it.
int fail(const std::string& problem);

/// Says what failed and, unless `quiet`, what else is worth knowing.
void tellNotices(const report::Outcome& outcome, bool quiet);

/// Shows the diagnostic lines beside the result, never in it.
class ErrorConsole final : public report::Console {
 public:
  void line(std::string_view text) override { say(std::string(text)); }
};

/// Puts the result on standard output, as a table or, where `jsonFile` is "-", as JSON alone; JSON
/// for a file goes there.
report::Status showOutcome(const report::Outcome& outcome, const std::string& jsonFile);

/// A file to write from the root on, for runs change the working directory; empty and "-", for
/// standard output, stay.
std::string wholeFilePath(const std::string& name);

}  // namespace cli
