#include "analysis/fingerprint.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <map>
#include <mutex>
#include <vector>

#include "tests/analysis/sounds.h"
#include "tests/fresh_path.h"

namespace {

using analysis::MatrixXLI;

constexpr float kDecay = 0.99f;

class Lines final : public report::Console {
 public:
  void line(std::string_view text) override {
    const std::scoped_lock lock(mutex_);
    lines.emplace_back(text);
  }
  std::vector<std::string> lines;

 private:
  std::mutex mutex_;
};

// A folder of its own for the WAV files of one test; the name shows that any Unicode works.
class Fingerprint : public testing::Test {
 protected:
  void SetUp() override { std::filesystem::create_directories(folder_); }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::string store(const std::string& name, const sounds::Samples& samples) {
    const std::string path = sounds::utf8(folder_ / name);
    sounds::writeWav(path, samples);
    return path;
  }

  MatrixXLI extract(const std::string& path, float* duration, int shift = 0) {
    MatrixXLI out;
    analysis::extract_peaks(out, path, 7, duration, kDecay, 31, 63, shift, console_);
    return out;
  }

  std::filesystem::path folder_ = freshPath("kestrel fingerprint ж & %");
  Lines console_;
};

const MatrixXLI kZeroRow = MatrixXLI::Zero(1, 2);

TEST_F(Fingerprint, FilesWithoutLandmarksGiveOneZeroRow) {
  float duration = -1;
  EXPECT_EQ(extract(sounds::utf8(folder_ / "missing.wav"), &duration), kZeroRow);
  EXPECT_EQ(duration, -1) << "a missing file leaves the duration alone";
  EXPECT_EQ(console_.lines,
            (std::vector<std::string>{"sf info FRAMES:0", "prazen spektrogram", "posle specgram"}));
  for (const std::size_t length : {0, 100, 383, 384, 7999}) {
    EXPECT_EQ(extract(store("silent.wav", sounds::silence(length)), &duration), kZeroRow);
    EXPECT_EQ(duration, 0);
  }
}

TEST_F(Fingerprint, LogLinesTellShapeDurationAndDecay) {
  float duration = 0;
  const std::string path = store("music.wav", sounds::music(103'000, 1));  // 12.875 s
  extract(path, &duration, 64);
  EXPECT_EQ(duration, 12);
  EXPECT_EQ(
      console_.lines,
      (std::vector<std::string>{
          "sf info FRAMES:103000", "specgram 832", "specgram 837", "specgram 892", "posle specgram",
          "filename:" + path +
              "b=0.000171429  duration:12  A_DEC=:0.99 ----specrgram:192  -- 538"}));
}

TEST_F(Fingerprint, AllFilesAreStackedSortedAndReported) {
  const auto sound = sounds::music(200'000, 2);
  const std::vector<std::string> names = {"test-first-element", store("a.wav", sound),
                                          store("silent.wav", sounds::silence(40'000))};
  std::vector<MatrixXLI> all(names.size());
  Eigen::VectorXf traenje = Eigen::VectorXf::Zero(3);
  std::atomic<std::uint32_t> progress = 0;
  std::mutex mutex;
  std::multiset<std::string> log;
  std::map<int, int> done;
  std::vector<int> bar;
  const analysis::FingerprintListener listener{.console = console_,
                                               .appendLogLine =
                                                   [&](std::string_view line) {
                                                     const std::scoped_lock lock(mutex);
                                                     log.emplace(line);
                                                   },
                                               .moveprogress =
                                                   [&](int pixels) {
                                                     const std::scoped_lock lock(mutex);
                                                     bar.push_back(pixels);
                                                   },
                                               .fileDone =
                                                   [&](int file) {
                                                     const std::scoped_lock lock(mutex);
                                                     ++done[file];
                                                   },
                                               .cancelled = {}};
  analysis::fingerprint_all(names, all, traenje, kDecay, progress, 217.0f, listener);

  EXPECT_EQ(traenje, Eigen::Vector3f(0, 25, 5));
  EXPECT_EQ(all[0], MatrixXLI::Zero(8, 2));
  EXPECT_EQ(all[2], MatrixXLI::Zero(8, 2));
  EXPECT_EQ(log.count("687"), 3u);
  EXPECT_EQ(log.count("vkupniot broj na maksovi:16"), 2u);
  EXPECT_EQ(done, (std::map<int, int>{{0, 1}, {1, 1}, {2, 1}}));
  EXPECT_TRUE(bar.empty() || bar.back() < 652);

  // The file's landmarks are those of the three delays, whatever their order among equal hashes.
  using Row = std::pair<std::uint64_t, std::uint64_t>;
  std::multiset<Row> expected, found;
  float duration = 0;
  for (const int shift : {0, 32, 64}) {
    const MatrixXLI part = extract(names[1], &duration, shift);
    for (const auto& row : part.rowwise()) expected.emplace(row[1], row[0]);
  }
  ASSERT_GT(expected.size(), 1000u);
  for (int i = 0; i < 5; ++i) expected.emplace(0, 0);
  for (const auto& row : all[1].rowwise()) found.emplace(row[1], row[0]);
  EXPECT_EQ(found, expected);
  EXPECT_TRUE(std::is_sorted(all[1].col(1).begin(), all[1].col(1).end()));
  EXPECT_EQ(all[1].topRows(5), MatrixXLI::Zero(5, 2));
}

TEST_F(Fingerprint, CancelledRunTouchesNothing) {
  const std::vector<std::string> names = {store("a.wav", sounds::music(100'000, 2))};
  std::vector<MatrixXLI> all(1);
  Eigen::VectorXf traenje = Eigen::VectorXf::Zero(1);
  std::atomic<std::uint32_t> progress = 3;
  analysis::fingerprint_all(names, all, traenje, kDecay, progress, 10,
                            {console_, {}, {}, {}, [] { return true; }});
  EXPECT_EQ(all[0].size(), 0);
  EXPECT_TRUE(console_.lines.empty());
  EXPECT_EQ(progress, 3u);
}

TEST(FingerprintOfSamples, DelayedRecordingSharesMostLandmarks) {
  const auto sound = sounds::music(40 * 8000, 3);
  const std::size_t delay = 50 * 192 + 70;  // not a whole number of frames
  sounds::Samples later(sound.begin() + delay, sound.end());
  const MatrixXLI a = analysis::fingerprint(sound, kDecay);
  const MatrixXLI b =
      analysis::fingerprint(sounds::heardWithNoise(std::move(later), 0.2f, 0.005f, 4), kDecay);
  std::multimap<std::uint64_t, std::uint64_t> frames;
  for (const auto& row : a.rowwise()) frames.emplace(row[1], row[0]);
  std::map<std::int64_t, int> votes;
  for (const auto& row : b.rowwise()) {
    if (row[1] == 0) continue;
    const auto [begin, end] = frames.equal_range(row[1]);
    for (auto i = begin; i != end; ++i) ++votes[static_cast<std::int64_t>(i->second - row[0])];
  }
  const auto best = std::max_element(votes.begin(), votes.end(),
                                     [](auto& x, auto& y) { return x.second < y.second; });
  ASSERT_NE(best, votes.end());
  EXPECT_NEAR(static_cast<double>(best->first), 50, 1);
  EXPECT_GT(best->second, b.rows() / 20);
}

TEST(FingerprintOfSamples, NoSampleValueCrashesIt) {
  const float strange[] = {
      std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
      -std::numeric_limits<float>::infinity(), std::numeric_limits<float>::max(),
      std::numeric_limits<float>::denorm_min()};
  for (const float value : strange) {
    auto samples = sounds::silence(20'000);
    samples[7'000] = value;
    EXPECT_GE(analysis::fingerprint(samples, kDecay).rows(), 8);
    EXPECT_GE(analysis::fingerprint(sounds::Samples(20'000, value), kDecay).rows(), 8);
  }
}

}  // namespace
