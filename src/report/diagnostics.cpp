#include "report/diagnostics.h"

#include <algorithm>
#include <system_error>

#include "report/append.h"
#include "report/files.h"
#include "report/profile.h"

namespace report {
namespace {

std::filesystem::path diagnosticFile(const char* belowProfile) {
  return fromUtf8(nativeSlashes(profileFolder() + belowProfile));
}

void appendLine(const char* belowProfile, std::string_view line) {
  appendWholeLine(diagnosticFile(belowProfile), line);
}

void removeFile(const char* belowProfile) {
  std::error_code ignored;  // a missing file is what is wanted
  std::filesystem::remove(diagnosticFile(belowProfile), ignored);
}

}  // namespace

void appendLogLine(std::string line) { appendLine(kLogFile, line); }
void appendTempResultsLine(std::string line) { appendLine(kTempResultsFile, line); }
void appendRead2SyncLine(std::string line) { appendLine(kRead2SyncFile, line); }

void removeRead2SyncFile() { removeFile(kRead2SyncFile); }
void removeTempResultsFile() { removeFile(kTempResultsFile); }

std::string toBackslashPath(std::string path) {
  std::ranges::replace(path, '/', '\\');
  return path;
}

}  // namespace report
