#include <gtest/gtest.h>

#include <QFile>
#include <QMetaMethod>
#include <QQuickItem>
#include <QTemporaryDir>
#include <QTest>
#include <thread>

#include "app/qml_application_viewer.h"
#include "app/qml_file.h"
#include "app/start_up.h"

namespace {

/// A window on a document that has the named objects `names`, each an ordinary item with a text.
class Window {
 public:
  explicit Window(const QStringList& names) {
    QString text = "import QtQuick\nItem { width: 700; height: 100\n";
    for (const QString& name : names) {
      text += QString("Text { objectName: \"%1\"; opacity: 0.5; scale: 0 }\n").arg(name);
    }
    QFile file(folder_.filePath("main.qml"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write((text + "}").toUtf8());
    file.close();
    viewer.setSource(QUrl::fromLocalFile(file.fileName()));
  }

  QVariant get(const char* name, const char* property) {
    const QObject* object = viewer.rootObject()->findChild<QObject*>(name);
    return object ? object->property(property) : QVariant();
  }

  app::QmlApplicationViewer viewer;

 private:
  QTemporaryDir folder_;
};

const QStringList kAllNames = {"progressbar", "progresbar", "ima1", "text3",
                               "newexit",     "done",       "ma3"};

void expectFinished(Window& window) {
  EXPECT_EQ(window.get("progressbar", "opacity"), 0.0);
  EXPECT_EQ(window.get("text3", "scale"), 1.0);
  EXPECT_EQ(window.get("text3", "text"), "Done!");
  EXPECT_EQ(window.get("newexit", "opacity"), 1.0);
  EXPECT_EQ(window.get("ma3", "opacity"), 0.5) << "looked up, not changed";
}

TEST(Window, BothEndsOfARunShowTheFinishedState) {
  for (const bool byStopbar : {false, true}) {
    Window window(kAllNames);
    for (int again = 0; again < 2; ++again) {
      byStopbar ? window.viewer.stopbar("") : window.viewer.done();
      expectFinished(window);
      EXPECT_EQ(window.get("ima1", "opacity"), 1.0);
      EXPECT_EQ(window.get("done", "opacity"), 1.0);
    }
  }
}

TEST(Window, MissingObjectsAreSkipped) {
  Window window({"progressbar", "text3", "newexit", "ma3"});
  window.viewer.done();
  expectFinished(window);
  Window empty({});
  empty.viewer.done();
  empty.viewer.stopbar("message");
  app::QmlApplicationViewer withoutDocument;
  withoutDocument.done();
}

TEST(Window, ProgressIsTheBarsWidth) {
  Window window(kAllNames);
  for (const int pixels : {651, 0}) {
    window.viewer.makeprogress(pixels);
    EXPECT_EQ(window.get("progresbar", "width"), pixels);
    EXPECT_EQ(window.get("progresbar", "opacity"), 1.0);
    EXPECT_EQ(window.get("progressbar", "opacity"), 1.0);
  }
}

TEST(Window, ProgressFromOtherThreadsArrivesQueuedAndInOrder) {
  Window window(kAllNames);
  app::QMLFile bridge;
  app::connectAll(bridge, window.viewer, *qGuiApp);
  std::thread([&bridge] {
    for (const int pixels : {100, 200, 300}) bridge.moveprogressslot(pixels);
  }).join();
  EXPECT_NE(window.get("progresbar", "width"), 300);
  // every step handles the pending ones first; the last one must still win
  QCoreApplication::processEvents();
  EXPECT_EQ(window.get("progresbar", "width"), 300);
}

TEST(Window, ThePumpRunsBeforeTheBarMoves) {
  Window window(kAllNames);
  QVariant widthSeen;
  QMetaObject::invokeMethod(
      &window.viewer, [&] { widthSeen = window.get("progresbar", "width"); }, Qt::QueuedConnection);
  window.viewer.makeprogress(400);
  EXPECT_TRUE(widthSeen.isValid());
  EXPECT_NE(widthSeen, 400);
}

TEST(Bridge, MethodsKeepTheirIndices) {
  const char* const signatures[] = {"send2gui(QString)",
                                    "send2gui2()",
                                    "moveprogressignal(int)",
                                    "doneit()",
                                    "kazidekazavrsi(QString)",
                                    "skonciapp()",
                                    "moveprogressslot(int)",
                                    "getFilesSelected()",
                                    "getFilesSelected2()",
                                    "start_sync(float,int,int,float,int)",
                                    "clearall()",
                                    "synco(vector<std::string>,double,int,int,float,int)",
                                    "proveriall(int,VectorXf,MatrixXLI*,vector<vector<int>>)",
                                    "start_sync2(float,int,int,float,int)",
                                    "resemplirajgi8000(vector<std::string>)"};
  const QMetaObject& bridge = app::QMLFile::staticMetaObject;
  int index = bridge.methodOffset();
  for (const char* signature : signatures) {
    EXPECT_STREQ(bridge.method(index++).methodSignature().constData(), signature);
  }
  const QMetaObject& viewer = app::QmlApplicationViewer::staticMetaObject;
  index = viewer.methodOffset();
  for (const char* signature : {"stopbar(QString)", "makeprogress(int)", "done()"}) {
    EXPECT_STREQ(viewer.method(index++).methodSignature().constData(), signature);
  }
}

TEST(Bridge, SlotsBecomeSignals) {
  app::QMLFile bridge;
  QStringList heard;
  QObject::connect(&bridge, &app::QMLFile::send2gui, [&](const QString& text) { heard << text; });
  QObject::connect(&bridge, &app::QMLFile::send2gui2, [&] { heard << "quit"; });
  QObject::connect(&bridge, &app::QMLFile::moveprogressignal,
                   [&](int pixels) { heard << QString::number(pixels); });
  bridge.kazidekazavrsi("text");
  bridge.skonciapp();
  bridge.moveprogressslot(0);
  EXPECT_EQ(heard, QStringList({"text", "quit", "0"}));
}

TEST(Bridge, TheOtherStartEndsInTheFinishedState) {
  Window window(kAllNames);
  app::QMLFile bridge;
  app::connectAll(bridge, window.viewer, *qGuiApp);
  bridge.start_sync(0.99f, 1920, 1080, 25, 1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.get("done", "opacity") == 1.0; }));
}

}  // namespace
