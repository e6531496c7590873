#include "export/xmeml_parts.h"

#include <array>

#include "export/media.h"
#include "export/remarks.h"
#include "export/text.h"
#include "export/url.h"

namespace timeline {
namespace {

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

std::string_view fieldsOf(project::Scan scan) {
  if (scan == project::Scan::progressive) return "none";
  return scan == project::Scan::topFieldFirst ? "upper" : "lower";
}

Element pictureOf(const Media& media, FrameRate rate) {
  Element video("video");
  const auto [width, height] = shownSize(media);
  if (width > 0 && height > 0)
    video.add(
        group("samplecharacteristics", {xmemlRate(rate),
                                        {"width", width},
                                        {"height", height},
                                        {"pixelaspectratio", "square"},
                                        {"fielddominance", fieldsOf(media.facts.picture->scan)}}));
  return video;
}

Element soundOf(const Media& media) {
  return group("audio", {group("samplecharacteristics",
                               {{"depth", soundBits(media)}, {"samplerate", soundRate(media)}}),
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

Element xmemlTimecode(const project::Timecode& timecode, FrameRate rate) {
  const bool counted = timebaseOf(rateOf(timecode)).framesPerSecond <= 120;  // frames, not samples
  const FrameRate shown = counted ? rateOf(timecode) : rate;
  return group("timecode", {xmemlRate(shown),
                            {"string", timecodeText(timecode, shown)},
                            {"frame", nearestUnit(timecode.seconds(), shown)},
                            {"displayformat", timecode.dropFrame ? "DF" : "NDF"},
                            {"source", "source"}});
}

Element xmemlLabel(int device, bool premiere) {
  constexpr std::array<std::string_view, 8> colours{"Iris",      "Mango",  "Forest",   "Rose",
                                                    "Caribbean", "Yellow", "Lavender", "Tan"};
  constexpr std::array<std::string_view, 5> takes{"Good Take", "Best Take", "Alternate Shots",
                                                  "Interviews", "B Roll"};
  const auto index = static_cast<std::size_t>(device);
  return group("labels", {{"label2", premiere ? colours[index % colours.size()]
                                              : takes[index % takes.size()]}});
}

Element xmemlMarker(const Clip& clip) {
  return group(
      "marker",
      {{"name", confidenceText(clip)}, {"comment", placeText(clip)}, {"in", 0}, {"out", -1}});
}

Element xmemlFileDefinition(const Media& media, const std::string& id, FrameRate sequenceRate) {
  const FrameRate rate = pictureRate(media, sequenceRate);
  Element content("media");
  if (hasPicture(media)) content.add(pictureOf(media, rate));
  if (hasSound(media)) content.add(soundOf(media));
  Element file("file");
  file.attribute("id", id);
  file.add(Element("name", fileName(media.path)),
           Element("pathurl", fileUrl(media.path, UrlStyle::editor)), xmemlRate(rate),
           Element("duration", wholeUnits(lengthSeconds(media), rate)));
  if (media.facts.timecode) file.add(xmemlTimecode(*media.facts.timecode, rate));
  return file.add(content);
}

}  // namespace timeline
