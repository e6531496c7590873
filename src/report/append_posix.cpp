#include <fstream>
#include <string>

#include "report/append.h"

namespace report {

std::string withSystemLineEnds(std::string_view text) { return std::string(text); }

void appendWholeLine(const std::filesystem::path& path, std::string_view line) {
  std::string whole(line);
  whole += '\n';
  std::ofstream file(path, std::ios::app);
  file.write(whole.data(), static_cast<std::streamsize>(whole.size()));
}

}  // namespace report
