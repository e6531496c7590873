#include "run/playlist.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <string_view>

#include "report/disk.h"
#include "report/files.h"

namespace run {
namespace {

// ffmpeg knows these by their first words, and the latter ones anywhere before the first zero byte
// of the first megabyte.
constexpr std::array<std::string_view, 2> kBeginnings = {"#extm3u", "ffconcat"};
constexpr std::array<std::string_view, 3> kSigns = {"<mpd", "<compositionplaylist", "c=in ip"};
constexpr std::size_t kLookedAt = 1 << 20;  // bytes

/// The beginning up to the first zero byte, in small letters.
std::string textAtStart(const std::string& file) {
  std::ifstream stream(report::fromUtf8(file), std::ios::binary);
  std::string text;
  char block[4096];
  while (text.size() < kLookedAt && (stream.read(block, sizeof block), stream.gcount() > 0)) {
    const char* end = std::find(block, block + stream.gcount(), '\0');
    std::transform(static_cast<const char*>(block), end, std::back_inserter(text),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (end != block + stream.gcount()) break;
  }
  return text;
}

/// Whether all of it could be typed.
bool isText(std::string_view text) {
  return std::ranges::none_of(text, [](unsigned char c) {
    return c < ' ' && c != '\t' && c != '\n' && c != '\r' && c != '\f';
  });
}

bool holdsZero(const std::string& file, std::size_t place) {
  return report::sizeOf(report::fromUtf8(file)) > place;
}

}  // namespace

bool isPlaylist(const std::string& file) {
  const std::string text = textAtStart(file);
  const auto begins = [&](std::string_view words) { return text.starts_with(words); };
  const auto holds = [&](std::string_view words) { return text.find(words) != text.npos; };
  if (std::ranges::any_of(kBeginnings, begins) || std::ranges::any_of(kSigns, holds)) return true;
  constexpr std::size_t kWords = 64;  // bytes that no sound file has without others among them
  const bool whole = text.size() < kLookedAt && !holdsZero(file, text.size());
  return text.size() >= kWords && isText(text) && (whole || text.size() >= kLookedAt);
}

}  // namespace run
