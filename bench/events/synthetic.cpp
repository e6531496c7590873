#include "bench/events/synthetic.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace events {

std::vector<float> syntheticSpeech(double seconds, Random& random) {
  std::vector<float> out(static_cast<std::size_t>(seconds * kStageRate));
  for (double t = uniform(random, 0, 0.5); t < seconds;) {
    const double length = uniform(random, 0.08, 0.28), pitch = uniform(random, 90, 240);
    const double formants[3] = {uniform(random, 250, 900), uniform(random, 900, 2300),
                                uniform(random, 2300, 3600)};
    const bool hiss = random() % 4 == 0;
    const auto first = static_cast<std::size_t>(t * kStageRate);
    const auto count = static_cast<std::size_t>(length * kStageRate);
    double phase = 0, y1[3] = {}, y2[3] = {};
    for (std::size_t i = 0; i < count && first + i < out.size(); ++i) {
      phase += pitch * (1 + 0.1 * std::sin(double(i) / 3000)) / kStageRate;
      double source = hiss ? uniform(random, -0.4, 0.4) : 0;
      if (!hiss && phase >= 1) source = 1, phase -= 1;
      double sum = 0;
      for (int k = 0; k < 3; ++k) {
        const double w = 2 * std::numbers::pi * formants[k] / kStageRate, r = 0.985 - 0.006 * k;
        const double y = source + 2 * r * std::cos(w) * y1[k] - r * r * y2[k];
        y2[k] = y1[k], y1[k] = y;
        sum += y / (k + 1);
      }
      const double envelope = std::sin(std::numbers::pi * double(i) / double(count));
      out[first + i] += static_cast<float>(0.02 * sum * envelope);
    }
    t += length + (random() % 8 == 0 ? uniform(random, 0.3, 1.5) : uniform(random, 0.0, 0.08));
  }
  return out;
}

std::vector<float> syntheticMusic(double seconds, Random& random) {
  std::vector<float> out(static_cast<std::size_t>(seconds * kStageRate));
  const double beat = uniform(random, 0.22, 0.5);
  for (double t = 0; t < seconds;
       t += beat * (random() % 3 == 0 ? 0.5 : 1) * uniform(random, 0.97, 1.03)) {
    const int voices = 1 + static_cast<int>(random() % 3);
    for (int v = 0; v < voices; ++v) {
      const double pitch = 110 * std::pow(2.0, double(random() % 36) / 12);
      const double decay = uniform(random, 2, 9), level = uniform(random, 0.03, 0.15);
      const auto first = static_cast<std::size_t>(t * kStageRate);
      for (std::size_t i = 0; i < kStageRate && first + i < out.size(); ++i) {
        const double s = double(i) / kStageRate;
        double sum = 0;
        for (int h = 1; h <= 6 && pitch * h < 7000; ++h)
          sum +=
              std::sin(2 * std::numbers::pi * pitch * h * s) / h * std::exp(-decay * s * h * 0.5);
        out[first + i] += static_cast<float>(level * sum * std::min(1.0, s * 200));
      }
    }
  }
  return out;
}

}  // namespace events
