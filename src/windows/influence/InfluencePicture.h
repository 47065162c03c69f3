#pragma once

#include "QtDrawingSurface.h"
#include "modClearDrawing.h"
#include "modInfluenceDrawing.h"

#include <functional>

#include <QWidget>

namespace strutwright {

/// What the user does over the picture of an influence line.  Places are world points in m, y upwards.
struct InfluencePictureNotices {
  std::function<void(double x)> pointed;
  std::function<void()> left;
  std::function<void(double x, double y, double reach)> clicked; ///< reach: how near counts as on it, m
  std::function<void(int direction)> stepped;                    ///< by an arrow key: -1 to the left, 1 to the right
};

/// The truss with an influence line below it, which fills the widget.  It is drawn when it comes on screen: of several
/// changes in a row only the last one is.
class InfluencePicture : public QWidget {
 public:
  InfluencePicture(InfluencePictureNotices notices, QWidget* parent);

  /// Shows a line from now on; one without nodes leaves the truss alone.
  void ShowShape(InfluenceShape shape);

  QSize sizeHint() const override { return {640, 460}; }

  /// Where a world point lies on the widget.
  QPointF PixelOf(double x, double y) const { return Surface.ToPixel(x, -y); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Draw();

  InfluencePictureNotices Notices;
  InfluenceShape Shape;
  QtDrawingSurface Surface;
  ClearMemory Memory; ///< of the truss as it was drawn last
  bool IsDrawn = false;
};

} // namespace strutwright
