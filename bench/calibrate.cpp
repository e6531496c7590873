// What correlations are worth: how their values are spread at right offsets and at lags at which
// nothing can fit, and what the evidence makes of right and of wrong offsets. Whoever changes the
// evidence looks here whether chance is what it takes for chance and whether its doubt is honest.
//
// Usage: calibrate [--sounds FOLDER] [--cache FOLDER] [--seeds FIRST LAST] KIND...

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "align/correlate.h"
#include "align/evidence.h"
#include "bench/events/cache.h"
#include "bench/truth.h"

namespace {

using namespace events;

constexpr int kWindow = 2 * kRate, kMaxLag = kRate / 10;  // samples
constexpr int kNear = kRate / 200;  // rooms and codecs move the best delay by up to 5 ms
constexpr std::size_t kMostWindows = 32;

/// Counts of values from -8 to 24 in steps of a half; what lies beyond counts in the last ones.
class Histogram {
 public:
  static constexpr int kBins = 64;
  static double from(int bin) { return -8 + 0.5 * bin; }

  void add(double value) {
    const int bin = int(std::floor((value + 8) * 2));
    ++counts_[std::size_t(std::clamp(bin, 0, kBins - 1))], ++all_;
    sum_ += value, squares_ += value * value;
  }
  double share(int bin) const { return double(counts_[std::size_t(bin)]) / double(all_ + !all_); }
  double mean() const { return sum_ / double(all_ + !all_); }
  double variance() const { return squares_ / double(all_ + !all_) - mean() * mean(); }
  std::size_t count() const { return all_; }

 private:
  std::array<std::size_t, kBins> counts_ = {};
  std::size_t all_ = 0;
  double sum_ = 0, squares_ = 0;
};

double normalShare(int bin) {
  const auto below = [](double x) { return 0.5 * std::erfc(-x / std::sqrt(2)); };
  const double to = bin + 1 == Histogram::kBins ? 1e9 : Histogram::from(bin + 1);
  return below(to) - (bin == 0 ? 0 : below(Histogram::from(bin)));
}

/// One offset of a pair, as the evidence saw it.
struct Seen {
  double logOdds, doubtSeconds, offSeconds;
};

struct Findings {
  Histogram right, chance;  // of single windows, in units of chance
  std::vector<Seen> rightOffsets, shifted, unrelated;
};

std::vector<float> piece(const std::vector<float>& sound, double middleSeconds) {
  const auto first = std::ptrdiff_t(std::lround(middleSeconds * kRate)) - kWindow / 2;
  std::vector<float> samples(kWindow, 0.0f);
  for (std::ptrdiff_t i = std::max<std::ptrdiff_t>(0, -first);
       i < kWindow && first + i < std::ssize(sound); ++i)
    samples[std::size_t(i)] = sound[std::size_t(first + i)];
  return samples;
}

/// What two recordings are said to share: from when to when on the first one's clock.
struct Overlap {
  const std::vector<float>&first, &second;
  double offset, from, to;  // seconds

