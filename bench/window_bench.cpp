// How smoothly a thousand clips scroll and zoom, drawn without a graphics driver: the time from a
// change to the finished picture. Also the time from the start of the program to the window's first
// picture. The processor's time, of all threads together, does not depend on what else runs.
#include <sndfile.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickView>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThreadPool>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "app/companions.h"
#include "app/files/file_list.h"
#include "app/qml_application_viewer.h"
#include "app/qml_file.h"
#include "app/start_up.h"
#include "app/workspace.h"

void qml_register_types_Kestrel();

namespace {

constexpr int kClips = 1000, kDevices = 10;
constexpr int kFrames = 120;

/// A day of ten cameras.
project::Project longDay() {
  project::Project project;
  project::Group group{1, "Group 1", {}, {}};
  project::Id id = 10;
  for (int device = 0; device < kDevices; ++device) {
    project::Device one;
    one.id = id++;
    one.name = "Camera " + std::to_string(device + 1);
    for (int i = 0; i < kClips / kDevices; ++i) {
      project::Recording recording;
      recording.id = id++;
      recording.lengthSeconds = 200;
      recording.files.emplace_back().path =
          "/nowhere/" + std::to_string(device) + "/C" + std::to_string(1000 + i) + ".MP4";
      project::Clip clip;
      clip.recording = recording.id;
      clip.startSeconds = i * 300 + device * 17;
      clip.confidence = 0.99;
      group.clips.push_back(clip);
      one.recordings.push_back(recording);
    }
    project.devices.push_back(one);
  }
  project.groups = {group};
  return project;
}

/// Waits for the next picture of `window`; returns the milliseconds it took.
double nextFrame(QQuickWindow& window) {
  QElapsedTimer clock;
  clock.start();
  bool drawn = false;
  const auto connection =
      QObject::connect(&window, &QQuickWindow::frameSwapped, [&drawn] { drawn = true; });
  while (!drawn && clock.elapsed() < 2000) QCoreApplication::processEvents();
  QObject::disconnect(connection);
  return double(clock.nsecsElapsed()) / 1e6;
}

/// Milliseconds that this program has kept processors busy.
double processorTime() { return 1e3 * double(std::clock()) / CLOCKS_PER_SEC; }

void tell(const char* what, const char* kind, std::vector<double> times) {
  std::ranges::sort(times);
  std::printf("%-8s %-9s median %5.1f ms   95 %% %5.1f ms   longest %5.1f ms\n", what, kind,
              times[times.size() / 2], times[times.size() * 95 / 100], times.back());
}

template <typename Step>
void measure(const char* what, QQuickWindow& window, Step step) {
  std::vector<double> wall, busy;
  for (int i = 0; i < kFrames; ++i) {
    QElapsedTimer clock;
    clock.start();
    const double before = processorTime();
    step(i);
    nextFrame(window);
    wall.push_back(double(clock.nsecsElapsed()) / 1e6);
    busy.push_back(processorTime() - before);
  }
  tell(what, "wall", wall);
  tell(what, "processor", busy);
}

/// Sound that moves up and down, as the drawing of a clip of 200 s takes it.
std::string writeSound(const QString& path) {
  SF_INFO info = {0, 8000, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0, 0};
  SNDFILE* file = sf_open(path.toUtf8().constData(), SFM_WRITE, &info);
  std::vector<float> second(8000);
  for (int i = 0; i < 200; ++i) {
    for (int k = 0; k < 8000; ++k)
      second[std::size_t(k)] = 0.5f * float(std::sin(0.3 * k) * std::sin(1e-4 * (i * 8000 + k)));
    sf_write_float(file, second.data(), 8000);
  }
  sf_close(file);
  return path.toStdString();
}

}  // namespace

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QStandardPaths::setTestModeEnabled(true);
  const QApplication application(argc, argv);
  qml_register_types_Kestrel();
  app::QMLFile bridge;
  app::progresbar bar;
  app::QmlApplicationViewer window;
  window.rootContext()->setContextProperty("myModel", &app::fileModel);
  window.rootContext()->setContextProperty("QMLFile", &bridge);
  window.rootContext()->setContextProperty("pBar", &bar);
  window.setSource(QUrl::fromLocalFile(QML_FOLDER "/main.qml"));
  window.resize(1280, 800);
  window.show();
  nextFrame(window);
  std::printf("first picture after %.0f ms of the processor\n", processorTime());
  const QTemporaryDir folder;
  const std::string sound = writeSound(folder.filePath("sound.wav"));
  app::RunAnswer answer;
  answer.project = longDay();
  answer.outcome.groups.emplace_back();
  for (const project::Device& device : answer.project.devices)
    for (const project::Recording& recording : device.recordings) {
      answer.outcome.groups[0].members.emplace_back();
      answer.outcome.groups[0].members.back().path = recording.files.front().path;
      answer.outcome.groups[0].members.back().soundPath = sound;
    }
  app::workspace().take(answer);
  Q_EMIT app::workspace().opened();
  QThreadPool::globalInstance()->waitForDone();  // the waveforms
  QCoreApplication::processEvents();
  nextFrame(window);
  auto* timeline = window.rootObject()->findChild<QQuickItem*>("timeline");
  measure("zoom", window, [&](int i) {
    QMetaObject::invokeMethod(timeline, "zoomBy", Q_ARG(double, i < kFrames / 2 ? 1.05 : 1 / 1.05));
  });
  timeline->setProperty("pixelsPerSecond", 0.5);
  measure("scroll", window, [&](int i) { timeline->setProperty("viewStart", 100.0 * i); });
  timeline->setProperty("pixelsPerSecond", 40);
  measure("close", window, [&](int i) { timeline->setProperty("viewStart", 100.0 + 0.1 * i); });
}
