#include "app/files/file_list.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/files/bin_model.h"
#include "app/files/device_models.h"
#include "app/files/media_collector.h"
#include "app/qml_file.h"
#include "app/workspace.h"
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
  EXPECT_EQ(fileModel.rowCount(), 3);
  fileModel.clear();  // a workspace that another test has made would tidy the list now
  answerDialog({});
  EXPECT_EQ(bridge_.getFilesSelected2(), QStringList({app::kGroupBegin, app::kGroupEnd}));
  EXPECT_EQ(fileModel.rowCount(), 2);
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
  if (path.endsWith(".mov")) return {true, 25, 1920, 1080, 61, {}, true};
  if (path.endsWith(".mxf")) return {.asked = false};
  return {path.endsWith(".wav"), 0, 0, 0, 3600, {}, true};
}

/// The bins over the workspace, whose list is the bridge's.
class BinsTest : public FileList {
 protected:
  BinsTest() : bins_(fakeFacts, nullptr) {}
  void SetUp() override {
    FileList::SetUp();
    app::workspace().clear();
    app::workspace().addFiles({"/x/Cam 1/a.mov", "/x/Cam 1/b.mov", "/x/Cam 2/c.mov", "/x/z.wav"},
                              false);
  }
  void TearDown() override {
    app::workspace().clear();
    FileList::TearDown();
  }
  QVariant at(int row, int role) { return bins_.data(bins_.index(row, 0), role); }
  /// "Cam 1: a.mov b.mov | x: z.wav"
  QString text() {
    QString all;
    for (int row = 0; row < bins_.rowCount(); ++row) {
      const bool device = at(row, app::BinModel::IsDeviceRole).toBool();
      all += (device && row > 0 ? " | "
              : device          ? ""
                                : " ") +
             at(row, app::BinModel::NameRole).toString() + (device ? ":" : "");
    }
    return all;
  }

  app::BinModel bins_;
};

TEST_F(BinsTest, FoldersBecomeDevicesAndTheListBelowHasTheirMarkers) {
  EXPECT_EQ(text(), "Cam 1: a.mov b.mov | Cam 2: c.mov | x: z.wav");
  EXPECT_EQ(fileModel.entries(), QStringList({app::kGroupBegin, "/x/Cam 1/a.mov", "/x/Cam 1/b.mov",
                                              app::kGroupEnd, "/x/Cam 2/c.mov", "/x/z.wav"}));
  app::workspace().addFiles({"/x/Cam 1/b.mov", "/x/Cam 1/d.mov"}, false);
  EXPECT_EQ(text(), "Cam 1: a.mov b.mov d.mov | Cam 2: c.mov | x: z.wav")
      << "a card that was forgotten";
}

TEST_F(BinsTest, AFileThatSaysNothingIsToldFromALibraryThatIsMissing) {
  app::workspace().clear();
  app::workspace().addFiles({"/x/a.mov", "/x/b.mp4", "/x/c.mxf"}, false);
  QMap<QString, QString> problems;
  ASSERT_TRUE(QTest::qWaitFor([&] {
    for (int row = 0; row < bins_.rowCount(); ++row)
      problems[at(row, app::BinModel::NameRole).toString()] =
          at(row, app::BinModel::ProblemRole).toString();
    return problems["b.mp4"] != "" && problems["c.mxf"] != "";
  }));
  EXPECT_EQ(problems["a.mov"], "");
  EXPECT_EQ(problems["b.mp4"], "not readable as media");
  EXPECT_EQ(problems["c.mxf"], "MediaInfo is missing");
}

TEST_F(BinsTest, WhatTheBridgeAddsIsShown) {
  for (const QString& line :
       {app::kGroupBegin, QString("/y/p.mov"), QString("/y/q.mov"), app::kGroupEnd})
    fileModel.addEntry(line);
  ASSERT_TRUE(QTest::qWaitFor([&] { return bins_.devices() == 4; }));
  EXPECT_TRUE(text().endsWith("p.mov q.mov")) << text().toStdString();
  bridge_.clearall();
  ASSERT_TRUE(QTest::qWaitFor([&] { return bins_.rowCount() == 0; }));
  app::workspace().undo();
  EXPECT_EQ(bins_.recordings(), 6) << "clearing can be undone";
  EXPECT_EQ(fileModel.rowCount(), 10);
}

TEST_F(BinsTest, DevicesAreRenamedJoinedSplitAndUndone) {
  bins_.rename(0, "  Anna  ");
  EXPECT_TRUE(text().startsWith("Anna: a.mov"));
  bins_.select(0, false, false);
  bins_.select(3, true, false);
  EXPECT_EQ(bins_.selectedDevices(), 2);
  bins_.join();
  EXPECT_EQ(text(), "Anna: a.mov b.mov c.mov | x: z.wav");
  bins_.select(2, false, false);
  bins_.select(3, false, true);
  EXPECT_EQ(bins_.selectedRecordings(), 2);
  bins_.split();
  EXPECT_EQ(text(), "Anna: a.mov | b: b.mov c.mov | x: z.wav");
  bins_.select(1, false, false);
  bins_.moveTo(5);
  EXPECT_EQ(text(), "b: b.mov c.mov | x: z.wav a.mov") << "an empty device goes";
  for (int i = 0; i < 4; ++i) app::workspace().undo();
  EXPECT_EQ(text(), "Cam 1: a.mov b.mov | Cam 2: c.mov | x: z.wav");
  bins_.select(0, false, false);
  bins_.remove();
  EXPECT_EQ(fileModel.entries(), QStringList({"/x/Cam 2/c.mov", "/x/z.wav"}));
}

