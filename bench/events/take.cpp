#include "bench/events/take.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <unsupported/Eigen/FFT>

#include "bench/events/codec.h"

namespace events {
namespace {

constexpr double kPi = std::numbers::pi;

// Band-limited interpolation of the stage's sound at the device's sample times.
std::vector<float> sampled(const std::vector<float>& stage, const Take& take) {
  constexpr int kHalf = 24, kSteps = 512;
  static const auto kernel = [] {
    std::vector<float> k((2 * kHalf + 1) * kSteps);
    for (std::size_t i = 0; i < k.size(); ++i) {
      const double x = double(i) / kSteps - kHalf;
      const double cut = 2 * 3800.0 / kStageRate;
      const double sinc = std::abs(x) < 1e-9 ? cut : std::sin(kPi * x * cut) / (kPi * x);
      k[i] = static_cast<float>(sinc * (0.5 + 0.5 * std::cos(kPi * x / kHalf)));
    }
    return k;
  }();
  std::vector<float> out(static_cast<std::size_t>(take.lengthSeconds * kRate));
  const double step = double(kStageRate) / kRate / (1 + take.microphone.driftPpm * 1e-6);
  for (std::size_t n = 0; n < out.size(); ++n) {
    const double then = take.startSeconds * kStageRate + double(n) * step;
    const double at = then - lateness(take, then / kStageRate) * kStageRate;
    const auto centre = static_cast<std::int64_t>(std::floor(at));
    const auto phase = static_cast<std::size_t>((1 - (at - double(centre))) * kSteps);
    float sum = 0;
    for (int k = -kHalf + 1; k <= kHalf; ++k) {
      const std::int64_t i = centre + k;
      if (i < 0 || i >= static_cast<std::int64_t>(stage.size())) continue;
      sum += stage[static_cast<std::size_t>(i)] *
             kernel[static_cast<std::size_t>(k + kHalf - 1) * kSteps + phase];
    }
    out[n] = sum;
  }
  return out;
}

std::vector<float> roomResponse(const Microphone& mic, Random& random) {
  const auto tail = static_cast<std::size_t>(mic.reverbSeconds * kRate);
  std::vector<float> h(std::max<std::size_t>(tail, 1000), 0.0f);
  std::normal_distribution<float> normal;
  double energy = 0;
  for (std::size_t i = 16; i < tail; ++i) {
    const double sparse = i < 400 && random() % 12 ? 0.0 : 1.0;  // early reflections stand alone
    h[i] = static_cast<float>(sparse * normal(random) * std::exp(-6.9 * double(i) / double(tail)));
    energy += double(h[i]) * h[i];
  }
  const double scale = energy > 0 ? std::sqrt(std::pow(10, -mic.directDb / 10) / energy) : 0;
  for (float& v : h) v *= static_cast<float>(scale);
  h[0] += 1;
  h[static_cast<std::size_t>(mic.echoMs / 1000 * kRate)] +=
      static_cast<float>(std::pow(10, mic.echoDb / 20));
  return h;
}

void convolve(std::vector<float>& samples, const std::vector<float>& h) {
  std::size_t size = 1;
  while (size < 4 * h.size() || size < 32768) size *= 2;
  const std::size_t hop = size - h.size();
  Eigen::FFT<float> fft;
  fft.SetFlag(Eigen::FFT<float>::HalfSpectrum);
  std::vector<float> block(size), out(samples.size() + size, 0.0f);
  std::vector<std::complex<float>> spectrum, response;
  std::ranges::copy(h, block.begin());
  fft.fwd(response, block);
  for (std::size_t at = 0; at < samples.size(); at += hop) {
    std::ranges::fill(block, 0.0f);
    const std::size_t count = std::min(hop, samples.size() - at);
    std::copy_n(samples.begin() + static_cast<std::ptrdiff_t>(at), count, block.begin());
    fft.fwd(spectrum, block);
    for (std::size_t k = 0; k < spectrum.size(); ++k) spectrum[k] *= response[k];
    fft.inv(block, spectrum, static_cast<Eigen::Index>(size));
    for (std::size_t i = 0; i < size; ++i) out[at + i] += block[i];
  }
  std::copy_n(out.begin(), samples.size(), samples.begin());
}

double levelOf(const std::vector<float>& samples) {
  double power = 1e-12;
  for (const float s : samples) power += double(s) * s;
  return std::sqrt(power / double(samples.size() + 1));
}

std::vector<float> noise(std::size_t count, const Microphone& mic, Random& random) {
  const double seconds = double(count) / kRate;
  if (mic.babble) {
    Take other;
    other.lengthSeconds = seconds;
    auto a = sampled(syntheticSpeech(seconds, random), other);
    const auto b = sampled(syntheticSpeech(seconds, random), other);
    for (std::size_t i = 0; i < a.size(); ++i) a[i] += b[i];
    a.resize(count);
    return a;
  }
  std::vector<float> out(count);
  std::normal_distribution<float> normal;
  float low = 0;
  const double hum = uniform(random, 0, 0.3);
  const auto hiss = static_cast<float>(uniform(random, 0.1, 1.5));
  for (std::size_t i = 0; i < count; ++i) {
    const float white = normal(random);
    low = 0.97f * low + 0.3f * white;  // more rumble than hiss
    out[i] = low + hiss * white +
             static_cast<float>(hum * std::sin(2 * kPi * 50 * double(i) / kRate) +
                                hum * 0.5 * std::sin(2 * kPi * 150 * double(i) / kRate));
  }
  return out;
}

void addBumps(std::vector<float>& samples, const Microphone& mic, Random& random) {
  const double level = levelOf(samples);
  const double seconds = double(samples.size()) / kRate;
  const int bumps = static_cast<int>(mic.bumpsPerMinute * seconds / 60 + 0.5);
  std::normal_distribution<float> normal;
  for (int b = 0; b < bumps; ++b) {
    const auto at = static_cast<std::size_t>(uniform(random, 0, double(samples.size())));
    const double strength = level * uniform(random, 5, 30);
    for (std::size_t i = 0; i < 800 && at + i < samples.size(); ++i)
      samples[at + i] += static_cast<float>(strength * normal(random) * std::exp(-double(i) / 150));
  }
}

// Gusts: deep rumble that comes and goes within seconds, up to 20 dB over the event.
void addWind(std::vector<float>& samples, Random& random) {
  std::normal_distribution<float> normal;
  const auto loud = static_cast<float>(levelOf(samples) * 10);
  float gust = 0, deep = 0, deeper = 0;
  for (float& s : samples) {
    gust += 0.0002f * (6 * normal(random) - gust);
    deep += 0.06f * (normal(random) - deep);
    deeper += 0.06f * (deep - deeper);
    s += loud * 8 * std::max(0.0f, gust * 8) * deeper;
  }
}

void automaticGain(std::vector<float>& samples) {
  double level = levelOf(samples);
  for (float& s : samples) {
    const double a = std::abs(double(s));
    level += (a - level) * (a > level ? 0.002 : 0.00005);
    s = static_cast<float>(s * 0.1 / (0.01 + level));
  }
}

void limitBand(std::vector<float>& samples, double hertz) {
  if (hertz >= 3700) return;
  const auto a = static_cast<float>(1 - std::exp(-2 * kPi * hertz / kRate));
  for (int pass = 0; pass < 2; ++pass) {
    float y = 0;
    for (float& s : samples) s = y += a * (s - y);
  }
}

void mute(std::vector<float>& samples, const Take& take) {
  const auto sampleAt = [&](double seconds) {
    const double at = std::max(0.0, seconds - take.startSeconds) * kRate;
    return samples.begin() + std::min(std::ssize(samples), static_cast<std::ptrdiff_t>(at));
  };
  for (const Span& span : take.muted) std::fill(sampleAt(span.from), sampleAt(span.to), 0.0f);
}

void toSixteenBit(std::vector<float>& samples, bool clips) {
  float peak = 1e-6f;
  for (const float s : samples) peak = std::max(peak, std::abs(s));
  const float gain = (clips ? 3.0f : 0.7f) / peak;
  for (float& s : samples)
    s = std::round(std::clamp(s * gain, -1.0f, 32767 / 32768.0f) * 32768) / 32768;
}

}  // namespace

double lateness(const Take& take, double eventSeconds) {
  constexpr double kSoundMetresPerSecond = 343;
  const auto after = std::ranges::upper_bound(take.way, eventSeconds, {}, &Take::Stand::seconds);
  if (take.way.empty()) return 0;
  if (after == take.way.begin()) return after->metres / kSoundMetresPerSecond;
  const Take::Stand &a = *(after - 1), &b = after == take.way.end() ? a : *after;
  const double share =
      b.seconds > a.seconds ? (eventSeconds - a.seconds) / (b.seconds - a.seconds) : 0;
  return (a.metres + share * (b.metres - a.metres)) / kSoundMetresPerSecond;
}

std::vector<float> render(const Take& take, const std::vector<float>& stage, Random& random) {
  const Microphone& mic = take.microphone;
  std::vector<float> samples = sampled(stage, take);
  convolve(samples, roomResponse(mic, random));
  limitBand(samples, mic.bandHz);
  const auto disturbance = noise(samples.size(), mic, random);
  const auto gain =
      static_cast<float>(levelOf(samples) * std::pow(10, -mic.snrDb / 20) / levelOf(disturbance));
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] += gain * disturbance[i];
  addBumps(samples, mic, random);
  if (mic.wind) addWind(samples, random);
  if (mic.automaticGain) automaticGain(samples);
  mute(samples, take);
  if (mic.inverted)
    for (float& s : samples) s = -s;
  toSixteenBit(samples, mic.clips);
  return mic.codec.empty() ? samples : throughCodec(samples, mic.codec, mic.kilobits);
}

}  // namespace events
