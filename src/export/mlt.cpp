#include "export/mlt.h"

#include <numeric>

#include "export/element.h"
#include "export/lanes.h"
#include "export/media.h"
#include "export/text.h"

namespace timeline {
namespace {

enum class Kind { video, audio };

Element property(std::string_view name, std::string_view value) {
  return Element("property", value).attribute("name", name);
}

std::string producerId(const Item& item, Kind kind) {
  return (kind == Kind::video ? "picture" : "sound") + std::to_string(item.media() + 1);
}

/// One track of the timeline: a lane's pictures or its sounds.
struct Track {
  std::string id;
  Kind kind;
  Lane items;  // those that have that part
};

std::int64_t partLength(const Item& item, Kind kind) {
  return kind == Kind::video ? item.pictureLength : item.soundLength;
}

class MltWriter {
 public:
  MltWriter(const Project& project, const Group& group)
      : project_(project),
        group_(group),
        rate_(exactRate(project.fps)),
        names_(deviceNames(project)),
        items_(onGrid(project, group, {rate_})) {
    for (const Kind kind : {Kind::audio, Kind::video}) addTracks(kind);  // pictures lie on top
  }

  std::string text() const {
    Element root("mlt");
    root.attribute("LC_NUMERIC", "C").attribute("title", group_.name).add(profile());
    for (const Kind kind : {Kind::audio, Kind::video})
      for (const Item& item : items_)
        if (partLength(item, kind) > 0 && isFirstPiece(item)) root.add(producer(item, kind));
    root.add(black(), background());
    for (const Track& track : tracks_) root.add(playlist(track));
    return root.add(tractor()).document("mlt");
  }

 private:
  const Media& mediaOf(const Item& item) const { return project_.media[item.media()]; }

  bool isFirstPiece(const Item& item) const {
    return &item == &*std::ranges::find(items_, item.media(), &Item::media);
  }

  void addTracks(Kind kind) {
    for (const Lane& lane : lanes(items_, deviceKeys(project_))) {
      Lane part;
      for (const Item& item : lane)
        if (partLength(item, kind) > 0) part.push_back(item);
      if (!part.empty())
        tracks_.push_back({"playlist" + std::to_string(tracks_.size()), kind, std::move(part)});
    }
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
  Element producer(const Item& item, Kind kind) const {
    const Media& media = mediaOf(item);
    Element result("producer");
    const std::int64_t length = std::max<std::int64_t>(1, wholeUnits(lengthSeconds(media), rate_));
    result.attribute("id", producerId(item, kind))
        .attribute("in", 0)
        .attribute("out", length - 1)
        .add(property("length", std::to_string(length)), property("resource", media.path),
             property("mlt_service", "avformat-novalidate"),
             property("kestrel:name", fileName(media.path)));
    if (kind == Kind::video) return result.add(property("audio_index", "-1"));
    result.add(property("video_index", "-1"));
    if (media.heardStream > 0) result.add(property("astream", std::to_string(media.heardStream)));
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
    const std::string& name = names_[track.items.front().media()];
    result.attribute("id", track.id)
        .add(property(track.kind == Kind::video ? "shotcut:video" : "shotcut:audio", "1"),
             property("shotcut:name", name), property("kdenlive:track_name", name));
    if (track.kind == Kind::audio) result.add(property("kdenlive:audio_track", "1"));
    std::int64_t end = 0;
    for (const Item& item : track.items) {
      if (item.start > end) result.add(Element("blank").attribute("length", item.start - end));
      const std::int64_t length = partLength(item, track.kind);
      result.add(Element("entry")
                     .attribute("producer", producerId(item, track.kind))
                     .attribute("in", item.in)
                     .attribute("out", item.in + length - 1));
      end = item.start + length;
    }
    return result;
  }

  bool isSilenced(const Track& track) const {
    return track.kind == Kind::audio && !project_.cameraSound &&
           std::ranges::all_of(track.items, [&](const Item& item) {
             return coveredByRecorders(project_, group_, item.clip);
           });
  }

  Element tractor() const {
    Element result("tractor");
    result.attribute("id", "timeline")
        .add(property("shotcut", "1"), Element("track").attribute("producer", "background"));
    for (const Track& track : tracks_) {
      Element entry("track");
      entry.attribute("producer", track.id);
      if (track.kind == Kind::audio) entry.attribute("hide", isSilenced(track) ? "both" : "video");
      result.add(std::move(entry));
    }
    for (int track = 1; track <= std::ssize(tracks_); ++track)
      result.add(transition(track, tracks_[track - 1].kind));
    return result;
  }

  static Element transition(int track, Kind kind) {
    Element result("transition");
    const std::string at = std::to_string(track);
    result.add(property("a_track", "0"), property("b_track", at),
               property("mlt_service", kind == Kind::video ? "qtblend" : "mix"),
               property("always_active", "1"));
    if (kind == Kind::audio) result.add(property("sum", "1"));
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
