#include "align/matches.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "align/listening.h"

namespace align {
namespace {

constexpr double kApart = 0.3;      // seconds; nearer offsets are found from either
constexpr double kSomething = 2.5;  // resemblance of the envelopes that is worth a glance
constexpr double kRivalry = 0.5;    // of the best one's strength; weaker fits are partial echoes

struct Listened {
  Listening listening;
  Alignment seen;  // at a glance
};

bool plausible(const Alignment& a) {
  return (a.support >= 2 && a.evidence >= 6) || a.strength >= kPastRepetition;
}

/// The offsets of one pair that were listened to and may be right.
class Examination {
 public:
  Examination(const vote::PairCandidates& s, std::span<const Recording> recordings,
              const SoundReader& sound, const Envelopes& envelopes)
      : pair_{s.first, s.second, recordings[std::size_t(s.first)].samples,
              recordings[std::size_t(s.second)].samples},
        sound_(sound),
        envelopes_(envelopes) {}

  void listenAt(std::span<const double> offsets) {
    for (const double offset : offsets) {
      if (std::ranges::any_of(tried_, [&](double t) { return std::abs(t - offset) < kApart; }))
        continue;
      tried_.push_back(offset);
      if (!listenAt(offset, envelopes_.active(pair_.first, pair_.second, offset)))
        (void)listenAt(offset, {});  // what is faint may lie below the noise
    }
    sort();
  }

  /// Lays all windows over each other at offsets where no few of them say anything.
  void listenFaintly(std::span<const double> offsets) {
    for (const double offset : offsets) {
      Listening listening(pair_, offset, sound_, {}, Windows::many);
      if (const Alignment heard = listening.faint(); believed(heard))
        plausibles_.push_back({std::move(listening), heard});
    }
    sort();
  }

  /// Listens long where the sound fits at several offsets alike, to tell them apart.
  void compareRivals() {
    const double least = plausibles_.empty() ? 0 : kRivalry * plausibles_.front().seen.strength;
    for (Listened& l : plausibles_)
      if (believed(l.seen) && l.seen.strength >= least) l.seen = l.listening.thorough();
    sort();
  }

  /// Whether the best may be a repetition: the sound fits at several offsets alike, or not well.
  bool mayRepeat() const {
    if (plausibles_.empty() || !believed(plausibles_.front().seen)) return false;
    return plausibles_.front().seen.strength < kPastRepetition || repeats();
  }

  bool repeats() const {
    return !plausibles_.empty() &&
           !rivalsOf(plausibles_.front().seen, std::span(plausibles_).subspan(1)).empty();
  }

  std::optional<Match> result() {
    for (auto best = plausibles_.begin(); best != plausibles_.end(); ++best) {
      const Alignment exact = best->seen.logOdds > 0 ? best->seen : best->listening.exact();
      if (believed(exact)) return Match{exact, rivalsOf(exact, {best + 1, plausibles_.end()})};
    }
    return std::nullopt;
  }

 private:
  // Whether there is nothing to gain from listening all over the overlap.
  bool listenAt(double offset, std::vector<Stretch> active) {
    Listening listening(pair_, offset, sound_, std::move(active));
    const bool selective = listening.selective();
    const Alignment seen = listening.glance();
    if (plausible(seen)) plausibles_.push_back({std::move(listening), seen});
    return believed(seen) || !selective;
  }

  void sort() {
    std::ranges::stable_sort(plausibles_, [](const Listened& a, const Listened& b) {
      return weightOf(a.seen) > weightOf(b.seen);
    });
  }

  static std::vector<Alignment> rivalsOf(const Alignment& best, std::span<const Listened> others) {
    std::vector<Alignment> rivals;
    for (const Listened& other : others)
      if (believed(other.seen) && other.seen.strength >= kRivalry * best.strength &&
          !sameOffset(other.seen, best))
        rivals.push_back(other.seen);
    return rivals;
  }

  Pair pair_;
  const SoundReader& sound_;
  const Envelopes& envelopes_;
  std::vector<double> tried_;
  std::vector<Listened> plausibles_;
};

}  // namespace

std::vector<Alignment> allOf(const Match& match) {
  std::vector<Alignment> all{match.best};
  all.insert(all.end(), match.rivals.begin(), match.rivals.end());
  return all;
}

Match mirrored(Match match) {
  match.best = mirrored(match.best);
  for (Alignment& rival : match.rivals) rival = mirrored(rival);
  return match;
}

std::optional<Match> examine(const vote::PairCandidates& candidates,
                             std::span<const Recording> recordings, const SoundReader& sound,
                             const Envelopes& envelopes) {
  Examination examination(candidates, recordings, sound, envelopes);
  examination.listenAt(envelopes.resembling(candidates, kSomething).offsets);
  if (examination.mayRepeat())
    examination.listenAt(envelopes.repetitions(candidates.first, candidates.second));
  if (examination.repeats()) examination.compareRivals();
  return examination.result();
}

std::optional<Match> examineFaintly(const vote::PairCandidates& candidates,
                                    std::span<const Recording> recordings, const SoundReader& sound,
                                    const Envelopes& envelopes) {
  Examination examination(candidates, recordings, sound, envelopes);
  examination.listenFaintly(candidates.offsets);
  return examination.result();
}

}  // namespace align
