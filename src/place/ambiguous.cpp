#include "place/ambiguous.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <map>

#include "place/growing_groups.h"
#include "place/repeats.h"

namespace place {
namespace {

constexpr double kMostOfIt = 0.45;  // share of the usual from which a match is more than its music
constexpr double kLong = 60;        // seconds over which nothing that returns fits from end to end
constexpr double kWide = 0.6;       // of the overlap, from the first window that fits to the last
constexpr double kEnoughToSee = 4;  // seconds of overlap in which a repetition would have been seen

/// That a recording hears the same again so much later, and how strongly.
struct Repetition {
  double seconds, strength;
};

// What the recordings' matches with others say, by file.
std::map<int, std::vector<Repetition>> repetitionsOf(std::span<const align::Match> matches) {
  std::map<int, std::vector<Repetition>> repetitions;
  for (const align::Match& m : matches)
    for (const align::Alignment& rival : m.rivals) {
      const double seconds = std::abs(rival.offsetSeconds - m.best.offsetSeconds);
      if (seconds < kSameOffset || align::weightOf(rival) < kClearly * align::weightOf(m.best))
        continue;
      for (const int file : {m.best.first, m.best.second})
        repetitions[file].push_back({seconds, rival.strength});
    }
  return repetitions;
}

/// The most that a recording's sound reaches with any other that is no copy of it.
struct Usual {
  double strength = 0, distinct = 0;
};

std::map<int, Usual> usualOf(std::span<const align::Match> matches) {
  std::map<int, Usual> usual;
  for (const align::Match& m : matches)
    for (const int file : {m.best.first, m.best.second}) {
      Usual& most = usual[file];
      if (m.best.copy) continue;
      most.strength = std::max(most.strength, m.best.strength);
      most.distinct = std::max(most.distinct, m.best.distinct);
    }
  return usual;
}

// What a recording of the set typically reaches with another: the median of all.
double typicalStrength(const std::map<int, Usual>& usual) {
  std::vector<double> strengths;
  for (const auto& [file, most] : usual) strengths.push_back(most.strength);
  if (strengths.empty()) return 0;
  std::ranges::nth_element(strengths, strengths.begin() + std::ssize(strengths) / 2);
  return strengths[strengths.size() / 2];
}

// How much of what its recordings share with others a match has, and how much of its length: 1 is
// all of it. Where only the music is the same, speech leaves windows in which nothing fits.
double shareOf(const align::Alignment& a, const std::map<int, Usual>& usual) {
  const Usual &x = usual.at(a.first), &y = usual.at(a.second);
  const double everywhere = double(a.support) / a.windows;
  return std::min(1.0, a.strength / std::min(x.strength, y.strength)) *
         std::min(1.0, a.distinct / std::min(x.distinct, y.distinct)) * everywhere * everywhere;
}

// Whether it fits so long, and nowhere else, that a repetition would have shown.
bool fitsThroughout(const align::Match& m) {
  const align::Alignment& a = m.best;
  return m.rivals.empty() && a.overlapSeconds >= kLong &&
         a.spreadSeconds >= kWide * a.overlapSeconds;
}

// Whether the match, were it such a repetition itself, would look as it does.
bool mayBe(const Repetition& repetition, const align::Alignment& a,
           std::span<const align::Recording> recordings) {
  if (a.strength > align::kPastRepetition || kPartOfIt * a.strength > repetition.strength)
    return false;
  return std::ranges::any_of(std::array{-1, 1}, [&](int sign) {
    return align::overlapAt(a.offsetSeconds + sign * repetition.seconds,
                            recordings[std::size_t(a.first)],
                            recordings[std::size_t(a.second)]) < kEnoughToSee;
  });
}

}  // namespace

std::vector<align::Match> takeAmbiguous(std::vector<align::Match>& matches,
                                        std::span<const align::Recording> recordings) {
  const auto repetitions = repetitionsOf(matches);
  const auto usual = usualOf(matches);
  const double typical = typicalStrength(usual);
  const auto ambiguous = [&](const align::Match& m) {
    if (m.best.logOdds > 0 && m.best.strength < kMostOfIt * typical) return true;
    if (!fitsThroughout(m) && shareOf(m.best, usual) < kMostOfIt) return true;
    return std::ranges::any_of(std::array{m.best.first, m.best.second}, [&](int file) {
      const auto known = repetitions.find(file);
      return known != repetitions.end() &&
             std::ranges::any_of(known->second, [&](const Repetition& repetition) {
               return mayBe(repetition, m.best, recordings);
             });
    });
  };
  const auto rest = std::ranges::stable_partition(matches, std::not_fn(ambiguous));
  std::vector<align::Match> taken(std::make_move_iterator(rest.begin()),
                                  std::make_move_iterator(rest.end()));
  matches.erase(rest.begin(), rest.end());
  return taken;
}

}  // namespace place
