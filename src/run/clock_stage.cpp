#include "run/clock_stage.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "export/clocks.h"
#include "export/lanes.h"
#include "export/media.h"
#include "report/text.h"
#include "run/new_sounds.h"
#include "run/quiet_moment.h"

namespace run {
namespace {

using timeline::Clip;
using timeline::Media;
using timeline::OneClock;

constexpr double kVisible = 0.010;  // seconds; less is neither seen nor heard

class Correction {
 public:
  Correction(timeline::Project& timeline, Drift drift, NewSounds& sounds, const SoundOf& soundOf,
             Outcome& outcome)
      : timeline_(timeline), drift_(drift), sounds_(sounds), soundOf_(soundOf), outcome_(outcome) {}

  void run() {
    for (timeline::Group& group : timeline_.groups) correct(group);
    if (rewritten_ > 0)
      outcome_.notices.push_back(
          "The clocks of " + std::to_string(rewritten_) +
          " sound recordings drift, so they were written anew at their group's clock, into the "
          "folder sound of the results; the documents use those. The originals are as they were.");
    if (cut_ > 0)
      outcome_.notices.push_back("The clocks of " + std::to_string(cut_) +
                                 " camera clips drift, so they were cut into pieces, each at its "
                                 "right frame.");
  }

 private:
  Media& mediaOf(const Clip& clip) { return timeline_.media[clip.media]; }

  void correct(timeline::Group& group) {
    const std::vector<OneClock> clocks = byOneClock(timeline_, group);
    double worst = 0;
    for (std::size_t i = 0; i < clocks.size(); ++i)
      worst = std::max(worst, clocks[i].worstError(lengthSeconds(mediaOf(group.clips[i]))));
    const bool act = drift_ != Drift::off && worst > kVisible;
    std::map<int, OneClock> toCut;  // by media
    for (std::size_t i = 0; i < clocks.size(); ++i) {
      Clip& clip = group.clips[i];
      const double error = clocks[i].worstError(lengthSeconds(mediaOf(clip)));
      clip.steady = timeline::Steady{clocks[i].startSeconds, clocks[i].playRate};
      tell(mediaOf(clip).path, error);
      if (!act) continue;
      clip.startSeconds = clocks[i].uncorrectedStart();
      if (hasPicture(mediaOf(clip))) {
        const double halfFrame = toSeconds(1, timeline::exactRate(timeline_.fps)) / 2;
        if (drift_ == Drift::pieces && error > halfFrame) toCut.emplace(clip.media, clocks[i]);
      } else if (clocks[i].playRate != 1) {
        rewrite(clip, clocks[i]);
      }
    }
    if (act) fromZero(group);
    if (!toCut.empty()) cut(group, toCut);
  }

  /// The sound of a recorder, stretched to the group's clock.
  void rewrite(Clip& clip, const OneClock& clock) {
    Media& media = mediaOf(clip);
    const int rate = soundRate(media);
    const std::int64_t length = std::llround(media.soundSeconds / clock.playRate * rate);
    NewSound sound{.source = media.path,
                   .target = {},
                   .stream = media.heardStream,
                   .rate = rate,
                   .bits = media.facts.sounds.empty() ? 0 : media.facts.sounds.front().bits,
                   .playRate = clock.playRate,
                   .length = length,
                   .keepTimecode = media.facts.timecode.has_value()};
    const auto written = sounds_.write(sound, stemOf(media.path));
    if (!written) return;
    ++rewritten_;
    tell(media.path, 0);
    const project::Sound heard = media.facts.sounds.empty() ? project::Sound{2, rate, 24, {}, 0, 0}
                                                            : media.facts.sounds[media.heardStream];
    media.path = *written;
    media.soundSeconds = double(length) / rate;
    media.facts.sounds = {heard};
    media.facts.sounds.front().lengthSeconds = media.soundSeconds;
    media.facts.lengthSeconds = media.soundSeconds;
    media.heardStream = 0;
    clip.startSeconds = clock.startSeconds;
    clip.driftPpm = 0;
    clip.steady.reset();
  }

