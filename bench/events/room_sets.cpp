#include <cmath>

#include "bench/events/shoots.h"

namespace events {
namespace {

// Ten clips, each of which overlaps the one before and the one after it by 5 to 15 s and no other.
void addChain(Set& set, const std::vector<Microphone>& mics, Random& random) {
  double start = 0, end = 0, free = 0;  // free: where the clip before the last one ends
  for (int clip = 0; clip < 10; ++clip) {
    const double length = uniform(random, 25, 60);
    addTake(set, 0, clip % int(mics.size()), start, length, mics[std::size_t(clip) % mics.size()]);
    free = end, end = start + length;
    start = std::max(free, end - uniform(random, 5, 15));
  }
}

constexpr double kChainSeconds = 10 * 60;

// A chain in a hall full of echoes, the devices far from the stage.
Set hall(Random& random) {
  Set set{"hall", {{static_cast<Kind>(random() % 3), kChainSeconds}}};
  const Room room{uniform(random, 1.5, 3.5), 0};
  std::vector<Microphone> mics(2 + random() % 3);
  for (Microphone& mic : mics) {
    mic = microphone(random, -3, 3);
    mic.room = {room.reverbSeconds, uniform(random, -15, -3)};
    mic.automaticGain = false;
  }
  addChain(set, mics, random);
  return set;
}

// A chain in an ordinary room.
Set chain(Random& random) {
  Set set{"chain", {{static_cast<Kind>(random() % 3), kChainSeconds}}};
  std::vector<Microphone> mics(2 + random() % 3);
  for (Microphone& mic : mics) mic = microphone(random, 0, 12);
  addChain(set, mics, random);
  return set;
}

// Three devices are carried through rooms from a closet to a cathedral; something else happens in
// each.
Set rooms(Random& random) {
  constexpr double kSeconds = 150;
  Set set{"rooms", {}};
  for (const double reverb : {0.15, 0.5, 1.5, 3.0, 6.0}) {
    const int event = int(set.events.size());
    set.events.push_back({static_cast<Kind>(random() % 3), kSeconds});
    for (int d = 0; d < 3; ++d) {
      Microphone mic = microphone(random, 5, 20);
      mic.room = {reverb * uniform(random, 0.8, 1.2), uniform(random, -2, 8) - 4 * reverb / 3};
      addClips(set, event, d, 20, 70, 20, mic, random);
    }
  }
  return set;
}

// Two devices side by side hear nearly the same; a third one stands far off.
Set beside(Random& random) {
  Set set{"beside", {{static_cast<Kind>(random() % 3), 420}}};
  const Microphone near = microphone(random, 12, 25);
  for (int d = 0; d < 3; ++d) {
    Microphone mic = d < 2 ? near : microphone(random, -2, 8);
    if (d == 1) mic.room.directDb += uniform(random, -1, 1);
    mic.driftPpm = uniform(random, -15, 15);
    addClips(set, 0, d, 20, 100, 25, mic, random);
  }
  return set;
}

// Clocks that are far apart, for the better part of an hour.
Set drift(Random& random) {
  Set set{"drift", {{Kind::both, 2400}}};
  for (int d = 0; d < 3; ++d) {
    Microphone mic = microphone(random, 5, 20);
    mic.driftPpm = d == 0 ? uniform(random, -50, -20) : uniform(random, -50, 50);
    if (d == 2) mic.driftPpm = std::abs(mic.driftPpm);
    if (d < 2) addTake(set, 0, d, uniform(random, 0, 300), uniform(random, 1500, 2100), mic);
    if (d == 2) addClips(set, 0, d, 60, 900, 120, mic, random);
  }
  return set;
}

}  // namespace

std::span<const SetKind> roomKinds() {
  static const std::vector<SetKind> kinds = {
      {"hall", hall}, {"chain", chain}, {"rooms", rooms}, {"beside", beside}, {"drift", drift}};
  return kinds;
}

}  // namespace events
