#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "app/listen/mix.h"
#include "app/listen/sound_store.h"

namespace app {

/// A clip that may be heard.
struct HeardClip {
  int row = 0;  // in the timeline's model
  int lane = 0;
  double startSeconds = 0;  // of its sound on the timeline
  double lengthSeconds = 0;
  std::string soundPath;  // UTF-8; 8000 Hz
};

/// What the user wants to hear of them.
struct ListenChoice {
  std::vector<int> solo, muted;     // lanes; with any solo, only those are heard
  int leftRow = -1, rightRow = -1;  // of a pair, which is then heard alone, one on either side
};

/// How `clips` are heard, in their order. All have their say at the same strength, lower the more
/// of them there are at a time. Pure.
std::vector<Voice> voicesOf(std::span<const HeardClip> clips, const ListenChoice& choice);

/// From here to there and over again; none if `end` is not behind `begin`. Frames.
struct Loop {
  std::int64_t begin = 0, end = 0;
  bool active() const { return end > begin; }
};

/// The frame of the timeline that is heard `played` frames after playing began at `start`.
std::int64_t frameAfter(std::int64_t start, std::int64_t played, const Loop& loop);

/// Everything that is played: what, and from where. A value for the thread that plays.
struct Programme {
  std::vector<HeardClip> clips;
  std::vector<Voice> voices;
  Loop loop;
};

/// Fills `stereo` with what is heard `played` frames after the start at `start`.
void play(const Programme& programme, SoundStore& sounds, std::int64_t start, std::int64_t played,
          std::span<float> stereo);

}  // namespace app
