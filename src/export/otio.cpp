#include "export/otio.h"

#include <nlohmann/json.hpp>

#include "export/lanes.h"
#include "export/media.h"
#include "export/remarks.h"
#include "export/text.h"
#include "export/url.h"

namespace timeline {
namespace {

using Json = nlohmann::ordered_json;

/// One stream of a file: its picture, or a stream of its sound.
struct Part {
  bool picture;
  int stream = 0;  // of the sound

  const char* kind() const { return picture ? "Video" : "Audio"; }
};

std::string nameOf(const Media& media) { return cleanText(fileName(media.path)); }

const char* colour(double confidence) {
  return confidence >= 0.9 ? "GREEN" : confidence >= 0.5 ? "YELLOW" : "RED";
}

Json time(std::int64_t units, FrameRate rate) {
  return {{"OTIO_SCHEMA", "RationalTime.1"},
          {"rate", static_cast<double>(rate.units) / static_cast<double>(rate.seconds)},
          {"value", static_cast<double>(units)}};
}

Json range(const Json& start, std::int64_t units, FrameRate rate) {
  return {{"OTIO_SCHEMA", "TimeRange.1"}, {"start_time", start}, {"duration", time(units, rate)}};
}

Json composition(const char* schema, const std::string& name, Json children) {
  return {{"OTIO_SCHEMA", schema},          {"name", cleanText(name)},
          {"metadata", Json::object()},     {"source_range", nullptr},
          {"effects", Json::array()},       {"markers", Json::array()},
          {"children", std::move(children)}};
}

Json gap(std::int64_t units, FrameRate rate) {
  return {{"OTIO_SCHEMA", "Gap.1"},     {"name", ""},
          {"metadata", Json::object()}, {"source_range", range(time(0, rate), units, rate)},
          {"effects", Json::array()},   {"markers", Json::array()}};
}

/// A clip's place on one track, in units of the track.
struct Place {
  std::int64_t start, in, length;
};

/// The moment `units` after the file's start, by its own clock and in that clock's units.
Json mediaTime(const Media& media, std::int64_t units, FrameRate rate) {
  const project::Timecode start = timecodeOf(media, rate);
  const FrameRate clock = rateOf(start);
  const std::int64_t in = clock == rate ? units : nearestUnit(toSeconds(units, rate), clock);
  return time(start.units + in, clock);
}

class TimelineWriter {
 public:
  TimelineWriter(const Project& project, const Group& group)
      : project_(project),
        group_(group),
        rate_(exactRate(project.fps)),
        names_(deviceNames(project)) {}

  Json timeline() const {
    Json tracks = Json::array();
    const std::vector<Lane> all = lanes(onGrid(project_, group_, {rate_}), deviceKeys(project_));
    const auto add = [&](const Lane& lane, const Part& part) {
      if (Json made = track(lane, part); !made["children"].empty())
        tracks.push_back(std::move(made));
    };
    for (const Lane& lane : all) add(lane, {true});
    for (const Lane& lane : all)
      for (int stream = 0; stream < mostStreams(lane); ++stream) add(lane, {false, stream});
    return {{"OTIO_SCHEMA", "Timeline.1"},
            {"name", cleanText(group_.name)},
            {"metadata", Json::object()},
            {"global_start_time", nullptr},
            {"tracks", composition("Stack.1", "tracks", std::move(tracks))}};
  }

 private:
  const Media& mediaOf(const Item& item) const { return project_.media[item.media()]; }

  int mostStreams(const Lane& lane) const {
    int most = 0;
    for (const Item& item : lane) most = std::max(most, soundStreams(mediaOf(item)));
    return most;
  }

  /// Of the part; 0 if the clip does not have it.
  std::int64_t lengthOf(const Item& item, const Part& part) const {
    if (part.picture) return item.pictureLength;
    return part.stream < soundStreams(mediaOf(item)) ? item.soundLength : 0;
  }

  /// Sound alone counts in samples, everything else in frames.
  FrameRate unitOf(const Lane& lane, const Part& part) const {
    const bool pictures =
        std::ranges::any_of(lane, [](const Item& item) { return item.pictureLength > 0; });
    if (part.picture || pictures) return rate_;
    return {soundRate(mediaOf(lane.front())), 1};
  }

