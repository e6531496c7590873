#include "report/diagnostics.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "report/files.h"
#include "report/profile.h"

namespace report {
namespace {

std::filesystem::path diagnosticFile(const char* belowProfile) {
  return fromUtf8(nativeSlashes(profileFolder() + belowProfile));
}

void appendLine(const char* belowProfile, std::string line) {
  line += '\n';
  std::ofstream file(diagnosticFile(belowProfile), std::ios::app);
  file.write(line.data(), static_cast<std::streamsize>(line.size()));
}

void removeFile(const char* belowProfile) {
  std::error_code ignored;  // a missing file is what is wanted
  std::filesystem::remove(diagnosticFile(belowProfile), ignored);
}

}  // namespace

void appendLogLine(std::string line) { appendLine(kLogFile, std::move(line)); }
void appendTempResultsLine(std::string line) { appendLine(kTempResultsFile, std::move(line)); }
void appendRead2SyncLine(std::string line) { appendLine(kRead2SyncFile, std::move(line)); }

void removeRead2SyncFile() { removeFile(kRead2SyncFile); }
void removeTempResultsFile() { removeFile(kTempResultsFile); }

std::string toBackslashPath(std::string path) {
  std::ranges::replace(path, '/', '\\');
  return path;
}

}  // namespace report
