#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/project.h"
#include "export/xmeml.h"
#include "report/console.h"
#include "report/status.h"

namespace timeline {

/// A text to be stored whole.
struct Document {
  std::string name;  // relative to the folder of results, parts joined by "/"
  std::string text;
};

struct Documents {
  std::string error;  // why there are none at all; mostly empty
  std::vector<Document> files;
  std::vector<std::string> log;  // sentences for the run log, such as names that had to be changed
};

struct DocumentOptions {
  std::string time;                  // time of day, "14:05:09"; part of the names, ":" as "-"
  std::vector<std::string> formats;  // of `formatNames`; empty: all but rpp
  XmemlForm xmemlForm = XmemlForm::complete;
};

/// What `DocumentOptions::formats` may hold: fcp, premiere, fcpx, fcpx110, vegas, otio,
/// mlt, rpp.
std::span<const std::string_view> formatNames();

/// Fails on the first name that is no format, with a sentence that lists those that are.
report::Status checkFormats(std::span<const std::string> formats);

/// Every document of the wanted formats; unknown names are passed over. A rate that is none of the
/// eight gives an error alone. The rows of the edit lists
/// also go to `console`. Touches no disk.
Documents documents(const Project& project, const DocumentOptions& options,
                    report::Console& console);

/// One sentence for each file whose name no document can hold as it is (bytes that are no UTF-8,
/// control characters).
std::vector<std::string> changedNames(const Project& project);

}  // namespace timeline
