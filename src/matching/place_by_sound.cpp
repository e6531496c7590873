#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "matching/correlate.h"
#include "matching/group.h"
#include "matching/matches.h"
#include "matching/offset_forest.h"
#include "matching/placement.h"
#include "matching/positions.h"
#include "matching/search.h"

namespace matching {
namespace {

constexpr int kBatch = 32;          // pairs examined at once; fixed, so that threads change nothing
constexpr double kSuspicious = 8;   // significance of a vote's peak from which it is listened to
constexpr double kWorthTrying = 4;  // the same where there are few pairs
constexpr int kSmallSet = 12;       // recordings; in smaller sets every pair is worth its time
constexpr int kEnough = 3;          // matches of a recording, after which more add little
// Music that repeats fits at wrong offsets too, up to a strength of 14; weaker matches than this
// count, but do not end the search for a better one.
constexpr double kSure = 18;
constexpr double kConfirms = 0.3;       // seconds; a suspicion so near speaks for a known position
constexpr int kMostTries = 12;          // in vain, for two recordings; the search then goes on
constexpr double kSearchShare = 8;      // the search may read every second of sound so often ...
constexpr double kSearchFloor = 14400;  // ... and this many seconds in any case
constexpr int kMostPartners = 40;       // of one lonely recording in the search
constexpr double kImpliedOverlap = 6;   // seconds two members must share to be worth a look
constexpr double kPadding = 0.010;      // seconds; shorter overlaps on a device are moved apart

/// What is known while a placement is worked out.
class Placer {
 public:
  Placer(std::span<const Recording> recordings, std::span<const PairVote> votes,
         const SoundReader& sound, const PlacementProgress& progress)
      : recordings_(recordings),
        votes_(votes),
        sound_(sound),
        progress_(progress),
        connected_(static_cast<int>(recordings.size())),
        matchCount_(recordings.size(), 0),
        partners_(recordings.size(), 0),
        tries_(recordings.size(), 0) {}

  Placement place() {
    listen(votedSuspicions());
    std::ranges::fill(tries_, 0);
    searchForLonely();
    listen(impliedSuspicions(formGroups(recordings_, matches_)));
    return result(formGroups(recordings_, matches_));
  }

 private:
  double seconds(int file) const {
    return double(recordings_[std::size_t(file)].samples) / kSampleRate;
  }
  bool cancelled() const { return progress_.cancelled && progress_.cancelled(); }
  bool sameDevice(int a, int b) const {
    const int device = recordings_[std::size_t(a)].device;
    return device >= 0 && device == recordings_[std::size_t(b)].device;
  }
  bool comparable(int a, int b) const {
    return recordings_[std::size_t(a)].samples > 0 && recordings_[std::size_t(b)].samples > 0 &&
           !sameDevice(a, b);
  }
  bool small() const { return recordings_.size() <= kSmallSet; }

  std::vector<Suspicion> votedSuspicions() const {
    std::vector<Suspicion> all = suspicionsOf(votes_);
    std::erase_if(all, [&](const Suspicion& s) {
      return s.significance < (small() ? kWorthTrying : kSuspicious) ||
             !comparable(s.first, s.second);
    });
    return all;
  }

  // Recordings that are placed already need no more than some confirmation where they stand.
  bool wanted(const Suspicion& s) {
    const auto known = connected_.between(s.first, s.second);
    if (!known)
      return tries_[std::size_t(s.first)] < kMostTries ||
             tries_[std::size_t(s.second)] < kMostTries;
    if (small()) return true;
    const bool enough = matchCount_[std::size_t(s.first)] >= kEnough &&
                        matchCount_[std::size_t(s.second)] >= kEnough;
    return !enough && std::ranges::any_of(s.offsets, [&](double offset) {
      return std::abs(offset - *known) < kConfirms;
    });
  }

  void listen(std::vector<Suspicion> suspicions) {
    std::size_t next = 0;
    while (next < suspicions.size() && !cancelled()) {
      std::vector<const Suspicion*> batch;
      while (next < suspicions.size() && batch.size() < kBatch) {
        if (wanted(suspicions[next])) batch.push_back(&suspicions[next]);
        ++next;
      }
      examineBatch(batch);
      if (progress_.step)
        progress_.step(static_cast<int>(next), static_cast<int>(suspicions.size()));
    }
  }

