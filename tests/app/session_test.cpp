#include <QFileDialog>
#include <QLineEdit>
#include <map>
#include <regex>

#include "app/sync_settings.h"
#include "project/edit.h"
#include "project/look_up.h"
#include "run/sound_cache.h"
#include "tests/app/qt_printing.h"
#include "tests/app/real_window.h"

namespace {

/// The documents by their names without the time of day, which differs from one writing to the
/// next.
std::map<std::string, std::string> documents() {
  static const std::regex kTime("--\\d\\d-\\d\\d-\\d\\d--");
  std::map<std::string, std::string> texts;
  for (const std::string& path : app::workspace().project().written.files) {
    const std::string name = path.substr(path.find_last_of('/') + 1);
    if (app::isDocument(path))
      texts[std::regex_replace(name, kTime, "--")] =
          std::regex_replace(readWhole(report::fromUtf8(path)), kTime, "--");
  }
  return texts;
}

/// `text` without its stretches from `begin` to `end` that name `file`.
std::string without(std::string text, const std::string& begin, const std::string& end,
                    const std::string& file) {
  for (std::size_t from = 0; (from = text.find(begin, from)) != text.npos;) {
    const std::size_t to = text.find(end, from) + end.size();
    if (text.substr(from, to - from).find(file) != text.npos)
      text.erase(from, to - from);
    else
      from = to;
  }
  return text;
}

/// A document without what it says of the clip `file`.
std::string withoutClip(const std::string& name, const std::string& text, const std::string& file) {
  return name.ends_with(".edl") ? without(text, "\n", "\r", file)
                                : without(text, "<clipitem", "</clipitem>", file);
}

double startOf(int recording) {
  return project::clipOf(app::workspace().project(), recording)->startSeconds;
}

/// The keys that reach everything: Tab, arrows, Enter and Space. The system's dialogs for files are
/// answered for it.
class Session : public RealWindow {
 protected:
  /// Two cameras, each clip in a folder of its own, and a recorder that ran all the time.
  QString shoot() {
    const auto event = liveSound(60, 7);
    const auto sound = [&](const char* folder, const char* name, double from, double to) {
      std::filesystem::create_directories(report::fromUtf8(folder_.file(folder)));
      return folder_.write(std::string(folder) + "/" + name, wavText(cut(event, from, to)));
    };
    sound("shoot/Zoom", "ZOOM0001.wav", 0, 60);
    for (const auto& [folder, from] : {std::pair{"shoot/Cam 1", 5.0}, {"shoot/Cam 2", 12.0}}) {
      const std::string wav = sound(folder, "C0001.wav", from, from + 30);
      EXPECT_TRUE(ffmpeg({"-i", wav, "-f", "lavfi", "-i", "color=s=320x180:r=25:d=30", "-c:v",
                          "mpeg4", "-c:a", "pcm_s16le",
                          folder_.file(std::string(folder) + "/" + folder[10] + ".mov")}));
      std::filesystem::remove(report::fromUtf8(wav));
    }
    return QString::fromStdString(folder_.file("shoot"));
  }

  void SetUp() override {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    RealWindow::SetUp();
  }

  void key(Qt::Key key) { QTest::keyClick(&window_, key); }

  void tabTo(const char* name) {
    constexpr int kStops = 120;
    std::string way;
    for (int i = 0; i < kStops && !item(name)->hasActiveFocus(); ++i) {
      key(Qt::Key_Tab);
      const QObject* at = window_.activeFocusItem();
      if (i < 40) way += (at ? at->objectName().toStdString() : "nothing") + " ";
    }
    ASSERT_TRUE(item(name)->hasActiveFocus()) << "Tab does not reach " << name << ", but: " << way;
    ASSERT_TRUE(item(name)->isVisible() && item(name)->isEnabled()) << name;
  }
  void press(const char* name, Qt::Key with) {
    tabTo(name);
    if (HasFatalFailure()) return;
    key(with);
  }

  /// Answers the dialog that a key is about to open.
  void answer(const QString& path) {
    auto* waiting = new QTimer(&window_);
    QObject::connect(waiting, &QTimer::timeout, waiting, [this, waiting, path] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      waiting->deleteLater();
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
      static_cast<QDialog*>(dialog)->accept();
      QTimer::singleShot(0, [this] { window_.requestActivate(); });  // as a window manager does
    });
    waiting->start(20);
  }
  bool wait(const std::function<bool()>& until) { return QTest::qWaitFor(until, 120000); }
};

