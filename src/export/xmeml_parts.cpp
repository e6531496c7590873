#include "export/xmeml_parts.h"

#include <algorithm>

#include "export/text.h"
#include "export/url.h"

namespace timeline {
namespace {

constexpr int kMostChannels = 32;  // a damaged header may claim any number

Element group(std::string_view tag, std::initializer_list<Element> children) {
  Element result(tag);
  for (const Element& child : children) result.add(child);
  return result;
}

Element codec() {
  const std::string_view name = "Apple ProRes 422";
  const Element quicktime = group("qtcodec", {{"codecname", name},
                                              {"codectypename", name},
                                              {"codectypecode", "apcn"},
                                              {"codecvendorcode", "appl"},
                                              {"spatialquality", 1024},
                                              {"temporalquality", 0},
                                              {"keyframerate", 0},
                                              {"datarate", 0}});
  const Element application = group("appspecificdata", {{"appname", "Final Cut Pro"},
                                                        {"appmanufacturer", "Apple Inc."},
                                                        {"appversion", "7.0"},
                                                        group("data", {quicktime})});
  return group("codec", {{"name", name}, application});
}

Element pictureOf(const Media& media, FrameRate rate) {
  Element video("video");
  if (media.width > 0 && media.height > 0)
    video.add(group("samplecharacteristics",
                    {xmemlRate(rate), {"width", media.width}, {"height", media.height}}));
  return video;
}

Element soundOf(const Media& media) {
  return group("audio",
               {group("samplecharacteristics", {{"depth", 16}, {"samplerate", soundRate(media)}}),
                {"channelcount", soundChannels(media)}});
}

}  // namespace

Element xmemlRate(FrameRate rate) {
  const auto [framesPerSecond, ntsc] = timebaseOf(rate);
  return group("rate", {{"timebase", framesPerSecond}, {"ntsc", ntsc ? "TRUE" : "FALSE"}});
}

Element xmemlVideoFormat(const Project& project) {
  return group("format", {group("samplecharacteristics", {xmemlRate(exactRate(project.fps)),
                                                          {"width", project.width},
                                                          {"height", project.height},
                                                          {"anamorphic", "FALSE"},
                                                          {"pixelaspectratio", "square"},
                                                          {"fielddominance", "none"},
                                                          {"colordepth", 24},
                                                          codec()})});
}

void addXmemlAudioFormat(Element& audio) {
  const auto channel = [](std::int64_t index) { return group("channel", {{"index", index}}); };
  audio.add(
      Element("numOutputChannels", 2),
      group("format", {group("samplecharacteristics", {{"depth", 16}, {"samplerate", 48000}})}),
      group("outputs",
            {group("group",
                   {{"index", 1}, {"numchannels", 2}, {"downmix", 0}, channel(1), channel(2)})}));
}

Element xmemlFileDefinition(const Media& media, const std::string& id, FrameRate sequenceRate) {
  const bool ownRate = media.hasVideo && media.frameRate > 0;
  // The format knows whole timebases only; an odd rate is counted in the nearest one.
  const auto [base, ntsc] = timebaseOf(ownRate ? exactRate(media.frameRate) : sequenceRate);
  const FrameRate rate = ntsc ? FrameRate{base * 1000, 1001} : FrameRate{base, 1};
  Element content("media");
  if (media.hasVideo) content.add(pictureOf(media, rate));
  if (media.hasAudio) content.add(soundOf(media));
  Element file("file");
  file.attribute("id", id);
  file.add(Element("name", fileName(media.path)),
           Element("pathurl", fileUrl(media.path, UrlStyle::editor)), xmemlRate(rate),
           Element("duration", wholeUnits(media.durationSeconds, rate)), content);
  return file;
}

int soundChannels(const Media& media) {
  if (!media.hasAudio) return 0;
  return media.audioChannels > 0 ? std::min(media.audioChannels, kMostChannels) : 2;
}

int soundRate(const Media& media) { return media.audioRate > 0 ? media.audioRate : 48000; }

}  // namespace timeline
