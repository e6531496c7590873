#include "export/fcpxml_resources.h"

#include <array>
#include <cmath>
#include <numeric>
#include <set>

#include "export/media.h"
#include "export/text.h"
#include "export/url.h"

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

bool hasOwnFormat(const Media& media) { return shownSize(media).width > 0; }

std::string fractionText(std::int64_t numerator, std::int64_t denominator) {
  if (numerator % denominator == 0) return std::to_string(numerator / denominator) + "s";
  return std::to_string(numerator) + "/" + std::to_string(denominator) + "s";
}

void addSoundAttributes(Element& asset, const Media& media) {
  if (!hasSound(media)) return;
  const std::size_t streams = std::max<std::size_t>(1, media.facts.sounds.size());
  int channels = 0;  // of the stream that has most
  for (const project::Sound& sound : media.facts.sounds)
    channels = std::max(channels, sound.channels);
  asset.attribute("hasAudio", 1)
      .attribute("audioSources", static_cast<std::int64_t>(streams))
      .attribute("audioChannels", channels > 0 ? channels : 2)
      .attribute("audioRate", soundRate(media));
}

/// Rounded up to a sample: a clip that is longer than its asset is refused.
std::string assetDuration(const Media& media) {
  const int rate = soundRate(media);
  const double samples = std::ceil(lengthSeconds(media) * rate - 1e-3);
  return timeText(static_cast<std::int64_t>(samples), {rate, 1});
}

Element asset(const Project& project, int index, FcpxmlVersion version) {
  const Media& media = project.media[index];
  const bool modern = version == FcpxmlVersion::v1_10;
  const std::string url = fileUrl(media.path, modern ? UrlStyle::standard : UrlStyle::editor);
  Element result("asset");
  result.attribute("id", assetId(index)).attribute("name", fileName(media.path));
  if (!modern) result.attribute("src", url);
  result.attribute("start", mediaTime(media, 0, {1, 1}))
      .attribute("duration", assetDuration(media));
  if (hasPicture(media)) result.attribute("hasVideo", 1);
  if (hasPicture(media) && modern)
    result.attribute("format", pictureFormatId(project, media)).attribute("videoSources", 1);
  addSoundAttributes(result, media);
  if (modern)
    result.add(Element("media-rep").attribute("kind", "original-media").attribute("src", url));
  return result;
}

}  // namespace

std::string timeText(std::int64_t units, FrameRate rate) {
  return fractionText(units * rate.seconds, rate.units);
}

std::string mediaTime(const Media& media, std::int64_t units, FrameRate rate) {
  const project::Timecode start = timecodeOf(media, rate);
  if (units == 0) return timeText(start.units, rateOf(start));
  const FrameRate clock = rateOf(start);
  const std::int64_t denominator = std::lcm(clock.units, rate.units);
  return fractionText(start.units * clock.seconds * (denominator / clock.units) +
                          units * rate.seconds * (denominator / rate.units),
                      denominator);
}

std::string_view timecodeFormat(const Media& media) {
  return timecodeOf(media, {1, 1}).dropFrame ? "DF" : "NDF";
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
  const FrameRate sequence = exactRate(project.fps), rate = pictureRate(media, sequence);
  const PictureSize size = shownSize(media);
  const bool asSequence = size == PictureSize{project.width, project.height} && rate == sequence;
  if (asSequence || !hasOwnFormat(media)) return kDefaultFormat;
  return "format" + std::to_string(size.width) + "x" + std::to_string(size.height) + "-" +
         std::to_string(rate.units) + "-" + std::to_string(rate.seconds);
}

std::vector<Element> assets(const Project& project, const std::vector<int>& used,
                            FcpxmlVersion version) {
  std::vector<Element> result;
  std::set<std::string> formats{kDefaultFormat};
  for (const int index : used) {
    const Media& media = project.media[index];
    const std::string id = pictureFormatId(project, media);
    const bool wanted = version == FcpxmlVersion::v1_10 && hasPicture(media);
    if (wanted && formats.insert(id).second)
      result.push_back(format(id, shownSize(media).width, shownSize(media).height,
                              pictureRate(media, exactRate(project.fps)), version));
    result.push_back(asset(project, index, version));
  }
  return result;
}

}  // namespace timeline
