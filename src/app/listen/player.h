#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QTimer>
#include <memory>
#include <mutex>

#include "app/listen/audio_output.h"
#include "app/listen/programme.h"
#include "app/timeline_model.h"

namespace app {

/// Plays a timeline: all its clips at their places, or the lanes or the pair that are asked for.
/// Lives in the GUI thread; the sound itself is made in the thread of the output.
class Player : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(app::TimelineModel* timeline READ timeline WRITE setTimeline NOTIFY timelineChanged)
  Q_PROPERTY(double position READ position WRITE setPosition NOTIFY positionChanged)
  Q_PROPERTY(bool playing READ playing NOTIFY playingChanged)
  Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)
  Q_PROPERTY(QList<int> solo READ solo NOTIFY choiceChanged)
  Q_PROPERTY(QList<int> muted READ muted NOTIFY choiceChanged)
  Q_PROPERTY(bool pair READ pair NOTIFY choiceChanged)
  Q_PROPERTY(double loopBegin READ loopBegin NOTIFY choiceChanged)
  Q_PROPERTY(double loopEnd READ loopEnd NOTIFY choiceChanged)

 public:
  explicit Player(QObject* parent = nullptr);
  ~Player() override;

  /// What the players made from now on play to; a test puts its own in place.
  static void setOutput(std::function<std::unique_ptr<AudioOutput>()> make);

  TimelineModel* timeline() const { return timeline_; }
  void setTimeline(TimelineModel* timeline);
  double position() const { return position_; }  // seconds on the timeline
  void setPosition(double seconds);
  bool playing() const { return playing_; }
  QString problem() const { return problem_; }  // why nothing plays; empty if it does
  QList<int> solo() const { return QList<int>(choice_.solo.begin(), choice_.solo.end()); }
  QList<int> muted() const { return QList<int>(choice_.muted.begin(), choice_.muted.end()); }
  bool pair() const { return choice_.leftRow >= 0; }
  double loopBegin() const { return loopBegin_; }
  double loopEnd() const { return loopEnd_; }

  Q_INVOKABLE void toggle();
  Q_INVOKABLE void stop();
  Q_INVOKABLE void toggleSolo(int lane);
  Q_INVOKABLE void toggleMute(int lane);
  /// The clips of these rows alone, one on the left and one on the right; -1, -1: all again.
  Q_INVOKABLE void setPair(int left, int right);
  /// Plays this stretch over and over; none if it is empty.
  Q_INVOKABLE void setLoop(double begin, double end);

 Q_SIGNALS:
  void timelineChanged();
  void positionChanged();
  void playingChanged();
  void problemChanged();
  void choiceChanged();

 private:
  void start();
  void refresh();
  void follow();
  void setProblem(const QString& problem);

  QPointer<TimelineModel> timeline_;
  std::unique_ptr<AudioOutput> output_;
  ListenChoice choice_;
  double loopBegin_ = 0, loopEnd_ = 0;
  double position_ = 0;
  std::int64_t startFrame_ = 0;
  bool playing_ = false;
  QString problem_;
  QTimer timer_;
  std::mutex mutex_;
  std::shared_ptr<const Programme> programme_;  // guarded by mutex_
};

}  // namespace app
