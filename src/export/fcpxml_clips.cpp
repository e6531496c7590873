#include "export/fcpxml_clips.h"

#include <algorithm>

#include "export/fcpxml_resources.h"
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

}  // namespace

ClipWriter::ClipWriter(const Project& project, FcpxmlVersion version)
    : project_(project), rate_(exactRate(project.fps)), version_(version) {}

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

std::vector<Item> ClipWriter::items(const Group& group) const {
  std::vector<Item> items = onGrid(project_, group, {rate_});
  for (Item& item : items)
    if (const Media& media = mediaOf(item); !media.hasVideo)
      item.length = soundPlace(media, item, rate_).length;
  return items;
}

std::optional<Element> ClipWriter::looseClip(int media) const {
  const std::vector<Item> alone = items({"", {{media, 0, 0}}});
  if (alone.empty()) return std::nullopt;
  return clip(alone.front(), false);
}

}  // namespace timeline
