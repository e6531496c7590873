#include "run/full_drive.h"

#include "report/disk.h"
#include "report/files.h"

namespace run {
namespace {

constexpr std::uintmax_t kLeastRoom = 1 << 20;  // bytes; more than ffmpeg writes at once

}  // namespace

void noteFullDrive(const std::string& file, ProcessResult& result) {
  const bool failed = result.started.ok() && result.exitCode != 0 && !result.stalled;
  result.driveFull = failed && report::roomIn(report::fromUtf8(file).parent_path()) < kLeastRoom;
}

}  // namespace run
