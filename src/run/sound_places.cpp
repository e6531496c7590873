#include "run/sound_places.h"

#include <filesystem>
#include <fstream>

#include "report/disk.h"
#include "report/files.h"
#include "run/entries.h"
#include "run/guard.h"

namespace run {
namespace {

namespace fs = std::filesystem;

/// The place of a file whatever way its name takes to it.
std::string placeOf(const std::string& name) {
  std::error_code error;
  const fs::path place = fs::weakly_canonical(report::fromUtf8(name), error);
  return error ? name : report::toUtf8(place);
}

std::string folderOf(const std::string& place) {
  return report::toUtf8(report::fromUtf8(place).parent_path());
}

bool exists(const std::string& file) {
  std::error_code unknown;
  return report::kindOf(report::fromUtf8(file), unknown) == fs::file_type::regular;
}

}  // namespace

SoundPlaces::SoundPlaces(const std::vector<std::string>& entries, TemporaryFolder& spare)
    : spare_(spare) {
  std::set<std::string> folders;
  for (const std::string& entry : entries) {
    if (isPlaceholder(entry)) continue;
    listed_.insert(placeOf(entry));
    folders.insert(folderOf(placeOf(entry)));
  }
  for (const std::string& folder : folders) {
    auto lock = std::make_unique<report::FolderLock>(report::fromUtf8(folder));
    if (!lock->isMine()) continue;
    mine_.push_back(std::move(lock));
    folders_.insert(folder);
    removeLeftovers(folder);
  }
}

SoundPlaces::~SoundPlaces() {
  for (const std::string& file : made_) report::removeFile(report::fromUtf8(file));
  leave();
}

void SoundPlaces::leave() {
  for (const std::string& file : made_) releasePath(report::fromUtf8(file));
  made_.clear();
}

std::string SoundPlaces::beside(const std::string& entry) {
  if (isPlaceholder(entry)) return {};
  const std::string file = convertedName(entry), place = placeOf(entry);
  if (!folders_.contains(folderOf(place)) || listed_.contains(placeOf(file))) return {};
  report::removeFile(report::fromUtf8(file));  // a link there must not lead elsewhere
  if (!std::ofstream(report::fromUtf8(file), std::ios::binary | std::ios::app)) return {};
  guardPath(report::fromUtf8(file));
  const std::lock_guard lock(mutex_);
  made_.push_back(file);
  return file;
}

std::string SoundPlaces::spare(std::size_t index) {
  const std::lock_guard lock(mutex_);
  const fs::path& folder = spare_.path();
  return folder.empty() ? "" : report::toUtf8(folder / convertedName(std::to_string(index)));
}

bool SoundPlaces::isLeftover(const std::string& entry) {
  return entry.ends_with(kConvertedSuffix) &&
         exists(entry.substr(0, entry.size() - kConvertedSuffix.size()));
}

/// Files of the list are left alone, whatever they are called.
void SoundPlaces::removeLeftovers(const std::string& folder) {
  for (const report::FolderItem& item : report::itemsOf(report::fromUtf8(folder))) {
    const std::string file = folder + (folder.ends_with('/') ? "" : "/") + item.name;
    if (item.isFile && isLeftover(file) && !listed_.contains(placeOf(file)))
      report::removeFile(report::fromUtf8(file));
  }
}

}  // namespace run
