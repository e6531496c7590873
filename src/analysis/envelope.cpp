#include "analysis/envelope.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace analysis {
namespace {

// Bins of a spectrum that one bin's bell reaches. The upper side is one shorter.
constexpr int kReachBelow = 120;
constexpr int kReachAbove = 119;

}  // namespace

Bell::Bell(float (*widths)(int distance)) {
  for (int distance = 1 - kBins; distance < kBins; ++distance) {
    const float w = widths(distance);
    factors_[distance + kBins - 1] = std::exp(-0.5f * (w * w));
  }
}

const Bell& forwardBell() {
  static const Bell bell(+[](int distance) { return static_cast<float>(distance) * 0.033333335f; });
  return bell;
}

const Bell& backwardBell() {
  static const Bell bell(+[](int distance) { return static_cast<float>(distance) / 30.0f; });
  return bell;
}

Envelope::Envelope(const float* spectrum, float decay) : decay_(decay) {
  levels_.fill(-std::numeric_limits<float>::infinity());
  for (int bin = 0; bin < kBins; ++bin) {
    const float* bell = backwardBell().around(bin);
    const int end = std::min(bin + kReachAbove + 1, kBins);
    for (int x = std::max(bin - kReachBelow, 0); x < end; ++x) {
      levels_[x] = std::max(levels_[x], spectrum[bin] * bell[x]);
    }
  }
}

void Envelope::raise(int bin, float value, const Bell& bell) {
  const float* factors = bell.around(bin);
  for (int x = 0; x < kBins; ++x) levels_[x] = std::max(levels_[x], value * factors[x]);
  settled_ = false;
}

void Envelope::fall() {
  if (settled_) return;  // long silence ends at numbers that are slow to multiply
  int falling = 0;
  for (float& level : levels_) {
    const float next = level * decay_;
    falling += next != level;
    level = next;
  }
  settled_ = falling == 0;
}

bool Envelope::isExceededBy(const float* spectrum) const {
  int exceeding = 0;  // counted rather than searched: this loop runs on vectors
  for (int bin = 0; bin < kBins; ++bin) exceeding += spectrum[bin] > levels_[bin];
  return exceeding > 0;
}

}  // namespace analysis
