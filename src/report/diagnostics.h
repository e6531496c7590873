#pragma once

#include <string>

#include "report/status.h"

namespace report {

// The text files that tell of a run, below the profile folder (report/profile.h).
inline constexpr char kSyncedFolder[] = "/Desktop/SYNCED";
inline constexpr char kLogFile[] = "/Desktop/SYNCED/debugfiles/log_file.txt";
inline constexpr char kTempResultsFile[] = "/Desktop/SYNCED/tempresults.txt";
inline constexpr char kRead2SyncFile[] = "/Desktop/SYNCED/READ2SYNC.txt";
inline constexpr char kProblemsFile[] = "/Desktop/SYNCED/PROBLEMS.TXT";

/// Each appends `line` and a line end to its file with one write, so that lines of several threads
/// never mix; callable from any thread. The folder must exist; a file that cannot be opened is
/// skipped without a message, since diagnostics must never stop a run.
void appendLogLine(std::string line);
void appendTempResultsLine(std::string line);
void appendRead2SyncLine(std::string line);

/// Puts `page`, with this system's line ends, in the place of READ2SYNC.txt, which stays as it was
/// when that fails.
Status replaceRead2SyncFile(const std::string& page);

/// Each deletes its file; a missing one is no error.
void removeRead2SyncFile();
void removeTempResultsFile();

/// `path` with every "/" replaced by "\".
std::string toBackslashPath(std::string path);

}  // namespace report