  Overlap(const std::vector<float>& a, const std::vector<float>& b, double offsetSeconds)
      : first(a),
        second(b),
        offset(offsetSeconds),
        from(std::max(0.0, offset)),
        to(std::min(double(a.size()), double(b.size()) + offset * kRate) / kRate) {}
};

std::vector<align::WindowCorrelation> windowsOf(const Overlap& overlap) {
  const double seconds = double(kWindow) / kRate, room = overlap.to - overlap.from - seconds;
  if (room < 0) return {};
  const auto count = std::min(kMostWindows, 1 + std::size_t(2 * room / seconds));
  std::vector<align::Pieces> pieces;
  std::vector<align::WindowCorrelation> windows;
  for (std::size_t i = 0; i < count; ++i) {
    const double share = count > 1 ? double(i) / double(count - 1) : 0.5;
    const double at = overlap.from + seconds / 2 + room * share;
    windows.push_back({at - (overlap.from + overlap.to) / 2, {}});
    pieces.push_back({piece(overlap.first, at), piece(overlap.second, at - overlap.offset)});
  }
  auto lags = align::correlate(pieces, kMaxLag);
  for (std::size_t i = 0; i < count; ++i) {
    const std::vector<float> chance = align::chanceOf(pieces[i], kMaxLag);
    std::ranges::transform(lags[i], chance, lags[i].begin(), std::divides());
    windows[i].lags = std::move(lags[i]);
  }
  return windows;
}

Seen seen(const Overlap& overlap, const std::vector<align::WindowCorrelation>& windows) {
  const align::Evidence evidence = align::evidenceOf(windows, overlap.to - overlap.from);
  return {evidence.logOdds, evidence.doubtSamples / kRate, evidence.delaySamples / kRate};
}

// The lag within kNear of the supposed offset at which the windows' sum reaches farthest.
int commonLag(const std::vector<align::WindowCorrelation>& windows) {
  int best = 0;
  float most = -1e9f;
  for (int lag = -kNear; lag <= kNear; ++lag) {
    float sum = 0;
    for (const auto& window : windows) sum += window.lags[std::size_t(lag + kMaxLag)];
    if (std::abs(sum) > most) most = std::abs(sum), best = lag;
  }
  return best;
}

void addRight(const Overlap& overlap, Findings& findings) {
  const auto windows = windowsOf(overlap);
  if (windows.empty()) return;
  findings.rightOffsets.push_back(seen(overlap, windows));
  const auto at = std::size_t(commonLag(windows) + kMaxLag);
  for (const auto& window : windows) findings.right.add(window.lags[at]);
}

void addShifted(const Overlap& overlap, Findings& findings) {
  if (const auto windows = windowsOf(overlap); !windows.empty())
    findings.shifted.push_back(seen(overlap, windows));
}

void addUnrelated(const Overlap& overlap, Findings& findings) {
  const auto windows = windowsOf(overlap);
  if (windows.empty()) return;
  findings.unrelated.push_back(seen(overlap, windows));
  for (const auto& window : windows)
    for (std::size_t lag = 0; lag < window.lags.size(); lag += 20)
      findings.chance.add(window.lags[lag]);
}

// Every pair that belongs together at its right offset; shifted by some seconds, where only what
// repeats can fit; and with one recording backwards, which has the same sounds but fits nowhere.
void examine(const RenderedSet& rendered, Random& random, Findings& findings) {
  const auto& [set, sounds] = rendered;
  for (std::size_t i = 0; i < sounds.size(); ++i)
    for (std::size_t j = i + 1; j < sounds.size(); ++j) {
      if (set.takes[i].device == set.takes[j].device || !belongTogether(set, i, j)) continue;
      const double right = truthOf(set, i, j).offset;
      const std::vector<float> backwards(sounds[j].rbegin(), sounds[j].rend());
      addRight({sounds[i], sounds[j], right}, findings);
      for (const double far : {uniform(random, 1, 4), -uniform(random, 1, 4)}) {
        addShifted({sounds[i], sounds[j], right + far}, findings);
        addUnrelated({sounds[i], backwards, right + far}, findings);
      }
    }
}

void printHistograms(const Findings& f) {
  std::printf("single windows, in units of chance: %zu at right offsets, %zu unrelated\n",
              f.right.count(), f.chance.count());
  std::printf("unrelated: mean %.3f, variance %.3f (chance: 0 and 1)\n", f.chance.mean(),
              f.chance.variance());
  std::printf("   from   normal  unrelated    right  log(right/unrelated)\n");
  for (int bin = 0; bin < Histogram::kBins; ++bin) {
    const double right = f.right.share(bin), chance = f.chance.share(bin);
    if (right == 0 && chance == 0) continue;
    std::printf("  %5.1f  %.5f    %.5f  %.5f", Histogram::from(bin), normalShare(bin), chance,
                right);
    std::printf(right > 0 && chance > 0 ? "  %8.2f\n" : "\n", std::log(right / chance));
  }
}

double shareAbove(const std::vector<Seen>& offsets, double logOdds) {
  return double(
             std::ranges::count_if(offsets, [&](const Seen& s) { return s.logOdds > logOdds; })) /
         double(std::max<std::size_t>(1, offsets.size()));
}

void printEvidence(const Findings& f) {
  std::printf("evidence: %zu right offsets, %zu shifted, %zu unrelated\n", f.rightOffsets.size(),
              f.shifted.size(), f.unrelated.size());
  std::printf("  log odds over     right   shifted  unrelated  promised\n");
  for (const double limit : {0.0, 2.0, 4.0, 7.0, 10.0, 14.0, 18.4, 25.0, 40.0, 80.0})
    std::printf("  %13.1f  %8.4f  %8.4f  %9.4f  %8.4f\n", limit, shareAbove(f.rightOffsets, limit),
                shareAbove(f.shifted, limit), shareAbove(f.unrelated, limit), std::exp(-limit));
  int held = 0, believed = 0;
  for (const Seen& s : f.rightOffsets) {
    if (s.logOdds < 18.4) continue;
    ++believed, held += std::abs(s.offSeconds) <= 2 * s.doubtSeconds;
  }
  std::printf("  right within twice the doubt: %d of %d (95 in 100 would be honest)\n", held,
              believed);
}

}  // namespace

int main(int argc, char** argv) {
  std::string sounds = "build/sounds", cache;
  unsigned first = 3, last = 5;
  std::vector<std::string> kinds;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const auto value = [&] { return i + 1 < argc ? argv[++i] : ""; };
    if (word == "--sounds") {
      sounds = value();
    } else if (word == "--cache") {
      cache = value();
    } else if (word == "--seeds") {
      first = unsigned(std::atoi(value()));
      last = unsigned(std::atoi(value()));
    } else {
      kinds.push_back(word);
    }
  }
  Renderer render(sounds, cache);
  for (const std::string& kind : kinds) {
    Findings findings;
    for (unsigned seed = first; seed <= last; ++seed) {
      Random random(seed);
      examine(render(kind, seed), random, findings);
    }
    std::printf("%s, seeds %u to %u\n", kind.c_str(), first, last);
    printHistograms(findings);
    printEvidence(findings);
  }
}
