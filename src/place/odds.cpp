#include "place/odds.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "place/odds_table.h"

namespace place {
namespace {

static_assert(kMatchWeights.size() == 1 + kFeatures + kFeatures * (kFeatures + 1) / 2,
              "one weight for every product");

double most(const auto& known, int file, int besides) {
  const auto found = known.find(file);
  return found == known.end() ? 0 : found->second.without(besides);
}

// The logarithm of a value as a share of another, kept to what was seen where the weights were
// fitted.
double share(double value, double of, double least, double greatest) {
  return std::clamp(std::log(std::max(value, 1e-3) / of), least, greatest);
}

// The most that another offset of the match weighs.
double weightBesides(std::span<const align::Alignment> all, std::size_t offset) {
  double most = 0;
  for (std::size_t i = 0; i < all.size(); ++i)
    if (i != offset) most = std::max(most, align::weightOf(all[i]));
  return most;
}

}  // namespace

void Odds::Most::add(double reached, int other) {
  if (other == with || reached > value) {
    if (other != with) next = value;
    value = std::max(value, reached), with = other;
  } else {
    next = std::max(next, reached);
  }
}

Odds::Odds(std::span<const align::Match> matches) {
  for (const align::Match& m : matches) {
    if (m.best.copy) continue;
    const int first = m.best.first, second = m.best.second;
    strength_[first].add(m.best.strength, second);
    strength_[second].add(m.best.strength, first);
    distinct_[first].add(m.best.distinct, second);
    distinct_[second].add(m.best.distinct, first);
  }
  std::vector<double> strengths;
  for (const auto& [file, most] : strength_) strengths.push_back(most.value);
  if (strengths.empty()) return;
  const auto middle = strengths.begin() + std::ssize(strengths) / 2;
  std::ranges::nth_element(strengths, middle);
  typical_ = std::max(1.0, *middle);
}

double Odds::strengthElsewhere(int first, int second) const {
  return std::min(most(strength_, first, second), most(strength_, second, first));
}

std::vector<Features> Odds::features(const align::Match& match) const {
  const int first = match.best.first, second = match.best.second;
  const double strength = strengthElsewhere(first, second);
  const double distinct = std::min(most(distinct_, first, second), most(distinct_, second, first));
  const std::vector<align::Alignment> all = align::allOf(match);
  std::vector<Features> features;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const align::Alignment& a = all[i];
    const double other = weightBesides(all, i);
    const double height = std::max(1.0, a.strength), clear = std::max(1.0, a.distinct);
    features.push_back(
        {share(height, 10, -1.5, 1.2), share(clear, 2, -0.7, 1),
         double(a.support) / std::max(1, a.windows) - 1, share(a.overlapSeconds, 10, -1.5, 1.5),
         strength > 0 ? share(height, strength, -1.5, 0) : 0,
         distinct > 0 ? share(clear, distinct, -1, 0) : 0, strength > 0 ? 0.0 : 1.0,
         share(height, typical_, -1.5, 0.7), std::log(double(all.size())),
         other > 0 ? share(align::weightOf(a), other, -2, 2) : 2, a.logOdds > 0 ? 1.0 : 0.0,
         a.logOdds > 0 ? share(a.logOdds, 100, -1, 2) : 0, a.varies ? 1.0 : 0.0,
         std::clamp(a.spreadSeconds / std::max(1.0, a.overlapSeconds), 0.0, 1.0) - 0.6});
  }
  return features;
}

std::vector<double> Odds::of(const align::Match& match) const {
  std::vector<double> odds;
  for (const Features& offset : features(match)) {
    const std::vector<double> terms = products(offset);
    odds.push_back(std::inner_product(terms.begin(), terms.end(), kMatchWeights.begin(), 0.0));
  }
  return odds;
}

double Odds::ofSilence(int first, int second, double overlapSeconds) const {
  const double reached = strengthElsewhere(first, second);
  if (reached <= 0) return 0;
  const double heard = kHeardWeights[0] + kHeardWeights[1] * std::log(reached / 10) +
                       kHeardWeights[2] * std::log(overlapSeconds / 10);
  return -std::log1p(std::exp(heard)) - std::log1p(-kMatchedAnyway);
}

std::vector<double> products(const Features& features) {
  std::vector<double> terms{1};
  terms.insert(terms.end(), features.begin(), features.end());
  for (std::size_t i = 0; i < kFeatures; ++i)
    for (std::size_t j = i; j < kFeatures; ++j) terms.push_back(features[i] * features[j]);
  return terms;
}

}  // namespace place
