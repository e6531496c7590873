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
  const std::vector<vote::Suspicion> suspicions = vote::suspicionsOf(votes);
  Matchmaker matchmaker(recordings, sound, progress);
  matchmaker.followVotes(suspicions);
  matchmaker.search(suspicions);
  matchmaker.listenFaintly();
  const auto grouping = [&] {
    return formGroups(recordings, matchmaker.matches(),
                      [&](int a, int b) { return matchmaker.heard(a, b); });
  };
  for (int round = 0; round < kRounds && matchmaker.tryBridges(grouping()); ++round) {
  }
  matchmaker.confirm(grouping());
  return placementOf(grouping(), recordings, matchmaker.partners());
}

}  // namespace place
