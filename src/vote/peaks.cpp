#include "vote/peaks.h"

#include <algorithm>
#include <cmath>

namespace vote {
namespace {

constexpr double kFrameSeconds = 0.024;
constexpr std::size_t kMostPeaks = 4;
constexpr int kFewestHits = 5;
constexpr int kHalfPeak = 1;    // frames: 2.4 hundredths, the next would lie 4.8 off
constexpr int kHalfNear = 4;    // frames within 0.1 s belong to the same peak
constexpr int kApart = 7;       // frames between peaks; their means may move by one each
constexpr int kHalfWide = 125;  // frames within 3 s tell how many hits chance brings

/// How many hits there are at every frame difference, as running sums.
class Histogram {
 public:
  /// `counts` by difference, from `begin` on.
  Histogram(std::span<const int> counts, int begin)
      : begin_(begin), end_(begin + static_cast<int>(counts.size())) {
    sums_.resize(counts.size() + 2 * (kHalfWide + 1));
    int* next = sums_.data() + kHalfWide + 1;
    int sum = 0;
    for (const int count : counts) *next++ = sum += count;
    std::fill(next, sums_.data() + sums_.size(), sum);
  }

  int begin() const { return begin_; }
  int end() const { return end_; }

  /// Hits at most `half` frames from `frames`, which lies within begin and end.
  int within(int frames, int half) const {
    return sums_[index(frames + half + 1)] - sums_[index(frames - half)];
  }

 private:
  std::size_t index(int frames) const { return frames - begin_ + kHalfWide; }

  int begin_, end_;
  std::vector<int> sums_;  // hits below each difference, from kHalfWide before the first on
};

struct Gathering {
  int frames, hits;
  double significance;
};

bool weaker(const Gathering& a, const Gathering& b) {
  if (a.significance != b.significance) return a.significance < b.significance;
  return a.frames > b.frames;
}

std::vector<Gathering> gatherings(const Histogram& histogram) {
  constexpr double kShare = (2.0 * kHalfPeak + 1) / (2 * (kHalfWide - kHalfNear));
  std::vector<Gathering> found;
  for (int frames = histogram.begin(); frames < histogram.end(); ++frames) {
    const int hits = histogram.within(frames, kHalfPeak);
    if (hits < kFewestHits) continue;
    const int around = histogram.within(frames, kHalfWide) - histogram.within(frames, kHalfNear);
    const double expected = around * kShare;
    found.push_back({frames, hits, (hits - expected) / std::sqrt(expected + 1)});
  }
  return found;
}

/// Placed at the mean of its hits, which knows more than the grid of frames.
DeltaPeak peakAt(const Gathering& gathering, const Histogram& histogram) {
  const int later = histogram.within(gathering.frames + kHalfPeak, 0);
  const int earlier = histogram.within(gathering.frames - kHalfPeak, 0);
  const double mean = gathering.frames + static_cast<double>(later - earlier) / gathering.hits;
  return {mean * kFrameSeconds, gathering.hits, gathering.significance};
}

}  // namespace

std::vector<DeltaPeak> strongestPeaks(std::span<const HitCode> hits, int fillers) {
  if (std::ssize(hits) - fillers < kFewestHits) return {};
  int least = framesOfDelta(kDeltas), most = framesOfDelta(0);
  for (const HitCode hit : hits) {
    const int frames = framesOfDelta(deltaOf(hit));
    least = std::min(least, frames);
    most = std::max(most, frames);
  }
  std::vector<int> counts(most - least + 1);
  for (const HitCode hit : hits) ++counts[framesOfDelta(deltaOf(hit)) - least];
  if (fillers > 0) counts[-least] -= fillers;
  return peaksOfCounts(counts, least);
}

std::vector<DeltaPeak> peaksOfCounts(std::span<const int> counts, int begin) {
  const Histogram histogram(counts, begin);
  std::vector<Gathering> rest = gatherings(histogram);
  std::ranges::make_heap(rest, weaker);
  std::vector<Gathering> chosen;
  while (!rest.empty() && chosen.size() < kMostPeaks) {
    std::ranges::pop_heap(rest, weaker);
    const auto near = [next = rest.back()](const Gathering& other) {
      return std::abs(other.frames - next.frames) < kApart;
    };
    if (std::ranges::none_of(chosen, near)) chosen.push_back(rest.back());
    rest.pop_back();
  }
  std::vector<DeltaPeak> peaks;
  peaks.reserve(chosen.size());
  for (const Gathering& gathering : chosen) peaks.push_back(peakAt(gathering, histogram));
  return peaks;
}

}  // namespace vote
