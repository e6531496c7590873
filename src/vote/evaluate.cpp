#include "vote/evaluate.h"

#include <cmath>
#include <locale>
#include <sstream>

#include "report/parallel.h"
#include "vote/estimate.h"

namespace vote {
namespace {

constexpr std::size_t kRealHit = 8;  // this element of a pair's hits must be a real one
constexpr HitCode kGreatestFiller = 99'999'999;
constexpr int kMusicMode = 1;

float orOne(float seconds) { return seconds == 0 ? 1.0f : seconds; }

bool worthAVote(std::span<const HitCode> hits) {
  return hits.size() > kFewestHits && hits[kRealHit] > kGreatestFiller;
}

/// The whole numbers that both tests compare.
struct Support {
  int sections, span, hits, score;
};

Support supportOf(const OffsetStats& stats) {
  Support support{static_cast<int>(stats.sections), static_cast<int>(stats.span),
                  static_cast<int>(stats.bestHits), static_cast<int>(stats.score)};
  if (support.sections <= support.span && support.sections > 8) support.span += 2;
  if (support.span == 0) support.span = 1;
  return support;
}

bool passesStrict(const OffsetStats& stats, const Support& support, const Overlap& overlap,
                  float secondsSecond) {
  const float apart = std::abs(stats.bestOffset) - std::abs(stats.mostHitsOffset);
  return overlap.sections / support.span < 3.0 && orOne(secondsSecond) * 2.0 < support.hits &&
         support.hits * 10 < support.score && support.sections > 2 && std::abs(apart) < 1.0 &&
         overlap.seconds * 3.0 < support.hits;
}

bool passesMusic(const Support& support, const Overlap& overlap) {
  return support.score > 300 && overlap.sections / 3.0 < support.span && support.hits > 50;
}

std::optional<PairVote> loggedVote(std::span<const HitCode> hits, const Eigen::VectorXf& durations,
                                   int mode, const EvaluateCalls& calls) {
  auto vote = voteOn(hits, durations, mode);
  if (!vote || !calls.log) return vote;
#pragma omp critical
  for (const std::string& step : stepLines(*vote)) calls.log(step);
  return vote;
}

}  // namespace

Overlap overlapAt(const OffsetStats& stats, float secondsFirst, float secondsSecond) {
  const float away = std::abs(stats.bestOffset);
  float seconds = secondsFirst - away;
  if (secondsSecond <= seconds) seconds = secondsSecond;
  if (stats.bestOffset > 0) seconds = secondsSecond - away;
  const auto sections = static_cast<float>(seconds / (orOne(secondsSecond) * 0.03125 + 1.0));
  return {seconds, sections, static_cast<float>(sections / (stats.sections + 1.0))};
}

Acceptance judge(const OffsetStats& stats, const Overlap& overlap, float secondsSecond, int mode) {
  const Support support = supportOf(stats);
  if (passesStrict(stats, support, overlap, secondsSecond)) return Acceptance::strict;
  if (mode == kMusicMode && passesMusic(support, overlap)) return Acceptance::music;
  return Acceptance::none;
}

PairVote voteWith(const std::optional<OffsetStats>& stats, int first, int second,
                  const Eigen::VectorXf& durations, int mode) {
  PairVote vote{.first = first, .second = second, .stats = stats, .peaks = {}};
  if (!stats) return vote;
  const Overlap overlap = overlapAt(*stats, durations[first], durations[second]);
  vote.confidence = overlap.confidence;
  vote.accepted = judge(*stats, overlap, durations[second], mode);
  return vote;
}

std::optional<PairVote> voteOn(std::span<const HitCode> hits, const Eigen::VectorXf& durations,
                               int mode) {
  if (!worthAVote(hits)) return std::nullopt;
  const Hit hit = unpack(hits[kRealHit]);
  if (hit.first >= durations.size() || hit.second >= durations.size()) return std::nullopt;
  PairVote vote =
      voteWith(estimateOffset({hits.begin(), hits.end()}), hit.first, hit.second, durations, mode);
  vote.eighthHit = hits[kRealHit];
  return vote;
}

std::vector<std::string> stepLines(const PairVote& vote) {
  if (vote.eighthHit == 0) return {};
  std::vector<std::string> lines{
      "1045 after decompose finalnamatrica[i][8]=" + std::to_string(vote.eighthHit), "1051"};
  if (vote.stats) lines.insert(lines.end(), {"1230", "1233", "1235", "1085"});
  return lines;
}

std::array<float, 6> syncRow(const PairVote& vote) {
  const OffsetStats& stats = vote.stats.value();
  return {static_cast<float>(vote.second),
          static_cast<float>(vote.first),
          stats.bestOffset,
          stats.sections,
          static_cast<float>(vote.confidence),
          stats.mostHits};
}

std::string acceptanceLine(const PairVote& vote, const Eigen::VectorXf& durations,
                           std::span<const std::string> names) {
  const OffsetStats& s = vote.stats.value();
  const Overlap overlap = overlapAt(s, durations[vote.first], durations[vote.second]);
  std::ostringstream line;
  line.imbue(std::locale::classic());
  line << "totalhits:" << s.bestHits << " presek:" << overlap.seconds
       << " sigurnost:" << overlap.confidence << "  raspon:" << s.span
       << " sekcii vo presek:" << overlap.sections << "  " << s.bestOffset << '*' << s.sections
       << '*' << s.mostHitsOffset << '*' << s.mostHits << '*' << s.score
       << "  ---->>>>>>>>>NAJDEN SYNC MEGJU " << names[vote.second] << "  i " << names[vote.first]
       << "  so ofset:" << s.bestOffset << " sekundi vo " << s.sections
       << "regioni so totalna brojka niz site regioni " << s.mostHits
       << "-> treba da se zapise vo CSV";  // "sync found between ...; to be written to the CSV"
  return std::move(line).str();
}

void evaluatePairs(const std::vector<unsigned long long>* pairs, std::vector<float>& table,
                   const Eigen::VectorXf& durations, int count,
                   const std::vector<std::string>& names, int mode, const EvaluateCalls& calls) {
  std::vector<std::optional<PairVote>> votes(std::max(count, 0));
  report::FirstException failed;
#pragma omp parallel for schedule(static)
  for (int i = 0; i < count; ++i)
    failed.keep([&] { votes[i] = loggedVote(pairs[i], durations, mode, calls); });
  failed.rethrow();

#pragma omp critical
  for (const auto& vote : votes) {  // after the loop, so that no timing decides the order of rows
    if (!vote || vote->accepted == Acceptance::none) continue;
    if (calls.console) calls.console(acceptanceLine(*vote, durations, names));
    const auto row = syncRow(*vote);
    table.insert(table.end(), row.begin(), row.end());
  }
}

}  // namespace vote
