#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "run/media_probe.h"

namespace run {

/// What the library answers of one stream, by the names of its fields; empty answers are left out.
class StreamFields {
 public:
  StreamFields() = default;
  explicit StreamFields(std::map<std::string, std::string> answers)
      : answers_(std::move(answers)) {}
  std::string text(const std::string& field) const;
  double number(const std::string& field) const;   // 0 where there is none, or an absurd one
  int count(const std::string& field) const;       // of a whole number from 0 up
  double seconds(const std::string& field) const;  // of a field in milliseconds
  bool empty() const { return answers_.empty(); }

 private:
  std::map<std::string, std::string> answers_;
};

/// All streams of one file.
struct FileFields {
  StreamFields general;
  std::vector<StreamFields> pictures, sounds, others;
};

/// The properties that the answers tell. Pure.
MediaProperties propertiesOf(const FileFields& file);

}  // namespace run