  Place placeOf(const Item& item, const Part& part, FrameRate unit) const {
    if (unit == rate_) return {item.start, item.in, lengthOf(item, part)};
    const double cut = std::max(0.0, -item.startSeconds);  // before the timeline's beginning
    const double in = item.clip.sourceSeconds + cut;
    const double left = std::min(mediaOf(item).soundSeconds - in, item.clip.lengthSeconds - cut);
    return {nearestUnit(item.startSeconds + cut, unit), nearestUnit(in, unit),
            wholeUnits(left - toSeconds(1, unit) / 2, unit)};  // the in point may round up
  }

  Json track(const Lane& lane, const Part& part) const {
    const FrameRate unit = unitOf(lane, part);
    Json children = Json::array();
    std::int64_t end = 0;
    for (const Item& item : lane) {
      if (lengthOf(item, part) == 0) continue;
      const Place place = placeOf(item, part, unit);
      if (place.start > end) children.push_back(gap(place.start - end, unit));
      children.push_back(clip(item, part, place, unit));
      end = std::max(end, place.start) + place.length;
    }
    std::string name = names_[lane.front().media()];
    if (part.stream > 0) name += " " + std::to_string(part.stream + 1);
    Json result = composition("Track.1", name, std::move(children));
    result["kind"] = part.kind();
    return result;
  }

  Json marker(const Item& item, const Json& start, FrameRate unit) const {
    return {{"OTIO_SCHEMA", "Marker.2"},
            {"name", confidenceText(item.clip)},
            {"comment", placeText(item.clip)},
            {"metadata", {{"kestrel", {{"confidence", item.clip.confidence}}}}},
            {"color", colour(item.clip.confidence)},
            {"marked_range", range(start, 0, unit)}};
  }

  Json reference(const Media& media, FrameRate unit) const {
    return {{"OTIO_SCHEMA", "ExternalReference.1"},
            {"name", nameOf(media)},
            {"metadata", Json::object()},
            {"available_range",
             range(mediaTime(media, 0, unit), wholeUnits(lengthSeconds(media), unit), unit)},
            {"target_url", fileUrl(media.path, UrlStyle::standard)}};
  }

  bool isSilenced(const Item& item, const Part& part) const {
    if (part.picture) return false;
    const bool covered = !project_.cameraSound && coveredByRecorders(project_, group_, item.clip);
    return covered || !isHeard(mediaOf(item), {part.stream, 0, ""});
  }

  /// What the format has no words for: the exact place, and which channels of the file are meant,
  /// also in the words of the library's own xmeml adapter.
  Json metadata(const Item& item, const Part& part) const {
    const Media& media = mediaOf(item);
    Json own = {{"start_seconds", item.startSeconds},
                {"duration_seconds", lengthSeconds(media)},
                {"confidence", item.clip.confidence}};
    if (part.picture) return {{"kestrel", own}};
    int number = 0, first = 0;
    own["stream"] = part.stream + 1;
    own["channels"] = Json::array();
    for (const Channel& channel : channelsOf(media)) {
      ++number;
      if (channel.stream != part.stream) continue;
      if (first == 0) first = number;
      own["channels"].push_back(channel.name.empty() ? std::to_string(number)
                                                     : cleanText(channel.name));
    }
    const Json track = {{"mediatype", "audio"}, {"trackindex", std::to_string(first)}};
    return {{"kestrel", own}, {"fcp_xml", {{"sourcetrack", track}}}};
  }

  Json clip(const Item& item, const Part& part, const Place& place, FrameRate unit) const {
    const Media& media = mediaOf(item);
    const Json start = mediaTime(media, place.in, unit);
    return {{"OTIO_SCHEMA", "Clip.1"},
            {"name", nameOf(media)},
            {"metadata", metadata(item, part)},
            {"source_range", range(start, place.length, unit)},
            {"enabled", !isSilenced(item, part)},
            {"effects", Json::array()},
            {"markers", Json::array({marker(item, start, unit)})},
            {"media_reference", reference(media, unit)}};
  }

  const Project& project_;
  const Group& group_;
  FrameRate rate_;
  std::vector<std::string> names_;  // of the devices, by media
};

}  // namespace

std::string otioDocument(const Project& project, const Group& group) {
  return TimelineWriter(project, group).timeline().dump(2) + "\n";
}

}  // namespace timeline
