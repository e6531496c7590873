#include <cmath>
#include <tuple>

#include "bench/events/shoots.h"

namespace events {
namespace {

Set cameras(Random& random) {
  Set set{"cameras", {{Kind::both, 170}}};
  for (int d = 0; d < 3; ++d)
    addTake(set, 0, d, uniform(random, 0, 25), uniform(random, 100, 140),
            microphone(random, 10, 30));
  addTake(set, 0, 3, 0, 170, microphone(random, 25, 40));
  return set;
}

Set wedding(Random& random) {
  Set set{"wedding", {{Kind::both, 900}}};
  for (int d = 0; d < 2; ++d) addClips(set, 0, d, 15, 180, 40, microphone(random, 5, 20), random);
  addTake(set, 0, 2, 10, 870, microphone(random, 15, 30));
  return set;
}

Set concert(Random& random) {
  Set set{"concert", {{Kind::music, 1100}}};
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
  Set set{"interview", {{Kind::speech, 420}}};
  Microphone lavalier = microphone(random, 25, 40);
  lavalier.room.reverbSeconds = 0;
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
  Set set{"strangers", {{Kind::both, 240}, {Kind::speech, 200}}};
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
  Set set{"hard", {{static_cast<Kind>(random() % 3), 240}}};
  addTake(set, 0, 0, 0, 240, microphone(random, 10, 15));
  for (int d = 1; d < 4; ++d) {
    Microphone mic = microphone(random, -2, 3);
    mic.room = {uniform(random, 0.6, 1.4), uniform(random, -6, 0)};
    mic.babble = d == 2;
    addClips(set, 0, d, 7, 20, 30, mic, random);
  }
  return set;
}

Set playback(Random& random) {
  Set set{"playback", {{Kind::music, 100}}};
  for (int d = 0; d < 6; ++d)
    addTake(set, 0, d, uniform(random, 0, 30), uniform(random, 30, 80), microphone(random, 5, 20));
  return set;
}

Set loop(Random& random) {
  Set set{"loop", {{Kind::both, 180, uniform(random, 8, 25)}}};
  for (int d = 0; d < 3; ++d)
    addTake(set, 0, d, uniform(random, 0, 60), uniform(random, 60, 110),
            microphone(random, 10, 25));
  return set;
}

Set shortClips(Random& random) {
  Set set{"short", {{Kind::both, 420}}};
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
  Set set{"lossy", {{Kind::both, 300}}};
  for (int d = 0; d < 5; ++d) {
    Microphone mic = microphone(random, 3, 20);
    std::tie(mic.codec, mic.kilobits) = codecs[std::size_t(d)];
    mic.wind = random() % 3 == 0;
    addClips(set, 0, d, 12, 90, 20, mic, random);
  }
  return set;
}

// Telephones: what they take for noise is suppressed, the rest evened and sent at low bit rates.
Set phones(Random& random) {
  static const std::vector<std::pair<std::string, int>> codecs{
      {"libopus", 8}, {"aac", 16}, {"libopus", 12}, {"libopus", 16}, {"aac", 24}};
  Set set{"phones", {{random() % 2 ? Kind::both : Kind::speech, 300}}};
  for (int d = 0; d < 4; ++d) {
    Microphone mic = microphone(random, 3, 15);
    mic.suppression = mic.automaticGain = true;
    std::tie(mic.codec, mic.kilobits) = codecs[random() % codecs.size()];
    addClips(set, 0, d, 12, 90, 20, mic, random);
  }
  return set;
}

// Every clip has one knock that is louder than the looped music.
Set bumps(Random& random) {
  Set set{"bumps", {{Kind::both, 300, uniform(random, 3, 10)}}};
  for (int d = 0; d < 4; ++d) {
    Microphone mic = microphone(random, 5, 20);
    mic.thumps = 1;
    addClips(set, 0, d, 10, 45, 30, mic, random);
  }
  return set;
}

// Two devices that are switched on for moments, and often a third one that runs through.
Set snippets(Random& random) {
  Set set{"snippets", {{static_cast<Kind>(random() % 3), 240}}};
  for (int d = 0; d < 2; ++d) addClips(set, 0, d, 3, 8, 4, microphone(random, 5, 20), random);
  if (random() % 4) addTake(set, 0, 2, 5, 230, microphone(random, 5, 20));
  return set;
}

// What no editor should expect to be placed: there is hardly anything to hear.
Set hopeless(Random& random) {
  Set set{"hopeless", {{static_cast<Kind>(random() % 3), 300}, {Kind::both, 200}}};
  for (int d = 0; d < 5; ++d) {
    Microphone mic = microphone(random, -14, -3);
    mic.room = {uniform(random, 0.6, 2.0), uniform(random, -10, 0)};
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
  Set set{"dance", {{Kind::both, 260, uniform(random, 2, 8)}}};
  for (int d = 0; d < 3; ++d) {
    Microphone mic = microphone(random, 0, 15);
    mic.babble = random() % 2;
    addClips(set, 0, d, 10, 60, 20, mic, random);
  }
  return set;
}

// Cameras and a recorder that run while people wait: most of the time each hears its own noise
// alone, and one is switched off now and then.
Set waits(Random& random) {
  constexpr double kSeconds = 1200;
  Set set{"waits", {{Kind::both, kSeconds}}};
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
  Set set{"handheld", {{static_cast<Kind>(random() % 3), kSeconds}}};
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
  Set set{"takes", {{Kind::music, 120}}};
  for (int d = 0; d < 7; ++d) {
    Microphone mic = microphone(random, -3, 8);
    mic.babble = true;
    addTake(set, 0, d, uniform(random, 0, 40), uniform(random, 30, 80), mic);
  }
  return set;
}

// A conference: hours on a recorder, a camera in long pieces, a phone now and then.
Set conference(Random& random) {
  Set set{"conference", {{Kind::both, 5400}}};
  addTake(set, 0, 0, 0, 5400, microphone(random, 15, 30));
  for (int d = 1; d < 3; ++d) {
    Microphone mic = microphone(random, 5, 15);
    mic.driftPpm = uniform(random, -60, 60);
    if (d == 1) addClips(set, 0, d, 900, 1800, 60, mic, random);
    if (d == 2) addClips(set, 0, d, 10, 60, 300, mic, random);
  }
  return set;
}

Set longOnes(Random& random) {
  Set set{"long", {{Kind::both, 2400}}};
  for (int d = 0; d < 2; ++d) {
    Microphone mic = microphone(random, 5, 20);
    mic.driftPpm = uniform(random, -60, 60);
    addTake(set, 0, d, uniform(random, 0, 300), uniform(random, 1500, 2000), mic);
  }
  addTake(set, 0, 2, 0, 2400, microphone(random, 15, 25));
  return set;
}

}  // namespace

std::span<const SetKind> ordinaryKinds() {
  static const std::vector<SetKind> kinds = {{"cameras", cameras},     {"wedding", wedding},
                                             {"concert", concert},     {"interview", interview},
                                             {"strangers", strangers}, {"hard", hard},
                                             {"playback", playback},   {"loop", loop},
                                             {"short", shortClips},    {"lossy", lossy},
                                             {"dance", dance},         {"phones", phones},
                                             {"bumps", bumps},         {"snippets", snippets},
                                             {"takes", takes},         {"waits", waits},
                                             {"handheld", handheld},   {"hopeless", hopeless},
                                             {"long", longOnes},       {"conference", conference}};
  return kinds;
}

}  // namespace events
