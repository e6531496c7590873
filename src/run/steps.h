#pragma once

#include <optional>
#include <string>
#include <vector>

#include "place/placement.h"
#include "report/folder_lock.h"
#include "run/compare_stage.h"
#include "run/fingerprint_stage.h"
#include "run/kept_hearing.h"
#include "run/kept_sounds.h"
#include "run/material.h"
#include "run/sound_places.h"
#include "run/sync_run.h"

namespace run {

/// The steps of one run in their order, and what they hand to one another. Everything referred to
/// outlives this object; converted files that are left beside the sources go with it.
class Steps {
 public:
  Steps(const Services& services, const Options& options, const Settings& settings,
        Outcome& outcome, project::Project& project, TemporaryFolder& spare);

  /// The whole run; returns its result list.
  std::vector<std::string> run(const std::vector<std::string>& videofiles);

 private:
  std::string whyRefused(const std::vector<std::string>& videofiles);
  void begin();
  void convert();
  void probe();
  void keepIndicesShort();
  void fingerprint();
  void keep();
  void compare();
  void place();
  void fill();
  void write();
  void saveProject();
  void writeAll();
  bool dropKeptSounds();
  void show();
  std::string documentsFolder() const;
  void addNotice(const std::string& notice);

  const Services& services_;
  const Options& options_;
  const Settings& settings_;
  Outcome& outcome_;
  project::Project& project_;
  TemporaryFolder& spare_;                     // for sounds that cannot be kept among the results
  std::vector<std::string> list_;              // the dummy entry and all that is used
  std::vector<std::string> result_{"first"};   // then the ignored files
  std::optional<report::FolderLock> results_;  // while this run writes to them
  std::optional<SoundPlaces> places_;
  EarlyListener early_;
  Material material_;
  KeptHearing kept_;
  Comparison comparison_;
  place::Placement placement_;
};

}  // namespace run
