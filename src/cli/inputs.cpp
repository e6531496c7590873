#include "cli/inputs.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "cli/text_list.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/text.h"
#include "run/entries.h"
#include "run/media_files.h"

namespace cli {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

bool isHidden(const std::string& name) { return name.starts_with('.'); }

/// The media files in and below `folder`; folders that may not be read are passed over.
void addMediaFilesBelow(const std::string& folder, Strings& files) {
  for (const report::FolderItem& item : report::itemsOf(report::fromUtf8(folder))) {
    const std::string path = folder + (folder.ends_with('/') ? "" : "/") + item.name;
    if (item.isFolder && !isHidden(item.name)) addMediaFilesBelow(path, files);
    if (item.isFile && run::looksLikeMedia(item.name)) files.push_back(path);
  }
}

/// One named file or folder as files.
void expand(const std::string& entry, Strings& files, Strings& notices) {
  std::error_code unknown;  // what cannot be asked about is left to the run to report
  const std::string whole = report::wholePath(entry);
  if (report::kindOf(report::fromUtf8(whole), unknown) != fs::file_type::directory) {
    files.push_back(whole);
    return;
  }
  Strings found;
  addMediaFilesBelow(whole, found);
  std::ranges::sort(found);
  if (found.empty())
    notices.push_back("The folder " + report::printable(entry) +
                      " holds no media files that may be read.");
  files.insert(files.end(), found.begin(), found.end());
}

void addDevice(const Strings& named, Inputs& inputs) {
  inputs.entries.emplace_back(run::kBeginMarker);
  for (const std::string& entry : named) expand(entry, inputs.entries, inputs.notices);
  inputs.entries.emplace_back(run::kEndMarker);
}

void addList(const std::string& list, Inputs& inputs) {
  const fs::path path = report::fromUtf8(list);
  const TextList read = readList(list);
  if (!read.error.empty()) {
    inputs.error = "--list: '" + report::printable(list) + "' " + read.error +
                   "; give a text file with one entry a line";
    return;
  }
  for (const std::string& line : read.lines) {
    if (run::isMarker(line)) {
      inputs.entries.push_back(line);
    } else {
      const fs::path entry = path.parent_path() / report::fromUtf8(line);
      expand(report::toUtf8(entry), inputs.entries, inputs.notices);
    }
  }
}

}  // namespace

Inputs collectInputs(const Arguments& arguments) {
  Inputs inputs;
  for (const Strings& device : arguments.devices) addDevice(device, inputs);
  for (const std::string& list : arguments.lists) addList(list, inputs);
  for (const std::string& entry : arguments.entries) expand(entry, inputs.entries, inputs.notices);
  return inputs;
}

}  // namespace cli
