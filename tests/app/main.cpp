#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

#include "app/core_run.h"
#include "app/start_up.h"
#include "tests/app/shown.h"

void qml_register_types_Kestrel();

// Real widgets and windows, on no screen.
int main(int argc, char* argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  qputenv("USERPROFILE", "/nonexistent");  // no test may write to a real desktop unasked
  QStandardPaths::setTestModeEnabled(true);
  app::useDesktop(shownDesktop());
  const QApplication application(argc, argv);
  app::setIdentity();
  qml_register_types_Kestrel();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