  void examineBatch(std::span<const Suspicion* const> batch) {
    std::vector<std::optional<Match>> found(batch.size());
#pragma omp parallel for schedule(dynamic)
    for (std::size_t i = 0; i < batch.size(); ++i)
      if (!cancelled()) found[i] = examine(*batch[i], recordings_, sound_);
    for (std::size_t i = 0; i < batch.size(); ++i) {
      ++partners_[std::size_t(batch[i]->first)];
      ++partners_[std::size_t(batch[i]->second)];
      ++tries_[std::size_t(batch[i]->first)];
      ++tries_[std::size_t(batch[i]->second)];
      if (found[i]) add(std::move(*found[i]));
    }
  }

  void add(Match match) {
    const int a = match.best.first, b = match.best.second;
    if (match.best.strength >= kSure) {
      if (connected_.group(a) != connected_.group(b))
        connected_.join(a, b, match.best.offsetSeconds);
      ++matchCount_[std::size_t(a)];
      ++matchCount_[std::size_t(b)];
      tries_[std::size_t(a)] = tries_[std::size_t(b)] = 0;
    }
    if (linked_.insert(std::minmax(a, b)).second)
      matches_.push_back(std::move(match));
    else
      keepBetter(std::move(match));
  }

  // A pair that was listened to again: the better of both offsets leads, the other stays a rival.
  void keepBetter(Match match) {
    const auto known = std::ranges::find_if(matches_, [&](const Match& m) {
      return std::minmax(m.best.first, m.best.second) ==
             std::minmax(match.best.first, match.best.second);
    });
    if (weightOf(match.best) > weightOf(known->best)) std::swap(*known, match);
    known->rivals.push_back(match.best);
  }

  // Pairs that would connect what is not connected yet, the most promising first, as many as the
  // budget allows.
  std::vector<std::pair<int, int>> unconnectedPairs() {
    std::map<std::pair<int, int>, double> significance;
    for (const Suspicion& s : suspicionsOf(votes_))
      significance[std::minmax(s.first, s.second)] = s.significance;
    std::vector<std::pair<int, int>> pairs;
    const auto count = static_cast<int>(recordings_.size());
    for (int a = 0; a < count; ++a)
      for (int b = a + 1; b < count; ++b)
        if (comparable(a, b) && connected_.group(a) != connected_.group(b))
          pairs.emplace_back(a, b);
    const auto promise = [&](const std::pair<int, int>& p) {
      const auto known = significance.find(p);
      const bool lonely = !matchCount_[std::size_t(p.first)] || !matchCount_[std::size_t(p.second)];
      return std::tuple(lonely, known == significance.end() ? 0.0 : std::floor(known->second),
                        seconds(p.first) + seconds(p.second));
    };
    std::ranges::stable_sort(pairs, std::greater{}, promise);
    return withinBudget(pairs);
  }

  std::vector<std::pair<int, int>> withinBudget(std::span<const std::pair<int, int>> pairs) const {
    double budget = kSearchFloor;
    for (int file = 0; file < std::ssize(recordings_); ++file)
      budget += kSearchShare * seconds(file);
    std::vector<int> partners(recordings_.size(), 0);
    std::vector<std::pair<int, int>> chosen;
    for (const auto& [a, b] : pairs) {
      const double cost = seconds(a) + seconds(b);
      if (cost > budget ||
          std::min(partners[std::size_t(a)], partners[std::size_t(b)]) >= kMostPartners)
        continue;
      budget -= cost;
      ++partners[std::size_t(a)];
      ++partners[std::size_t(b)];
      chosen.emplace_back(a, b);
    }
    return chosen;
  }

  void searchForLonely() {
    TextureSearch search(recordings_, sound_);
    const auto pairs = unconnectedPairs();
    for (std::size_t at = 0; at < pairs.size() && !cancelled(); at += kBatch) {
      const auto batch =
          std::span(pairs).subspan(at, std::min<std::size_t>(kBatch, pairs.size() - at));
      std::vector<std::pair<int, int>> open;
      for (const auto& [a, b] : batch)
        if (connected_.group(a) != connected_.group(b)) open.emplace_back(a, b);
      listen(suspectAll(search, open));
    }
  }

  static std::vector<Suspicion> suspectAll(TextureSearch& search,
                                           std::span<const std::pair<int, int>> pairs) {
    std::vector<int> files;
    for (const auto& [a, b] : pairs) files.insert(files.end(), {a, b});
    search.prepare(files);
    std::vector<Suspicion> suspicions(pairs.size());
#pragma omp parallel for schedule(dynamic)
    for (std::size_t i = 0; i < pairs.size(); ++i)
      suspicions[i] = search.suspect(pairs[i].first, pairs[i].second);
    return suspicions;
  }

