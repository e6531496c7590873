#pragma once

#include <string>

namespace cli {

/// Why a file cannot be made or replaced at `path`, as a sentence without its full stop; empty if
/// it can. What is there stays as it is.
std::string whyNotWritable(const std::string& path);

/// The same for files in a folder, which is made if it is missing.
std::string whyFolderNotWritable(const std::string& folder);

}  // namespace cli
