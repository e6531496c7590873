#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

namespace vote {

/// A packed hit, 64 bits. Of two hits of one pair the one in the earlier section is less; within
/// a section the one with the smaller time difference is.
using HitCode = unsigned long long;

inline constexpr HitCode kHitSentinel = 9'999'999;  // first element of every pair's hits
inline constexpr int kZeroDelta = 5'000'000;        // the packed form of no time difference
inline constexpr int kDeltas = 10'000'000;          // deltas are below this: +-13.9 hours
inline constexpr int kIndices = 1000;               // file indices are below this
inline constexpr int kSections = 1'000'000;         // far more than the 32 of a sane recording

/// Two recordings hear the same thing once.
struct Hit {
  int section;        // 1/32 of the shorter recording
  int first, second;  // file indices of the longer and the shorter recording
  int delta;          // time in the first - time in the second, 1/100 s, raised by kZeroDelta
  bool operator==(const Hit&) const = default;
};

/// Every field must be below its limit above and not negative.
constexpr HitCode pack(const Hit& hit) {
  const HitCode section = static_cast<HitCode>(hit.section);
  return ((section * kIndices + hit.first) * kIndices + hit.second) * kDeltas + hit.delta;
}

constexpr int deltaOf(HitCode code) { return static_cast<int>(code % kDeltas); }

constexpr int sectionOf(HitCode code) {
  return static_cast<int>(code / (HitCode{kDeltas} * kIndices * kIndices));
}

constexpr Hit unpack(HitCode code) {
  const HitCode files = code / kDeltas;
  return {sectionOf(code), static_cast<int>(files / kIndices % kIndices),
          static_cast<int>(files % kIndices), deltaOf(code)};
}

/// The delta of two frames (24 ms each), cut toward zero; none when the difference is longer than
/// a delta can say: packed all the same, it would turn into another pair's hit.
constexpr std::optional<int> deltaOfFrames(std::uint64_t frameX, std::uint64_t frameY) {
  const double frames = static_cast<double>(frameX) - static_cast<double>(frameY);
  const double raised = frames * 192 / 8000 * 100 + kZeroDelta;  // in this order, for its rounding
  if (raised < 0 || raised >= kDeltas) return std::nullopt;
  return static_cast<int>(raised);
}

/// The same in whole numbers for a difference that deltaOfFrames has a delta for.
constexpr int deltaOfDifference(int frames) {
  const int tenths = frames * 24;  // of a hundredth of a second
  return kZeroDelta + (tenths >= 0 ? tenths / 10 : -((9 - tenths) / 10));
}

/// Inverse of deltaOfFrames: the whole number of frames behind a delta, negative where the second
/// recording started first.
constexpr int framesOfDelta(int delta) {
  const int hundredths = delta - kZeroDelta;
  return hundredths >= 0 ? (hundredths * 5 + 11) / 12 : -(-hundredths * 5 / 12);
}

/// The offset in seconds that a delta stands for.
constexpr float secondsOfDelta(int delta) {
  return static_cast<float>(delta - kZeroDelta) / 100.0f;
}

/// Which 1/32 of a recording of `seconds` (one more is granted) frame `frame` lies in.
constexpr int sectionOfFrame(std::uint64_t frame, float seconds) {
  const auto time = static_cast<float>(static_cast<double>(frame) * 192 / 8000);
  const double section = time / ((seconds + 1.0) * 0.03125);
  if (!(section > 0)) return 0;
  return static_cast<int>(std::min(section, double{kSections - 1}));
}

}  // namespace vote
