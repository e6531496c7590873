#include "run/clock_command.h"

#include <algorithm>
#include <cmath>

namespace run {
namespace {

constexpr std::int64_t kLargest = 1'000'000;  // the resampler multiplies it by its 1024 phases

std::string fileArgument(const std::string& path) {
  return std::string(path.starts_with('/') ? "" : "./") + path;
}

std::string filters(const NewSound& sound) {
  std::string text;
  if (sound.skip > 0)
    text += "atrim=start_sample=" + std::to_string(sound.skip) + ",asetpts=PTS-STARTPTS,";
  text += stretchFilters(1 / sound.playRate, sound.rate);
  if (sound.delay > 0) text += "adelay=delays=" + std::to_string(sound.delay) + "S:all=1,";
  return text + "apad,atrim=end_sample=" + std::to_string(sound.length);
}

}  // namespace

Ratio nearestRatio(double value) {
  // Continued fraction: each step is the best ratio of its size.
  std::int64_t over = 1, under = 0, lastOver = 0, lastUnder = 1;
  double rest = value;
  for (int step = 0; step < 64; ++step) {
    const double whole = std::floor(rest);
    const auto digit = static_cast<std::int64_t>(whole);
    const std::int64_t nextOver = digit * over + lastOver, nextUnder = digit * under + lastUnder;
    if (whole > double(kLargest) || nextOver > kLargest || nextUnder > kLargest) break;
    lastOver = over;
    lastUnder = under;
    over = nextOver;
    under = nextUnder;
    if (rest - whole < 1e-12) break;
    rest = 1 / (rest - whole);
  }
  return {over, under};
}

// The source is said to run at one rate and resampled to another, which stretches it; then it is
// said to run at its own again.
std::string stretchFilters(double longer, int rate) {
  auto [over, under] = nearestRatio(longer);
  if (over == under) return {};
  while (std::max(over, under) * 10 <= kLargest) {  // 147 samples a second are no sound
    over *= 10;
    under *= 10;
  }
  return "asetrate=" + std::to_string(under) + ",aresample=" + std::to_string(over) +
         ":filter_size=64:phase_shift=10:linear_interp=1:cutoff=0.98:internal_sample_fmt=dblp"
         ",asetrate=" +
         std::to_string(rate) + ",";
}

std::string soundCodec(int bits) {
  if (bits > 24) return "pcm_s32le";
  return bits > 16 || bits <= 0 ? "pcm_s24le" : "pcm_s16le";  // a codec without bits loses nothing
}

Command ffmpegCommand(const std::string& programFolder, const std::vector<ProgramWord>& words) {
  Command command{"\"" + programFolder + "ffmpeg.exe\"", {"ffmpeg"}};
  for (const auto& [text, isPath] : words) {
    command.windowsLine += " \"" + text + "\"";
    command.arguments.push_back(isPath ? fileArgument(text) : text);
  }
  return command;
}

Command newSoundCommand(const std::string& programFolder, const NewSound& sound) {
  std::vector<ProgramWord> words{{"-v"},
                                 {"error"},
                                 {"-i"},
                                 {sound.source, true},
                                 {"-map"},
                                 {"0:a:" + std::to_string(sound.stream)},
                                 {"-vn"},
                                 {"-af"},
                                 {filters(sound)},
                                 {"-c:a"},
                                 {soundCodec(sound.bits)},
                                 {"-ar"},
                                 {std::to_string(sound.rate)},
                                 {"-rf64"},
                                 {"auto"},
                                 {"-map_metadata"},
                                 {"0"}};
  if (sound.keepTimecode) words.insert(words.end(), {{"-write_bext"}, {"1"}});
  words.insert(words.end(), {{"-f"}, {"wav"}, {"-y"}, {sound.target, true}});
  return ffmpegCommand(programFolder, words);
}

}  // namespace run
