#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QMimeData>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <iostream>

#include "app/companions.h"
#include "app/core_run.h"
#include "app/files/file_list.h"
#include "app/qml_application_viewer.h"
#include "app/qml_file.h"
#include "app/run_session.h"
#include "app/start_up.h"
#include "report/profile.h"
#include "tests/awkward_names.h"
#include "tests/run/media.h"

namespace {

/// The longest time that passed between two visits of the event loop.
class LongestGap {
 public:
  LongestGap() {
    clock_.start();
    QObject::connect(&timer_, &QTimer::timeout,
                     [this] { longest_ = std::max(longest_, clock_.restart()); });
    timer_.start(2);
  }
  qint64 milliseconds() const { return longest_; }

 private:
  QTimer timer_;
  QElapsedTimer clock_;
  qint64 longest_ = 0;
};

/// The real document in a real window, in a profile and a working directory of its own.
class WholeRun : public testing::Test {
 protected:
  void SetUp() override {
    report::useProfileFolder(folder_.file("profile"));
    QDir().mkpath(QString::fromStdString(folder_.file("profile")));
    before_ = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(folder_.file("")));
    app::runSession().setJob(app::runCore);
    app::fileModel.clear();
    window_.rootContext()->setContextProperty("myModel", &app::fileModel);
    window_.rootContext()->setContextProperty("QMLFile", &bridge_);
    window_.rootContext()->setContextProperty("pBar", &bar_);
    app::connectAll(bridge_, window_, *qGuiApp);
    QObject::connect(window_.engine(), &QQmlEngine::warnings, [](const QList<QQmlError>& all) {
      for (const QQmlError& warning : all) ADD_FAILURE() << warning.toString().toStdString();
    });
    window_.setSource(QUrl::fromLocalFile(QML_FOLDER "/main.qml"));
    ASSERT_EQ(window_.status(), QQuickView::Ready);
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }
  void TearDown() override {
    app::fileModel.clear();
    QDir::setCurrent(before_);
  }

  QQuickItem* item(const char* name) { return window_.rootObject()->findChild<QQuickItem*>(name); }
  void click(const char* name) {
    const QQuickItem* button = item(name);
    ASSERT_TRUE(button && button->isVisible() && button->isEnabled()) << name;
    const QPointF middle(button->width() / 2, button->height() / 2);
    QTest::mouseClick(&window_, Qt::LeftButton, {}, button->mapToScene(middle).toPoint());
  }
  QString phase() { return window_.rootObject()->property("phase").toString(); }

  /// Two cameras and a recorder of one event; the list's order is that of `starts`.
  void addRecordings(const std::vector<double>& starts) {
    const auto event = liveSound(60, 7);
    for (std::size_t i = 0; i < starts.size(); ++i) {
      const std::string name = "take " + std::string(kAwkwardName) + std::to_string(i);
      const std::string wav =
          folder_.write(name + ".wav", wavText(cut(event, starts[i], starts[i] + 40)));
      const std::string movie = folder_.file(name + ".mov");
      if (i > 0) {
        ASSERT_TRUE(ffmpeg({"-i", wav, "-f", "lavfi", "-i", "color=s=320x180:r=25:d=40", "-c:v",
                            "mpeg4", "-c:a", "aac", movie}));
        std::filesystem::remove(report::fromUtf8(wav));
      }
      app::fileModel.addEntry(QString::fromStdString(i > 0 ? movie : wav));
    }
  }
  /// Has `action` done once, when the first file of the next run is ready.
  void duringRun(const std::function<void()>& action) {
    auto* once = new QObject(&window_);
    QObject::connect(&app::runSession(), &app::RunSession::progressed, once, [once, action] {
      if (app::runSession().total() == 0) return;
      QObject::disconnect(&app::runSession(), nullptr, once, nullptr);
      once->deleteLater();
      QTimer::singleShot(0, action);
    });
  }
  int filesBesideSources() {
    return static_cast<int>(
        QDir(QString::fromStdString(folder_.file("")), "take*", {}, QDir::Files).count());
  }

  Folder folder_;
  QString before_;
  app::QmlApplicationViewer window_;
  app::QMLFile bridge_;
  app::progresbar bar_;
};

