#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "export/element.h"
#include "export/lanes.h"
#include "export/media.h"
#include "export/text.h"
#include "export/xmeml_forms.h"
#include "export/xmeml_fragments.h"
#include "export/xmeml_parts.h"
#include "export/xmeml_tracks.h"

namespace timeline {
namespace {

Element reference(std::string_view tag, const std::string& id) {
  Element result(tag);
  result.attribute("id", id);
  return result;
}

class CompleteDocument {
 public:
  CompleteDocument(const Project& project, XmemlTarget target)
      : project_(project),
        target_(target),
        rate_(exactRate(project.fps)),
        devices_(deviceKeys(project)),
        names_(deviceNames(project)) {}

  std::string text(const XmemlContents& contents);

 private:
  Element sequence(const Group& group, bool shareTracks);
  Element videoTrack(const TrackSet& set);
  Element audioTrack(const TrackSet& set, int channel);
  Element clipItem(const PlacedClip& clip, int channel);
  Element file(int media);
  Element masterClip(int media);
  Element bin(std::string_view name, const std::vector<int>& media);
  void addBins(Element& children, const XmemlContents& contents);

  const Media& mediaOf(const PlacedClip& clip) const { return project_.media[clip.item.media()]; }
  bool premiere() const { return target_ == XmemlTarget::premiere; }