TEST_F(BinsTest, ModelsRegroupWhatNamesLeaveApartUntilTheUserSorts) {
  app::deviceModels().setAsk([](const QString& path) {
    return path.contains("red") ? "Red" : path.contains("blue") ? "Blue" : "";
  });
  app::workspace().clear();
  app::workspace().addFiles({"/m/red party.mov", "/m/blue sky.mov", "/m/my red hat.mov"}, false);
  EXPECT_EQ(bins_.devices(), 3) << "names alone tell nothing";
  EXPECT_TRUE(QTest::qWaitFor([&] { return bins_.devices() == 2; }));
  EXPECT_EQ(text(), "Red: my red hat.mov red party.mov | Blue: blue sky.mov");
  app::workspace().undo();
  EXPECT_EQ(bins_.devices(), 0) << "it is one step with adding them";

  app::workspace().addFiles({"/m/red party.mov", "/m/my red hat.mov"}, false);
  app::workspace().renameDevice(app::workspace().project().devices.front().id, "Mine");
  QTest::qWait(100);
  EXPECT_EQ(bins_.devices(), 2) << "what the user has sorted stays";
  app::deviceModels().setAsk([](const QString& path) { return app::probeMedia(path).model; });
}

TEST_F(BinsTest, CollapsedDevicesHideTheirClips) {
  bins_.toggleCollapsed(0);
  EXPECT_EQ(text(), "Cam 1: | Cam 2: c.mov | x: z.wav");
  EXPECT_EQ(bins_.recordings(), 4);
  bins_.toggleCollapsed(0);
  EXPECT_EQ(bins_.rowCount(), 7);
}

TEST_F(BinsTest, FactsFollowAndTheFirstVideoIsFound) {
  ASSERT_TRUE(QTest::qWaitFor([&] { return bins_.firstFrameRate() > 0; }));
  ASSERT_TRUE(QTest::qWaitFor([&] { return at(6, app::BinModel::LengthRole) == "1:00:00"; }));
  EXPECT_EQ(at(6, app::BinModel::KindRole), "Sound");
  EXPECT_EQ(at(1, app::BinModel::KindRole), QString::fromUtf8("Picture · 25 fps"));
  EXPECT_EQ(at(0, app::BinModel::LengthRole), "0:02:02") << "a device's clips together";
}

TEST_F(FileList, TracksOfARecorderAreOneRecording) {
  app::workspace().addFiles({"/r/ZOOM0001_Tr1.WAV", "/r/ZOOM0001_LR.WAV"}, false);
  app::BinModel bins(fakeFacts, nullptr);
  EXPECT_EQ(bins.recordings(), 1);
  EXPECT_EQ(fileModel.entries(), QStringList({"/r/ZOOM0001_LR.WAV"})) << "the mix is listened to";
  app::workspace().clear();
}

TEST_F(FileList, DroppedFoldersGiveTheirMediaFilesInOrder) {
  const QDir folder(folder_.path());
  for (const char* name : {"cam/clip10.MOV", "cam/clip2.mov", "cam/plan.pdf", "z.wav", "y.wma",
                           "z.wav_temporary_file_to_be_deleted.wav"}) {
    makeFile(folder, name);
  }
  for (int i = 0; i < 3000; ++i) makeFile(folder, QString("junk/%1.xml").arg(i));
  app::MediaCollector collector;
  QString notes;
  QObject::connect(&collector, &app::MediaCollector::finished,
                   [&](int, const QString& text) { notes = text; });
  collector.add({QUrl::fromLocalFile(folder.path()), QUrl::fromLocalFile(folder.filePath("z.wav")),
                 QUrl("http://example.org/a.mov")},
                true);
  EXPECT_TRUE(collector.busy());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !notes.isEmpty(); }, 20000));
  EXPECT_TRUE(notes.contains("plan.pdf")) << notes.toStdString();
  EXPECT_FALSE(notes.contains("xml")) << "what cameras keep beside their clips is not worth a word";
  EXPECT_TRUE(notes.contains("y.wma")) << "what a run refuses is said at once";
  EXPECT_EQ(fileModel.entries(),
            QStringList({app::kGroupBegin, folder.filePath("cam/clip2.mov"),
                         folder.filePath("cam/clip10.MOV"), folder.filePath("y.wma"),
                         folder.filePath("z.wav"), app::kGroupEnd}));
  app::workspace().clear();
}

}  // namespace
