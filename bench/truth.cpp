#include "bench/truth.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace events {
namespace {

// How much of a span lies in none of the others.
double outside(Span span, std::vector<Span> others) {
  std::ranges::sort(others, {}, &Span::from);
  double seconds = 0;
  for (const Span& other : others) {
    seconds += std::max(0.0, std::min(other.from, span.to) - span.from);
    span.from = std::max(span.from, other.to);
  }
  return seconds + std::max(0.0, span.to - span.from);
}

// The middle between the least and the most that b hears the event later than a.
double laterBy(const Take& a, const Take& b, double from, double to) {
  if (a.way.empty() && b.way.empty()) return 0;
  double least = 1e9, most = -1e9;
  for (double t = from; t <= std::max(from, to); t += 0.5) {
    const double later = lateness(b, t) - lateness(a, t);
    least = std::min(least, later), most = std::max(most, later);
  }
  return (least + most) / 2;
}

}  // namespace

Truth truthOf(const Set& set, std::size_t i, std::size_t j) {
  const Take &a = set.takes[i], &b = set.takes[j];
  const double from = std::max(a.startSeconds, b.startSeconds);
  const double to = std::min(a.startSeconds + a.lengthSeconds, b.startSeconds + b.lengthSeconds);
  const double middle = (from + to) / 2;
  const double onA = (middle - a.startSeconds) * (1 + a.microphone.driftPpm * 1e-6);
  const double onB = (middle - b.startSeconds) * (1 + b.microphone.driftPpm * 1e-6);
  if (a.event != b.event) return {-1, onA - onB, -1};
  const double offset = onA - onB - laterBy(a, b, from, to);
  std::vector<Span> silent = set.events[std::size_t(a.event)].pauses;
  for (const Take* take : {&a, &b})
    silent.insert(silent.end(), take->muted.begin(), take->muted.end());
  return {to - from, offset, outside({from, to}, silent)};
}

bool belongTogether(const Set& set, std::size_t a, std::size_t b) {
  constexpr double kEnough = 5, kShare = 0.8;
  const double shorter = std::min(set.takes[a].lengthSeconds, set.takes[b].lengthSeconds);
  return truthOf(set, a, b).heard >= std::min(kEnough, kShare * shorter);
}

bool isRight(double errorSeconds, const Truth& truth) {
  constexpr double kDrift = 120e-6;
  return std::abs(errorSeconds) < kRight + kDrift * std::max(0.0, -truth.overlap);
}

}  // namespace events
