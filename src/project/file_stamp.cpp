#include "project/file_stamp.h"

#include <chrono>
#include <filesystem>

#include "report/disk.h"
#include "report/files.h"

namespace project {

void stamp(MediaFile& file) {
  const std::filesystem::path path = report::fromUtf8(file.path);
  std::error_code error;
  const auto written = std::filesystem::last_write_time(path, error);
  file.bytes = report::sizeOf(path);
  file.modified = 0;
  if (error) return;
  const auto since1970 = std::chrono::file_clock::to_sys(written).time_since_epoch();
  file.modified = std::chrono::floor<std::chrono::seconds>(since1970).count();
}

}  // namespace project
