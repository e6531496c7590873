#pragma once

#include <nlohmann/json.hpp>

namespace project {

using Json = nlohmann::ordered_json;

/// Adds to `json` what `rest` has beyond it: fields of objects, also within the elements of lists
/// that are both as long. What `json` has stays.
void addRest(Json& json, const Json& rest);

}  // namespace project
