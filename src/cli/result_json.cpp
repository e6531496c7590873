#include "cli/result_json.h"

#include <nlohmann/json.hpp>
#include <optional>

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

Json orNull(std::optional<double> value) { return value ? Json(*value) : Json(nullptr); }

Json milliseconds(std::optional<double> seconds) {
  return seconds ? Json(*seconds * 1000) : Json(nullptr);
}

std::string_view placedBy(const report::Member& member) {
  switch (member.placedBy) {
    case report::PlacedBy::hand:
      return "hand";
    case report::PlacedBy::clock:
      return "clock";
    case report::PlacedBy::sound:
      break;
  }
  return "sound";
}

Json memberJson(const report::Member& member) {
  return {{"path", member.path},
          {"offset_seconds", member.offsetSeconds},
          {"duration_seconds", member.durationSeconds},
          {"frame_rate", orNull(member.frameRate)},
          {"placed_by", placedBy(member)},
          {"confidence", member.confidence},
          {"device", member.device},
          {"error_ms", milliseconds(member.errorSeconds)},
          {"drift_ppm", orNull(member.driftPpm)},
          {"left_out_of_sync_seconds", orNull(member.leftOutOfSync)},
          {"matched_with", member.matchedWith}};
}

Json groupsJson(const report::Outcome& outcome) {
  Json groups = Json::array();
  for (const report::Group& group : outcome.groups) {
    Json members = Json::array();
    for (const report::Member& member : group.members) members.push_back(memberJson(member));
    groups.push_back({{"name", group.name}, {"members", members}});
  }
  return groups;
}

Json leftOutJson(const std::vector<report::LeftOut>& files) {
  Json list = Json::array();
  for (const report::LeftOut& file : files)
    list.push_back({{"path", file.path}, {"reason", file.reason}, {"remedy", file.remedy}});
  return list;
}

/// The end of a run in a word.
std::string_view statusOf(const report::Outcome& outcome) {
  if (outcome.cancelled) return "cancelled";
  const bool all = outcome.unsynced.empty() && outcome.ignored.empty();
  if (!outcome.groups.empty()) return all ? "synchronised" : "partly";
  return outcome.unsynced.empty() ? "failed" : "nothing_matched";
}

}  // namespace

std::string resultJson(const report::Outcome& outcome) {
  const Json result = {{"status", statusOf(outcome)},
                       {"message", outcome.status},
                       {"groups", groupsJson(outcome)},
                       {"unsynced", leftOutJson(outcome.unsynced)},
                       {"ignored", leftOutJson(outcome.ignored)},
                       {"outputs", outcome.outputs},
                       {"project", outcome.project.empty() ? Json(nullptr) : Json(outcome.project)},
                       {"notices", outcome.notices},
                       {"failures", outcome.failures}};
  return result.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace cli
