#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>

#include "project/check.h"
#include "project/fields.h"
#include "project/json_rest.h"
#include "project/path_text.h"
#include "project/project_text.h"

namespace project {
namespace {

constexpr int kDeepest = 100;  // levels of brackets; what is deeper would end the stack

/// What all readers of one file share.
struct Reading {
  const std::string& folder;
  const std::function<bool(const std::string&)>& exists;
  std::string problem;  // the first one

  void fail(const std::string& where, const std::string& what) {
    if (problem.empty()) problem = where + " " + what;
  }
};

/// Fills a part of a project from a JSON object. A field that is not there or null leaves what it
/// would fill as it is. Fields that nobody asks for are the rest.
class Reader {
 public:
  Reader(const Json& json, std::string where, Reading& reading)
      : json_(json), where_(std::move(where)), reading_(reading) {
    if (!json.is_object()) reading_.fail(where_, "is no object");
  }

  template <class Value>
  void operator()(const char* name, Value& value) {
    if (const Json* field = find(name)) value = valueOf<Value>(*field, name, placeOf(name));
  }
  template <class Value>
  void operator()(const char* name, std::optional<Value>& value) {
    if (const Json* field = find(name)) value = valueOf<Value>(*field, name, placeOf(name));
  }
  template <class Value>
  void operator()(const char* name, std::vector<Value>& values) {
    const Json* field = find(name);
    if (!field) return;
    if (!field->is_array()) return reading_.fail(placeOf(name), "is no list");
    Json rests = Json::array();
    for (const Json& element : *field) {
      const std::string where = placeOf(name) + "[" + std::to_string(values.size()) + "]";
      Json rest;
      values.push_back(plainValueOf<Value>(element, where, rest));
      rests.push_back(std::move(rest));
    }
    const auto isNothing = [](const Json& rest) { return rest.is_null(); };
    if (!std::ranges::all_of(rests, isNothing)) rest_[name] = std::move(rests);
  }
  template <class Value, std::size_t size>
  void word(const char* name, Value& value, const Words<Value, size>& words) {
    const Json* field = find(name);
    if (!field) return;
    for (const auto& [known, word] : words)
      if (*field == word) {
        value = known;
        return;
      }
    reading_.fail(placeOf(name), "is none of the words that may stand there");
  }
  void path(const char* name, std::string& path) {
    const Json* field = find(name);
    if (!field) return;
    Json rest;
    path = pathOf(*field, placeOf(name), rest);
    if (!rest.is_null()) rest_[name] = std::move(rest);
  }
  void paths(const char* name, std::vector<std::string>& paths) {
    const Json* field = find(name);
    if (!field) return;
    if (!field->is_array()) return reading_.fail(placeOf(name), "is no list");
    Json ignored;  // of what was written once there is nothing more to know
    for (const Json& element : *field) paths.push_back(pathOf(element, placeOf(name), ignored));
  }
  void unknown(Unknown& text) {
    const Json rest = takeRest();
    if (!rest.is_null()) text = rest.dump();
    kept_ = true;
  }

  /// The fields that nobody asked for, here and in parts that keep none themselves; null if there
  /// are none or they are kept.
  Json takeRest() {
    if (json_.is_object() && !kept_)
      for (const auto& [name, value] : json_.items())
        if (!known_.contains(name)) rest_[name] = value;
    return std::exchange(rest_, Json());
  }

 private:
  std::string placeOf(const char* name) const {
    return where_.empty() ? std::string(name) : where_ + "." + name;
  }

  const Json* find(const char* name) {
    known_.insert(name);
    if (!json_.is_object()) return nullptr;
    const auto found = json_.find(name);
    return found == json_.end() || found->is_null() ? nullptr : &*found;
  }

  template <class Value>
  Value valueOf(const Json& json, const char* name, const std::string& where) {
    Json rest;
    Value value = plainValueOf<Value>(json, where, rest);
    if (!rest.is_null()) rest_[name] = std::move(rest);
    return value;
  }

