#pragma once

#include <set>
#include <span>
#include <utility>
#include <vector>

#include "align/envelopes.h"
#include "align/matches.h"
#include "place/group.h"
#include "place/offset_forest.h"
#include "place/placement.h"

namespace place {

/// Finds the pairs of recordings that hear the same thing. Listens no more than needed: what stands
/// surely is left in peace. The order of threads changes nothing. One thread at a time; what it is
/// given must outlive it.
class PairSearch {
 public:
  PairSearch(std::span<const align::Recording> recordings, const align::SoundReader& sound,
             const PlacementProgress& progress);

  /// Takes these groups for what is connected past all doubt, whatever single matches said.
  void standBy(const Grouping& grouping);

  /// Listens where the votes promise something and nobody listened yet, most significant first.
  void followVotes(std::span<const vote::PairCandidates> candidates);

  /// Looks in the sound itself for what the candidates did not connect.
  void search(std::span<const vote::PairCandidates> candidates);

  /// Listens once more, all along the overlap, where the envelopes resemble each other but no
  /// single window said anything: far microphones, big halls.
  void listenFaintly();

  /// Whether the pair was listened to.
  bool heard(int a, int b) const { return heard_.contains(std::minmax(a, b)); }

  /// Listens to what would decide more of the groups' joins. Whether there was anything.
  bool testJoins(const Grouping& grouping);

  /// Listens to members of a group that hang on one match and must hear by their places what others
  /// hear that they were not compared with.
  void confirm(const Grouping& grouping);

  const std::vector<align::Match>& matches() const { return matches_; }

  /// How many others each recording was held against.
  std::vector<int> partners() const;

 private:
  bool small() const;
  bool cancelled() const;
  bool wanted(const vote::PairCandidates& candidates);
  using Examine = decltype(align::examine);
  std::size_t patience() const;
  void listen(std::span<const vote::PairCandidates> candidates, Examine& examine,
              std::size_t patience);
  bool examineAll(std::span<const vote::PairCandidates* const> batch, Examine& examine);
  std::vector<vote::PairCandidates> envelopeCandidates(std::span<const std::pair<int, int>> pairs);
  void addOtherOffsets(std::span<vote::PairCandidates> candidates);
  void add(align::Match match);
  void keepBetter(align::Match match);

  std::span<const align::Recording> recordings_;
  const align::SoundReader& sound_;
  const PlacementProgress& progress_;
  align::Envelopes envelopes_;
  OffsetForest connected_;                         // by matches past all doubt
  std::vector<int> matchCount_;                    // per file
  std::set<std::pair<int, int>> heard_, matched_;  // pairs: listened to, and with success
  std::vector<align::Match> matches_;
  std::vector<vote::PairCandidates> silent_;  // listened to without success
};

/// All of it in turn, for a set's votes.
PairSearch searched(std::span<const align::Recording> recordings,
                    std::span<const vote::PairVote> votes, const align::SoundReader& sound,
                    const PlacementProgress& progress);

}  // namespace place
