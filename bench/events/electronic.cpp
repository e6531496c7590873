#include "bench/events/electronic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>

namespace events {
namespace {

constexpr int kSteps = 16;  // per bar

/// One sound of the machine at `seconds` after it was struck; `hertz` is its pitch.
using Voice = std::function<double(double seconds, double hertz)>;

double wave(double cycles) { return std::sin(2 * std::numbers::pi * cycles); }

double kick(double t, double) {
  return wave(45 * t + 6 * (1 - std::exp(-30 * t))) * std::exp(-9 * t);
}

double saw(double t, double hertz) {
  double sum = 0;
  for (int h = 1; h <= 8; ++h) sum += wave(hertz * h * t) / h;
  return sum;
}

double bass(double t, double hertz) { return 0.4 * saw(t, hertz / 2) * std::exp(-5 * t); }
double pluck(double t, double hertz) { return 0.25 * saw(t, 4 * hertz) * std::exp(-12 * t); }

double chord(double t, double hertz) {
  return 0.12 * (saw(t, 2 * hertz) + saw(t, 2.52 * hertz) + saw(t, 3 * hertz)) * std::exp(-3 * t);
}

double hat(double t, double) {  // hisses alike every time: a machine plays a sample
  const auto n = std::uint32_t(t * kStageRate) * 2654435761u;
  return 0.3 * (double((n ^ n >> 15) * 2246822519u >> 8) / 8388608 - 1) * std::exp(-60 * t);
}

void strike(std::vector<float>& loop, std::size_t at, const Voice& voice, double hertz) {
  constexpr std::size_t kLongest = kStageRate / 2;
  for (std::size_t i = 0; i < kLongest; ++i)  // what rings past the loop's end begins the next
    loop[(at + i) % loop.size()] += float(0.2 * voice(double(i) / kStageRate, hertz));
}

std::vector<float> loopOf(const Voice& voice, int bars, std::size_t step, double density,
                          Random& random) {
  std::vector<float> loop(step * kSteps * std::size_t(bars), 0.0f);
  const double root = 55 * std::pow(2.0, double(random() % 12) / 12);
  constexpr std::array<int, 5> kScale = {0, 3, 5, 7, 10};
  for (int s = 0; s < kSteps * bars; ++s)
    if (s % 8 == 0 || uniform(random, 0, 1) < density)
      strike(loop, std::size_t(s) * step, voice,
             root * std::pow(2.0, kScale[random() % kScale.size()] / 12.0));
  return loop;
}

}  // namespace

std::vector<float> electronicMusic(double seconds, Random& random) {
  const auto step = std::size_t(kStageRate * 60 / uniform(random, 100, 140) / 4);
  const std::vector<std::vector<float>> loops = {
      loopOf(kick, 1, step, 0.1, random), loopOf(hat, 1, step, 0.5, random),
      loopOf(bass, 2, step, 0.4, random), loopOf(chord, 4, step, 0.05, random),
      loopOf(pluck, 1 + int(random() % 2), step, 0.6, random)};
  std::vector<float> out(std::size_t(seconds * kStageRate), 0.0f);
  std::array<bool, 5> plays = {true, true, true, false, true};
  const std::size_t section = 8 * kSteps * step;
  for (std::size_t at = 0; at < out.size(); at += section) {
    if (at > 0) plays[1 + random() % 4] ^= true;
    const std::size_t end = std::min(out.size(), at + section);
    for (std::size_t l = 0; l < loops.size(); ++l)
      for (std::size_t i = at; plays[l] && i < end; ++i) out[i] += loops[l][i % loops[l].size()];
  }
  return out;
}

}  // namespace events
