// How many recordings find their place, how many a wrong one, how exactly, how surely, and what it
// costs: over rendered events whose truth is known. The votes alone and the full placement are
// measured on the same sound in one run.
//
// Usage: accuracy [--sounds FOLDER] [--cache FOLDER] [--seeds FIRST LAST] [--tolerance X]
//                 [--no-devices] [--list] [--each] [--json FILE] [--jobs N] [KIND]...
// --cache keeps rendered sets there for the next run; --no-devices: nobody says which recordings
// are of one device; --list shows every recording that stands wrong or alone; --each prints every
// set; --json appends one line per set. So many sets at a time as --jobs says, each in one thread;
// --jobs 1 measures one after the other with all threads. KIND is all but the longest if none is
// named.

#include <omp.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <map>
#include <string>

#include "analysis/fingerprint.h"
#include "bench/events/cache.h"
#include "bench/score.h"
#include "bench/score_text.h"
#include "place/placement.h"
#include "vote/shortlist.h"
#include "vote/vote_pairs.h"

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

/// Seconds of processor time, which other programs hardly disturb: of this thread where several
/// sets are measured at a time, of all threads otherwise.
double processorSeconds() {
  timespec time;
  clock_gettime(omp_in_parallel() ? CLOCK_THREAD_CPUTIME_ID : CLOCK_PROCESS_CPUTIME_ID, &time);
  return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}

/// One set as the placement sees it.
struct Shoot {
  RenderedSet rendered;
  std::vector<align::Recording> recordings;
  Eigen::VectorXf durations;
  std::vector<std::vector<int>> deviceGroups;
};

Shoot shootOf(RenderedSet rendered, bool knowDevices) {
  Shoot shoot{std::move(rendered), {}, {}, {}};
  const auto& [set, sounds] = shoot.rendered;
  std::map<int, std::vector<int>> devices;
  shoot.durations.resize(std::ssize(sounds));
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    const int device = knowDevices ? set.takes[i].device : -1;
    shoot.recordings.push_back({set.takes[i].name, std::ssize(sounds[i]), device});
    shoot.durations(Eigen::Index(i)) = float(sounds[i].size() / 8000);
    if (knowDevices) devices[device].push_back(int(i));
  }
  for (auto& [device, files] : devices)
    if (files.size() > 1) shoot.deviceGroups.push_back(files);
  return shoot;
}

std::vector<analysis::MatrixXLI> fingerprints(const Shoot& shoot, float tolerance) {
  const auto& sounds = shoot.rendered.sounds;
  std::vector<analysis::MatrixXLI> prints(sounds.size());
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < prints.size(); ++i)
    prints[i] = analysis::fingerprint(sounds[i], tolerance);
  return prints;
}

// The most significant votes, as a run keeps them.
std::vector<vote::PairVote> vote(const Shoot& shoot,
                                 const std::vector<analysis::MatrixXLI>& prints) {
  vote::Shortlist shortlist(shoot.recordings.size());
  vote::votePairs(prints, shoot.durations, shoot.deviceGroups, 1,
                  [&](vote::PairVote v) { shortlist.add(v); });
  return shortlist.take();
}

align::SoundReader readerOf(const Shoot& shoot) {
  return [&](int file, std::int64_t first, std::int64_t count) {
    const auto& sound = shoot.rendered.sounds[std::size_t(file)];
    std::vector<float> piece(std::size_t(count), 0.0f);
    const auto from = std::clamp<std::int64_t>(first, 0, std::ssize(sound));
    const auto to = std::clamp<std::int64_t>(first + count, from, std::ssize(sound));
    std::copy(sound.begin() + from, sound.begin() + to, piece.begin() + (from - first));
    return piece;
  };
}

/// What one set came to.
struct Result {
  Score byVotes, bySound;
  std::string list;
};

Result measured(const Shoot& shoot, float tolerance) {
  const double start = processorSeconds();
  const auto prints = fingerprints(shoot, tolerance);
  const double printed = processorSeconds();
  const auto votes = vote(shoot, prints);
  const double voted = processorSeconds();
  const auto placement = place::placeBySound(shoot.recordings, votes, readerOf(shoot));
  const double placed = processorSeconds();
  const Set& set = shoot.rendered.set;
  Result result{scoreOf(set, place::placeByVotes(shoot.recordings, votes)), scoreOf(set, placement),
                list(set, placement)};
  result.bySound.fingerprintSeconds = printed - start;
  result.bySound.voteSeconds = voted - printed;
  result.bySound.placeSeconds = placed - voted;
  for (const auto& sound : shoot.rendered.sounds)
    result.bySound.hours += double(sound.size()) / kRate / 3600;
  return result;
}

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
    const Shoot shoot = shootOf(render(kind, seed), options.devices);
    const Result result = measured(shoot, options.tolerance);
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
