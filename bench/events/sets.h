#pragma once

#include <string>
#include <vector>

#include "bench/events/take.h"

namespace events {

/// One shoot: what happened, and what was recorded of it.
struct Set {
  struct Event {
    Kind kind;
    double seconds;
    double loopSeconds = 0;         // > 0: the music repeats after that time
    bool electronic = false;        // the music is made of exact loops
    double voices = 0.4;            // how loud somebody speaks over what repeats
    std::vector<Span> pauses = {};  // nothing is to be heard
  };
  std::string name;
  std::vector<Event> events;
  std::vector<Take> takes = {};
  std::vector<Take> recordings = {};  // long ones that takes are cut from; not files of the set
};

/// The names of the kinds of sets that `makeSet` knows.
const std::vector<std::string>& setNames();

/// A set of that kind, drawn with `random`: other seeds, other rooms, noises and lengths.
Set makeSet(const std::string& name, Random& random);

/// All takes of a set as samples at kRate, in the takes' order.
std::vector<std::vector<float>> renderAll(const Set& set, SoundLibrary library, Random& random);

}  // namespace events
