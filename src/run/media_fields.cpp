#include "run/media_fields.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <sstream>

#include "run/media_timecode.h"

namespace run {
namespace {

using project::Rate;

constexpr double kMilliseconds = 1e-3;
// Frames per second; a slideshow's or a damaged header's rate is none to count by.
constexpr double kSlowest = 1, kFastest = 1000;
// A damaged header may say any number; within these, frames and samples of a day can be counted.
constexpr double kLargest = 1e12;
constexpr int kLargestCount = 1'000'000'000;
constexpr const char* kUntoldRate = "0.000";  // a picture is there; its rate follows the sequence

/// 29.970 is 30000/1001; a rate that is near none of its kind is taken to the thousandth.
Rate rateOf(double framesPerSecond) {
  if (!(framesPerSecond >= kSlowest && framesPerSecond <= kFastest)) return {};
  const double whole = std::ceil(framesPerSecond - 0.006);
  const auto isNear = [&](double rate) { return std::abs(framesPerSecond - rate) < 0.006; };
  if (isNear(whole)) return {std::llround(whole), 1};
  if (isNear(whole * 1000 / 1001)) return {std::llround(whole * 1000), 1001};
  return {std::llround(framesPerSecond * 1000), 1000};
}

Rate pictureRate(const StreamFields& stream) {
  const Rate told{stream.count("FrameRate_Num"), stream.count("FrameRate_Den")};
  if (told.known() && rateOf(told.perSecond()).known()) return told;
  if (const Rate rate = rateOf(stream.number("FrameRate")); rate.known()) return rate;
  const double frames = stream.number("FrameCount"), length = stream.seconds("Duration");
  return frames > 1 && length > 0 ? rateOf(frames / length) : Rate{};
}

bool isVariable(const StreamFields& stream) {
  if (stream.text("FrameRate_Mode") != "VFR") return false;
  const std::string slowest = stream.text("FrameRate_Minimum");
  return slowest.empty() || slowest != stream.text("FrameRate_Maximum");
}

project::Scan scanOf(const StreamFields& stream) {
  const std::string type = stream.text("ScanType");
  if (type.empty() || type == "Progressive") return project::Scan::progressive;
  return stream.text("ScanOrder").starts_with("BFF") ? project::Scan::bottomFieldFirst
                                                     : project::Scan::topFieldFirst;
}

int rotationOf(const StreamFields& stream) {
  const int quarters = static_cast<int>(std::lround(stream.number("Rotation") / 90));
  return ((quarters % 4) + 4) % 4 * 90;
}

project::Picture pictureOf(const StreamFields& stream) {
  project::Picture picture;
  picture.rate = pictureRate(stream);
  picture.variableRate = isVariable(stream);
  picture.width = stream.count("Width");
  picture.height = stream.count("Height");
  picture.rotation = rotationOf(stream);
  if (const double aspect = stream.number("PixelAspectRatio"); aspect > 0)
    picture.pixelAspect = aspect;
  picture.scan = scanOf(stream);
  picture.lengthSeconds = stream.seconds("Duration");
  return picture;
}

std::vector<std::string> layoutOf(const StreamFields& stream, int channels) {
  std::istringstream words(stream.text("ChannelLayout"));
  std::vector<std::string> names{std::istream_iterator<std::string>(words), {}};
  if (std::ssize(names) != channels) names.clear();
  return names;
}

/// The whole length in samples where it is told, for milliseconds are too coarse for sound.
double soundLength(const StreamFields& stream, int rate) {
  const double samples = stream.number("SamplingCount"), length = stream.seconds("Duration");
  const bool agree = rate > 0 && std::abs(samples / rate - length) < 1.5 * kMilliseconds;
  return agree ? samples / rate : length;
}

project::Sound soundOf(const StreamFields& stream) {
  project::Sound sound;
  sound.channels = stream.count("Channel(s)");
  sound.rate = stream.count("SamplingRate");
  sound.bits = stream.count("BitDepth");
  sound.layout = layoutOf(stream, sound.channels);
  sound.lengthSeconds = soundLength(stream, sound.rate);
  if (const std::string order = stream.text("StreamOrder"); !order.empty())
    sound.index = stream.count("StreamOrder");
  return sound;
}

/// By the tracks' edit lists, where a negative delay is the encoder's and left out by decoders, or
/// by the time stamps. A track's delay counts from midnight where the file has a timecode.
double soundStart(const StreamFields& picture, const StreamFields& sound, double timecode) {
  constexpr double kBelievable = 10;  // seconds; more is a broken time stamp
  const auto inTrack = [&](const StreamFields& stream) {
    const double delay = stream.seconds("Source_Delay");
    return std::max(0.0, delay > timecode - 1 ? delay - timecode : delay);
  };
  const bool edited = !sound.text("Source_Delay").empty();
  const double seconds = edited ? inTrack(sound) - inTrack(picture) : sound.seconds("Video_Delay");
  return std::abs(seconds) < kBelievable ? seconds : 0;
}

std::string modelOf(const FileFields& file) {
  for (const char* field : {"Encoded_Hardware_Model", "Encoded_Hardware_Name",
                            "com.apple.quicktime.model", "Encoded_Hardware"})
    if (const std::string model = file.general.text(field); !model.empty()) return model;
  return file.pictures.empty() ? file.general.text("Producer") : "";  // the recorder's, in bext
}

/// The moment of the first text that holds a date and a time of day, "2024-05-18 14:05:09", in
/// seconds since 1970 and whatever zone it speaks of.
std::int64_t recordedAt(const StreamFields& general) {
  for (const char* field : {"Recorded_Date", "Encoded_Date", "Mastered_Date", "Tagged_Date"}) {
    const std::string text = general.text(field);
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    const std::size_t digits = text.find_first_of("0123456789");
    if (digits == text.npos || std::sscanf(text.c_str() + digits, "%4d-%2d-%2d%*1[ T]%2d:%2d:%2d",
                                           &year, &month, &day, &hour, &minute, &second) != 6)
      continue;
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok() || year <= 1970) continue;  // a clock that was never set
    const auto days = std::chrono::sys_days(date).time_since_epoch().count();
    return std::int64_t(days) * 86400 + hour * 3600 + minute * 60 + second;
  }
  return 0;
}

}  // namespace

