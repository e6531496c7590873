#include "bench/measure.h"

#include <omp.h>

#include <algorithm>
#include <ctime>
#include <map>

#include "analysis/fingerprint.h"
#include "place/pair_search.h"
#include "place/placement.h"
#include "vote/shortlist.h"
#include "vote/vote_pairs.h"

namespace events {
namespace {

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

}  // namespace

Result measured(RenderedSet rendered, bool knowDevices, float tolerance) {
  const Shoot shoot = shootOf(std::move(rendered), knowDevices);
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

Listened listenedTo(RenderedSet rendered, bool knowDevices) {
  constexpr float kTolerance = 0.99f;
  const Shoot shoot = shootOf(std::move(rendered), knowDevices);
  const auto votes = vote(shoot, fingerprints(shoot, kTolerance));
  const align::SoundReader reader = readerOf(shoot);
  const place::PlacementProgress progress;
  const auto search = place::searched(shoot.recordings, votes, reader, progress);
  Listened listened{shoot.rendered.set, shoot.recordings, search.matches(), {}};
  const int files = int(shoot.recordings.size());
  for (int a = 0; a < files; ++a)
    for (int b = a + 1; b < files; ++b)
      if (search.heard(a, b)) listened.heard.emplace_back(a, b);
  return listened;
}

}  // namespace events
