#pragma once

#include <QObject>
#include <QQmlEngine>

#include "project/project.h"

namespace app {

/// The ways in which a run ends, each with a picture and words of its own.
class EndState : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Only its values are of use")

 public:
  enum State {
    Success,         // every recording has its place, and the documents are written
    Partly,          // some have
    NothingMatched,  // none has
    NothingWritten,  // places were found, but no document could be stored
    Failed           // nothing could be listened to
  };
  Q_ENUM(State)

  /// How the run that filled `project` ended.
  static State of(const project::Project& project);
};

}  // namespace app
