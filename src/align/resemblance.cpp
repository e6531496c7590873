#include "align/resemblance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "align/activity.h"
#include "align/fft.h"
#include "report/per_thread.h"

namespace align {
namespace {

// The next power of two or three times one, which transform fast.
Eigen::Index fastSize(Eigen::Index least) {
  Eigen::Index size = 256;
  while (size < least) size *= 2;
  return size / 4 * 3 >= least ? size / 4 * 3 : size;
}

constexpr int kFours = kEnvelopeBands / 4;

/// Memory of one correlation of two envelopes; every thread keeps its own for the next.
struct Work {
  Signals padded, lags;
  std::array<Spectra, kFours> shorter;
  Spectra block, sum;
};

// Spectra of the four bands from `band` on: of `size` frames from frame `first` on, of which
// `count` at most are heard, with zeros past the ends.
Spectra spectraOf(const Envelope& envelope, Eigen::Index band, Eigen::Index first,
                  Eigen::Index count, Eigen::Index size, Signals& padded, Spectra into) {
  const Eigen::Index from = std::max<Eigen::Index>(0, first);
  const Eigen::Index frames = std::min(first + count, envelope.cols()) - from;
  padded.setZero(4, size);
  if (frames > 0)
    padded.middleCols(from - first, frames) = envelope.block(band, from, 4, frames).cast<float>();
  return forward(padded, std::move(into));
}

// Sum over bands of the products, for every lag of b's start from -(frames of b) on.
std::vector<float> correlationOverLags(const Envelope& a, const Envelope& b) {
  static const report::PerThread<Work> works;
  Work& own = *works;
  const Eigen::Index framesB = b.cols(), whole = a.cols() + framesB;
  const Eigen::Index size = fastSize(std::min(2 * framesB, whole));
  const Eigen::Index step = whole <= size ? size : size - framesB;  // what goes round is silence
  for (std::size_t i = 0; i < kFours; ++i)
    own.shorter[i] =
        spectraOf(b, 4 * Eigen::Index(i), 0, framesB, size, own.padded, std::move(own.shorter[i]));
  std::vector<float> result(static_cast<std::size_t>(whole), 0.0f);
  for (Eigen::Index at = 0; at < whole; at += step) {
    own.sum.re.setZero(4, size / 2 + 1);
    own.sum.im.setZero(4, size / 2 + 1);
    for (std::size_t i = 0; i < kFours; ++i) {
      own.block = spectraOf(a, 4 * Eigen::Index(i), at - framesB, size, size, own.padded,
                            std::move(own.block));
      const Spectra &x = own.block, &y = own.shorter[i];
      own.sum.re += x.re * y.re + x.im * y.im;
      own.sum.im += x.im * y.re - x.re * y.im;
    }
    own.lags = inverse(own.sum, std::move(own.lags));
    const Eigen::Index count = std::min(step, whole - at);
    Eigen::Map<Eigen::RowVectorXf>(result.data() + at, count) =
        own.lags.leftCols(count).colwise().sum();
  }
  return result;
}

// Divides every lag by what chance gives for its number of common frames.
void toStrength(std::vector<float>& lags, Eigen::Index framesA, Eigen::Index framesB,
                double least) {
  double power = 0, count = 0;
  for (std::size_t i = 0; i < lags.size(); ++i) {
    const auto start = static_cast<Eigen::Index>(i) - framesB;
    const auto common = std::min(framesA, start + framesB) - std::max<Eigen::Index>(0, start);
    if (double(common) < least) {
      lags[i] = 0;
      continue;
    }
    lags[i] /= std::sqrt(static_cast<float>(common));
    power += double(lags[i]) * lags[i];
    ++count;
  }
  const auto chance = static_cast<float>(std::sqrt(power / std::max(1.0, count)) + 1e-9);
  for (float& v : lags) v /= chance;
}

// Sum of the products of what both have from `from` to `to` on a's frames.
double product(const Envelope& a, const Envelope& b, Eigen::Index lag, Eigen::Index from,
               Eigen::Index to) {
  const std::int8_t* x = a.col(from).data();
  const std::int8_t* y = b.col(from - lag).data();
  std::int32_t sum = 0;  // 40 s are 20,000 products of up to 14,400
  for (Eigen::Index i = 0; i < kEnvelopeBands * (to - from); ++i) sum += x[i] * y[i];
  return sum;
}

// The resemblance at a lag of b's start in some ranges of a's frames, per root of their number;
// none where those are few.
std::optional<double> similarity(const Envelope& a, const Envelope& b, Eigen::Index lag,
                                 const std::vector<FrameRange>& ranges) {
  constexpr Eigen::Index kFewest = 64;
  double sum = 0;
  Eigen::Index frames = 0;
  for (const FrameRange& range : ranges) {
    const Eigen::Index from = std::max(range.from, lag), to = std::min(range.to, lag + b.cols());
    if (from >= to) continue;
    sum += product(a, b, lag, from, to);
    frames += to - from;
  }
  if (frames < kFewest) return std::nullopt;
  return sum / std::sqrt(double(frames));
}

double medianOf(std::vector<double>& values) {
  const auto middle = values.begin() + std::ssize(values) / 2;
  std::ranges::nth_element(values, middle);
  return *middle;
}

// How much the envelopes resemble each other near `lag` in some ranges, over what they do
// elsewhere.
std::optional<double> resemblanceIn(const Envelope& a, const Envelope& b, Eigen::Index lag,
                                    const std::vector<FrameRange>& ranges) {
  constexpr Eigen::Index kReach = 3, kOthers = 12, kOtherStep = 37;  // frames
  std::optional<double> best;
  for (Eigen::Index i = lag - kReach; i <= lag + kReach; ++i)
    if (const auto here = similarity(a, b, i, ranges)) best = std::max(*here, best.value_or(*here));
  std::vector<double> others;
  for (Eigen::Index k = 1; k <= kOthers; ++k)
    for (const Eigen::Index other : {lag - k * kOtherStep, lag + k * kOtherStep})
      if (const auto there = similarity(a, b, other, ranges)) others.push_back(std::abs(*there));
  if (!best || std::ssize(others) < kOthers / 2) return std::nullopt;
  return *best / (1.48 * medianOf(others) + 1e-9);  // the median's ratio to a standard deviation
}

}  // namespace

std::optional<double> resemblanceAt(const Envelope& a, const Envelope& b, double offsetSeconds) {
  constexpr Eigen::Index kMost = 1200;  // frames
  const auto lag = static_cast<Eigen::Index>(std::lround(offsetSeconds * kEnvelopeRate));
  const FrameRange common{std::max<Eigen::Index>(0, lag), std::min(a.cols(), lag + b.cols())};
  if (common.from >= common.to) return std::nullopt;
  const std::vector<FrameRange> active = activeRanges(a, b, lag);
  const auto anywhere = resemblanceIn(a, b, lag, middleOf({common}, kMost));
  if (active.size() == 1 && active[0].to - active[0].from == common.to - common.from)
    return anywhere;
  const auto there = resemblanceIn(a, b, lag, middleOf(active, kMost));
  return there && anywhere ? std::max(there, anywhere) : anywhere;
}

std::vector<Resemblance> resemblances(const Envelope& a, const Envelope& b, int count,
                                      double leastOverlap) {
  if (a.cols() < b.cols()) {
    std::vector<Resemblance> mirrored = resemblances(b, a, count, leastOverlap);
    for (Resemblance& r : mirrored) r.offsetSeconds = -r.offsetSeconds;
    return mirrored;
  }
  std::vector<Resemblance> best;
  if (b.cols() == 0) return best;
  std::vector<float> lags = correlationOverLags(a, b);
  toStrength(lags, a.cols(), b.cols(), leastOverlap * kEnvelopeRate);
  constexpr std::size_t kApart = static_cast<std::size_t>(kEnvelopeRate / 2);
  for (int k = 0; k < count; ++k) {
    const auto top = std::ranges::max_element(lags);
    if (top == lags.end() || *top <= 0) break;
    const auto at = static_cast<std::size_t>(top - lags.begin());
    best.push_back({(double(at) - double(b.cols())) / kEnvelopeRate, *top});
    const std::size_t from = at < kApart ? 0 : at - kApart;
    std::fill(lags.begin() + static_cast<std::ptrdiff_t>(from),
              lags.begin() + static_cast<std::ptrdiff_t>(std::min(lags.size(), at + kApart)), 0.0f);
  }
  return best;
}

}  // namespace align
