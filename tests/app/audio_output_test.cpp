#include "app/listen/audio_output.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <numbers>
#include <thread>

#include "app/listen/mix.h"

namespace {

constexpr int kPeriod = 100;  // frames; what is heard can be told by repeating after so many

}  // namespace

// Whoever records the device meanwhile (packaging/windows/try-sound) finds the tone.
TEST(AudioOutput, TheDeviceTakesSoundAndTellsHowMuchWasHeard) {
  std::atomic<std::int64_t> given = 0;
  const auto tone = [&given](std::span<float> stereo) {
    for (std::size_t i = 0; i < stereo.size(); ++i) {
      const double turn = double((given + std::int64_t(i / 2)) % kPeriod) / kPeriod;
      stereo[i] = static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * turn));
    }
    given += std::ssize(stereo) / 2;
  };
  const auto device = app::systemAudio();
  for (int round = 0; round < 2; ++round) {
    given = 0;
    if (!device->start(tone)) GTEST_SKIP() << "there is no device";
    std::int64_t before = 0;
    while (before < 2 * app::kHeardRate) {  // a device that stands still ends by the time limit
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      const std::int64_t heard = device->framesHeard();
      ASSERT_GE(heard, before) << "the position went back";
      ASSERT_LE(heard, given) << "more was heard than given";
      before = heard;
    }
    device->stop();
    EXPECT_EQ(device->framesHeard(), 0);
  }
}
