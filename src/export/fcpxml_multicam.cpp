#include "export/fcpxml_multicam.h"

#include <algorithm>

#include "export/fcpxml_clips.h"
#include "export/fcpxml_resources.h"
#include "export/lanes.h"

namespace timeline {
namespace {

/// The best angle offered so far, the first of equals.
struct BestAngle {
  std::optional<std::string> id;
  std::int64_t covered = 0;  // frames

  void offer(const std::string& angle, std::int64_t frames) {
    if (id && frames <= covered) return;
    id = angle;
    covered = frames;
  }
};

std::int64_t framesOf(const Lane& lane) {
  std::int64_t frames = 0;
  for (const Item& item : lane) frames += item.length;
  return frames;
}

bool hasPicture(const Project& project, const Lane& lane) {
  return std::ranges::any_of(lane,
                             [&](const Item& item) { return project.media[item.media].hasVideo; });
}

Element emptyMulticam(FcpxmlVersion version) {
  Element result("multicam");
  result.attribute("format", kDefaultFormat)
      .attribute("tcStart", "0s")
      .attribute("tcFormat", "NDF");
  if (version == FcpxmlVersion::v1_1) result.attribute("audioLayout", "surround");
  return result;
}

Element source(const std::string& angle, std::string_view what) {
  return Element("mc-source").attribute("angleID", angle).attribute("srcEnable", what);
}

}  // namespace

std::optional<Multicam> multicam(const Project& project, const Group& group, int number,
                                 FcpxmlVersion version) {
  const ClipWriter writer(project, version);
  const std::vector<Item> items = writer.items(group);
  if (items.empty()) return std::nullopt;
  const std::int64_t end = endOf(items);
  Element angles = emptyMulticam(version);
  BestAngle picture, sound;
  int count = 0;
  for (const Lane& lane : lanes(items, deviceKeys(project))) {
    const std::string id = "angle" + std::to_string(number) + "-" + std::to_string(++count);
    (hasPicture(project, lane) ? picture : sound).offer(id, framesOf(lane));
    angles.add(writer.angle(lane, id));
  }
  const std::string id = "media" + std::to_string(number);
  Element media("media");
  media.attribute("id", id).attribute("name", group.name).add(angles);
  const bool soundFits = !picture.id || 2 * sound.covered >= end;
  return Multicam{media, id, group.name, end, picture.id, soundFits ? sound.id : picture.id};
}

Element multicamClip(const Multicam& multicam, std::int64_t offset, FrameRate rate,
                     FcpxmlVersion version) {
  Element result("mc-clip");
  result.attribute("ref", multicam.id)
      .attribute("name", multicam.name)
      .attribute("offset", timeText(offset, rate))
      .attribute("start", "0s")
      .attribute("duration", timeText(multicam.length, rate));
  const auto& video = multicam.videoAngle;
  const auto& audio = multicam.audioAngle;
  if (version == FcpxmlVersion::v1_1) {
    if (video) result.attribute("videoAngleID", *video);
    if (audio) result.attribute("audioAngleID", *audio);
    return result;
  }
  if (video && video == audio) return result.add(source(*video, "all"));
  if (video) result.add(source(*video, "video"));
  if (audio) result.add(source(*audio, "audio"));
  return result;
}

}  // namespace timeline
