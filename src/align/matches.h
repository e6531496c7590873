#pragma once

#include <optional>
#include <span>
#include <vector>

#include "align/alignment.h"
#include "align/envelopes.h"
#include "align/recording.h"
#include "vote/pair_candidates.h"

namespace align {

/// A pair of recordings that hear the same thing, as the sound itself says.
struct Match {
  Alignment best;
  std::vector<Alignment> rivals;  // other offsets at which the sound fits too: repeated music
};

/// The best and all rivals.
std::vector<Alignment> allOf(const Match& match);

/// The same match with first and second exchanged.
Match mirrored(Match match);

/// Listens at every supposed offset, where those turn out to be repetitions at all others that may
/// be, and keeps the best that can be believed. Callable from any thread; the envelopes of both
/// files must be prepared.
std::optional<Match> examine(const vote::PairCandidates& candidates,
                             std::span<const Recording> recordings, const SoundReader& sound,
                             const Envelopes& envelopes);

/// The same for a pair that examine() did not believe: all windows together, however little each
/// says. Costs ten times as much where there is nothing to find.
std::optional<Match> examineFaintly(const vote::PairCandidates& candidates,
                                    std::span<const Recording> recordings, const SoundReader& sound,
                                    const Envelopes& envelopes);

}  // namespace align
