#include "export/fcpxml_clips.h"

#include <algorithm>

#include "export/fcpxml_resources.h"
#include "export/media.h"
#include "export/remarks.h"
#include "export/text.h"

namespace timeline {
namespace {

/// Where sound alone stands inside its clip, which begins on a frame: its head `late` seconds after
/// the clip's, or cut by as much if negative. The clip is `length` frames long.
struct SoundPlace {
  double late;
  std::int64_t length;
};

double shownSound(const Media& media, const Clip& clip) {
  return std::min(clip.lengthSeconds, media.soundSeconds - clip.sourceSeconds);
}

SoundPlace soundPlace(const Media& media, const Item& item, FrameRate rate) {
  const double late = item.startSeconds - toSeconds(item.start, rate);
  const std::int64_t length = wholeUnits(shownSound(media, item.clip) + std::min(late, 0.0), rate);
  if (length <= 0) return {0, item.soundLength};  // a single frame of sound has nothing to spare
  return {late, length};
}

/// The channels of one stream, as they count through the file.
std::string sourceChannels(const Media& media, int stream) {
  std::string list;
  int number = 0;
  for (const Channel& channel : channelsOf(media)) {
    ++number;
    if (channel.stream == stream) list += (list.empty() ? "" : ", ") + std::to_string(number);
  }
  return list;
}

/// A pair is left and right, and six channels of a picture that name themselves are surround; the
/// tracks of a recorder are no speakers.
std::string_view outputs(const Media& media, int stream) {
  if (media.facts.sounds.empty()) return "L, R";
  const project::Sound& sound = media.facts.sounds[stream];
  if (sound.channels == 2) return "L, R";
  const bool surround = hasPicture(media) && sound.channels == 6 &&
                        std::ranges::find(sound.layout, "LFE") != sound.layout.end();
  return surround ? "L, R, C, LFE, Ls, Rs" : "";
}

Element marker(const Item& item, const std::string& start, FrameRate rate) {
  return Element("marker")
      .attribute("start", start)
      .attribute("duration", timeText(1, rate))
      .attribute("value", confidenceText(item.clip))
      .attribute("note", placeText(item.clip));
}

/// Names that a role may have: what parts roles and lists would be taken for more than a name.
std::string roleName(std::string name) {
  for (char& c : name)
    if (c == '.' || c == ',' || c == '?' || c == ';') c = ' ';
  return name;
}

}  // namespace

ClipWriter::ClipWriter(const Project& project, FcpxmlVersion version)
    : project_(project),
      rate_(exactRate(project.fps)),
      version_(version),
      names_(deviceNames(project)) {}

Element ClipWriter::begin(std::string_view tag, const Item& item, const std::string& start,
                          bool onTimeline) const {
  Element result(tag);
  result.attribute("name", fileName(mediaOf(item).path));
  if (onTimeline) result.attribute("offset", timeText(item.start, rate_));
  return result.attribute("start", start);
}

std::string ClipWriter::role(const Item& item) const {
  return "dialogue." + roleName(names_[item.media()]);
}

Element ClipWriter::clip(const Item& item, bool onTimeline) const {
  if (item.pictureLength == 0) return soundClip(item, onTimeline);
  return version_ == FcpxmlVersion::v1_1 ? establishedClip(item, onTimeline)
                                         : modernClip(item, onTimeline);
}

/// One element for each stream; those that are not meant to sound are switched off.
void ClipWriter::addSounds(Element& parent, const Item& item, const std::string& start) const {
  const Media& media = mediaOf(item);
  const std::int64_t samples = wholeUnits(shownSound(media, item.clip), {soundRate(media), 1});
  for (int stream = 0; stream < soundStreams(media); ++stream) {
    Element audio("audio");
    audio.attribute("ref", assetId(item.media())).attribute("lane", -1 - stream);
    if (stream > 0) audio.attribute("srcID", stream + 1);
    audio.attribute("role", role(item)).attribute("srcCh", sourceChannels(media, stream));
    if (!outputs(media, stream).empty()) audio.attribute("outCh", outputs(media, stream));
    audio.attribute("offset", start)
        .attribute("start", start)
        .attribute("duration", timeText(samples, {soundRate(media), 1}));
    if (!isHeard(media, {stream, 0, ""})) audio.attribute("enabled", 0);
    parent.add(std::move(audio));
  }
}

Element ClipWriter::establishedClip(const Item& item, bool onTimeline) const {
  const Media& media = mediaOf(item);
  const std::string start = mediaTime(media, item.in, rate_);
  Element video("video");
  video.attribute("ref", assetId(item.media()))
      .attribute("offset", start)
      .attribute("start", start)
      .attribute("duration", timeText(item.pictureLength, rate_));
  if (item.soundLength > 0) addSounds(video, item, start);
  Element result = begin("clip", item, start, onTimeline);
  result.attribute("duration", timeText(item.length(), rate_))
      .attribute("tcFormat", timecodeFormat(media));
  return result.add(std::move(video), marker(item, start, rate_));
}

Element ClipWriter::modernClip(const Item& item, bool onTimeline) const {
  const Media& media = mediaOf(item);
  const std::string start = mediaTime(media, item.in, rate_);
  Element result = begin("asset-clip", item, start, onTimeline);
  result.attribute("duration", timeText(item.length(), rate_))
      .attribute("ref", assetId(item.media()));
  if (item.soundLength > 0) result.attribute("audioRole", role(item));
  result.attribute("format", pictureFormatId(project_, media))
      .attribute("tcFormat", timecodeFormat(media))
      .add(marker(item, start, rate_));
  if (item.soundLength > 0 && soundStreams(media) > 1)
    for (int stream = 0; stream < soundStreams(media); ++stream) {
      Element source("audio-channel-source");
      source.attribute("srcCh", sourceChannels(media, stream)).attribute("role", role(item));
      if (!isHeard(media, {stream, 0, ""})) source.attribute("active", 0);
      result.add(std::move(source));
    }
  return result;
}

Element ClipWriter::soundClip(const Item& item, bool onTimeline) const {
  const Media& media = mediaOf(item);
  const FrameRate samples{soundRate(media), 1};
  const auto [late, length] = soundPlace(media, item, rate_);
  const double cut = std::max(-late, 0.0);
  const std::int64_t first = nearestUnit(item.clip.sourceSeconds + cut, samples);
  const std::int64_t end =
      wholeUnits(item.clip.sourceSeconds + shownSound(media, item.clip), samples);
  Element audio("audio");
  audio.attribute("ref", assetId(item.media()))
      .attribute("role", role(item))
      .attribute("srcCh", sourceChannels(media, media.heardStream));
  if (media.heardStream > 0) audio.attribute("srcID", media.heardStream + 1);
  if (!outputs(media, media.heardStream).empty())
    audio.attribute("outCh", outputs(media, media.heardStream));
  audio.attribute("offset", timeText(nearestUnit(std::max(late, 0.0), samples), samples))
      .attribute("start", mediaTime(media, first, samples))
      .attribute("duration", timeText(end - first, samples));
  Element result = begin("clip", item, "0s", onTimeline);
  return result.attribute("duration", timeText(length, rate_))
      .add(std::move(audio), marker(item, "0s", rate_));
}

Element ClipWriter::angle(const Lane& lane, const std::string& id) const {
  Element result("mc-angle");
  result.attribute("name", names_[lane.front().media()]).attribute("angleID", id);
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
    if (item.pictureLength == 0) item.soundLength = soundPlace(mediaOf(item), item, rate_).length;
  return items;
}

std::optional<Element> ClipWriter::looseClip(int media) const {
  const std::vector<Item> alone = items({"", {{media, 0}}});
  if (alone.empty()) return std::nullopt;
  return clip(alone.front(), false);
}

}  // namespace timeline
