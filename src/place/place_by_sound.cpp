#include "place/group.h"
#include "place/pair_search.h"
#include "place/placed_groups.h"
#include "place/placement.h"

namespace place {

Placement placeBySound(std::span<const align::Recording> recordings,
                       std::span<const vote::PairVote> votes, const align::SoundReader& sound,
                       const PlacementProgress& progress) {
  const std::vector<vote::Suspicion> suspicions = vote::suspicionsOf(votes);
  Matchmaker matchmaker(recordings, sound, progress);
  matchmaker.followVotes(suspicions);
  matchmaker.search(suspicions);
  matchmaker.listenFaintly();
  matchmaker.confirm(formGroups(recordings, matchmaker.matches()));
  return placementOf(formGroups(recordings, matchmaker.matches()), recordings,
                     matchmaker.partners());
}

}  // namespace place
