#include "app/sound_paths.h"

#include <filesystem>
#include <set>

#include "project/look_up.h"
#include "report/files.h"
#include "run/entries.h"

namespace app {

SoundPaths keptSounds(const project::Project& project) {
  SoundPaths sounds;
  std::set<std::string> names, shared;
  for (const project::Recording* recording : project::allRecordings(project)) {
    const std::string& path = project::mainFile(*recording).path;
    const std::string name = path.substr(path.find_last_of("/\\") + 1);
    if (!names.insert(name).second) shared.insert(name);
  }
  for (const project::Recording* recording : project::allRecordings(project)) {
    const std::string& path = project::mainFile(*recording).path;
    const std::string name = path.substr(path.find_last_of("/\\") + 1);
    const std::string kept = project.written.folder + "/debugfiles/" + run::convertedName(name);
    std::error_code error;
    if (!shared.contains(name) && std::filesystem::is_regular_file(report::fromUtf8(kept), error))
      sounds[path] = kept;
  }
  return sounds;
}

SoundPaths soundsOf(const run::Outcome& outcome) {
  SoundPaths sounds;
  for (const run::Group& group : outcome.groups)
    for (const run::Member& member : group.members)
      if (!member.soundPath.empty()) sounds[member.path] = member.soundPath;
  return sounds;
}

}  // namespace app
