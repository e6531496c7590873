#include "cli/demo/scene.h"

#include <algorithm>

#include "cli/demo/music.h"
#include "cli/demo/speech.h"

namespace cli::demo {

Scene demoScene() {
  return {.seconds = 168,
          .devices = {{0.50, 0.0010, 0.15, 0.25, 0, ""},
                      {0.35, 0.0040, 0.30, 0.50, 9, "testsrc2=size=320x180:rate=25"},
                      {0.20, 0.0050, 0.25, 0.45, -14, "smptehdbars=size=320x180:rate=25"},
                      {0.60, 0.0200, 0.45, 0.70, 21, "testsrc=size=320x180:rate=25"}},
          .takes = {{"recorder.wav", 0, 0, 167.25},
                    {"camera-a.mp4", 1, 9.3713, 141.2},
                    {"camera-b/C0001.MP4", 2, 21.1134, 41.04},
                    {"camera-b/C0002.MP4", 2, 66.4829, 35.6},
                    {"camera-b/C0003.MP4", 2, 118.2047, 37.12},
                    {"camera-c.mov", 3, 34.7091, 104.4}}};
}

Sound performance(double seconds, unsigned seed) {
  Random random(seed);
  Sound sound(samplesIn(seconds));
  double now = 1;
  for (unsigned turn = 0; now < seconds - 1; ++turn) {
    const double end = std::min(now + draw(random, 9, 17), seconds - 1);
    if (turn % 4 != 2) addSpeech(sound, now, turn % 4 == 3 ? now + 5 : end, random);
    if (turn % 2 == 0 && turn > 0) addPlucked(sound, now, end, random);
    if (turn % 4 >= 2) addBowed(sound, now + 2, end, random);
    now = end + draw(random, 0.2, 1.5);
  }
  return sound;
}

}  // namespace cli::demo
