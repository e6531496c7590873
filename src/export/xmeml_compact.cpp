#include "export/frame_rate.h"
#include "export/lanes.h"
#include "export/media.h"
#include "export/text.h"
#include "export/xmeml_forms.h"
#include "export/xmeml_fragments.h"

namespace timeline {
namespace {

/// The fragments multiply seconds by the rate as the user gave it; these seconds come out as
/// exactly `frames` there.
float fragmentSeconds(std::int64_t frames, float fps) {
  return static_cast<float>(static_cast<double>(frames) / fps);
}

int fileId(int media) { return media + 1; }

std::string pathUrl(const Media& media) {
  std::string path = cleanText(media.path);
  if (path.starts_with('/')) path.erase(0, 1);  // the URL's own slash stands for it
  return escaped(xmemlPathUrl(path));
}

std::string pictureMedia(int id, bool hasAudio) {
  const std::string track =
      "<track><clipitem><file id=\"" + numberText(id) + "\"/></clipitem></track>";
  return "<media><video>" + track + "</video>" + (hasAudio ? "<audio>" + track + "</audio>" : "") +
         "</media>";
}

std::string masterClip(const Project& project, int index) {
  const Media& media = project.media[index];
  const auto fps = static_cast<float>(project.fps);
  const std::int64_t frames = wholeUnits(lengthSeconds(media), exactRate(project.fps));
  const int id = fileId(index);
  const std::string url = pathUrl(media);
  const std::string mediaElement =
      hasPicture(media) ? pictureMedia(id, hasSound(media)) : xmemlWavMedia(id, url) + "</media>";
  return xmemlClip(escaped(fileName(media.path)), fps, xmemlFile(id, url), mediaElement,
                   fragmentSeconds(frames, fps));
}

std::string sequence(const Project& project, const Group& group, const std::string& id,
                     XmemlTarget target) {
  const auto fps = static_cast<float>(project.fps);
  std::string video, audio;
  for (const Item& item : onGrid(project, group, {exactRate(project.fps)})) {
    const float offset = fragmentSeconds(item.start, fps);
    const float duration = fragmentSeconds(item.length(), fps);
    const Media& media = project.media[item.media()];
    if (hasPicture(media)) video += xmemlVideoTrack(fileId(item.media()), offset, duration, fps);
    if (hasSound(media)) audio += xmemlAudioTracks(fileId(item.media()), offset, duration, fps);
  }
  const bool premiere = target == XmemlTarget::premiere;
  return xmemlSequence(premiere ? id + "\"" : id, escaped(group.name), fps, video, audio, premiere);
}

}  // namespace

std::string compactXmeml(const Project& project, const XmemlContents& contents,
                         XmemlTarget target) {
  std::string children;  // clips first: they define the files that the sequences refer to
  for (const int media : contents.media) children += masterClip(project, media);
  int number = 0;
  for (const Group& group : contents.groups)
    children += sequence(project, group, "sequence-" + std::to_string(++number), target);
  return xmemlProject(contents.name, children);
}

}  // namespace timeline
