#include "align/listening.h"

#include <Eigen/Core>
#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <utility>

#include "align/correlate.h"

namespace align {
namespace {

constexpr double kLeastOverlap = 1.5;     // seconds; below there is nothing to compare
constexpr double kPause = 0.5;            // seconds without anything active that do not matter
constexpr double kReach = 0.1;            // seconds around the supposed offset
constexpr double kReachPerSecond = 5e-5;  // drift may add this much for every second of overlap
constexpr double kShortOverlap = 5, kLongOverlap = 240;  // seconds
constexpr double kLongestFaint = 120;                    // seconds; slopes to try grow with it
constexpr double kGlimmer = 4.6;  // evidence of the first 4 windows worth the others: one has 4.5
constexpr double kHint = 11, kProof = 15;  // ... of the first 8, of the first 16
constexpr double kPlenty = 20;             // evidence past which more windows add little
constexpr std::size_t kFew = 4, kSome = 8, kMany = 16, kMost = 32;

// The first windows are spread over the whole overlap, later ones lie between those.
std::vector<std::size_t> coarseFirst(std::size_t count) {
  std::size_t step = 1;
  while (step * 2 * kFew <= count) step *= 2;
  const auto round = [step](std::size_t i) {
    std::size_t rest = (i + step / 2) % step, reversed = 0;
    for (std::size_t bit = 1; bit < step; bit *= 2, rest /= 2) reversed = 2 * reversed + rest % 2;
    return reversed;
  };
  std::vector<std::size_t> order(count);
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, {}, round);
  return order;
}

void turn(WindowCorrelation& window) {
  for (float& lag : window.lags) lag = -lag;
}

// The correlation coefficient of two pieces, 0 where either is silent.
float likeness(const std::vector<float>& a, const std::vector<float>& b) {
  using Samples = Eigen::Map<const Eigen::VectorXf>;
  const Samples x(a.data(), std::ssize(a)), y(b.data(), std::ssize(b));
  return std::abs(x.dot(y)) / std::max(1e-9f, x.norm() * y.norm());
}

// Where four windows all say the same so loudly, nobody needs to hear more.
bool plain(const DelayLine& line) {
  return line.heights.size() >= kFew && std::ranges::min(line.heights) >= kPastRepetition;
}

// Chance gives so much less the more windows there are that what is real stands out in time. It
// never gives one so high: then something that gates its noise may be silent in the others.
bool mayStillConvince(const Alignment& a) {
  return a.evidence >= (a.windows > 8 ? kProof : kHint) || a.strength >= kPastRepetition;
}

bool worthMore(const Alignment& a) {
  if (!believed(a)) return mayStillConvince(a);
  if (a.varies) return a.windows < int(kMany);
  return !nearlyEverywhere(a) || (a.evidence < kPlenty && a.strength < kPastRepetition);
}

}  // namespace

Listening::Listening(const Pair& pair, double offsetSeconds, const SoundReader& sound,
                     std::vector<Stretch> active, Windows windows)
    : pair_(pair),
      offset_(std::round(offsetSeconds * kSampleRate) / kSampleRate),
      sound_(&sound),
      active_(std::move(active)) {
  const double first = double(pair.firstSamples) / kSampleRate;
  const double second = double(pair.secondSamples) / kSampleRate;
  from_ = std::max(0.0, offset_);
  to_ = std::max(from_, std::min(first, offset_ + second));
  keepToOverlap();
  length_ = windows == Windows::many || activeSeconds() < kShortOverlap ? 8192 : 16384;
  const double reach = std::min(0.5, kReach + kReachPerSecond * overlap());
  maxLag_ = std::min(length_ / 4, static_cast<int>(reach * kSampleRate));
  if (overlap() >= kLeastOverlap) chooseWindows();
}

// Too little that is active tells nothing, and pauses of half a second are none.
void Listening::keepToOverlap() {
  for (Stretch& stretch : active_)
    stretch = {std::clamp(stretch.from, from_, to_), std::clamp(stretch.to, from_, to_)};
  if (activeSeconds() < kLeastOverlap || activeSeconds() > overlap() - kPause)
    active_ = {{from_, to_}};
}

double Listening::activeSeconds() const {
  double seconds = 0;
  for (const Stretch& stretch : active_) seconds += stretch.to - stretch.from;
  return seconds;
}

// The time before which so many active seconds have passed.
double Listening::whereActive(double seconds) const {
  for (const Stretch& stretch : active_) {
    const double length = stretch.to - stretch.from;
    if (seconds <= length) return stretch.from + seconds;
    seconds -= length;
  }
  return to_;
}

// Evenly over what is active; windows overlap each other by half at most.
void Listening::chooseWindows() {
  const double seconds = double(length_) / kSampleRate;
  const double room = std::max(0.0, activeSeconds() - 0.6 * seconds);
  const auto count = std::min(kMost, 1 + static_cast<std::size_t>(2 * room / seconds));
  for (const std::size_t k : coarseFirst(count)) {
    const double share = count > 1 ? double(k) / double(count - 1) - 0.5 : 0;
    middles_.push_back(whereActive(activeSeconds() / 2 + room * share));
  }
}

std::vector<float> Listening::piece(int file, double middle) const {
  const auto centre = static_cast<std::int64_t>(std::llround(middle * kSampleRate));
  return (*sound_)(file, centre - length_ / 2, length_);
}

