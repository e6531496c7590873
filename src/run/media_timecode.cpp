#include "run/media_timecode.h"

#include <array>
#include <charconv>
#include <cmath>

namespace run {
namespace {

using project::Rate;
using project::Timecode;

Rate rateOf(const StreamFields& stream) {
  return {stream.count("FrameRate_Num"), stream.count("FrameRate_Den")};
}

std::optional<Timecode> read(const StreamFields& stream, const StreamFields& fallback) {
  const Rate own = rateOf(stream);
  const std::string text = stream.text("TimeCode_FirstFrame");
  const bool drop =
      stream.text("TimeCode_DropFrame") == "Yes" || text.find(';') != std::string::npos;
  return parsedTimecode(text, own.known() ? own : rateOf(fallback), drop);
}

/// A recorder counts the samples since midnight.
std::optional<Timecode> ofBroadcastWave(const StreamFields& sound) {
  if (sound.text("Delay_Source").find("bext") == std::string::npos) return {};
  const int rate = sound.count("SamplingRate");
  const Timecode found{{rate, 1}, std::llround(sound.seconds("Delay") * double(rate)), false};
  return rate > 0 && found.units > 0 ? std::optional(found) : std::nullopt;
}

}  // namespace

std::optional<Timecode> parsedTimecode(std::string_view text, Rate rate, bool dropFrame) {
  std::array<std::int64_t, 4> parts{};  // hours, minutes, seconds, frames
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::int64_t& part : parts) {
    const auto [next, error] = std::from_chars(at, end, part);
    if (error != std::errc() || part < 0) return {};
    at = next == end ? end : next + 1;
  }
  const std::int64_t base = rate.known() ? std::llround(std::ceil(rate.perSecond() - 0.01)) : 0;
  if (base == 0 || parts[0] > 99 || parts[1] > 59 || parts[2] > 59 || parts[3] >= base) return {};
  const std::int64_t minutes = parts[0] * 60 + parts[1];
  const bool drops = dropFrame && base % 30 == 0;
  const std::int64_t dropped = drops ? base / 15 * (minutes - minutes / 10) : 0;
  return Timecode{rate, (minutes * 60 + parts[2]) * base + parts[3] - dropped, drops};
}

std::optional<Timecode> timecodeOf(const FileFields& file) {
  const StreamFields none;
  const StreamFields& picture = file.pictures.empty() ? none : file.pictures.front();
  for (const StreamFields& other : file.others)
    if (other.text("Type") == "Time code")
      if (const auto found = read(other, picture)) return found;
  const std::string source = picture.text("TimeCode_Source");
  if (!picture.empty() && source.find("Group of pictures") == std::string::npos &&
      source.find("SEI") == std::string::npos)
    if (const auto found = read(picture, picture)) return found;
  return file.sounds.empty() ? std::nullopt : ofBroadcastWave(file.sounds.front());
}

}  // namespace run
