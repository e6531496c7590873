#include "run/media_probe.h"

#include "report/long_path.h"
#include "run/media_fields.h"
#include "run/media_info_library.h"
#include "run/utf8_scope.h"
#include "run/wide_text.h"

namespace run {
namespace {

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

  FileFields fields() const {
    return {stream(MediaInfo_Stream_General, 0), streams(MediaInfo_Stream_Video),
            streams(MediaInfo_Stream_Audio), streams(MediaInfo_Stream_Other)};
  }

 private:
  /// By name, because the number of a field differs from release to release.
  StreamFields stream(MediaInfo_stream_C kind, std::size_t number) const {
    std::map<std::string, std::string> answers;
    for (std::size_t i = 0;; ++i) {
      const std::wstring_view name = library_.get(handle_, kind, number, i, MediaInfo_Info_Name);
      if (name.empty()) return StreamFields(std::move(answers));
      const std::string key = narrowed(name);
      const std::wstring_view text = library_.get(handle_, kind, number, i, MediaInfo_Info_Text);
      if (!text.empty()) answers.emplace(key, narrowed(text));
    }
  }

  std::vector<StreamFields> streams(MediaInfo_stream_C kind) const {
    constexpr std::size_t kMost = 64;  // a damaged header may claim any number
    std::vector<StreamFields> found;
    for (std::size_t number = 0; number < kMost; ++number) {
      StreamFields one = stream(kind, number);
      if (one.empty()) break;
      found.push_back(std::move(one));
    }
    return found;
  }

  const MediaInfoLibrary& library_;
  void* handle_;
  bool opened_ = false;
};

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
  return file.opened() ? propertiesOf(file.fields()) : MediaProperties{};
}

}  // namespace run
