#include <cstdio>
#include <string_view>

#include "cli/manual.h"

/// Writes the manual page, or with "bash" the completion, for the package.
int main(int argc, char** argv) {
  const bool completion = argc > 1 && std::string_view(argv[1]) == "bash";
  const std::string text = completion ? cli::bashCompletion() : cli::manualPage();
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}
