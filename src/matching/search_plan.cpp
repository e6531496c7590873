#include "matching/search_plan.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <set>
#include <tuple>

namespace matching {
namespace {

using FilePair = std::pair<int, int>;

constexpr double kShare = 8;       // the search may read every second of sound so often ...
constexpr double kFloor = 14400;   // ... and this many seconds in any case
constexpr int kMostPartners = 40;  // of one lonely recording

std::vector<FilePair> withinBudget(std::span<const FilePair> pairs,
                                   std::span<const Recording> recordings) {
  double budget = kFloor;
  for (const Recording& recording : recordings) budget += kShare * secondsOf(recording);
  std::vector<int> partners(recordings.size(), 0);
  std::vector<FilePair> chosen;
  for (const auto& [a, b] : pairs) {
    int &ofA = partners[std::size_t(a)], &ofB = partners[std::size_t(b)];
    const double cost =
        secondsOf(recordings[std::size_t(a)]) + secondsOf(recordings[std::size_t(b)]);
    if (cost > budget || std::min(ofA, ofB) >= kMostPartners) continue;
    budget -= cost, ++ofA, ++ofB;
    chosen.emplace_back(a, b);
  }
  return chosen;
}

/// How much a pair promises: what to connect first, then what the votes suspect, then what is long.
class Promise {
 public:
  Promise(std::span<const Recording> recordings, std::span<const Suspicion> suspicions,
          std::span<const int> matchCount)
      : recordings_(recordings), matchCount_(matchCount) {
    for (const Suspicion& s : suspicions)
      significance_[std::minmax(s.first, s.second)] = s.significance;
  }
  std::tuple<bool, double, double> operator()(const FilePair& pair) const {
    const auto a = std::size_t(pair.first), b = std::size_t(pair.second);
    const auto known = significance_.find(pair);
    return {!matchCount_[a] || !matchCount_[b],
            known == significance_.end() ? 0.0 : std::floor(known->second),
            secondsOf(recordings_[a]) + secondsOf(recordings_[b])};
  }

 private:
  std::span<const Recording> recordings_;
  std::span<const int> matchCount_;
  std::map<FilePair, double> significance_;
};

// The most promising partners of every recording that they are not connected with.
std::vector<FilePair> unconnected(std::span<const Recording> recordings, OffsetForest& connected,
                                  const Promise& promise) {
  std::set<FilePair> pairs;
  std::vector<FilePair> ofOne;
  for (int a = 0; a < std::ssize(recordings); ++a) {
    ofOne.clear();
    for (int b = 0; b < std::ssize(recordings); ++b)
      if (comparable(recordings, a, b) && connected.group(a) != connected.group(b))
        ofOne.push_back(std::minmax(a, b));
    std::ranges::stable_sort(ofOne, std::greater{}, promise);
    pairs.insert(ofOne.begin(),
                 ofOne.begin() + std::min<std::ptrdiff_t>(kMostPartners, std::ssize(ofOne)));
  }
  return {pairs.begin(), pairs.end()};
}

}  // namespace

std::vector<FilePair> searchPlan(std::span<const Recording> recordings,
                                 std::span<const Suspicion> suspicions, OffsetForest& connected,
                                 std::span<const int> matchCount) {
  const Promise promise(recordings, suspicions, matchCount);
  std::vector<FilePair> pairs = unconnected(recordings, connected, promise);
  std::ranges::stable_sort(pairs, std::greater{}, promise);
  return withinBudget(pairs, recordings);
}

}  // namespace matching
