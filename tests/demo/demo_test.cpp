#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/demo/render.h"
#include "cli/demo/truth.h"
#include "report/files.h"
#include "tests/fresh_path.h"

namespace {

namespace fs = std::filesystem;
using namespace cli::demo;

Sound noise(double seconds) {
  Random random(3);
  Sound sound(samplesIn(seconds));
  for (float& value : sound) value = static_cast<float>(draw(random, -0.5, 0.5));
  return sound;
}

/// The sound of `file` as a run reads it, but at its own rate.
Sound decoded(const fs::path& file) {
  const fs::path wav = fs::path(file) += ".wav";
  run::SystemProcesses processes;
  const run::Command command{{},
                             {"ffmpeg", "-v", "error", "-nostdin", "-y", "-i", report::toUtf8(file),
                              "-vn", "-acodec", "pcm_s16le", report::toUtf8(wav)}};
  EXPECT_EQ(processes.run(command, false).exitCode, 0);
  SF_INFO info{};
  SNDFILE* in = sf_open(report::toUtf8(wav).c_str(), SFM_READ, &info);
  Sound sound(static_cast<std::size_t>(info.frames));
  sf_readf_float(in, sound.data(), info.frames);
  sf_close(in);
  return sound;
}

double likenessAt(const Sound& a, const Sound& b, std::ptrdiff_t delay) {
  double sum = 0;
  for (std::ptrdiff_t i = 4800; i < 24000; ++i)
    sum += a[static_cast<std::size_t>(i)] * b[static_cast<std::size_t>(i + delay)];
  return sum;
}

TEST(DemoMedia, SoundComesBackFromACameraFileWithoutDelay) {
  const fs::path folder = freshPath("kestrel demo test");
  fs::create_directories(folder);
  run::SystemProcesses processes;
  const Sound sound = noise(1);
  for (const char* name : {"a.mp4", "a.mov"}) {
    const fs::path file = folder / name;
    ASSERT_EQ(writeMedia(sound, "testsrc2=size=320x180:rate=25", file, processes).error, "");
    const Sound heard = decoded(file);
    ASSERT_GE(heard.size(), sound.size());
    std::ptrdiff_t best = 0;
    for (std::ptrdiff_t delay = -2400; delay <= 2400; ++delay)
      if (likenessAt(sound, heard, delay) > likenessAt(sound, heard, best)) best = delay;
    EXPECT_EQ(best, 0) << name << ", in samples";
  }
  fs::remove_all(folder);
}

TEST(DemoRecording, TakesStandWhereTheTruthSays) {
  const Device fast{1, 0, 0, 0, 1000, ""};  // 1000 ppm: one sample in a thousand more
  const Sound performed = noise(4);
  const Sound sound = recorded(performed, fast, {"x", 0, 0.5, 3}, 1);
  for (const std::size_t i : {0u, 48048u, 96096u})
    EXPECT_NEAR(sound[i], std::tanh(performed[24000 + i / 1001 * 1000]), 1e-3) << i;
}

TEST(DemoTruth, ComparisonFindsShiftsAndMissingRecordings) {
  const Scene scene{.seconds = 100,
                    .devices = {{1, 0, 0, 0, 0, ""}, {1, 0, 0, 0, 20, ""}},
                    .takes = {{"r.wav", 0, 2, 90}, {"c/a.mp4", 1, 12, 50}, {"b.mp4", 1, 70, 9}}};
  const auto truth = nlohmann::json::parse(truthJson(scene));
  EXPECT_NEAR(truth["recordings"][1]["start_seconds"].get<double>(), 10 - 0.0005, 1e-9);
  const Comparison c = compare(truthJson(scene), R"({"groups": [{"members": [
      {"path": "/d/r.wav", "offset_seconds": 0}, {"path": "/d/c/a.mp4", "offset_seconds": 10.02}
      ]}]})");
  EXPECT_EQ(std::pair(c.placed, c.all), std::pair(2, 3));
  EXPECT_NEAR(c.largestErrorSeconds, 0.0205, 1e-9);
  EXPECT_NE(c.text.find("not placed"), std::string::npos);
}

}  // namespace
