#include "place/group.h"
#include "place/pair_search.h"
#include "place/placed_groups.h"
#include "place/placement.h"

namespace place {
namespace {

constexpr int kRounds = 4;  // every round joins groups, which may bring others together

Grouping groupsOf(const PairSearch& search, std::span<const align::Recording> recordings) {
  return formGroups(recordings, search.matches(), [&](int a, int b) { return search.heard(a, b); });
}

}  // namespace

PairSearch searched(std::span<const align::Recording> recordings,
                    std::span<const vote::PairVote> votes, const align::SoundReader& sound,
                    const PlacementProgress& progress) {
  const std::vector<vote::PairCandidates> candidates = vote::candidatesOf(votes);
  PairSearch search(recordings, sound, progress);
  search.followVotes(candidates);
  search.standBy(groupsOf(search, recordings));
  search.followVotes(candidates);
  search.search(candidates);
  search.listenFaintly();
  for (int round = 0; round < kRounds; ++round)
    if (!search.testJoins(groupsOf(search, recordings))) break;
  search.confirm(groupsOf(search, recordings));
  return search;
}

Placement placeBySound(std::span<const align::Recording> recordings,
                       std::span<const vote::PairVote> votes, const align::SoundReader& sound,
                       const PlacementProgress& progress) {
  const PairSearch search = searched(recordings, votes, sound, progress);
  return placementOf(groupsOf(search, recordings), recordings, search.partners());
}

}  // namespace place
