#pragma once

#include <cstdint>
#include <vector>

#include "matching/alignment.h"
#include "matching/direct.h"
#include "matching/placement.h"

namespace matching {

struct Pair {
  int first, second;                         // file indices
  std::int64_t firstSamples, secondSamples;  // lengths at 8000 Hz
};

/// Compares the sound of two recordings in windows along the overlap that one supposed offset
/// gives them, within a tenth of a second of it (more where drift may add up). One thread at a
/// time; the reader must outlive it.
class Listening {
 public:
  Listening(const Pair& pair, double offsetSeconds, const SoundReader& sound);

  /// A few windows, fewer still where they show nothing: enough to go on or to give up.
  Alignment glance();

  /// Windows enough to be believed or not, for the exact place and for the drift. Those of the
  /// glance are used again.
  Alignment exact();

  /// Many windows, to tell offsets apart that fit nearly alike.
  Alignment thorough();

 private:
  double overlap() const { return to_ - from_; }
  double middle() const { return (from_ + to_) / 2; }
  void chooseWindows();
  const DelayLine& listenTo(std::size_t windows);
  std::vector<float> piece(int file, double middle) const;
  DirectSound findDirect() const;
  Alignment summary(const DirectSound& direct = {}) const;

  Pair pair_;
  double offset_, from_, to_;  // seconds; the overlap on first's clock
  const SoundReader* sound_;
  int length_ = 0, maxLag_ = 0;                  // samples of a window; reach of its correlation
  std::vector<double> middles_;                  // of the windows, in the order of listening
  std::vector<WindowCorrelation> correlations_;  // of the first of them
  DelayLine line_;                               // the best through those
};

}  // namespace matching
