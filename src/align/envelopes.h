#pragma once

#include <map>
#include <span>
#include <vector>

#include "align/activity.h"
#include "align/recording.h"
#include "align/subband_envelope.h"
#include "vote/pair_candidates.h"

namespace align {

/// The envelopes of a set's recordings, made when they are first wanted and then kept, and what
/// they say of a pair: much cheaper than listening. `prepare` may be called from one thread at a
/// time, the others from any once both files are prepared.
class Envelopes {
 public:
  Envelopes(std::span<const Recording> recordings, const SoundReader& sound);
  void prepare(std::span<const int> files);

  /// The offsets at which a pair's envelopes stand out.
  vote::PairCandidates candidates(int first, int second) const;

  /// The same with those offsets alone at which the envelopes resemble each other at least so much;
  /// its significance is how much they do at most.
  vote::PairCandidates resembling(const vote::PairCandidates& candidates, double least) const;

  /// Where both recordings of a pair hear more than steady noise at that offset.
  std::vector<Stretch> active(int first, int second, double offsetSeconds) const;

  /// All offsets that may be repetitions of one another, best first.
  std::vector<double> repetitions(int first, int second) const;

 private:
  std::span<const Recording> recordings_;
  const SoundReader& sound_;
  std::map<int, Envelope> envelopes_;
};

}  // namespace align