// The best line through so many windows.
const DelayLine& Listening::listenTo(std::size_t windows) {
  const std::size_t known = correlations_.size(), count = std::min(windows, middles_.size());
  if (count <= known) return line_;
  std::vector<Pieces> pieces;
  for (std::size_t i = known; i < count; ++i)
    pieces.push_back({piece(pair_.first, middles_[i]), piece(pair_.second, middles_[i] - offset_)});
  auto lags = correlate(pieces, maxLag_);
  for (std::size_t i = known; i < count; ++i) {
    correlations_.push_back({middles_[i] - middle(), std::move(lags[i - known])});
    if (inverted_) turn(correlations_.back());
  }
  line_ = varyingOr(bestLine(correlations_), correlations_);
  turnIfInverted();
  return line_;
}

// A tone reaches nearly as far down half a period beside its peak, so the turned one must be
// clearly better.
void Listening::turnIfInverted() {
  constexpr double kShare = 1.25, kMore = 6;
  if (inverted_ || !looksInverted(correlations_)) return;
  std::vector<WindowCorrelation> turned = correlations_;
  std::ranges::for_each(turned, turn);
  const DelayLine line = varyingOr(bestLine(turned), turned);
  if (heightOf(line) < kShare * heightOf(line_) + kMore) return;
  inverted_ = true;
  correlations_ = std::move(turned);
  line_ = line;
}

Alignment Listening::summary(const DirectSound& direct) const {
  Alignment a{.first = pair_.first, .second = pair_.second};
  a.overlapSeconds = overlap();
  a.offsetSeconds = offset_ + (line_.delaySamples + direct.shiftSamples) / kSampleRate;
  a.driftPpm = -line_.slope / kSampleRate * 1e6;
  a.driftError = line_.slopeError / kSampleRate * 1e6;
  a.errorSeconds = std::hypot(line_.errorSamples, direct.doubtSamples) / kSampleRate;
  summarise(a, line_, correlations_);
  return a;
}

// What the windows listened to say together, in units of chance.
Evidence Listening::evidence() const {
  std::vector<WindowCorrelation> windows = correlations_;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const auto chance = chanceOf(
        {piece(pair_.first, middles_[i]), piece(pair_.second, middles_[i] - offset_)}, maxLag_);
    std::ranges::transform(windows[i].lags, chance, windows[i].lags.begin(), std::divides());
  }
  return evidenceOf(windows, overlap());
}

// Listens to all windows as long as those so far say more for the two hearing the same than
// against it.
Alignment Listening::faint() {
  if (overlap() > kLongestFaint || middles_.size() < kFew) return summary();
  Evidence found;
  for (const std::size_t count : {kMany, kMost}) {
    listenTo(count);
    found = evidence();
    if (found.logOdds < 0 || correlations_.size() == middles_.size()) break;
  }
  Alignment a{.first = pair_.first, .second = pair_.second};
  a.overlapSeconds = overlap();
  a.offsetSeconds = offset_ + found.delaySamples / kSampleRate;
  a.errorSeconds = found.doubtSamples / kSampleRate;
  summarise(a, found, correlations_.size());
  return a;
}

Alignment Listening::glance() {
  const DelayLine& line = listenTo(kFew);
  const bool high = !line.heights.empty() && std::ranges::max(line.heights) >= kPastRepetition;
  if ((line.evidence >= kGlimmer || high) && !plain(line)) listenTo(kSome);
  if (line_.evidence > kGlimmer && leavesReach()) comeNearer();
  return summary();
}

// Whether the line runs past the correlations' ends, or nearly so: drift adds to a vague offset.
bool Listening::leavesReach() const {
  constexpr double kNearly = 0.9;
  const double farthest = std::abs(line_.delaySamples) + std::abs(line_.slope) * overlap() / 2;
  return farthest > kNearly * maxLag_;
}

// Begins again at the offset that the line has, if there is more to hear from there.
void Listening::comeNearer() {
  Listening nearer(pair_, offset_ + line_.delaySamples / kSampleRate, *sound_, active_);
  nearer.listenTo(kSome);
  if (nearer.line_.evidence > line_.evidence) *this = std::move(nearer);
}

Alignment Listening::exact() {
  if (overlap() > kLongOverlap)
    listenTo(kMany);
  else if (const DelayLine& line = listenTo(kFew); line.varies || !plain(line))
    listenTo(kSome);
  for (const std::size_t more : {kMany, kMost})
    if (middles_.size() > correlations_.size() && worthMore(summary())) listenTo(more);
  if (!believed(summary())) return summary();
  Alignment heard = summary(findDirect());
  heard.copy = samplesAlike();
  return heard;
}

Alignment Listening::thorough() {
  listenTo(kMany);
  return summary();
}

// Whether the samples themselves, not only what correlates of them, are the same in every one of
// the first windows. Rooms leave less alike of what two microphones hear.
bool Listening::samplesAlike() const {
  constexpr float kAlike = 0.95f;
  for (std::size_t i = 0; i < std::min(kFew, line_.delays.size()); ++i) {
    const double there = middles_[i] - offset_ - line_.delays[i] / kSampleRate;
    if (likeness(piece(pair_.first, middles_[i]), piece(pair_.second, there)) < kAlike)
      return false;
  }
  return !line_.varies;
}

// Only pairs with echoes nearly as loud as the direct sound need the look at their own echoes.
DirectSound Listening::findDirect() const {
  if (line_.varies) return {};
  const auto peaks = responsePeaks(correlations_, line_);
  if (peaks.size() < 2) return {};
  const std::size_t count = std::min(kSome, middles_.size());
  std::vector<std::vector<float>> first, second;
  for (std::size_t i = 0; i < count; ++i) {
    first.push_back(piece(pair_.first, middles_[i]));
    second.push_back(piece(pair_.second, middles_[i] - offset_));
  }
  return directSound(peaks, selfEchoes(correlateWithSelf(first, maxLag_)),
                     selfEchoes(correlateWithSelf(second, maxLag_)));
}

}  // namespace align
