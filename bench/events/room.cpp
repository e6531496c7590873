#include "bench/events/room.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <complex>
#include <unsupported/Eigen/FFT>

namespace events {
namespace {

constexpr double kSoundMetresPerSecond = 343;
constexpr double kAbsorbed = 0.25;  // share of the power that a wall keeps for itself

double energyOf(const std::vector<float>& h) {
  double energy = 1e-30;
  for (const float v : h) energy += double(v) * v;
  return energy;
}

void addScaled(std::vector<float>& to, const std::vector<float>& from, double energy) {
  const auto gain = float(std::sqrt(energy / energyOf(from)));
  for (std::size_t i = 0; i < from.size(); ++i) to[i] += gain * from[i];
}

using Point = std::array<double, 3>;

double distance(const Point& a, const Point& b) {
  return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

// Up to three reflections at the walls of a box with the source and the microphone somewhere in it.
std::vector<float> earlyReflections(const Room& room, std::size_t length, Random& random) {
  // Sabine: a cube of side L decays in 0.161 L / (6 a) seconds.
  const double side = room.reverbSeconds * 6 * kAbsorbed / 0.161;
  Point box, source, ear;
  for (int k = 0; k < 3; ++k) {
    box[k] = side * uniform(random, 0.6, 1.5);
    source[k] = box[k] * uniform(random, 0.15, 0.85);
    ear[k] = box[k] * uniform(random, 0.1, 0.9);
  }
  const double direct = std::max(0.3, distance(source, ear));
  std::vector<float> h(length, 0.0f);
  const auto mirrored = [&](int k, int n) {
    return n * box[std::size_t(k)] +
           (n % 2 ? box[std::size_t(k)] - source[std::size_t(k)] : source[std::size_t(k)]);
  };
  for (int x = -3; x <= 3; ++x)
    for (int y = -3; y <= 3; ++y)
      for (int z = -3; z <= 3; ++z) {
        const int bounces = std::abs(x) + std::abs(y) + std::abs(z);
        if (bounces == 0 || bounces > 3) continue;
        const double way = distance({mirrored(0, x), mirrored(1, y), mirrored(2, z)}, ear);
        const auto at = std::size_t(std::max(0.0, way - direct) / kSoundMetresPerSecond * kRate);
        const double scattered = uniform(random, 0.5, 1);  // not every wall is a mirror
        if (at < length)
          h[at] += float(scattered * direct / way * std::pow(1 - kAbsorbed, bounces / 2.0));
      }
  return h;
}

// How much of a frequency belongs to the deep (0), middle (1) and high (2) band; they add up to 1.
double share(int band, double hertz) {
  const auto above = [&](double edge) {  // from 0 to 1 over an octave
    const double octaves = std::log2(std::max(1.0, hertz) / edge);
    return std::clamp(octaves + 0.5, 0.0, 1.0);
  };
  const double low = 1 - above(500), high = above(2000);
  return band == 0 ? low : band == 2 ? high : 1 - low - high;
}

// Noise that builds up while the reflections grow dense and decays, each band in its own time.
std::vector<float> diffuseTail(const Room& room, std::size_t length, Random& random) {
  constexpr std::array<double, 3> kDecay = {1.15, 1, 0.65};  // air and cloth swallow the treble
  const std::size_t size = std::bit_ceil(length);
  std::vector<float> noise(size), tail(length, 0.0f), band;
  std::normal_distribution<float> normal;
  for (float& v : noise) v = normal(random);
  Eigen::FFT<float> fft;
  fft.SetFlag(Eigen::FFT<float>::HalfSpectrum);
  std::vector<std::complex<float>> spectrum, part;
  fft.fwd(spectrum, noise);
  const double dense = 0.02 * std::sqrt(room.reverbSeconds);  // seconds until single ones are lost
  for (int b = 0; b < 3; ++b) {
    part = spectrum;
    for (std::size_t k = 0; k < part.size(); ++k)
      part[k] *= float(share(b, double(k) * kRate / double(size)));
    fft.inv(band, part, Eigen::Index(size));
    const double decay = 6.908 / (room.reverbSeconds * kDecay[std::size_t(b)]);
    for (std::size_t i = 0; i < length; ++i) {
      const double t = double(i) / kRate;
      tail[i] += band[i] * float(std::exp(-decay * t) * (1 - std::exp(-t / dense)));
    }
  }
  return tail;
}

}  // namespace

std::vector<float> roomResponse(const Room& room, Random& random) {
  const double after = std::pow(10, -room.directDb / 10);  // energy; the direct sound has 1
  const auto length = std::size_t(std::max(0.05, 1.2 * room.reverbSeconds) * kRate);
  std::vector<float> h(length, 0.0f);
  if (room.reverbSeconds > 0) {
    const double early = uniform(random, 0.15, 0.45);
    addScaled(h, earlyReflections(room, length, random), after * early);
    addScaled(h, diffuseTail(room, length, random), after * (1 - early));
  }
  h[0] = 1;
  return h;
}

void convolve(std::vector<float>& samples, const std::vector<float>& response) {
  const std::size_t size = std::bit_ceil(std::max<std::size_t>(4 * response.size(), 16384));
  const std::size_t hop = size - response.size();
  Eigen::FFT<float> fft;
  fft.SetFlag(Eigen::FFT<float>::HalfSpectrum);
  std::vector<float> block(size), out(samples.size() + size, 0.0f);
  std::vector<std::complex<float>> spectrum, filter;
  std::ranges::copy(response, block.begin());
  fft.fwd(filter, block);
  for (std::size_t at = 0; at < samples.size(); at += hop) {
    std::ranges::fill(block, 0.0f);
    const std::size_t count = std::min(hop, samples.size() - at);
    std::copy_n(samples.begin() + std::ptrdiff_t(at), count, block.begin());
    fft.fwd(spectrum, block);
    for (std::size_t k = 0; k < spectrum.size(); ++k) spectrum[k] *= filter[k];
    fft.inv(block, spectrum, Eigen::Index(size));
    for (std::size_t i = 0; i < size; ++i) out[at + i] += block[i];
  }
  std::copy_n(out.begin(), samples.size(), samples.begin());
}

}  // namespace events
