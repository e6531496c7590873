#pragma once

#include <cstdint>
#include <vector>

#include "align/activity.h"
#include "align/alignment.h"
#include "align/direct.h"
#include "align/recording.h"

namespace align {

struct Pair {
  int first, second;                         // file indices
  std::int64_t firstSamples, secondSamples;  // lengths at 8000 Hz
};

enum class Windows { few, many };  // long ones, each of which says something, or twice as many

/// Compares the sound of two recordings in windows along the overlap that one supposed offset
/// gives them, within a tenth of a second of it (more where drift may add up). One thread at a
/// time; the reader must outlive it. The windows lie in the `active` stretches (in order, on
/// first's clock), or anywhere if there are none or too few to tell anything.
class Listening {
 public:
  Listening(const Pair& pair, double offsetSeconds, const SoundReader& sound,
            std::vector<Stretch> active = {}, Windows windows = Windows::few);

  /// Whether the windows lie only where something is active, not all over the overlap.
  bool selective() const { return active_.size() > 1 || activeSeconds() < overlap(); }

  /// A few windows, fewer still where they show nothing: enough to go on or to give up.
  Alignment glance();

  /// All windows laid over each other, for what is too faint, or too spread by its rooms, for any
  /// of them to show. Ends early where nothing adds up.
  Alignment faint();

  /// Windows enough to be believed or not, for the exact place and for the drift. Those of the
  /// glance are used again.
  Alignment exact();

  /// Many windows, to tell offsets apart that fit nearly alike.
  Alignment thorough();

 private:
  double overlap() const { return to_ - from_; }
  double middle() const { return (from_ + to_) / 2; }
  void keepToOverlap();
  double activeSeconds() const;
  double whereActive(double seconds) const;
  void chooseWindows();
  const DelayLine& listenTo(std::size_t windows);
  void turnIfInverted();
  bool leavesReach() const;
  void comeNearer();
  std::vector<float> piece(int file, double middle) const;
  DirectSound findDirect() const;
  bool samplesAlike() const;
  Evidence evidence() const;
  Alignment summary(const DirectSound& direct = {}) const;

  Pair pair_;
  double offset_, from_, to_;  // seconds; the overlap on first's clock
  const SoundReader* sound_;
  std::vector<Stretch> active_;                  // within the overlap
  int length_ = 0, maxLag_ = 0;                  // samples of a window; reach of its correlation
  std::vector<double> middles_;                  // of the windows, in the order of listening
  std::vector<WindowCorrelation> correlations_;  // of the first of them
  bool inverted_ = false;                        // the correlations were turned upside down
  DelayLine line_;                               // the best through those
};

}  // namespace align
