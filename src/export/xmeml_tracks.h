#pragma once

#include <limits>
#include <string>
#include <vector>

#include "export/element.h"
#include "export/lanes.h"

namespace timeline {

/// Where a clip's picture and sound stand. Tracks and positions on them count from 1; channel n of
/// the sound is on track `audioTrack` + n - 1. 0 stands for none.
struct PlacedClip {
  Item item;
  std::string id;
  int channels;  // 0: no sound
  int videoTrack, videoPosition;
  int audioTrack, audioPosition;
  bool silenced;                                                 // a recorder sounds in its place
  std::int64_t next = std::numeric_limits<std::int64_t>::max();  // where the next one begins

  const Clip& clip() const { return item.clip; }
};

/// The clips of one device that do not overlap and have the same number of sound channels (or no
/// sound), so that a track is mono or stereo throughout.
struct TrackSet {
  std::vector<PlacedClip> clips;  // by start
  std::string name;               // of the device
  int videoTrack = 0;             // 0: no clip has a picture
  int channels = 0;               // of the sound; as many audio tracks
};

/// Lays a group out on the tracks of a sequence. With `shareTracks` all devices share them.
/// `clipCount` numbers the clips through the whole document.
std::vector<TrackSet> trackSets(const Project& project, const Group& group, bool shareTracks,
                                int& clipCount);

/// The id of one part of a clip; channel 0 is the picture.
std::string partId(const PlacedClip& clip, int channel);

/// Which track of the file a part shows.
Element sourceTrack(int channel);

/// Adds one link for each part of the clip, so that picture and sound move as one.
void addLinks(Element& clipItem, const PlacedClip& clip);

}  // namespace timeline
