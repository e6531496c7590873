#pragma once

#include <string>

#include "export/project.h"

namespace timeline {

// What the markers of clips say.

/// "Confidence 95 %"; of a file that was not placed that it was not.
std::string confidenceText(const Clip& clip);

/// How exact the place is and what the clock leaves at the clip's ends: a sentence or two.
std::string placeText(const Clip& clip);

}  // namespace timeline