TEST_F(WholeRun, AClickLeadsToTheFinishedTimeline) {
  EXPECT_FALSE(item("startButton")->isEnabled()) << "nothing to start with";
  const std::vector<double> starts = {0, 7.25, 15.5};
  addRecordings(starts);
  ASSERT_TRUE(QTest::qWaitFor([&] { return item("startButton")->isEnabled(); }));
  LongestGap gap;
  bool sawRun = false;
  duringRun([&] { sawRun = phase() == "running" && !item("startButton")->isVisible(); });
  click("startButton");
  ASSERT_TRUE(QTest::qWaitFor([&] { return phase() == "finished"; }, 120000));
  std::cout << "longest gap between two passes of the event loop: " << gap.milliseconds()
            << " ms\n";

  EXPECT_TRUE(sawRun);
  EXPECT_EQ(item("text3")->property("text"), "Done!");
  EXPECT_EQ(item("progressbar")->opacity(), 0);
  const app::TimelineModel* timeline = app::runSession().result()->timeline(0);
  ASSERT_NE(timeline, nullptr);
  ASSERT_EQ(timeline->rowCount(), 3);
  for (int row = 0; row < 3; ++row) {
    const auto index = timeline->index(row);
    const QString path = timeline->data(index, app::TimelineModel::PathRole).toString();
    EXPECT_NEAR(timeline->data(index, app::TimelineModel::StartRole).toDouble(),
                starts[static_cast<std::size_t>(app::fileModel.entries().indexOf(path))], 0.06);
  }
  EXPECT_EQ(filesBesideSources(), 3) << "nothing is left beside the sources";
  click("newSync");
  EXPECT_EQ(phase(), "idle");
  EXPECT_TRUE(item("startButton")->isEnabled());
}

TEST_F(WholeRun, CancelLeadsBackToTheListAndLeavesNothingBehind) {
  addRecordings({0, 7.25, 15.5});
  ASSERT_TRUE(QTest::qWaitFor([&] { return item("startButton")->isEnabled(); }));
  duringRun([&] { QTest::keyClick(&window_, Qt::Key_Escape); });
  QTest::keyClick(&window_, Qt::Key_Return, Qt::ControlModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return app::runSession().cancelled(); }, 60000));
  EXPECT_EQ(phase(), "idle");
  EXPECT_EQ(filesBesideSources(), 3);
}

TEST_F(WholeRun, DroppedFilesAreListedAndWithShiftAsOneDevice) {
  const QString file = QString::fromStdString(folder_.write("a.mov", "x"));
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(file), QUrl::fromLocalFile("/nowhere/notes.txt")});
  const QPoint place = item("recordings")->mapToScene(QPointF(50, 50)).toPoint();
  for (const auto action : {Qt::CopyAction, Qt::MoveAction}) {
    const auto held = action == Qt::MoveAction ? Qt::ShiftModifier : Qt::NoModifier;
    QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, held);
    enter.setDropAction(action);
    QCoreApplication::sendEvent(&window_, &enter);
    QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, held);
    QCoreApplication::sendEvent(&window_, &drop);
  }
  ASSERT_TRUE(QTest::qWaitFor([] { return app::fileModel.rowCount() == 4; }));
  EXPECT_EQ(app::fileModel.entries(), QStringList({file, app::kGroupBegin, file, app::kGroupEnd}));
}

TEST_F(WholeRun, ALongListIsQuickToScrollAndToShorten) {
  for (int i = 0; i < 998; ++i) app::fileModel.addEntry(QString("/nowhere/clip%1.mov").arg(i));
  LongestGap gap;
  auto* list = item("recordings");
  ASSERT_NE(list, nullptr);
  for (int y = 0; y < 50000; y += 500) {
    list->setProperty("contentY", y);
    QTest::qWait(1);
  }
  list->forceActiveFocus();
  for (int i = 0; i < 50; ++i) QTest::keyClick(&window_, Qt::Key_Delete);
  QTest::qWait(1);
  EXPECT_EQ(app::fileModel.rowCount(), 948);
  std::cout << "longest gap with 998 entries: " << gap.milliseconds() << " ms\n";
  click("clearButton");
  EXPECT_EQ(app::fileModel.rowCount(), 948) << "a long list is asked about";
}

}  // namespace
