#pragma once

#include <set>
#include <span>
#include <utility>
#include <vector>

#include "matching/group.h"
#include "matching/matches.h"
#include "matching/offset_forest.h"
#include "matching/placement.h"
#include "matching/textures.h"

namespace matching {

/// Finds the pairs of recordings that hear the same thing. Listens no more than needed: what stands
/// surely is left in peace. The order of threads changes nothing. One thread at a time; what it is
/// given must outlive it.
class Matchmaker {
 public:
  Matchmaker(std::span<const Recording> recordings, const SoundReader& sound,
             const PlacementProgress& progress);

  /// Listens where the votes suspect something, most significant first.
  void followVotes(std::span<const Suspicion> suspicions);

  /// Looks in the sound itself for what the suspicions did not connect.
  void search(std::span<const Suspicion> suspicions);

  /// Listens to members of a group that hang on one match and must hear by their places what others
  /// hear that they were not compared with.
  void confirm(const Grouping& grouping);

  const std::vector<Match>& matches() const { return matches_; }

  /// How many others each recording was held against.
  std::vector<int> partners() const;

 private:
  bool small() const;
  bool cancelled() const;
  void listen(std::span<const Suspicion> suspicions);
  bool wanted(const Suspicion& suspicion);
  void examineAll(std::span<const Suspicion* const> batch);
  std::vector<Suspicion> suspectAll(std::span<const std::pair<int, int>> pairs);
  void add(Match match);
  void keepBetter(Match match);

  std::span<const Recording> recordings_;
  const SoundReader& sound_;
  const PlacementProgress& progress_;
  Textures textures_;
  OffsetForest connected_;                         // by matches past all doubt
  std::vector<int> matchCount_;                    // per file
  std::set<std::pair<int, int>> heard_, matched_;  // pairs: listened to, and with success
  std::vector<Match> matches_;
};

}  // namespace matching
