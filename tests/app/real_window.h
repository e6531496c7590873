#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QMimeData>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <iostream>

#include "app/companions.h"
#include "app/core_run.h"
#include "app/documents_list.h"
#include "app/files/file_list.h"
#include "app/qml_application_viewer.h"
#include "app/qml_file.h"
#include "app/run_session.h"
#include "app/start_up.h"
#include "app/workspace.h"
#include "report/profile.h"
#include "tests/app/shown.h"
#include "tests/awkward_names.h"
#include "tests/run/media.h"

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
class RealWindow : public testing::Test {
 protected:
  void SetUp() override {
    report::useProfileFolder(folder_.file("profile"));
    QDir().mkpath(QString::fromStdString(folder_.file("profile")));
    before_ = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(folder_.file("")));
    shownDesktop() = {};
    app::runSession().setJob(app::runCore);
    QSettings().clear();
    app::workspace().clear();
    app::workspace().setDocumentsFolder({});
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
    app::workspace().clear();
    QDir::setCurrent(before_);
  }

  /// The item of this name; of several, the one that shows.
  QQuickItem* item(const char* name) {
    const auto all = window_.rootObject()->findChildren<QQuickItem*>(name);
    const auto shown = std::ranges::find_if(all, &QQuickItem::isVisible);
    return shown != all.end() ? *shown : all.isEmpty() ? nullptr : all.front();
  }
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
