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

using analysis::PackedFingerprint;

constexpr std::uint64_t kWordBits = 64;           // more than the distances of landmarks
constexpr std::uint64_t kBinPairs = 1 << 15;      // more than the pairs of bins
constexpr std::uint64_t kFrameLimit = 2'000'000;  // 13 hours; differences always have a delta

using Words = std::vector<std::int32_t>;  // by pair of bins: its word of `present`

bool isIndexable(const PackedFingerprint& fingerprint, float seconds) {
  std::uint64_t last = 0;
  for (Eigen::Index row = 0; row < fingerprint.rows(); ++row) {
    const std::uint64_t hash = fingerprint.hash(row);
    last = std::max(last, fingerprint.frame(row));
    if (hash >= kBinPairs * analysis::kBinsUnit || hash % analysis::kBinsUnit >= kWordBits)
      return false;
  }
  // Of a section beyond there is no bit.
  return fingerprint.rows() > 0 && last < kFrameLimit &&
         sectionOfFrame(last, seconds + 1) < kSectionBits;
}

/// One word for every pair of bins that any of `fingerprints` has.
Words numbered(std::span<const PackedFingerprint> fingerprints, std::span<const char> usable) {
  Words words(kBinPairs, 0);
  for (std::size_t file = 0; file < fingerprints.size(); ++file) {
    if (!usable[file]) continue;
    for (Eigen::Index row = 0; row < fingerprints[file].rows(); ++row)
      words[fingerprints[file].hash(row) / analysis::kBinsUnit] = 1;
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

IndexedFingerprint indexed(const PackedFingerprint& fingerprint, float seconds,
                           const Words& words) {
  IndexedFingerprint result;
  result.present.resize(words.back());
  result.fillers = leadingFillers(fingerprint);
  result.frames.reserve(static_cast<std::size_t>(fingerprint.rows()));
  for (Eigen::Index row = 0; row < fingerprint.rows(); ++row) {
    const std::uint64_t hash = fingerprint.hash(row), frame = fingerprint.frame(row);
    result.frames.push_back(static_cast<std::int32_t>(frame));
    result.frameEnd = std::max(result.frameEnd, result.frames.back() + 1);
    if (row > 0 && hash == fingerprint.hash(row - 1)) continue;
    result.present[words[hash / analysis::kBinsUnit]] |= std::uint64_t{1}
                                                         << hash % analysis::kBinsUnit;
    const int section = sectionOfFrame(frame, seconds + 1);
    result.runs.push_back({static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(frame),
                           static_cast<std::uint32_t>(section)});
  }
  result.runs.push_back({static_cast<std::uint32_t>(fingerprint.rows()), 0, 0});
  result.runs.shrink_to_fit();
  countWords(result);
  return result;
}

}  // namespace

int leadingFillers(const PackedFingerprint& fingerprint) {
  int rows = 0;
  while (rows < fingerprint.rows() && fingerprint.frame(rows) == 0 && fingerprint.hash(rows) == 0)
    ++rows;
  return rows;
}

std::vector<char> indexable(std::span<const PackedFingerprint> fingerprints,
                            const Eigen::VectorXf& durations) {
  std::vector<char> usable(fingerprints.size());
#pragma omp parallel for schedule(dynamic)
  for (std::size_t file = 0; file < usable.size(); ++file)
    usable[file] = isIndexable(fingerprints[file], durations[static_cast<Eigen::Index>(file)]);
  return usable;
}

HashIndex::HashIndex(std::span<PackedFingerprint> fingerprints, const Eigen::VectorXf& durations,
                     std::span<const char> usable, Indexed afterwards)
    : files_(fingerprints.size()) {
  const Words words = numbered(fingerprints, usable);
  const auto take = [&](std::size_t file) {
    if (!usable[file]) return;
    files_[file] = indexed(fingerprints[file], durations[static_cast<Eigen::Index>(file)], words);
    if (afterwards == Indexed::dropped) fingerprints[file] = {};
  };
  report::FirstException failed;
#pragma omp parallel for schedule(dynamic)
  for (std::size_t file = 0; file < files_.size(); ++file) failed.keep([&] { take(file); });
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
