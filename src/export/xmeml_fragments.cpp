#include "export/xmeml_fragments.h"

#include <array>
#include <cmath>

#include "export/text.h"

namespace timeline {
namespace {

template <typename... Parts>
std::string joined(const Parts&... parts) {
  std::string result;
  (result.append(parts), ...);
  return result;
}

std::string frames(float seconds, float fps) { return numberText(std::abs(seconds * fps)); }

std::string startAndEnd(float offset, float duration, float fps) {
  const float end = std::abs(duration * fps + offset * fps);
  return joined("<start>", frames(offset, fps), "</start><end>", numberText(end), "</end>");
}

std::string fileReference(int id) { return joined("<file id=\"", numberText(id), "\"/>"); }

std::string audioTrack(int id, float offset, float duration, float fps, std::string_view channel) {
  return joined("<track><clipitem>", startAndEnd(offset, duration, fps), fileReference(id),
                "<sourcetrack><mediatype>audio</mediatype><trackindex>", channel,
                "</trackindex></sourcetrack></clipitem></track>");
}

}  // namespace

const std::string_view kPremiereBlock =
    R"(  TL.SQAudioVisibleBase="0" TL.SQVideoVisibleBase="0" TL.SQVisibleBaseTime="0")"
    R"( TL.SQAVDividerPosition="0.5" TL.SQHideShyTracks="0" TL.SQHeaderWidth="164")"
    R"( Monitor.ProgramZoomOut="152409600000000" Monitor.ProgramZoomIn="0")"
    R"( TL.SQTimePerPixel="0.2" MZ.EditLine="4216644432000")"
    R"( MZ.Sequence.PreviewFrameSizeHeight="576" MZ.Sequence.PreviewFrameSizeWidth="720")"
    R"( MZ.Sequence.AudioTimeDisplayFormat="200" MZ.Sequence.VideoTimeDisplayFormat="110")"
    R"( MZ.Sequence.PreviewRenderingClassID="1061109567")"
    R"( MZ.Sequence.PreviewRenderingPresetCodec="1685288560")"
    R"( MZ.Sequence.PreviewRenderingPresetPath="EncoderPresets\SequencePreview\)"
    R"(9678af98-a7b7-4bdb-b477-7ac9c8df4a4e\Microsoft AVI.epr")"
    R"( MZ.Sequence.PreviewUseMaxRenderQuality="false")"
    R"( MZ.Sequence.PreviewUseMaxBitDepth="false")"
    R"( MZ.Sequence.EditingModeGUID="9678af98-a7b7-4bdb-b477-7ac9c8df4a4e")"
    R"( MZ.WorkOutPoint="13349175840000" MZ.WorkInPoint="0)";

std::string xmemlProject(std::string_view name, std::string_view children) {
  return joined(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!DOCTYPE xmeml>"
      "<xmeml version=\"4\"><project><name>",
      name, "</name><children>", children, "</children></project></xmeml>");
}

std::string xmemlSequence(std::string_view id, std::string_view name, float fps,
                          std::string_view videoTracks, std::string_view audioTracks,
                          int premiere) {
  return joined("<sequence id=\"", id, premiere == 1 ? kPremiereBlock : "", "\"><name>", name,
                "</name><duration>20000</duration><rate><timebase>", numberText(fps),
                "</timebase></rate><media><video>", videoTracks, "</video><audio>", audioTracks,
                "</audio></media></sequence>");
}

std::string xmemlAudioTracks(int id, float offset, float duration, float fps) {
  return audioTrack(id, offset, duration, fps, "1") + audioTrack(id, offset, duration, fps, "2");
}

std::string xmemlVideoTrack(int id, float offset, float duration, float fps) {
  return joined("<track><clipitem>", startAndEnd(offset, duration, fps), fileReference(id),
                "</clipitem></track>");
}

std::string xmemlClip(std::string_view name, float fps, std::string_view fileElement,
                      std::string_view mediaElement, float duration) {
  return joined("<clip><rate><timebase>", numberText(fps), "</timebase></rate><name>", name,
                "</name><duration>", numberText(duration * fps), "</duration>", fileElement,
                mediaElement, "</clip>");
}

std::string xmemlPathUrl(std::string_view path) {
  // Paired by position. The back slashes never match, as they have become slashes by then, so a
  // double quote and a comma stand unescaped: established, readers of these documents rely on it.
  constexpr std::string_view special = "! :\\#$%&'()*+\\";
  constexpr std::array<std::string_view, 14> escapes{"%21", "%20", "%3A", "%22", "%23",
                                                     "%24", "%25", "%26", "%27", "%28",
                                                     "%29", "%2A", "%2B", "%2C"};
  std::string url = "file://localhost/";
  for (char c : path) {
    if (c == '\\') c = '/';
    const auto k = special.find(c);
    if (k == std::string_view::npos)
      url += c;
    else
      url += escapes[k];
  }
  return url;
}

std::string xmemlFile(int id, std::string_view pathUrl) {
  return joined("<file id=\"", numberText(id), "\"><pathurl>", pathUrl, "</pathurl></file>");
}

std::string xmemlWavMedia(int id, std::string_view pathUrl) {
  return joined("<media><audio><track><clipitem>", xmemlFile(id, pathUrl),
                "</clipitem></track></audio>");
}

}  // namespace timeline
