#pragma once

#include <mutex>
#include <string>

#include "project/media_facts.h"

namespace run {

class MediaInfoLibrary;

/// What a media file says of itself. What it does not say is empty or 0.
struct MediaProperties {
  bool opened = false;    // false: not a media file, unreadable, or no library
  std::string frameRate;  // of the picture, as text, for example "25.000"; empty: no picture
  project::MediaFacts facts;

  /// The first sound stream; one without channels where there is none.
  project::Sound firstSound() const {
    return facts.sounds.empty() ? project::Sound{} : facts.sounds.front();
  }
};

/// Asks media files for their properties; tests bring their own.
class MediaProbe {
 public:
  virtual ~MediaProbe() = default;
  /// Whether there is anything to ask with; without, every query comes back empty.
  virtual bool available() = 0;
  /// The properties of the file at `path` (UTF-8). Callable from any thread.
  virtual MediaProperties query(const std::string& path) = 0;
};

/// Asks the MediaInfo library, which is loaded at the first query and unloaded with this object.
class MediaInfoProbe final : public MediaProbe {
 public:
  MediaInfoProbe();
  explicit MediaInfoProbe(MediaInfoLibrary& library) : library_(library) {}
  ~MediaInfoProbe() override;
  bool available() override;
  MediaProperties query(const std::string& path) override;

 private:
  MediaInfoLibrary& library_;
  std::once_flag tried_;
  bool loaded_ = false;
};

/// The frame rate of the picture as text of at least two characters; shorter when there is none.
inline std::string frameRateText(MediaProbe& probe, const std::string& path) {
  return probe.query(path).frameRate;
}

}  // namespace run
