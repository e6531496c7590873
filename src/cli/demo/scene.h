#pragma once

#include <string>
#include <vector>

#include "cli/demo/sound.h"

namespace cli::demo {

/// How one device hears: its room, its noise and its clock.
struct Device {
  double level;          // factor on the sound
  double noise;          // of the room and the preamplifier, full scale 1.0
  double reverbSeconds;  // until the echo has faded
  double echo;           // strength of the echo against the direct sound
  double clockPpm;       // how much too fast its clock runs
  std::string picture;   // ffmpeg's test picture; empty for a sound recorder
};

/// One file of a device. Times are the performance's, in seconds.
struct Take {
  std::string file;  // below the demo's folder
  int device;        // index into Scene::devices
  double start, length;
};

struct Scene {
  double seconds;  // of the performance
  std::vector<Device> devices;
  std::vector<Take> takes;
};

/// Three cameras, the second with three clips, and a recorder that runs all the time.
Scene demoScene();

/// Speech and music by turns and together, nothing of it twice.
Sound performance(double seconds, unsigned seed);

/// What `take`'s device records of `performed`: the sound in its room, on its clock, with its
/// noise.
Sound recorded(const Sound& performed, const Device& device, const Take& take, unsigned seed);

}  // namespace cli::demo
