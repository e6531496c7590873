#pragma once

#include <QStringList>
#include <string>
#include <vector>

#include "app/files/animal_model.h"
#include "run/entries.h"

namespace app {

// The lines around the files of one device.
inline const QString kGroupBegin = QString::fromUtf8(run::kBeginMarker.data());
inline const QString kGroupEnd = QString::fromUtf8(run::kEndMarker.data());

extern AnimalModel fileModel;  // the one list of the program
extern std::string lastDir;    // where the plain file dialog opens

/// Asks for files, adds them to `fileModel` and remembers the folder of the last one. Returns the
/// dialog's list; a cancelled dialog changes nothing.
QStringList pickFiles();

/// Asks for the files of one device and adds them between the two marker lines, which are added
/// even when nothing was picked. Returns all lines added.
QStringList pickDeviceFiles();

/// The text of `path` before its last "/" or "\"; empty if there is none, or only as the first
/// character.
std::string folderOf(const std::string& path);

/// Every entry of `fileModel` in row order, as UTF-8.
std::vector<std::string> listedEntries();

}  // namespace app