  // Members of a group that must hear the same by their positions, but were not compared: they
  // confirm a recording that hangs on one match.
  std::vector<Suspicion> impliedSuspicions(const Grouping& grouping) const {
    std::vector<Suspicion> implied;
    std::vector<int> asked(recordings_.size(), 0);
    for (const auto& members : grouping.members)
      for (const int a : members)
        for (const int b : members) {
          const double offset =
              grouping.position[std::size_t(b)] - grouping.position[std::size_t(a)];
          const double overlap = std::min(seconds(a), offset + seconds(b)) - std::max(0.0, offset);
          if (a == b || !comparable(a, b) || linked_.contains(std::minmax(a, b)) ||
              overlap < kImpliedOverlap || matchCount_[std::size_t(a)] > 1 ||
              asked[std::size_t(a)] >= kEnough)
            continue;
          ++asked[std::size_t(a)];
          implied.push_back({a, b, {offset}, overlap});
        }
    return implied;
  }

  Placement result(const Grouping& grouping) const {
    Placement placement;
    placement.doubts = grouping.doubts;
    for (std::size_t g = 0; g < grouping.members.size(); ++g)
      placement.groups.push_back(placedGroup(grouping, static_cast<int>(g)));
    std::ranges::sort(placement.groups, {}, [](const PlacedGroup& group) {
      const int first = std::ranges::min(group.members, {}, &Placed::file).file;
      return std::pair(-std::ssize(group.members), first);
    });
    for (int file = 0; file < std::ssize(recordings_); ++file)
      if (grouping.groupOf[std::size_t(file)] < 0 && recordings_[std::size_t(file)].samples > 0)
        placement.alone.push_back({file, tried(file)});
    return placement;
  }

  std::string tried(int file) const {
    const int count = partners_[std::size_t(file)];
    if (count == 0) return "There was nothing to compare it with.";
    return "Its sound was held against " + std::to_string(count) +
           (count == 1 ? " other recording" : " other recordings") +
           " at every offset that seemed possible; none fits along the whole overlap.";
  }

  PlacedGroup placedGroup(const Grouping& grouping, int index) const {
    const std::vector<int>& members = grouping.members[std::size_t(index)];
    std::vector<Match> matches;
    for (const Match& m : grouping.kept)
      if (grouping.groupOf[std::size_t(m.best.first)] == index) matches.push_back(m);
    const Positions positions = solvePositions(recordings_, members, matches);
    PlacedGroup group;
    for (std::size_t i = 0; i < members.size(); ++i) {
      Placed placed{
          members[i], positions.seconds[i], 0, positions.errorSeconds[i], positions.driftPpm[i],
          {}};
      describe(placed, matches);
      group.members.push_back(std::move(placed));
    }
    std::ranges::sort(group.members, {},
                      [](const Placed& p) { return std::pair(p.offsetSeconds, p.file); });
    moveDevicesApart(group);
    return group;
  }

  // With whom it was matched, and how surely all those matches together place it.
  static void describe(Placed& placed, std::span<const Match> matches) {
    std::vector<std::pair<double, int>> others;
    double wrong = 1;
    for (const Match& m : matches) {
      if (m.best.first != placed.file && m.best.second != placed.file) continue;
      others.emplace_back(-weightOf(m.best),
                          m.best.first == placed.file ? m.best.second : m.best.first);
      wrong *= 1 - m.best.confidence;
    }
    std::ranges::sort(others);
    for (const auto& [weight, file] : others) placed.matchedWith.push_back(file);
    placed.confidence = 1 - wrong;
  }

  // A device's files follow one another; by the estimates' errors they may overlap a little.
  void moveDevicesApart(PlacedGroup& group) const {
    std::map<int, Placed*> last;
    for (Placed& p : group.members) {
      const int device = recordings_[std::size_t(p.file)].device;
      if (device < 0) continue;
      if (Placed* before = last[device]) {
        const double overlap = before->offsetSeconds + seconds(before->file) - p.offsetSeconds;
        if (overlap > 0 && overlap < kPadding) p.offsetSeconds += overlap;
      }
      last[device] = &p;
    }
  }

  std::span<const Recording> recordings_;
  std::span<const PairVote> votes_;
  const SoundReader& sound_;
  const PlacementProgress& progress_;
  OffsetForest connected_;
  std::vector<int> matchCount_, partners_;  // per file
  std::vector<int> tries_;                  // per file, in vain since its last match
  std::set<std::pair<int, int>> linked_;    // pairs that matched
  std::vector<Match> matches_;
};

}  // namespace

Placement placeBySound(std::span<const Recording> recordings, std::span<const PairVote> votes,
                       const SoundReader& sound, const PlacementProgress& progress) {
  return Placer(recordings, votes, sound, progress).place();
}

}  // namespace matching
