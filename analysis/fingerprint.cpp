#include "analysis/fingerprint.h"

#include <array>
#include <exception>
#include <locale>
#include <sstream>
#include <vector>

#include "analysis/landmarks.h"
#include "analysis/peaks.h"
#include "analysis/sound.h"
#include "analysis/spectrogram.h"

namespace analysis {
namespace {

constexpr std::array kShifts = {0, 32, 64};  // samples; sixths of a frame's hop
constexpr int kZeroRows = 5;                 // before the landmarks of a file
constexpr int kBarWidth = 652;               // pixels

struct Settings {
  float decay;
  TargetZone zone;
};

// Parts of a log line one after the other, numbers as streams write them.
template <typename... Parts>
std::string text(const Parts&... parts) {
  std::ostringstream line;
  line.imbue(std::locale::classic());
  (line << ... << parts);
  return line.str();
}

// About 50 peaks a second; a sound of less than a second has room for 5 seconds' worth.
std::int64_t peakCapacity(float seconds) {
  return static_cast<std::int64_t>((seconds == 0 ? 5.0f : seconds) * 50);
}

// A single landmark is as good as none.
std::vector<Landmark> landmarksOf(const Spectrogram& s, float seconds, const Settings& settings) {
  const std::vector<Peak> forward = forwardPeaks(s, settings.decay, peakCapacity(seconds));
  const std::vector<Peak> kept = backwardPeaks(s, forward, settings.decay);
  std::vector<Landmark> landmarks = pairPeaks(kept, settings.zone);
  if (landmarks.size() < 2) landmarks.clear();
  return landmarks;
}

// The same for a file, with its log lines.
std::vector<Landmark> landmarksOf(const Sound& sound, const std::string& path,
                                  const Settings& settings, int shift, float& duration,
                                  report::Console& console) {
  Spectrogram s;
  int frames = 0;
  specgram(s, sound, &frames, &duration, shift, console);
  console.line("posle specgram");  // after specgram
  if (s.rows() < 2) return {};
  console.line(text("filename:", path, "b=", duration / 70000, "  duration:", duration, "  A_DEC=:",
                    settings.decay, " ----", "specrgram:", s.rows(), "  -- ", s.cols()));
  std::vector<Landmark> landmarks = landmarksOf(s, duration, settings);
  if (landmarks.empty()) console.line("LL<2 pred return..");
  return landmarks;
}

// `zeroRows` rows of zeros, then the landmarks in their order.
MatrixXLI asMatrix(std::span<const Landmark> landmarks, Eigen::Index zeroRows) {
  MatrixXLI matrix(zeroRows + static_cast<Eigen::Index>(landmarks.size()), 2);
  matrix.topRows(zeroRows).setZero();
  for (Eigen::Index row = zeroRows; const Landmark& landmark : landmarks) {
    matrix(row, 0) = landmark.frame;
    matrix(row, 1) = hashOf(landmark);
    ++row;
  }
  return matrix;
}

// The landmarks of one file, delay by delay.
class Collection {
 public:
  void add(std::span<const Landmark> landmarks) {
    if (landmarks.empty()) ++zeroRows_;  // a delay without landmarks counts as one empty row
    landmarks_.insert(landmarks_.end(), landmarks.begin(), landmarks.end());
  }
  MatrixXLI sorted() && {
    sortByHash(landmarks_);
    return asMatrix(landmarks_, zeroRows_);
  }
  Eigen::Index rows() const { return zeroRows_ + static_cast<Eigen::Index>(landmarks_.size()); }

 private:
  std::vector<Landmark> landmarks_;
  Eigen::Index zeroRows_ = kZeroRows;
};

bool isCancelled(const FingerprintListener& listener) {
  return listener.cancelled && listener.cancelled();
}

// Reads the file once for the three delays.
Collection listenTo(const std::string& path, float a_dec, float& duration,
                    const FingerprintListener& listener) {
  Collection collection;
  const Sound sound = readSound(path);
  for (const int shift : kShifts) {
    if (isCancelled(listener)) break;
    collection.add(landmarksOf(sound, path, {a_dec, {}}, shift, duration, listener.console));
  }
  return collection;
}

MatrixXLI fingerprintFile(const std::string& path, float a_dec, float& duration,
                          const FingerprintListener& listener) {
  Collection collection = listenTo(path, a_dec, duration, listener);
  const std::string rule(55, '$');
  listener.console.line(rule);
  listener.console.line(text("kombinirani maksovi nroj e:", collection.rows()));  // combined peaks
  listener.console.line(rule);
  listener.console.line("727");
  return std::move(collection).sorted();
}

// Two threads may lose an update of the other one; that only disturbs the bar.
void moveBar(std::atomic<std::uint32_t>& progress, float weight, Eigen::Index rows,
             const FingerprintListener& listener) {
  const float width = static_cast<float>(progress.load()) + weight + static_cast<float>(rows / 300);
  const auto pixels = static_cast<std::uint32_t>(width);
  progress = pixels < kBarWidth ? pixels : 0;
  if (pixels < kBarWidth && listener.moveprogress) listener.moveprogress(static_cast<int>(pixels));
}

void appendLogLine(const FingerprintListener& listener, std::string_view line) {
  if (listener.appendLogLine) listener.appendLogLine(line);
}

}  // namespace

MatrixXLI fingerprint(std::span<const float> samples, float a_dec) {
  const auto seconds = static_cast<float>(samples.size() / kSampleRate);
  Collection collection;
  for (const int shift : kShifts) {
    collection.add(landmarksOf(spectrogram(samples, shift), seconds, {a_dec, {}}));
  }
  return std::move(collection).sorted();
}

void extract_peaks(MatrixXLI& out, const std::string& path, int /*file*/, float* duration,
                   float a_dec, float target_df, float target_dt, int shift,
                   report::Console& console) {
  const Settings settings{a_dec, {target_df, target_dt}};
  const auto landmarks = landmarksOf(readSound(path), path, settings, shift, *duration, console);
  out = asMatrix(landmarks, landmarks.empty() ? 1 : 0);
}

void fingerprint_all(std::span<const std::string> names, std::span<MatrixXLI> all,
                     Eigen::VectorXf& traenje, float a_dec, std::atomic<std::uint32_t>& progress,
                     float weight, const FingerprintListener& listener) {
  const int count = static_cast<int>(names.size());
#pragma omp parallel for schedule(static)
  for (int file = 0; file < count; ++file) {
    if (isCancelled(listener)) continue;
    appendLogLine(listener, "687");
    float duration = 0;
    try {
      all[file] = fingerprintFile(names[file], a_dec, duration, listener);
    } catch (const std::exception& error) {  // memory; one file without landmarks, the rest go on
      appendLogLine(listener, "cannot fingerprint " + names[file] + ": " + error.what());
      all[file] = asMatrix({}, kZeroRows + kShifts.size());
    }
    traenje[file] = duration;
    listener.console.line("posle namaluvanje");  // after the reduction
    const Eigen::Index rows = all[file].rows();
    appendLogLine(listener, text("vkupniot broj na maksovi:", static_cast<float>(2 * rows)));
    moveBar(progress, weight, rows, listener);
    if (listener.fileDone) listener.fileDone(file);
  }
}

}  // namespace analysis
