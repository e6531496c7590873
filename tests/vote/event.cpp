#include "tests/vote/event.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace event {
namespace {

constexpr double kFrameSeconds = 0.024;
constexpr int kZeroRows = 5;

struct Landmark {
  double time;
  std::uint64_t hash;
};

/// A hash as speech and music give them: low bins and short distances are common.
std::uint64_t randomHash(std::mt19937& random) {
  const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
  const int f1 = std::min(below(191), below(191));
  const int f2 = std::clamp(f1 + below(61) - 30, 0, 191);
  const int dt = 1 + std::min(below(62), below(62));
  return static_cast<std::uint64_t>(f2 * 100 + f1) * 1'000'000 + dt;
}

std::vector<Landmark> randomLandmarks(double seconds, double rate, std::mt19937& random) {
  std::uniform_real_distribution<double> time(0, seconds);
  std::vector<Landmark> landmarks(static_cast<std::size_t>(seconds * rate));
  for (Landmark& landmark : landmarks) landmark = {time(random), randomHash(random)};
  return landmarks;
}

analysis::MatrixXLI toMatrix(std::vector<Landmark> landmarks) {
  landmarks.resize(landmarks.size() + kZeroRows, {0, 0});
  std::ranges::sort(landmarks, {}, &Landmark::hash);
  analysis::MatrixXLI rows(landmarks.size(), 2);
  for (Eigen::Index i = 0; i < rows.rows(); ++i) {
    rows(i, 0) = static_cast<std::uint64_t>(landmarks[i].time / kFrameSeconds);
    rows(i, 1) = landmarks[i].hash;
  }
  return rows;
}

}  // namespace

std::vector<analysis::MatrixXLI> fingerprints(const std::vector<Take>& takes, double rate,
                                              unsigned seed) {
  std::mt19937 random(seed);
  double end = 0;
  for (const Take& take : takes) end = std::max(end, take.start + take.seconds);
  const std::vector<Landmark> event = randomLandmarks(end, rate, random);
  std::vector<analysis::MatrixXLI> all;
  for (const Take& take : takes) {
    std::vector<Landmark> heard = randomLandmarks(take.seconds, take.noise, random);
    std::bernoulli_distribution hears(take.kept);
    for (const Landmark& landmark : event) {
      const double time = landmark.time - take.start;
      if (time >= 0 && time < take.seconds && hears(random)) heard.push_back({time, landmark.hash});
    }
    all.push_back(toMatrix(std::move(heard)));
  }
  return all;
}

}  // namespace event