TEST_F(Session, KeysAloneLeadFromTheFirstFolderToCorrectedDocuments) {
  const QString folder = shoot();
  answer(folder);
  ASSERT_TRUE(item("addFolder")->hasActiveFocus()) << "the first key has somewhere to go";
  key(Qt::Key_Return);
  ASSERT_TRUE(wait([&] { return item("startButton")->isEnabled(); }));
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  std::vector<std::string> names;
  for (const project::Device& device : app::workspace().project().devices)
    names.push_back(device.name);
  EXPECT_EQ(names, (std::vector<std::string>{"Cam 1", "Cam 2", "Zoom"}));

  ASSERT_NO_FATAL_FAILURE(press("startButton", Qt::Key_Space));
  ASSERT_TRUE(wait([&] { return phase() == "finished"; }));
  ASSERT_TRUE(wait([&] { return item("timeline")->hasActiveFocus(); })) << "keys act on clips";
  const auto written = documents();
  ASSERT_GT(written.size(), 5u);

  key(Qt::Key_Right);
  const int clip = item("timeline")->property("current").toInt();
  const project::Recording* recording = project::findRecording(app::workspace().project(), clip);
  ASSERT_NE(recording, nullptr);
  const std::string path = project::mainFile(*recording).path;
  ASSERT_TRUE(path.ends_with(".mov")) << "the recorder comes first and holds the group's ends";
  const double place = startOf(clip);
  ASSERT_NO_FATAL_FAILURE(press("laterButton", Qt::Key_Return));
  EXPECT_NEAR(startOf(clip), place + 0.001, 1e-9);
  EXPECT_TRUE(app::workspace().edited());
  ASSERT_NO_FATAL_FAILURE(press("undoButton", Qt::Key_Return));
  EXPECT_EQ(startOf(clip), place);
  EXPECT_FALSE(app::workspace().edited());

  for (int i = 0; i < 3; ++i) ASSERT_NO_FATAL_FAILURE(press("frameLaterButton", Qt::Key_Space));
  EXPECT_NEAR(startOf(clip), place + 0.12, 1e-9);
  ASSERT_NO_FATAL_FAILURE(press("exportButton", Qt::Key_Return));
  ASSERT_TRUE(wait([] { return !app::workspace().edited(); }));
  const auto corrected = documents();
  ASSERT_EQ(corrected.size(), written.size());
  const std::string file = path.substr(path.find_last_of('/') + 1);
  for (const auto& [name, text] : corrected) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(written.contains(name));
    if (name.starts_with("UNSYNCED")) {
      EXPECT_EQ(text, written.at(name));
      continue;
    }
    EXPECT_NE(text, written.at(name)) << "the clip has moved by three frames";
    if (name.ends_with(".XML") || name.ends_with(".edl")) {
      EXPECT_TRUE(withoutClip(name, text, file) == withoutClip(name, written.at(name), file));
    }
  }

  ASSERT_NO_FATAL_FAILURE(press("saveButton", Qt::Key_Return));
  ASSERT_TRUE(wait([] { return !app::workspace().unsaved(); }));
  const QDir results(QString::fromStdString(folder_.file("profile/Desktop/SYNCED")));
  const QStringList projects = results.entryList({"*.kestrel"});
  ASSERT_EQ(projects.size(), 1) << "it is saved where the run kept it";
  app::workspace().clear();
  answer(results.filePath(projects.front()));
  ASSERT_NO_FATAL_FAILURE(press("openButton", Qt::Key_Return));
  ASSERT_TRUE(wait([&] { return app::workspace().result()->rowCount() == 1; }));
  EXPECT_NEAR(startOf(clip), place + 0.12, 1e-6);
  EXPECT_EQ(app::workspace().sounds().size(), 3u) << "a project that was reopened can be heard";

  answer(QString::fromStdString(folder_.file("shoot")));
  ASSERT_NO_FATAL_FAILURE(press("choicesButton", Qt::Key_Return));
  ASSERT_NO_FATAL_FAILURE(press("popupFolderButton", Qt::Key_Return));
  ASSERT_TRUE(wait([&] { return app::workspace().documentsFolder() == folder; }));
  ASSERT_NO_FATAL_FAILURE(press("writeButton", Qt::Key_Return));
  ASSERT_TRUE(wait([&] { return app::workspace().result()->folder() == folder; }));
  EXPECT_EQ(documents(), corrected) << "a project that was reopened says the same";
}

