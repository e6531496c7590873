#pragma once

#include <string>

namespace run {

/// The time of day, for the names of documents.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Hours, minutes and seconds with two digits each, "14:05:09".
  virtual std::string timeOfDay() = 0;
};

/// The computer's own clock, local time.
class SystemClock final : public Clock {
 public:
  std::string timeOfDay() override;
};

}  // namespace run
