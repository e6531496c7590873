#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QThreadPool>
#include <cstdint>

namespace app {

/// The room that takes what runs have heard, kept so that the next one is quicker. Lives in the GUI
/// thread; the disk is asked in the background.
class KeptRoom : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool any READ any NOTIFY changed)
  Q_PROPERTY(QString size READ size NOTIFY changed)

 public:
  explicit KeptRoom(QObject* parent = nullptr);
  ~KeptRoom() override;

  bool any() const { return bytes_ > 0; }
  QString size() const;  // in words: "1.2 GB"

  /// Looks again.
  Q_INVOKABLE void refresh();
  /// Gives the room back. Recordings that were heard are listened to anew by the next run.
  Q_INVOKABLE void clear();

 Q_SIGNALS:
  void changed();

 private:
  std::uintmax_t bytes_ = 0;
  QThreadPool pool_;
};

}  // namespace app
