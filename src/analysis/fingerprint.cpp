#include "analysis/fingerprint.h"

#include "analysis/collection.h"
#include "analysis/hearing.h"

namespace analysis {

MatrixXLI fingerprint(std::span<const float> samples, float a_dec) {
  SamplesInMemory source(samples);
  return Collection(landmarksOf(source, kShifts, {a_dec})).sorted().matrix();
}

void extract_peaks(MatrixXLI& out, const std::string& path, int /*file*/, float* duration,
                   float a_dec, float target_df, float target_dt, int shift,
                   report::Console& console) {
  const auto delays = landmarksOfFile(path, std::span(&shift, 1), *duration,
                                      {a_dec, {target_df, target_dt}}, console);
  out = asMatrix(delays.front(), delays.front().empty() ? 1 : 0);
}

}  // namespace analysis
