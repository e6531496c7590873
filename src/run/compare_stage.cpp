#include "run/compare_stage.h"

#include <algorithm>

#include "report/diagnostics.h"
#include "report/read2sync.h"
#include "vote/compare.h"
#include "vote/evaluate.h"
#include "vote/shortlist.h"
#include "vote/vote_pairs.h"

namespace run {
namespace {

using vote::FilePair;
using vote::PairVote;

constexpr std::size_t kLinesAtOnce = 1 << 16;  // bytes of tempresults.txt between two writes

report::ComparedPair described(const PairVote& vote, const std::vector<Entry>& entries) {
  using Verdict = report::ComparedPair::Verdict;
  report::ComparedPair pair;
  pair.first = entries[vote.first].listed;
  pair.second = entries[vote.second].listed;
  pair.confidence = vote.confidence;
  pair.hits = vote.rawHits;
  if (vote.stats) {
    pair.offsetSeconds = vote.stats->bestOffset;
    pair.sections = static_cast<int>(vote.stats->sections);
  }
  if (vote.accepted == vote::Acceptance::strict) pair.verdict = Verdict::strict;
  if (vote.accepted == vote::Acceptance::music) pair.verdict = Verdict::music;
  return pair;
}

/// tempresults.txt, written some lines at a time: there may be half a million.
class PairLog {
 public:
  PairLog() {
    report::removeTempResultsFile();
    report::appendTempResultsLine(report::tempResultsHeading());
  }
  ~PairLog() { flush(); }
  PairLog(const PairLog&) = delete;
  PairLog& operator=(const PairLog&) = delete;

  void add(const report::ComparedPair& pair) {
    if (!lines_.empty()) lines_ += '\n';
    lines_ += report::tempResultsLine(pair);
    if (lines_.size() > kLinesAtOnce) flush();
  }

 private:
  void flush() {
    if (!lines_.empty()) report::appendTempResultsLine(lines_);
    lines_.clear();
  }

  std::string lines_;
};

bool shareDevice(const std::vector<Entry>& entries, const PairVote& vote) {
  const int device = entries[vote.first].device;
  return device >= 0 && device == entries[vote.second].device;
}

/// The groups as they would be had the list been counted after the drop.
DeviceGroups trueGroups(const std::vector<Entry>& entries) {
  DeviceGroups groups;
  for (int file = 0; file < std::ssize(entries); ++file) {
    const int device = entries[file].device;
    if (device < 0) continue;
    if (device >= std::ssize(groups)) groups.resize(device + 1);
    groups[device].push_back(file);
  }
  return groups;
}

/// The pairs to compare by either way of counting, in list order.
std::vector<FilePair> allPairs(const Material& material) {
  const Eigen::VectorXf raised = material.durations.array() + 1;
  const auto less = [](const FilePair& a, const FilePair& b) {
    return std::minmax(a.first, a.second) < std::minmax(b.first, b.second);
  };
  const auto listed = vote::pairsToCompare(raised, material.groups);
  const auto real = vote::pairsToCompare(raised, trueGroups(material.entries));
  std::vector<FilePair> pairs;
  std::ranges::set_union(listed, real, std::back_inserter(pairs), less);
  std::erase_if(pairs, [&](const FilePair& pair) {
    return !material.entries[pair.first].isFile() || !material.entries[pair.second].isFile();
  });
  return pairs;
}

}  // namespace

Comparison compareAll(const Material& material, int mode, const Services& services) {
  const std::vector<Entry>& entries = material.entries;
  std::vector<std::string> names;
  for (const Entry& entry : entries) names.push_back(entry.converted);
  const std::vector<FilePair> pairs = allPairs(material);
  Comparison comparison;
  vote::Shortlist shortlist(entries.size());
  PairLog log;
  int done = 0;
  const auto take = [&](PairVote vote) {
    log.add(described(vote, entries));
    services.progress.stage(Stage::compare, entries[vote.first].listed, ++done,
                            static_cast<int>(pairs.size()));
    if (vote.accepted != vote::Acceptance::none &&
        !shareGroup(material.groups, vote.first, vote.second)) {
      services.console.line(vote::acceptanceLine(vote, material.durations, names));
      const auto row = vote::syncRow(vote);
      comparison.table.insert(comparison.table.end(), row.begin(), row.end());
    }
    if (!shareDevice(entries, vote)) shortlist.add(std::move(vote));
  };
  services.progress.moveprogressignal(1);
  vote::votePairs(material.fingerprints, material.durations, pairs, mode, take,
                  [&] { return services.cancelled.load(); });
  comparison.votes = shortlist.take();
  return comparison;
}

}  // namespace run
