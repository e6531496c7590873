#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSettings>
#include <QTimer>
#include <thread>

#include "app/files/file_list.h"
#include "app/qml_file.h"
#include "app/run_session.h"
#include "app/sync_settings.h"
#include "app/workspace.h"
#include "project/project_file.h"
#include "tests/app/qt_printing.h"
#include "tests/run/media.h"

namespace {

using namespace std::chrono_literals;

/// Puts a job in place of the real runs while it lives.
class Run : public testing::Test {
 protected:
  void TearDown() override {
    app::runSession().setJob({});
    app::fileModel.clear();
  }

  app::RunAnswer answer() const {
    app::RunAnswer answer;
    answer.result = {"status"};
    return answer;
  }

  app::QMLFile bridge_;
};

TEST_F(Run, ArgumentsAndListReachTheRunUnchanged) {
  app::RunRequest seen;
  app::runSession().setJob([&](const app::RunRequest& request, auto&, auto&) {
    seen = request;
    return answer();
  });
  int finished = 0;
  QObject::connect(&bridge_, &app::QMLFile::doneit, [&] { ++finished; });
  app::fileModel.addEntry(app::kGroupBegin);
  app::fileModel.addEntry(QString::fromUtf8("/ä/日本.mov"));
  bridge_.start_sync2(0.5f, 1280, 720, 29.97f, 7);
  EXPECT_EQ(seen.videofiles,
            (std::vector<std::string>{app::kGroupBegin.toStdString(), "/ä/日本.mov"}));
  EXPECT_EQ(seen.a_d, 0.5);
  EXPECT_EQ(seen.resx, 1280);
  EXPECT_EQ(seen.resy, 720);
  EXPECT_EQ(seen.frps, 29.97f);
  EXPECT_EQ(seen.prem, 7);
  EXPECT_EQ(finished, 1);
}

TEST_F(Run, TheWindowsThreadHandlesEventsAndNoSecondRunStarts) {
  std::atomic<bool> release = false;
  int runs = 0;
  app::runSession().setJob([&](auto&, auto&, auto&) {
    ++runs;
    while (!release) std::this_thread::sleep_for(1ms);
    return answer();
  });
  QTimer::singleShot(0, [&] {
    EXPECT_TRUE(app::runSession().running());
    bridge_.start_sync2(0.99f, 1, 1, 25, 1);
    release = true;
  });
  bridge_.start_sync2(0.99f, 1, 1, 25, 1);
  EXPECT_EQ(runs, 1);
  EXPECT_FALSE(app::runSession().running());
}

TEST_F(Run, ProgressIsShownBeforeTheRunReturns) {
  app::runSession().setJob([&](auto&, run::Progress& progress, auto&) {
    for (int i = 1; i <= 5000; ++i) progress.stage(run::Stage::compare, "é.mov", i, 5000);
    progress.moveprogressslot(650);
    return answer();
  });
  int changes = 0, stage = -1, items = 0, pixels = 0;
  const auto session = QObject::connect(&app::runSession(), &app::RunSession::progressed, [&] {
    ++changes;
    if (!app::runSession().running() || app::runSession().total() == 0) return;
    stage = app::runSession().stage();
    items = app::runSession().doneItems();
    EXPECT_EQ(app::runSession().file(), QString::fromUtf8("é.mov"));
  });
  QObject::connect(&bridge_, &app::QMLFile::moveprogressignal, &bridge_,
                   [&](int value) { pixels = value; });
  bridge_.synco({}, 0.99, 1920, 1080, 25, 1);
  QObject::disconnect(session);
  EXPECT_EQ(stage, static_cast<int>(run::Stage::compare));
  EXPECT_EQ(items, 5000);
  EXPECT_EQ(pixels, 650);
  EXPECT_LT(changes, 5000) << "only the latest state is worth showing";
}

TEST_F(Run, CancellingEndsItWithoutTheFinishedState) {
  app::runSession().setJob([&](auto&, auto&, const std::atomic<bool>& cancelled) {
    while (!cancelled) std::this_thread::sleep_for(1ms);
    app::RunAnswer cut = answer();
    cut.outcome.cancelled = true;
    return cut;
  });
  int finished = 0;
  QObject::connect(&bridge_, &app::QMLFile::doneit, [&] { ++finished; });
  QTimer::singleShot(0, [] {
    app::runSession().cancel();
    EXPECT_TRUE(app::runSession().cancelling());
  });
  bridge_.start_sync2(0.99f, 1, 1, 25, 1);
  EXPECT_TRUE(app::runSession().cancelled());
  EXPECT_EQ(finished, 0);
}

TEST_F(Run, QuittingTheProgramCancelsIt) {
  bool sawCancel = false;
  app::runSession().setJob([&](auto&, auto&, const std::atomic<bool>& cancelled) {
    while (!cancelled) std::this_thread::sleep_for(1ms);
    sawCancel = true;
    return answer();
  });
  QTimer::singleShot(0, [&] { bridge_.start_sync2(0.99f, 1, 1, 25, 1); });
  QTimer::singleShot(20, [] { QCoreApplication::quit(); });
  QCoreApplication::exec();
  EXPECT_TRUE(sawCancel);
}

TEST(Settings, ChoicesAreRemembered) {
  QSettings().clear();
  {
    app::SyncSettings settings;
    EXPECT_EQ(settings.tolerance(), 0.99);
    EXPECT_EQ(settings.frameRate(), 0) << "automatic is for the run to work out";
    EXPECT_EQ(settings.frameSize(), QSize(0, 0));
    settings.setProperty("speed", 2);
    settings.setProperty("rate", 8);
  }
  app::SyncSettings again;
  EXPECT_EQ(again.tolerance(), 0.985);
  EXPECT_EQ(again.frameRate(), 60);
  QSettings().setValue("speed", 99);
  EXPECT_EQ(app::SyncSettings().tolerance(), 0.99) << "a choice that is none counts as the default";
  QSettings().clear();
}

TEST_F(Run, ARunThatWasRefusedLeavesTheLastOneAloneAndSaysWhy) {
  app::RunAnswer good = answer();
  good.project.groups = {{1, "Group 1", {}}};
  app::workspace().take(good);
  app::runSession().setJob([&](auto&, auto&, auto&) {
    app::RunAnswer refused = answer();
    refused.outcome.refused = true;
    refused.outcome.failures = {"Another run writes there.", "And more."};
    return refused;
  });
  bridge_.start_sync2(0.99f, 1, 1, 25, 1);
  EXPECT_EQ(app::workspace().project().groups.size(), 1u);
  EXPECT_EQ(app::workspace().result()->endState(), app::EndState::Failed);
  EXPECT_EQ(app::workspace().result()->failure(), "Another run writes there.");
  EXPECT_EQ(app::workspace().problem(), "Another run writes there. (1 more among the notes)");
  app::workspace().clear();
  EXPECT_EQ(app::workspace().problem(), "");
}

TEST(Settings, ReachTheProjectAndComeFromOneThatIsOpened) {
  QSettings().clear();
  const Folder folder;
  project::Project other;
  other.settings.formats = {"vegas", "rpp"};
  other.settings.drift = "off";
  other.settings.framesPerSecond = 50;
  other.settings.clipsByClock = true;
  const std::string file = folder.file("other.kestrel");
  ASSERT_TRUE(project::saveProject(other, file).ok());
  app::SyncSettings settings;
  EXPECT_EQ(settings.programsText(), "All but Reaper");
  settings.setProperty("drift", 1);
  settings.setProperty("replaceAudio", true);
  for (int i = 0; i < 8; ++i) settings.setProgram(i, i == 1);
  settings.setProgram(1, false);
  EXPECT_EQ(settings.programsText(), "Premiere Pro") << "one always stays";
  const project::Settings& handed = app::workspace().project().settings;
  EXPECT_EQ(handed.drift, "pieces");
  EXPECT_TRUE(handed.replaceAudio);
  EXPECT_EQ(handed.formats, std::vector<std::string>{"premiere"});

  ASSERT_TRUE(app::workspace().open(QUrl::fromLocalFile(QString::fromStdString(file))));
  EXPECT_EQ(settings.programsText(), "Vegas, Reaper");
  EXPECT_EQ(settings.frameRate(), 50);
  EXPECT_EQ(settings.property("byClock"), true);
  EXPECT_FALSE(app::workspace().unsaved()) << "a project is not changed by being opened";
  EXPECT_EQ(app::SyncSettings().property("drift"), 1) << "nor does it change what is remembered";
  app::workspace().clear();
  QSettings().clear();
}

}  // namespace
