#include "cli/manual.h"

#include <algorithm>

#include "cli/arguments.h"
#include "cli/option_values.h"

namespace cli {
namespace {

/// Text as man shows it: its own signs taken back.
std::string plain(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\\' || c == '-') result += '\\';
    if ((c == '.' || c == '\'') && (result.empty() || result.back() == '\n')) result += "\\&";
    result += c;
  }
  return result;
}

std::string optionText(const OptionText& option) {
  std::string text = ".TP\n.B " + plain(option.names);
  if (!option.value.empty() && option.value != "...")
    text += " \\fI" + plain(option.value) + "\\fR";
  return text + "\n" + plain(option.description) + ".\n";
}

std::string commandSection(const CommandText& command) {
  std::string text = ".SS " + std::string(command.name) + "\n" + plain(command.purpose) + ".\n";
  for (const OptionText& option : optionsOf(command.command)) text += optionText(option);
  return text;
}

/// The words that a command takes: its options, with a blank between.
std::string longNames(Command command) {
  std::string words;
  for (const OptionText& option : optionsOf(command)) {
    const std::size_t begin = option.names.find("--");
    if (begin == std::string::npos) continue;
    words += (words.empty() ? "" : " ") + option.names.substr(begin);
  }
  return words;
}

/// The words that may stand behind an option; empty if they are not known.
std::string choicesOf(const std::string& names) {
  if (names == "--speed") return "fast default slow";
  if (names == "--fps") return "auto " + frameRates();
  if (names == "--size") return "auto 720p 1080p 2160p";
  if (names == "--xmeml-form") return "compact complete";
  std::string formats = names == "--formats" ? formatNames() : "";
  std::ranges::replace(formats, ',', ' ');
  return formats;
}

/// What stands behind an option, for the completion: words, files or folders.
std::string valueCase(const OptionText& option) {
  const std::size_t begin = option.names.find("--");
  if (begin == std::string::npos || option.value.empty()) return {};
  const bool folder = option.value == "DIR";
  const bool file = option.value.starts_with("FILE");
  std::string names = option.names;
  if (const std::size_t comma = names.find(", "); comma != std::string::npos)
    names.replace(comma, 2, "|");
  const std::string with = folder ? "-d" : file ? "-f" : "-W '" + choicesOf(option.names) + "'";
  return "    " + names + ") COMPREPLY=($(compgen " + with + " -- \"$word\")); return ;;\n";
}

}  // namespace

std::string manualPage() {
  std::string page = R"(.TH KESTREL\-ALIGN 1 "" "Kestrel Aligner 1.53rc" "User Commands"
.SH NAME
kestrel\-align \- line up recordings of one event by their sound
.SH SYNOPSIS
.B kestrel\-align
[\fBsync\fR] [\fIOPTION\fR]... \fIENTRY\fR...
.br
.B kestrel\-align export
[\fIOPTION\fR]... \fIPROJECT\fR
.br
.B kestrel\-align show
[\fIOPTION\fR]... \fIPROJECT\fR
.SH DESCRIPTION
Finds where the recordings of several cameras and sound recorders belong on a common timeline, by
listening to them, and writes that timeline for video editors: Final Cut Pro 7 and X, Adobe Premiere
Pro, Vegas and OpenTimelineIO. A folder stands for the media files in it and in the folders below
it. The documents are written to Desktop/SYNCED in your own folder, and beside them a project, which
can be given instead of files to go on with it.
.PP
A word that is the name of a command is one where it stands first; a folder of that name is given as
\&./sync.
.SH COMMANDS
)";
  for (const CommandText& command : commands()) page += commandSection(command);
  page += R"(.SH EXIT STATUS
0 something was synchronised, 3 nothing matched, 2 wrong usage, 1 anything else, such as that no
file could be read or no document written, 130 interrupted.
.SH FILES
.TP
.I ~/Desktop/SYNCED
Documents, the project, and READ2SYNC.txt, which tells what stands where.
.TP
.I ~/.cache/kestrel\-aligner\-sounds
What was heard of recordings, for the next run; it may be deleted at any time.
.SH SEE ALSO
.BR kestrel\-aligner (1),
.BR ffmpeg (1)
)";
  return page;
}

std::string bashCompletion() {
  std::string names, values, options;
  for (const CommandText& command : commands()) {
    names += (names.empty() ? "" : " ") + std::string(command.name);
    options +=
        "    " + std::string(command.name) + ") options='" + longNames(command.command) + "' ;;\n";
  }
  for (const OptionText& option : optionsOf(Command::sync)) values += valueCase(option);
  for (const OptionText& option : optionsOf(Command::exportDocuments))
    if (option.names == "--to") values += valueCase(option);
  return R"(# bash completion for kestrel-align
_kestrel_align() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command=sync options
  case ${COMP_WORDS[1]} in
    export | show) command=${COMP_WORDS[1]} ;;
  esac
  case $before in
)" + values +
         R"(  esac
  case $command in
)" + options +
         R"(  esac
  if [[ $word == -* ]]; then
    COMPREPLY=($(compgen -W "$options" -- "$word"))
  elif [ "$COMP_CWORD" = 1 ]; then
    COMPREPLY=($(compgen -W ')" +
         names + R"(' -- "$word") $(compgen -f -- "$word"))
  else
    COMPREPLY=($(compgen -f -- "$word"))
  fi
}
complete -o filenames -F _kestrel_align kestrel-align
)";
}

}  // namespace cli
