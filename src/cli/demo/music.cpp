#include "cli/demo/music.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace cli::demo {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

/// A walk over the notes of a minor scale that turns around at its ends.
class Melody {
 public:
  Melody(double lowest, Random& random) : lowest_(lowest), random_(random) {}

  double nextFrequency() {
    step_ += static_cast<int>(random_() % 7) - 3;
    step_ = std::clamp(step_, 0, 13);
    constexpr std::array kScale = {0, 2, 3, 5, 7, 8, 10};
    const int semitones = 12 * (step_ / 7) + kScale[static_cast<std::size_t>(step_ % 7)];
    return lowest_ * std::exp2(semitones / 12.0);
  }
  double nextBeats() { return std::array{0.5, 0.5, 1.0, 1.0, 1.5, 2.0}[random_() % 6]; }

 private:
  double lowest_;
  Random& random_;
  int step_ = 5;
};

/// A string set swinging by noise: every turn through the delay line it loses some brightness.
void addPluck(Sound& sound, std::size_t first, double frequency, double seconds, Random& random) {
  std::vector<double> line(static_cast<std::size_t>(kRate / frequency));
  for (double& value : line) value = draw(random, -1, 1);
  const double level = draw(random, 0.25, 0.6);
  const std::size_t length = samplesIn(seconds);
  double last = 0;
  for (std::size_t i = 0; i < length && first + i < sound.size(); ++i) {
    double& value = line[i % line.size()];
    const double out = value;
    value = 0.996 * 0.5 * (value + last);
    last = out;
    const double fade =
        std::min(1.0, 20 * (1 - static_cast<double>(i) / static_cast<double>(length)));
    sound[first + i] += static_cast<float>(out * level * fade);
  }
}

void addBow(Sound& sound, std::size_t first, double frequency, double seconds, Random& random) {
  const double vibrato = draw(random, 4.5, 6.5), level = draw(random, 0.05, 0.11);
  const std::size_t length = samplesIn(seconds);
  double phase = 0;
  for (std::size_t i = 0; i < length && first + i < sound.size(); ++i) {
    const double t = static_cast<double>(i) / kRate, rest = seconds - t;
    phase += kTurn * frequency * (1 + 0.006 * std::sin(kTurn * vibrato * t)) / kRate;
    double value = 0;
    for (int harmonic = 1; harmonic <= 7; ++harmonic)
      value += std::sin(harmonic * phase) / harmonic;
    sound[first + i] += static_cast<float>(value * level * std::min({1.0, t * 9, rest * 7}));
  }
}

}  // namespace

void addPlucked(Sound& sound, double begin, double end, Random& random) {
  Melody melody(draw(random, 150, 200), random);
  const double beat = draw(random, 0.27, 0.4);
  for (double now = begin; now < end;) {
    const double length = melody.nextBeats() * beat * draw(random, 0.96, 1.04);
    addPluck(sound, samplesIn(now), melody.nextFrequency(), length * 1.6, random);
    if (random() % 4 == 0)
      addPluck(sound, samplesIn(now), melody.nextFrequency() / 2, length * 2, random);
    now += length;
  }
}

void addBowed(Sound& sound, double begin, double end, Random& random) {
  Melody melody(draw(random, 190, 260), random);
  for (double now = begin; now < end;) {
    const double length = std::min(draw(random, 0.4, 1.5), end - now + 0.1);
    addBow(sound, samplesIn(now), melody.nextFrequency(), length, random);
    now += length * draw(random, 0.92, 1.2);
  }
}

}  // namespace cli::demo
