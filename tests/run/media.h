#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "report/console.h"
#include "report/files.h"
#include "run/process.h"
#include "run/sync_run.h"
#include "tests/fresh_path.h"
#ifdef _WIN32
#include "tests/windows/unix_program.h"
#endif

/// A folder for one test, removed at its end.
class Folder {
 public:
  Folder() {
    static std::atomic<int> number = 0;
    path_ = freshPath("kestrel-test-" + std::to_string(number++));
    std::filesystem::create_directories(path_);
  }
  ~Folder() {
    std::error_code left;  // on Windows a folder that a program shows cannot be removed
    std::filesystem::remove_all(path_, left);
  }
  std::filesystem::path path() const { return path_; }
  std::string file(const std::string& name) const {
    return report::toUtf8(path_ / report::fromUtf8(name));
  }
  std::string write(const std::string& name, const std::string& content) const {
    std::ofstream(report::fromUtf8(file(name)), std::ios::binary) << content;
    return file(name);
  }

 private:
  std::filesystem::path path_;
};

inline std::string readWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A WAV file with one 16-bit channel.
inline std::string wavText(const std::vector<std::int16_t>& samples, std::uint32_t rate = 8000) {
  std::string text;
  const auto number = [&](std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i));
  };
  const auto bytes = static_cast<std::uint32_t>(samples.size() * 2);
  text += "RIFF";
  number(36 + bytes, 4);
  text += "WAVEfmt ";
  for (const auto& [value, size] :
       {std::pair{16u, 4}, {1u, 2}, {1u, 2}, {rate, 4}, {rate * 2, 4}, {2u, 2}, {16u, 2}})
    number(value, size);
  text += "data";
  number(bytes, 4);
  for (const std::int16_t sample : samples) number(static_cast<std::uint16_t>(sample), 2);
  return text;
}

/// Sound that is like nothing else: noise whose loudness and colour change all the time.
inline std::vector<std::int16_t> liveSound(double seconds, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> chance(-1, 1);
  std::vector<std::int16_t> samples(static_cast<std::size_t>(seconds * 8000));
  double level = 1, colour = 0.5, last = 0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    if (i % 1200 == 0) level = chance(random) * chance(random);
    if (i % 1700 == 0) colour = chance(random) * 0.95;
    last = colour * last + level * chance(random);
    samples[i] = static_cast<std::int16_t>(std::max(-1.0, std::min(1.0, last * 0.4)) * 30000);
  }
  return samples;
}

inline std::vector<std::int16_t> cut(const std::vector<std::int16_t>& sound, double from,
                                     double to) {
  return {sound.begin() + std::ptrdiff_t(from * 8000), sound.begin() + std::ptrdiff_t(to * 8000)};
}

/// Runs ffmpeg (quietly) with `arguments`.
inline bool ffmpeg(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"ffmpeg", "-nostdin", "-v", "error", "-y"});
#ifdef _WIN32
  return runUnixProgram(arguments);
#endif
  const std::atomic<bool> never = false;
  const run::ProcessResult result = run::SystemProcesses().run({{}, arguments}, never);
  return result.started.ok() && result.exitCode == 0;
}

/// Keeps what it is told.
class Listener final : public run::Progress {
 public:
  void moveprogressslot(int pixels) override {
    if (pixels < 0 || pixels > 651) outOfRange = true;
    last = pixels;
    ++moves;
  }
  void moveprogressignal(int) override { ++signals; }
  void stage(run::Stage stage, std::string_view, int, int) override {
    ++items;
    if (atStage) atStage(stage);
  }

  std::function<void(run::Stage)> atStage;  // mostly empty
  std::atomic<bool> outOfRange = false;
  std::atomic<int> last = -1, moves = 0, signals = 0, items = 0;
};
