#include "analysis/peaks.h"

#include <algorithm>
#include <array>
#include <ranges>

#include "analysis/envelope.h"

namespace analysis {
namespace {

constexpr int kPeaksPerFrame = 5;
constexpr int kFirstFrames = 10;  // whose loudest values start the forward envelope

// The largest value of every bin over the first frames.
Eigen::VectorXf loudestOfFirst(const Spectrogram& s) {
  Eigen::VectorXf loudest = s.col(0);
  for (Eigen::Index t = 1; t < std::min<Eigen::Index>(kFirstFrames, s.cols()); ++t) {
    for (int bin = 0; bin < kBins; ++bin) loudest[bin] = std::max(loudest[bin], s(bin, t));
  }
  return loudest;
}

struct Candidate {
  float height;  // above the envelope
  int bin;
};

// The bins of one frame in the order in which they are tried.
class Candidates {
 public:
  Candidates(const float* spectrum, const Envelope& envelope) {
    std::array<float, kBins + 1> heights;  // from bin 1 on; before bin 0 nothing is higher
    heights[0] = 0;
    for (int bin = 0; bin < kBins; ++bin) {
      heights[bin + 1] = std::max(0.0f, spectrum[bin] - envelope[bin]);
    }
    for (int bin = 0; bin < kBins - 1; ++bin) addIfLocalMaximum(&heights[bin + 1], bin);
    orderByHeight();
    // The last bin counts as not higher than the envelope, so it comes last of all.
    list_[size_++] = {0, kBins - 1};
  }

  auto begin() const { return list_.begin(); }
  auto end() const { return list_.begin() + size_; }

 private:
  // A bin equal to its left neighbour may stay, one equal to its right neighbour may not.
  void addIfLocalMaximum(const float* height, int bin) {
    if (height[0] > height[1] && height[0] >= height[-1]) list_[size_++] = {*height, bin};
  }

  // The highest first; of equally high bins only the last one is kept.
  void orderByHeight() {
    const auto last = list_.begin() + size_;
    std::sort(list_.begin(), last, [](const Candidate& a, const Candidate& b) {
      return a.height != b.height ? a.height > b.height : a.bin > b.bin;
    });
    const auto sameHeight = [](const Candidate& a, const Candidate& b) {
      return a.height == b.height;
    };
    size_ = static_cast<int>(std::unique(list_.begin(), last, sameHeight) - list_.begin());
  }

  std::array<Candidate, kBins / 2 + 1> list_;
  int size_ = 0;
};

}  // namespace

std::vector<Peak> forwardPeaks(const Spectrogram& s, float decay, std::int64_t capacity) {
  std::vector<Peak> peaks;
  Envelope envelope(loudestOfFirst(s).data(), decay);
  for (Eigen::Index t = 0; t < s.cols(); ++t) {
    const float* spectrum = s.col(t).data();
    std::int64_t room = std::min<std::int64_t>(
        kPeaksPerFrame, capacity * (t + 1) / s.cols() - static_cast<std::int64_t>(peaks.size()));
    if (room > 0 && envelope.isExceededBy(spectrum)) {
      for (const Candidate& candidate : Candidates(spectrum, envelope)) {
        const float value = spectrum[candidate.bin];
        if (!(value > envelope[candidate.bin])) continue;
        peaks.push_back({static_cast<int>(t), candidate.bin, value});
        envelope.raise(candidate.bin, value, forwardBell());
        if (--room == 0) break;
      }
    }
    envelope.fall();
  }
  return peaks;
}

std::vector<Peak> backwardPeaks(const Spectrogram& s, std::span<const Peak> peaks, float decay) {
  std::vector<Peak> kept;
  Envelope envelope(s.col(s.cols() - 1).data(), decay);
  auto frame = static_cast<int>(s.cols() - 1);
  for (const Peak& peak : std::views::reverse(peaks)) {
    for (; frame > peak.frame; --frame) envelope.fall();
    if (!(peak.value >= envelope[peak.bin])) continue;
    kept.push_back(peak);
    envelope.raise(peak.bin, peak.value, backwardBell());
  }
  return kept;
}

}  // namespace analysis
