#include "analysis/fingerprint.h"

#include "analysis/collection.h"
#include "analysis/hearing.h"

namespace analysis {

MatrixXLI fingerprint(std::span<const float> samples, float a_dec) {
  const auto seconds = static_cast<float>(samples.size() / kSampleRate);
  Collection collection;
  Spectrogram s;
  for (const int shift : kShifts) {
    spectrogramInto(s, samples, shift);
    collection.add(landmarksOf(s, seconds, {a_dec}));
  }
  s.resize(0, 0);  // the sorting needs memory, too
  return std::move(collection).sorted();
}

void extract_peaks(MatrixXLI& out, const std::string& path, int /*file*/, float* duration,
                   float a_dec, float target_df, float target_dt, int shift,
                   report::Console& console) {
  FileHearing hearing(path, {a_dec, {target_df, target_dt}}, console);
  const std::vector<Landmark> landmarks = hearing.landmarks(shift, *duration);
  out = asMatrix(landmarks, landmarks.empty() ? 1 : 0);
}

}  // namespace analysis
