#include "app/clock_text.h"

#include <cmath>

namespace app {

QString clockText(double seconds, int decimals) {
  const double unit = std::pow(10.0, decimals);
  const auto parts = static_cast<qint64>(std::llround(seconds * unit));
  const auto perSecond = static_cast<qint64>(unit);
  const qint64 whole = parts / perSecond;
  const QString clock = QString("%1:%2:%3")
                            .arg(whole / 3600)
                            .arg(whole / 60 % 60, 2, 10, QLatin1Char('0'))
                            .arg(whole % 60, 2, 10, QLatin1Char('0'));
  if (decimals == 0) return clock;
  return clock + QString(".%1").arg(parts % perSecond, decimals, 10, QLatin1Char('0'));
}

double TimeScale::step(double pixelsPerSecond, double minimumPixels) {
  constexpr double kSteps[] = {0.1, 0.5, 1,   2,   5,    10,   15,   30,   60,
                               120, 300, 600, 900, 1800, 3600, 7200, 14400};
  for (const double step : kSteps) {
    if (step * pixelsPerSecond >= minimumPixels) return step;
  }
  return 28800;
}

}  // namespace app
