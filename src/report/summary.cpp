#include "report/summary.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "report/table.h"
#include "report/text.h"

namespace report {
namespace {

using Names = std::map<std::string, std::string>;  // path -> how it is shown

Names shownNames(const Outcome& outcome) {
  std::vector<std::string> paths;
  for (const Group& group : outcome.groups)
    for (const Member& member : group.members) paths.push_back(member.path);
  for (const LeftOut& file : outcome.unsynced) paths.push_back(file.path);
  for (const LeftOut& file : outcome.ignored) paths.push_back(file.path);
  const std::vector<std::string> names = distinctNames(paths);
  Names result;
  for (std::size_t i = 0; i < paths.size(); ++i) result[paths[i]] = names[i];
  return result;
}

std::string percentText(double share) { return decimalText(share * 100, 0) + " %"; }

std::string millisecondsText(double seconds) {
  if (seconds >= 1) return decimalText(seconds, 0) + " s";
  const double milliseconds = seconds * 1000;
  return decimalText(milliseconds, std::abs(milliseconds) < 10 ? 1 : 0) + " ms";
}

std::string signedText(double value, std::string_view unit) {
  const std::string number = decimalText(std::abs(value), 1);
  if (number == "0.0") return number + std::string(unit);
  return (value < 0 ? '-' : '+') + number + std::string(unit);
}

/// Confidence is what the sound says, which is nothing of a place that somebody or a clock gave.
std::string certaintyText(const Member& member) {
  if (member.placedBy == PlacedBy::clock) return "by the clock";
  if (member.placedBy == PlacedBy::hand) return "by hand";
  return percentText(member.confidence);
}

Row memberRow(const Member& member, const Names& names) {
  Row row = {names.at(member.path),
             std::to_string(member.device),
             clockText(member.offsetSeconds),
             clockText(member.durationSeconds),
             certaintyText(member),
             "",
             "",
             ""};
  if (member.errorSeconds) row[5] = millisecondsText(*member.errorSeconds);
  if (member.driftPpm) row[6] = signedText(*member.driftPpm, " ppm");
  if (member.driftPpm && member.leftOutOfSync) row[7] = millisecondsText(*member.leftOutOfSync);
  return row;
}

std::string groupHeading(const Group& group) {
  std::set<int> devices;
  double end = 0;
  for (const Member& member : group.members) {
    devices.insert(member.device);
    end = std::max(end, member.offsetSeconds + member.durationSeconds);
  }
  return group.name + ": " + countText(group.members.size(), "recording") + " of " +
         countText(devices.size(), "device") + ", " + clockText(end) + " long\n";
}

std::string groupText(const Group& group, const Names& names) {
  std::vector<Row> rows = {{"Recording", "Device", "Position", "Length", "Confidence", "Exact to",
                            "Clock drift", "leaves"}};
  for (const Member& member : group.members) rows.push_back(memberRow(member, names));
  return groupHeading(group) + tableText(rows, "lrrrrrrr", 2) + '\n';
}

std::string leftOutText(const std::vector<LeftOut>& files, std::string_view heading,
                        const Names& names) {
  if (files.empty()) return {};
  std::string text = std::string(heading) + '\n';
  for (const LeftOut& file : files) {
    text += "  " + names.at(file.path) + '\n';
    if (!file.reason.empty()) text += "      " + printable(file.reason) + '\n';
    if (!file.remedy.empty()) text += "      " + printable(file.remedy) + '\n';
  }
  return text + '\n';
}

std::string headline(const Outcome& outcome) {
  if (outcome.cancelled) return "The run was cancelled.\n\n";
  std::size_t placed = 0;
  for (const Group& group : outcome.groups) placed += group.members.size();
  if (placed == 0) return "Nothing was synchronised.\n\n";
  const std::size_t all = placed + outcome.unsynced.size() + outcome.ignored.size();
  return "Synchronised " + std::to_string(placed) + " of " + countText(all, "file") + " in " +
         countText(outcome.groups.size(), "group") + ".\n\n";
}

}  // namespace

std::string summaryText(const Outcome& outcome) {
  const Names names = shownNames(outcome);
  std::string text = headline(outcome);
  for (const Group& group : outcome.groups) text += groupText(group, names);
  text +=
      leftOutText(outcome.unsynced, "Standing alone: nothing matches them surely enough", names);
  text += leftOutText(outcome.ignored, "Ignored: could not be used", names);
  text.pop_back();  // the empty line after the last part
  return text;
}

std::string matchesText(const Outcome& outcome) {
  const Names names = shownNames(outcome);
  std::string text;
  for (const Group& group : outcome.groups)
    for (const Member& member : group.members) {
      std::string others;
      for (const std::string& path : member.matchedWith) {
        const auto name = names.find(path);
        others +=
            (others.empty() ? "" : ", ") + (name == names.end() ? printable(path) : name->second);
      }
      if (!others.empty()) text += "  " + names.at(member.path) + "  with  " + others + '\n';
    }
  return text;
}

}  // namespace report
