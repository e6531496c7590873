#include "matching/group.h"
#include "matching/matchmaker.h"
#include "matching/placed_groups.h"
#include "matching/placement.h"

namespace matching {

Placement placeBySound(std::span<const Recording> recordings, std::span<const PairVote> votes,
                       const SoundReader& sound, const PlacementProgress& progress) {
  const std::vector<Suspicion> suspicions = suspicionsOf(votes);
  Matchmaker matchmaker(recordings, sound, progress);
  matchmaker.followVotes(suspicions);
  matchmaker.search(suspicions);
  matchmaker.confirm(formGroups(recordings, matchmaker.matches()));
  return placementOf(formGroups(recordings, matchmaker.matches()), recordings,
                     matchmaker.partners());
}

}  // namespace matching
