#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace timeline {

/// Units of a timeline from `start` on, `end` not included.
struct Span {
  std::int64_t start, end;
  std::int64_t length() const { return end - start; }
  bool operator==(const Span&) const = default;
};

/// While what one angle has something to show and to hear; each by start, without overlap.
struct Angle {
  std::vector<Span> picture, sound;
  bool recorder = false;  // its sound is preferred to that of cameras
};

/// A piece of the edit and the angles that are seen and heard in it; -1: there is none.
struct Cut {
  Span span;
  int picture, sound;
  bool operator==(const Cut&) const = default;
};

/// Cuts a group of `length` units so that there is always a picture and a sound where any angle
/// has one: at each end the angle that goes on longest takes over. A piece shorter than `least`
/// begins earlier instead, where its angle allows it. Pure.
std::vector<Cut> edit(std::span<const Angle> angles, std::int64_t length, std::int64_t least);

}  // namespace timeline
