#include "cli/command_line.h"

namespace cli {

std::vector<std::string> windowsWords(std::string_view line) {
  std::vector<std::string> words;
  bool inWord = false, inQuotes = false;
  for (const char c : line) {
    const bool ends = !inQuotes && (c == ' ' || c == '\t');
    if (!ends && !inWord) words.emplace_back();
    inWord = !ends;
    if (c == '"')
      inQuotes = !inQuotes;
    else if (!ends)
      words.back() += c;
  }
  for (std::string& word : words)
    if (word == "/?") word = "--help";
  return words;
}

}  // namespace cli
