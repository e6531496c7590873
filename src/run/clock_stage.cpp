#include "run/clock_stage.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "export/clocks.h"
#include "export/from_project.h"
#include "export/lanes.h"
#include "export/media.h"
#include "run/new_sounds.h"

namespace run {
namespace {

using timeline::Clip;
using timeline::Media;
using timeline::OneClock;

constexpr double kVisible = 0.010;  // seconds; less is neither seen nor heard
constexpr double kNothing = 0.001;  // seconds; about as exact as places are, worth no new file
constexpr double kMillion = 1e6;

/// What the reports say of a recording, by its media.
struct Standing {
  double startSeconds = 0;
  std::optional<double> driftPpm;
  double leftOutOfSync = 0;
};

std::string whoseClocks(int count, const std::string& what) {
  if (count == 1) return "The clock of 1 " + what + " drifts, so it was";
  return "The clocks of " + std::to_string(count) + " " + what + "s drift, so they were";
}

class Correction {
 public:
  Correction(timeline::Project& timeline, Drift drift, const WriteSound& write,
             const QuietMomentOf& quiet, Outcome& outcome)
      : timeline_(timeline), drift_(drift), write_(write), quiet_(quiet), outcome_(outcome) {
    for (Group& group : outcome_.groups)
      for (Member& member : group.members) members_.emplace(member.path, &member);
  }

  void run() {
    for (timeline::Group& group : timeline_.groups) correct(group);
    if (rewritten_ > 0)
      outcome_.notices.push_back(
          whoseClocks(rewritten_, "sound recording") +
          " written anew at the clock of the group, into the folder sound of the results; the "
          "documents use that. The originals are as they were.");
    if (cut_ > 0)
      outcome_.notices.push_back(whoseClocks(cut_, "camera clip") +
                                 " cut into pieces, each at its right frame.");
  }

 private:
  using Clocks = std::map<int, OneClock>;  // by media

  Media& mediaOf(const Clip& clip) { return timeline_.media[clip.media]; }
  double lengthOf(const Clip& clip) { return lengthSeconds(mediaOf(clip)); }
  timeline::FrameRate rate() const { return timeline::exactRate(timeline_.fps); }

  void correct(timeline::Group& group) {
    paths_.clear();
    const std::vector<OneClock> all = byOneClock(timeline_, group);
    double worst = 0;
    for (std::size_t i = 0; i < all.size(); ++i)
      worst = std::max(worst, all[i].worstError(lengthOf(group.clips[i])));
    const bool act = drift_ != Drift::off && worst > kVisible;
    const double later = act ? 0 : standsLater(group, all);
    Clocks clocks;
    for (std::size_t i = 0; i < all.size(); ++i) {
      Clip& clip = group.clips[i];
      OneClock& clock = clocks[clip.media] = all[i];
      clock.startSeconds += later;
      takeClock(clip, clock);
      if (act) bringToClock(clip, clock);
    }
    if (act) moveToZero(group, clocks);
    if (act && drift_ == Drift::pieces) cutAll(group, clocks);
    tell(group, clocks);
  }

  void takeClock(Clip& clip, const OneClock& clock) {
    paths_[clip.media] = mediaOf(clip).path;
    clip.steady = timeline::Steady{clock.startSeconds, clock.playRate};
    if (clip.driftPpm) clip.driftPpm = (clock.playRate - 1) * kMillion;
    drifts_[clip.media] = clip.driftPpm;
  }

  void bringToClock(Clip& clip, OneClock& clock) {
    clip.startSeconds = clock.uncorrectedStart();
    const bool drifts = clock.worstError(lengthOf(clip)) > kNothing;
    if (!hasPicture(mediaOf(clip)) && drifts && rewrite(clip, clock)) clock.playRate = 1;
  }

  /// The sound of a recorder, stretched to the group's clock.
  bool rewrite(Clip& clip, const OneClock& clock) {
    Media& media = mediaOf(clip);
    const int rate = soundRate(media);
    const std::int64_t length = std::llround(media.soundSeconds / clock.playRate * rate);
    const auto written = write_({.source = media.path,
                                 .target = {},
                                 .stream = media.heardStream,
                                 .rate = rate,
                                 .bits = soundOf(media).bits,
                                 .playRate = clock.playRate,
                                 .length = length,
                                 .keepTimecode = media.facts.timecode.has_value()},
                                stemOf(media.path));
    if (!written) return false;
    ++rewritten_;
    media.path = *written;
    media.soundSeconds = double(length) / rate;
    media.facts.sounds = {soundOf(media)};
    media.facts.sounds.front().lengthSeconds = media.soundSeconds;
    media.facts.lengthSeconds = media.soundSeconds;
    media.heardStream = 0;
    clip.startSeconds = clock.startSeconds;
    clip.driftPpm = 0;
    clip.steady = timeline::Steady{clock.startSeconds, 1};
    return true;
  }

