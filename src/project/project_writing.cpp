#include <cmath>
#include <nlohmann/json.hpp>

#include "project/fields.h"
#include "project/json_rest.h"
#include "project/path_text.h"
#include "project/project_text.h"

namespace project {
namespace {

/// Fills a JSON object from a part of a project.
class Writer {
 public:
  explicit Writer(const std::string& folder) : folder_(folder) {}

  template <class Value>
  void operator()(const char* name, const Value& value) {
    json_[name] = jsonOf(value);
  }
  template <class Value>
  void operator()(const char* name, const std::optional<Value>& value) {
    if (value) json_[name] = jsonOf(*value);
  }
  template <class Value, std::size_t size>
  void word(const char* name, Value value, const Words<Value, size>& words) {
    for (const auto& [known, word] : words)
      if (known == value) json_[name] = word;
  }
  void path(const char* name, const std::string& path) { json_[name] = placeOf(path); }
  void paths(const char* name, const std::vector<std::string>& paths) {
    Json list = Json::array();
    for (const std::string& path : paths) list.push_back(placeOf(path));
    json_[name] = std::move(list);
  }
  void unknown(const Unknown& rest) {
    if (!rest.empty()) addRest(json_, Json::parse(rest, nullptr, false));
  }

  Json take() { return std::move(json_); }

 private:
  template <class Value>
  Json jsonOf(const Value& value) {
    if constexpr (std::is_arithmetic_v<Value> || std::same_as<Value, std::string>) {
      return value;
    } else {
      Writer part(folder_);
      fields(part, value);
      return part.take();
    }
  }
  template <class Value>
  Json jsonOf(const std::vector<Value>& values) {
    Json list = Json::array();
    for (const Value& value : values) list.push_back(jsonOf(value));
    return list;
  }
  Json placeOf(const std::string& path) {
    Json place = Json::object();
    if (const auto relative = relativePath(path, folder_))
      place["relative"] = escapedPath(*relative);
    place["absolute"] = escapedPath(path);
    return place;
  }

  const std::string& folder_;
  Json json_ = Json::object();
};

}  // namespace

std::string projectText(const Project& project, const std::string& folder) {
  Writer writer(folder);
  fields(writer, project);
  Json json{{"kestrel_project", kForm}};
  json.update(writer.take());
  return json.dump(1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace project
