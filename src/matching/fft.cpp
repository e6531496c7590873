#include "matching/fft.h"

#include <unsupported/Eigen/FFT>

namespace matching {
namespace {

Eigen::FFT<float>& planner() {
  thread_local Eigen::FFT<float> fft = [] {
    Eigen::FFT<float> f;
    f.SetFlag(Eigen::FFT<float>::HalfSpectrum);
    return f;
  }();
  return fft;
}

}  // namespace

Spectrum forward(std::span<const float> samples) {
  Spectrum spectrum(samples.size() / 2 + 1);
  planner().fwd(spectrum.data(), samples.data(), static_cast<Eigen::Index>(samples.size()));
  return spectrum;
}

std::vector<float> inverse(const Spectrum& spectrum, std::size_t count) {
  std::vector<float> samples(count);
  planner().inv(samples.data(), spectrum.data(), static_cast<Eigen::Index>(count));
  return samples;
}

}  // namespace matching
