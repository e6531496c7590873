#include "app/sync_settings.h"

#include <QLocale>
#include <QSettings>
#include <algorithm>
#include <array>
#include <cmath>

#include "app/documents_list.h"
#include "app/workspace.h"
#include "export/documents.h"
#include "run/settings.h"

namespace app {
namespace {

constexpr std::array kTolerances = {run::kFastTolerance, run::kDefaultTolerance,
                                    run::kSlowTolerance};
constexpr std::array kModeFlags = {1, 0};
constexpr std::array<QSize, 9> kFrameSizes = {
    QSize{3840, 2160}, QSize{4096, 2160}, QSize{2560, 1440}, QSize{1920, 1080}, QSize{1280, 720},
    QSize{1080, 1920}, QSize{1440, 1080}, QSize{720, 576},   QSize{720, 480}};
const std::array<std::string, 3> kDrifts = {"sound", "pieces", "off"};

QString rateText(double rate) { return QLocale::c().toString(rate, 'g', 5); }

QString sizeText(QSize size) {
  return QString::fromUtf8("%1 × %2").arg(size.width()).arg(size.height());
}

/// The index of `value`; of one that is not among them, `other`.
int indexIn(const auto& values, const auto& value, int other) {
  const auto found = std::ranges::find(values, value);
  return found == values.end() ? other : static_cast<int>(found - values.begin());
}

/// The remembered choice `key`, where it is still one of `count`.
int remembered(const QSettings& settings, const QString& key, int fallback, std::size_t count) {
  const int index = settings.value(key, fallback).toInt();
  return index >= 0 && index < static_cast<int>(count) ? index : fallback;
}

std::vector<std::string> allFormats() {
  const auto names = timeline::formatNames();
  return {names.begin(), names.end()};
}

/// What is written where nothing was chosen.
std::vector<std::string> usualFormats() {
  std::vector<std::string> formats = allFormats();
  std::erase(formats, "rpp");
  return formats;
}

/// Those of `wanted` that there are, in their order; the usual ones if there is none.
std::vector<std::string> knownFormats(const auto& wanted) {
  std::vector<std::string> formats = allFormats();
  std::erase_if(formats, [&](const std::string& format) {
    return std::ranges::find(wanted, format) == wanted.end();
  });
  return formats.empty() ? usualFormats() : formats;
}

std::vector<std::string> stdStrings(const QStringList& texts) {
  std::vector<std::string> all;
  for (const QString& text : texts) all.push_back(text.toStdString());
  return all;
}

}  // namespace

SyncSettings::SyncSettings(QObject* parent) : QObject(parent) {
  load();
  hand();
  connect(this, &SyncSettings::changed, this, [this] {
    if (takingOver_) return;  // it is not what this user wants of every project
    save();
    hand();
  });
  connect(&workspace(), &Workspace::opened, this,
          [this] { takeOver(workspace().project().settings); });
}

void SyncSettings::load() {
  const QSettings settings;
  const int speed = indexIn(kTolerances, run::kDefaultTolerance, 0);
  const int mode = indexIn(kModeFlags, run::kDefaultMode, 0);
  speed_ = remembered(settings, "speed", speed, kTolerances.size());
  rate_ = remembered(settings, "frameRate", 0, run::kFrameRates.size() + 1);
  size_ = remembered(settings, "frameSize", 0, kFrameSizes.size() + 1);
  mode_ = remembered(settings, "mode", mode, kModeFlags.size());
  drift_ = remembered(settings, "drift", 0, kDrifts.size());
  byClock_ = settings.value("byClock", false).toBool();
  cameraSound_ = settings.value("cameraSound", false).toBool();
  replaceAudio_ = settings.value("replaceAudio", false).toBool();
  formats_ = knownFormats(stdStrings(settings.value("formats").toStringList()));
}

void SyncSettings::save() const {
  QSettings settings;
  settings.setValue("speed", speed_);
  settings.setValue("frameRate", rate_);
  settings.setValue("frameSize", size_);
  settings.setValue("mode", mode_);
  settings.setValue("drift", drift_);
  settings.setValue("byClock", byClock_);
  settings.setValue("cameraSound", cameraSound_);
  settings.setValue("replaceAudio", replaceAudio_);
  QStringList formats;
  for (const std::string& format : formats_) formats << QString::fromStdString(format);
  settings.setValue("formats", formats);
}

/// To the project, from which runs and documents take it.
void SyncSettings::hand() const {
  project::Settings settings = workspace().project().settings;
  settings.tolerance = tolerance();
  settings.mode = modeFlag();
  settings.framesPerSecond.reset();
  if (rate_ > 0) settings.framesPerSecond = frameRate();
  settings.frameSize.reset();
  if (size_ > 0) settings.frameSize = {frameSize().width(), frameSize().height()};
  settings.formats = formats_ == usualFormats() ? std::vector<std::string>() : formats_;
  settings.drift = kDrifts[static_cast<std::size_t>(drift_)];
  settings.clipsByClock = byClock_;
  settings.cameraSound = cameraSound_;
  settings.replaceAudio = replaceAudio_;
  workspace().setSettings(settings);
}

/// From a project that was opened; what the lists do not offer stays as it was chosen before.
void SyncSettings::takeOver(const project::Settings& settings) {
  speed_ = indexIn(kTolerances, settings.tolerance, speed_);
  mode_ = indexIn(kModeFlags, settings.mode, mode_);
  rate_ =
      settings.framesPerSecond ? indexIn(run::kFrameRates, *settings.framesPerSecond, -1) + 1 : 0;
  const project::FrameSize size = settings.frameSize.value_or(project::FrameSize{});
  size_ = indexIn(kFrameSizes, QSize(size.width, size.height), -1) + 1;
  drift_ = indexIn(kDrifts, settings.drift, drift_);
  byClock_ = settings.clipsByClock;
  cameraSound_ = settings.cameraSound;
  replaceAudio_ = settings.replaceAudio;
  formats_ = knownFormats(settings.formats);
  takingOver_ = true;
  Q_EMIT changed();
  takingOver_ = false;
}

QStringList SyncSettings::speedNames() { return {tr("Fast"), tr("Default"), tr("Slow")}; }

QStringList SyncSettings::modeNames() { return {tr("Find more"), tr("Only the surest")}; }

QStringList SyncSettings::driftNames() {
  return {tr("Write sound anew"), tr("Cut clips into pieces"), tr("Leave them")};
}

QStringList SyncSettings::rateNames() {
  QStringList names = {tr("Automatic")};
  for (const double known : run::kFrameRates) names << tr("%1 fps").arg(rateText(known));
  return names;
}

QStringList SyncSettings::sizeNames() {
  QStringList names = {tr("Automatic")};
  for (const QSize known : kFrameSizes) names << sizeText(known);
  return names;
}

QStringList SyncSettings::programNames() {
  QStringList names;
  for (const std::string& format : allFormats()) names << programOfFormat(format);
  return names;
}

QList<int> SyncSettings::programs() const {
  QList<int> indices;
  for (const std::string& format : formats_) indices << indexIn(allFormats(), format, 0);
  return indices;
}

QString SyncSettings::programsText() const {
  const QStringList names = programNames();
  const QList<int> wanted = programs();
  if (wanted.size() == names.size()) return tr("All programs");
  for (int i = 0; wanted.size() == names.size() - 1 && i < names.size(); ++i)
    if (!wanted.contains(i)) return tr("All but %1").arg(names[i]);
  if (wanted.size() > 2) return tr("%n program(s)", nullptr, static_cast<int>(wanted.size()));
  QStringList few;
  for (const int index : wanted) few << names[index];
  return few.join(", ");
}

void SyncSettings::setProgram(int index, bool wanted) {
  const std::vector<std::string> all = allFormats();
  if (index < 0 || index >= std::ssize(all)) return;
  std::vector<std::string> formats = formats_;
  std::erase(formats, all[static_cast<std::size_t>(index)]);
  if (wanted) formats.push_back(all[static_cast<std::size_t>(index)]);
  if (formats.empty()) return;
  formats_ = knownFormats(formats);
  Q_EMIT changed();
}

double SyncSettings::tolerance() const { return kTolerances[static_cast<std::size_t>(speed_)]; }

double SyncSettings::frameRate() const {
  return rate_ > 0 ? run::kFrameRates[static_cast<std::size_t>(rate_ - 1)] : 0;
}

QSize SyncSettings::frameSize() const {
  return size_ > 0 ? kFrameSizes[static_cast<std::size_t>(size_ - 1)] : QSize{0, 0};
}

int SyncSettings::modeFlag() const { return kModeFlags[static_cast<std::size_t>(mode_)]; }

}  // namespace app
