#pragma once

#include <string>
#include <vector>

#include "align/alignment.h"
#include "align/matches.h"
#include "align/recording.h"

namespace align {

/// What a device with that clock records of an event from `start` on: tones that come and go, known
/// at every moment, so that a recording may start between two samples. What happens repeats after
/// `period` seconds, if it does.
std::vector<float> recorded(int event, double start, double seconds, double driftPpm = 0,
                            double noise = 0.02, double period = 0);

/// Noise of the device alone, of a colour that `deep` (0 to 1) says.
std::vector<float> waiting(unsigned seed, double seconds, float deep);

struct Shoot {
  std::vector<std::vector<float>> sounds;
  std::vector<Recording> recordings;

  void add(std::string name, std::vector<float> sound, int device = -1);
  SoundReader reader() const;
  Alignment verified(double offset) const;  // of the first two
};

/// A match without listening. Rivals are as strong as the best.
Match match(int first, int second, double offset, double strength, std::vector<double> rivals = {});

std::vector<Recording> fourMinutesEach(std::vector<int> devices);

}  // namespace align
