#include "tests/export/reader.h"

#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
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
      if (complete_) checkItem(item, result.back(), number, position);
    }
    require(!complete_ || track.child("locked"), "a track without locked");
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
    for (const auto& found : document_.select_nodes("//mc-clip")) {
      const xml_node media = byId_.at(found.node().attribute("ref").value());
      std::int64_t end = 0;
      int number = 0;
      for (const xml_node angle : media.child("multicam").children())
        end = std::max(end, readAngle(angle, media.attribute("name").value(), ++number, result));
      require(end == frames(found.node(), "duration", rate_), "the multicam has another length");
    }
    return result;
  }

 private:
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
    const double length =
        seconds(inner, "duration") + (inner.attribute("start") ? seconds(inner, "start") : 0);
    require(length < seconds(asset, "duration") + 1e-9, "longer than the media");
    require(seconds(item, "duration") < seconds(asset, "duration") + 1e-9, "longer than the media");
    Placed clip{group, decoded(source.attribute("src").value()),
                0,     start,
                end,   frames(item, "start", rate_),
                number};
    if (!asset.attribute("hasVideo")) {
      clip.channel = 1;
      clip.soundAt =
          timeline::toSeconds(start, rate_) + seconds(inner, "offset") - seconds(inner, "start");
    }
    result.push_back(clip);
  }

  pugi::xml_document document_;
  timeline::FrameRate rate_;
  std::map<std::string, xml_node> byId_;
};

std::int64_t frames(const Json& time, timeline::FrameRate rate) {
  require(time.at("rate") == static_cast<double>(rate.units) / static_cast<double>(rate.seconds),
          "another rate");
  return time.at("value").get<std::int64_t>();
}

void readTrack(const Json& track, const std::string& group, int number, timeline::FrameRate rate,
               std::vector<Placed>& result) {
  std::int64_t at = 0;
  for (const Json& item : track.at("children")) {
    const Json& range = item.at("source_range");
    const std::int64_t length = frames(range.at("duration"), rate);
    if (item.at("OTIO_SCHEMA") == "Clip.1")
      result.push_back({group, decoded(item.at("media_reference").at("target_url")),
                        track.at("kind") == "Video" ? 0 : 1, at, at + length,
                        frames(range.at("start_time"), rate), number});
    at += length;
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
  const Json timelines = root.at("OTIO_SCHEMA") == "Timeline.1" ? Json{root} : root.at("children");
  for (const Json& timeline : timelines) {
    std::map<std::string, int> numbers;
    for (const Json& track : timeline.at("tracks").at("children"))
      readTrack(track, timeline.at("name"), ++numbers[track.at("kind")], rate, result);
  }
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
