#include "app/files/file_list.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/files/media_collector.h"
#include "app/files/recording_model.h"
#include "app/qml_file.h"
#include "tests/app/qt_printing.h"

namespace {

using app::fileModel;

QString makeFile(const QDir& folder, const QString& name) {
  EXPECT_TRUE(folder.mkpath(QFileInfo(folder.filePath(name)).path()));
  QFile file(folder.filePath(name));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  return file.fileName();
}

/// Answers the next file dialog: picks `path`, or cancels if it is empty.
void answerDialog(const QString& path) {
  QTimer::singleShot(10, qApp, [path] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog) return answerDialog(path);  // not up yet
    EXPECT_EQ(dialog->windowTitle(), "Select one or more files to open");
    if (path.isEmpty()) return dialog->reject();
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
    QMetaObject::invokeMethod(dialog, "accept");
  });
}

class FileList : public testing::Test {
 protected:
  void SetUp() override {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    fileModel.clear();
    app::lastDir = "/home";
  }
  void TearDown() override { fileModel.clear(); }

  QTemporaryDir folder_;
  app::QMLFile bridge_;
};

TEST_F(FileList, APlainPickIsAddedAndItsFolderRemembered) {
  answerDialog({});
  EXPECT_TRUE(bridge_.getFilesSelected().isEmpty());
  EXPECT_EQ(fileModel.rowCount(), 0);
  EXPECT_EQ(app::lastDir, "/home");

  const QString file = makeFile(folder_.path(), "a & é.mov");
  answerDialog(file);
  EXPECT_EQ(bridge_.getFilesSelected(), QStringList(file));
  EXPECT_EQ(fileModel.entries(), QStringList(file));
  EXPECT_EQ(app::lastDir, folder_.path().toStdString());
}

TEST_F(FileList, ADevicePickStandsBetweenMarkersEvenWhenCancelled) {
  const QString file = makeFile(folder_.path(), "a.mov");
  answerDialog(file);
  EXPECT_EQ(bridge_.getFilesSelected2(), QStringList({app::kGroupBegin, file, app::kGroupEnd}));
  answerDialog({});
  EXPECT_EQ(bridge_.getFilesSelected2(), QStringList({app::kGroupBegin, app::kGroupEnd}));
  EXPECT_EQ(fileModel.rowCount(), 5);
  EXPECT_EQ(app::lastDir, "/home");
  bridge_.clearall();
  EXPECT_EQ(fileModel.rowCount(), 0);
}

TEST(FolderOf, EitherSeparatorEndsIt) {
  struct Case {
    const char* path;
    const char* folder;
  };
  const Case cases[] = {{"C:/media/cam1/a.mov", "C:/media/cam1"},
                        {"C:\\media\\cam1\\a.mov", "C:\\media\\cam1"},
                        {"C:/media\\a.mov", "C:/media"},
                        {"a.mov", ""},
                        {"/a.mov", ""},
                        {"", ""}};
  for (const auto& [path, folder] : cases) EXPECT_EQ(app::folderOf(path), folder) << path;
}

TEST_F(FileList, OnlyTheTypeRoleHasData) {
  fileModel.addEntry("/a.mov");
  EXPECT_EQ(fileModel.roleNames().value(33), "type");
  EXPECT_EQ(fileModel.data(fileModel.index(0), 33), "/a.mov");
  EXPECT_FALSE(fileModel.data(fileModel.index(0), Qt::DisplayRole).isValid());
  EXPECT_FALSE(fileModel.data(QModelIndex(), 33).isValid());
}

app::MediaFacts fakeFacts(const QString& path) {
  if (path.endsWith(".mov")) return {true, 25, 1920, 1080, 61};
  return {path.endsWith(".wav"), 0, 0, 0, 3600};
}

