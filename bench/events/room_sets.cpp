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

}  // namespace

std::span<const SetKind> roomKinds() {
  static const std::vector<SetKind> kinds = {{"hall", hall}, {"chain", chain}};
  return kinds;
}

}  // namespace events
