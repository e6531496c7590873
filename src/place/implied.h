#pragma once

#include <functional>
#include <map>
#include <span>
#include <utility>
#include <vector>

#include "align/matches.h"
#include "place/growing_groups.h"

namespace place {

/// Two recordings of two groups that would hear the same if the groups were joined.
struct Implied {
  int first, second;     // file indices, first of the one group, second of the other
  double offsetSeconds;  // of second's start on first's clock
  double overlapSeconds;
};

/// All such pairs if the alignment, whose files stand in two groups, is right: those of different
/// devices that would share six seconds or more, longest first.
std::vector<Implied> impliedBy(const align::Alignment& bridge, GrowingGroups& groups,
                               std::span<const align::Recording> recordings);

/// Whether a pair of files, in any order, was listened to.
using Heard = std::function<bool(int, int)>;

/// What the matches of a set say of the overlaps that joining two groups implies.
class ImpliedOverlaps {
 public:
  ImpliedOverlaps(std::span<const align::Recording> recordings,
                  std::span<const align::Match> matches, Heard heard);

  /// Whether nearly all pairs that were listened to, and by what their recordings share with others
  /// must have been heard, hear each other as `bridge` lays their groups over each other.
  bool bearOut(const align::Alignment& bridge, GrowingGroups& groups) const;

  /// The longest of those that nobody listened to yet, so that a few are known in all.
  std::vector<Implied> untested(const align::Alignment& bridge, GrowingGroups& groups) const;

 private:
  bool fits(const Implied& pair) const;
  bool mustBeHeard(const Implied& pair) const;

  std::span<const align::Recording> recordings_;
  Heard heard_;
  std::map<std::pair<int, int>, std::vector<align::Alignment>> alignments_;  // by files, ascending
  std::map<int, double> usual_;  // by file: the most it reaches with another that is no copy
};

/// Whether anybody said which recordings are of one device. If not, those of one device, whose
/// rooms and microphones are the same, seem to bear out what music repeats.
bool devicesKnown(std::span<const align::Recording> recordings);

/// Joins groups by matches each of which may be only something repeated: where one of them is
/// right, the groups' other recordings must hear each other too wherever they would overlap. Takes
/// a bridge if matches of at least two recordings of each group, none of which fits elsewhere too,
/// give it and nearly all pairs heard that it implies are among them. Only where devices are known.
/// Moves the matches used from `open` to `kept`.
void joinByImpliedOverlaps(std::vector<align::Match>& open, std::vector<align::Match>& kept,
                           GrowingGroups& groups, std::span<const align::Recording> recordings);

}  // namespace place
