#pragma once

#include <span>
#include <string>
#include <vector>

namespace cli {

/// The words after the program's name, as UTF-8.
std::vector<std::string> utf8Arguments(int argc, char** argv);

/// On Windows ffmpeg.exe is looked for in the working directory alone: makes the program's own
/// folder the working directory, unless ffmpeg.exe lies in the present one. Elsewhere does nothing.
void startBesideFfmpeg();

/// Makes standard output and error show UTF-8 where that must be asked for.
void useUtf8Output();

/// Columns of the terminal that standard error is shown on; 0 where it is no terminal.
int errorTerminalColumns();

/// The signals that ask this program to end.
std::span<const int> endSignals();

}  // namespace cli
