#include "bench/events/codec.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "bench/events/performance.h"

namespace events {
namespace {

namespace fs = std::filesystem;

/// A folder of its own for every call, gone at its end.
class Scratch {
 public:
  Scratch() {
    std::string name = (fs::temp_directory_path() / "codec-XXXXXX").string();
    path_ = mkdtemp(name.data()) ? name : throw std::runtime_error("no temporary folder");
  }
  ~Scratch() { fs::remove_all(path_); }
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  fs::path path_;
};

void ffmpeg(const std::string& arguments) {
  const std::string command = "ffmpeg -nostdin -v error -y " + arguments;
  if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

void write(const std::string& path, const std::vector<float>& samples) {
  std::vector<std::int16_t> raw(samples.size());
  std::ranges::transform(samples, raw.begin(), [](float s) {
    return static_cast<std::int16_t>(std::lround(std::clamp(s, -1.0f, 1.0f) * 32767));
  });
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(raw.data()),
             static_cast<std::streamsize>(raw.size() * 2));
}

}  // namespace

std::vector<float> throughCodec(const std::vector<float>& samples, const std::string& codec,
                                int kilobits) {
  const Scratch scratch;
  const std::string raw = " -f s16le -ar " + std::to_string(kRate) + " -ac 1 ";
  // Only the encoder's own kind of file says how much of its delay to cut off again.
  const std::string coded = scratch.file(codec == "aac"          ? "a.m4a"
                                         : codec == "libmp3lame" ? "a.mp3"
                                                                 : "a.ogg");
  write(scratch.file("plain.raw"), samples);
  ffmpeg(raw + "-i " + scratch.file("plain.raw") + " -ar 48000 -c:a " + codec + " -b:a " +
         std::to_string(kilobits) + "k " + coded);
  ffmpeg("-i " + coded + raw + scratch.file("back.raw"));
  const std::vector<std::int16_t> raw16 = readRaw(scratch.file("back.raw"));
  std::vector<float> back(samples.size(), 0.0f);
  std::transform(raw16.begin(), raw16.begin() + std::min(std::ssize(raw16), std::ssize(back)),
                 back.begin(), [](std::int16_t s) { return s / 32768.0f; });
  return back;
}

}  // namespace events
