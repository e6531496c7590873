#pragma once

#include <Eigen/Core>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/packed_fingerprint.h"
#include "analysis/sound.h"
#include "run/device_groups.h"
#include "run/entry.h"

namespace run {

/// What a run's settings are, as `synco` takes them.
struct Settings {
  double tolerance = 0;
  int width = 0, height = 0;  // pixels; 0: as the pictures are
  float framesPerSecond = 0;  // 0: as the pictures are
  int mode = 0;               // the mode flag
};

/// What a run has gathered of its entries. All lists are indexed alike; index 0 is the dummy.
struct Material {
  std::vector<Entry> entries;
  DeviceGroups groups;  // count the list before files were dropped
  std::vector<analysis::PackedFingerprint> fingerprints;
  Eigen::VectorXf durations;          // whole seconds
  std::vector<std::string> sounds;    // where each converted sound can be read
  std::vector<std::int64_t> samples;  // exact lengths at 8000 Hz; 0: no sound
};

/// How long a clip is: its sound from the moment at which its picture begins.
inline double clipSeconds(const Material& material, int file) {
  return double(material.samples[file]) / analysis::kSampleRate +
         material.entries[file].media.firstSound().startSeconds;
}

}  // namespace run
