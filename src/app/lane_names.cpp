#include "app/lane_names.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSet>
#include <algorithm>

namespace app {
namespace {

constexpr int kTelling = 3;  // letters that names must share to tell of their device

struct LaneFiles {
  QStringList names;
  QSet<QString> folders;
};

LaneFiles filesOf(const QStringList& paths) {
  LaneFiles files;
  for (const QString& path : paths) {
    files.names << QFileInfo(path).completeBaseName();
    files.folders << QFileInfo(path).path();
  }
  return files;
}

/// What the names have in common at their start, without a trailing separator or number.
QString commonStart(const QStringList& names) {
  QString start = names.front();
  for (const QString& name : names) {
    while (!name.startsWith(start)) start.chop(1);
  }
  while (!start.isEmpty() && !start.back().isLetter()) start.chop(1);
  return start;
}

/// Empty if the lane can only have a number.
QString laneName(const std::vector<LaneFiles>& all, const LaneFiles& lane) {
  if (lane.names.size() == 1) return lane.names.front();
  const auto sharing = std::ranges::count_if(
      all, [&](const LaneFiles& other) { return other.folders.intersects(lane.folders); });
  if (lane.folders.size() == 1 && sharing == 1) return QFileInfo(*lane.folders.begin()).fileName();
  const QString start = commonStart(lane.names);
  return start.size() >= kTelling ? start : QString();
}

}  // namespace

QStringList laneNames(const std::vector<QStringList>& paths) {
  std::vector<LaneFiles> all;
  std::ranges::transform(paths, std::back_inserter(all), filesOf);
  QStringList names;
  for (const LaneFiles& lane : all) {
    const QString name = laneName(all, lane);
    names << (name.isEmpty()
                  ? QCoreApplication::translate("app::laneNames", "Device %1").arg(names.size() + 1)
                  : name);
  }
  return names;
}

}  // namespace app
