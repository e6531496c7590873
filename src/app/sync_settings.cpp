#include "app/sync_settings.h"

#include <QLocale>
#include <QSettings>
#include <algorithm>
#include <array>
#include <cmath>

#include "run/settings.h"

namespace app {
namespace {

constexpr std::array kTolerances = {run::kFastTolerance, run::kDefaultTolerance,
                                    run::kSlowTolerance};
constexpr std::array kModeFlags = {1, 0};
constexpr std::array<QSize, 9> kFrameSizes = {
    QSize{3840, 2160}, QSize{4096, 2160}, QSize{2560, 1440}, QSize{1920, 1080}, QSize{1280, 720},
    QSize{1080, 1920}, QSize{1440, 1080}, QSize{720, 576},   QSize{720, 480}};

QString rateText(double rate) { return QLocale::c().toString(rate, 'g', 5); }

QString sizeText(QSize size) {
  return QString::fromUtf8("%1 × %2").arg(size.width()).arg(size.height());
}

int indexIn(const auto& values, auto value) {
  return static_cast<int>(std::ranges::find(values, value) - values.begin());
}

/// The remembered choice `key`, where it is still one of `count`.
int remembered(const QSettings& settings, const QString& key, int fallback, std::size_t count) {
  const int index = settings.value(key, fallback).toInt();
  return index >= 0 && index < static_cast<int>(count) ? index : fallback;
}

}  // namespace

SyncSettings::SyncSettings(QObject* parent) : QObject(parent) {
  load();
  connect(this, &SyncSettings::changed, this, &SyncSettings::save);
}

void SyncSettings::load() {
  const QSettings settings;
  const int speed = indexIn(kTolerances, run::kDefaultTolerance);
  const int mode = indexIn(kModeFlags, run::kDefaultMode);
  speed_ = remembered(settings, "speed", speed, kTolerances.size());
  rate_ = remembered(settings, "frameRate", 0, run::kFrameRates.size() + 1);
  size_ = remembered(settings, "frameSize", 0, kFrameSizes.size() + 1);
  mode_ = remembered(settings, "mode", mode, kModeFlags.size());
}

void SyncSettings::save() const {
  QSettings settings;
  settings.setValue("speed", speed_);
  settings.setValue("frameRate", rate_);
  settings.setValue("frameSize", size_);
  settings.setValue("mode", mode_);
}

QStringList SyncSettings::speedNames() { return {tr("Fast"), tr("Default"), tr("Slow")}; }

QStringList SyncSettings::modeNames() { return {tr("Find more"), tr("Only the surest")}; }

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

double SyncSettings::tolerance() const { return kTolerances[static_cast<std::size_t>(speed_)]; }

double SyncSettings::frameRate() const {
  return rate_ > 0 ? run::kFrameRates[static_cast<std::size_t>(rate_ - 1)] : 0;
}

QSize SyncSettings::frameSize() const {
  return size_ > 0 ? kFrameSizes[static_cast<std::size_t>(size_ - 1)] : QSize{0, 0};
}

int SyncSettings::modeFlag() const { return kModeFlags[static_cast<std::size_t>(mode_)]; }

}  // namespace app
