#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "report/files.h"
#include "tests/app/qt_printing.h"
#include "tests/planted.h"

namespace {

namespace fs = std::filesystem;

/// The real program in a folder and with a profile of its own.
class Program : public testing::Test {
 protected:
  void start(const QString& file = PROGRAM) {
    QDir(folder_.path()).mkpath("Desktop/SYNCED/debugfiles");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("USERPROFILE", folder_.path());
    environment.insert("XDG_CONFIG_HOME", folder_.path());
    environment.insert("QML_IMPORT_TRACE", "1");         // names each document that is loaded
    environment.insert("QT_FORCE_STDERR_LOGGING", "1");  // Windows programs without a console too
    program_.setProcessEnvironment(environment);
    program_.setWorkingDirectory(folder_.path());
    program_.start(file, QStringList());
    ASSERT_TRUE(program_.waitForStarted());
  }
  /// A copy of the program, with the libraries and settings beside it.
  QString withoutDocument() const {
    const QDir own = QFileInfo(PROGRAM).dir();
    for (const QString& name : own.entryList({"*.dll", "qt.conf"}, QDir::Files))
      EXPECT_TRUE(QFile::copy(own.filePath(name), folder_.filePath(name)));
    const QString copy = folder_.filePath(QFileInfo(PROGRAM).fileName());
    EXPECT_TRUE(QFile::copy(PROGRAM, copy));
    return copy;
  }
  QStringList logLines() const {
    QFile log(folder_.filePath("Desktop/SYNCED/debugfiles/log_file.txt"));
    if (!log.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    return QString::fromUtf8(log.readAll()).split('\n', Qt::SkipEmptyParts);
  }
  /// All that it has written to its error stream.
  const QByteArray& shown() { return shown_ += program_.readAllStandardError(); }
  void TearDown() override {
    program_.kill();
    program_.waitForFinished();
  }

  QTemporaryDir folder_;
  QProcess program_;
  QByteArray shown_;
};

TEST_F(Program, StartsInTheFixedOrderAndNamesAMissingDocument) {
  start(withoutDocument());
  ASSERT_TRUE(QTest::qWaitFor([&] { return shown().contains("could not be loaded"); }, 20000));
  EXPECT_TRUE(shown_.contains("qml/syncui1/main.qml"));
  EXPECT_EQ(
      program_.readAllStandardOutput().trimmed(),
      QDir::toNativeSeparators(QDir(folder_.path()).canonicalPath()).toUtf8() + "/abc/main.qml");

  const QStringList lines = logLines();
  ASSERT_EQ(lines.size(), 22);
  for (int i = 0; i < 17; ++i) EXPECT_EQ(lines[i], QString(160, '*'));
  EXPECT_EQ(lines[17], "START NA APLIKACIJATA");
  EXPECT_EQ(lines[19], "send2gui->stopbar connected");
  EXPECT_EQ(lines[20], "send2gui2->quit connected");
  EXPECT_EQ(lines[21], "view engine to quick connected");
  EXPECT_EQ(program_.state(), QProcess::Running) << "it goes on into the event loop";
}

#ifndef _WIN32
TEST_F(Program, IsEndedByASignalAsByItsCloseButton) {
  start();
  ASSERT_TRUE(QTest::qWaitFor([&] { return logLines().size() >= 22; }, 20000));
  program_.terminate();
  ASSERT_TRUE(program_.waitForFinished(20000));
  EXPECT_EQ(program_.exitStatus(), QProcess::NormalExit) << "else nothing was saved and cleaned up";
  EXPECT_EQ(program_.exitCode(), 128 + 15);
}
#endif

TEST_F(Program, StartedOnACardItLoadsNothingFromThere) {
  const fs::path card = report::fromUtf8(folder_.path().toStdString());
  plant(card);
  start();
  ASSERT_TRUE(QTest::qWaitFor([&] { return logLines().size() >= 22; }, 20000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown().contains("/syncui1/main.qml"); }, 20000));
  EXPECT_TRUE(
      shown_.contains(QFileInfo(PROGRAM).absolutePath().toUtf8() + "/qml/syncui1/main.qml"));
  EXPECT_FALSE(shown_.contains(folder_.path().toUtf8() + "/qml"));
  EXPECT_EQ(whatRan(card), "");
}

}  // namespace
