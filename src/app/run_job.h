#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "project/project.h"
#include "run/sync_run.h"

namespace app {

/// What one run is asked for, as `synco` takes it.
struct RunRequest {
  std::vector<std::string> videofiles;  // UTF-8 paths and marker lines
  double a_d = 0;
  int resx = 0, resy = 0;
  float frps = 0;
  int prem = 0;
  project::Project project = {};        // what is known before the run
  std::vector<project::Id> again = {};  // recordings to place while all others stay; empty: all
  std::string documentsFolder = {};     // a whole path; empty: that of the results
};

struct RunAnswer {
  std::vector<std::string> result;  // a status text, then the files that were ignored
  run::Outcome outcome;
  project::Project project;      // with what was found
  std::shared_ptr<void> sounds;  // keeps the sounds that the outcome names
};

/// Does a run in the thread that calls it.
using RunJob =
    std::function<RunAnswer(const RunRequest&, run::Progress&, const std::atomic<bool>& cancelled)>;

}  // namespace app
