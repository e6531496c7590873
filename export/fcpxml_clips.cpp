#include "export/fcpxml_clips.h"

#include <algorithm>

#include "export/fcpxml_resources.h"
#include "export/lanes.h"
#include "export/text.h"
#include "export/xmeml_parts.h"

namespace timeline {
namespace {

std::string sourceChannels(int count) {
  std::string list = "1";
  for (int channel = 2; channel <= count; ++channel) list += ", " + std::to_string(channel);
  return list;
}

Element soundOf(const Media& media, int index) {
  Element audio("audio");
  audio.attribute("ref", assetId(index)).attribute("role", "dialogue");
  const int channels = soundChannels(media);
  audio.attribute("srcCh", sourceChannels(channels));
  if (channels == 2) audio.attribute("outCh", "L, R");
  if (channels == 6) audio.attribute("outCh", "L, R, C, LFE, Ls, Rs");
  return audio;
}

/// Where sound alone stands inside its clip, which begins on a frame: its head `late` seconds after
/// the clip's, or cut by as much if negative. The clip is `length` frames long.
struct SoundPlace {
  double late;
  std::int64_t length;
};

SoundPlace soundPlace(const Media& media, const Item& item, FrameRate rate) {
  const double late = item.startSeconds - toSeconds(item.start, rate);
  const std::int64_t length = wholeUnits(media.durationSeconds + std::min(late, 0.0), rate);
  if (length == 0) return {0, item.length};  // a single frame of sound has nothing to spare
  return {late, length};
}

Element shiftedSound(const Media& media, int index, double late) {
  const double cut = std::max(-late, 0.0);
  Element audio = soundOf(media, index);
  return audio.attribute("offset", sampleTime(std::max(late, 0.0), media))
      .attribute("start", sampleTime(cut, media))
      .attribute("duration", sampleTime(media.durationSeconds - cut, media));
}

Element picture(const Media& media, int index, const std::string& duration) {
  Element video("video");
  video.attribute("ref", assetId(index)).attribute("offset", "0s").attribute("duration", duration);
  if (media.hasAudio) {
    Element audio = soundOf(media, index);
    video.add(
        audio.attribute("lane", -1).attribute("offset", "0s").attribute("duration", duration));
  }
  return video;
}

/// Puts clips of one project and version into elements.
class ClipWriter {
 public:
  ClipWriter(const Project& project, FcpxmlVersion version)
      : project_(project), rate_(exactRate(project.fps)), version_(version) {}

  Element angle(const Lane& lane, const std::string& id) const;
  Element clip(const Item& item, bool onTimeline) const;

 private:
  const Media& mediaOf(const Item& item) const { return project_.media[item.media]; }
  Element pictureClip(const Item& item, bool onTimeline) const;
  Element soundClip(const Item& item, bool onTimeline) const;
  Element start(std::string_view tag, const Item& item, bool onTimeline) const;

