#include "bench/events/shoots.h"

#include <algorithm>

namespace events {

Microphone microphone(Random& random, double worstSnr, double bestSnr) {
  Microphone mic;
  mic.snrDb = uniform(random, worstSnr, bestSnr);
  mic.room = {uniform(random, 0.15, 0.9), uniform(random, -2, 10)};
  mic.place = random();
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

void addClips(Set& set, int event, int device, double shortest, double longest, double gap,
              const Microphone& mic, Random& random) {
  const double end = set.events[static_cast<std::size_t>(event)].seconds;
  for (double t = uniform(random, 0, gap); t < end;) {
    const double length = uniform(random, shortest, longest);
    addTake(set, event, device, t, length, mic);
    t += length + uniform(random, 0.5, gap);
  }
}

std::vector<Span> stretches(Random& random, double seconds, double longest, double longestBetween) {
  std::vector<Span> spans;
  for (double at = uniform(random, 0, longestBetween); at < seconds;) {
    spans.push_back({at, std::min(seconds, at + uniform(random, longest / 5, longest))});
    at = spans.back().to + uniform(random, longestBetween / 5, longestBetween);
  }
  return spans;
}

}  // namespace events
