#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace strutwright {

/// While it lives, no input reaches the program but that for one widget, and a request to close a window is kept: it
/// is made again afterwards.
class InputBarrier : public QObject {
 public:
  explicit InputBarrier(const QWidget* exception);
  ~InputBarrier() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  const QWidget* Exception;
  QPointer<QWidget> CloseLater;
};

} // namespace strutwright