  static void fromZero(timeline::Group& group) {
    std::ranges::stable_sort(group.clips, {}, &Clip::startSeconds);
    const double first = group.clips.front().startSeconds;
    for (Clip& clip : group.clips) {
      clip.startSeconds -= first;
      if (clip.steady) clip.steady->startSeconds -= first;
    }
  }

  /// After everything else of the group stands, so that the pieces keep to its frames.
  void cut(timeline::Group& group, const std::map<int, OneClock>& toCut) {
    const timeline::FrameRate rate = timeline::exactRate(timeline_.fps);
    group.phaseSeconds = bestPhase(timeline_, group, rate);
    std::vector<Clip> clips;
    for (const Clip& clip : group.clips) {
      const auto found = toCut.find(clip.media);
      if (found == toCut.end()) {
        clips.push_back(clip);
        continue;
      }
      ++cut_;
      OneClock clock = found->second;
      clock.startSeconds = clip.steady->startSeconds;
      const std::string sound = soundOf_(mediaOf(clip).path);
      const auto quiet = [&](double seconds) { return quietMoment(sound, seconds); };
      for (Clip& piece :
           inPieces(clip, clock, lengthSeconds(mediaOf(clip)), rate, *group.phaseSeconds, quiet))
        clips.push_back(std::move(piece));
      tell(mediaOf(clip).path, toSeconds(1, rate) / 2);
    }
    group.clips = std::move(clips);
    std::ranges::stable_sort(group.clips, {}, &Clip::startSeconds);
  }

  /// What stays out at the worse end of a recording.
  void tell(const std::string& path, double error) {
    for (Group& group : outcome_.groups)
      for (Member& member : group.members)
        if (member.path == path) member.leftOutOfSync = error;
  }

  timeline::Project& timeline_;
  Drift drift_;
  NewSounds& sounds_;
  const SoundOf& soundOf_;
  Outcome& outcome_;
  int rewritten_ = 0, cut_ = 0;
};

/// The sound clip of `group` that covers most of `camera`'s picture; null if none touches it.
const Clip* bestCover(const timeline::Project& timeline, const timeline::Group& group,
                      const Clip& camera) {
  const double end = camera.startSeconds + timeline.media[camera.media].pictureSeconds;
  const Clip* best = nullptr;
  double most = 0;
  for (const Clip& other : group.clips) {
    const Media& media = timeline.media[other.media];
    if (hasPicture(media) || !hasSound(media)) continue;
    const double covered = std::min(end, other.startSeconds + media.soundSeconds) -
                           std::max(camera.startSeconds, other.startSeconds);
    if (covered <= most) continue;
    most = covered;
    best = &other;
  }
  return best;
}

/// As long as the camera's picture, what `from` sounds at its place.
NewSound coverOf(const timeline::Project& timeline, const Clip& camera, const Clip& from) {
  const Media& media = timeline.media[from.media];
  const int rate = soundRate(media);
  const auto late = std::llround((from.startSeconds - camera.startSeconds) * rate);
  return {.source = media.path,
          .target = {},
          .stream = media.heardStream,
          .rate = rate,
          .bits = media.facts.sounds.empty() ? 0 : media.facts.sounds.front().bits,
          .skip = std::max(0LL, -late),
          .delay = std::max(0LL, late),
          .length = std::llround(timeline.media[camera.media].pictureSeconds * rate)};
}

}  // namespace

Drift driftOf(const std::string& word) {
  if (word == "off") return Drift::off;
  return word == "pieces" ? Drift::pieces : Drift::sound;
}

void correctClocks(timeline::Project& timeline, Drift drift, NewSounds& sounds,
                   const SoundOf& soundOf, Outcome& outcome) {
  Correction(timeline, drift, sounds, soundOf, outcome).run();
}

void replaceAudio(const timeline::Project& timeline, NewSounds& sounds) {
  for (const timeline::Group& group : timeline.groups)
    for (const Clip& camera : group.clips) {
      const Media& media = timeline.media[camera.media];
      if (!hasPicture(media) || camera.sourceSeconds > 0) continue;  // once, not for every piece
      const Clip* cover = bestCover(timeline, group, camera);
      if (!cover && !hasSound(media)) continue;
      (void)sounds.write(coverOf(timeline, camera, cover ? *cover : camera),  // it says why not
                         stemOf(media.path) + "_sound");
    }
}

}  // namespace run