std::string StreamFields::text(const std::string& field) const {
  const auto found = answers_.find(field);
  return found == answers_.end() ? std::string() : found->second;
}

double StreamFields::number(const std::string& field) const {
  const std::string answer = text(field);
  double value = 0;
  std::from_chars(answer.data(), answer.data() + answer.size(), value);
  return std::abs(value) <= kLargest ? value : 0;
}

int StreamFields::count(const std::string& field) const {
  const double value = number(field);
  return value >= 0 && value <= kLargestCount ? static_cast<int>(value) : 0;
}

double StreamFields::seconds(const std::string& field) const {
  return number(field) * kMilliseconds;
}

MediaProperties propertiesOf(const FileFields& file) {
  MediaProperties media;
  media.opened = true;
  project::MediaFacts& facts = media.facts;
  facts.timecode = timecodeOf(file);
  if (!file.pictures.empty()) {
    facts.picture = pictureOf(file.pictures.front());
    media.frameRate = file.pictures.front().text("FrameRate");
    if (!rateOf(file.pictures.front().number("FrameRate")).known()) media.frameRate = kUntoldRate;
  }
  for (const StreamFields& stream : file.sounds) {
    facts.sounds.push_back(soundOf(stream));
    if (facts.picture)
      facts.sounds.back().startSeconds =
          soundStart(file.pictures.front(), stream, facts.timecode ? facts.timecode->seconds() : 0);
  }
  facts.deviceModel = modelOf(file);
  facts.recordedAt = recordedAt(file.general);
  facts.lengthSeconds = file.general.seconds("Duration");
  return media;
}

}  // namespace run
