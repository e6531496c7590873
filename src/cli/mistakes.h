#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/arguments.h"

namespace cli {

// What is said of words that no option parser can use: sentences without their full stops. Pure.

/// Of an option that does not exist, with the one that may have been meant.
std::string unknownOption(std::string_view word, Command command);

/// Of an option that is given too often, or without what belongs to it.
std::string wrongCount(const OptionText& option, bool tooOften);

/// The name that `word` was probably meant to be; empty if it is like none.
std::string_view likelyName(std::string_view word, std::span<const std::string> names);

}  // namespace cli
