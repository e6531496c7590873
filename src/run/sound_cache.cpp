#include "run/sound_cache.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <utility>
#include <vector>

#include "report/disk.h"
#include "report/files.h"
#include "report/profile.h"
#include "report/text.h"
#include "run/outside_parts.h"

namespace run {
namespace {

namespace fs = std::filesystem;

/// Raised when conversion or fingerprint change, so that what older versions kept is not used.
constexpr char kForm[] = "1";
constexpr char kFolderName[] = "kestrel-aligner-sounds";
constexpr std::uint64_t kMagic = 0x3250464c5453454b;  // "KESTLFP2"

std::int64_t timeOf(const fs::path& path) {
  std::error_code error;
  const auto time = fs::last_write_time(path, error);
  return error ? 0 : static_cast<std::int64_t>(time.time_since_epoch().count());
}

/// Two independent hashes of 64 bits: nobody will see two files with one name.
std::string hashText(std::string_view text) {
  std::array<std::uint64_t, 2> hashes{0xcbf29ce484222325, 0x9e3779b97f4a7c15};
  for (const unsigned char c : text) {
    hashes[0] = (hashes[0] ^ c) * 0x100000001b3;
    hashes[1] = (hashes[1] ^ (hashes[1] >> 29) ^ c) * 0xbf58476d1ce4e5b9;
  }
  std::string name;
  for (const std::uint64_t hash : hashes)
    for (int shift = 60; shift >= 0; shift -= 4) name += "0123456789abcdef"[hash >> shift & 15];
  return name;
}

/// A name beside `target` that no other thread or program writes to.
fs::path unfinished(const fs::path& target) {
  static const unsigned process = std::random_device{}();
  static std::atomic<unsigned> number = 0;
  fs::path path = target;
  path += "." + std::to_string(process) + "-" + std::to_string(++number) + ".part";
  return path;
}

/// Files appear whole or not at all.
template <class Make>
void makeWhole(const std::string& place, const Make& make) {
  const fs::path target = report::fromUtf8(place);
  if (report::makeFolders(target.parent_path())) return;
  const fs::path part = unfinished(target);
  std::error_code error;
  if (make(part)) fs::rename(part, target, error);
  report::removeFile(part);
}

/// Notes that a file was used, for `trim`.
void touch(const fs::path& path) {
  std::error_code ignored;  // it then counts as used longer ago
  fs::last_write_time(path, fs::file_time_type::clock::now(), ignored);
}

/// What a fingerprint's file begins with.
struct Header {
  std::uint64_t magic;
  std::int64_t rows;
  double duration;
};

struct Kept {
  fs::path path;
  std::int64_t used;
  std::uintmax_t bytes;
};

std::vector<Kept> allKept(const std::string& folder) {
  std::vector<Kept> all;
  if (folder.empty()) return all;
  const fs::path path = report::fromUtf8(folder);
  for (const report::FolderItem& item : report::itemsOf(path))
    if (item.isFile) {
      const fs::path file = path / report::fromUtf8(item.name);
      all.push_back({file, timeOf(file), report::sizeOf(file)});
    }
  return all;
}

}  // namespace

std::string SoundCache::usualFolder() {
  const std::string profile = report::plainSlashes(report::profileFolder());
  return profile.empty() ? profile : profile + kCacheFolder + "/" + kFolderName;
}

FileKey SoundCache::keyOf(const std::string& source) {
  const fs::path path = report::fromUtf8(source);
  const std::uintmax_t bytes = report::sizeOf(path);
  if (bytes == 0) return {};
  return hashText(std::string(kForm) + '|' + report::wholePath(source) + '|' +
                  std::to_string(bytes) + '|' + std::to_string(timeOf(path)));
}

std::string SoundCache::place(const FileKey& key, const std::string& ending) const {
  return folder_ + "/" + key + ending;
}

bool SoundCache::fetchSound(const FileKey& key, const std::string& target) const {
  if (folder_.empty() || key.empty()) return false;
  const fs::path kept = report::fromUtf8(place(key, ".wav"));
  if (report::sizeOf(kept) == 0 || report::copyFile(kept, report::fromUtf8(target))) return false;
  touch(kept);
  return true;
}

void SoundCache::keepSound(const FileKey& key, const std::string& sound) const {
  if (folder_.empty() || key.empty()) return;
  makeWhole(place(key, ".wav"),
            [&](const fs::path& part) { return !report::copyFile(report::fromUtf8(sound), part); });
}

std::string SoundCache::soundAt(const FileKey& key) const {
  if (folder_.empty() || key.empty()) return {};
  const std::string kept = place(key, ".wav");
  return report::sizeOf(report::fromUtf8(kept)) > 0 ? kept : std::string();
}

std::optional<analysis::Heard> SoundCache::fetchHeard(const FileKey& key, double tolerance) const {
  if (folder_.empty() || key.empty()) return {};
  const fs::path kept = report::fromUtf8(place(key, "-" + report::shortestText(tolerance)));
  std::ifstream file(kept, std::ios::binary);
  Header header{};
  if (!file.read(reinterpret_cast<char*>(&header), sizeof header)) return {};
  const std::uintmax_t bytes = report::sizeOf(kept) - sizeof header;
  using Row = analysis::PackedFingerprint::Row;
  if (header.magic != kMagic || header.rows < 0 ||
      std::uintmax_t(header.rows) * sizeof(Row) != bytes)
    return {};
  std::vector<Row> rows(static_cast<std::size_t>(header.rows));
  file.read(reinterpret_cast<char*>(rows.data()), static_cast<std::streamsize>(bytes));
  if (!file) return {};
  file.close();
  touch(kept);
  return analysis::Heard{analysis::PackedFingerprint(std::move(rows)),
                         static_cast<float>(header.duration)};
}

void SoundCache::keepHeard(const FileKey& key, double tolerance,
                           const analysis::Heard& heard) const {
  const auto rows = heard.fingerprint.packed();
  if (folder_.empty() || key.empty() || rows.empty()) return;
  makeWhole(place(key, "-" + report::shortestText(tolerance)), [&](const fs::path& part) {
    std::ofstream file(part, std::ios::binary);
    const Header header{kMagic, std::ssize(rows), heard.seconds};
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(rows.data()),
               static_cast<std::streamsize>(rows.size_bytes()));
    return static_cast<bool>(file.flush());
  });
}

void SoundCache::trim() const {
  std::vector<Kept> all = allKept(folder_);
  std::ranges::sort(all, std::ranges::greater{}, &Kept::used);  // the latest first
  std::uintmax_t sum = 0;
  for (const Kept& kept : all)
    if ((sum += kept.bytes) > limit_) report::removeFile(kept.path);
}

std::uintmax_t SoundCache::bytes() const {
  std::uintmax_t sum = 0;
  for (const Kept& kept : allKept(folder_)) sum += kept.bytes;
  return sum;
}

void SoundCache::clear() const {
  if (!folder_.empty()) report::removeFolder(report::fromUtf8(folder_));
}

}  // namespace run
