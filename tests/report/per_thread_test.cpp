#include "report/per_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

std::atomic<int> alive = 0, intact = 0;

/// Notes whether its memory was still its own when it went.
struct Room {
  Room() { ++alive; }
  ~Room() {
    --alive;
    intact += values == std::vector<int>(1000, 7);
  }
  std::vector<int> values = std::vector<int>(1000, 7);
};

TEST(PerThread, EachThreadKeepsItsOwnUntilItEnds) {
  static const report::PerThread<Room> rooms;
  constexpr int kThreads = 200;
  for (int i = 0; i < kThreads; ++i) {
    std::jthread([] {
      const Room* first = &*rooms;
      EXPECT_EQ(&*rooms, first);
      EXPECT_EQ(alive, 1);
    });
  }
  EXPECT_EQ(alive, 0);
  EXPECT_EQ(intact, kThreads);
}

}  // namespace
