#include "export/remarks.h"

#include <cmath>

#include "export/text.h"

namespace timeline {

using project::PlacedBy;

std::string confidenceText(const Clip& clip) {
  if (clip.placedBy == PlacedBy::clock) return "By the clock";
  if (clip.placedBy == PlacedBy::hand) return "By hand";
  if (clip.confidence <= 0 && !clip.errorSeconds) return "Not synchronised";
  return "Confidence " + numberText(std::round(clip.confidence * 100)) + " %";
}

std::string placeText(const Clip& clip) {
  if (clip.placedBy == PlacedBy::clock) return "By its device's clock, to about 2 s. Check it.";
  if (clip.placedBy == PlacedBy::hand) return "Somebody put it there.";
  if (clip.confidence <= 0 && !clip.errorSeconds) return "Place it by hand.";
  std::string text = "How exact the place is was not measured.";
  if (clip.errorSeconds) {
    const double milliseconds = std::max(0.1, std::round(*clip.errorSeconds * 1e4) / 10);
    text = "Placed to within " + numberText(milliseconds) + " ms.";
  }
  if (clip.driftPpm && std::abs(*clip.driftPpm) >= 0.1)
    text += " Its clock runs " + numberText(std::round(std::abs(*clip.driftPpm) * 10) / 10) +
            " millionths " + (*clip.driftPpm > 0 ? "fast." : "slow.");
  return text;
}

}  // namespace timeline
