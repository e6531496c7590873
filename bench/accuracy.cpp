// How many recordings find their place, how many a wrong one, how exactly, how surely, and what it
// costs: over rendered events whose truth is known. The votes alone and the full placement are
// measured on the same sound in one run.
//
// Usage: accuracy [--sounds FOLDER] [--cache FOLDER] [--seeds FIRST LAST] [--tolerance X]
//                 [--no-devices] [--list] [--each] [--json FILE] [--jobs N] [KIND]...
// --cache keeps rendered sets there for the next run; --no-devices: nobody says which recordings
// are of one device; --list shows every recording that stands wrong or alone; --each prints every
// set; --json appends one line per set. So many sets at a time as --jobs says, each in one thread;
// --jobs 1 measures one after the other with all threads. Every kind is
// measured if none is named.

#include <omp.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>

#include "bench/measure.h"
#include "bench/score_text.h"

namespace {

using namespace events;

struct Options {
  std::string sounds = "build/sounds", cache, json;
  unsigned firstSeed = 1, lastSeed = 2;
  float tolerance = 0.99f;
  std::vector<std::string> kinds;
  bool list = false, each = false, devices = true;
  int jobs = omp_get_max_threads();
};

/// The sums of all that is measured, told as it comes.
class Tally {
 public:
  explicit Tally(const Options& options) : options_(options) {
    if (options.each || options.list) std::printf("%s", heads().c_str());
  }

  void add(const std::string& kind, unsigned seed, const Result& result) {
    kinds_[kind].add(result.bySound);
    all_.add(result.bySound);
    byVotes_.add(result.byVotes);
    const std::string name = kind + " " + std::to_string(seed);
    if (options_.each || options_.list) std::printf("%s", row(name, result.bySound).c_str());
    if (options_.list) std::printf("%s", result.list.c_str());
    std::fflush(stdout);
    if (!options_.json.empty())
      std::ofstream(options_.json, std::ios::app)
          << jsonLine({{"set", kind},
                       {"seed", std::to_string(seed)},
                       {"devices", options_.devices ? "given" : "unknown"}},
                      result.bySound);
  }

  void print() const {
    std::printf("\nseeds %u to %u, devices %s, tolerance %.3f, %.1f hours of sound\n%s",
                options_.firstSeed, options_.lastSeed, options_.devices ? "given" : "unknown",
                double(options_.tolerance), all_.hours, heads().c_str());
    for (const std::string& kind : options_.kinds)
      std::printf("%s", row(kind, kinds_.at(kind)).c_str());
    std::printf("%s%s%s", row("all", all_).c_str(), row("all, by votes alone", byVotes_).c_str(),
                promises(all_).c_str());
  }

 private:
  const Options& options_;
  std::map<std::string, Score> kinds_;
  Score all_, byVotes_;
};

Options parse(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const auto value = [&] { return i + 1 < argc ? argv[++i] : ""; };
    if (word == "--sounds") {
      options.sounds = value();
    } else if (word == "--cache") {
      options.cache = value();
    } else if (word == "--json") {
      options.json = value();
    } else if (word == "--seeds") {
      options.firstSeed = unsigned(std::atoi(value()));
      options.lastSeed = unsigned(std::atoi(value()));
    } else if (word == "--tolerance") {
      options.tolerance = float(std::atof(value()));
    } else if (word == "--jobs") {
      options.jobs = std::max(1, std::atoi(value()));
    } else if (word == "--list") {
      options.list = true;
    } else if (word == "--each") {
      options.each = true;
    } else if (word == "--no-devices") {
      options.devices = false;
    } else {
      options.kinds.push_back(word);
    }
  }
  if (options.kinds.empty()) options.kinds = setNames();
  return options;
}

void measureAll(const Options& options) {
  std::vector<std::pair<std::string, unsigned>> work;
  for (const std::string& kind : options.kinds)
    for (unsigned seed = options.firstSeed; seed <= options.lastSeed; ++seed)
      work.push_back({kind, seed});
  Renderer render(options.sounds, options.cache);
  Tally tally(options);
#pragma omp parallel for schedule(dynamic) num_threads(options.jobs)
  for (std::size_t i = 0; i < work.size(); ++i) {
    const auto& [kind, seed] = work[i];
    const Result result = measured(render(kind, seed), options.devices, options.tolerance);
#pragma omp critical
    tally.add(kind, seed, result);
  }
  tally.print();
}

}  // namespace

int main(int argc, char** argv) {
  omp_set_max_active_levels(1);
  measureAll(parse(argc, argv));
}
