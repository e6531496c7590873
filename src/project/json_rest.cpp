#include "project/json_rest.h"

namespace project {

void addRest(Json& json, const Json& rest) {
  if (json.is_object() && rest.is_object()) {
    for (const auto& [name, value] : rest.items())
      if (json.contains(name))
        addRest(json[name], value);
      else
        json[name] = value;
  } else if (json.is_array() && rest.is_array() && json.size() == rest.size()) {
    for (std::size_t i = 0; i < json.size(); ++i) addRest(json[i], rest[i]);
  }
}

}  // namespace project
