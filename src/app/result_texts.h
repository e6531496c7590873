#pragma once

#include <QString>

#include "project/project.h"

namespace app {

/// How many recordings of a project have a place, have none, and are in doubt.
struct Tally {
  int placed = 0, all = 0, unplaced = 0, unusable = 0, unsure = 0;
};
Tally tallyOf(const project::Project& project);

/// The same as a sentence: "14 of 16 recordings synchronised in 2 groups".
QString summaryOf(const project::Project& project);

/// A reason as a sentence of its own: with a capital and a full stop.
QString asSentence(const std::string& text);

}  // namespace app
