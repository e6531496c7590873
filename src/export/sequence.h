#pragma once

#include <string>
#include <vector>

#include "project/project.h"

namespace timeline {

/// What the documents' sequences are like, and what people should know of it.
struct Sequence {
  double fps = 25;  // one of the usual rates, unless the project asks for another
  int width = 1920, height = 1080;
  std::string why;                   // a sentence; empty where both were chosen by hand
  std::vector<std::string> notices;  // sentences about pictures that suit no sequence well
};

/// As the project's settings say; what they leave open follows the pictures: the rate and the size,
/// as it is shown, that cover most time. Pure.
Sequence sequenceOf(const project::Project& project);

}  // namespace timeline
