#include <cmath>

#include "bench/events/shoots.h"

namespace events {
namespace {

// Many clips of several devices over one long event.
Set many(const std::string& name, Random& random, double seconds, int devices) {
  Set set{name, {{Kind::both, seconds}}};
  for (int d = 0; d < devices; ++d)
    addClips(set, 0, d, 20, 90, 60, microphone(random, 5, 20), random);
  return set;
}

Set hundred(Random& random) { return many("hundred", random, 2200, 4); }
Set thousand(Random& random) { return many("thousand", random, 10000, 8); }

// Clips of 10 to 60 s by five devices that are switched on now and then.
Set sparse(const std::string& name, Random& random, int clips) {
  constexpr int kDevices = 5;
  constexpr double kClip = 35, kGap = 75;  // seconds, in the middle
  Set set{name, {{static_cast<Kind>(random() % 3), clips * (kClip + kGap) / kDevices}}};
  for (int d = 0; d < kDevices; ++d)
    addClips(set, 0, d, 10, 60, 2 * kGap, microphone(random, 0, 20), random);
  return set;
}

Set clips(Random& random) { return sparse("clips", random, int(60 + random() % 90)); }
Set manyClips(Random& random) { return sparse("manyclips", random, int(300 + random() % 700)); }

// A night at a club: exact loops, people calling over them now and then, devices that are switched
// on so seldom that some clips overlap nothing.
Set loops(Random& random) {
  Set set{"loops", {{Kind::music, uniform(random, 900, 2700)}}};
  set.events[0].electronic = true;
  set.events[0].voices = uniform(random, 0.2, 0.6);
  const double gap = uniform(random, 40, 150);
  for (int d = 0; d < 5; ++d) addClips(set, 0, d, 10, 60, gap, microphone(random, 5, 25), random);
  return set;
}

// One clip of a long recording. It starts at a sample of it, so that its place is known exactly.
void addCut(Set& set, int recording, int device, double start, double length) {
  const Take& whole = set.recordings[std::size_t(recording)];
  const double rate = kRate * (1 + whole.microphone.driftPpm * 1e-6);
  const auto first = std::int64_t((start - whole.startSeconds) * rate);
  addTake(set, whole.event, device, whole.startSeconds + double(first) / rate, length,
          whole.microphone);
  set.takes.back().cut = {recording, first};
}

// Three recordings of a whole event of half an hour to one and a half, one of them by a phone far
// off, each cut `cuts` times into clips of 18 to 32 s, of which some are thrown away. Every cut is
// a device of its own: nobody knows that the sounds are the same.
Set cut(const std::string& name, Random& random, int cuts) {
  Set set{name, {{Kind::both, uniform(random, 1800, 5400)}}};
  const double seconds = set.events[0].seconds;
  for (int d = 0; d < 3; ++d) {
    Microphone mic = microphone(random, d ? 10 : 20, d ? 20 : 28);
    mic.driftPpm = uniform(random, -30, 30);
    set.recordings.push_back({"", 0, d, 0, seconds, mic});
  }
  for (int c = 0; c < cuts; ++c)
    for (int d = 0; d < 3; ++d)
      for (double t = uniform(random, 0, 20); t + 32 < seconds;) {
        const double length = uniform(random, 18, 32);
        if (random() % 10 < 6) addCut(set, d, 3 * c + d, t, length);
        t += length;
      }
  return set;
}

Set cutOnce(Random& random) { return cut("cut", random, 1); }
Set cutOften(Random& random) { return cut("cutoften", random, int(2 + random() % 3)); }

}  // namespace

std::span<const SetKind> manyKinds() {
  static const std::vector<SetKind> kinds = {
      {"hundred", hundred},   {"clips", clips},       {"loops", loops},        {"cut", cutOnce},
      {"cutoften", cutOften}, {"thousand", thousand}, {"manyclips", manyClips}};
  return kinds;
}

}  // namespace events
