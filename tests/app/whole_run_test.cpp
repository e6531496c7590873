#include "tests/app/real_window.h"

namespace {

using WholeRun = RealWindow;

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
  EXPECT_EQ(item("endTitle")->property("text"), "Done!");
  EXPECT_EQ(item("progressbar")->opacity(), 0);
  const app::TimelineModel* timeline = app::workspace().result()->timeline(0);
  ASSERT_NE(timeline, nullptr);
  ASSERT_EQ(timeline->rowCount(), 3);
  for (int row = 0; row < 3; ++row) {
    const auto index = timeline->index(row);
    const QString path = timeline->data(index, app::TimelineModel::PathRole).toString();
    EXPECT_NEAR(timeline->data(index, app::TimelineModel::StartRole).toDouble(),
                starts[static_cast<std::size_t>(app::fileModel.entries().indexOf(path))], 0.06);
  }
  EXPECT_EQ(filesBesideSources(), 3) << "nothing is left beside the sources";
  EXPECT_EQ(
      std::ranges::count_if(shownDesktop().commands,
                            [](const std::string& line) { return line.starts_with("explorer "); }),
      3)
      << "the folder and the two reports in it";
  EXPECT_EQ(shownDesktop().shown, std::vector{folder_.file("profile/Desktop/SYNCED")});
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

TEST_F(WholeRun, DroppedFilesAreListedOnce) {
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
  ASSERT_TRUE(QTest::qWaitFor([] { return app::fileModel.rowCount() == 1; }));
  EXPECT_EQ(app::fileModel.entries(), QStringList({file}))
      << "one that is there already is not added";
}

TEST_F(WholeRun, ALongListIsQuickToScrollAndToShorten) {
  QStringList files;
  for (int i = 0; i < 998; ++i)
    files << QString("/nowhere/clip%1.mov").arg(i, 4, 10, QLatin1Char('0'));
  app::workspace().addFiles(files, false);
  LongestGap gap;
  auto* list = item("recordings");
  ASSERT_NE(list, nullptr);
  for (int y = 0; y < 30000; y += 500) {
    list->setProperty("contentY", y);
    QTest::qWait(1);
  }
  list->setProperty("contentY", 0);
  list->forceActiveFocus();
  for (int i = 0; i < 5; ++i) {
    QTest::keyClick(&window_, Qt::Key_Down);
    QTest::keyClick(&window_, Qt::Key_Delete);
  }
  QTest::qWait(1);
  EXPECT_EQ(app::fileModel.rowCount(), 993 + 2);
  std::cout << "longest gap with 998 entries: " << gap.milliseconds() << " ms\n";
  click("clearButton");
  EXPECT_EQ(app::fileModel.rowCount(), 993 + 2) << "a long list is asked about";
}

}  // namespace
