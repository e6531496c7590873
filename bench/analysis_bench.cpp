// Hours of sound that the analysis works through per second, beside a plain reading of the same
// steps, and the memory that 90 minutes take.

#include <benchmark/benchmark.h>

#include <cstdint>

#include "analysis/fingerprint.h"
#include "analysis/peaks.h"
#include "analysis/sound.h"
#include "analysis/spectrogram.h"
#include "bench/memory.h"
#include "tests/analysis/reference.h"
#include "tests/analysis/sounds.h"

namespace {

using sounds::Samples;

constexpr float kDecay = 0.99f;
constexpr std::size_t kMinute = 60 * analysis::kSampleRate;

// Music, speech, silence and noise by turns, a minute each.
Samples mixedSound(std::size_t minutes) {
  const Samples kinds[] = {sounds::music(kMinute, 1), sounds::speech(kMinute, 2),
                           sounds::heardWithNoise(sounds::music(kMinute, 3), 0.5f, 0.02f, 4),
                           sounds::heardWithNoise(sounds::speech(kMinute, 5), 0.5f, 0.01f, 6)};
  Samples mixed;
  mixed.reserve(minutes * kMinute);
  for (std::size_t i = 0; i < minutes; ++i) {
    mixed.insert(mixed.end(), kinds[i % 4].begin(), kinds[i % 4].end());
  }
  return mixed;
}

void countHours(benchmark::State& state, const Samples& samples) {
  const double hours = static_cast<double>(samples.size()) / (60.0 * kMinute);
  state.counters["hours/s"] =
      benchmark::Counter(hours, benchmark::Counter::kIsIterationInvariantRate);
}

void spectrogram(benchmark::State& state) {
  const Samples samples = mixedSound(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(analysis::spectrogram(samples, 32));
  countHours(state, samples);
}

void fingerprint(benchmark::State& state) {
  const Samples samples = mixedSound(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(analysis::fingerprint(samples, kDecay));
  countHours(state, samples);
}

void fingerprintOfSilence(benchmark::State& state) {
  Samples samples = mixedSound(1);
  samples.resize(static_cast<std::size_t>(state.range(0)) * kMinute);
  for (auto _ : state) benchmark::DoNotOptimize(analysis::fingerprint(samples, kDecay));
  countHours(state, samples);
}

void plainSpectrogram(benchmark::State& state) {
  const Samples samples = mixedSound(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(reference::spectrogram(samples, 32));
  countHours(state, samples);
}

// Three delays up to the kept peaks and with linear pairing: the quadratic one would hide the rest.
void plainFingerprint(benchmark::State& state) {
  const Samples samples = mixedSound(static_cast<std::size_t>(state.range(0)));
  const auto capacity = static_cast<std::int64_t>(samples.size() / analysis::kSampleRate * 50);
  for (auto _ : state) {
    for (const int shift : {0, 32, 64}) {
      const auto s = reference::spectrogram(samples, shift);
      const auto forward = reference::forwardPeaks(s, kDecay, capacity);
      const auto kept = reference::backwardPeaks(s, forward, kDecay);
      benchmark::DoNotOptimize(analysis::pairPeaks(kept, {}));
    }
  }
  countHours(state, samples);
}

// Noise with a fast decay gives as many landmarks as there can be.
void memoryOf90Minutes(benchmark::State& state) {
  const Samples samples = sounds::noise(90 * kMinute, 1);
  for (auto _ : state) benchmark::DoNotOptimize(analysis::fingerprint(samples, 0.9f));
  state.counters["peak MiB"] = bench::peakMemoryMiB();
}

BENCHMARK(memoryOf90Minutes)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(spectrogram)->Arg(60)->Unit(benchmark::kMillisecond);
BENCHMARK(plainSpectrogram)->Arg(60)->Unit(benchmark::kMillisecond);
BENCHMARK(fingerprint)->Arg(60)->Unit(benchmark::kMillisecond);
BENCHMARK(fingerprintOfSilence)->Arg(60)->Unit(benchmark::kMillisecond);
BENCHMARK(plainFingerprint)->Arg(60)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
