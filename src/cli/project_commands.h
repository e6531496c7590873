#pragma once

#include "cli/arguments.h"

namespace cli {

/// Writes the documents of a project as it stands. Returns the exit status.
int exportDocuments(const Arguments& arguments);

/// Shows a project: the table of what stands where goes to standard output, or its JSON. Returns
/// the exit status.
int show(const Arguments& arguments);

}  // namespace cli
