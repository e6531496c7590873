#include "matching/matches.h"

#include <algorithm>
#include <cmath>

#include "matching/listening.h"

namespace matching {
namespace {

constexpr double kApart = 0.3;  // seconds; nearer offsets are one and the same to `verify`
constexpr int kMostOffsets = 4;
constexpr double kFaint = 0.35;   // of the best peak's significance; fainter ones are chance
constexpr double kRivalry = 0.5;  // of the best one's strength; weaker fits are partial echoes

void addOffset(std::vector<double>& offsets, double offset) {
  const auto near = [&](double other) { return std::abs(other - offset) < kApart; };
  if (std::ssize(offsets) < kMostOffsets && std::ranges::none_of(offsets, near))
    offsets.push_back(offset);
}

Suspicion suspicionOf(const PairVote& vote) {
  Suspicion s{vote.first, vote.second, {}, 0};
  const bool accepted = vote.accepted != Acceptance::none && vote.stats;
  if (accepted) addOffset(s.offsets, vote.stats->bestOffset);
  for (const DeltaPeak& peak : vote.peaks)
    s.significance = std::max(s.significance, peak.significance);
  for (const DeltaPeak& peak : vote.peaks)
    if (peak.significance >= kFaint * s.significance) addOffset(s.offsets, peak.offsetSeconds);
  if (vote.stats) addOffset(s.offsets, vote.stats->bestOffset);
  if (accepted) s.significance = std::max(s.significance, double(vote.stats->sections));
  return s;
}

struct Listened {
  Listening listening;
  Alignment seen;  // at a glance
};

bool plausible(const Alignment& a) { return a.support >= 2 && a.evidence >= 6; }

std::vector<Alignment> rivalsOf(const Alignment& best, std::span<const Listened> others) {
  std::vector<Alignment> rivals;
  for (const Listened& other : others)
    if (believed(other.seen) && other.seen.strength >= kRivalry * best.strength)
      rivals.push_back(other.seen);
  return rivals;
}

}  // namespace

std::vector<Suspicion> suspicionsOf(std::span<const PairVote> votes) {
  std::vector<Suspicion> all;
  for (const PairVote& vote : votes)
    if (Suspicion s = suspicionOf(vote); !s.offsets.empty()) all.push_back(std::move(s));
  std::ranges::stable_sort(all, std::greater{}, &Suspicion::significance);
  return all;
}

std::optional<Match> examine(const Suspicion& suspicion, std::span<const Recording> recordings,
                             const SoundReader& sound) {
  const Pair pair{suspicion.first, suspicion.second,
                  recordings[std::size_t(suspicion.first)].samples,
                  recordings[std::size_t(suspicion.second)].samples};
  std::vector<Listened> plausibles;
  for (const double offset : suspicion.offsets) {
    Listening listening(pair, offset, sound);
    if (const Alignment seen = listening.glance(); plausible(seen))
      plausibles.push_back({std::move(listening), seen});
  }
  std::ranges::stable_sort(plausibles, std::greater{},
                           [](const Listened& l) { return weightOf(l.seen); });
  for (auto best = plausibles.begin(); best != plausibles.end(); ++best)
    if (const Alignment exact = best->listening.exact(); believed(exact))
      return Match{exact, rivalsOf(exact, {best + 1, plausibles.end()})};
  return std::nullopt;
}

}  // namespace matching
