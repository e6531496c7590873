#pragma once

#include <QColor>
#include <QQuickPaintedItem>

#include "app/waveform.h"

namespace app {

/// Draws the part of a waveform that begins `startSeconds` after its start, mirrored about the
/// middle, one line per pixel. As wide as what is seen, not as the whole sound.
class WaveformItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(WaveformView)
  Q_PROPERTY(QVariant waveform READ waveform WRITE setWaveform NOTIFY changed)
  Q_PROPERTY(double startSeconds MEMBER startSeconds_ NOTIFY changed)
  Q_PROPERTY(double pixelsPerSecond MEMBER pixelsPerSecond_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)

 public:
  explicit WaveformItem(QQuickItem* parent = nullptr);

  QVariant waveform() const { return QVariant::fromValue(waveform_); }
  void setWaveform(const QVariant& waveform);
  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void changed();

 private:
  int loudestBetween(double fromSeconds, double toSeconds) const;

  Waveform waveform_;
  double startSeconds_ = 0;
  double pixelsPerSecond_ = 1;
  QColor color_ = Qt::white;
};

}  // namespace app
