#include "project/tidy.h"

#include <algorithm>
#include <set>

#include "project/look_up.h"

namespace project {

void tidy(Project& project) {
  std::erase_if(project.devices, [](const Device& device) { return device.recordings.empty(); });
  std::set<Id> known;
  for (const Recording* recording : allRecordings(project)) known.insert(recording->id);
  const auto gone = [&](Id id) { return !known.contains(id); };
  for (Group& group : project.groups) {
    std::erase_if(group.clips, [&](const Clip& clip) { return gone(clip.recording); });
    for (Clip& clip : group.clips) std::erase_if(clip.matchedWith, gone);
    std::ranges::stable_sort(group.clips, {}, &Clip::startSeconds);
  }
  std::erase_if(project.groups, [](const Group& group) { return group.clips.empty(); });
  std::erase_if(project.evidence,
                [&](const PairEvidence& pair) { return gone(pair.first) || gone(pair.second); });
}

std::string freshGroupName(const Project& project) {
  std::set<std::string> taken;
  for (const Group& group : project.groups) taken.insert(group.name);
  for (std::size_t number = 1;; ++number) {
    std::string name = "Group " + std::to_string(number);
    if (!taken.contains(name)) return name;
  }
}

}  // namespace project
