#include "cli/demo/truth.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>

#include "report/table.h"
#include "report/text.h"

namespace cli::demo {
namespace {

using Json = nlohmann::ordered_json;

/// A recording and its place in the result; the group tells which places count together.
struct Found {
  int group;
  double offset;
};

std::optional<Found> placeOf(const std::string& file, const Json& result) {
  int number = 0;
  for (const Json& group : result.at("groups")) {
    for (const Json& member : group.at("members"))
      if (member.at("path").get<std::string>().ends_with("/" + file))
        return Found{number, member.at("offset_seconds").get<double>()};
    ++number;
  }
  return {};
}

/// How far a group's places are from the true times: by its earliest member's true start.
double groupStart(int group, const Json& truth, const Json& result) {
  std::optional<std::pair<double, double>> earliest;  // place and true start
  for (const Json& take : truth.at("recordings")) {
    const std::optional<Found> found = placeOf(take.at("file"), result);
    if (!found || found->group != group) continue;
    const std::pair<double, double> one(found->offset, take.at("start_seconds"));
    if (!earliest || one < *earliest) earliest = one;
  }
  return earliest ? earliest->second - earliest->first : 0;
}

std::string millisecondsText(double seconds) {
  return (seconds < 0 ? "-" : "+") + report::decimalText(std::abs(seconds) * 1000, 1) + " ms";
}

}  // namespace

std::string truthJson(const Scene& scene) {
  const auto middleStart = [&](const Take& take) {
    const double ppm = scene.devices[static_cast<std::size_t>(take.device)].clockPpm;
    return take.start - take.length / 2 * (ppm * 1e-6);
  };
  double earliest = scene.seconds;
  for (const Take& take : scene.takes) earliest = std::min(earliest, middleStart(take));
  Json recordings = Json::array();
  for (const Take& take : scene.takes) {
    const Device& device = scene.devices[static_cast<std::size_t>(take.device)];
    recordings.push_back({{"file", take.file},
                          {"device", take.device},
                          {"start_seconds", middleStart(take) - earliest},
                          {"duration_seconds", take.length},
                          {"clock_ppm", device.clockPpm}});
  }
  return Json{{"recordings", recordings}}.dump(2) + '\n';
}

Comparison compare(const std::string& truthText, const std::string& resultText) {
  const Json truth = Json::parse(truthText), result = Json::parse(resultText);
  Comparison comparison;
  std::vector<report::Row> rows = {{"Recording", "Stands at", "Truly at", "Off by"}};
  for (const Json& take : truth.at("recordings")) {
    const std::string file = take.at("file");
    const double start = take.at("start_seconds");
    ++comparison.all;
    if (const std::optional<Found> found = placeOf(file, result)) {
      const double place = found->offset + groupStart(found->group, truth, result);
      const double error = place - start;
      ++comparison.placed;
      comparison.largestErrorSeconds = std::max(comparison.largestErrorSeconds, std::abs(error));
      rows.push_back(
          {file, report::clockText(place), report::clockText(start), millisecondsText(error)});
    } else {
      rows.push_back({file, "not placed", report::clockText(start), ""});
    }
  }
  comparison.text = report::tableText(rows, "lrrr", 2);
  return comparison;
}

}  // namespace cli::demo
