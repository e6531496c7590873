#include "report/files.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <random>

#include "report/disk.h"
#include "report/long_path.h"
#include "report/profile.h"

namespace report {
namespace {

namespace fs = std::filesystem;

Status cannotWrite(const fs::path& path, const std::string& answer) {
  return {"cannot write " + nativeSlashes(toUtf8(path)) + ": " + answer};
}

Status writeInto(const fs::path& file, std::string_view text, const fs::path& shown) {
  errno = 0;
  std::ofstream stream(file, std::ios::binary);
  stream << text;
  stream.close();
  return stream ? Status() : cannotWrite(shown, std::strerror(errno));
}

/// A short hidden name beside `path` that nothing has.
fs::path nameBeside(const fs::path& path) {
  std::random_device random;
  return path.parent_path() / (".kestrel-" + std::to_string(random()) + ".part");
}

}  // namespace

std::filesystem::path fromUtf8(std::string_view text) {
  const std::string openable = openablePath(std::string(text));
  return std::filesystem::path(std::u8string(openable.begin(), openable.end()));
}

std::string toUtf8(const std::filesystem::path& path) { return plainSlashes(nativeUtf8(path)); }

std::string nativeUtf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return shownPath({text.begin(), text.end()});
}

Status writeWhole(const std::filesystem::path& path, std::string_view text) {
  std::error_code error;
  const fs::file_type kind = kindOf(path, error);
  const bool plain = kind == fs::file_type::not_found || kind == fs::file_type::regular;
  if (error || !plain) return writeInto(path, text, path);  // a pipe or a device stays one
  const fs::path linked = fs::canonical(path, error);
  const fs::path place = error ? path : linked, part = nameBeside(place);
  if (Status written = writeInto(part, text, path); !written.ok()) {
    removeFile(part);
    return written;
  }
  fs::rename(part, place, error);
  if (!error) return {};
  removeFile(part);
  return cannotWrite(path, error.message());
}

std::error_code moveFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::rename(from, to, error);
  if (!error) return {};
  const fs::path part = to.parent_path() / ".kestrel-moved.part";  // replaces a killed run's
  error = copyFile(from, part);
  if (!error) fs::rename(part, to, error);
  removeFile(error ? part : from);  // half a file would take the room of others
  return error;
}

}  // namespace report
