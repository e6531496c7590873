#include "bench/score_text.h"

#include <cstdio>
#include <nlohmann/json.hpp>

namespace events {
namespace {

template <class... Values>
std::string format(const char* pattern, Values... values) {
  char text[400];
  std::snprintf(text, sizeof text, pattern, values...);
  return text;
}

double largest(const std::vector<double>& values) { return quantile(values, 1); }

nlohmann::json pairOf(const RightOf& counts) { return {counts.right, counts.all}; }

}  // namespace

std::string heads() {
  return format("%-20s %5s %5s %5s %5s %5s %7s %5s %5s   %6s %6s %7s  %5s  %7s %6s %7s\n", "",
                "files", "pairs", "right", "miss", "wrong", "via grp", "mispl", "str'r", "median",
                "95 %", "max ms", "drift", "prints", "votes", "place s");
}

std::string row(const std::string& name, const Score& s) {
  const double via = s.joined.all ? 100.0 * s.joined.right / s.joined.all : 100;
  std::string text =
      format("%-20s %5d %5d %5d %5d %5d %5.1f %% %5d %5d   %6.2f %6.2f %7.2f ", name.c_str(),
             s.recordings, s.pairs.all, s.pairs.right, s.pairs.all - s.pairs.right, s.wrong, via,
             s.misplaced, s.strangers, 1e3 * quantile(s.errors, 0.5),
             1e3 * quantile(s.errors, 0.95), 1e3 * largest(s.errors));
  text += s.driftErrors.empty() ? "     -" : format(" %5.2f", largest(s.driftErrors));
  return text +
         format("  %7.2f %6.2f %7.2f\n", s.fingerprintSeconds, s.voteSeconds, s.placeSeconds);
}

std::string promises(const Score& s) {
  std::string text;
  for (std::size_t k = 0; k < kLimits.size(); ++k) {
    const auto& at = s.limits[k];
    text += format("  confidence of %.2f or more: %5d of %d pairs right, %d wrong, %d misplaced\n",
                   kLimits[k], at.right, s.pairs.all, at.wrong, at.misplaced);
  }
  for (std::size_t k = 0; k < kLimits.size(); ++k)
    text += format("  given %.2f to %.2f: %5d of %d recordings right\n", kLimits[k],
                   k + 1 < kLimits.size() ? kLimits[k + 1] : 1.0, s.promised[k].right,
                   s.promised[k].all);
  text += format("  `error` holds what is off: %d of %d\n", s.errorHeld.right, s.errorHeld.all);
  return text + format("  of 10 s or more at 5 dB or better: %d of %d pairs right\n", s.clear.right,
                       s.clear.all);
}

std::string jsonLine(const std::map<std::string, std::string>& labels, const Score& s) {
  nlohmann::ordered_json line;
  for (const auto& [name, value] : labels) line[name] = value;
  line["sets"] = s.sets, line["recordings"] = s.recordings, line["hours"] = s.hours;
  line["pairs"] = pairOf(s.pairs), line["clear"] = pairOf(s.clear);
  line["joined"] = pairOf(s.joined), line["wrong"] = s.wrong;
  line["strangers"] = s.strangers, line["misplaced"] = s.misplaced;
  line["error_ms"] = {1e3 * quantile(s.errors, 0.5), 1e3 * quantile(s.errors, 0.95),
                      1e3 * largest(s.errors)};
  line["drift_ppm"] = largest(s.driftErrors);
  for (std::size_t k = 0; k < kLimits.size(); ++k) {
    const auto& at = s.limits[k];
    line["limits"].push_back({{"from", kLimits[k]},
                              {"right", at.right},
                              {"wrong", at.wrong},
                              {"misplaced", at.misplaced},
                              {"promised", pairOf(s.promised[k])}});
  }
  line["error_held"] = pairOf(s.errorHeld);
  line["cpu"] = {
      {"prints", s.fingerprintSeconds}, {"votes", s.voteSeconds}, {"place", s.placeSeconds}};
  return line.dump() + "\n";
}

}  // namespace events
