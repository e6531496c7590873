#include "analysis/peaks.h"

#include <algorithm>
#include <array>
#include <ranges>

namespace analysis {
namespace {

constexpr int kPeaksPerFrame = 5;
constexpr int kFirstFrames = 10;  // whose loudest values start the forward envelope

// The largest value of every bin over some frames.
std::array<float, kBins> loudestOf(std::span<const float> frames) {
  std::array<float, kBins> loudest;
  std::copy_n(frames.begin(), kBins, loudest.begin());
  for (std::size_t i = kBins; i < frames.size(); ++i)
    loudest[i % kBins] = std::max(loudest[i % kBins], frames[i]);
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

ForwardPeaks::ForwardPeaks(Eigen::Index frames, float decay, std::int64_t capacity)
    : frames_(frames), decay_(decay), capacity_(capacity) {}

void ForwardPeaks::add(const float* spectrum) {
  std::copy_n(spectrum, kBins, last_.begin());
  if (envelope_) return take(spectrum);
  first_.insert(first_.end(), spectrum, spectrum + kBins);
  if (std::ssize(first_) == kBins * std::min<Eigen::Index>(kFirstFrames, frames_)) begin();
}

void ForwardPeaks::begin() {
  envelope_.emplace(loudestOf(first_).data(), decay_);
  for (std::size_t frame = 0; frame < first_.size(); frame += kBins) take(&first_[frame]);
  first_ = {};
}

void ForwardPeaks::take(const float* spectrum) {
  const Eigen::Index t = taken_++;
  std::int64_t room = std::min<std::int64_t>(
      kPeaksPerFrame, capacity_ * (t + 1) / frames_ - static_cast<std::int64_t>(peaks_.size()));
  if (room > 0 && envelope_->isExceededBy(spectrum)) {
    for (const Candidate& candidate : Candidates(spectrum, *envelope_)) {
      const float value = spectrum[candidate.bin];
      if (!(value > (*envelope_)[candidate.bin])) continue;
      peaks_.push_back({static_cast<int>(t), candidate.bin, value});
      envelope_->raise(candidate.bin, value, forwardBell());
      if (--room == 0) break;
    }
  }
  envelope_->fall();
}

std::vector<Peak> backwardPeaks(Eigen::Index frames, const float* last, std::span<const Peak> peaks,
                                float decay) {
  std::vector<Peak> kept;
  Envelope envelope(last, decay);
  auto frame = static_cast<int>(frames - 1);
  for (const Peak& peak : std::views::reverse(peaks)) {
    for (; frame > peak.frame; --frame) envelope.fall();
    if (!(peak.value >= envelope[peak.bin])) continue;
    kept.push_back(peak);
    envelope.raise(peak.bin, peak.value, backwardBell());
  }
  return kept;
}

}  // namespace analysis
