#include "run/media_probe.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "report/long_path.h"
#include "run/media_info_library.h"
#include "run/utf8_scope.h"
#include "run/wide_text.h"

namespace run {
namespace {

constexpr double kMilliseconds = 1e-3;

/// One file, opened by the library.
class MediaFile {
 public:
  MediaFile(const MediaInfoLibrary& library, const std::string& path)
      : library_(library), handle_(library.create()) {
    if (handle_) opened_ = library.open(handle_, widened(report::openablePath(path)).c_str()) != 0;
  }
  ~MediaFile() {
    if (handle_) library_.destroy(handle_);
  }
  MediaFile(const MediaFile&) = delete;
  MediaFile& operator=(const MediaFile&) = delete;
  bool opened() const { return opened_; }

  /// The field of the first stream of that kind. Chosen by name, because the number of a field
  /// differs from release to release.
  std::string text(MediaInfo_stream_C stream, std::string_view field) const {
    for (std::size_t i = 0;; ++i) {
      const std::wstring_view name = library_.get(handle_, stream, 0, i, MediaInfo_Info_Name);
      if (name.empty()) return {};
      if (narrowed(name) == field)
        return narrowed(library_.get(handle_, stream, 0, i, MediaInfo_Info_Text));
    }
  }

  double number(MediaInfo_stream_C stream, std::string_view field) const {
    const std::string answer = text(stream, field);
    double value = 0;
    std::from_chars(answer.data(), answer.data() + answer.size(), value);
    return value;
  }

 private:
  const MediaInfoLibrary& library_;
  void* handle_;
  bool opened_ = false;
};

// By the tracks' edit lists, where a negative delay is the encoder's and left out by decoders, or
// by the time stamps.
double soundStart(const MediaFile& file) {
  constexpr double kBelievable = 10;  // seconds; more is a broken time stamp
  const auto inTrack = [&](MediaInfo_stream_C stream) {
    return std::max(0.0, file.number(stream, "Source_Delay"));
  };
  const bool edited = !file.text(MediaInfo_Stream_Audio, "Source_Delay").empty();
  const double seconds =
      kMilliseconds * (edited ? inTrack(MediaInfo_Stream_Audio) - inTrack(MediaInfo_Stream_Video)
                              : file.number(MediaInfo_Stream_Audio, "Video_Delay"));
  return std::abs(seconds) < kBelievable ? seconds : 0;
}

MediaProperties propertiesOf(const MediaFile& file) {
  MediaProperties media;
  media.opened = true;
  media.frameRate = file.text(MediaInfo_Stream_Video, "FrameRate");
  media.width = static_cast<int>(file.number(MediaInfo_Stream_Video, "Width"));
  media.height = static_cast<int>(file.number(MediaInfo_Stream_Video, "Height"));
  media.videoSeconds = file.number(MediaInfo_Stream_Video, "Duration") * kMilliseconds;
  media.audioStreams = static_cast<int>(file.number(MediaInfo_Stream_General, "AudioCount"));
  media.audioChannels = static_cast<int>(file.number(MediaInfo_Stream_Audio, "Channel(s)"));
  media.audioRate = static_cast<int>(file.number(MediaInfo_Stream_Audio, "SamplingRate"));
  media.audioSeconds = file.number(MediaInfo_Stream_Audio, "Duration") * kMilliseconds;
  if (media.width > 0) media.soundStart = soundStart(file);
  media.seconds = file.number(MediaInfo_Stream_General, "Duration") * kMilliseconds;
  return media;
}

}  // namespace

MediaInfoProbe::MediaInfoProbe() : MediaInfoProbe(MediaInfoLibrary::shared()) {}

MediaInfoProbe::~MediaInfoProbe() {
  if (loaded_) library_.unload();
}

bool MediaInfoProbe::available() {
  std::call_once(tried_, [this] { loaded_ = library_.load() == 1; });
  return loaded_;
}

MediaProperties MediaInfoProbe::query(const std::string& path) {
  if (!available()) return {};
  const Utf8Scope names;
  const MediaFile file(library_, path);
  return file.opened() ? propertiesOf(file) : MediaProperties{};
}

}  // namespace run
