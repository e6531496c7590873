#pragma once

#include <span>
#include <string>
#include <vector>

namespace run {

inline constexpr int kRecordFields = 6;  // of one accepted pair in the sync table
inline constexpr int kCleanFields = 5;   // of them in the clean table

/// The records without mirrored pairs: of two records whose first two fields are each other's, the
/// earlier stays; a record of one file with itself goes. The sixth field of each is left out.
std::vector<float> cleanTable(std::span<const float> records);

/// One record of `fields` numbers per line, with commas between; the same under every locale, and
/// short enough to read back to the same numbers.
std::string tableText(std::span<const float> table, int fields);

}  // namespace run
