#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "run/clock_command.h"
#include "run/media_probe.h"
#include "tests/run/media.h"

namespace {

constexpr int kRate = 8000;

std::vector<std::int16_t> readSamples(const std::string& path) {
  const std::string text = readWhole(report::fromUtf8(path));
  const std::size_t data = text.find("data") + 8;
  std::vector<std::int16_t> samples((text.size() - data) / 2);
  std::memcpy(samples.data(), text.data() + data, samples.size() * 2);
  return samples;
}

/// The moment of the loudest sample within half a second of `seconds`.
double clickNear(const std::vector<std::int16_t>& samples, double seconds) {
  const auto first = std::max<std::int64_t>(0, std::int64_t((seconds - 0.5) * kRate));
  const auto last = std::min<std::int64_t>(std::ssize(samples), first + kRate);
  std::int64_t best = first;
  for (std::int64_t i = first; i < last; ++i)
    if (std::abs(samples[i]) > std::abs(samples[best])) best = i;
  return double(best) / kRate;
}

TEST(NewSound, IsStretchedToTheSampleAndKeepsItsTimecode) {
  const Folder folder;
  std::vector<std::int16_t> clicks(600 * kRate, 0);
  for (const int at : {1, 300, 598}) clicks[at * kRate] = 30000;
  const std::string plain = folder.write("plain.wav", wavText(clicks, kRate));
  const std::string source = folder.file("take 1.wav");
  ASSERT_TRUE(ffmpeg({"-i", plain, "-c:a", "pcm_s16le", "-metadata", "time_reference=288000123",
                      "-write_bext", "1", source}));
  for (const double ppm : {50.0, -123.4}) {
    run::NewSound sound{.source = source,
                        .target = folder.file("new.wav"),
                        .rate = kRate,
                        .bits = 16,
                        .playRate = 1 + ppm * 1e-6,
                        .keepTimecode = true};
    sound.length = std::llround(600 / sound.playRate * kRate);
    const std::atomic<bool> never = false;
    const auto result = run::SystemProcesses().run(run::newSoundCommand("", sound), never);
    ASSERT_TRUE(result.ok()) << result.messages;
    const auto samples = readSamples(sound.target);
    EXPECT_GE(std::ssize(samples), sound.length);
    for (const int at : {1, 300, 598})
      EXPECT_NEAR(clickNear(samples, at), at / sound.playRate, 1.0 / kRate) << ppm;
    const project::MediaFacts facts = run::MediaInfoProbe().query(sound.target).facts;
    ASSERT_TRUE(facts.timecode);
    EXPECT_EQ(facts.timecode->units, 288000123);
    EXPECT_NEAR(facts.sounds[0].lengthSeconds, double(sound.length) / kRate, 1e-6);
  }
}

TEST(NewSound, APieceStandsExactlyInPlace) {
  const Folder folder;
  std::vector<std::int16_t> clicks(20 * kRate, 0);
  clicks[10 * kRate] = 30000;
  run::NewSound sound{.source = folder.write("s.wav", wavText(clicks, kRate)),
                      .target = folder.file("new.wav"),
                      .rate = kRate,
                      .bits = 16,
                      .skip = 5 * kRate + 3,
                      .delay = 0,
                      .length = 30 * kRate};
  const std::atomic<bool> never = false;
  ASSERT_TRUE(run::SystemProcesses().run(run::newSoundCommand("", sound), never).ok());
  EXPECT_EQ(readSamples(sound.target)[5 * kRate - 3], 30000);
  sound.skip = 0;
  sound.delay = 777;
  ASSERT_TRUE(run::SystemProcesses().run(run::newSoundCommand("", sound), never).ok());
  EXPECT_EQ(readSamples(sound.target)[10 * kRate + 777], 30000);
}

TEST(NewSound, RatiosAreNearToAHundredthOfAMillionth) {
  for (const double value : {1.0, 1.00005, 0.9999, 1.0000123456, 1.3, 1 / 1.00005}) {
    const auto [over, under] = run::nearestRatio(value);
    EXPECT_LE(std::max(over, under), 1'000'000);
    EXPECT_NEAR(double(over) / double(under), value, 1e-8);
  }
}

}  // namespace
