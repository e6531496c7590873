#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace run {

// What a run returns: a status text, then the files that were ignored. The list grows behind the
// word "first" while the run goes on; these turn it into the result. All pure.

/// Why a run of so many files is not begun; empty if it can be.
std::string tooManyFiles(std::size_t files);

/// Why a run is not begun while another one writes to `folder`.
std::string busyFolder(const std::string& folder);

std::vector<std::string> cancelledResult(std::vector<std::string> list);

/// The ignored files are told uncut.
std::vector<std::string> noMatchResult(std::vector<std::string> list);

/// Each ignored file without the suffix of its converted name; where none was ignored, the text
/// for success alone.
std::vector<std::string> finishedResult(std::vector<std::string> list);

}  // namespace run
