#include "run/tables.h"

#include <charconv>
#include <set>
#include <utility>

namespace run {
namespace {

constexpr float kNothing = 999.0f;  // in place of the file indices of a blanked record

void blankMirrored(std::vector<float>& records) {
  std::set<std::pair<float, float>> seen;
  for (std::size_t r = 0; r + kRecordFields <= records.size(); r += kRecordFields) {
    float &first = records[r], &second = records[r + 1];
    if (first == second || seen.contains({second, first}))
      first = second = kNothing;
    else
      seen.emplace(first, second);
  }
}

void appendNumber(std::string& text, float number) {
  char digits[64];
  const auto end = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed);
  text.append(digits, end.ptr);
}

}  // namespace

std::vector<float> cleanTable(std::span<const float> records) {
  std::vector<float> blanked(records.begin(), records.end());
  blankMirrored(blanked);
  std::vector<float> clean;
  for (std::size_t r = 0; r + kRecordFields <= blanked.size(); r += kRecordFields)
    if (blanked[r] != kNothing)
      clean.insert(clean.end(), blanked.begin() + r, blanked.begin() + r + kCleanFields);
  return clean;
}

std::string tableText(std::span<const float> table, int fields) {
  std::string text;
  for (std::size_t i = 0; i < table.size(); ++i) {
    appendNumber(text, table[i]);
    text += (i + 1) % fields == 0 ? '\n' : ',';
  }
  return text;
}

}  // namespace run
