#include "align/envelopes.h"

#include <algorithm>

#include "align/resemblance.h"
#include "report/parallel.h"

namespace align {
namespace {

constexpr int kOffsets = 3, kMoreOffsets = 10, kRepetitions = 60;
constexpr double kRelated = 6;       // from here on the pair is related, perhaps repeatedly
constexpr double kStrong = 4.0;      // what chance rarely gives at the best of many offsets
constexpr double kOfTheBest = 0.4;   // offsets fainter than this share of the best are chance
constexpr double kAlike = 0.5;       // of the best; what repeats is rarely fainter
constexpr double kLeastOverlap = 4;  // seconds; two envelopes resemble each other in less anywhere
constexpr double kOfTheShorter = 0.75;

double leastOverlap(const Envelope& a, const Envelope& b) {
  return std::min(kLeastOverlap,
                  kOfTheShorter * double(std::min(a.cols(), b.cols())) / kEnvelopeRate);
}

}  // namespace

Envelopes::Envelopes(std::span<const Recording> recordings, const SoundReader& sound)
    : recordings_(recordings), sound_(sound) {}

void Envelopes::prepare(std::span<const int> files) {
  std::vector<int> wanted;
  for (const int file : files)
    if (!envelopes_.contains(file) && std::ranges::find(wanted, file) == wanted.end())
      wanted.push_back(file);
  std::vector<Envelope> made(wanted.size());
  report::FirstException failed;
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < wanted.size(); ++i)
    failed.keep([&] {
      const auto read = [&](std::int64_t first, std::int64_t count) {
        return sound_(wanted[i], first, count);
      };
      made[i] = envelopeOf(recordings_[std::size_t(wanted[i])].samples, read);
    });
  failed.rethrow();
  for (std::size_t i = 0; i < wanted.size(); ++i) envelopes_[wanted[i]] = std::move(made[i]);
}

vote::PairCandidates Envelopes::candidates(int first, int second) const {
  vote::PairCandidates s{first, second, {}, 0};
  const Envelope &a = envelopes_.at(first), &b = envelopes_.at(second);
  for (const Resemblance& r : resemblances(a, b, kMoreOffsets, leastOverlap(a, b))) {
    if (std::ssize(s.offsets) >= (s.significance < kRelated ? kOffsets : kMoreOffsets)) break;
    if (r.strength < std::max(kStrong, kOfTheBest * s.significance)) break;
    s.offsets.push_back(r.offsetSeconds);
    s.significance = std::max(s.significance, r.strength);
  }
  return s;
}

vote::PairCandidates Envelopes::resembling(const vote::PairCandidates& candidates,
                                           double least) const {
  const Envelope &a = envelopes_.at(candidates.first), &b = envelopes_.at(candidates.second);
  vote::PairCandidates left{candidates.first, candidates.second, {}, 0};
  for (const double offset : candidates.offsets) {
    const double resemblance = resemblanceAt(a, b, offset).value_or(least);
    if (resemblance < least) continue;
    left.offsets.push_back(offset);
    left.significance = std::max(left.significance, resemblance);
  }
  return left;
}

std::vector<Stretch> Envelopes::active(int first, int second, double offsetSeconds) const {
  return activeStretches(envelopes_.at(first), envelopes_.at(second), offsetSeconds);
}

std::vector<double> Envelopes::repetitions(int first, int second) const {
  std::vector<Resemblance> found;
  std::vector<double> offsets;
  const Envelope &a = envelopes_.at(first), &b = envelopes_.at(second);
  for (const Resemblance& r : resemblances(a, b, kRepetitions, leastOverlap(a, b)))
    if (r.strength >= kStrong) found.push_back(r);
  for (const Resemblance& r : found)
    if (r.strength >= kAlike * found.front().strength) offsets.push_back(r.offsetSeconds);
  return offsets;
}

}  // namespace align
