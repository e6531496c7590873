#include <algorithm>
#include <cmath>
#include <numbers>

#include "cli/demo/scene.h"

namespace cli::demo {
namespace {

struct Echo {
  std::size_t delay;  // samples
  float gain;
};

/// The direct sound, then echoes that come ever denser and weaker.
std::vector<Echo> roomOf(const Device& device, Random& random) {
  std::vector<Echo> echoes = {{0, 1.0f}};
  for (double delay = 0.004; delay < device.reverbSeconds; delay += draw(random, 0.002, 0.016)) {
    const double fade = std::exp(-4 * delay / device.reverbSeconds);
    const double sign = random() % 2 == 0 ? 1 : -1;
    echoes.push_back({samplesIn(delay), static_cast<float>(sign * device.echo * fade)});
  }
  return echoes;
}

/// What is heard of `dry` from sample `first` to `last`, echoes of earlier sound included.
Sound inRoom(const Sound& dry, const std::vector<Echo>& echoes, std::size_t first,
             std::size_t last) {
  Sound wet(last - first);
  for (const Echo& echo : echoes)
    for (std::size_t i = std::max(first, echo.delay); i < last; ++i)
      wet[i - first] += echo.gain * dry[i - echo.delay];
  return wet;
}

/// The sound between two samples, by a cubic through the four around it; silence outside.
double between(const Sound& sound, double position) {
  const auto index = static_cast<std::ptrdiff_t>(std::floor(position));
  const double f = position - static_cast<double>(index);
  const auto at = [&](std::ptrdiff_t i) -> double {
    return i < 0 || i >= std::ssize(sound) ? 0.0 : sound[static_cast<std::size_t>(i)];
  };
  const double a = at(index - 1), b = at(index), c = at(index + 1), d = at(index + 2);
  return b + 0.5 * f * (c - a + f * (2 * a - 5 * b + 4 * c - d + f * (3 * (b - c) + d - a)));
}

/// Adds the hiss and the hum of the place.
void addNoise(Sound& sound, double level, Random& random) {
  double low = 0;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    low += 0.06 * (draw(random, -1, 1) - low);
    const double hum = 0.3 * std::sin(2 * std::numbers::pi * 50 * static_cast<double>(i) / kRate);
    sound[i] += static_cast<float>(level * (draw(random, -1, 1) + 5 * low + hum));
  }
}

}  // namespace

Sound recorded(const Sound& performed, const Device& device, const Take& take, unsigned seed) {
  Random random(seed);
  const std::size_t first = samplesIn(take.start);
  const std::size_t last = std::min(samplesIn(take.start + take.length + 1), performed.size());
  const Sound heard = inRoom(performed, roomOf(device, random), first, last);
  const double begin = take.start * kRate - static_cast<double>(first);
  const double step = 1 / (1 + device.clockPpm * 1e-6);  // a fast clock takes samples early
  Sound sound(samplesIn(take.length));
  for (std::size_t i = 0; i < sound.size(); ++i)
    sound[i] = static_cast<float>(between(heard, begin + static_cast<double>(i) * step));
  for (float& value : sound) value = std::tanh(static_cast<float>(device.level) * value);
  addNoise(sound, device.noise, random);
  return sound;
}

}  // namespace cli::demo
