#pragma once

#include <QColor>
#include <QPointer>
#include <QQuickPaintedItem>

#include "app/listen/sound_store.h"
#include "app/timeline_model.h"

namespace app {

/// Draws the clips of a timeline on their lanes: names, states, waveforms, and for a selected pair
/// both waveforms over each other; close up the frames as a grid and the samples as a line. All in
/// one picture, so that a thousand clips scroll as lightly as ten.
class TimelineCanvas : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(app::TimelineModel* timeline READ timeline WRITE setTimeline NOTIFY changed)
  Q_PROPERTY(double startSeconds MEMBER startSeconds_ NOTIFY changed)
  Q_PROPERTY(double pixelsPerSecond MEMBER pixelsPerSecond_ NOTIFY changed)
  Q_PROPERTY(double laneHeight MEMBER laneHeight_ NOTIFY changed)
  Q_PROPERTY(double laneOffset MEMBER laneOffset_ NOTIFY changed)
  Q_PROPERTY(double framesPerSecond MEMBER framesPerSecond_ NOTIFY changed)
  Q_PROPERTY(QList<int> selection MEMBER selection_ NOTIFY changed)
  Q_PROPERTY(int current MEMBER current_ NOTIFY changed)
  Q_PROPERTY(QList<int> silentLanes MEMBER silentLanes_ NOTIFY changed)
  Q_PROPERTY(double dragSeconds MEMBER dragSeconds_ NOTIFY changed)
  Q_PROPERTY(QVariantMap look MEMBER look_ NOTIFY changed)

 public:
  explicit TimelineCanvas(QQuickItem* parent = nullptr);

  TimelineModel* timeline() const { return timeline_; }
  void setTimeline(TimelineModel* timeline);

  /// The recording whose clip lies at this place of the item; 0 if there is none.
  Q_INVOKABLE int recordingAt(double x, double y) const;

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void changed();

 private:
  QRectF boxOf(const TimelineClip& clip) const;
  bool selected(const TimelineClip& clip) const { return selection_.contains(clip.recording); }
  double xOf(double seconds) const { return (seconds - startSeconds_) * pixelsPerSecond_; }
  QColor colour(const QString& name) const { return colours_.value(name); }
  QColor laneColour(int lane) const;
  void takeColours();
  void paintBox(QPainter& painter, const QRectF& box) const;
  void paintLanes(QPainter& painter) const;
  void paintFrames(QPainter& painter) const;
  void paintClip(QPainter& painter, int row);
  void paintLabel(QPainter& painter, const TimelineClip& clip, const QRectF& seen) const;
  void paintSound(QPainter& painter, int row, const QRectF& seen, const QColor& colour);
  void paintPeaks(QPainter& painter, int row, const QRectF& seen, const QColor& colour) const;
  void paintSamples(QPainter& painter, int row, const QRectF& seen, const QColor& colour);
  int partnerOf(int row) const;

  QPointer<TimelineModel> timeline_;
  double startSeconds_ = 0, pixelsPerSecond_ = 1;
  double laneHeight_ = 60, laneOffset_ = 0;
  double framesPerSecond_ = 25;
  QList<int> selection_;  // recordings
  int current_ = 0;       // a recording
  QList<int> silentLanes_;
  double dragSeconds_ = 0;  // by which the selected clips are being moved
  QVariantMap look_;
  QHash<QString, QColor> colours_;  // of `look_`
  QList<QColor> laneColours_;       // the same
  SoundStore sounds_;
};

}  // namespace app
