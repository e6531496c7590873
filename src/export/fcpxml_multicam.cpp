#include "export/fcpxml_multicam.h"

#include <algorithm>

#include "export/fcpxml_clips.h"
#include "export/fcpxml_resources.h"
#include "export/lanes.h"
#include "export/media.h"

namespace timeline {
namespace {

constexpr double kShortestCut = 2;  // seconds; anything shorter flickers

Angle coverOf(const Project& project, const Lane& lane) {
  Angle angle;
  angle.recorder = std::ranges::none_of(
      lane, [&](const Item& item) { return hasPicture(project.media[item.media()]); });
  for (const Item& item : lane) {
    if (item.pictureLength > 0)
      angle.picture.push_back({item.start, item.start + item.pictureLength});
    if (item.soundLength > 0) angle.sound.push_back({item.start, item.start + item.soundLength});
  }
  return angle;
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

void addSources(Element& clip, const std::string* video, const std::string* audio) {
  if (video && video == audio) {
    clip.add(source(*video, "all"));
    return;
  }
  if (video) clip.add(source(*video, "video"));
  if (audio) clip.add(source(*audio, "audio"));
}

}  // namespace

std::optional<Multicam> multicam(const Project& project, const Group& group, int number,
                                 FcpxmlVersion version) {
  const ClipWriter writer(project, version);
  const std::vector<Item> items = writer.items(group);
  if (items.empty()) return std::nullopt;
  const std::string id = "media" + std::to_string(number);
  Multicam result{Element("media"), id, group.name, endOf(items), {}, {}};
  Element angles = emptyMulticam(version);
  std::vector<Angle> covers;
  for (const Lane& lane : lanes(items, deviceKeys(project))) {
    result.angles.push_back("angle" + std::to_string(number) + "-" +
                            std::to_string(result.angles.size() + 1));
    covers.push_back(coverOf(project, lane));
    angles.add(writer.angle(lane, result.angles.back()));
  }
  result.media.attribute("id", id).attribute("name", group.name).add(std::move(angles));
  result.cuts = edit(covers, result.length, nearestUnit(kShortestCut, exactRate(project.fps)));
  return result;
}

std::vector<Element> multicamClips(const Multicam& multicam, std::int64_t offset, FrameRate rate,
                                   FcpxmlVersion version) {
  std::vector<Element> clips;
  for (const auto& [span, picture, sound] : multicam.cuts) {
    Element clip("mc-clip");
    clip.attribute("ref", multicam.id)
        .attribute("name", multicam.name)
        .attribute("offset", timeText(offset + span.start, rate))
        .attribute("start", timeText(span.start, rate))
        .attribute("duration", timeText(span.length(), rate));
    const std::string* video = picture < 0 ? nullptr : &multicam.angles[picture];
    const std::string* audio = sound < 0 ? nullptr : &multicam.angles[sound];
    if (version != FcpxmlVersion::v1_1) {
      addSources(clip, video, audio);
    } else {
      if (video) clip.attribute("videoAngleID", *video);
      if (audio) clip.attribute("audioAngleID", *audio);
    }
    clips.push_back(std::move(clip));
  }
  return clips;
}

}  // namespace timeline
