#include "run/result_list.h"

#include "report/run_report.h"
#include "run/entries.h"

namespace run {

std::vector<std::string> refusedResult(std::size_t entries) {
  return {std::to_string(entries) + " entries are listed, and one run takes " +
          std::to_string(kMostEntries) + " at most. Nothing was done: synchronise them in parts."};
}

std::vector<std::string> cancelledResult(std::vector<std::string> list) {
  list.front() = "The run was cancelled.";
  return list;
}

std::vector<std::string> noMatchResult(std::vector<std::string> list) {
  list.insert(list.begin(), report::kNothingMatched);
  return list;
}

std::vector<std::string> finishedResult(std::vector<std::string> list) {
  if (list.size() == 1) return {report::kSuccess};
  for (std::string& entry : list)
    if (entry.size() >= kConvertedSuffix.size())
      entry.resize(entry.size() - kConvertedSuffix.size());
  return list;
}

}  // namespace run
