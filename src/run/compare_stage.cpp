#include "run/compare_stage.h"

#include <algorithm>
#include <utility>

#include "report/diagnostics.h"
#include "report/read2sync.h"
#include "run/file_list.h"
#include "vote/compare.h"
#include "vote/evaluate.h"
#include "vote/shortlist.h"
#include "vote/vote_pairs.h"

namespace run {
namespace {

using vote::FilePair;
using vote::PairVote;

constexpr std::size_t kTextAtOnce = 1 << 16;  // bytes between two writes to one file

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

/// A text file's lines, written many at a time: there may be millions.
class Lines {
 public:
  explicit Lines(void (*append)(std::string)) : append_(append) {}
  ~Lines() { flush(); }
  Lines(const Lines&) = delete;
  Lines& operator=(const Lines&) = delete;

  void add(std::string_view line) {
    if (!lines_.empty()) lines_ += '\n';
    lines_ += line;
    if (lines_.size() > kTextAtOnce) flush();
  }

 private:
  void flush() {
    if (!lines_.empty()) append_(lines_);
    lines_.clear();
  }

  void (*append_)(std::string);
  std::string lines_;
};

/// What the text files and the console are told of the comparison, pair by pair.
class Told {
 public:
  Told(const Material& material, const Services& services)
      : material_(material), services_(services) {
    for (const auto& fingerprint : material.fingerprints) rows_.push_back(fingerprint.rows());
    report::removeTempResultsFile();
    pairs_.add(report::tempResultsHeading());
    vote::announce(
        {.log = {},
         .console = [&](std::string_view line) { services.console.line(line); },
         .moveprogressignal = [&](int pixels) { services.progress.moveprogressignal(pixels); },
         .cancelled = {}});
    log_.add(vote::kEnterLine);
    for (const std::string_view line : vote::kRoomLines) log_.add(line);
  }

  void add(const PairVote& vote) {
    services_.console.line(vote::rowsLine(rows_[vote.first]));
    pairs_.add(report::tempResultsLine(described(vote, material_.entries)));
    for (const std::string& step : vote::stepLines(vote)) log_.add(step);
    if (vote::isHundredth(++compared_)) log_.add(vote::kHundredLine);
  }

 private:
  const Material& material_;
  const Services& services_;
  std::vector<Eigen::Index> rows_;  // of the fingerprints
  Lines pairs_{report::appendTempResultsLine}, log_{report::appendLogLine};
  int compared_ = 0;
};

bool shareDevice(const std::vector<Entry>& entries, const PairVote& vote) {
  const int device = entries[vote.first].device;
  return device >= 0 && device == entries[vote.second].device;
}

/// The pairs to compare by either way of counting, in list order.
std::vector<FilePair> allPairs(const Material& material) {
  const Eigen::VectorXf raised = material.durations.array() + 1;
  const auto less = [](const FilePair& a, const FilePair& b) {
    return std::minmax(a.first, a.second) < std::minmax(b.first, b.second);
  };
  const auto listed = vote::pairsToCompare(raised, material.groups);
  const auto real = vote::pairsToCompare(raised, groupsOfDevices(material.entries));
  std::vector<FilePair> pairs;
  std::ranges::set_union(listed, real, std::back_inserter(pairs), less);
  std::erase_if(pairs, [&](const FilePair& pair) {
    return !material.entries[pair.first].isFile() || !material.entries[pair.second].isFile();
  });
  return pairs;
}

}  // namespace

Comparison compareAll(Material& material, int mode, const Services& services) {
  const std::vector<Entry>& entries = material.entries;
  std::vector<std::string> names;
  for (const Entry& entry : entries) names.push_back(entry.converted);
  const std::vector<FilePair> pairs = allPairs(material);
  Comparison comparison;
  vote::Shortlist shortlist(entries.size());
  Told told(material, services);
  int done = 0;
  const auto take = [&](PairVote vote) {
    told.add(vote);
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
  vote::votePairs(std::exchange(material.fingerprints, {}), material.durations, pairs, mode, take,
                  [&] { return services.cancelled.load(); });
  comparison.votes = shortlist.take();
  return comparison;
}

}  // namespace run
