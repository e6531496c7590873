#pragma once

#include <Eigen/Core>
#include <QObject>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "analysis/matrix.h"

namespace app {

using analysis::MatrixXLI;
using Eigen::VectorXf;
using std::vector;

/// The bridge through which the document drives the program. It translates and hands over, and
/// decides nothing. Lives in the GUI thread; the order of its methods fixes their indices.
class QMLFile final : public QObject {
  Q_OBJECT

 public:
  explicit QMLFile(QObject* parent = nullptr);

 Q_SIGNALS:
  void send2gui(QString);
  void send2gui2();
  void moveprogressignal(int value);
  void doneit();

 public Q_SLOTS:
  void kazidekazavrsi(QString message);  // "say that it has finished"
  void skonciapp();                      // "end the application"
  /// Passes the bar's width in pixels on to the window. Callable from any thread.
  void moveprogressslot(int value);

 public:
  Q_INVOKABLE QStringList getFilesSelected();
  Q_INVOKABLE QStringList getFilesSelected2();
  Q_INVOKABLE void start_sync(float tolerance, int x, int y, float fps, int premiere);
  Q_INVOKABLE void clearall();
  Q_INVOKABLE vector<std::string> synco(vector<std::string> videofiles, double a_d, int resx,
                                        int resy, float frps, int prem);
  /// "Check all": the comparison of every file with every other. The caller owns the result.
  Q_INVOKABLE vector<unsigned long long>* proveriall(int nall, VectorXf traenje, MatrixXLI* all,
                                                     vector<vector<int>> device_groups);
  /// A whole run on the file list, in the calling GUI thread, then the report. Does nothing while
  /// another run goes on.
  Q_INVOKABLE void start_sync2(float tolerance, int x, int y, float fps, int premiere);
  /// "Resample them to 8000".
  Q_INVOKABLE vector<std::string> resemplirajgi8000(vector<std::string> videofiles);
};

}  // namespace app