TEST_F(Session, NamesOfBinsGoIntoTheDocuments) {
  addRecordings({0, 7.25, 15.5});
  ASSERT_TRUE(wait([&] { return item("startButton")->isEnabled(); }));
  app::workspace().renameDevice(app::workspace().project().devices.front().id, "Anna's Zoom");
  click("startButton");
  ASSERT_TRUE(wait([&] { return phase() == "finished"; }));
  EXPECT_TRUE(app::workspace().result()->timeline(0)->lanes().contains("Anna's Zoom"));
  EXPECT_TRUE(std::ranges::any_of(documents(), [](const auto& document) {
    return document.second.find("Anna's Zoom") != std::string::npos ||
           document.second.find("Anna&apos;s Zoom") != std::string::npos;
  }));
}

TEST_F(Session, ChoicesReachTheRunItsFolderAndTheNextRun) {
  addRecordings({0, 7.25});
  ASSERT_TRUE(wait([&] { return item("startButton")->isEnabled(); }));
  auto* settings = window_.rootObject()->findChild<app::SyncSettings*>();
  ASSERT_NE(settings, nullptr);
  for (int i = 0; i < 8; ++i) settings->setProgram(i, i == 4);
  const QString folder = QString::fromStdString(folder_.file("edit"));
  app::workspace().setDocumentsFolder(folder);
  click("startButton");
  ASSERT_TRUE(wait([&] { return phase() == "finished"; }));
  EXPECT_EQ(app::workspace().result()->folder(), folder);
  for (const auto& [name, text] : documents()) EXPECT_TRUE(name.ends_with(".edl")) << name;
  EXPECT_EQ(documents().size(), QDir(folder + "/VEGAS_SEQUENCES").entryList(QDir::Files).size());
  EXPECT_GT(documents().size(), 0u);
  EXPECT_TRUE(
      QFile::exists(QString::fromStdString(folder_.file("profile/Desktop/SYNCED/READ2SYNC.txt"))));

  const run::SoundCache cache(run::SoundCache::usualFolder());
  EXPECT_GT(cache.bytes(), 100000u) << "what was heard is kept";
  click("newSync");
  ASSERT_TRUE(wait([&] { return item("clearKept")->isEnabled(); }));
  EXPECT_FALSE(item("keptSize")->property("text").toString().isEmpty());
  click("clearKept");
  EXPECT_EQ(cache.bytes(), 0u);
  ASSERT_TRUE(wait([&] { return !item("clearKept")->isEnabled(); }));
}

TEST_F(Session, WhatCannotBeWrittenIsSaidAndWrittenElsewhere) {
  addRecordings({0, 7.25});
  ASSERT_TRUE(wait([&] { return item("startButton")->isEnabled(); }));
  folder_.write("profile/Desktop", "a file where the folder of results should be");
  click("startButton");
  ASSERT_TRUE(wait([&] { return phase() == "finished"; }));
  EXPECT_EQ(app::workspace().result()->endState(), app::EndState::NothingWritten);
  EXPECT_EQ(item("endTitle")->property("text"), "Nothing was written");
  EXPECT_TRUE(app::workspace().problem().contains("SYNCED"))
      << app::workspace().problem().toStdString();
  EXPECT_TRUE(item("elsewhere")->hasActiveFocus()) << "another folder is a key away";
  std::filesystem::create_directories(report::fromUtf8(folder_.file("other")));
  answer(QString::fromStdString(folder_.file("other")));
  key(Qt::Key_Return);
  ASSERT_TRUE(wait([&] { return item("endTitle")->property("text") == "Done!"; }));
  EXPECT_EQ(app::workspace().problem(), "");
  EXPECT_FALSE(item("elsewhere")->isVisible());
}

}  // namespace
