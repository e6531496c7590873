#include "export/mlt.h"

#include <numeric>
#include <set>

#include "export/element.h"
#include "export/lanes.h"
#include "export/media.h"
#include "export/text.h"

namespace timeline {
namespace {

/// One stream of a file: its picture, or a stream of its sound.
struct Part {
  bool picture;
  int stream = 0;  // of the sound
};

Element property(std::string_view name, std::string_view value) {
  return Element("property", value).attribute("name", name);
}

std::string producerId(const Item& item, const Part& part) {
  std::string id = (part.picture ? "picture" : "sound") + std::to_string(item.media() + 1);
  if (part.stream > 0) id += "-" + std::to_string(part.stream + 1);
  return id;
}

/// One track of the timeline: a lane's pictures, or one stream of its sounds, those apart that are
/// not meant to be heard, for the format has no clips that are switched off.
struct Track {
  std::string id, name;
  Part part;
  bool silent;
  Lane items;  // those that have that part
};

class MltWriter {
 public:
  MltWriter(const Project& project, const Group& group)
      : project_(project),
        group_(group),
        rate_(exactRate(project.fps)),
        names_(deviceNames(project)),
        items_(onGrid(project, group, {rate_})) {
    const std::vector<Lane> all = lanes(items_, deviceKeys(project_));
    for (const Lane& lane : all)
      for (int stream = 0; stream < mostStreams(lane); ++stream)
        for (const bool silent : {false, true}) addTrack(lane, {false, stream}, silent);
    for (const Lane& lane : all) addTrack(lane, {true}, false);  // pictures lie on top
  }

  std::string text() const {
    Element root("mlt");
    root.attribute("LC_NUMERIC", "C").attribute("title", group_.name).add(profile());
    addProducers(root);
    root.add(black(), background());
    for (const Track& track : tracks_) root.add(playlist(track));
    return root.add(tractor()).document("mlt");
  }

 private:
  const Media& mediaOf(const Item& item) const { return project_.media[item.media()]; }

  std::int64_t lengthOf(const Item& item, const Part& part) const {
    if (part.picture) return item.pictureLength;
    return part.stream < soundStreams(mediaOf(item)) ? item.soundLength : 0;
  }

  int mostStreams(const Lane& lane) const {
    int most = 0;
    for (const Item& item : lane) most = std::max(most, soundStreams(mediaOf(item)));
    return most;
  }

  bool isSilent(const Item& item, const Part& part) const {
    if (part.picture) return false;
    const bool covered = !project_.cameraSound && coveredByRecorders(project_, group_, item.clip);
    return covered || !isHeard(mediaOf(item), {part.stream, 0, ""});
  }

  void addTrack(const Lane& lane, const Part& part, bool silent) {
    Lane items;
    for (const Item& item : lane)
      if (lengthOf(item, part) > 0 && isSilent(item, part) == silent) items.push_back(item);
    if (items.empty()) return;
    std::string name = names_[lane.front().media()];
    if (part.stream > 0) name += " " + std::to_string(part.stream + 1);
    tracks_.push_back(
        {"playlist" + std::to_string(tracks_.size()), name, part, silent, std::move(items)});
  }

  /// Each part of a file once, however many pieces of it there are.
  void addProducers(Element& root) const {
    std::set<std::string> known;
    for (const Track& track : tracks_)
      for (const Item& item : track.items)
        if (known.insert(producerId(item, track.part)).second) root.add(producer(item, track.part));
  }

  Element profile() const {
    const int divisor = std::gcd(project_.width, project_.height);
    return Element("profile")
        .attribute("description", "automatic")
        .attribute("width", project_.width)
        .attribute("height", project_.height)
        .attribute("progressive", 1)
        .attribute("sample_aspect_num", 1)
        .attribute("sample_aspect_den", 1)
        .attribute("display_aspect_num", project_.width / divisor)
        .attribute("display_aspect_den", project_.height / divisor)
        .attribute("frame_rate_num", rate_.units)
        .attribute("frame_rate_den", rate_.seconds)
        .attribute("colorspace", 709);
  }

  /// One part of a file alone; the other is on a track of its own. Without a length of its own it
  /// would be taken to be one frame long, and silent.
  Element producer(const Item& item, const Part& part) const {
    const Media& media = mediaOf(item);
    Element result("producer");
    const std::int64_t length = std::max<std::int64_t>(1, wholeUnits(lengthSeconds(media), rate_));
    result.attribute("id", producerId(item, part))
        .attribute("in", 0)
        .attribute("out", length - 1)
        .add(property("length", std::to_string(length)), property("resource", media.path),
             property("mlt_service", "avformat-novalidate"),
             property("kestrel:name", fileName(media.path)));
    if (part.picture) return result.add(property("audio_index", "-1"));
    result.add(property("video_index", "-1"));
    if (soundStreams(media) > 1)  // newer releases count sound streams, older ones all streams
      result.add(property("audio_index", std::to_string(indexOfSound(media, part.stream))),
                 property("astream", std::to_string(part.stream)));
    return result;
  }

  std::int64_t last() const { return std::max<std::int64_t>(endOf(items_), 1) - 1; }

  Element black() const {
    Element result("producer");
    return result.attribute("id", "black")
        .attribute("in", 0)
        .attribute("out", last())
        .add(property("mlt_service", "color"), property("resource", "black"));
  }

  Element background() const {
    Element entry("entry"), result("playlist");
    entry.attribute("producer", "black").attribute("in", 0).attribute("out", last());
    return result.attribute("id", "background").add(std::move(entry));
  }

  Element playlist(const Track& track) const {
    Element result("playlist");
    result.attribute("id", track.id)
        .add(property(track.part.picture ? "shotcut:video" : "shotcut:audio", "1"),
             property("shotcut:name", track.name), property("kdenlive:track_name", track.name));
    if (!track.part.picture) result.add(property("kdenlive:audio_track", "1"));
    std::int64_t end = 0;
    for (const Item& item : track.items) {
      if (item.start > end) result.add(Element("blank").attribute("length", item.start - end));
      const std::int64_t length = lengthOf(item, track.part);
      result.add(Element("entry")
                     .attribute("producer", producerId(item, track.part))
                     .attribute("in", item.in)
                     .attribute("out", item.in + length - 1));
      end = item.start + length;
    }
    return result;
  }

  Element tractor() const {
    Element result("tractor");
    result.attribute("id", "timeline")
        .add(property("shotcut", "1"), Element("track").attribute("producer", "background"));
    for (const Track& track : tracks_) {
      Element entry("track");
      entry.attribute("producer", track.id);
      if (!track.part.picture) entry.attribute("hide", track.silent ? "both" : "video");
      result.add(std::move(entry));
    }
    for (int track = 1; track <= std::ssize(tracks_); ++track)
      result.add(transition(track, tracks_[track - 1].part));
    return result;
  }

  static Element transition(int track, const Part& part) {
    Element result("transition");
    const std::string at = std::to_string(track);
    result.add(property("a_track", "0"), property("b_track", at),
               property("mlt_service", part.picture ? "qtblend" : "mix"),
               property("always_active", "1"));
    if (!part.picture) result.add(property("sum", "1"));
    return result;
  }

  const Project& project_;
  const Group& group_;
  FrameRate rate_;
  std::vector<std::string> names_;  // of the devices, by media
  std::vector<Item> items_;
  std::vector<Track> tracks_;
};

}  // namespace

std::string mltDocument(const Project& project, const Group& group) {
  return MltWriter(project, group).text();
}

}  // namespace timeline
