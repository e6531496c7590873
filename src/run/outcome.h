#pragma once

#include "report/outcome.h"

namespace run {

using report::Group;
using report::LeftOut;
using report::Member;
using report::Outcome;

/// Something that the user asked for and will not find.
inline void addFailure(const std::string& sentence, Outcome& outcome) {
  outcome.notices.push_back(sentence);
  outcome.failures.push_back(sentence);
}

}  // namespace run
