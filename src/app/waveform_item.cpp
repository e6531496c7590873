#include "app/waveform_item.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace app {

WaveformItem::WaveformItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  connect(this, &WaveformItem::changed, this, [this] { update(); });
}

void WaveformItem::setWaveform(const QVariant& waveform) {
  waveform_ = waveform.value<Waveform>();
  Q_EMIT changed();
}

void WaveformItem::paint(QPainter* painter) {
  if (waveform_.peaks.isEmpty() || pixelsPerSecond_ <= 0) return;
  const double middle = height() / 2;
  for (double x = 0; x < width(); ++x) {
    const double from = startSeconds_ + x / pixelsPerSecond_;
    const double half = middle * loudestBetween(from, from + 1 / pixelsPerSecond_) / 255.0;
    painter->fillRect(QRectF(x, middle - half, 1, std::max(1.0, 2 * half)), color_);
  }
}

int WaveformItem::loudestBetween(double fromSeconds, double toSeconds) const {
  const auto count = waveform_.peaks.size();
  const auto at = [count](double seconds) {
    return std::clamp<qsizetype>(std::llround(std::floor(seconds * Waveform::kPeaksPerSecond)), 0,
                                 count - 1);
  };
  const auto* peaks = waveform_.peaks.constData();
  return *std::max_element(peaks + at(fromSeconds), peaks + at(toSeconds) + 1);
}

}  // namespace app
