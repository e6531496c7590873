#pragma once

#include <string>
#include <vector>

#include "bench/events/performance.h"
#include "bench/events/room.h"

namespace events {

/// How one microphone hears an event.
struct Microphone {
  double snrDb = 30;  // level of the event over the device's own noise
  Room room;
  std::uint64_t place = 0;   // same number, same place in the room: same reflections
  double echoDb = -100;      // one strong reflection over the direct sound ...
  double echoMs = 15;        // ... this much later
  double driftPpm = 0;       // the device's clock against the event's; > 0 counts more samples
  bool suppression = false;  // of noise, by a phone
  bool automaticGain = false;
  bool babble = false;        // the noise is other people's speech, not hiss
  double bumpsPerMinute = 0;  // handling noise
  int thumps = 0;             // single ones, louder than all else and alike on all devices
  double bandHz = 3700;       // upper edge of what it hears
  bool clips = false;         // overdriven
  bool inverted = false;      // two wires exchanged: every sample has the other sign
  bool wind = false;          // gusts, much louder than the event, below some hundred Hz
  std::string codec;          // ffmpeg's name of a lossy encoder; empty = none
  int kilobits = 48;          // per second, of that encoder
};

/// One file: what a device recorded from `startSeconds` on, on the event's clock.
struct Take {
  std::string name;
  int event = 0;   // index of the performance
  int device = 0;  // devices are numbered over the whole set
  double startSeconds = 0;
  double lengthSeconds = 0;  // on the device's clock
  Microphone microphone;
  std::vector<Span> muted = {};  // switched off, on the event's clock: nothing but zeros
  struct Stand {
    double seconds, metres;  // on the event's clock; from where the sound comes
  };
  std::vector<Stand> way =
      {};  // of a device that is carried about, in order; straight between them
  struct Cut {
    int recording = -1;            // index of the set's long recording that the take is cut from
    std::int64_t firstSample = 0;  // of that recording
  };
  Cut cut = {};  // none: the take is rendered for itself
};

/// How much later than at its source the event is heard at a time on the event's clock, in seconds.
double lateness(const Take& take, double eventSeconds);

/// The take's samples at kRate, 16 bit steps. The direct sound of event time t stands at sample
/// (t - start) * kRate * (1 + drift): the truth that positions are compared with.
std::vector<float> render(const Take& take, const std::vector<float>& performance, Random& random);

}  // namespace events
