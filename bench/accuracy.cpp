// How many recordings find their place, how many a wrong one, how exactly, how surely, and what it
// costs: over rendered events whose truth is known. The vote's tests and the full placement are
// measured on the same sound in one run.
//
// Usage: accuracy [--sounds FOLDER] [--seeds FIRST LAST] [--tolerance X]... [--list]
//                 [--no-devices] [SET]...
// --list shows every recording that stands wrong or alone; with --no-devices nobody says which
// recordings are of one device.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <string>

#include "analysis/fingerprint.h"
#include "bench/events/sets.h"
#include "bench/score.h"
#include "matching/placement.h"
#include "matching/shortlist.h"
#include "matching/vote_pairs.h"

namespace {

using namespace events;

/// Seconds of processor time, of all threads together: other programs hardly disturb them.
double processorSeconds() { return double(std::clock()) / CLOCKS_PER_SEC; }

struct Options {
  std::string sounds = "build/sounds";
  unsigned firstSeed = 1, lastSeed = 2;
  std::vector<float> tolerances;
  std::vector<std::string> sets;
  bool list = false, devices = true;
};

/// One set as the placement sees it.
struct Rendered {
  Set set;
  std::vector<std::vector<float>> sounds;
  std::vector<matching::Recording> recordings;
  Eigen::VectorXf durations;
  std::vector<std::vector<int>> deviceGroups;
};

Rendered rendered(const std::string& name, unsigned seed, bool knowDevices,
                  const SoundLibrary& library) {
  Random random(seed);
  Rendered r;
  r.set = makeSet(name, random);
  r.sounds = renderAll(r.set, library, random);
  std::map<int, std::vector<int>> devices;
  r.durations.resize(Eigen::Index(r.sounds.size()));
  for (std::size_t i = 0; i < r.sounds.size(); ++i) {
    const int device = knowDevices ? r.set.takes[i].device : -1;
    r.recordings.push_back({r.set.takes[i].name, std::int64_t(r.sounds[i].size()), device});
    r.durations(Eigen::Index(i)) = float(r.sounds[i].size() / 8000);
    if (knowDevices) devices[device].push_back(int(i));
  }
  for (auto& [device, files] : devices)
    if (files.size() > 1) r.deviceGroups.push_back(files);
  return r;
}

struct Voted {
  std::vector<matching::PairVote> votes;
  double fingerprintSeconds = 0, voteSeconds = 0;
};

Voted vote(const Rendered& r, float tolerance) {
  Voted voted;
  double start = processorSeconds();
  std::vector<analysis::MatrixXLI> prints(r.sounds.size());
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < prints.size(); ++i)
    prints[i] = analysis::fingerprint(r.sounds[i], tolerance);
  voted.fingerprintSeconds = processorSeconds() - start;
  start = processorSeconds();
  matching::votePairs(prints, r.durations, r.deviceGroups, 1,
                      [&](matching::PairVote v) { voted.votes.push_back(std::move(v)); });
  voted.voteSeconds = processorSeconds() - start;
  return voted;
}

// The vote alone: best offsets whether accepted or not, and what the two tests accept.
void printVotes(const Rendered& r, const Voted& voted,
                std::map<std::string, std::array<int, 2>>& totals) {
  for (const matching::PairVote& v : voted.votes) {
    if (!v.stats) continue;
    const Truth truth = truthOf(r.set, std::size_t(v.first), std::size_t(v.second));
    const bool right = truth.overlap > 0 && std::abs(v.stats->bestOffset - truth.offset) < kRight;
    if (truth.heard >= 5) ++totals["best offset"][right ? 0 : 1];
    if (v.accepted == matching::Acceptance::strict) ++totals["strict test"][right ? 0 : 1];
    if (v.accepted != matching::Acceptance::none) ++totals["test of mode 1"][right ? 0 : 1];
  }
}

