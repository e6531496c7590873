#include "run/replacement.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

#include "export/media.h"

namespace run {
namespace {

using timeline::Clip;
using timeline::Media;
using timeline::Steady;

constexpr double kUnheard = 0.5;  // samples; the sound stays as it is for less

/// Moments of the camera's file, in seconds.
struct Span {
  double begin, end;
  double length() const { return end - begin; }
};

struct Source {
  const Media* media;
  Steady place;  // of its first moment, by the camera's clock
  Span span;     // of the camera's picture that it sounds
};

Steady placeOf(const Clip& clip) {
  return clip.steady.value_or(Steady{clip.startSeconds - clip.sourceSeconds, 1});
}

/// Where `clip` stands if the camera begins at 0 and its clock is right.
Steady seenFrom(const Clip& camera, const Clip& clip) {
  const Steady clock = placeOf(camera), place = placeOf(clip);
  return {(place.startSeconds - clock.startSeconds) * clock.playRate,
          place.playRate / clock.playRate};
}

double soundStart(const Media& media) {
  return media.facts.sounds.empty() ? 0 : media.facts.sounds[media.heardStream].startSeconds;
}

Source sourceOf(const Media& media, const Steady& place, double length) {
  const double begin = place.startSeconds + soundStart(media) / place.playRate;
  const double end = place.startSeconds + media.soundSeconds / place.playRate;
  return {&media, place, {std::max(begin, 0.0), std::min(end, length)}};
}

/// Recorders by how much they cover, then the camera itself.
std::vector<Source> sourcesFor(const timeline::Project& timeline, const timeline::Group& group,
                               const Clip& camera, double length) {
  std::vector<Source> sources;
  for (const Clip& clip : group.clips) {
    const Media& media = timeline.media[clip.media];
    if (hasPicture(media) || !hasSound(media)) continue;
    sources.push_back(sourceOf(media, seenFrom(camera, clip), length));
  }
  std::ranges::stable_sort(sources, std::greater<>(),
                           [](const Source& s) { return s.span.length(); });
  const Media& own = timeline.media[camera.media];
  if (hasSound(own)) sources.push_back(sourceOf(own, {0, 1}, length));
  std::erase_if(sources, [](const Source& source) { return source.span.length() <= 0; });
  return sources;
}

/// A stretch of the target, in its samples; no source: silence.
struct Stretch {
  std::int64_t begin, end;
  const Source* source;
};

/// Each source fills what those before it left silent.
void fill(std::vector<Stretch>& row, const Source& source, int rate) {
  const auto begin = static_cast<std::int64_t>(std::ceil(source.span.begin * rate - 1e-6));
  const auto end = static_cast<std::int64_t>(std::floor(source.span.end * rate + 1e-6));
  std::vector<Stretch> filled;
  for (const Stretch& old : row) {
    const std::int64_t from = std::max(old.begin, begin), to = std::min(old.end, end);
    if (old.source || from >= to) {
      filled.push_back(old);
      continue;
    }
    if (old.begin < from) filled.push_back({old.begin, from, nullptr});
    filled.push_back({from, to, &source});
    if (to < old.end) filled.push_back({to, old.end, nullptr});
  }
  row = std::move(filled);
}

int channelsOfStream(const Media& media) {
  return media.facts.sounds.empty() ? 2
                                    : std::max(1, media.facts.sounds[media.heardStream].channels);
}

int rateOfStream(const Media& media) {
  const bool told = !media.facts.sounds.empty() && media.facts.sounds[media.heardStream].rate > 0;
  return told ? media.facts.sounds[media.heardStream].rate : soundRate(media);
}

SoundPart partOf(const Stretch& stretch, int targetRate) {
  SoundPart part;
  part.length = stretch.end - stretch.begin;
  if (!stretch.source) return part;
  const auto& [media, place, span] = *stretch.source;
  part.source = media->path;
  part.stream = media->heardStream;
  part.rate = rateOfStream(*media);
  part.channels = channelsOfStream(*media);
  const double stretchedBy = std::abs(place.playRate - 1) * double(part.length);
  if (part.rate != targetRate || stretchedBy > kUnheard) part.playRate = place.playRate;
  const double moment = (double(stretch.begin) / targetRate - place.startSeconds) * place.playRate;
  part.skip = std::max<std::int64_t>(0, std::llround((moment - soundStart(*media)) * part.rate));
  return part;
}

}  // namespace

JoinedSound replacementOf(const timeline::Project& timeline, const timeline::Group& group,
                          const Clip& camera) {
  const double length = timeline.media[camera.media].pictureSeconds;
  const std::vector<Source> sources = sourcesFor(timeline, group, camera, length);
  JoinedSound sound;
  if (sources.empty()) return sound;
  const Media& best = *sources.front().media;
  sound.rate = rateOfStream(best);
  sound.channels = channelsOfStream(best);
  sound.bits = best.facts.sounds.empty() ? 0 : best.facts.sounds[best.heardStream].bits;
  std::vector<Stretch> row{{0, std::llround(length * sound.rate), nullptr}};
  for (const Source& source : sources) fill(row, source, sound.rate);
  for (const Stretch& stretch : row) sound.parts.push_back(partOf(stretch, sound.rate));
  return sound;
}

void replaceAudio(const timeline::Project& timeline, NewSounds& sounds) {
  for (const timeline::Group& group : timeline.groups) {
    std::set<int> done;  // once, not for every piece
    for (const Clip& camera : group.clips) {
      const Media& media = timeline.media[camera.media];
      if (!hasPicture(media) || !done.insert(camera.media).second) continue;
      const JoinedSound sound = replacementOf(timeline, group, camera);
      if (!sound.parts.empty())
        (void)sounds.write(sound, stemOf(media.path) + "_sound", media.path);  // it says why not
    }
  }
}

}  // namespace run
