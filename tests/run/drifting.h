#pragma once

#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/run/media.h"

/// An event with a pause of 0.3 s every 3 s, without the highest tones, so that what lies between
/// its samples can be told.
inline std::vector<std::int16_t> eventWithPauses(double seconds) {
  std::vector<std::int16_t> event = liveSound(seconds, 5);
  double smooth = 0;
  for (std::size_t i = 0; i < event.size(); ++i) {
    smooth += 0.4 * (event[i] - smooth);
    event[i] = i % 24000 < 2400 ? std::int16_t(0) : static_cast<std::int16_t>(smooth);
  }
  return event;
}

/// What a device hears from `on` to `off`, seconds of the event, whose clock runs `ppm` fast.
inline std::vector<std::int16_t> heardBy(const std::vector<std::int16_t>& event, double on,
                                         double off, double ppm) {
  const double rate = 1 + ppm * 1e-6;
  std::vector<std::int16_t> samples(static_cast<std::size_t>((off - on) * rate * 8000));
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double at = on * 8000 + double(i) / rate;
    const auto whole = static_cast<std::size_t>(at);
    const double part = at - double(whole);
    samples[i] = static_cast<std::int16_t>((1 - part) * event[whole] + part * event[whole + 1]);
  }
  return samples;
}

/// A stretch of a file on a timeline; seconds.
struct Piece {
  double at, in, length;
  double exact;  // where it would stand without frames
};

/// Where an OpenTimelineIO document has the file of that name, on its tracks of a kind ("Video",
/// "Audio").
inline std::vector<Piece> piecesOf(const std::string& document, const std::string& kind,
                                   const std::string& name) {
  using Json = nlohmann::json;
  const auto seconds = [](const Json& time) {
    return time.at("value").get<double>() / time.at("rate").get<double>();
  };
  const Json timeline = Json::parse(document);
  std::vector<Piece> pieces;
  for (const Json& track : timeline.at("tracks").at("children")) {
    if (track.at("kind") != kind) continue;
    double at = 0;
    for (const Json& item : track.at("children")) {
      const Json& range = item.at("source_range");
      if (item.at("name") == name)
        pieces.push_back({at, seconds(range.at("start_time")), seconds(range.at("duration")),
                          item.at("metadata").at("kestrel").at("start_seconds")});
      at += seconds(range.at("duration"));
    }
  }
  return pieces;
}
