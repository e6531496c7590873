#pragma once

#include <span>
#include <string>
#include <vector>

namespace cli {

/// The words after the program's name, as UTF-8, and with the files that a pattern such as `*.MP4`
/// stands for, which on Windows no shell puts in its place.
std::vector<std::string> utf8Arguments(int argc, char** argv);

/// Makes standard output and error show UTF-8 where that must be asked for, until the program ends.
void useUtf8Output();

/// Columns of the terminal that standard error is shown on; 0 where it is no terminal.
int errorTerminalColumns();

/// The signals that ask this program to end.
std::span<const int> endSignals();

}  // namespace cli
