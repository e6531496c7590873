#pragma once

namespace report {

// The fixed texts of the end-of-run report, letter for letter.
extern const char* const kNoMatchMessage;
extern const char* const kSupportMessage;

}  // namespace report
