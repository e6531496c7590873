#pragma once

#include <QQuickView>
#include <QString>
#include <memory>

namespace app {

/// The main window: shows the QML document and drives its named objects while a run goes on and
/// when it ends. All slots run in the GUI thread.
class QmlApplicationViewer final : public QQuickView {
  Q_OBJECT

 public:
  explicit QmlApplicationViewer(QWindow* parent = nullptr);
  ~QmlApplicationViewer() override;

 public Q_SLOTS:
  /// Shows the finished state; the message itself is not shown.
  void stopbar(QString msg);
  /// Handles pending events, then makes the bar `msg` pixels wide.
  void makeprogress(int msg);
  /// Shows the finished state.
  void done();

 private:
  /// Sets a property of the document's object `name`; one that is missing is skipped. Returns
  /// whether the object was found.
  bool set(const char* name, const char* property, const QVariant& value);
  QObject* named(const char* name) const;
  void showDoneCaption();

  std::unique_ptr<QString> text_;
  unsigned progressCalls_ = 0;
};

}  // namespace app
