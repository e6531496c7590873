#include "tests/analysis/reference.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <unsupported/Eigen/FFT>

namespace reference {
namespace {

using analysis::Landmark;
using analysis::Peak;
using analysis::Spectrogram;
using Eigen::MatrixXf;
using Eigen::VectorXf;

MatrixXf windowedFrames(std::span<const float> samples, int shift) {
  const auto n = static_cast<Eigen::Index>(samples.size());
  const Eigen::Index whole = n - n % 384;
  VectorXf buffer = VectorXf::Zero(shift + 384 + whole);
  std::copy(samples.begin(), samples.end(), buffer.data() + shift);
  VectorXf frames = VectorXf::Zero(2 * whole + 768);
  for (Eigen::Index block = 0; block < whole / 384; ++block) {
    frames.segment(block * 768, 384) = buffer.segment(block * 384, 384);
    frames.segment(block * 768 + 384, 384) = buffer.segment(block * 384 + 192, 384);
  }
  for (Eigen::Index i = 0; i < frames.size(); ++i) {
    const auto position = static_cast<float>(i % 384);
    frames[i] *= 0.5f * (1.0f - std::cos(6.2831855f * position / 383.0f));
  }
  return frames.reshaped(384, frames.size() / 384);
}

MatrixXf magnitudes(const MatrixXf& frames) {
  MatrixXf result = MatrixXf::Zero(384, frames.cols());
  Eigen::FFT<float> fft;
  for (Eigen::Index j = 0; j + 1 < frames.cols(); ++j) {
    const VectorXf frame = frames.col(j);
    Eigen::VectorXcf spectrum(384);
    fft.fwd(spectrum, frame);
    for (int k = 0; k < 384; ++k) {
      const float re = spectrum[k].real(), im = spectrum[k].imag();
      result(k, j) = std::sqrt(re * re + im * im);
    }
  }
  return result.topRows(192);
}

void spread(const VectorXf& values, VectorXf& envelope) {
  envelope = VectorXf::Constant(192, -std::numeric_limits<float>::infinity());
  for (int f = 0; f < 192; ++f) {
    for (int k = -120; k < 120; ++k) {
      if (f + k < 0 || f + k > 191) continue;
      const float width = static_cast<float>(k) / 30.0f;
      const float tap = std::exp(-0.5f * (width * width));
      envelope[f + k] = std::max(envelope[f + k], values[f] * tap);
    }
  }
}

// Heights above the envelope; 0 for what is no local maximum and for the last bin.
VectorXf localMaxima(const VectorXf& spectrum, const VectorXf& envelope) {
  VectorXf d(192);
  for (int f = 0; f < 192; ++f) d[f] = std::max(0.0f, spectrum[f] - envelope[f]);
  VectorXf maxima = VectorXf::Zero(192);
  for (int f = 0; f < 191; ++f) {
    const bool lowerLeft = f == 0 || d[f - 1] <= d[f];
    if (lowerLeft && d[f + 1] < d[f]) maxima[f] = d[f];
  }
  return maxima;
}

}  // namespace

Spectrogram spectrogram(std::span<const float> samples, int shift) {
  Spectrogram s = magnitudes(windowedFrames(samples, shift));
  const float floor = s.maxCoeff() / 1000000.0f;
  double sum = 0;
  for (float& value : s.reshaped()) {
    value = std::log(std::max(value, floor));
    sum += value;
  }
  const auto mean = static_cast<float>(sum / static_cast<double>(s.size()));
  for (float& value : s.reshaped()) value -= mean;
  Spectrogram filtered = s;
  for (Eigen::Index n = 1; n < s.cols(); ++n) {
    for (int bin = 0; bin < 192; ++bin) {
      filtered(bin, n) = s(bin, n) - s(bin, n - 1) + 0.98f * filtered(bin, n - 1);
    }
  }
  return filtered;
}

std::vector<Peak> forwardPeaks(const Spectrogram& s, float decay, std::int64_t capacity) {
  VectorXf loudest = s.col(0);
  for (int t = 1; t < 10 && t < s.cols(); ++t) {
    for (int f = 0; f < 192; ++f) loudest[f] = std::max(loudest[f], s(f, t));
  }
  VectorXf envelope;
  spread(loudest, envelope);
  std::vector<Peak> peaks;
  for (int t = 0; t < s.cols(); ++t) {
    const VectorXf d = localMaxima(s.col(t), envelope);
    std::map<float, int> ranked;
    for (int f = 0; f < 192; ++f) ranked[d[f]] = f;
    int taken = 0;
    for (auto entry = ranked.rbegin(); entry != ranked.rend() && taken < 5; ++entry) {
      const int f = entry->second;
      const auto limit = capacity * (t + 1) / s.cols();
      if (static_cast<std::int64_t>(peaks.size()) >= limit) break;
      if (!(s(f, t) > envelope[f])) continue;
      ++taken;
      peaks.push_back({t, f, s(f, t)});
      for (int x = 0; x < 192; ++x) {
        const float width = static_cast<float>(x - f) * 0.033333335f;
        envelope[x] = std::max(envelope[x], s(f, t) * std::exp(-0.5f * (width * width)));
      }
    }
    envelope *= decay;
  }
  return peaks;
}

std::vector<Peak> backwardPeaks(const Spectrogram& s, const std::vector<Peak>& peaks, float decay) {
  std::vector<Peak> kept;
  VectorXf envelope;
  spread(s.col(s.cols() - 1), envelope);
  std::size_t left = peaks.size();
  for (auto t = static_cast<int>(s.cols()) - 1; t >= 0; --t) {
    for (; left > 0 && peaks[left - 1].frame == t; --left) {
      const Peak& peak = peaks[left - 1];
      if (!(peak.value >= envelope[peak.bin])) continue;
      kept.push_back(peak);
      for (int x = 0; x < 192; ++x) {
        const float width = static_cast<float>(x - peak.bin) / 30.0f;
        envelope[x] = std::max(envelope[x], peak.value * std::exp(-0.5f * (width * width)));
      }
    }
    envelope *= decay;
  }
  return kept;
}

std::vector<Landmark> pairPeaks(const std::vector<Peak>& peaks, float targetBins,
                                float targetFrames) {
  std::vector<Landmark> landmarks;
  for (const Peak& anchor : peaks) {
    const auto t1 = static_cast<float>(anchor.frame), f1 = static_cast<float>(anchor.bin);
    int count = 0;
    for (const Peak& target : peaks) {
      const auto t2 = static_cast<float>(target.frame), f2 = static_cast<float>(target.bin);
      if (!(t1 < t2 && t2 < t1 + targetFrames)) continue;
      if (!(f1 - targetBins < f2 && f2 < f1 + targetBins)) continue;
      if (++count >= 10) continue;
      landmarks.push_back({static_cast<std::uint32_t>(anchor.frame),
                           static_cast<std::uint16_t>(target.frame - anchor.frame),
                           static_cast<std::uint8_t>(anchor.bin),
                           static_cast<std::uint8_t>(target.bin)});
    }
  }
  return landmarks;
}

}  // namespace reference
