#include "project/device_names.h"

#include <algorithm>
#include <array>
#include <regex>

namespace project {
namespace {

const auto kCase = std::regex::ECMAScript | std::regex::icase | std::regex::optimize;

bool matches(std::string_view text, const std::regex& pattern) {
  return std::regex_match(text.begin(), text.end(), pattern);
}

bool contains(std::string_view text, const std::regex& pattern) {
  return std::regex_search(text.begin(), text.end(), pattern);
}

/// Folders that cameras and recorders make on their cards.
bool isCardPart(std::string_view folder) {
  static const std::regex kParts(
      "DCIM|\\d{3}[A-Z0-9_]{5}|\\d{3}_\\w{4}|PRIVATE|M4ROOT|CLIP|SUB|AVCHD|BDMV|STREAM|MP_ROOT|"
      "\\d{3}ANV\\d{2}|XDROOT|BPAV|CLPR|CONTENTS|CLIPS\\d{3}|VIDEO|AUDIO|AVF_INFO|"
      "STEREO|MULTI|MTR|SOUND|FOLDER\\d{2}|ZOOM\\d{4}|[A-Z]\\d{3}\\w*\\.RD[MC]",
      kCase);
  return matches(folder, kParts);
}

std::string withoutNumbers(std::string_view text) {
  std::string series;
  for (const char c : text) {
    const bool digit = c >= '0' && c <= '9';
    if (!digit)
      series += c;
    else if (!series.ends_with('#'))
      series += '#';
  }
  return series;
}

std::string lowerCase(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

}  // namespace

std::string_view lastPart(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == path.npos ? path : path.substr(separator + 1);
}

std::string_view folderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == path.npos ? std::string_view() : path.substr(0, separator);
}

std::string_view stem(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  return dot == name.npos || dot == 0 ? name : name.substr(0, dot);
}

std::string_view cardFolder(std::string_view folder) {
  while (!folder.empty() && isCardPart(lastPart(folder))) folder = folderOf(folder);
  return folder;
}

ClipName readClipName(std::string_view name) {
  // ZOOM0001_Tr1, ZOOM0001_Tr1-2, ZOOM0001_TrLR, 180412_001-LR, TASCAM_0001S12, DR0000_0001D06
  static const std::regex kTrack(
      "^(.*\\d)(?:[ _-](tr(?:ack)?[ _]?(?:\\d+(?:-\\d+)?|lr|ms|mic\\d*)|lr|ms|mix|mic\\d*|"
      "iso[ _]?\\d+|ch[ _]?\\d+|[lr])|([sd](?:\\d\\d)))$",
      kCase);
  static const std::regex kCounted(".*\\d{3}", kCase);
  ClipName read;
  std::match_results<std::string_view::const_iterator> found;
  read.take = std::string(name);
  if (std::regex_match(name.begin(), name.end(), found, kTrack)) {
    read.take = found.str(1);
    read.track = lowerCase(found[2].matched ? found.str(2) : found.str(3));
  }
  read.series = withoutNumbers(read.take);
  read.counted = matches(read.take, kCounted);
  return read;
}

bool soundsLikeDevice(std::string_view name) {
  static const std::regex kDevice(
      "(^|[^a-z])(cam(era)?s?|kamera|[a-z][ _-]?cam|rec(order)?|zoom|tascam|gopro|hero|sony|canon|"
      "nikon|pana(sonic)?|fuji|lumix|iphone|phone|drone|dji|mavic|osmo|rode|mixer|desk|lav(alier)?|"
      "mic|ton|audio|sound|h[1-8]n?|f[3468]n?|dr-?\\d+)([^a-z]|$)",
      kCase);
  return contains(name, kDevice);
}

bool saysNothing(std::string_view folder) {
  static const std::regex kEmpty("|[a-z]:|no name|untitled|sd ?card|usb|volumes|mnt|media|run",
                                 kCase);
  return matches(folder, kEmpty);
}

}  // namespace project
