#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <numeric>
#include <stdexcept>

#include "event.h"
#include "run/batches.h"
#include "run/convert.h"
#include "run/entries.h"
#include "run/two_steps.h"
#include "tests/awkward_names.h"

namespace {

using Strings = std::vector<std::string>;
using Batches = std::vector<std::vector<int>>;

run::MediaProperties recording(double seconds, int tracks = 1) {
  run::MediaProperties media;
  media.opened = true;
  media.facts.lengthSeconds = seconds;
  media.facts.sounds.resize(static_cast<std::size_t>(tracks));
  return media;
}

TEST(Batches, ShortFilesShareAProcessAndTheLongestIsBegunFirst) {
  struct Case {
    const char* what;
    std::vector<run::MediaProperties> media;
    int threads;
    Batches expected;
  };
  const auto clip = recording(10), hour = recording(3600), twoTracks = recording(10, 2);
  const run::MediaProperties unknown;
  const Case cases[] = {
      {"nothing", {}, 2, {}},
      {"both threads have something to do", {clip, clip, clip, clip}, 2, {{0, 1}, {2, 3}}},
      {"eight at most", std::vector(9, clip), 1, {{0, 1, 2, 3, 4, 5, 6, 7}, {8}}},
      {"long ones are alone", {clip, hour, clip}, 1, {{1}, {0, 2}}},
      {"which track is heard is ffmpeg's choice", {twoTracks, clip, clip}, 1, {{1, 2}, {0}}},
      {"nothing known", {unknown, unknown}, 1, {{0}, {1}}}};
  for (const auto& [what, media, threads, expected] : cases)
    EXPECT_EQ(run::batchesOf(media, threads), expected) << what;
}

TEST(TwoSteps, EverySecondStepFollowsItsFirstAndNoFirstWaitsForASecond) {
  constexpr int kCount = 50;
  std::mutex mutex;
  std::vector<int> firsts, seconds;
  const auto first = [&](int i) {
    const std::lock_guard lock(mutex);
    firsts.push_back(i);
  };
  const auto second = [&](int i) {
    const std::lock_guard lock(mutex);
    EXPECT_TRUE(std::ranges::find(firsts, i) != firsts.end()) << i;
    seconds.push_back(i);
  };
  run::inTwoSteps(kCount, first, second);
  std::vector<int> all(kCount);
  std::iota(all.begin(), all.end(), 0);
  std::ranges::sort(firsts);
  std::ranges::sort(seconds);
  EXPECT_EQ(firsts, all);
  EXPECT_EQ(seconds, all);
}

TEST(TwoSteps, TheFirstExceptionIsHandedOn) {
  const auto fails = [](int i) {
    if (i == 3) throw std::runtime_error("no memory");
  };
  const auto nothing = [](int) {};
  EXPECT_THROW(run::inTwoSteps(8, fails, nothing), std::runtime_error);
  EXPECT_THROW(run::inTwoSteps(8, nothing, fails), std::runtime_error);
}

#ifndef _WIN32  // where a stand-in takes ffmpeg's place that knows no batches

/// The system's processes, with a note of what was run.
class NotedProcesses final : public run::ProcessRunner {
 public:
  run::ProcessResult run(const run::Command& command, const std::atomic<bool>& cancelled) override {
    {
      const std::lock_guard lock(mutex_);
      inputs.push_back(std::ranges::count(command.arguments, "-i"));
    }
    return system_.run(command, cancelled);
  }
  std::vector<std::ptrdiff_t> inputs;  // of each process

 private:
  run::SystemProcesses system_;
  std::mutex mutex_;
};

TEST(Conversion, FilesOfABatchAreConvertedAsIfAlone) {
  Event alone, together;
  const auto sound = liveSound(8, 3);
  const std::string clip = readWhole(report::fromUtf8(alone.clip("first.mp4", sound)));
  std::vector<std::string> contents[2];
  for (Event* event : {&alone, &together}) {
    NotedProcesses processes;
    const run::Services services{processes,      *event->probe,   event->clock,    event->desktop,
                                 event->console, event->progress, event->cancelled};
    Strings list;
    for (int i = 0; i < 5; ++i)
      list.push_back(event->sound(kAwkwardName + std::to_string(i) + ".wav", cut(sound, i, i + 3)));
    list.push_back(event->write("clip.mp4", clip));
    list.push_back(event->write("broken.mp4", std::string(5000, 'x')));
    const Strings files = run::convertedNames(list);
    std::vector<run::MediaProperties> media(list.size(), recording(3));
    if (event == &alone) media.clear();
    run::TemporaryFolder spare;
    run::SoundPlaces places(list, spare);
    (void)run::convertAll(list, places, services, media);
    for (const std::string& file : files)
      contents[event == &together].push_back(readWhole(report::fromUtf8(file)));
    EXPECT_EQ(std::ranges::max(processes.inputs) > 1, event == &together);
  }
  EXPECT_EQ(contents[0], contents[1]);
  EXPECT_GT(contents[1].front().size(), 40'000u);
  EXPECT_TRUE(contents[1].back().empty()) << "a broken file makes no sound, and spoils no other";
}

#endif

}  // namespace
