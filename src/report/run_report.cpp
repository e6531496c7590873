#include "report/run_report.h"

#include <algorithm>

#include "report/diagnostics.h"
#include "report/files.h"
#include "report/profile.h"
#include "report/report_texts.h"

namespace report {
namespace {

bool hasStatus(const std::vector<std::string>& result, const char* status) {
  return !result.empty() && result.front() == status;
}

std::string checkRequests(const std::vector<std::string>& result) {
  std::string text;
  for (std::size_t i = 1; i < result.size(); ++i)
    text += " \n please check this file for corruption/reencode in different format ->" + result[i];
  return text;
}

void printOutcome(const std::vector<std::string>& result, const std::string& text,
                  Console& console) {
  console.line("");
  console.line("posle log pre if");  // "after log, before if"
  if (hasStatus(result, kNothingMatched)) {
    console.line("sega sme vo nema");  // "now we are in none"
    console.line(kNoMatchMessage);
    return;
  }
  console.line("");
  console.line("problematic files");
  if (hasStatus(result, kSuccess)) return;
  console.line("");
  console.line(text);
}

/// The profile path as the report's file and commands use it. Back slashes part folders on Windows
/// only; elsewhere they belong to names.
std::string profilePath() { return plainSlashes(profileFolder()); }

}  // namespace

std::string problemsText(const std::vector<std::string>& result) {
  if (hasStatus(result, kNothingMatched)) return kNoMatchMessage + checkRequests(result);
  if (hasStatus(result, kSuccess))
    return result.front() + "\nThe XML files are placed on Your DESKTOP!Look for SYNCED folder!" +
           checkRequests(result);
  std::string text = kSupportMessage;
  for (const std::string& entry : result) text += entry + "  \n ";
  return text;
}

std::array<std::string, 3> openCommands(const std::string& profile) {
  return {"explorer \"" + profile + kSyncedFolder + '"',
          "explorer  \"" + profile + kProblemsFile + '"',
          "explorer  \"" + profile + "/Desktop/SYNCED/READ2SYNC.TXT\""};
}

Status reportRun(const std::vector<std::string>& result, Console& console,
                 const std::function<void(const std::string&)>& execute) {
  const std::string text = problemsText(result);
  printOutcome(result, text, console);
  const std::string profile = profilePath();
  console.line(profile + kProblemsFile);
  Status written = writeWhole(fromUtf8(profile + kProblemsFile), text);
  console.line("zapisano");        // "written"
  console.line("pred open.....");  // "before open"
  std::array<std::string, 3> commands = openCommands(profile);
  console.line(commands[1]);
  std::ranges::transform(commands, commands.begin(), toBackslashPath);
  console.line(commands[1]);
  console.line(commands[0]);
  if (execute) std::ranges::for_each(commands, execute);
  console.line(profile);
  return written;
}

}  // namespace report
