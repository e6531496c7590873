#include "bench/events/take.h"

#include <Eigen/Core>
#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>

#include "bench/events/codec.h"
#include "bench/events/suppression.h"
#include "bench/events/synthetic.h"

namespace events {
namespace {

constexpr double kPi = std::numbers::pi;

// What a delay by a share of a sample leaves of the stage's sound below 3.8 kHz: one row of taps
// for each of kSteps shares.
class Interpolator {
 public:
  static constexpr int kTaps = 48, kSteps = 512;

  Interpolator() : taps_(kTaps, kSteps + 1) {
    constexpr double kCut = 2 * 3800.0 / kStageRate;
    for (int step = 0; step <= kSteps; ++step)
      for (int k = 0; k < kTaps; ++k) {
        const double x = k - kTaps / 2 + 1 - double(step) / kSteps;
        const double sinc = std::abs(x) < 1e-9 ? kCut : std::sin(kPi * x * kCut) / (kPi * x);
        taps_(k, step) = float(sinc * (0.5 + 0.5 * std::cos(kPi * x / (kTaps / 2 + 1))));
      }
  }

  /// The sound at a time in samples; silence before its start and after its end.
  float operator()(const std::vector<float>& sound, double at) const {
    const auto before = std::int64_t(std::floor(at));
    const auto taps = taps_.col(Eigen::Index(std::lround((at - double(before)) * kSteps)));
    const std::int64_t first = before - kTaps / 2 + 1;
    if (first >= 0 && first + kTaps <= std::ssize(sound))
      return Eigen::Map<const Eigen::VectorXf>(&sound[std::size_t(first)], kTaps).dot(taps);
    float sum = 0;
    for (std::int64_t i = std::max<std::int64_t>(0, first);
         i < std::min<std::int64_t>(first + kTaps, std::ssize(sound)); ++i)
      sum += sound[std::size_t(i)] * taps(Eigen::Index(i - first));
    return sum;
  }

 private:
  Eigen::MatrixXf taps_;
};

// The stage's sound at the device's sample times.
std::vector<float> sampled(const std::vector<float>& stage, const Take& take) {
  static const Interpolator interpolator;
  std::vector<float> out(static_cast<std::size_t>(take.lengthSeconds * kRate));
  const double step = 1.0 / kRate / (1 + take.microphone.driftPpm * 1e-6);
  for (std::size_t n = 0; n < out.size(); ++n) {
    const double then = take.startSeconds + double(n) * step;
    out[n] = interpolator(stage, (then - lateness(take, then)) * kStageRate);
  }
  return out;
}

std::vector<float> responseOf(const Microphone& mic) {
  Random place(mic.place);
  std::vector<float> h = roomResponse(mic.room, place);
  const auto echo = std::size_t(mic.echoMs / 1000 * kRate);
  if (echo < h.size()) h[echo] += float(std::pow(10, mic.echoDb / 20));
  return h;
}

double levelOf(const std::vector<float>& samples) {
  double power = 1e-12;
  for (const float s : samples) power += double(s) * s;
  return std::sqrt(power / double(samples.size() + 1));
}

// Normal with variance 1, nearly: the sum of four even ones, at the cost of one draw.
float gaussian(Random& random) {
  const std::uint64_t bits = random();
  const auto sum = (bits & 0xffff) + (bits >> 16 & 0xffff) + (bits >> 32 & 0xffff) + (bits >> 48);
  return (float(sum) / 65536 - 2) * 1.7320508f;
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
  float low = 0;
  const auto hum = float(uniform(random, 0, 0.3));
  const auto hiss = float(uniform(random, 0.1, 1.5));
  const std::complex<float> turn = std::polar(1.0f, float(2 * kPi * 50 / kRate));
  std::complex<float> mains(1, 0);
  for (float& sample : out) {
    const float white = gaussian(random);
    low = 0.97f * low + 0.3f * white;  // more rumble than hiss
    mains *= turn * (1.5f - 0.5f * std::norm(mains));
    sample = low + hiss * white + hum * (mains + 0.5f * mains * mains * mains).imag();
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

// A device is set down hard: a knock of the same shape every time.
void addThumps(std::vector<float>& samples, const Microphone& mic, Random& random) {
  const double level = levelOf(samples);
  for (int n = 0; n < mic.thumps; ++n) {
    const auto at = std::size_t(uniform(random, 0, double(samples.size())));
    const double strength = level * uniform(random, 20, 60);
    for (std::size_t i = 0; i < 2000 && at + i < samples.size(); ++i) {
      const double t = double(i) / kRate;
      samples[at + i] += float(strength * (std::sin(2 * kPi * 180 * t) * std::exp(-25 * t) +
                                           std::sin(2 * kPi * 1100 * t) * std::exp(-90 * t)));
    }
  }
}

// Gusts: deep rumble that comes and goes within seconds, up to 20 dB over the event.
void addWind(std::vector<float>& samples, Random& random) {
  const auto loud = static_cast<float>(levelOf(samples) * 10);
  float gust = 0, deep = 0, deeper = 0;
  for (float& s : samples) {
    gust += 0.0002f * (6 * gaussian(random) - gust);
    deep += 0.06f * (gaussian(random) - deep);
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
  convolve(samples, responseOf(mic));
  limitBand(samples, mic.bandHz);
  const auto disturbance = noise(samples.size(), mic, random);
  const auto gain =
      static_cast<float>(levelOf(samples) * std::pow(10, -mic.snrDb / 20) / levelOf(disturbance));
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] += gain * disturbance[i];
  addBumps(samples, mic, random);
  if (mic.thumps) addThumps(samples, mic, random);
  if (mic.wind) addWind(samples, random);
  if (mic.suppression) suppressNoise(samples);
  if (mic.automaticGain) automaticGain(samples);
  mute(samples, take);
  if (mic.inverted)
    for (float& s : samples) s = -s;
  toSixteenBit(samples, mic.clips);
  return mic.codec.empty() ? samples : throughCodec(samples, mic.codec, mic.kilobits);
}

}  // namespace events
