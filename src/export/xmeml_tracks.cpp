#include "export/xmeml_tracks.h"

#include <algorithm>
#include <map>

#include "export/media.h"

namespace timeline {
namespace {

/// The tracks of a sequence that are taken so far.
struct TrackCount {
  int video = 0, audio = 0;
};

TrackSet trackSet(const Project& project, const Group& group, const Lane& lane, TrackCount& tracks,
                  int& clipCount) {
  TrackSet set;
  int pictures = 0, sounds = 0;
  for (const Item& item : lane) {
    const Media& media = project.media[item.media()];
    const int channels = item.soundLength > 0 ? soundChannels(media) : 0;
    const bool picture = item.pictureLength > 0;
    set.channels = std::max(set.channels, channels);
    if (picture && set.videoTrack == 0) set.videoTrack = ++tracks.video;
    if (!set.clips.empty()) set.clips.back().next = item.start;
    set.clips.push_back({item, "clipitem-" + std::to_string(++clipCount), channels,
                         picture ? set.videoTrack : 0, picture ? ++pictures : 0, tracks.audio + 1,
                         channels > 0 ? ++sounds : 0,
                         !project.cameraSound && coveredByRecorders(project, group, item.clip)});
  }
  tracks.audio += set.channels;
  return set;
}

/// One key for each device and number of channels. A silent picture goes with the first file of
/// its device.
std::vector<int> trackKeys(const Project& project, bool shareTracks) {
  constexpr int kBeyondChannels = 64;  // more than any file's channels
  const std::vector<int> devices =
      shareTracks ? std::vector<int>(project.media.size(), 0) : deviceKeys(project);
  std::map<int, int> channelsOfDevice;
  for (std::size_t i = 0; i < devices.size(); ++i)
    if (const int channels = soundChannels(project.media[i]); channels > 0)
      channelsOfDevice.try_emplace(devices[i], channels);
  std::vector<int> keys;
  for (std::size_t i = 0; i < devices.size(); ++i) {
    const int channels = soundChannels(project.media[i]);
    keys.push_back(devices[i] * kBeyondChannels +
                   (channels > 0 ? channels : channelsOfDevice[devices[i]]));
  }
  return keys;
}

Element link(const PlacedClip& clip, int channel) {
  const bool picture = channel == 0;
  Element result("link");
  result.add(Element("linkclipref", partId(clip, channel)),
             Element("mediatype", picture ? "video" : "audio"),
             Element("trackindex", picture ? clip.videoTrack : clip.audioTrack + channel - 1),
             Element("clipindex", picture ? clip.videoPosition : clip.audioPosition));
  if (!picture) result.add(Element("groupindex", 1));
  return result;
}

}  // namespace

std::vector<TrackSet> trackSets(const Project& project, const Group& group, bool shareTracks,
                                int& clipCount) {
  const std::vector<int> keys = trackKeys(project, shareTracks);
  const std::vector<std::string> names = deviceNames(project);
  std::vector<TrackSet> sets;
  TrackCount tracks;
  for (const Lane& lane : lanes(onGrid(project, group, {exactRate(project.fps)}), keys)) {
    sets.push_back(trackSet(project, group, lane, tracks, clipCount));
    sets.back().name = shareTracks ? group.name : names[lane.front().media()];
  }
  return sets;
}

std::string partId(const PlacedClip& clip, int channel) {
  return clip.id + (channel == 0 ? "-v" : "-a" + std::to_string(channel));
}

Element sourceTrack(int channel) {
  Element result("sourcetrack");
  result.add(Element("mediatype", channel == 0 ? "video" : "audio"),
             Element("trackindex", channel == 0 ? 1 : channel));
  return result;
}

void addLinks(Element& clipItem, const PlacedClip& clip) {
  const int first = clip.videoTrack > 0 ? 0 : 1;
  if (clip.channels == first) return;  // a part alone has nothing to be linked with
  for (int channel = first; channel <= clip.channels; ++channel) clipItem.add(link(clip, channel));
}

}  // namespace timeline
