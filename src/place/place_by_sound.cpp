#include "place/group.h"
#include "place/pair_search.h"
#include "place/placed_groups.h"
#include "place/placement.h"

namespace place {
namespace {

constexpr int kRounds = 4;  // every round joins groups, which may bring others together

}  // namespace

Placement placeBySound(std::span<const align::Recording> recordings,
                       std::span<const vote::PairVote> votes, const align::SoundReader& sound,
                       const PlacementProgress& progress) {
  const std::vector<vote::PairCandidates> candidates = vote::candidatesOf(votes);
  PairSearch search(recordings, sound, progress);
  search.followVotes(candidates);
  search.search(candidates);
  search.listenFaintly();
  const auto grouping = [&] {
    return formGroups(recordings, search.matches(),
                      [&](int a, int b) { return search.heard(a, b); });
  };
  for (int round = 0; round < kRounds; ++round) {
    const bool tested = search.testJoins(grouping());
    if (!search.tryBridges(grouping()) && !tested) break;
  }
  search.confirm(grouping());
  return placementOf(grouping(), recordings, search.partners());
}

}  // namespace place
