#pragma once

#include "report/outcome.h"

namespace run {

using report::Group;
using report::LeftOut;
using report::Member;
using report::Outcome;

}  // namespace run
