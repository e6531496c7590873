#include "place/search_plan.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>

namespace place {
namespace {

using FilePair = std::pair<int, int>;

constexpr double kShare = 8;        // the search may read every second of sound so often ...
constexpr double kFloor = 14400;    // ... and this many seconds in any case
constexpr double kAboveChance = 4;  // significance of a vote's peak that may say something
constexpr int kMostPartners = 40;   // of one lonely recording

std::vector<FilePair> withinBudget(std::span<const FilePair> pairs,
                                   std::span<const align::Recording> recordings) {
  double budget = kFloor;
  for (const align::Recording& recording : recordings)
    budget += kShare * align::secondsOf(recording);
  std::vector<int> partners(recordings.size(), 0);
  std::vector<FilePair> chosen;
  for (const auto& [a, b] : pairs) {
    int &ofA = partners[std::size_t(a)], &ofB = partners[std::size_t(b)];
    const double cost =
        align::secondsOf(recordings[std::size_t(a)]) + align::secondsOf(recordings[std::size_t(b)]);
    if (cost > budget || std::min(ofA, ofB) >= kMostPartners) continue;
    budget -= cost, ++ofA, ++ofB;
    chosen.emplace_back(a, b);
  }
  return chosen;
}

/// How much a pair promises: what to connect first, then what the votes candidates, then what is
/// long.
class Promise {
 public:
  Promise(std::span<const align::Recording> recordings,
          std::span<const vote::PairCandidates> candidates, std::span<const int> matchCount)
      : recordings_(recordings), matchCount_(matchCount) {
    for (const vote::PairCandidates& s : candidates)
      if (s.significance >= kAboveChance)
        significance_[std::minmax(s.first, s.second)] = s.significance;
  }
  std::tuple<bool, double, double> operator()(const FilePair& pair) const {
    const auto a = std::size_t(pair.first), b = std::size_t(pair.second);
    const auto known = significance_.find(pair);
    return {!matchCount_[a] || !matchCount_[b],
            known == significance_.end() ? 0.0 : std::floor(known->second),
            align::secondsOf(recordings_[a]) + align::secondsOf(recordings_[b])};
  }

 private:
  std::span<const align::Recording> recordings_;
  std::span<const int> matchCount_;
  std::map<FilePair, double> significance_;
};

using Ranked = std::pair<std::tuple<bool, double, double>, FilePair>;

struct ByPromise {
  bool operator()(const Ranked& a, const Ranked& b) const {
    return a.first != b.first ? a.first > b.first : a.second < b.second;
  }
};

// The most promising partners of every recording that they are not connected with, most first.
std::vector<FilePair> unconnected(std::span<const align::Recording> recordings,
                                  OffsetForest& connected, const Promise& promise) {
  std::set<Ranked, ByPromise> pairs;
  std::vector<Ranked> ofOne;
  for (int a = 0; a < std::ssize(recordings); ++a) {
    ofOne.clear();
    for (int b = 0; b < std::ssize(recordings); ++b)
      if (align::comparable(recordings, a, b) && connected.group(a) != connected.group(b)) {
        const FilePair pair = std::minmax(a, b);
        ofOne.emplace_back(promise(pair), pair);
      }
    const auto most = std::min<std::ptrdiff_t>(kMostPartners, std::ssize(ofOne));
    std::ranges::partial_sort(ofOne, ofOne.begin() + most, ByPromise());
    pairs.insert(ofOne.begin(), ofOne.begin() + most);
  }
  std::vector<FilePair> sorted;
  for (const Ranked& ranked : pairs) sorted.push_back(ranked.second);
  return sorted;
}

}  // namespace

std::vector<FilePair> searchPlan(std::span<const align::Recording> recordings,
                                 std::span<const vote::PairCandidates> candidates,
                                 OffsetForest& connected, std::span<const int> matchCount) {
  const Promise promise(recordings, candidates, matchCount);
  return withinBudget(unconnected(recordings, connected, promise), recordings);
}

}  // namespace place
