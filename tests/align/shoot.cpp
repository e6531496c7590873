#include "tests/align/shoot.h"

#include <cmath>
#include <numbers>
#include <random>
#include <utility>

#include "align/listening.h"

namespace align {

std::vector<float> recorded(int event, double start, double seconds, double driftPpm, double noise,
                            double period) {
  constexpr double kBeat = 0.2;  // seconds from one change of the tones to the next
  constexpr int kTones = 12;
  std::vector<float> samples(static_cast<std::size_t>(seconds * kSampleRate));
  const double step = 1.0 / kSampleRate / (1 + driftPpm * 1e-6);
  std::mt19937 hiss(static_cast<unsigned>(1000 * start) + 7);
  std::normal_distribution<float> normal;
  std::vector<double> hertz(kTones);
  long beat = -1;
  for (std::size_t n = 0; n < samples.size(); ++n) {
    double t = start + double(n) * step;
    if (period > 0) t = std::fmod(t, period);
    if (const long now = static_cast<long>(t / kBeat); now != beat) {
      beat = now;
      std::mt19937 tones(static_cast<unsigned>(event * 100003 + beat));
      for (double& h : hertz) h = 200 + tones() % 3000;
    }
    const double phase = t - double(beat) * kBeat;
    double sum = 0;
    for (const double h : hertz) sum += std::sin(2 * std::numbers::pi * h * phase);
    sum *= std::sin(std::numbers::pi * phase / kBeat);
    samples[n] = static_cast<float>(0.02 * sum) + static_cast<float>(noise) * normal(hiss);
  }
  return samples;
}

void Shoot::add(std::string name, std::vector<float> sound, int device) {
  recordings.push_back({std::move(name), std::ssize(sound), device});
  sounds.push_back(std::move(sound));
}

SoundReader Shoot::reader() const {
  return [this](int file, std::int64_t first, std::int64_t count) {
    std::vector<float> piece(static_cast<std::size_t>(count), 0.0f);
    const auto& sound = sounds[static_cast<std::size_t>(file)];
    for (std::int64_t i = 0; i < count; ++i)
      if (first + i >= 0 && first + i < std::ssize(sound))
        piece[std::size_t(i)] = sound[std::size_t(first + i)];
    return piece;
  };
}

Alignment Shoot::verified(double offset) const {
  const SoundReader sound = reader();
  return Listening({0, 1, recordings[0].samples, recordings[1].samples}, offset, sound).exact();
}

std::vector<float> waiting(unsigned seed, double seconds, float deep) {
  std::mt19937 random(seed);
  std::normal_distribution<float> normal(0, 0.003f);
  std::vector<float> samples(static_cast<std::size_t>(seconds * kSampleRate));
  float last = 0;
  for (float& s : samples) s = last = deep * last + normal(random);
  return samples;
}

Match match(int first, int second, double offset, double strength, std::vector<double> rivals) {
  const auto alignment = [&](double at) {
    Alignment a{.first = first, .second = second, .offsetSeconds = at};
    a.strength = strength, a.distinct = 1 + strength / 20, a.support = a.windows = 10;
    a.overlapSeconds = 50, a.spreadSeconds = 45;
    return a;
  };
  Match m{alignment(offset), {}};
  for (const double rival : rivals) m.rivals.push_back(alignment(rival));
  return m;
}

std::vector<Recording> fourMinutesEach(std::vector<int> devices) {
  std::vector<Recording> recordings;
  for (const int device : devices)
    recordings.push_back({"file" + std::to_string(recordings.size()), 240 * kSampleRate, device});
  return recordings;
}

}  // namespace align