  const Project& project_;
  FrameRate rate_;
  FcpxmlVersion version_;
};

Element ClipWriter::start(std::string_view tag, const Item& item, bool onTimeline) const {
  Element result(tag);
  result.attribute("name", fileName(mediaOf(item).path));
  if (onTimeline) result.attribute("offset", timeText(item.start, rate_));
  return result.attribute("start", "0s");
}

Element ClipWriter::clip(const Item& item, bool onTimeline) const {
  return mediaOf(item).hasVideo ? pictureClip(item, onTimeline) : soundClip(item, onTimeline);
}

Element ClipWriter::pictureClip(const Item& item, bool onTimeline) const {
  const std::string duration = timeText(item.length, rate_);
  const Media& media = mediaOf(item);
  if (version_ == FcpxmlVersion::v1_1) {
    Element result = start("clip", item, onTimeline);
    result.attribute("duration", duration).add(picture(media, item.media, duration));
    return result;
  }
  Element result = start("asset-clip", item, onTimeline);
  result.attribute("duration", duration).attribute("ref", assetId(item.media));
  if (media.hasAudio) result.attribute("audioRole", "dialogue");
  return result.attribute("format", pictureFormatId(project_, media)).attribute("tcFormat", "NDF");
}

Element ClipWriter::soundClip(const Item& item, bool onTimeline) const {
  const Media& media = mediaOf(item);
  const auto [late, length] = soundPlace(media, item, rate_);
  Element result = start("clip", item, onTimeline);
  result.attribute("duration", timeText(length, rate_)).add(shiftedSound(media, item.media, late));
  return result;
}

Element ClipWriter::angle(const Lane& lane, const std::string& id) const {
  Element result("mc-angle");
  result.attribute("name", fileName(mediaOf(lane.front()).path)).attribute("angleID", id);
  std::int64_t end = 0;
  for (const Item& item : lane) {
    if (item.start > end) {
      Element gap("gap");
      result.add(gap.attribute("name", "Gap")
                     .attribute("offset", timeText(end, rate_))
                     .attribute("start", "3600s")
                     .attribute("duration", timeText(item.start - end, rate_)));
    }
    result.add(clip(item, true));
    end = item.end();
  }
  return result;
}

std::vector<Item> angleItems(const Project& project, const Group& group) {
  const FrameRate rate = exactRate(project.fps);
  std::vector<Item> items = onGrid(project, group, {rate});
  for (Item& item : items)
    if (const Media& media = project.media[item.media]; !media.hasVideo)
      item.length = soundPlace(media, item, rate).length;
  return items;
}

bool hasPicture(const Project& project, const Lane& lane) {
  return std::ranges::any_of(lane,
                             [&](const Item& item) { return project.media[item.media].hasVideo; });
}

}  // namespace

std::optional<Multicam> multicam(const Project& project, const Group& group, int number,
                                 FcpxmlVersion version) {
  const std::vector<Item> items = angleItems(project, group);
  if (items.empty()) return std::nullopt;
  Element angles("multicam");
  angles.attribute("format", kDefaultFormat).attribute("tcStart", "0s");
  angles.attribute("tcFormat", "NDF");
  if (version == FcpxmlVersion::v1_1) angles.attribute("audioLayout", "surround");
  const std::string prefix = "angle" + std::to_string(number) + "-";
  std::optional<std::string> videoAngle, soundAngle;
  int count = 0;
  for (const Lane& lane : lanes(items, deviceKeys(project))) {
    const std::string id = prefix + std::to_string(++count);
    std::optional<std::string>& first = hasPicture(project, lane) ? videoAngle : soundAngle;
    if (!first) first = id;
    angles.add(ClipWriter(project, version).angle(lane, id));
  }
  const std::string id = "media" + std::to_string(number);
  Element media("media");
  media.attribute("id", id).attribute("name", group.name).add(angles);
  return Multicam{media,        id,         group.name,
                  endOf(items), videoAngle, soundAngle ? soundAngle : videoAngle};
}

std::optional<Element> looseClip(const Project& project, int media, FcpxmlVersion version) {
  const std::vector<Item> items = onGrid(project, {"", {{media, 0, 0}}}, {exactRate(project.fps)});
  if (items.empty()) return std::nullopt;
  return ClipWriter(project, version).clip(items.front(), false);
}

Element multicamClip(const Multicam& multicam, std::int64_t offset, FrameRate rate,
                     FcpxmlVersion version) {
  Element result("mc-clip");
  result.attribute("ref", multicam.id)
      .attribute("name", multicam.name)
      .attribute("offset", timeText(offset, rate))
      .attribute("start", "0s")
      .attribute("duration", timeText(multicam.length, rate));
  const auto& [video, audio] = std::pair(multicam.videoAngle, multicam.audioAngle);
  if (version == FcpxmlVersion::v1_1) {
    if (video) result.attribute("videoAngleID", *video);
    if (audio) result.attribute("audioAngleID", *audio);
    return result;
  }
  const auto source = [](const std::string& angle, std::string_view what) {
    return Element("mc-source").attribute("angleID", angle).attribute("srcEnable", what);
  };
  if (video == audio) {
    if (video) result.add(source(*video, "all"));
    return result;
  }
  if (video) result.add(source(*video, "video"));
  if (audio) result.add(source(*audio, "audio"));
  return result;
}

}  // namespace timeline
