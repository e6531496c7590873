#pragma once

#include <functional>
#include <span>
#include <string>

#include "bench/events/sets.h"

namespace events {

/// A kind of shoot: its name and what draws one.
struct SetKind {
  std::string name;
  std::function<Set(Random&)> make;
};

std::span<const SetKind> ordinaryKinds();  // what editors bring every day, and what repeats
std::span<const SetKind> roomKinds();  // halls, chains, rooms of every size, devices side by side
std::span<const SetKind> manyKinds();  // long events in hundreds of clips

/// A microphone in an ordinary room, at a signal to noise ratio between the two.
Microphone microphone(Random& random, double worstSnr, double bestSnr);

/// A take of an event, cut to the event; none where less than 2 s are left.
void addTake(Set& set, int event, int device, double start, double length, const Microphone& mic);

/// Clips of one device one after the other with gaps between, over the whole event.
void addClips(Set& set, int event, int device, double shortest, double longest, double gap,
              const Microphone& mic, Random& random);

/// Stretches of `longest` seconds at the most, with others between them that are not in the list.
std::vector<Span> stretches(Random& random, double seconds, double longest, double longestBetween);

}  // namespace events
