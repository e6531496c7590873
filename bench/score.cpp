#include "bench/score.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

namespace events {
namespace {

struct Standing {
  int group = -1;
  double offset = 0, confidence = 0;
  std::optional<double> error, drift;
};

std::vector<Standing> standings(const place::Placement& placement, std::size_t takes) {
  std::vector<Standing> all(takes);
  for (std::size_t g = 0; g < placement.groups.size(); ++g)
    for (const auto& m : placement.groups[g].members)
      all[std::size_t(m.file)] = {int(g), m.offsetSeconds, m.confidence, m.errorSeconds,
                                  m.driftPpm};
  return all;
}

}  // namespace

double quantile(std::vector<double> values, double q) {
  if (values.empty()) return 0;
  std::ranges::sort(values);
  return values[std::min(values.size() - 1, std::size_t(q * double(values.size())))];
}

namespace {

// How far off two recordings stand, in seconds; none where they are not together. Strangers are as
// far off as can be.
std::optional<double> errorBetween(const Set& set, const std::vector<Standing>& all, std::size_t i,
                                   std::size_t j) {
  if (all[i].group < 0 || all[i].group != all[j].group) return std::nullopt;
  if (set.takes[i].event != set.takes[j].event) return 1e9;
  return all[j].offset - all[i].offset - truthOf(set, i, j).offset;
}

/// How one recording stands against all others, those of its own device included.
struct Company {
  int right = 0, wrong = 0;
  int missed = 0;           // belong with it, but are not in its group
  double nearest = 1e9;     // seconds; the smallest error
  std::vector<double> off;  // seconds; from those that belong with it and stand right

  bool isRight() const { return right >= wrong; }
};

/// Which recordings hang together by pairs that belong together: the same number for all of them.
std::vector<int> parts(const std::vector<std::vector<std::size_t>>& belonging) {
  std::vector<int> part(belonging.size(), -1);
  for (std::size_t first = 0; first < part.size(); ++first) {
    std::vector<std::size_t> open{first};
    while (!open.empty()) {
      const std::size_t i = open.back();
      open.pop_back();
      if (part[i] >= 0) continue;
      part[i] = int(first);
      open.insert(open.end(), belonging[i].begin(), belonging[i].end());
    }
  }
  return part;
}

std::size_t limitOf(double confidence) {
  const auto above = std::ranges::upper_bound(kLimits, confidence);
  return std::size_t(std::max<std::ptrdiff_t>(1, above - kLimits.begin())) - 1;
}

/// Goes through the pairs of one set once.
class Scorer {
 public:
  Scorer(const Set& set, const place::Placement& placement)
      : set_(set),
        all_(standings(placement, set.takes.size())),
        companies_(all_.size()),
        belonging_(all_.size()) {
    score_.sets = 1, score_.recordings = int(all_.size());
    for (std::size_t i = 0; i < all_.size(); ++i)
      for (std::size_t j = i + 1; j < all_.size(); ++j) meet(i, j);
    countJoined();
    for (std::size_t i = 0; i < all_.size(); ++i) countRecording(i);
  }

  const Score& score() const { return score_; }
  const Company& company(std::size_t i) const { return companies_[i]; }
  const Standing& standing(std::size_t i) const { return all_[i]; }

 private:
  void meet(std::size_t i, std::size_t j) {
    const Truth truth = truthOf(set_, i, j);
    const auto error = errorBetween(set_, all_, i, j);
    const bool right = error && events::isRight(*error, truth);
    const bool others = set_.takes[i].device != set_.takes[j].device;
    const bool belong = others && belongTogether(set_, i, j);
    if (belong) belonging_[i].push_back(j), belonging_[j].push_back(i);
    for (const std::size_t k : {i, j}) {
      Company& company = companies_[k];
      if (error) ++(right ? company.right : company.wrong);
      if (error && std::abs(*error) < std::abs(company.nearest)) company.nearest = *error;
      if (!error) company.missed += belong;
      if (belong && right) company.off.push_back(*error);
    }
    if (others) countPair(i, j, truth, error, right, belong);
  }

