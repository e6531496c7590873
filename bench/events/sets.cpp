#include "bench/events/sets.h"

#include <algorithm>
#include <stdexcept>

#include "bench/events/electronic.h"
#include "bench/events/shoots.h"

namespace events {
namespace {

const std::vector<SetKind>& kinds() {
  static const std::vector<SetKind> all = [] {
    std::vector<SetKind> result;
    for (const auto some : {ordinaryKinds(), roomKinds(), manyKinds()})
      result.insert(result.end(), some.begin(), some.end());
    return result;
  }();
  return all;
}

// The music underneath repeats; what people say over it does not.
std::vector<float> repeating(SoundLibrary& library, const Set::Event& event, Random& random) {
  const std::vector<float> music =
      event.electronic ? electronicMusic(event.seconds, random)
                       : performance(library, Kind::music, event.loopSeconds, random);
  const auto period = event.electronic ? music.size() : std::size_t(event.loopSeconds * kStageRate);
  std::vector<float> out = performance(library, Kind::speech, event.seconds, random);
  for (std::size_t i = 0; i < out.size(); ++i)
    out[i] = float(event.voices) * out[i] + (i % period < music.size() ? music[i % period] : 0.0f);
  return out;
}

std::vector<float> stageOf(SoundLibrary& library, const Set::Event& event, Random& random) {
  std::vector<float> stage = event.loopSeconds > 0 || event.electronic
                                 ? repeating(library, event, random)
                                 : performance(library, event.kind, event.seconds, random);
  const auto sampleAt = [&](double seconds) {
    return stage.begin() +
           std::min(std::ssize(stage), static_cast<std::ptrdiff_t>(seconds * kStageRate));
  };
  for (const Span& pause : event.pauses) std::fill(sampleAt(pause.from), sampleAt(pause.to), 0.0f);
  return stage;
}

std::vector<std::vector<float>> renderEach(const std::vector<Take>& takes,
                                           const std::vector<std::vector<float>>& stages,
                                           Random& random) {
  std::vector<std::uint64_t> seeds(takes.size());
  for (auto& seed : seeds) seed = random();
  std::vector<std::vector<float>> sounds(takes.size());
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < takes.size(); ++i) {
    if (takes[i].cut.recording >= 0) continue;
    Random own(seeds[i]);
    sounds[i] = render(takes[i], stages[static_cast<std::size_t>(takes[i].event)], own);
  }
  return sounds;
}

std::vector<float> cutOut(const Take& take, const std::vector<float>& recording) {
  const auto first = std::min(std::ssize(recording), std::ptrdiff_t(take.cut.firstSample));
  const auto count =
      std::min(std::ssize(recording) - first, std::ptrdiff_t(take.lengthSeconds * kRate));
  return {recording.begin() + first, recording.begin() + first + count};
}

}  // namespace

const std::vector<std::string>& setNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> result;
    for (const SetKind& kind : kinds()) result.push_back(kind.name);
    return result;
  }();
  return names;
}

Set makeSet(const std::string& name, Random& random) {
  const auto kind = std::ranges::find(kinds(), name, &SetKind::name);
  if (kind == kinds().end()) throw std::invalid_argument("no kind of set is called " + name);
  return kind->make(random);
}

std::vector<std::vector<float>> renderAll(const Set& set, SoundLibrary library, Random& random) {
  std::vector<std::vector<float>> stages;
  for (const Set::Event& event : set.events) stages.push_back(stageOf(library, event, random));
  const auto recordings = renderEach(set.recordings, stages, random);
  auto sounds = renderEach(set.takes, stages, random);
  for (std::size_t i = 0; i < sounds.size(); ++i)
    if (const int from = set.takes[i].cut.recording; from >= 0)
      sounds[i] = cutOut(set.takes[i], recordings[std::size_t(from)]);
  return sounds;
}

}  // namespace events
