#include "cli/demo/speech.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace cli::demo {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

/// A two-pole resonator: one formant of a vocal tract.
class Formant {
 public:
  Formant(double frequency, double bandwidth) {
    const double radius = std::exp(-std::numbers::pi * bandwidth / kRate);
    a1_ = 2 * radius * std::cos(kTurn * frequency / kRate);
    a2_ = -radius * radius;
    gain_ = 1 - a1_ - a2_;
  }
  double next(double in) {
    const double out = gain_ * in + a1_ * y1_ + a2_ * y2_;
    y2_ = y1_;
    return y1_ = out;
  }

 private:
  double a1_, a2_, gain_, y1_ = 0, y2_ = 0;
};

constexpr std::array<std::array<double, 3>, 7> kVowels = {{{730, 1090, 2440},
                                                           {530, 1840, 2480},
                                                           {270, 2290, 3010},
                                                           {570, 840, 2410},
                                                           {300, 870, 2240},
                                                           {640, 1190, 2390},
                                                           {440, 1020, 2240}}};

struct Voice {
  double pitch;  // Hz
  double size;   // factor on all formants
};

std::array<Formant, 3> tractOf(const Voice& voice, Random& random) {
  const auto& vowel = kVowels[random() % kVowels.size()];
  const auto formant = [&](int i) {
    const double bandwidth = 60.0 + 40 * i;
    return Formant(vowel[static_cast<std::size_t>(i)] * voice.size * draw(random, 0.95, 1.05),
                   bandwidth);
  };
  return {formant(0), formant(1), formant(2)};
}

/// The noise at a syllable's beginning: the hiss or burst of a consonant.
void addConsonant(Sound& sound, std::size_t first, Random& random) {
  const std::size_t length = samplesIn(draw(random, 0.02, 0.09));
  Formant hiss(draw(random, 1800, 3600), 900);
  const double level = draw(random, 0.05, 0.25);
  for (std::size_t i = 0; i < length && first + i < sound.size(); ++i) {
    const double shape =
        std::sin(std::numbers::pi * static_cast<double>(i) / static_cast<double>(length));
    sound[first + i] += static_cast<float>(hiss.next(draw(random, -1, 1)) * shape * level);
  }
}

void addVowel(Sound& sound, std::size_t first, double seconds, const Voice& voice, Random& random) {
  const std::size_t length = samplesIn(seconds);
  std::array<Formant, 3> tract = tractOf(voice, random);
  const double from = voice.pitch * draw(random, 0.85, 1.25), to = from * draw(random, 0.8, 1.15);
  const double level = draw(random, 0.5, 1.0);
  double phase = 1;
  for (std::size_t i = 0; i < length && first + i < sound.size(); ++i) {
    const double t = static_cast<double>(i) / static_cast<double>(length);
    phase += (from + (to - from) * t) / kRate;
    double value = phase >= 1 ? 9.0 : 0.0;
    if (phase >= 1) phase -= 1;
    for (Formant& formant : tract) value = formant.next(value);
    const double shape = std::min({1.0, t * 8, (1 - t) * 4});
    sound[first + i] += static_cast<float>(value * shape * level);
  }
}

}  // namespace

void addSpeech(Sound& sound, double begin, double end, Random& random) {
  const Voice voice{draw(random, 95, 210), draw(random, 0.92, 1.12)};
  double now = begin;
  while (now < end) {
    const int syllables = 4 + static_cast<int>(random() % 9);
    for (int i = 0; i < syllables && now < end; ++i) {
      const double length = draw(random, 0.09, 0.27);
      if (random() % 3 != 0) addConsonant(sound, samplesIn(now), random);
      addVowel(sound, samplesIn(now + 0.03), length, voice, random);
      now += length + draw(random, 0.02, 0.09);
    }
    now += draw(random, 0.25, 1.1);  // a breath
  }
}

}  // namespace cli::demo
