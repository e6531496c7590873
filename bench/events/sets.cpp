#include "bench/events/sets.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <tuple>

namespace events {
namespace {

Microphone microphone(Random& random, double worstSnr, double bestSnr) {
  Microphone mic;
  mic.snrDb = uniform(random, worstSnr, bestSnr);
  mic.reverbSeconds = uniform(random, 0.15, 0.9);
  mic.directDb = uniform(random, -2, 10);
  mic.driftPpm = uniform(random, -15, 15);
  mic.automaticGain = random() % 3 == 0;
  mic.bandHz = random() % 4 == 0 ? 2500 : 3700;
  const auto habits = random();
  mic.bumpsPerMinute = habits % 2 ? 3 : 0;
  mic.inverted = habits % 10 < 2;
  return mic;
}

void addTake(Set& set, int event, int device, double start, double length, const Microphone& mic) {
  const double from = std::max(0.0, start);
  const double to = std::min(set.events[static_cast<std::size_t>(event)].seconds, start + length);
  if (to - from < 2) return;
  const std::string name = "device" + std::to_string(device + 1) + "-clip" +
                           std::to_string(set.takes.size() + 1) + ".wav";
  set.takes.push_back({name, event, device, from, to - from, mic});
}

// Clips of one device one after the other with gaps between, over the whole event.
void addClips(Set& set, int event, int device, double shortest, double longest, double gap,
              const Microphone& mic, Random& random) {
  const double end = set.events[static_cast<std::size_t>(event)].seconds;
  for (double t = uniform(random, 0, gap); t < end;) {
    const double length = uniform(random, shortest, longest);
    addTake(set, event, device, t, length, mic);
    t += length + uniform(random, 0.5, gap);
  }
}

Set cameras(Random& random) {
  Set set{"cameras", {{Kind::both, 170}}, {}};
  for (int d = 0; d < 3; ++d)
    addTake(set, 0, d, uniform(random, 0, 25), uniform(random, 100, 140),
            microphone(random, 10, 30));
  addTake(set, 0, 3, 0, 170, microphone(random, 25, 40));
  return set;
}

Set wedding(Random& random) {
  Set set{"wedding", {{Kind::both, 900}}, {}};
  for (int d = 0; d < 2; ++d) addClips(set, 0, d, 15, 180, 40, microphone(random, 5, 20), random);
  addTake(set, 0, 2, 10, 870, microphone(random, 15, 30));
  return set;
}

Set concert(Random& random) {
  Set set{"concert", {{Kind::music, 1100}}, {}};
  for (int d = 0; d < 3; ++d) {
    Microphone mic = microphone(random, 10, 25);
    mic.driftPpm = uniform(random, -60, 60);
    mic.automaticGain = d == 1;
    mic.clips = d == 2;
    addTake(set, 0, d, uniform(random, 0, 200), uniform(random, 650, 880), mic);
  }
  return set;
}

Set interview(Random& random) {
  Set set{"interview", {{Kind::speech, 420}}, {}};
  Microphone lavalier = microphone(random, 25, 40);
  lavalier.reverbSeconds = 0;
  addTake(set, 0, 0, 0, 420, lavalier);
  for (int d = 1; d < 3; ++d) {
    Microphone mic = microphone(random, 8, 20);
    mic.echoDb = uniform(random, -6, 3);  // a desk or wall beside the camera
    mic.echoMs = uniform(random, 3, 28);
    addClips(set, 0, d, 60, 200, 30, mic, random);
  }
  return set;
}

Set strangers(Random& random) {
  Set set{"strangers", {{Kind::both, 240}, {Kind::speech, 200}}, {}};
  for (int d = 0; d < 3; ++d)
    addTake(set, 0, d, uniform(random, 0, 40), uniform(random, 100, 200),
            microphone(random, 8, 25));
  for (int d = 3; d < 6; ++d)
    addTake(set, 1, d, uniform(random, 0, 30), uniform(random, 80, 150), microphone(random, 8, 25));
  for (int d = 6; d < 11; ++d) {
    set.events.push_back({static_cast<Kind>(random() % 3), 100});
    addTake(set, d - 4, d, 0, uniform(random, 20, 100), microphone(random, 8, 25));
  }
  return set;
}

Set hard(Random& random) {
  Set set{"hard", {{static_cast<Kind>(random() % 3), 240}}, {}};
  addTake(set, 0, 0, 0, 240, microphone(random, 10, 15));
  for (int d = 1; d < 4; ++d) {
    Microphone mic = microphone(random, -2, 3);
    mic.reverbSeconds = uniform(random, 0.6, 1.4);
    mic.directDb = uniform(random, -6, 0);
    mic.babble = d == 2;
    addClips(set, 0, d, 7, 20, 30, mic, random);
  }
  return set;
}

Set playback(Random& random) {
  Set set{"playback", {{Kind::music, 100}}, {}};
  for (int d = 0; d < 6; ++d)
    addTake(set, 0, d, uniform(random, 0, 30), uniform(random, 30, 80), microphone(random, 5, 20));
  return set;
}

Set loop(Random& random) {
  Set set{"loop", {{Kind::both, 180, uniform(random, 8, 25)}}, {}};
  for (int d = 0; d < 3; ++d)
    addTake(set, 0, d, uniform(random, 0, 60), uniform(random, 60, 110),
            microphone(random, 10, 25));
  return set;
}

Set shortClips(Random& random) {
  Set set{"short", {{Kind::both, 420}}, {}};
  for (int d = 0; d < 3; ++d) {
    Microphone mic = microphone(random, 5, 20);
    mic.bumpsPerMinute = 10;
    addClips(set, 0, d, 8, 20, 3, mic, random);
  }
  return set;
}

// Phones, cheap recorders and the internet: every take through a lossy encoder.
Set lossy(Random& random) {
  static const std::vector<std::pair<std::string, int>> codecs{
      {"aac", 64}, {"libmp3lame", 48}, {"libopus", 16}, {"libopus", 32}, {"aac", 24}};
  Set set{"lossy", {{Kind::both, 300}}, {}};
  for (int d = 0; d < 5; ++d) {
    Microphone mic = microphone(random, 3, 20);
    std::tie(mic.codec, mic.kilobits) = codecs[std::size_t(d)];
    mic.wind = random() % 3 == 0;
    addClips(set, 0, d, 12, 90, 20, mic, random);
  }
  return set;
}

// What no editor should expect to be placed: there is hardly anything to hear.
Set hopeless(Random& random) {
  Set set{"hopeless", {{static_cast<Kind>(random() % 3), 300}, {Kind::both, 200}}, {}};
  for (int d = 0; d < 5; ++d) {
    Microphone mic = microphone(random, -14, -3);
    mic.reverbSeconds = uniform(random, 0.6, 2.0);
    mic.directDb = uniform(random, -10, 0);
    mic.babble = d % 2;
    mic.bumpsPerMinute = 20;
    mic.wind = d == 3;
    addClips(set, d == 4, d, 5, 20, 20, mic, random);
  }
  return set;
}

// One song that is played back time and again, steady, with somebody singing or calling over it;
// each device's clips are cut from it anywhere.
Set dance(Random& random) {
  Set set{"dance", {{Kind::both, 260, uniform(random, 2, 8)}}, {}};
  for (int d = 0; d < 3; ++d) {
    Microphone mic = microphone(random, 0, 15);
    mic.babble = random() % 2;
    addClips(set, 0, d, 10, 60, 20, mic, random);
  }
  return set;
}

// Stretches of `longest` seconds at the most, with others between them that are not in the list.
std::vector<Span> stretches(Random& random, double seconds, double longest, double longestBetween) {
  std::vector<Span> spans;
  for (double at = uniform(random, 0, longestBetween); at < seconds;) {
    spans.push_back({at, std::min(seconds, at + uniform(random, longest / 5, longest))});
    at = spans.back().to + uniform(random, longestBetween / 5, longestBetween);
  }
  return spans;
}

// Cameras and a recorder that run while people wait: most of the time each hears its own noise
// alone, and one is switched off now and then.
Set waits(Random& random) {
  constexpr double kSeconds = 1200;
  Set set{"waits", {{Kind::both, kSeconds}}, {}};
  set.events[0].pauses = stretches(random, kSeconds, uniform(random, 60, 250), 40);
  const std::vector<Span> muted = stretches(random, kSeconds, 60, 60);
  for (int d = 0; d < 4; ++d) {
    Microphone mic = microphone(random, 8, 25);
    mic.automaticGain = false;
    if (d == 0) addTake(set, 0, d, 0, kSeconds, mic);
    if (d > 0) addClips(set, 0, d, 120, 500, 60, mic, random);
  }
  for (Take& take : set.takes)
    if (take.device == 2) take.muted = muted;
  return set;
}

// Cameras carried about, up to 17 m from where they stood: the sound comes up to 50 ms later, now
// more, now less. Their bearers stand for a while, then walk a metre a second.
Set handheld(Random& random) {
  constexpr double kSeconds = 500, kMetres = 17;
  Set set{"handheld", {{static_cast<Kind>(random() % 3), kSeconds}}, {}};
  for (int d = 0; d < 4; ++d) {
    const Microphone mic = microphone(random, 5, 20);
    if (d == 0) addTake(set, 0, d, 0, kSeconds, mic);
    if (d > 0) addClips(set, 0, d, 30, 200, 40, mic, random);
    std::vector<Take::Stand> way;
    for (double t = 0, at = uniform(random, 0, kMetres); d > 0 && t < kSeconds;) {
      way.push_back({t, at});
      way.push_back({t += uniform(random, 8, 50), at});
      const double next = uniform(random, 0, kMetres);
      t += std::abs(next - at);
      at = next;
    }
    for (Take& take : set.takes)
      if (take.device == d) take.way = way;
  }
  return set;
}

// Takes to one playback: all hear the same music, each its own voices over it.
Set takes(Random& random) {
  Set set{"takes", {{Kind::music, 120}}, {}};
  for (int d = 0; d < 7; ++d) {
    Microphone mic = microphone(random, -3, 8);
    mic.babble = true;
    addTake(set, 0, d, uniform(random, 0, 40), uniform(random, 30, 80), mic);
  }
  return set;
}

// A conference: hours on a recorder, a camera in long pieces, a phone now and then.
Set conference(Random& random) {
  Set set{"conference", {{Kind::both, 5400}}, {}};
  addTake(set, 0, 0, 0, 5400, microphone(random, 15, 30));
  for (int d = 1; d < 3; ++d) {
    Microphone mic = microphone(random, 5, 15);
    mic.driftPpm = uniform(random, -60, 60);
    if (d == 1) addClips(set, 0, d, 900, 1800, 60, mic, random);
    if (d == 2) addClips(set, 0, d, 10, 60, 300, mic, random);
  }
  return set;
}

// Many clips of several devices over one long event.
Set many(Random& random, double seconds, int devices) {
  Set set{"many", {{Kind::both, seconds}}, {}};
  for (int d = 0; d < devices; ++d)
    addClips(set, 0, d, 20, 90, 60, microphone(random, 5, 20), random);
  return set;
}

Set hundred(Random& random) { return many(random, 2200, 4); }
Set thousand(Random& random) { return many(random, 10000, 8); }

Set longOnes(Random& random) {
  Set set{"long", {{Kind::both, 2400}}, {}};
  for (int d = 0; d < 2; ++d) {
    Microphone mic = microphone(random, 5, 20);
    mic.driftPpm = uniform(random, -60, 60);
    addTake(set, 0, d, uniform(random, 0, 300), uniform(random, 1500, 2000), mic);
  }
  addTake(set, 0, 2, 0, 2400, microphone(random, 15, 25));
  return set;
}

const std::vector<std::pair<std::string, std::function<Set(Random&)>>>& makers() {
  static const std::vector<std::pair<std::string, std::function<Set(Random&)>>> all = {
      {"cameras", cameras},       {"wedding", wedding},
      {"concert", concert},       {"interview", interview},
      {"strangers", strangers},   {"hard", hard},
      {"playback", playback},     {"loop", loop},
      {"short", shortClips},      {"lossy", lossy},
      {"dance", dance},           {"takes", takes},
      {"waits", waits},           {"handheld", handheld},
      {"hopeless", hopeless},     {"long", longOnes},
      {"conference", conference}, {"hundred", hundred},
      {"thousand", thousand}};
  return all;
}

// The music underneath repeats; what people say over it does not.
std::vector<float> looped(SoundLibrary& library, const Set::Event& event, Random& random) {
  std::vector<float> music = performance(library, Kind::music, event.loopSeconds, random);
  std::vector<float> out = performance(library, Kind::speech, event.seconds, random);
  const auto period = static_cast<std::size_t>(event.loopSeconds * kStageRate);
  for (std::size_t i = 0; i < out.size(); ++i)
    out[i] = 0.4f * out[i] + (i % period < music.size() ? music[i % period] : 0.0f);
  return out;
}

std::vector<float> stageOf(SoundLibrary& library, const Set::Event& event, Random& random) {
  std::vector<float> stage = event.loopSeconds > 0
                                 ? looped(library, event, random)
                                 : performance(library, event.kind, event.seconds, random);
  const auto sampleAt = [&](double seconds) {
    return stage.begin() +
           std::min(std::ssize(stage), static_cast<std::ptrdiff_t>(seconds * kStageRate));
  };
  for (const Span& pause : event.pauses) std::fill(sampleAt(pause.from), sampleAt(pause.to), 0.0f);
  return stage;
}

}  // namespace

const std::vector<std::string>& setNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> result;
    for (const auto& [name, maker] : makers()) result.push_back(name);
    return result;
  }();
  return names;
}

Set makeSet(const std::string& name, Random& random) {
  for (const auto& [known, maker] : makers())
    if (known == name) return maker(random);
  return {};
}

std::vector<std::vector<float>> renderAll(const Set& set, SoundLibrary library, Random& random) {
  std::vector<std::vector<float>> stages;
  for (const Set::Event& event : set.events) stages.push_back(stageOf(library, event, random));
  std::vector<std::uint64_t> seeds(set.takes.size());
  for (auto& seed : seeds) seed = random();
  std::vector<std::vector<float>> sounds(set.takes.size());
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < set.takes.size(); ++i) {
    Random own(seeds[i]);
    sounds[i] = render(set.takes[i], stages[static_cast<std::size_t>(set.takes[i].event)], own);
  }
  return sounds;
}

}  // namespace events
