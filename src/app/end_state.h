#pragma once

#include <QObject>
#include <QQmlEngine>
#include <string>
#include <vector>

#include "project/project.h"

namespace app {

/// What went wrong in the last run or writing, beside single recordings.
struct Failures {
  std::vector<std::string> sentences;  // what was not written or begun, for people
  bool refused = false;                // nothing came of the run
};

/// The ways in which a run ends, each with a picture and words of its own.
class EndState : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Only its values are of use")

 public:
  enum State {
    Success,         // every recording has its place, and all is written
    Partly,          // some have, or some files could not be stored
    NothingMatched,  // none has
    NothingWritten,  // places were found, but no document could be stored
    Failed           // nothing could be listened to, or nothing came of the run
  };
  Q_ENUM(State)

  /// How the run that filled `project` ended.
  static State of(const project::Project& project, const Failures& failures);
};

}  // namespace app