  const Project& project_;
  XmemlTarget target_;
  FrameRate rate_;
  std::vector<int> devices_;
  std::vector<std::string> names_;  // of the devices, by media
  std::set<int> definedFiles_;
  int sequences_ = 0, clips_ = 0;
};

std::string masterClipId(int media) { return "masterclip-" + std::to_string(media + 1); }
std::string fileId(int media) { return "file-" + std::to_string(media + 1); }

/// Where one part of a clip stands, in frames, and what it shows of the file.
struct Extent {
  std::int64_t start, in, length;
};

Extent extentOf(const PlacedClip& clip, int channel) {
  const Item& item = clip.item;
  return {item.start, item.in, channel == 0 ? item.pictureLength : item.soundLength};
}

// Premiere's, in a second: whole ones for the frames of all rates.
constexpr std::int64_t kTicks = 254'016'000'000;

/// Sound alone stands on a frame, but Premiere can begin it at any moment of the file: the one that
/// belongs to the frame's edge. Of what the recorder heard before there may be a frame lost.
struct ExactSound {
  Extent extent;
  std::int64_t in, out;  // ticks
};

ExactSound exactSound(const PlacedClip& clip, double soundSeconds, FrameRate rate) {
  const Item& item = clip.item;
  const std::int64_t start =
      item.startSeconds > toSeconds(item.start, rate) + 1e-9 ? item.start + 1 : item.start;
  const double in = item.clip.sourceSeconds + toSeconds(start, rate) - item.startSeconds;
  const double left =
      std::min(soundSeconds, item.clip.sourceSeconds + item.clip.lengthSeconds) - in;
  const std::int64_t length =
      std::max<std::int64_t>(0, std::min(wholeUnits(left, rate), clip.next - start));
  const std::int64_t ticks = std::llround(in * double(kTicks));
  return {{start, nearestUnit(in, rate), length},
          ticks,
          ticks + length * (kTicks / rate.units * rate.seconds)};
}

Element sequenceTimecode(FrameRate rate) {
  Element result("timecode");
  result.add(xmemlRate(rate), Element("string", "00:00:00:00"), Element("frame", 0),
             Element("displayformat", "NDF"));
  return result;
}

std::string CompleteDocument::text(const XmemlContents& contents) {
  Element children("children");
  for (const Group& group : contents.groups) children.add(sequence(group, contents.shareTracks));
  addBins(children, contents);  // last: files are defined in the sequences
  Element project("project");
  project.add(Element("name", contents.name), std::move(children));
  Element root("xmeml");
  root.attribute("version", "4").add(std::move(project));
  return root.document("xmeml");
}

Element CompleteDocument::sequence(const Group& group, bool shareTracks) {
  const std::vector<TrackSet> sets = trackSets(project_, group, shareTracks, clips_);
  Element video("video"), audio("audio");
  video.add(Element::mark("<!-- SEQUENCE-ADD-PRESET-->"), xmemlVideoFormat(project_),
            Element::mark("<!-- INVIDEO-->"));
  std::int64_t end = 0;
  for (const TrackSet& set : sets) {
    if (set.videoTrack > 0) video.add(videoTrack(set));
    for (const PlacedClip& clip : set.clips) end = std::max(end, clip.item.end());
  }
  addXmemlAudioFormat(audio);
  audio.add(Element::mark("<!-- INAUDIO-->"));
  for (const TrackSet& set : sets)
    for (int channel = 1; channel <= set.channels; ++channel) audio.add(audioTrack(set, channel));
  Element media("media");
  media.add(std::move(video), std::move(audio));
  Element result = reference("sequence", "sequence-" + std::to_string(++sequences_));
  if (premiere()) result.rawAttributes(std::string(kPremiereBlock) + '"');
  result.add(Element("name", group.name), Element("duration", end), xmemlRate(rate_),
             sequenceTimecode(rate_), std::move(media));
  return result;
}

Element CompleteDocument::videoTrack(const TrackSet& set) {
  Element track("track");
  if (premiere()) track.attribute("MZ.TrackName", set.name);
  for (const PlacedClip& clip : set.clips)
    if (clip.videoTrack > 0) track.add(clipItem(clip, 0));
  track.add(Element("enabled", "TRUE"), Element("locked", "FALSE"));
  return track;
}

Element CompleteDocument::audioTrack(const TrackSet& set, int channel) {
  Element track("track");
  if (premiere()) track.attribute("MZ.TrackName", set.name);
  if (premiere() && set.channels <= 2)
    track.attribute("currentExplodedTrackIndex", channel - 1)
        .attribute("totalExplodedTrackCount", set.channels)
        .attribute("premiereTrackType", set.channels == 1 ? "Mono" : "Stereo");
  for (const PlacedClip& clip : set.clips)
    if (clip.channels > 0) track.add(clipItem(clip, channel));
  track.add(Element("enabled", "TRUE"), Element("locked", "FALSE"),
            Element("outputchannelindex", (channel - 1) % 2 + 1));
  return track;
}

Element CompleteDocument::clipItem(const PlacedClip& clip, int channel) {
  const Media& media = mediaOf(clip);
  const Item& item = clip.item;
  Extent extent = extentOf(clip, channel);
  std::optional<ExactSound> exact;
  if (premiere() && item.pictureLength == 0) exact = exactSound(clip, media.soundSeconds, rate_);
  if (exact && exact->extent.length == 0) exact.reset();  // too short to lose anything
  if (exact) extent = exact->extent;
  const bool sounds =
      channel == 0 || (!clip.silenced && isHeard(media, channelsOf(media)[channel - 1]));
  Element result = reference("clipitem", partId(clip, channel));
  if (premiere() && channel > 0 && clip.channels <= 2)
    result.attribute("premiereChannelType", clip.channels == 1 ? "mono" : "stereo");
  result.add(Element("name", fileName(media.path)), Element("duration", extent.in + extent.length),
             xmemlRate(rate_), Element("start", extent.start),
             Element("end", extent.start + extent.length), Element("in", extent.in),
             Element("out", extent.in + extent.length));
  if (exact) result.add(Element("pproTicksIn", exact->in), Element("pproTicksOut", exact->out));
  result.add(Element("enabled", sounds ? "TRUE" : "FALSE"),
             Element("masterclipid", masterClipId(item.media())), file(item.media()),
             sourceTrack(channel), xmemlLabel(devices_[item.media()], premiere()));
  if (channel == (clip.videoTrack > 0 ? 0 : 1)) result.add(xmemlMarker(clip.clip()));
  addLinks(result, clip);
  return result;
}

/// The first mention of a file defines it, later ones refer to it.
Element CompleteDocument::file(int media) {
  if (definedFiles_.insert(media).second)
    return xmemlFileDefinition(project_.media[media], fileId(media), rate_);
  return reference("file", fileId(media));
}

Element CompleteDocument::masterClip(int index) {
  const Media& source = project_.media[index];
  Element clip = reference("clip", masterClipId(index));
  clip.add(Element("name", fileName(source.path)),
           Element("duration", wholeUnits(lengthSeconds(source), rate_)), xmemlRate(rate_),
           Element("masterclipid", masterClipId(index)), Element("ismasterclip", "TRUE"),
           file(index), xmemlLabel(devices_[index], premiere()));
  return clip;
}

Element CompleteDocument::bin(std::string_view name, const std::vector<int>& media) {
  Element children("children");
  for (const int index : media) children.add(masterClip(index));
  Element result("bin");
  result.add(Element("name", name), std::move(children));
  return result;
}

/// One bin for each device, in the order of the devices, then one for what found no place.
void CompleteDocument::addBins(Element& children, const XmemlContents& contents) {
  std::map<int, std::vector<int>> ofDevice;
  for (const int index : contents.media) ofDevice[devices_[index]].push_back(index);
  for (const auto& [device, media] : ofDevice) children.add(bin(names_[media.front()], media));
  if (!contents.unsynced.empty()) children.add(bin("Unsynced", contents.unsynced));
}

}  // namespace

std::string completeXmeml(const Project& project, const XmemlContents& contents,
                          XmemlTarget target) {
  return CompleteDocument(project, target).text(contents);
}

}  // namespace timeline
