#include "place/positions.h"

#include <Eigen/SparseCholesky>
#include <algorithm>
#include <cmath>
#include <map>

namespace place {
namespace {

constexpr double kLeastError = 0.0005;  // seconds; rooms and microphones allow no better
constexpr double kFar = 0.005;          // seconds off, from which a match counts less and less
constexpr double kKnownDrift = 3;       // parts in a million; a larger error says nothing useful
constexpr double kFarDrift = 2;         // the same, in parts in a million
constexpr int kRounds = 5;

struct Equation {
  int from, to;  // unknowns: value[to] - value[from] = difference
  double difference, error;
  bool varies = false;  // the error is no chance that others make up for
  double weight = 1;
};

// The normal equations: as large as there are equations, for no file is matched with all others.
// Unknown `fixed` is 0; one without an equation gets an error past all use.
class System {
 public:
  System(int unknowns, std::span<const Equation> equations, int fixed)
      : right_(Eigen::VectorXd::Zero(unknowns)) {
    for (int i = 0; i < unknowns; ++i) entries_.emplace_back(i, i, 1e-9);
    entries_.emplace_back(fixed, fixed, 1e12);
    for (const Equation& e : equations) add(e, e.weight / (e.error * e.error));
    Eigen::SparseMatrix<double> normal(unknowns, unknowns);
    normal.setFromTriplets(entries_.begin(), entries_.end());
    factors_.compute(normal);
  }

  Eigen::VectorXd solution() const { return factors_.solve(right_); }

  double varianceOf(int unknown) const {
    return factors_.solve(Eigen::VectorXd::Unit(right_.size(), unknown))(unknown);
  }

 private:
  void add(const Equation& e, double weight) {
    entries_.emplace_back(e.from, e.from, weight);
    entries_.emplace_back(e.to, e.to, weight);
    entries_.emplace_back(e.from, e.to, -weight);
    entries_.emplace_back(e.to, e.from, -weight);
    right_(e.to) += weight * e.difference;
    right_(e.from) -= weight * e.difference;
  }

  std::vector<Eigen::Triplet<double>> entries_;
  Eigen::VectorXd right_;
  Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> factors_;
};

// Equations that lie farther off than `far` lose their weight round by round.
Eigen::VectorXd robustSolution(int unknowns, std::vector<Equation>& equations, int fixed,
                               double far) {
  Eigen::VectorXd value;
  for (int round = 0; round < kRounds; ++round) {
    value = System(unknowns, equations, fixed).solution();
    for (Equation& e : equations) {
      const double off = std::abs(value(e.to) - value(e.from) - e.difference) / far;
      e.weight = 1 / (1 + off * off);
    }
  }
  return value;
}

/// Numbers the members of a group and their clocks from 0 on.
struct Numbering {
  std::map<int, int> member, clock;  // by file
  int clocks = 0;

