#include "place/pair_search.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <map>

#include "place/search_plan.h"
#include "report/parallel.h"

namespace place {
namespace {

constexpr std::size_t kBatch = 32;  // pairs examined at once; fixed, so that threads change nothing
constexpr double kPromising = 4;    // significance of a vote's peak from which it is listened to
constexpr std::size_t kPatience =
    48;  // pairs in a row without a match, after which the listening ends ...
constexpr std::size_t kMorePatience = 4;  // ... or so many times fewer than there are recordings
constexpr std::size_t kSearched =
    256;  // pairs whose envelopes are searched before any is listened to
constexpr std::size_t kSmallSet = 12;  // recordings; in smaller sets every pair is worth its time
constexpr int kEnough = 2;             // sure matches of a recording, after which more add little
constexpr double kSureIfUnique = 10;   // strength enough where the sound fits at one offset only
constexpr double kMuchAlike = 4.5;     // resemblance of envelopes that chance hardly ever gives
constexpr double kConfirms = 0.3;      // seconds; a candidates so near speaks for a known position
constexpr double kImpliedOverlap = 6;  // seconds two members must share to be worth a look

std::vector<int> filesOf(std::span<const std::pair<int, int>> pairs) {
  std::vector<int> files;
  for (const auto& [a, b] : pairs) files.insert(files.end(), {a, b});
  return files;
}

// Other matches count too, but do not end the search for a better one.
bool sure(const align::Match& match) {
  const align::Alignment& a = match.best;
  if (a.strength >= align::kPastRepetition) return true;
  return match.rivals.empty() && a.strength >= kSureIfUnique && align::nearlyEverywhere(a);
}

}  // namespace

PairSearch::PairSearch(std::span<const align::Recording> recordings,
                       const align::SoundReader& sound, const PlacementProgress& progress)
    : recordings_(recordings),
      sound_(sound),
      progress_(progress),
      envelopes_(recordings, sound),
      connected_(static_cast<int>(recordings.size())),
      matchCount_(recordings.size(), 0) {}

bool PairSearch::small() const { return recordings_.size() <= kSmallSet; }

bool PairSearch::cancelled() const { return progress_.cancelled && progress_.cancelled(); }

std::vector<int> PairSearch::partners() const {
  std::vector<int> count(recordings_.size(), 0);
  for (const auto& [a, b] : heard_) ++count[std::size_t(a)], ++count[std::size_t(b)];
  return count;
}

void PairSearch::standBy(const Grouping& grouping) {
  connected_ = OffsetForest(static_cast<int>(recordings_.size()));
  for (const auto& members : grouping.members)
    for (const int file : std::span(members).subspan(1))
      connected_.join(
          members[0], file,
          grouping.position[std::size_t(file)] - grouping.position[std::size_t(members[0])]);
}

void PairSearch::followVotes(std::span<const vote::PairCandidates> candidates) {
  std::vector<vote::PairCandidates> promising;
  std::ranges::copy_if(candidates, std::back_inserter(promising),
                       [&](const vote::PairCandidates& s) {
                         return s.significance >= kPromising && !heard(s.first, s.second) &&
                                align::comparable(recordings_, s.first, s.second);
                       });
  listen(promising, align::examine, patience());
}

std::size_t PairSearch::patience() const {
  return std::max(kPatience, recordings_.size() / kMorePatience);
}

// Listens to the candidates that could bring anything, in their order, until too many in a row
// brought nothing: the likeliest come first, so what is right stands close together.
void PairSearch::listen(std::span<const vote::PairCandidates> candidates, Examine& examine,
                        std::size_t patience) {
  std::size_t next = 0, inVain = 0;
  while (next < candidates.size() && inVain < patience && !cancelled()) {
    std::vector<const vote::PairCandidates*> batch;
    for (; next < candidates.size() && batch.size() < kBatch; ++next)
      if (wanted(candidates[next])) batch.push_back(&candidates[next]);
    const bool brought = examineAll(batch, examine);
    inVain = brought ? 0 : inVain + batch.size();
    if (progress_.step) progress_.step(static_cast<int>(next), static_cast<int>(candidates.size()));
  }
}

// Recordings that are placed already need no more than some confirmation where they stand.
bool PairSearch::wanted(const vote::PairCandidates& s) {
  const auto known = connected_.between(s.first, s.second);
  if (!known || small()) return true;
  const bool enough =
      matchCount_[std::size_t(s.first)] >= kEnough && matchCount_[std::size_t(s.second)] >= kEnough;
  return !enough && std::ranges::any_of(s.offsets, [&](double offset) {
    return std::abs(offset - *known) < kConfirms;
  });
}

// Whether it brought a match that is no mere repetition.
bool PairSearch::examineAll(std::span<const vote::PairCandidates* const> batch, Examine& examine) {
  std::vector<int> files;
  for (const vote::PairCandidates* s : batch) files.insert(files.end(), {s->first, s->second});
  envelopes_.prepare(files);
  std::vector<std::optional<align::Match>> found(batch.size());
  report::FirstException failed;
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < batch.size(); ++i)
    failed.keep([&] {
      if (!cancelled()) found[i] = examine(*batch[i], recordings_, sound_, envelopes_);
    });
  failed.rethrow();
  for (const vote::PairCandidates* s : batch) heard_.insert(std::minmax(s->first, s->second));
  bool brought = false;
  for (std::size_t i = 0; i < batch.size(); ++i) {
    if (found[i]) {
      brought |= found[i]->rivals.empty();
      add(std::move(*found[i]));
    } else if (auto like = envelopes_.resembling(*batch[i], kMuchAlike); !like.offsets.empty())
      silent_.push_back(std::move(like));
  }
  return brought;
}

