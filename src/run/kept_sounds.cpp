#include "run/kept_sounds.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <utility>

#include "report/disk.h"
#include "report/files.h"
#include "run/entries.h"

namespace run {
namespace {

namespace fs = std::filesystem;

/// `path`, or a name beside it that nothing has yet: "clip.wav" becomes "clip-1.wav".
fs::path freeName(const fs::path& path) {
  std::error_code unknown;
  fs::path name = path;
  for (int number = 1; report::kindOf(name, unknown) != fs::file_type::not_found; ++number) {
    name = path.parent_path() / path.stem();
    name += "-";
    name += std::to_string(number);
    name += path.extension();
  }
  return name;
}

/// Some drives take "A.wav" and "a.wav" for one name.
std::string withoutCase(std::string name) {
  std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
  return name;
}

/// Gives the sound that this run has already stored at `target` another name.
void setAside(const fs::path& target, std::string& stored) {
  if (!report::areOneFile(target, report::fromUtf8(stored))) return;
  const fs::path other = freeName(target);
  if (!report::moveFile(target, other)) stored = report::toUtf8(other);
}

}  // namespace

std::vector<std::string> keepSounds(const std::vector<Entry>& entries, const std::string& folder,
                                    TemporaryFolder& spare, report::Console& console) {
  std::vector<std::string> places(entries.size());
  std::map<std::string, std::size_t> takenBy;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (!entries[i].isFile()) continue;
    const fs::path converted = report::fromUtf8(entries[i].converted);
    const std::string name =
        report::toUtf8(report::fromUtf8(convertedName(entries[i].listed)).filename());
    fs::path target = report::fromUtf8(folder + name);
    console.line("ova treba da e dest:" + folder + name);
    const auto [taken, first] = takenBy.try_emplace(withoutCase(name), i);
    if (!first) setAside(target, places[std::exchange(taken->second, i)]);
    if (report::moveFile(converted, target)) {
      const bool there = converted.parent_path() == spare.path();
      target = there ? converted : freeName(spare.path() / converted.filename());
      if (spare.path().empty() || (!there && report::moveFile(converted, target))) continue;
    }
    places[i] = report::toUtf8(target);
  }
  return places;
}

}  // namespace run