class Recordings : public FileList {
 protected:
  Recordings() : recordings_(fakeFacts, nullptr) {
    entries_ << "/x/a.wav" << app::kGroupBegin << "/x/b.mov"
             << "/x/c.txt" << app::kGroupEnd << "/y/d.mov";
  }
  void SetUp() override {
    FileList::SetUp();
    for (const QString& entry : entries_) fileModel.addEntry(entry);
    recordings_.setSourceModel(&fileModel);
  }
  QString text(int row, int role) {
    return recordings_.data(recordings_.index(row, 0), role).toString();
  }

  QStringList entries_;
  app::RecordingModel recordings_;
};

TEST_F(Recordings, MarkersBecomeTheEdgesOfABlock) {
  EXPECT_EQ(recordings_.recordings(), 4);
  EXPECT_EQ(recordings_.devices(), 3);
  EXPECT_EQ(text(1, app::RecordingModel::GroupSizeRole), "2");
  for (int row = 0; row < 6; ++row) {
    EXPECT_EQ(text(row, app::RecordingModel::InGroupRole), row >= 1 && row <= 4 ? "true" : "false");
  }
}

TEST_F(Recordings, FactsFollowAndTheFirstVideoIsFound) {
  ASSERT_TRUE(QTest::qWaitFor([&] { return recordings_.firstFrameRate() > 0; }));
  EXPECT_EQ(recordings_.firstFrameSize(), QSize(1920, 1080));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !text(5, app::RecordingModel::LengthRole).isEmpty(); }));
  text(3, app::RecordingModel::KindRole);
  EXPECT_EQ(text(0, app::RecordingModel::KindRole), "Sound");
  EXPECT_EQ(text(0, app::RecordingModel::LengthRole), "1:00:00");
  EXPECT_EQ(text(2, app::RecordingModel::KindRole), QString::fromUtf8("Picture · 25 fps"));
  EXPECT_EQ(text(1, app::RecordingModel::KindRole), "");
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return text(3, app::RecordingModel::ReadableRole) == "false"; }));
}

TEST_F(Recordings, RemovingAGroupsEdgeRemovesTheGroup) {
  recordings_.remove(2);
  EXPECT_EQ(fileModel.rowCount(), 5);
  recordings_.remove(1);
  EXPECT_EQ(fileModel.entries(), QStringList({"/x/a.wav", "/y/d.mov"}));
  EXPECT_EQ(recordings_.devices(), 2);
  recordings_.remove(7);
  EXPECT_EQ(fileModel.rowCount(), 2);
}

TEST_F(Recordings, AGroupWithoutAnEndGoesWithItsHeadingOnly) {
  fileModel.addEntry(app::kGroupBegin);
  fileModel.addEntry("/z/e.mov");
  recordings_.remove(6);
  EXPECT_EQ(fileModel.rowCount(), 7);
  EXPECT_EQ(fileModel.entries().last(), "/z/e.mov");
}

TEST_F(FileList, DroppedFoldersGiveTheirMediaFilesInOrder) {
  const QDir folder(folder_.path());
  for (const char* name : {"cam/clip10.MOV", "cam/clip2.mov", "cam/notes.txt", "z.wav",
                           "z.wav_temporary_file_to_be_deleted.wav"}) {
    makeFile(folder, name);
  }
  for (int i = 0; i < 3000; ++i) makeFile(folder, QString("junk/%1.xml").arg(i));
  app::MediaCollector collector;
  int passedOver = -1;
  QObject::connect(&collector, &app::MediaCollector::finished,
                   [&](int, int count) { passedOver = count; });
  collector.add({QUrl::fromLocalFile(folder.path()), QUrl::fromLocalFile(folder.filePath("z.wav")),
                 QUrl("http://example.org/a.mov")},
                true);
  EXPECT_TRUE(collector.busy());
  ASSERT_TRUE(QTest::qWaitFor([&] { return passedOver >= 0; }, 20000));
  EXPECT_EQ(passedOver, 3002);
  EXPECT_EQ(fileModel.entries(),
            QStringList({app::kGroupBegin, folder.filePath("cam/clip2.mov"),
                         folder.filePath("cam/clip10.MOV"), folder.filePath("z.wav"),
                         folder.filePath("z.wav"), app::kGroupEnd}));
}

}  // namespace