  void countPair(std::size_t i, std::size_t j, const Truth& truth, std::optional<double> error,
                 bool right, bool belong) {
    const Take &a = set_.takes[i], &b = set_.takes[j];
    if (belong) score_.pairs.add(right);
    if (truth.heard >= 10 && std::min(a.microphone.snrDb, b.microphone.snrDb) >= 5)
      score_.clear.add(right);
    if (!error) return;
    score_.wrong += !right;
    score_.strangers += a.event != b.event;
    if (right && belong) score_.errors.push_back(std::abs(*error));
    if (right && truth.overlap >= 600 && all_[i].drift && all_[j].drift)
      score_.driftErrors.push_back(std::abs(*all_[j].drift - *all_[i].drift -
                                            b.microphone.driftPpm + a.microphone.driftPpm));
    const double sure = std::min(all_[i].confidence, all_[j].confidence);
    for (std::size_t k = 0; k < kLimits.size() && sure >= kLimits[k]; ++k)
      score_.limits[k].right += right && belong, score_.limits[k].wrong += !right;
  }

  void countJoined() {
    const std::vector<int> part = parts(belonging_);
    for (std::size_t i = 0; i < all_.size(); ++i)
      for (std::size_t j = i + 1; j < all_.size(); ++j) {
        if (part[i] != part[j] || set_.takes[i].device == set_.takes[j].device) continue;
        const auto error = errorBetween(set_, all_, i, j);
        score_.joined.add(error && events::isRight(*error, truthOf(set_, i, j)));
      }
  }

  void countRecording(std::size_t i) {
    if (all_[i].group < 0) return;
    const Company& company = companies_[i];
    const std::size_t limit = limitOf(all_[i].confidence);
    score_.promised[limit].add(company.isRight());
    score_.misplaced += !company.isRight();
    for (std::size_t k = 0; k <= limit; ++k) score_.limits[k].misplaced += !company.isRight();
    if (all_[i].error && company.isRight() && !company.off.empty()) {
      std::vector<double> off;
      for (const double o : company.off) off.push_back(std::abs(o));
      score_.errorHeld.add(quantile(off, 0.5) <= *all_[i].error);
    }
  }

  const Set& set_;
  std::vector<Standing> all_;
  std::vector<Company> companies_;
  std::vector<std::vector<std::size_t>> belonging_;
  Score score_;
};

void add(RightOf& to, const RightOf& from) { to.right += from.right, to.all += from.all; }

void append(std::vector<double>& to, const std::vector<double>& from) {
  to.insert(to.end(), from.begin(), from.end());
}

}  // namespace

void Score::add(const Score& other) {
  sets += other.sets, recordings += other.recordings, hours += other.hours;
  wrong += other.wrong, strangers += other.strangers, misplaced += other.misplaced;
  events::add(pairs, other.pairs), events::add(clear, other.clear);
  events::add(joined, other.joined), events::add(errorHeld, other.errorHeld);
  append(errors, other.errors), append(driftErrors, other.driftErrors);
  for (std::size_t k = 0; k < kLimits.size(); ++k) {
    limits[k].right += other.limits[k].right, limits[k].wrong += other.limits[k].wrong;
    limits[k].misplaced += other.limits[k].misplaced;
    events::add(promised[k], other.promised[k]);
  }
  fingerprintSeconds += other.fingerprintSeconds;
  voteSeconds += other.voteSeconds, placeSeconds += other.placeSeconds;
}

Score scoreOf(const Set& set, const place::Placement& placement) {
  return Scorer(set, placement).score();
}

std::string list(const Set& set, const place::Placement& placement) {
  const Scorer scorer(set, placement);
  std::string text;
  for (std::size_t i = 0; i < set.takes.size(); ++i) {
    const Company& company = scorer.company(i);
    if (company.wrong == 0 && (company.missed == 0 || company.right > 0)) continue;
    const Take& take = set.takes[i];
    char line[200];
    std::snprintf(line, sizeof line,
                  "    %-22s %5.1f s at %.0f dB%s%s: right %d wrong %d missed %d",
                  take.name.c_str(), take.lengthSeconds, take.microphone.snrDb,
                  take.microphone.babble ? " babble" : "", take.microphone.wind ? " wind" : "",
                  company.right, company.wrong, company.missed);
    text += line;
    std::snprintf(line, sizeof line, ", off by %.2f s, confidence %.2f", company.nearest,
                  scorer.standing(i).confidence);
    if (company.wrong) text += line;
    text += "\n";
  }
  return text;
}

}  // namespace events
