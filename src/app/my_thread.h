#pragma once

#include <QThread>
#include <string>
#include <vector>

namespace app {

/// Takes a snapshot of the file list, logs and tells the window that it has finished; it analyses
/// nothing. It then idles in its own event loop until the process ends.
class MyThread final : public QThread {
  Q_OBJECT

 public:
  int x = 0, y = 0;
  float fps = 0;
  float tolerance = 0;
  int premiere = 0;

 Q_SIGNALS:
  void finished2(QString message);

 protected:
  void run() override;

 private:
  std::vector<std::string> entries_;
};

}  // namespace app
