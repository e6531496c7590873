#include "app/listen/programme.h"

#include <algorithm>
#include <cmath>

namespace app {
namespace {

constexpr int kSoundRate = 8000;  // Hz, of the sounds that a run keeps

bool in(const std::vector<int>& list, int value) {
  return std::ranges::find(list, value) != list.end();
}

bool isHeard(const HeardClip& clip, const ListenChoice& choice) {
  return choice.solo.empty() ? !in(choice.muted, clip.lane) : in(choice.solo, clip.lane);
}

/// The most clips that sound at one time.
int mostTogether(std::span<const HeardClip> clips, const ListenChoice& choice) {
  int most = 1;
  for (const HeardClip& at : clips)
    most = std::max(most, static_cast<int>(std::ranges::count_if(clips, [&](const HeardClip& clip) {
                      return isHeard(clip, choice) && clip.startSeconds <= at.startSeconds &&
                             at.startSeconds < clip.startSeconds + clip.lengthSeconds;
                    })));
  return most;
}

}  // namespace

std::vector<Voice> voicesOf(std::span<const HeardClip> clips, const ListenChoice& choice) {
  const bool pair = choice.leftRow >= 0 && choice.rightRow >= 0;
  // sounds that have nothing to do with each other add up to the root of their number
  const float strength = 1 / std::sqrt(static_cast<float>(mostTogether(clips, choice)));
  std::vector<Voice> voices;
  for (const HeardClip& clip : clips) {
    const float both = isHeard(clip, choice) ? strength : 0;
    const float left = pair ? float(clip.row == choice.leftRow) : both;
    const float right = pair ? float(clip.row == choice.rightRow) : both;
    voices.push_back({clip.startSeconds, clip.lengthSeconds, kSoundRate, left, right});
  }
  return voices;
}

std::int64_t frameAfter(std::int64_t start, std::int64_t played, const Loop& loop) {
  const std::int64_t frame = start + played;
  if (!loop.active() || frame < loop.end || start >= loop.end) return frame;
  return loop.begin + (frame - loop.end) % (loop.end - loop.begin);
}

void play(const Programme& programme, SoundStore& sounds, std::int64_t start, std::int64_t played,
          std::span<float> stereo) {
  const VoiceReader read = [&](int voice, std::int64_t first, std::span<float> out) {
    sounds.read(programme.clips[static_cast<std::size_t>(voice)].soundPath, first, out);
  };
  while (!stereo.empty()) {
    const std::int64_t frame = frameAfter(start, played, programme.loop);
    auto count = static_cast<std::int64_t>(stereo.size() / 2);
    if (programme.loop.active() && frame < programme.loop.end)
      count = std::min(count, programme.loop.end - frame);
    const auto piece = stereo.first(static_cast<std::size_t>(2 * count));
    mix(programme.voices, read, frame, piece);
    stereo = stereo.subspan(piece.size());
    played += count;
  }
}

}  // namespace app
