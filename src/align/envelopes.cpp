#include "align/envelopes.h"

#include <algorithm>

#include "align/resemblance.h"

namespace align {
namespace {

constexpr int kOffsets = 3, kMoreOffsets = 10, kRepetitions = 60;
constexpr double kRelated = 6;       // from here on the pair is related, perhaps repeatedly
constexpr double kStrong = 4.0;      // what chance rarely gives at the best of many offsets
constexpr double kOfTheBest = 0.4;   // offsets fainter than this share of the best are chance
constexpr double kAlike = 0.5;       // of the best; what repeats is rarely fainter
constexpr double kLeastOverlap = 4;  // seconds; two textures resemble each other in less anywhere
constexpr double kOfTheShorter = 0.75;

double leastOverlap(const Texture& a, const Texture& b) {
  return std::min(kLeastOverlap,
                  kOfTheShorter * double(std::min(a.cols(), b.cols())) / kTextureRate);
}

}  // namespace

Textures::Textures(std::span<const Recording> recordings, const SoundReader& sound)
    : recordings_(recordings), sound_(sound) {}

void Textures::prepare(std::span<const int> files) {
  std::vector<int> wanted;
  for (const int file : files)
    if (!textures_.contains(file) && std::ranges::find(wanted, file) == wanted.end())
      wanted.push_back(file);
  std::vector<Texture> made(wanted.size());
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < wanted.size(); ++i)
    made[i] = textureOf(sound_(wanted[i], 0, recordings_[std::size_t(wanted[i])].samples));
  for (std::size_t i = 0; i < wanted.size(); ++i) textures_[wanted[i]] = std::move(made[i]);
}

vote::Suspicion Textures::suspect(int first, int second) const {
  vote::Suspicion s{first, second, {}, 0};
  const Texture &a = textures_.at(first), &b = textures_.at(second);
  for (const Resemblance& r : resemblances(a, b, kMoreOffsets, leastOverlap(a, b))) {
    if (std::ssize(s.offsets) >= (s.significance < kRelated ? kOffsets : kMoreOffsets)) break;
    if (r.strength < std::max(kStrong, kOfTheBest * s.significance)) break;
    s.offsets.push_back(r.offsetSeconds);
    s.significance = std::max(s.significance, r.strength);
  }
  return s;
}

vote::Suspicion Textures::resembling(const vote::Suspicion& suspicion, double least) const {
  const Texture &a = textures_.at(suspicion.first), &b = textures_.at(suspicion.second);
  vote::Suspicion left{suspicion.first, suspicion.second, {}, 0};
  for (const double offset : suspicion.offsets) {
    const double resemblance = resemblanceAt(a, b, offset).value_or(least);
    if (resemblance < least) continue;
    left.offsets.push_back(offset);
    left.significance = std::max(left.significance, resemblance);
  }
  return left;
}

std::vector<Stretch> Textures::lively(int first, int second, double offsetSeconds) const {
  return livelyStretches(textures_.at(first), textures_.at(second), offsetSeconds);
}

std::vector<double> Textures::repetitions(int first, int second) const {
  std::vector<Resemblance> found;
  std::vector<double> offsets;
  const Texture &a = textures_.at(first), &b = textures_.at(second);
  for (const Resemblance& r : resemblances(a, b, kRepetitions, leastOverlap(a, b)))
    if (r.strength >= kStrong) found.push_back(r);
  for (const Resemblance& r : found)
    if (r.strength >= kAlike * found.front().strength) offsets.push_back(r.offsetSeconds);
  return offsets;
}

}  // namespace align
