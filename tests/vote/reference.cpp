#include "tests/vote/reference.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace reference {
namespace {

using Codes = std::vector<unsigned long long>;

unsigned long long code(double tX, double tY, int first, int second, float secondsY) {
  const auto delta = static_cast<unsigned>((tX - tY) * 192 / 8000 * 100 + 5000000);
  const auto time = static_cast<float>(tY * 192 / 8000);
  const auto section = static_cast<unsigned long long>(time / ((secondsY + 1.0) * 0.03125));
  return ((section * 1000 + first) * 1000 + second) * 10000000 + delta;
}

int delta(unsigned long long hit) { return static_cast<int>(hit % 10000000); }

std::vector<int> candidates(const Codes& hits) {
  std::vector<int> deltas;
  for (std::size_t k = 0; k + 1 < hits.size(); ++k) deltas.push_back(delta(hits[k]));
  std::sort(deltas.rbegin(), deltas.rend());
  std::set<int> found;
  for (std::size_t k = 0; k + 1 < deltas.size(); ++k) {
    if (std::abs(deltas[k] - deltas[k + 1]) > 1) found.insert(deltas[k + 1]);
  }
  return {found.begin(), found.end()};
}

struct Count {
  long score = 0, hits = 0;
  std::set<int> sections;
};

Count countFor(int candidate, const Codes& hits) {
  Count count;
  for (std::size_t k = 0; k + 2 < hits.size(); ++k) {
    const int section = static_cast<int>(hits[k] / 10000000000000);
    const int a = std::abs(candidate - delta(hits[k]));
    const int b = std::abs(candidate - delta(hits[k + 1]));
    const int c = std::abs(candidate - delta(hits[k + 2]));
    if (a < 3 && b < 3 && c < 3)
      count.score += 200, count.hits += 3, count.sections.insert(section);
    if (a < 5 && b < 5 && c < 5)
      count.score += 100, count.hits += 3, count.sections.insert(section);
    if (a < 5 && b < 5) count.score += 30, count.hits += 2, count.sections.insert(section);
    if (a < 2) count.hits += 1;
    if (a == 0) count.hits += 1, count.sections.insert(section);
  }
  return count;
}

float seconds(int candidate) { return (static_cast<float>(candidate) - 5000000.0f) / 100.0f; }

}  // namespace

Codes compareFingerprints(const analysis::MatrixXLI& x, const analysis::MatrixXLI& y, int first,
                          int second, float secondsY) {
  Codes hits{9999999};
  for (Eigen::Index i = 0, j = 0; i < x.rows() && j < y.rows();) {
    if (x(i, 1) > y(j, 1)) {
      ++j;
    } else if (x(i, 1) < y(j, 1)) {
      ++i;
    } else {
      hits.push_back(code(x(i, 0), y(j, 0), first, second, secondsY));
      ++i;
    }
  }
  std::sort(hits.begin(), hits.end());
  if (hits.size() < 2) hits.push_back(0);
  return hits;
}

std::optional<vote::OffsetStats> estimateOffset(Codes hits) {
  std::sort(hits.begin(), hits.end());
  hits.erase(std::unique(hits.begin(), hits.end()), hits.end());
  int best = 99999999, most = 99999999, span = 0, bestSpan = 0;
  std::size_t bestSections = 0;
  long bestScore = 0, bestHits = 0, mostHits = 0;
  for (const int candidate : candidates(hits)) {
    const Count count = countFor(candidate, hits);
    if (count.sections.size() > 1) span = *count.sections.rbegin() - *count.sections.begin();
    if (count.sections.size() > bestSections && count.score > bestScore && span > bestSpan) {
      best = candidate, bestSections = count.sections.size(), bestScore = count.score;
      bestSpan = span, bestHits = count.hits;
    }
    if (count.hits > mostHits) most = candidate, mostHits = count.hits;
  }
  if (best == 99999999) return std::nullopt;
  return vote::OffsetStats{seconds(best),
                           static_cast<float>(bestSections),
                           seconds(most),
                           static_cast<float>(mostHits),
                           static_cast<float>(bestHits),
                           static_cast<float>(bestSpan),
                           static_cast<float>(bestScore)};
}

}  // namespace reference
