#include "app/pump.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <atomic>
#include <thread>

namespace app {

void whilePumping(const std::function<void()>& work, const std::function<void()>& interrupted) {
  if (!QCoreApplication::instance()) return work();
  QEventLoop loop;
  std::atomic<bool> ended = false;
  std::thread helper([&] {
    work();
    ended = true;
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec();
  if (!ended) interrupted();  // the loop also ends when the program is told to quit
  helper.join();
  QCoreApplication::sendPostedEvents();  // what the work still had to say comes before its result
}

}  // namespace app
