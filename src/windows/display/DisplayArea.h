#pragma once

#include "QtDrawingSurface.h"
#include "modMouseEvents.h"
#include "modPointing.h"
#include "modViewTransform.h"

#include <QPoint>
#include <QWidget>

class QKeyEvent;
class QPainter;

namespace strutwright {

/// What happens to the drawing area.  Each routine runs inside the guard.
class DisplayListener {
 public:
  virtual ~DisplayListener() = default;

  /// The area has got another size; its surface is empty.
  virtual void Resized() = 0;
  virtual void MouseMoved(const MouseEvent& event) = 0;
  virtual void MousePressed(const MouseEvent& event) = 0;
  virtual void MouseDoubleClicked(const MouseEvent& /*event*/) {}
  virtual void MouseReleased(const MouseEvent& event) = 0;
  virtual void MouseLeft() = 0;

  /// steps: away from the user positive.
  virtual void WheelTurned(const MouseEvent& event, double steps) = 0;

  virtual void ViewKeyPressed(ViewMove move) = 0;

  /// The mouse rests; globalPlace: where a tip belongs.
  virtual void MouseRested(const MouseEvent& /*event*/, const QPoint& /*globalPlace*/) {}

  /// The keys that go to the next node or member, or to the one before.
  virtual void WalkKeyPressed(ElementKind /*kind*/, bool /*forward*/) {}

  /// The key that opens what was walked to.
  virtual void OpenKeyPressed() {}

  /// The keyboard has gone to another control of the window.
  virtual void FocusLost() {}

  /// Paints what lies over the drawing and is no part of it.
  virtual void PaintOver(QPainter& /*painter*/) {}

  /// A key that an editing mode may want before anything else gets it; returns whether it did.
  virtual bool ToolKeyPressed(const QKeyEvent& /*key*/) { return false; }
};

/// The drawing area `Disp`: shows the picture that its surface keeps, and reports where the mouse is on it and which
/// keys move the view or walk through the truss.  While it has the keyboard it has a frame.
class DisplayArea : public QWidget {
 public:
  DisplayArea(DisplayListener& listener, QWidget* parent);

  QtDrawingSurface& Surface() { return Drawing; }

  QSize sizeHint() const override { return {640, 400}; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  MouseEvent At(const QPointF& pixel, Qt::MouseButton button, Qt::MouseButtons held) const;

  DisplayListener& Listener;
  QtDrawingSurface Drawing;
};

} // namespace strutwright
