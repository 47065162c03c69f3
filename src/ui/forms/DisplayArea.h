#pragma once

#include "QtDrawingSurface.h"

#include <functional>

#include <QWidget>

namespace strutwright {

/// The drawing area `Disp`: shows the picture that its surface keeps.
class DisplayArea : public QWidget {
 public:
  explicit DisplayArea(QWidget* parent);

  QtDrawingSurface& Surface() { return Drawing; }

  /// Called after the area has got another size; the surface is then empty.
  void SetResizeNotice(std::function<void()> listener) { ResizeListener = std::move(listener); }

  QSize sizeHint() const override { return {640, 400}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QtDrawingSurface Drawing;
  std::function<void()> ResizeListener;
};

} // namespace strutwright
