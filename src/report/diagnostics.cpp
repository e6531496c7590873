#include "report/diagnostics.h"

#include <algorithm>

#include "report/append.h"
#include "report/disk.h"
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

}  // namespace

void appendLogLine(std::string line) { appendLine(kLogFile, line); }
void appendTempResultsLine(std::string line) { appendLine(kTempResultsFile, line); }
void appendRead2SyncLine(std::string line) { appendLine(kRead2SyncFile, line); }

Status replaceRead2SyncFile(const std::string& page) {
  return writeWhole(diagnosticFile(kRead2SyncFile), withSystemLineEnds(page));
}

void removeRead2SyncFile() { removeFile(diagnosticFile(kRead2SyncFile)); }
void removeTempResultsFile() { removeFile(diagnosticFile(kTempResultsFile)); }

std::string toBackslashPath(std::string path) {
  std::ranges::replace(path, '/', '\\');
  return path;
}

}  // namespace report
