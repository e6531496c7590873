#include "run/last_lines.h"

namespace run {
namespace {

constexpr std::size_t kKept = 4000;  // bytes of whole lines, and of the line being written

void keepEnd(std::string& text) {
  if (text.size() > kKept) text.erase(0, text.size() - kKept);
}

}  // namespace

void LastLines::add(std::string_view text) {
  for (const char character : text) {
    if (overwritten_ && character != '\n')
      line_.clear();  // "\r\n" ends a line, "\r" starts it anew
    overwritten_ = character == '\r';
    if (!overwritten_) line_ += character;
    if (character == '\n') {
      whole_ += line_;
      line_.clear();
    }
  }
  keepEnd(whole_);
  keepEnd(line_);
}

}  // namespace run
