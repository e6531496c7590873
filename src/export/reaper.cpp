#include "export/reaper.h"

#include <array>
#include <charconv>
#include <cmath>
#include <set>

#include "export/lanes.h"
#include "export/media.h"
#include "export/remarks.h"
#include "export/text.h"

namespace timeline {
namespace {

/// Twelve decimals: less than a sample after any time.
std::string decimal(double value) {
  std::array<char, 64> text{};
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 12);
  return error == std::errc() ? std::string(text.data(), end) : "0";
}

/// In quotes that the text does not hold; a text that holds all three loses one kind.
std::string quoted(std::string_view text) {
  std::string line = oneLine(text);
  for (const char quote : {'"', '\'', '`'})
    if (line.find(quote) == std::string::npos) return quote + line + quote;
  std::ranges::replace(line, '`', '\'');
  return '`' + line + '`';
}

std::string_view sourceKind(const Media& media) {
  const std::string ending = extension(media.path);
  if (hasPicture(media)) return "VIDEO";
  if (ending == "mp3") return "MP3";
  if (ending == "flac") return "FLAC";
  if (ending == "ogg" || ending == "oga") return "VORBIS";
  if (ending == "wav" || ending == "aif" || ending == "aiff" || ending == "w64") return "WAVE";
  return "VIDEO";  // whatever its decoder of films can read
}

void addLine(std::string& out, int depth, std::string_view line) {
  out.append(2 * static_cast<std::size_t>(depth), ' ').append(line).append("\n");
}

/// A clock that is right to a fraction of a sample is no reason to stretch anything.
double playRateOf(const Clip& clip, const Media& media) {
  constexpr double kUnheard = 1e-5;  // seconds
  if (!clip.steady) return 1;
  const double gained = std::abs(clip.steady->playRate - 1) * lengthSeconds(media);
  return gained < kUnheard ? 1 : clip.steady->playRate;
}

/// Positions are exact, so the clips come as they stand, without a grid, and whole.
void addItem(std::string& out, const Media& media, const Clip& clip, bool silenced) {
  const double start = clip.steady ? clip.steady->startSeconds : clip.startSeconds;
  const double rate = playRateOf(clip, media);
  const double cut = std::max(0.0, -start);  // a project begins at 0
  const double length = lengthSeconds(media) / rate - cut;
  addLine(out, 2, "<ITEM");
  addLine(out, 3, "POSITION " + decimal(start + cut));
  addLine(out, 3, "LENGTH " + decimal(length));
  addLine(out, 3, "LOOP 0");
  addLine(out, 3, std::string("MUTE ") + (silenced ? "1" : "0") + " 0");
  addLine(out, 3, "NAME " + quoted(fileName(media.path)));
  addLine(out, 3, "SOFFS " + decimal(cut * rate));
  addLine(out, 3, "PLAYRATE " + decimal(rate) + " 1 0 -1 0 0.0025");
  addLine(out, 3, "<NOTES");
  addLine(out, 4, "|" + confidenceText(clip) + ". " + placeText(clip));
  addLine(out, 3, ">");
  addLine(out, 3, std::string("<SOURCE ") + std::string(sourceKind(media)));
  addLine(out, 4, "FILE " + quoted(media.path));
  addLine(out, 3, ">");
  addLine(out, 2, ">");
}

/// Channels are routed in pairs.
int trackChannels(const Project& project, const Lane& lane) {
  int most = 2;
  for (const Item& item : lane) most = std::max(most, soundChannels(project.media[item.media()]));
  return most + most % 2;
}

}  // namespace

std::string reaperProject(const Project& project, const Group& group) {
  const std::vector<std::string> names = deviceNames(project);
  const FrameRate rate = exactRate(project.fps);
  std::string out;
  addLine(out, 0, "<REAPER_PROJECT 0.1 \"6.0\" 0");
  addLine(out, 1, "SAMPLERATE 48000 0 0");
  addLine(out, 1,
          "TIMEMODE 1 5 -1 " + std::to_string(timebaseOf(rate).framesPerSecond) +
              (timebaseOf(rate).ntsc ? " 1" : " 0") + " 0 -1");
  std::set<int> written;
  for (const Lane& lane : lanes(onGrid(project, group, {rate}), deviceKeys(project))) {
    addLine(out, 1, "<TRACK");
    addLine(out, 2, "NAME " + quoted(names[lane.front().media()]));
    addLine(out, 2, "NCHAN " + std::to_string(trackChannels(project, lane)));
    for (const Item& item : lane) {
      if (!written.insert(item.media()).second) continue;  // play rates make pieces needless
      addItem(out, project.media[item.media()], item.clip,
              !project.cameraSound && coveredByRecorders(project, group, item.clip));
    }
    addLine(out, 1, ">");
  }
  addLine(out, 0, ">");
  return out;
}

}  // namespace timeline
