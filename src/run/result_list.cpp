#include "run/result_list.h"

#include "report/run_report.h"
#include "report/text.h"
#include "run/entries.h"

namespace run {

std::string tooManyFiles(std::size_t files) {
  if (files <= kMostFiles) return {};
  return report::countText(files, "file") + " are listed, and one run takes " +
         std::to_string(kMostFiles) + " at most. Nothing was done: synchronise them in parts.";
}

std::string busyFolder(const std::string& folder) {
  return "Another run is writing its results to " + folder +
         ". Nothing was done: wait until it has ended, then start again.";
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
