#pragma once

#include <QObject>

namespace app {

/// Published to the document as "pBar", so that it has a name to bind to.
class progresbar final : public QObject {
  Q_OBJECT
};

/// Declared for documents that know the name; nothing creates one.
class endit final : public QObject {
  Q_OBJECT

 public Q_SLOTS:
  void dokrajcigo_slot() {}  // "finish it off"
};

}  // namespace app