void PairSearch::add(align::Match match) {
  const int a = match.best.first, b = match.best.second;
  if (sure(match)) {
    if (connected_.group(a) != connected_.group(b)) connected_.join(a, b, match.best.offsetSeconds);
    ++matchCount_[std::size_t(a)];
    ++matchCount_[std::size_t(b)];
  }
  if (matched_.insert(std::minmax(a, b)).second)
    matches_.push_back(std::move(match));
  else
    keepBetter(std::move(match));
}

// A pair that was listened to again, perhaps the other way round: the better of both offsets leads,
// and the other, if it is another, stays a rival.
void PairSearch::keepBetter(align::Match match) {
  const auto known = std::ranges::find_if(matches_, [&](const align::Match& m) {
    return std::minmax(m.best.first, m.best.second) ==
           std::minmax(match.best.first, match.best.second);
  });
  if (match.best.first != known->best.first) match = align::mirrored(std::move(match));
  if (align::weightOf(match.best) > align::weightOf(known->best)) std::swap(*known, match);
  if (!align::sameOffset(match.best, known->best)) known->rivals.push_back(match.best);
}

void PairSearch::search(std::span<const vote::PairCandidates> candidates) {
  const auto pairs = searchPlan(recordings_, candidates, connected_, matchCount_);
  const std::size_t atOnce = std::max(kSearched, recordings_.size());
  for (std::size_t at = 0; at < pairs.size() && !cancelled(); at += atOnce) {
    const std::size_t before = matches_.size();
    auto found =
        envelopeCandidates(std::span(pairs).subspan(at, std::min(atOnce, pairs.size() - at)));
    std::ranges::stable_sort(found, std::greater{}, &vote::PairCandidates::significance);
    listen(found, align::examine, patience());
    if (matches_.size() == before) break;
  }
}

void PairSearch::listenFaintly() {
  std::vector<vote::PairCandidates> silent = std::move(silent_);
  std::ranges::stable_sort(silent, std::greater{}, &vote::PairCandidates::significance);
  std::vector<double> most(recordings_.size(), 0.0);  // strength with any other
  for (const align::Match& m : matches_)
    for (const int file : {m.best.first, m.best.second})
      most[std::size_t(file)] = std::max(most[std::size_t(file)], m.best.strength);
  std::erase_if(silent, [&](const vote::PairCandidates& s) {
    return connected_.group(s.first) == connected_.group(s.second) ||
           std::min(most[std::size_t(s.first)], most[std::size_t(s.second)]) >=
               align::kPastRepetition;
  });
  listen(silent, align::examineFaintly, patience());
}

std::vector<vote::PairCandidates> PairSearch::envelopeCandidates(
    std::span<const std::pair<int, int>> pairs) {
  envelopes_.prepare(filesOf(pairs));
  std::vector<vote::PairCandidates> candidates(pairs.size());
  report::FirstException failed;
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < pairs.size(); ++i)
    failed.keep([&] {
      if (!cancelled()) candidates[i] = envelopes_.candidates(pairs[i].first, pairs[i].second);
    });
  failed.rethrow();
  return candidates;
}

// A repetition shows itself by other offsets at which the sound fits as well.
void PairSearch::addOtherOffsets(std::span<vote::PairCandidates> candidates) {
  std::vector<std::pair<int, int>> pairs;
  for (const vote::PairCandidates& s : candidates) pairs.emplace_back(s.first, s.second);
  const std::vector<vote::PairCandidates> others = envelopeCandidates(pairs);
  for (std::size_t i = 0; i < candidates.size(); ++i)
    std::ranges::copy(others[i].offsets, std::back_inserter(candidates[i].offsets));
}

bool PairSearch::testJoins(const Grouping& grouping) {
  connected_ = OffsetForest(static_cast<int>(recordings_.size()));
  std::vector<vote::PairCandidates> implied;
  for (const Implied& pair : grouping.untested)
    if (!heard(pair.first, pair.second))
      implied.push_back({pair.first, pair.second, {pair.offsetSeconds}, pair.overlapSeconds});
  addOtherOffsets(implied);
  listen(implied, align::examine, implied.size() + 1);
  return !implied.empty();
}

void PairSearch::confirm(const Grouping& grouping) {
  std::vector<vote::PairCandidates> implied;
  std::vector<int> asked(recordings_.size(), 0);
  for (const auto& members : grouping.members)
    for (const int a : members)
      for (const int b : members) {
        const double offset = grouping.position[std::size_t(b)] - grouping.position[std::size_t(a)];
        const double overlap =
            align::overlapAt(offset, recordings_[std::size_t(a)], recordings_[std::size_t(b)]);
        if (a == b || !align::comparable(recordings_, a, b) ||
            matched_.contains(std::minmax(a, b)) || overlap < kImpliedOverlap ||
            matchCount_[std::size_t(a)] > 1 || asked[std::size_t(a)] >= kEnough)
          continue;
        ++asked[std::size_t(a)];
        implied.push_back({a, b, {offset}, overlap});
      }
  listen(implied, align::examine, patience());
}

}  // namespace place