  /// The stream that is listened to, of which a file need not tell anything.
  static project::Sound soundOf(const Media& media) {
    if (media.facts.sounds.empty()) return {2, soundRate(media), 0, {}, 0, 0};
    return media.facts.sounds[media.heardStream];
  }

  static void moveToZero(timeline::Group& group, Clocks& clocks) {
    std::ranges::stable_sort(group.clips, {}, &Clip::startSeconds);
    const double first = group.clips.front().startSeconds;
    for (Clip& clip : group.clips) {
      clip.startSeconds -= first;
      clip.steady->startSeconds -= first;
    }
    for (auto& [media, clock] : clocks) clock.startSeconds -= first;
  }

  /// After everything else of the group stands, so that the pieces keep to its frames.
  void cutAll(timeline::Group& group, const Clocks& clocks) {
    const double phase = bestPhase(timeline_, group, rate()), halfFrame = toSeconds(1, rate()) / 2;
    std::vector<Clip> clips;
    for (const Clip& clip : group.clips) {
      const OneClock& clock = clocks.at(clip.media);
      if (!hasPicture(mediaOf(clip)) || clock.worstError(lengthOf(clip)) <= halfFrame) {
        clips.push_back(clip);
        continue;
      }
      ++cut_;
      group.phaseSeconds = phase;
      const auto quiet = [&](double seconds) { return quiet_(mediaOf(clip), seconds); };
      for (Clip& piece : inPieces(clip, clock, lengthOf(clip), rate(), phase, quiet))
        clips.push_back(std::move(piece));
    }
    group.clips = std::move(clips);
    std::ranges::stable_sort(group.clips, {}, &Clip::startSeconds);
  }

  void tell(const timeline::Group& group, const Clocks& clocks) {
    std::map<int, Standing> standings;
    for (const Clip& clip : group.clips) {
      const auto [known, isNew] =
          standings.try_emplace(clip.media, Standing{clip.startSeconds, drifts_[clip.media], 0});
      double& worst = known->second.leftOutOfSync;
      worst = std::max(worst, clocks.at(clip.media).worstError(clip, lengthOf(clip)));
    }
    for (const auto& [media, standing] : standings) {
      const auto found = members_.find(paths_[media]);
      if (found == members_.end()) continue;  // a further track of a recording
      Member& member = *found->second;
      member.offsetSeconds = standing.startSeconds;
      member.driftPpm = standing.driftPpm;
      if (standing.driftPpm) member.leftOutOfSync = standing.leftOutOfSync;
    }
  }

  timeline::Project& timeline_;
  Drift drift_;
  const WriteSound& write_;
  const QuietMomentOf& quiet_;
  Outcome& outcome_;
  std::map<std::string, Member*> members_;       // by path
  std::map<int, std::string> paths_;             // by media: of the originals
  std::map<int, std::optional<double>> drifts_;  // by media
  int rewritten_ = 0, cut_ = 0;
};

}  // namespace

Drift driftOf(const std::string& word) {
  if (word == "off") return Drift::off;
  return word == "pieces" ? Drift::pieces : Drift::sound;
}

void correctClocks(timeline::Project& timeline, Drift drift, const WriteSound& write,
                   const QuietMomentOf& quiet, Outcome& outcome) {
  Correction(timeline, drift, write, quiet, outcome).run();
}

void foretellClocks(const project::Project& project, Outcome& outcome) {
  timeline::Project timeline = timeline::timelineOf(project);
  const std::vector<std::string> notices = outcome.notices;
  const WriteSound asIfWritten = [](const NewSound& sound, const std::string&) {
    return std::optional(sound.source);
  };
  const QuietMomentOf anywhere = [](const Media&, double seconds) { return seconds; };
  correctClocks(timeline, driftOf(project.settings.drift), asIfWritten, anywhere, outcome);
  outcome.notices = notices;
}

}  // namespace run