  template <class Value>
  Value plainValueOf(const Json& json, const std::string& where, Json& rest) {
    if constexpr (std::same_as<Value, bool>) {
      if (!json.is_boolean()) reading_.fail(where, "is neither true nor false");
      return json.is_boolean() && json.get<bool>();
    } else if constexpr (std::same_as<Value, std::string>) {
      if (!json.is_string()) reading_.fail(where, "is no text");
      return json.is_string() ? json.get<std::string>() : std::string();
    } else if constexpr (std::is_integral_v<Value>) {
      return wholeNumber<Value>(json, where);
    } else if constexpr (std::is_floating_point_v<Value>) {
      if (!json.is_number()) reading_.fail(where, "is no number");
      return json.is_number() ? json.get<Value>() : Value();
    } else {
      Value value;
      Reader part(json, where, reading_);
      fields(part, value);
      rest = part.takeRest();
      return value;
    }
  }

  template <class Value>
  Value wholeNumber(const Json& json, const std::string& where) {
    if (json.is_number_unsigned() && std::in_range<Value>(json.get<std::uint64_t>()))
      return static_cast<Value>(json.get<std::uint64_t>());
    if (json.is_number_integer() && !json.is_number_unsigned() &&
        std::in_range<Value>(json.get<std::int64_t>()))
      return static_cast<Value>(json.get<std::int64_t>());
    reading_.fail(where, "is no whole number that may stand there");
    return {};
  }

  std::string pathOf(const Json& json, const std::string& where, Json& rest) {
    std::string relative, absolute;
    Reader place(json, where, reading_);
    place("relative", relative);
    place("absolute", absolute);
    rest = place.takeRest();
    absolute = unescapedPath(absolute);
    if (relative.empty()) return absolute;
    std::string beside = pathFrom(reading_.folder, unescapedPath(relative));
    return absolute.empty() || reading_.exists(beside) ? beside : absolute;
  }

  const Json& json_;
  std::string where_;
  Reading& reading_;
  std::set<std::string, std::less<>> known_;
  Json rest_;
  bool kept_ = false;  // the rest is in the part itself
};

/// The text as JSON; discarded where it is none. `problem` says why.
Json parse(std::string_view text, std::string& problem) {
  bool tooDeep = false;
  const auto watch = [&](int depth, Json::parse_event_t, Json&) {
    tooDeep |= depth > kDeepest;
    return !tooDeep;
  };
  Json json;
  try {
    json = Json::parse(text, watch);
  } catch (const Json::parse_error& error) {
    problem = "it is damaged at byte " + std::to_string(error.byte);
  } catch (const Json::exception&) {
    problem = "it is damaged: a number is too large";
  }
  if (tooDeep) problem = "it is damaged: brackets stand in brackets without end";
  return json;
}

/// Whether it is a project that this version can read.
std::string problemOfForm(const Json& json) {
  if (!json.is_object() || !json.contains("kestrel_project"))
    return "it is not a project of Kestrel Aligner";
  const Json& form = json["kestrel_project"];
  if (!form.is_number_integer()) return "it is damaged: its version is no number";
  if (form.get<std::int64_t>() > kForm)
    return "it was made by a newer version of Kestrel Aligner, which this one cannot read";
  return {};
}

}  // namespace

ReadProject readProjectText(std::string_view text, const std::string& folder,
                            const std::function<bool(const std::string&)>& exists) {
  std::string problem;
  Json json = parse(text, problem);
  if (problem.empty()) problem = problemOfForm(json);
  if (!problem.empty()) return {{}, problem};
  json.erase("kestrel_project");
  Reading reading{folder, exists, {}};
  Reader reader(json, {}, reading);
  Project project;
  fields(reader, project);
  if (reading.problem.empty()) reading.problem = problemOf(project);
  if (!reading.problem.empty()) return {{}, "it is damaged: " + reading.problem};
  return {std::move(project), {}};
}

}  // namespace project
