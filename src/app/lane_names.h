#pragma once

#include <QStringList>
#include <vector>

namespace app {

/// What the devices of a timeline are called, one name per list of their files' paths: the file's
/// name where there is one file, else a folder of their own, else how their names begin, else a
/// number.
QStringList laneNames(const std::vector<QStringList>& paths);

}  // namespace app
