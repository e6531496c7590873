#include "place/sentences.h"

#include <algorithm>

#include "report/text.h"

namespace place {
namespace {

/// What one recording was compared with, and the vote that speaks most for it.
struct Attempt {
  int compared = 0;
  const vote::PairVote* closest = nullptr;

  void add(const vote::PairVote& vote) {
    if (supportOf(vote) > (closest ? supportOf(*closest) : 0)) closest = &vote;
  }
};

std::string tell(int file, const Attempt& attempt, std::span<const align::Recording> recordings) {
  if (attempt.compared == 0) return "There was no other recording to compare it with.";
  const std::string count =
      "Compared with " + report::countText(attempt.compared, "recording") + ": ";
  if (!attempt.closest) return count + "it agrees with none on any offset.";
  const vote::PairVote& vote = *attempt.closest;
  const std::string& other = recordings[vote.first == file ? vote.second : vote.first].name;
  if (vote.accepted != vote::Acceptance::none) {
    return count + "it matches " + other + ", which could not be placed.";
  }
  return count + other + " comes closest; " +
         std::to_string(static_cast<int>(vote.stats->sections)) +
         " of 32 sections agree on one offset, too few to be sure.";
}

std::string inSeconds(double seconds) { return report::decimalText(seconds, 2) + " s"; }

}  // namespace

std::string sentence(const Clash& clash, std::span<const align::Recording> recordings) {
  const std::string& removed = recordings[clash.removed].name;
  return removed + " would overlap " + recordings[clash.kept].name + " of the same device by " +
         inSeconds(clash.seconds) + "; " + removed + ", the worse supported one, was taken out.";
}

std::string contradiction(const Link& link, double knownOffset,
                          std::span<const align::Recording> recordings) {
  return recordings[link.first].name + " and " + recordings[link.second].name + " seem to match " +
         inSeconds(link.offset) + " apart, but better supported matches put them " +
         inSeconds(knownOffset) + " apart; this match was left out.";
}

std::string deviceConflict(const align::Alignment& match,
                           std::span<const align::Recording> recordings) {
  return recordings[match.first].name + " and " + recordings[match.second].name + " also fit " +
         inSeconds(match.offsetSeconds) +
         " apart, but recordings of one device would then run at the same time; this match was "
         "left out. Tracks that a recorder made at one time must be added one by one, not as the "
         "files of one device.";
}

std::string othersSilent(const align::Alignment& match,
                         std::span<const align::Recording> recordings) {
  return recordings[match.first].name + " and " + recordings[match.second].name + " fit " +
         inSeconds(match.offsetSeconds) +
         " apart, but others that were recorded with them would then have to hear each other too, "
         "and do not; what they share is a repetition, so this match was left out.";
}

std::string repetition(const align::Match& match, std::span<const align::Recording> recordings) {
  constexpr std::size_t kShown = 3;
  const std::string heard = recordings[match.best.first].name + " and " +
                            recordings[match.best.second].name + " hear something that repeats: ";
  std::string offsets = "they fit " + inSeconds(match.best.offsetSeconds);
  if (match.rivals.empty())
    return heard + offsets +
           " apart, but a repetition would look the same, so this match was left out.";
  for (std::size_t i = 0; i < std::min(kShown, match.rivals.size()); ++i)
    offsets += ", " + inSeconds(match.rivals[i].offsetSeconds);
  if (match.rivals.size() > kShown) offsets += " and more";
  return heard + offsets +
         " apart alike. Nothing else tells which is right, so this match was left out.";
}

std::vector<std::string> attempts(std::span<const align::Recording> recordings,
                                  std::span<const vote::PairVote> votes) {
  std::vector<Attempt> made(recordings.size());
  for (int a = 0; a < std::ssize(recordings); ++a)
    for (int b = 0; b < std::ssize(recordings); ++b)
      made[a].compared += align::comparable(recordings, a, b);
  for (const vote::PairVote& vote : votes) {
    made[vote.first].add(vote);
    made[vote.second].add(vote);
  }
  std::vector<std::string> told;
  told.reserve(made.size());
  for (const Attempt& attempt : made) {
    told.push_back(tell(static_cast<int>(told.size()), attempt, recordings));
  }
  return told;
}

}  // namespace place