  Numbering(std::span<const align::Recording> recordings, std::span<const int> members) {
    std::map<int, int> ofDevice;
    for (const int file : members) {
      member.emplace(file, static_cast<int>(member.size()));
      const int device = recordings[std::size_t(file)].device;
      const bool shared = device >= 0 && ofDevice.contains(device);
      clock[file] = shared ? ofDevice[device] : clocks++;
      if (device >= 0) ofDevice[device] = clock[file];
    }
  }
};

// The member that shares most time with the others: the group's clock and anchor.
int anchor(const Numbering& numbers, std::span<const align::Match> matches) {
  std::map<int, double> shared;
  for (const align::Match& m : matches) {
    shared[m.best.first] += m.best.overlapSeconds;
    shared[m.best.second] += m.best.overlapSeconds;
  }
  int best = numbers.member.begin()->first;
  for (const auto& [file, seconds] : shared)
    if (seconds > shared[best]) best = file;
  return best;
}

void solveDrift(const Numbering& numbers, std::span<const align::Match> matches, int reference,
                Positions& out) {
  std::vector<Equation> equations;
  for (const align::Match& m : matches)
    if (m.best.driftError > 0)
      equations.push_back({numbers.clock.at(m.best.first), numbers.clock.at(m.best.second),
                           m.best.driftPpm, std::max(0.05, m.best.driftError)});
  out.driftPpm.resize(numbers.member.size());
  if (equations.empty()) return;
  const int fixed = numbers.clock.at(reference);
  const Eigen::VectorXd drift = robustSolution(numbers.clocks, equations, fixed, kFarDrift);
  const System system(numbers.clocks, equations, fixed);
  for (const auto& [file, index] : numbers.member) {
    const int clock = numbers.clock.at(file);
    if (system.varianceOf(clock) < kKnownDrift * kKnownDrift)
      out.driftPpm[std::size_t(index)] = drift(clock);
  }
}

// A position's own error is that of its surest matches, not its distance from a far anchor. How far
// a carried device is off is no chance that many matches make up for; nor is it how far all matches
// of one that drifts, and cannot be stretched, lie from what they should be.
void estimateErrors(const Numbering& numbers, std::span<const Equation> equations, Positions& out) {
  struct Sum {
    double weights = 0, squares = 0, off = 0;  // sums over its matches
    int varying = 0, all = 0;
  };
  std::vector<Sum> sums(numbers.member.size());
  for (const Equation& e : equations) {
    const double off =
        out.seconds[std::size_t(e.to)] - out.seconds[std::size_t(e.from)] - e.difference;
    const double square = e.error * e.error + off * off;
    for (const int unknown : {e.from, e.to}) {
      Sum& sum = sums[std::size_t(unknown)];
      sum.weights += 1 / square;
      sum.squares += square;
      sum.off += off * off;
      sum.varying += e.varies;
      ++sum.all;
    }
  }
  for (const Sum& sum : sums) {
    const bool carried = 2 * sum.varying > sum.all;
    out.errorSeconds.push_back(sum.all == 0 ? 1.0
                               : carried    ? std::sqrt(sum.squares / sum.all)
                                            : std::sqrt(1 / sum.weights + sum.off / sum.all));
  }
}

// How often a file's second passes in a second of the group's clock.
double rateOf(const Positions& positions, int member) {
  return 1 + positions.driftPpm[std::size_t(member)].value_or(0) * 1e-6;
}

// What both hear in the middle of their overlap is one moment, whatever their clocks.
void solveOneClock(std::span<const align::Recording> recordings, const Numbering& numbers,
                   std::span<const align::Match> matches, int reference,
                   std::vector<Equation> equations, Positions& out) {
  for (std::size_t i = 0; i < equations.size(); ++i) {
    Equation& e = equations[i];
    const align::Alignment& best = matches[i].best;
    const double first = align::secondsOf(recordings[std::size_t(best.first)]);
    const double second = align::secondsOf(recordings[std::size_t(best.second)]);
    const double middle =
        (std::max(0.0, best.offsetSeconds) + std::min(first, best.offsetSeconds + second)) / 2;
    e.difference = middle / rateOf(out, e.from) - (middle - best.offsetSeconds) / rateOf(out, e.to);
    e.weight = 1;
  }
  const int fixed = numbers.member.at(reference);
  const auto count = static_cast<int>(out.seconds.size());
  const Eigen::VectorXd value = robustSolution(count, equations, fixed, kFar);
  const double origin = out.seconds[std::size_t(fixed)];
  for (int i = 0; i < count; ++i)
    out.oneClockShift.push_back(value(i) + origin - out.seconds[std::size_t(i)]);
}

}  // namespace

Positions solvePositions(std::span<const align::Recording> recordings, std::span<const int> members,
                         std::span<const align::Match> matches) {
  const Numbering numbers(recordings, members);
  const int reference = anchor(numbers, matches);
  std::vector<Equation> equations;
  for (const align::Match& m : matches)
    equations.push_back({numbers.member.at(m.best.first), numbers.member.at(m.best.second),
                         m.best.offsetSeconds, std::hypot(kLeastError, m.best.errorSeconds),
                         m.best.varies});
  const auto count = static_cast<int>(members.size());
  const Eigen::VectorXd value =
      robustSolution(count, equations, numbers.member.at(reference), kFar);
  Positions out;
  out.seconds.assign(value.begin(), value.end());
  const double earliest = std::ranges::min(out.seconds);
  for (double& s : out.seconds) s -= earliest;
  estimateErrors(numbers, equations, out);
  solveDrift(numbers, matches, reference, out);
  solveOneClock(recordings, numbers, matches, reference, equations, out);
  return out;
}

}  // namespace place
