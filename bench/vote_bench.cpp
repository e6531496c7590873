// Rates of the matching, on fingerprints with the density and hashes of real ones.

#include <benchmark/benchmark.h>

#include "tests/vote/event.h"
#include "tests/vote/reference.h"
#include "vote/compare.h"
#include "vote/estimate.h"
#include "vote/vote_pairs.h"

namespace {

constexpr double kLandmarksPerSecond = 600;  // of the event; a recording keeps a third, adds some
constexpr int kMusicMode = 1;

struct Set {
  std::vector<analysis::MatrixXLI> fingerprints;
  Eigen::VectorXf durations;
};

/// `count` recordings of `seconds` each, spread so that neighbours overlap by half.
Set clips(int count, double seconds) {
  std::vector<event::Take> takes;
  for (int i = 0; i < count; ++i) takes.push_back({i * seconds / 2, seconds, 0.33, 100});
  return {event::fingerprints(takes, kLandmarksPerSecond, 1),
          Eigen::VectorXf::Constant(count, static_cast<float>(seconds))};
}

void voteOnAll(benchmark::State& state, const Set& set) {
  const auto pairs = vote::pairsToCompare(set.durations, {});
  std::int64_t voted = 0;
  for (auto _ : state) {
    vote::votePairs(set.fingerprints, set.durations, pairs, kMusicMode, [&](vote::PairVote vote) {
      benchmark::DoNotOptimize(vote);
      ++voted;
    });
  }
  state.counters["pairs/s"] = benchmark::Counter(voted, benchmark::Counter::kIsRate);
  state.counters["rows"] = set.fingerprints[0].rows();
}

/// Clips of range(0) seconds; range(1) of them.
void clipsOfOneLength(benchmark::State& state) {
  voteOnAll(state, clips(static_cast<int>(state.range(1)), state.range(0)));
}

void ninetyAndTwiceSixtyMinutes(benchmark::State& state) {
  Set set{
      event::fingerprints({{0, 5400, 0.33, 100}, {600, 3600, 0.33, 100}, {1500, 3600, 0.33, 100}},
                          kLandmarksPerSecond, 2),
      {}};
  set.durations.resize(3);
  set.durations << 5400, 3600, 3600;
  voteOnAll(state, set);
}

/// The vote on one pair of range(0) seconds, by `estimate`.
template <auto estimate>
void voteOnOnePair(benchmark::State& state) {
  const Set set = clips(2, state.range(0));
  const auto hits = vote::compareFingerprints(set.fingerprints[0], set.fingerprints[1], 0, 1,
                                              set.durations[0], set.durations[1]);
  for (auto _ : state) benchmark::DoNotOptimize(estimate(hits));
  state.counters["hits"] = hits.size();
}

}  // namespace

BENCHMARK(clipsOfOneLength)
    ->Args({15, 200})
    ->Args({300, 20})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ninetyAndTwiceSixtyMinutes)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(voteOnOnePair<vote::estimateOffset>)
    ->Arg(15)
    ->Arg(60)
    ->Arg(300)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(voteOnOnePair<reference::estimateOffset>)
    ->Arg(15)
    ->Arg(60)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_MAIN();
