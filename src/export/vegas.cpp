#include "export/vegas.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <vector>

#include "export/lanes.h"
#include "export/text.h"

namespace timeline {
namespace {

constexpr std::string_view kHeader =
    R"("ID";"Track";"StartTime";"Length";"PlayRate";"Locked";"Normalized";"StretchMethod";)"
    R"("Looped";"OnRuler";"MediaType";"FileName";"Stream";"StreamStart";"StreamLength";)"
    R"("FadeTimeIn";"FadeTimeOut";"SustainGain";"CurveIn";"GainIn";"CurveOut";"GainOut";)"
    R"("Layer";"Color";"CurveInR";"CurveOutR";"PlayPitch";"LockPitch";"FirstChannel";"Channels")"
    "\n";

struct Event {
  std::string path;
  std::uint64_t start, pictureLength, soundLength;  // ms
  std::uint32_t index, videoTrack, audioTrack;
  std::uint64_t in = 0;  // ms into the file; only a piece of a clip has one
};

/// By the last three characters, and as no other spelling: Wav or m4a count as video.
bool hasPictureRow(std::string_view path) {
  constexpr std::array<std::string_view, 4> sound{"wav", "WAV", "mp3", "MP3"};
  return std::ranges::none_of(sound, [&](std::string_view end) { return path.ends_with(end); });
}

std::string row(const Event& event, std::uint32_t id, std::uint32_t track, std::string_view type) {
  const bool picture = type == "VIDEO";
  return numberText(id) + ";" + numberText(track) + ";" + std::to_string(event.start) + ";" +
         std::to_string(picture ? event.pictureLength : event.soundLength) +
         "; 1.000000; FALSE; FALSE; 0; TRUE; FALSE; " + std::string(type) + "; \"" + event.path +
         "\"; 0; " + std::to_string(event.in) +
         ".0000; 0.0000; 0.0000; 0.0000; 1.000000; 4; 0.000000; 4; 0.000000; 0; -1; 4; 4; "
         "0.000000; FALSE; 0; 0\n";
}

std::string rows(const Event& event, report::Console& console) {
  std::string text;
  if (hasPictureRow(event.path)) text += row(event, event.index + 1, event.videoTrack, "VIDEO");
  text += row(event, event.index + 2, event.audioTrack, "AUDIO");
  console.line(text);
  return text;
}

/// Back slashes where the file stands on Windows.
std::string pathText(const std::string& path) {
  std::string text = oneLine(path);
  if (isWindowsPath(text)) std::ranges::replace(text, '/', '\\');
  return text;
}

struct TrackedItem {
  Item item;
  std::uint32_t videoTrack, audioTrack;
};

std::vector<TrackedItem> onTracks(const Project& project, const Group& group) {
  const std::vector<Item> items = onGrid(project, group, {.rate = {1000, 1}, .startsDown = true});
  std::vector<TrackedItem> tracked;
  std::uint32_t next = 1;
  for (const Lane& lane : lanes(items, deviceKeys(project))) {
    const bool pictures = std::ranges::any_of(
        lane, [&](const Item& item) { return hasPictureRow(project.media[item.media()].path); });
    const std::uint32_t video = next, audio = pictures ? next + 1 : next;
    for (const Item& item : lane) tracked.push_back({item, video, audio});
    next = audio + 1;
  }
  std::ranges::stable_sort(tracked, {}, [](const TrackedItem& t) {
    return std::tuple(t.item.startSeconds, t.audioTrack);
  });
  return tracked;
}

/// Cut down; a negative time wraps, as the conversion to an unsigned number has it.
std::uint64_t milliseconds(float seconds) {
  const float value = seconds * 1000;
  return value < 0 ? static_cast<std::uint64_t>(static_cast<std::int64_t>(value))
                   : static_cast<std::uint64_t>(value);
}

}  // namespace

std::string vegasEventRows(const std::string& path, float lengthSeconds, std::uint32_t index,
                           float startSeconds, std::uint32_t videoTrack, std::uint32_t audioTrack,
                           report::Console& console) {
  const std::uint64_t length = milliseconds(lengthSeconds);
  return rows({path, milliseconds(startSeconds), length, length, index, videoTrack, audioTrack},
              console);
}

std::string vegasEventRows(const std::string& path, float lengthSeconds, std::uint32_t index,
                           float startSeconds, std::uint32_t videoTrack, std::uint32_t audioTrack) {
  report::StandardOutput console;
  return vegasEventRows(path, lengthSeconds, index, startSeconds, videoTrack, audioTrack, console);
}

std::string vegasEditList(const Project& project, const Group& group, report::Console& console) {
  std::string text(kHeader);
  std::uint32_t index = 0;
  for (const TrackedItem& tracked : onTracks(project, group)) {
    const Item& item = tracked.item;
    const auto some = [&](std::int64_t length) {  // a row is never empty
      return static_cast<std::uint64_t>(length > 0 ? length : item.length());
    };
    text +=
        rows({pathText(project.media[item.media()].path), static_cast<std::uint64_t>(item.start),
              some(item.pictureLength), some(item.soundLength), index, tracked.videoTrack,
              tracked.audioTrack, static_cast<std::uint64_t>(item.in)},
             console);
    index += 2;
  }
  return text;
}

}  // namespace timeline
