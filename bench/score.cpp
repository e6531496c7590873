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
  std::optional<double> drift;
};

std::vector<Standing> standings(const matching::Placement& placement, std::size_t takes) {
  std::vector<Standing> all(takes);
  for (std::size_t g = 0; g < placement.groups.size(); ++g)
    for (const auto& m : placement.groups[g].members)
      all[std::size_t(m.file)] = {int(g), m.offsetSeconds, m.confidence, m.driftPpm};
  return all;
}

double quantile(std::vector<double> values, double q) {
  if (values.empty()) return 0;
  std::ranges::sort(values);
  return values[std::min(values.size() - 1, std::size_t(q * double(values.size())))];
}

// How much of a span lies in none of the others.
double outside(Span span, std::vector<Span> others) {
  std::ranges::sort(others, {}, &Span::from);
  double seconds = 0;
  for (const Span& other : others) {
    seconds += std::max(0.0, std::min(other.from, span.to) - span.from);
    span.from = std::max(span.from, other.to);
  }
  return seconds + std::max(0.0, span.to - span.from);
}

// The middle between the least and the most that b hears the event later than a.
double laterBy(const Take& a, const Take& b, double from, double to) {
  if (a.way.empty() && b.way.empty()) return 0;
  double least = 1e9, most = -1e9;
  for (double t = from; t <= std::max(from, to); t += 0.5) {
    const double later = lateness(b, t) - lateness(a, t);
    least = std::min(least, later), most = std::max(most, later);
  }
  return (least + most) / 2;
}

}  // namespace

Truth truthOf(const Set& set, std::size_t i, std::size_t j) {
  const Take &a = set.takes[i], &b = set.takes[j];
  const double from = std::max(a.startSeconds, b.startSeconds);
  const double to = std::min(a.startSeconds + a.lengthSeconds, b.startSeconds + b.lengthSeconds);
  const double middle = (from + to) / 2;
  const double onA = (middle - a.startSeconds) * (1 + a.microphone.driftPpm * 1e-6);
  const double onB = (middle - b.startSeconds) * (1 + b.microphone.driftPpm * 1e-6);
  if (a.event != b.event) return {-1, onA - onB, -1};
  const double offset = onA - onB - laterBy(a, b, from, to);
  std::vector<Span> silent = set.events[std::size_t(a.event)].pauses;
  for (const Take* take : {&a, &b})
    silent.insert(silent.end(), take->muted.begin(), take->muted.end());
  return {to - from, offset, outside({from, to}, silent)};
}

void Score::add(const Score& other) {
  wanted += other.wanted, found += other.found;
  clearWanted += other.clearWanted, clearFound += other.clearFound;
  misplaced += other.misplaced, strangers += other.strangers;
  seconds += other.seconds;
  errors.insert(errors.end(), other.errors.begin(), other.errors.end());
  driftErrors.insert(driftErrors.end(), other.driftErrors.begin(), other.driftErrors.end());
  for (const auto& [tenth, counts] : other.calibration) {
    calibration[tenth].first += counts.first;
    calibration[tenth].second += counts.second;
  }
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

// Recordings that do not meet are placed by others, whose clocks add up over the time between.
bool isRight(double error, const Truth& truth) {
  constexpr double kDrift = 120e-6;
  return std::abs(error) < kRight + kDrift * std::max(0.0, -truth.overlap);
}

/// How one recording stands against all others, those of its own device included.
struct Company {
  int right = 0, wrong = 0;
  int missed = 0;        // both hear 5 s or more, but are not in its group
  double nearest = 1e9;  // seconds; the smallest error
};

Company companyOf(const Set& set, const std::vector<Standing>& all, std::size_t i) {
  Company company;
  for (std::size_t j = 0; j < all.size(); ++j) {
    if (i == j) continue;
    const Truth truth = truthOf(set, i, j);
    if (const auto error = errorBetween(set, all, i, j)) {
      ++(isRight(*error, truth) ? company.right : company.wrong);
      if (std::abs(*error) < std::abs(company.nearest)) company.nearest = *error;
    } else if (set.takes[i].device != set.takes[j].device) {
      company.missed += truth.heard >= 5;
    }
  }
  return company;
}

}  // namespace

Score scoreOf(const Set& set, const matching::Placement& placement) {
  Score score;
  const auto all = standings(placement, set.takes.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    for (std::size_t j = i + 1; j < all.size(); ++j) {
      const Take &a = set.takes[i], &b = set.takes[j];
      if (a.device == b.device) continue;
      const Truth truth = truthOf(set, i, j);
      const auto error = errorBetween(set, all, i, j);
      const bool good = error && std::abs(*error) < kRight;
      if (truth.heard >= 5) ++score.wanted, score.found += good;
      if (truth.heard >= 10 && std::min(a.microphone.snrDb, b.microphone.snrDb) >= 5)
        ++score.clearWanted, score.clearFound += good;
      if (error && a.event != b.event) ++score.strangers;
      if (good && truth.heard >= 5) score.errors.push_back(std::abs(*error));
      if (good && truth.overlap >= 600 && all[i].drift && all[j].drift)
        score.driftErrors.push_back(std::abs(*all[j].drift - *all[i].drift - b.microphone.driftPpm +
                                             a.microphone.driftPpm));
    }
    if (all[i].group < 0) continue;
    const Company company = companyOf(set, all, i);
    const bool right = company.right >= company.wrong;
    score.misplaced += !right;
    auto& bin = score.calibration[std::min(9, int(all[i].confidence * 10))];
    bin.first += right;
    ++bin.second;
  }
  return score;
}

void list(const Set& set, const matching::Placement& placement) {
  const auto all = standings(placement, set.takes.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Company company = companyOf(set, all, i);
    if (company.wrong == 0 && (company.missed == 0 || company.right > 0)) continue;
    const Take& take = set.takes[i];
    std::printf("    %-22s %5.1f s at %.0f dB%s%s: right %d wrong %d missed %d", take.name.c_str(),
                take.lengthSeconds, take.microphone.snrDb, take.microphone.babble ? " babble" : "",
                take.microphone.wind ? " wind" : "", company.right, company.wrong, company.missed);
    if (company.wrong)
      std::printf(", off by %.2f s, confidence %.2f", company.nearest, all[i].confidence);
    std::printf("\n");
  }
}

void print(const std::string& name, const Score& s) {
  std::printf(
      "  %-28s %4d of %4d pairs  misplaced %d  strangers %d  error median %.2f 95%% %.2f max %.2f "
      "ms",
      name.c_str(), s.found, s.wanted, s.misplaced, s.strangers, 1e3 * quantile(s.errors, 0.5),
      1e3 * quantile(s.errors, 0.95), 1e3 * quantile(s.errors, 1));
  if (!s.driftErrors.empty()) std::printf("  drift within %.2f ppm", quantile(s.driftErrors, 1));
  std::printf("  %.2f s\n", s.seconds);
  std::fflush(stdout);
}

}  // namespace events
