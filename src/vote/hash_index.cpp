#include "vote/hash_index.h"

#include <algorithm>
#include <bit>

#include "analysis/landmarks.h"
#include "report/parallel.h"
#include "vote/bits.h"
#include "vote/hit.h"
#include "vote/section_ends.h"

namespace vote {
namespace {

constexpr std::uint64_t kWordBits = 64;         // more than the distances of landmarks
constexpr std::uint64_t kBinPairs = 1 << 15;    // more than the pairs of bins
constexpr std::uint64_t kFrameLimit = 1 << 20;  // 7 hours; differences always have a delta

using Words = std::vector<std::int32_t>;  // by pair of bins: its word of `present`

bool indexable(const analysis::MatrixXLI& fingerprint) {
  if (fingerprint.cols() < 2) return false;
  const auto frames = fingerprint.col(0), hashes = fingerprint.col(1);
  for (Eigen::Index row = 0; row < fingerprint.rows(); ++row) {
    if (frames[row] >= kFrameLimit || hashes[row] >= kBinPairs * analysis::kBinsUnit ||
        hashes[row] % analysis::kBinsUnit >= kWordBits)
      return false;
  }
  return true;
}

/// One word for every pair of bins that any of `fingerprints` has.
Words numbered(std::span<const analysis::MatrixXLI> fingerprints, std::span<const char> usable) {
  Words words(kBinPairs, 0);
  for (std::size_t file = 0; file < fingerprints.size(); ++file) {
    if (!usable[file]) continue;
    for (const std::uint64_t hash : fingerprints[file].col(1))
      words[hash / analysis::kBinsUnit] = 1;
  }
  int next = 0;
  for (std::int32_t& word : words) word = word ? next++ : -1;
  words.push_back(next);
  return words;
}

void countWords(IndexedFingerprint& indexed) {
  std::uint32_t hashes = 0;
  const std::size_t words = indexed.present.size();
  indexed.before.resize(words);
  indexed.filled.resize((words + 63) / 64);
  for (std::size_t word = 0; word < words; ++word) {
    indexed.before[word] = hashes;
    hashes += bitCount(indexed.present[word]);
    indexed.filled[word / 64] |= std::uint64_t{indexed.present[word] != 0} << word % 64;
  }
}

/// None when the file has a section that no bit stands for.
std::optional<IndexedFingerprint> indexed(const analysis::MatrixXLI& fingerprint, float seconds,
                                          const Words& words) {
  IndexedFingerprint result;
  result.present.resize(words.back());
  result.fillers = leadingFillers(fingerprint);
  result.frames.assign(fingerprint.col(0).begin(), fingerprint.col(0).end());
  for (const std::int32_t frame : result.frames)
    result.frameEnd = std::max(result.frameEnd, frame + 1);
  for (Eigen::Index row = 0; row < fingerprint.rows(); ++row) {
    const std::uint64_t hash = fingerprint(row, 1);
    if (row > 0 && hash == fingerprint(row - 1, 1)) continue;
    const int section = sectionOfFrame(fingerprint(row, 0), seconds + 1);
    if (section >= kSectionBits) return std::nullopt;
    result.present[words[hash / analysis::kBinsUnit]] |= std::uint64_t{1}
                                                         << hash % analysis::kBinsUnit;
    result.runs.push_back({static_cast<std::uint32_t>(row),
                           static_cast<std::uint32_t>(fingerprint(row, 0)),
                           static_cast<std::uint32_t>(section)});
  }
  result.runs.push_back({static_cast<std::uint32_t>(fingerprint.rows()), 0, 0});
  countWords(result);
  return result;
}

}  // namespace

int leadingFillers(const analysis::MatrixXLI& fingerprint) {
  int rows = 0;
  while (rows < fingerprint.rows() && fingerprint(rows, 0) == 0 && fingerprint(rows, 1) == 0)
    ++rows;
  return rows;
}

HashIndex::HashIndex(std::span<const analysis::MatrixXLI> fingerprints,
                     const Eigen::VectorXf& durations)
    : files_(fingerprints.size()) {
  std::vector<char> usable(fingerprints.size());
  report::FirstException failed;
#pragma omp parallel for schedule(dynamic)
  for (std::size_t file = 0; file < files_.size(); ++file)
    usable[file] = indexable(fingerprints[file]);
  const Words words = numbered(fingerprints, usable);
#pragma omp parallel for schedule(dynamic)
  for (std::size_t file = 0; file < files_.size(); ++file)
    failed.keep([&] {
      if (usable[file])
        files_[file] =
            indexed(fingerprints[file], durations[static_cast<Eigen::Index>(file)], words);
    });
  failed.rethrow();
}

std::span<const CommonHash> commonHashes(const IndexedFingerprint& x, const IndexedFingerprint& y,
                                         std::vector<CommonHash>& room) {
  room.resize(std::max(room.size(), std::min(x.runs.size(), y.runs.size())));
  CommonHash* found = room.data();
  for (std::size_t block = 0; block < x.filled.size(); ++block) {
    for (std::uint64_t both = x.filled[block] & y.filled[block]; both != 0; both &= both - 1) {
      const std::size_t word = block * 64 + static_cast<std::size_t>(std::countr_zero(both));
      const std::uint64_t wordX = x.present[word], wordY = y.present[word];
      for (std::uint64_t bits = wordX & wordY; bits != 0; bits &= bits - 1) {
        const std::uint64_t lower = (bits & -bits) - 1;
        *found++ = {x.before[word] + bitCount(wordX & lower),
                    y.before[word] + bitCount(wordY & lower)};
      }
    }
  }
  return {room.data(), found};
}

}  // namespace vote
