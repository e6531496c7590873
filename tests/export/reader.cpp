#include "tests/export/reader.h"

#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <numeric>
#include <pugixml.hpp>
#include <set>
#include <sstream>
#include <tuple>

namespace reader {
namespace {

using pugi::xml_node;
using Json = nlohmann::json;

void require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

std::string decoded(std::string url) {
  const bool local = url.starts_with("file://localhost/");
  require(local || url.starts_with("file://"), "no file URL: " + url);
  url.erase(0, local ? 16 : 7);
  if (!url.starts_with('/')) url.insert(0, "//");
  std::string path;
  for (std::size_t i = 0; i < url.size(); ++i)
    if (url[i] == '%') {
      path += static_cast<char>(std::stoi(url.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      path += url[i];
    }
  return path.size() > 2 && path[2] == ':' ? path.substr(1) : path;
}

/// Whole numbers only, as strict readers take them.
std::int64_t number(const xml_node& node, const char* name) {
  const std::string text = node.child_value(name);
  std::size_t used = 0;
  const std::int64_t value = std::stoll(text, &used);
  require(used == text.size(), std::string(name) + " is no whole number: " + text);
  return value;
}

pugi::xml_document parsed(const std::string& text) {
  pugi::xml_document document;
  const auto result = document.load_buffer(text.data(), text.size(), pugi::parse_full);
  require(result, result.description());
  (void)Json(text).dump();  // throws if a byte is no UTF-8
  require(std::ranges::none_of(text, [](char c) { return c >= 0 && c < ' ' && c != '\n'; }),
          "control character");
  return document;
}

class Xmeml {
 public:
  Xmeml(const std::string& text, bool complete) : document_(parsed(text)), complete_(complete) {
    collectIds(document_);
  }

  std::vector<Placed> clips() {
    std::vector<Placed> result;
    for (const auto& found : document_.select_nodes("//sequence"))
      for (const char* kind : {"video", "audio"}) {
        int number = 0;
        for (xml_node track : found.node().child("media").child(kind).children("track"))
          readTrack(track, found.node().child_value("name"), ++number, result);
      }
    return result;
  }

 private:
  void collectIds(const xml_node& node) {
    const std::string id = node.attribute("id").value(), tag = node.name();
    if (tag == "file" && node.child("pathurl")) {
      require(!complete_ || !files_.contains(id), "file defined again: " + id);
      files_[id] = decoded(node.child("pathurl").child_value());
    } else if (tag == "file") {
      require(!complete_ || files_.contains(id), "reference before the definition: " + id);
    } else if (!id.empty()) {
      require(byId_.emplace(id, node).second, "id used twice: " + id);
    }
    for (const xml_node child : node.children()) collectIds(child);
  }

  void readTrack(const xml_node& track, const std::string& group, int number,
                 std::vector<Placed>& result) {
    const bool picture = std::string(track.parent().name()) == "video";
    int position = 0;
    for (const xml_node item : track.children("clipitem")) {
      ++position;
      const std::string file = item.child("file").attribute("id").value();
      require(files_.contains(file), "unknown file " + file);
      const int channel =
          picture ? 0 : static_cast<int>(reader::number(item.child("sourcetrack"), "trackindex"));
      result.push_back({group, files_[file], channel, reader::number(item, "start"),
                        reader::number(item, "end"), complete_ ? reader::number(item, "in") : 0,
                        number});
      if (item.child("pproTicksIn")) result.back().soundAt = exactPlace(item);
      if (complete_) checkItem(item, result.back(), number, position);
    }
    require(!complete_ || track.child("locked"), "a track without locked");
  }

  /// By Premiere's fine in point, which the coarse one must be near.
  static double exactPlace(const xml_node& item) {
    constexpr double kTicks = 254016000000;
    const bool ntsc = item.child("rate").child_value("ntsc") == std::string("TRUE");
    const double rate =
        double(reader::number(item.child("rate"), "timebase")) * (ntsc ? 1000.0 / 1001 : 1);
    const double in = double(reader::number(item, "pproTicksIn")) / kTicks;
    const double out = double(reader::number(item, "pproTicksOut")) / kTicks;
    require(std::abs(in * rate - double(reader::number(item, "in"))) < 0.51, "ticks beside in");
    const auto length = double(reader::number(item, "out") - reader::number(item, "in"));
    require(std::abs((out - in) * rate - length) < 1e-4, "ticks of another length");
    return double(reader::number(item, "start")) / rate - in;
  }

  void checkItem(const xml_node& item, const Placed& clip, int track, int position) {
    require(number(item, "out") - clip.in == clip.end - clip.start, "out does not fit");
    require(byId_.contains(item.child_value("masterclipid")), "no master clip");
    const std::string name = item.child_value("name");
    require(clip.path.ends_with(name) || name.find("\xEF\xBF\xBD") != std::string::npos,
            "the name is not the file's");
    for (const xml_node link : item.children("link")) {
      const std::string id = link.child_value("linkclipref");
      require(byId_.contains(id), "a link to nothing: " + id);
      const xml_node other = byId_[id];
      require(std::string(other.child_value("start")) == item.child_value("start"), "link off");
      if (other != item) continue;
      require(number(link, "trackindex") == track && number(link, "clipindex") == position,
              "a link names another place");
    }
  }

  pugi::xml_document document_;
  bool complete_;
  std::map<std::string, std::string> files_;
  std::map<std::string, xml_node> byId_;
};

/// "5s", "1001/30000s" as a numerator and a denominator.
std::pair<std::int64_t, std::int64_t> fraction(const xml_node& node, const char* name) {
  const std::string text = node.attribute(name).value();
  require(text.ends_with('s') && text.find('.') == std::string::npos, "no time: " + text);
  const auto slash = text.find('/');
  return {std::stoll(text), slash == std::string::npos ? 1 : std::stoll(text.substr(slash + 1))};
}

double seconds(const xml_node& node, const char* name) {
  const auto [numerator, denominator] = fraction(node, name);
  return static_cast<double>(numerator) / static_cast<double>(denominator);
}

/// A time that must lie on a frame.
std::int64_t frames(const xml_node& node, const char* name, timeline::FrameRate rate) {
  const auto [numerator, denominator] = fraction(node, name);
  require(numerator * rate.units % (denominator * rate.seconds) == 0,
          std::string(node.name()) + " " + name + " is off the frames");
  return numerator * rate.units / (denominator * rate.seconds);
}

class Fcpxml {
 public:
  Fcpxml(const std::string& text, timeline::FrameRate rate) : document_(parsed(text)), rate_(rate) {
    for (const auto& found : document_.select_nodes("//*[@id]"))
      require(byId_.emplace(found.node().attribute("id").value(), found.node()).second,
              "id used twice");
    for (const auto& found : document_.select_nodes("//@ref | //@format"))
      require(byId_.contains(found.attribute().value()), "a reference to nothing");
  }

  std::vector<Placed> clips() {
    std::vector<Placed> result;
    std::map<std::string, std::int64_t> shown;  // of each multicam, by its cuts
    for (const auto& found : document_.select_nodes("//mc-clip")) {
      std::int64_t& end = shown[found.node().attribute("ref").value()];
      require(frames(found.node(), "start", rate_) == end, "the cuts do not follow one another");
      end += frames(found.node(), "duration", rate_);
      checkSources(found.node());
    }
    for (const auto& [id, length] : shown) {
      const xml_node media = byId_.at(id);
      std::int64_t end = 0;
      int number = 0;
      for (const xml_node angle : media.child("multicam").children())
        end = std::max(end, readAngle(angle, media.attribute("name").value(), ++number, result));
      require(end == length, "the multicam has another length");
    }
    return result;
  }

 private:
  /// The angles of a cut are those of its multicam.
  void checkSources(const xml_node& cut) {
    const xml_node angles = byId_.at(cut.attribute("ref").value()).child("multicam");
    for (const auto& name : cut.select_nodes("@videoAngleID | @audioAngleID | mc-source/@angleID"))
      require(angles.find_child_by_attribute("angleID", name.attribute().value()),
              "a cut to no angle");
  }

  std::int64_t readAngle(const xml_node& angle, const std::string& group, int number,
                         std::vector<Placed>& result) {
    std::int64_t end = 0;
    for (const xml_node item : angle.children()) {
      require(frames(item, "offset", rate_) == end, "a hole in the angle");
      const std::int64_t start = end;
      end += frames(item, "duration", rate_);
      require(end > start, "an empty item");
      if (std::string(item.name()) != "gap") readClip(item, group, number, start, end, result);
    }
    return end;
  }

  void readClip(const xml_node& item, const std::string& group, int number, std::int64_t start,
                std::int64_t end, std::vector<Placed>& result) {
    const xml_node inner = item.attribute("ref") ? item : item.first_child();
    const xml_node asset = byId_.at(inner.attribute("ref").value());
    const xml_node source = asset.child("media-rep") ? asset.child("media-rep") : asset;
    requireInside(inner, asset);
    for (const auto& found : inner.select_nodes("audio")) requireInside(found.node(), asset);
    require(seconds(item, "duration") < seconds(asset, "duration") + 1e-9, "longer than the media");
    const double in = seconds(inner, "start") - seconds(asset, "start");
    Placed clip{group, decoded(source.attribute("src").value()), 0, start, end, 0, number};
    if (!asset.attribute("hasVideo")) {
      clip.channel = 1;
      clip.soundAt = timeline::toSeconds(start, rate_) + seconds(inner, "offset") - in;
    } else {
      clip.in = std::llround(in * double(rate_.units) / double(rate_.seconds));
    }
    result.push_back(clip);
  }

  /// What is shown lies between the media's own start and end, to the last unit.
  static void requireInside(const xml_node& part, const xml_node& asset) {
    const auto [start, startUnit] = fraction(part, "start");
    const auto [length, lengthUnit] = fraction(part, "duration");
    const auto [first, firstUnit] = fraction(asset, "start");
    const auto [whole, wholeUnit] = fraction(asset, "duration");
    __extension__ typedef __int128 Exact;
    const auto common =
        Exact(std::lcm(std::lcm(startUnit, lengthUnit), std::lcm(firstUnit, wholeUnit)));
    const auto at = [&](std::int64_t n, std::int64_t unit) { return Exact(n) * (common / unit); };
    require(at(start, startUnit) >= at(first, firstUnit), "before the media");
    require(at(start, startUnit) + at(length, lengthUnit) <=
                at(first, firstUnit) + at(whole, wholeUnit),
            "past the media");
  }

  pugi::xml_document document_;
  timeline::FrameRate rate_;
  std::map<std::string, xml_node> byId_;
};

double secondsOf(const Json& time) {
  return time.at("value").get<double>() / time.at("rate").get<double>();
}

/// The frame that a moment of a track of pictures is; of a track of samples the nearest.
std::int64_t frameAt(double seconds, timeline::FrameRate rate, bool samples) {
  const double frames = seconds * double(rate.units) / double(rate.seconds);
  require(samples || std::abs(frames - std::round(frames)) < 1e-3, "off the frames");
  return std::llround(frames);
}

void requireInside(const Json& clip) {
  const Json& used = clip.at("source_range");
  const Json& there = clip.at("media_reference").at("available_range");
  const double first = secondsOf(there.at("start_time")), start = secondsOf(used.at("start_time"));
  require(start >= first - 1e-6, "before the media");
  require(start + secondsOf(used.at("duration")) <= first + secondsOf(there.at("duration")) + 1e-6,
          "past the media");
  require(!clip.at("markers").at(0).at("comment").get<std::string>().empty(), "no comment");
}

/// From 1; the channel that other readers are told is the stream's first.
int streamOf(const Json& clip) {
  const Json& metadata = clip.at("metadata");
  const int first =
      std::stoi(metadata.at("fcp_xml").at("sourcetrack").at("trackindex").get<std::string>());
  const int stream = metadata.at("kestrel").at("stream");
  require(first >= stream && !metadata.at("kestrel").at("channels").empty(), "no such channel");
  return stream;
}

void readTrack(const Json& track, const std::string& group, int number, timeline::FrameRate rate,
               std::vector<Placed>& result) {
  double at = 0;
  for (const Json& item : track.at("children")) {
    const Json& length = item.at("source_range").at("duration");
    const bool samples = length.at("rate").get<double>() > 1000;
    const double end = at + secondsOf(length);
    if (item.at("OTIO_SCHEMA") == "Clip.1") {
      requireInside(item);
      result.push_back({group, decoded(item.at("media_reference").at("target_url")),
                        track.at("kind") == "Video" ? 0 : streamOf(item),
                        frameAt(at, rate, samples), frameAt(end, rate, samples), 0, number,
                        samples ? at : 0});
    }
    at = end;
  }
}

}  // namespace

std::strong_ordering Placed::operator<=>(const Placed& other) const {
  return std::tie(group, path, channel, start, end, in) <=>
         std::tie(other.group, other.path, other.channel, other.start, other.end, other.in);
}

std::vector<Placed> xmeml(const std::string& text, bool complete) {
  return Xmeml(text, complete).clips();
}

std::vector<Placed> fcpxml(const std::string& text, timeline::FrameRate rate) {
  return Fcpxml(text, rate).clips();
}

std::vector<Placed> otio(const std::string& text, timeline::FrameRate rate) {
  const Json root = Json::parse(text);
  std::vector<Placed> result;
  require(root.at("OTIO_SCHEMA") == "Timeline.1", "no timeline");
  std::map<std::string, int> numbers;
  for (const Json& track : root.at("tracks").at("children"))
    readTrack(track, root.at("name"), ++numbers[track.at("kind")], rate, result);
  return result;
}

std::vector<Placed> mlt(const std::string& text) {
  const pugi::xml_document document = parsed(text);
  const xml_node root = document.child("mlt"),
                 timeline = root.find_child_by_attribute("id", "timeline");
  const auto property = [](const xml_node& node, const char* name) {
    return std::string(node.find_child_by_attribute("property", "name", name).child_value());
  };
  std::vector<Placed> result;
  int number = 0;
  for (const xml_node entry : timeline.children("track")) {
    const xml_node playlist =
        root.find_child_by_attribute("playlist", "id", entry.attribute("producer").value());
    require(playlist, "a track of nothing");
    std::int64_t at = 0;
    for (const xml_node item : playlist.children()) {
      if (std::string(item.name()) == "blank") at += item.attribute("length").as_llong();
      if (std::string(item.name()) != "entry") continue;
      const xml_node producer =
          root.find_child_by_attribute("producer", "id", item.attribute("producer").value());
      const std::int64_t in = item.attribute("in").as_llong(),
                         out = item.attribute("out").as_llong();
      require(out <= producer.attribute("out").as_llong(), "past the media");
      const bool picture = property(producer, "audio_index") == "-1";
      const std::string stream = property(producer, "astream");
      const int channel = picture ? 0 : stream.empty() ? 1 : std::stoi(stream) + 1;
      if (property(producer, "mlt_service") != "color")
        result.push_back({property(playlist, "shotcut:name"), property(producer, "resource"),
                          channel, at, at + out + 1 - in, in, number});
      at += out + 1 - in;
    }
    ++number;
  }
  return result;
}

std::vector<Placed> reaper(const std::string& text) {
  std::vector<Placed> result;
  std::istringstream lines(text);
  int depth = 0;
  double position = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::string words = line.substr(std::min(line.find_first_not_of(' '), line.size()));
    depth += words.starts_with('<') ? 1 : words == ">" ? -1 : 0;
    if (words.starts_with("POSITION ")) position = std::stod(words.substr(9));
    if (words.starts_with("FILE "))
      result.push_back({"", words.substr(6, words.size() - 7), 1, 0, 0, 0, 0, position});
  }
  require(depth == 0, "brackets are open");
  return result;
}

std::vector<Placed> vegas(const std::string& text, const std::string& group) {
  std::vector<Placed> result;
  std::set<std::string> ids;
  std::istringstream lines(text);
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line)) {
    std::vector<std::string> fields;
    std::istringstream row(line);
    for (std::string field; std::getline(row, field, ';');)
      fields.push_back(field.substr(field.find_first_not_of(' ')));
    require(fields.size() == 30 && ids.insert(fields[0]).second, "a bad row: " + line);
    const std::int64_t start = std::stoll(fields[2]);
    result.push_back({group, fields[11].substr(1, fields[11].size() - 2),
                      fields[10] == "VIDEO" ? 0 : 1, start, start + std::stoll(fields[3]), 0,
                      std::stoi(fields[1])});
  }
  return result;
}

}  // namespace reader
