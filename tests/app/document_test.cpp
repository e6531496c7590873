#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

namespace {

TEST(Document, TheLinterHasNothingToSay) {
  const QString linter = QStandardPaths::findExecutable("qmllint", {"/usr/lib/qt6/bin"});
  if (linter.isEmpty()) GTEST_SKIP() << "needs qmllint (qt6-declarative-dev-tools)";
  QStringList arguments = {"-I", QML_TYPES};
  for (const QFileInfo& file : QDir(QML_FOLDER).entryInfoList({"*.qml"}))
    arguments << file.filePath();
  QProcess lint;
  lint.setProcessChannelMode(QProcess::MergedChannels);
  lint.start(linter, arguments);
  ASSERT_TRUE(lint.waitForFinished(120000));
  const QByteArray said = lint.readAll();
  EXPECT_FALSE(said.contains("Warning")) << said.toStdString();
  EXPECT_EQ(lint.exitCode(), 0) << said.toStdString();
}

}  // namespace
