#include "export/media.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace timeline {
namespace {

constexpr int kMostChannels = 32;  // a damaged header may claim any number

int even(double pixels) { return static_cast<int>(std::lround(pixels / 2)) * 2; }

}  // namespace

bool hasPicture(const Media& media) { return media.facts.picture && media.pictureSeconds > 0; }

bool hasSound(const Media& media) { return media.soundSeconds > 0; }

double lengthSeconds(const Media& media) {
  return std::max(media.pictureSeconds, media.soundSeconds);
}

FrameRate pictureRate(const Media& media, FrameRate sequenceRate) {
  if (!media.facts.picture || !media.facts.picture->rate.known()) return sequenceRate;
  return exactRate(usualRate(media.facts.picture->rate.perSecond()));
}

PictureSize shownSize(const project::Picture& picture) {
  const double aspect = picture.pixelAspect > 0 ? picture.pixelAspect : 1;
  const bool square = std::abs(aspect - 1) < 0.005;
  const int width = square ? picture.width : even(picture.width * aspect);
  if (picture.rotation % 180 == 0) return {width, picture.height};
  return {picture.height, width};
}

PictureSize shownSize(const Media& media) {
  return media.facts.picture ? shownSize(*media.facts.picture) : PictureSize{};
}

std::vector<Channel> channelsOf(const Media& media) {
  if (!hasSound(media)) return {};
  std::vector<Channel> all;
  for (int stream = 0; stream < std::ssize(media.facts.sounds); ++stream) {
    const project::Sound& sound = media.facts.sounds[stream];
    for (int channel = 0; channel < sound.channels && std::ssize(all) < kMostChannels; ++channel)
      all.push_back({stream, channel, sound.layout.empty() ? "" : sound.layout[channel]});
  }
  if (all.empty()) all = {{0, 0, ""}, {0, 1, ""}};
  return all;
}

int soundChannels(const Media& media) { return static_cast<int>(channelsOf(media).size()); }

int soundStreams(const Media& media) {
  return hasSound(media) ? std::max(1, static_cast<int>(media.facts.sounds.size())) : 0;
}

int indexOfSound(const Media& media, int stream) {
  const auto& sounds = media.facts.sounds;
  const int told = stream < std::ssize(sounds) ? sounds[stream].index : -1;
  return told >= 0 ? told : stream + (hasPicture(media) ? 1 : 0);
}

bool isHeard(const Media& media, const Channel& channel) {
  return media.heardStream == 0 || channel.stream == media.heardStream;
}

int soundRate(const Media& media) {
  return media.facts.sounds.empty() || media.facts.sounds.front().rate <= 0
             ? 48000
             : media.facts.sounds.front().rate;
}

int soundBits(const Media& media) {
  return media.facts.sounds.empty() || media.facts.sounds.front().bits <= 0
             ? 16
             : media.facts.sounds.front().bits;
}

project::Timecode timecodeOf(const Media& media, FrameRate otherwise) {
  if (media.facts.timecode && media.facts.timecode->rate.known()) return *media.facts.timecode;
  return {{otherwise.units, otherwise.seconds}, 0, false};
}

FrameRate rateOf(const project::Timecode& timecode) {
  return {timecode.rate.units, timecode.rate.seconds};
}

std::string timecodeText(const project::Timecode& timecode, FrameRate display) {
  const std::int64_t base = timebaseOf(display).framesPerSecond;
  std::int64_t frames =
      rateOf(timecode) == display ? timecode.units : nearestUnit(timecode.seconds(), display);
  if (timecode.dropFrame) {  // numbers are left out, not frames: put them back in
    const std::int64_t gone = base / 15, minute = 60 * base - gone, ten = 10 * minute + gone;
    const std::int64_t rest = frames % ten;
    frames += frames / ten * 9 * gone + (rest < minute + gone ? 0 : (rest - gone) / minute * gone);
  }
  std::array<char, 64> text{};
  const std::int64_t seconds = frames / base;
  std::snprintf(text.data(), text.size(), "%02d:%02d:%02d%c%02d", int(seconds / 3600 % 24),
                int(seconds / 60 % 60), int(seconds % 60), timecode.dropFrame ? ';' : ':',
                int(frames % base));
  return text.data();
}

}  // namespace timeline
