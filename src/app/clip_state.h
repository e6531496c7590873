#pragma once

#include <QObject>
#include <QQmlEngine>

#include "project/look_up.h"

namespace app {

/// How a recording stands, as project::State says, under names that the document can use.
class ClipState : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Only its values are of use")

 public:
  enum State {
    Sure = int(project::State::sure),
    LookHere = int(project::State::lookHere),
    ByHand = int(project::State::byHand),
    ByClock = int(project::State::byClock),
    Excluded = int(project::State::excluded),
    Unplaced = int(project::State::unplaced),
    Unusable = int(project::State::unusable)
  };
  Q_ENUM(State)
};

}  // namespace app
