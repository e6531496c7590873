// Fits what src/place/odds_table.h holds: the weights that turn what is known of a match into log
// odds, by maximum likelihood over sets whose truth is known, devices given and unknown. Prints the
// table.
//
// Usage: fit_odds [--sounds FOLDER] [--cache FOLDER] {[--seeds FIRST LAST] KIND...}...
// Seeds hold for the kinds after them.

#include <Eigen/Cholesky>
#include <Eigen/Core>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "bench/truth.h"
#include "place/odds.h"

namespace {

using namespace events;

constexpr double kMostOfASet = 200;  // matches; a thousand clips are not a thousand other shoots
constexpr double kRidge =
    6;  // keeps weights that little asks for near 0; 2 to 6 do as well on what had no part

/// Offsets or pairs, a row each. Rows of one `choice` exclude each other, and none may be right.
struct Table {
  std::vector<std::vector<double>> terms;
  std::vector<int> choice;
  std::vector<double> right, weight;

  int choices() const { return choice.empty() ? 0 : choice.back() + 1; }
  void add(std::vector<double> row, int of, bool isRight, double counts) {
    terms.push_back(std::move(row));
    choice.push_back(of);
    right.push_back(isRight ? 1 : 0);
    weight.push_back(counts);
  }
};

// Newton's method on the penalised likelihood of choosing what is right, or none.
Eigen::VectorXd fitted(const Table& table, double ridge) {
  const auto rows = Eigen::Index(table.terms.size()), terms = std::ssize(table.terms.at(0));
  Eigen::MatrixXd x(rows, terms);
  for (Eigen::Index i = 0; i < rows; ++i)
    x.row(i) = Eigen::Map<const Eigen::RowVectorXd>(table.terms[std::size_t(i)].data(), terms);
  const Eigen::Map<const Eigen::VectorXd> right(table.right.data(), rows),
      weight(table.weight.data(), rows);
  Eigen::VectorXd w = Eigen::VectorXd::Zero(terms);
  for (int round = 0; round < 30; ++round) {
    Eigen::VectorXd p = (x * w).array().min(30).max(-30).exp();
    Eigen::VectorXd all = Eigen::VectorXd::Ones(table.choices());
    for (Eigen::Index i = 0; i < rows; ++i) all(table.choice[std::size_t(i)]) += p(i);
    for (Eigen::Index i = 0; i < rows; ++i) p(i) /= all(table.choice[std::size_t(i)]);
    Eigen::MatrixXd curve = x.transpose() * (weight.cwiseProduct(p)).asDiagonal() * x;
    for (Eigen::Index i = 0, next; i < rows; i = next) {  // what excludes each other
      Eigen::VectorXd mean = Eigen::VectorXd::Zero(terms);
      for (next = i; next < rows && table.choice[std::size_t(next)] == table.choice[std::size_t(i)];
           ++next)
        mean += p(next) * x.row(next).transpose();
      curve.selfadjointView<Eigen::Lower>().rankUpdate(mean, -weight(i));
    }
    curve.diagonal().array() += ridge;
    const Eigen::VectorXd slope = x.transpose() * weight.cwiseProduct(right - p) - ridge * w;
    const Eigen::VectorXd step = curve.selfadjointView<Eigen::Lower>().ldlt().solve(slope);
    w += step * std::min(1.0, 3 / step.cwiseAbs().maxCoeff());
    if (step.cwiseAbs().maxCoeff() < 1e-4) break;
  }
  return w;
}

bool isRightOffset(const Set& set, const align::Alignment& a) {
  const Truth truth = truthOf(set, std::size_t(a.first), std::size_t(a.second));
  return truth.overlap > 0 && std::abs(a.offsetSeconds - truth.offset) < kRight;
}

class Fit {
 public:
  void add(const Listened& listened) {
    const place::Odds odds(listened.matches);
    const double counts = std::min(1.0, kMostOfASet / double(listened.matches.size()));
    std::set<std::pair<int, int>> matched;
    for (const align::Match& match : listened.matches) {
      matched.insert(std::minmax(match.best.first, match.best.second));
      const auto features = odds.features(match);
      const auto all = align::allOf(match);
      const int choice = matches_.choices();
      bool found = false;  // rivals may lie so near that both are right
      for (std::size_t i = 0; i < all.size(); ++i) {
        const bool right = !found && isRightOffset(listened.set, all[i]);
        found |= right;
        matches_.add(place::products(features[i]), choice, right, counts);
      }
    }
    addHeard(listened, odds, matched);
  }

  void print() const {
    const Eigen::VectorXd match = fitted(matches_, kRidge), heard = fitted(heard_, 1e-3);
    std::printf("%d matches, %d pairs that overlap\n", matches_.choices(), heard_.choices());
    for (Eigen::Index i = 0; i < match.size(); ++i)
      std::printf("%s%.3f,", i % 10 ? " " : "\n    ", match(i));
    std::printf("\nheard: %.3f, %.3f, %.3f\nmatched anyway: %.3f\n", heard(0), heard(1), heard(2),
                anyway_ / apart_);
  }

 private:
  void addHeard(const Listened& listened, const place::Odds& odds,
                const std::set<std::pair<int, int>>& matched) {
    const double counts = std::min(1.0, kMostOfASet / double(listened.heard.size()));
    for (const auto& [a, b] : listened.heard) {
      const double reached = odds.strengthElsewhere(a, b);
      if (reached <= 0) continue;
      const Truth truth = truthOf(listened.set, std::size_t(a), std::size_t(b));
      const bool found = matched.contains({a, b});
      if (truth.overlap > 2)
        heard_.add({1, std::log(reached / 10), std::log(truth.overlap / 10)}, heard_.choices(),
                   found, counts);
      else
        apart_ += counts, anyway_ += found * counts;
    }
  }

  Table matches_, heard_;
  double apart_ = 1e-9, anyway_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
  std::string sounds = "build/sounds", cache;
  unsigned first = 3, last = 5;
  Fit fit;
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    if (argument == "--sounds") {
      sounds = arguments[++i];
    } else if (argument == "--cache") {
      cache = arguments[++i];
    } else if (argument == "--seeds") {
      first = unsigned(std::atoi(arguments[++i])), last = unsigned(std::atoi(arguments[++i]));
    } else {
      Renderer render(sounds, cache);
      for (unsigned seed = first; seed <= last; ++seed)
        for (const bool knowDevices : {true, false})
          fit.add(listenedTo(render(argument, seed), knowDevices));
    }
  }
  fit.print();
}
