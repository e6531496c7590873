#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// The words of a Windows command line, the program's name first. Blanks part words outside quotes,
/// and a back slash is a back slash: the system's own rules take the one in "D:\my card\" for a
/// sign that the quote belongs to the name, and all that follows too. No name there has a quote.
/// "/?", which asks for help there, becomes "--help". Pure.
std::vector<std::string> windowsWords(std::string_view line);

}  // namespace cli
