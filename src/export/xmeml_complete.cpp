#include <algorithm>
#include <set>
#include <utility>

#include "export/element.h"
#include "export/lanes.h"
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
      : project_(project), target_(target), rate_(exactRate(project.fps)) {}

  std::string text(const XmemlContents& contents);

 private:
  Element sequence(const Group& group, bool shareTracks);
  Element videoTrack(const TrackSet& set);
  Element audioTrack(const TrackSet& set, int channel);
  Element clipItem(const PlacedClip& clip, int channel);
  Element file(int media);
  Element bin(const std::vector<int>& media);

  const Media& mediaOf(const PlacedClip& clip) const { return project_.media[clip.item.media]; }

  const Project& project_;
  XmemlTarget target_;
  FrameRate rate_;
  std::set<int> definedFiles_;
  int sequences_ = 0, clips_ = 0;
};

std::string masterClipId(int media) { return "masterclip-" + std::to_string(media + 1); }
std::string fileId(int media) { return "file-" + std::to_string(media + 1); }

Element timecode(FrameRate rate) {
  Element result("timecode");
  result.add(xmemlRate(rate), Element("string", "00:00:00:00"), Element("frame", 0),
             Element("displayformat", "NDF"));
  return result;
}

std::string CompleteDocument::text(const XmemlContents& contents) {
  Element children("children");
  for (const Group& group : contents.groups) children.add(sequence(group, contents.shareTracks));
  children.add(bin(contents.media));  // last: files are defined in the sequences
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
  if (target_ == XmemlTarget::premiere) result.rawAttributes(std::string(kPremiereBlock) + '"');
  result.add(Element("name", group.name), Element("duration", end), xmemlRate(rate_),
             timecode(rate_), std::move(media));
  return result;
}

Element CompleteDocument::videoTrack(const TrackSet& set) {
  Element track("track");
  for (const PlacedClip& clip : set.clips)
    if (clip.videoTrack > 0) track.add(clipItem(clip, 0));
  track.add(Element("enabled", "TRUE"), Element("locked", "FALSE"));
  return track;
}

Element CompleteDocument::audioTrack(const TrackSet& set, int channel) {
  Element track("track");
  if (target_ == XmemlTarget::premiere && set.channels <= 2)
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
  Element result = reference("clipitem", partId(clip, channel));
  if (target_ == XmemlTarget::premiere && channel > 0 && clip.channels <= 2)
    result.attribute("premiereChannelType", clip.channels == 1 ? "mono" : "stereo");
  result.add(Element("name", fileName(media.path)), Element("duration", item.length),
             xmemlRate(rate_), Element("start", item.start), Element("end", item.end()),
             Element("in", 0), Element("out", item.length), Element("enabled", "TRUE"),
             Element("masterclipid", masterClipId(item.media)), file(item.media),
             sourceTrack(channel));
  addLinks(result, clip);
  return result;
}

/// The first mention of a file defines it, later ones refer to it.
Element CompleteDocument::file(int media) {
  if (definedFiles_.insert(media).second)
    return xmemlFileDefinition(project_.media[media], fileId(media), rate_);
  return reference("file", fileId(media));
}

Element CompleteDocument::bin(const std::vector<int>& media) {
  Element children("children");
  for (const int index : media) {
    const Media& source = project_.media[index];
    Element clip = reference("clip", masterClipId(index));
    clip.add(Element("name", fileName(source.path)),
             Element("duration", wholeUnits(source.durationSeconds, rate_)), xmemlRate(rate_),
             Element("masterclipid", masterClipId(index)), Element("ismasterclip", "TRUE"),
             file(index));
    children.add(std::move(clip));
  }
  Element result("bin");
  result.add(Element("name", "Clips"), std::move(children));
  return result;
}

}  // namespace

std::string completeXmeml(const Project& project, const XmemlContents& contents,
                          XmemlTarget target) {
  return CompleteDocument(project, target).text(contents);
}

}  // namespace timeline