Score placed(const Rendered& r, const Voted& voted, bool bySound, bool listing) {
  const matching::SoundReader reader = [&](int file, std::int64_t first, std::int64_t count) {
    const auto& sound = r.sounds[std::size_t(file)];
    std::vector<float> piece(std::size_t(count), 0.0f);
    const auto from = std::clamp<std::int64_t>(first, 0, std::ssize(sound));
    const auto to = std::clamp<std::int64_t>(first + count, from, std::ssize(sound));
    std::copy(sound.begin() + from, sound.begin() + to, piece.begin() + (from - first));
    return piece;
  };
  const double start = processorSeconds();
  matching::Shortlist shortlist(r.recordings.size());
  for (const matching::PairVote& vote : voted.votes) shortlist.add(vote);
  const auto votes = shortlist.take();  // as a run keeps them
  const auto placement = bySound ? matching::placeBySound(r.recordings, votes, reader)
                                 : matching::placeByVotes(r.recordings, votes);
  const double seconds = processorSeconds() - start;
  Score score = scoreOf(r.set, placement);
  score.seconds = seconds;
  if (listing) list(r.set, placement);
  return score;
}

Options parse(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--sounds" && i + 1 < argc) {
      options.sounds = argv[++i];
    } else if (word == "--seeds" && i + 2 < argc) {
      options.firstSeed = unsigned(std::atoi(argv[++i]));
      options.lastSeed = unsigned(std::atoi(argv[++i]));
    } else if (word == "--tolerance" && i + 1 < argc) {
      options.tolerances.push_back(float(std::atof(argv[++i])));
    } else if (word == "--list") {
      options.list = true;
    } else if (word == "--no-devices") {
      options.devices = false;
    } else {
      options.sets.push_back(word);
    }
  }
  if (options.tolerances.empty()) options.tolerances = {0.99f};
  if (options.sets.empty()) options.sets = setNames();
  return options;
}

void measure(const Options& options, const SoundLibrary& library, float tolerance) {
  std::printf("tolerance %.3f, %s sound\n", double(tolerance),
              library.music.empty() ? "synthetic" : "real");
  std::map<std::string, std::array<int, 2>> votes;
  Score byVotes, bySound;
  double fingerprints = 0, voting = 0, hours = 0;
  for (const std::string& name : options.sets)
    for (unsigned seed = options.firstSeed; seed <= options.lastSeed; ++seed) {
      const Rendered r = rendered(name, seed, options.devices, library);
      const Voted voted = vote(r, tolerance);
      printVotes(r, voted, votes);
      byVotes.add(placed(r, voted, false, false));
      const Score score = placed(r, voted, true, options.list);
      print(name + ", seed " + std::to_string(seed), score);
      bySound.add(score);
      fingerprints += voted.fingerprintSeconds, voting += voted.voteSeconds;
      for (const auto& sound : r.sounds) hours += double(sound.size()) / 8000 / 3600;
    }
  std::printf("all sets: %.1f hours of sound, fingerprints %.2f s, votes %.2f s\n", hours,
              fingerprints, voting);
  for (const auto& [name, counts] : votes)
    std::printf("  vote, %-22s %4d right %4d wrong\n", name.c_str(), counts[0], counts[1]);
  print("placed by votes alone", byVotes);
  print("placed by sound", bySound);
  std::printf("  of 10 s or more at 5 dB or better: %d of %d pairs\n", bySound.clearFound,
              bySound.clearWanted);
  for (const auto& [tenth, counts] : bySound.calibration)
    std::printf("  confidence %.1f to %.1f: %d of %d right\n", tenth / 10.0, (tenth + 1) / 10.0,
                counts.first, counts.second);
}

}  // namespace

int main(int argc, char** argv) {
  const Options options = parse(argc, argv);
  const SoundLibrary library = loadLibrary(options.sounds);
  for (const float tolerance : options.tolerances) measure(options, library, tolerance);
}
