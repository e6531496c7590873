#include "cli/demo/render.h"

#include <sndfile.h>

#include <memory>

#include "report/files.h"
#include "report/parallel.h"
#include "report/text.h"

namespace cli::demo {
namespace {

namespace fs = std::filesystem;
constexpr unsigned kSeed = 20;

report::Status writeWav(const Sound& sound, const fs::path& file) {
  SF_INFO info{};
  info.samplerate = kRate;
  info.channels = 1;
  info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
  const std::string name = report::toUtf8(file);
  const std::unique_ptr<SNDFILE, decltype(&sf_close)> wav(sf_open(name.c_str(), SFM_WRITE, &info),
                                                          sf_close);
  const auto count = static_cast<sf_count_t>(sound.size());
  if (wav) sf_command(wav.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
  if (!wav || sf_write_float(wav.get(), sound.data(), count) != count)
    return {"cannot write " + name + ": " + sf_strerror(wav.get())};
  return {};
}

/// Muxes the sound in `wav` with a test picture of the same length.
run::Command cameraCommand(const fs::path& wav, const std::string& picture, double seconds,
                           const fs::path& file) {
  return {{},
          {"ffmpeg",
           "-v",
           "error",
           "-nostdin",
           "-y",
           "-i",
           report::toUtf8(wav),
           "-f",
           "lavfi",
           "-i",
           picture,
           "-t",
           report::decimalText(seconds, 3),
           "-map",
           "1:v",
           "-map",
           "0:a",
           "-c:v",
           "libx264",
           "-preset",
           "ultrafast",
           "-crf",
           "30",
           "-pix_fmt",
           "yuv420p",
           "-c:a",
           "aac",
           "-b:a",
           "128k",
           report::toUtf8(file)}};
}

}  // namespace

report::Status writeMedia(const Sound& sound, const std::string& picture, const fs::path& file,
                          run::ProcessRunner& processes) {
  if (picture.empty()) return writeWav(sound, file);
  const fs::path wav = fs::path(file) += ".sound.wav";
  if (const report::Status written = writeWav(sound, wav); !written.ok()) return written;
  const double seconds = static_cast<double>(sound.size()) / kRate;
  const run::ProcessResult result =
      processes.run(cameraCommand(wav, picture, seconds, file), std::atomic<bool>(false));
  std::error_code ignored;  // a leftover in the demo's own folder harms nothing
  fs::remove(wav, ignored);
  if (!result.started.ok()) return result.started;
  if (result.exitCode != 0)
    return {"ffmpeg cannot write " + report::toUtf8(file) + ": " + result.messages};
  return {};
}

namespace {

report::Status renderTake(const Scene& scene, std::size_t index, const Sound& performed,
                          const fs::path& folder, run::ProcessRunner& processes) {
  const Take& take = scene.takes[index];
  const Device& device = scene.devices[static_cast<std::size_t>(take.device)];
  const fs::path file = folder / take.file;
  std::error_code ignored;  // writing into a folder that is not there tells the same
  fs::create_directories(file.parent_path(), ignored);
  const Sound sound = recorded(performed, device, take, kSeed + static_cast<unsigned>(index));
  return writeMedia(sound, device.picture, file, processes);
}

}  // namespace

report::Status renderScene(const Scene& scene, const fs::path& folder,
                           run::ProcessRunner& processes) {
  const Sound performed = performance(scene.seconds, kSeed);
  std::vector<report::Status> results(scene.takes.size());
  report::FirstException failed;
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < scene.takes.size(); ++i) {
    failed.keep([&] { results[i] = renderTake(scene, i, performed, folder, processes); });
  }
  failed.rethrow();
  for (const report::Status& result : results)
    if (!result.ok()) return result;
  return {};
}

}  // namespace cli::demo
