#include "cli/output_places.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "report/disk.h"
#include "report/files.h"
#include "report/text.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

std::string cannot(const std::string& what, const std::string& path, const std::string& why) {
  return what + " " + report::printable(path) + " cannot be written (" + why + ")";
}

}  // namespace

std::string whyNotWritable(const std::string& path) {
  const fs::path file = report::fromUtf8(report::wholePath(path));
  std::error_code error;
  const fs::file_type kind = report::kindOf(file, error);
  if (kind == fs::file_type::directory) return cannot("The file", path, "it is a folder");
  const bool isNew = kind == fs::file_type::not_found;
  errno = 0;
  const bool opens = std::ofstream(file, std::ios::binary | std::ios::app).is_open();
  const std::string why = opens ? "" : cannot("The file", path, std::strerror(errno));
  if (isNew && opens) report::removeFile(file);
  return why;
}

std::string whyFolderNotWritable(const std::string& folder) {
  const fs::path path = report::fromUtf8(report::wholePath(folder));
  if (const std::error_code error = report::makeFolders(path))
    return cannot("The folder", folder, error.message());
  const fs::path trial = path / "kestrel-aligner-trial";
  errno = 0;
  const bool opens = std::ofstream(trial, std::ios::binary).is_open();
  const std::string why = opens ? "" : cannot("The folder", folder, std::strerror(errno));
  if (opens) report::removeFile(trial);
  return why;
}

}  // namespace cli
