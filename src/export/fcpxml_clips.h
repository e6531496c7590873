#pragma once

#include <optional>
#include <string>
#include <vector>

#include "export/element.h"
#include "export/fcpxml.h"
#include "export/lanes.h"

namespace timeline {

/// Puts clips of one project into elements of one version. Keeps a reference to the project.
class ClipWriter {
 public:
  ClipWriter(const Project& project, FcpxmlVersion version);

  /// The group's clips on the frames of the run's rate. Sound alone stands to the sample inside its
  /// clip; where that cuts its head, the clip may be a frame shorter than the media.
  std::vector<Item> items(const Group& group) const;

  /// The clips of `lane` one after the other, gaps between them, under the device's name.
  Element angle(const Lane& lane, const std::string& id) const;

  /// File `media` as a clip of its own, outside any timeline; nothing if it is not a frame long.
  std::optional<Element> looseClip(int media) const;

 private:
  const Media& mediaOf(const Item& item) const { return project_.media[item.media()]; }
  Element clip(const Item& item, bool onTimeline) const;
  Element establishedClip(const Item& item, bool onTimeline) const;
  Element modernClip(const Item& item, bool onTimeline) const;
  Element soundClip(const Item& item, bool onTimeline) const;
  Element begin(std::string_view tag, const Item& item, const std::string& start,
                bool onTimeline) const;
  void addSounds(Element& parent, const Item& item, const std::string& start) const;
  std::string role(const Item& item) const;

  const Project& project_;
  FrameRate rate_;
  FcpxmlVersion version_;
  std::vector<std::string> names_;  // of the devices, by media
};

}  // namespace timeline
