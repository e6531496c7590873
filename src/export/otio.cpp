#include "export/otio.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "export/lanes.h"
#include "export/text.h"
#include "export/url.h"

namespace timeline {
namespace {

using Json = nlohmann::ordered_json;

enum class Kind { video, audio };

std::string nameOf(const Media& media) { return cleanText(fileName(media.path)); }

std::string percent(double confidence) { return numberText(std::round(confidence * 100)) + " %"; }

const char* colour(double confidence) {
  return confidence >= 0.9 ? "GREEN" : confidence >= 0.5 ? "YELLOW" : "RED";
}

class TimelineWriter {
 public:
  explicit TimelineWriter(const Project& project)
      : project_(project),
        rate_(exactRate(project.fps)),
        framesPerSecond_(static_cast<double>(rate_.units) / static_cast<double>(rate_.seconds)) {}

  Json timeline(const Group& group) const {
    Json tracks = Json::array();
    const std::vector<Lane> all = lanes(onGrid(project_, group, {rate_}), deviceKeys(project_));
    for (const Kind kind : {Kind::video, Kind::audio})
      for (const Lane& lane : all)
        if (Lane heard = only(lane, kind); !heard.empty()) tracks.push_back(track(heard, kind));
    return {{"OTIO_SCHEMA", "Timeline.1"},
            {"name", cleanText(group.name)},
            {"metadata", Json::object()},
            {"global_start_time", nullptr},
            {"tracks", composition("Stack.1", "tracks", std::move(tracks))}};
  }

 private:
  const Media& mediaOf(const Item& item) const { return project_.media[item.media]; }

  Lane only(const Lane& lane, Kind kind) const {
    Lane result;
    for (const Item& item : lane)
      if (kind == Kind::video ? mediaOf(item).hasVideo : mediaOf(item).hasAudio)
        result.push_back(item);
    return result;
  }

  static Json composition(const char* schema, const std::string& name, Json children) {
    return {{"OTIO_SCHEMA", schema},          {"name", name},
            {"metadata", Json::object()},     {"source_range", nullptr},
            {"effects", Json::array()},       {"markers", Json::array()},
            {"children", std::move(children)}};
  }

  Json track(const Lane& lane, Kind kind) const {
    Json children = Json::array();
    std::int64_t end = 0;
    for (const Item& item : lane) {
      if (item.start > end) children.push_back(gap(item.start - end));
      children.push_back(clip(item));
      end = item.end();
    }
    Json result = composition("Track.1", nameOf(mediaOf(lane.front())), std::move(children));
    result["kind"] = kind == Kind::video ? "Video" : "Audio";
    return result;
  }

  Json time(std::int64_t frames) const {
    return {{"OTIO_SCHEMA", "RationalTime.1"},
            {"rate", framesPerSecond_},
            {"value", static_cast<double>(frames)}};
  }

  Json range(std::int64_t frames) const {
    return {{"OTIO_SCHEMA", "TimeRange.1"}, {"start_time", time(0)}, {"duration", time(frames)}};
  }

  Json gap(std::int64_t frames) const {
    return {{"OTIO_SCHEMA", "Gap.1"},     {"name", ""},
            {"metadata", Json::object()}, {"source_range", range(frames)},
            {"effects", Json::array()},   {"markers", Json::array()}};
  }

  Json marker(const Item& item) const {
    return {{"OTIO_SCHEMA", "Marker.2"},
            {"name", "Confidence " + percent(item.confidence)},
            {"metadata", {{"kestrel", {{"confidence", item.confidence}}}}},
            {"color", colour(item.confidence)},
            {"marked_range", range(0)}};
  }

  Json clip(const Item& item) const {
    const Media& media = mediaOf(item);
    return {{"OTIO_SCHEMA", "Clip.1"},
            {"name", nameOf(media)},
            {"metadata",
             {{"kestrel",
               {{"start_seconds", item.startSeconds},
                {"duration_seconds", media.durationSeconds},
                {"confidence", item.confidence}}}}},
            {"source_range", range(item.length)},
            {"effects", Json::array()},
            {"markers", Json::array({marker(item)})},
            {"media_reference",
             {{"OTIO_SCHEMA", "ExternalReference.1"},
              {"name", nameOf(media)},
              {"metadata", Json::object()},
              {"available_range", range(item.length)},
              {"target_url", fileUrl(media.path, UrlStyle::standard)}}}};
  }

  const Project& project_;
  FrameRate rate_;
  double framesPerSecond_;
};

}  // namespace

std::string otioDocument(const Project& project) {
  Json timelines = Json::array();
  for (const Group& group : project.groups)
    timelines.push_back(TimelineWriter(project).timeline(group));
  if (timelines.size() == 1) return timelines[0].dump(2) + "\n";  // what most editors open
  const Json collection{{"OTIO_SCHEMA", "SerializableCollection.1"},
                        {"name", "SYNCED"},
                        {"metadata", Json::object()},
                        {"children", std::move(timelines)}};
  return collection.dump(2) + "\n";
}

}  // namespace timeline
