#include "app/sound_paths.h"

#include <filesystem>
#include <set>

#include "project/look_up.h"
#include "report/files.h"
#include "run/entries.h"
#include "run/sound_cache.h"

namespace app {
namespace {

std::string fileName(const std::string& path) { return path.substr(path.find_last_of("/\\") + 1); }

std::set<std::string> sharedNames(const project::Project& project) {
  std::set<std::string> names, shared;
  for (const project::Recording* recording : project::allRecordings(project))
    if (const std::string name = fileName(project::mainFile(*recording).path);
        !names.insert(name).second)
      shared.insert(name);
  return shared;
}

}  // namespace

SoundPaths keptSounds(const project::Project& project) {
  const run::SoundCache cache(run::SoundCache::usualFolder());
  const std::set<std::string> shared = sharedNames(project);
  SoundPaths sounds;
  for (const project::Recording* recording : project::allRecordings(project)) {
    const std::string& path = project::mainFile(*recording).path;
    const std::string name = fileName(path);
    const std::string kept = project.written.folder + "/debugfiles/" + run::convertedName(name);
    std::error_code error;
    if (!shared.contains(name) && std::filesystem::is_regular_file(report::fromUtf8(kept), error))
      sounds[path] = kept;
    else if (const std::string heard = cache.soundAt(run::SoundCache::keyOf(path)); !heard.empty())
      sounds[path] = heard;
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
