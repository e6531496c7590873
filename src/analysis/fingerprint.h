#pragma once

#include <Eigen/Core>
#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "analysis/matrix.h"
#include "analysis/packed_fingerprint.h"
#include "report/console.h"

namespace analysis {

/// The fingerprint of a sound (mono, kSampleRate), heard with three delays against the frames and
/// sorted by hash. `a_dec`: the factor by which the peaks' envelope falls from frame to frame.
/// Pure: callable from any thread.
MatrixXLI fingerprint(std::span<const float> samples, float a_dec);

/// The landmarks of one file, heard with one delay, in the order in which they were found: frame
/// index and hash; 1 x 2 of zeros if there are fewer than two. `duration` receives whole seconds
/// and stays as it is for a file without sound. `file`, the file's index, changes nothing.
void extract_peaks(MatrixXLI& out, const std::string& path, int file, float* duration, float a_dec,
                   float target_df, float target_dt, int shift, report::Console& console);

/// A file's fingerprint and its length in whole seconds.
struct Heard {
  PackedFingerprint fingerprint;
  float seconds = 0;
};

/// What `fingerprint_all` tells while it works. Every function may be empty, and is called from
/// several threads at once.
struct FingerprintListener {
  report::Console& console;
  std::function<void(std::string_view)> appendLogLine;  // to the run's log file
  std::function<void(int)> moveprogress;                // pixels, 0 to 651
  std::function<void(int)> fileDone;                    // the file's index
  std::function<bool()> cancelled;  // polled; once true, files not yet done stay without landmarks
  std::function<std::optional<Heard>(int)> known = {};  // asked first: what need not be heard again
};

/// The fingerprint of one WAV file as `fingerprint_all` makes it, with its lines on the console and
/// none of the listener's other calls. Callable from several threads at once.
Heard fingerprintFile(const std::string& path, float a_dec, const FingerprintListener& listener);

/// Fingerprints the WAV files `names` on the OpenMP team, one file per iteration, and hands each
/// with its index to `take`, from several threads at once. A file without sound has zero rows only.
/// `progress` grows by `weight` and a little for long files, and starts again at the end of the
/// bar.
void hearAll(std::span<const std::string> names, float a_dec, std::atomic<std::uint32_t>& progress,
             float weight, const FingerprintListener& listener,
             const std::function<void(int, Heard)>& take);

/// The same as matrices: fills `all` and the durations `traenje` (their length), each by index.
void fingerprint_all(std::span<const std::string> names, std::span<MatrixXLI> all,
                     Eigen::VectorXf& traenje, float a_dec, std::atomic<std::uint32_t>& progress,
                     float weight, const FingerprintListener& listener);

}  // namespace analysis
