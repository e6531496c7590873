#pragma once

#include <string>

namespace cli {

// What is made from the option table, so that none of them can say anything else than the program.

/// The manual page of kestrel-align, in the markup of man.
std::string manualPage();

/// The completion of kestrel-align for bash.
std::string bashCompletion();

}  // namespace cli
