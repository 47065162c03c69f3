#pragma once

#include "QtDrawingSurface.h"
#include "SketchPlacement.h"

#include <functional>
#include <vector>

#include <QWidget>

class QKeyEvent;

namespace strutwright {

/// What the user does over a sheet of figures.  Places are in the units of its first figure, y upwards.
struct PictureNotices {
  std::function<void(int point)> clicked;                              ///< index of a point of the first figure
  std::function<void(const SketchStroke& stroke, double reach)> drawn; ///< a line was dragged across it
  std::function<void(int key)> pointed;                                ///< at a line of any figure; 0 at none
  std::function<bool(const QKeyEvent& event)> keyPressed;              ///< true where it was for the page
};

/// Shows a sheet of figures, which fills the widget.  It is drawn when it comes on screen: of several changes in a row
/// only the last one is.
class PictureArea : public QWidget {
 public:
  PictureArea(PictureNotices notices, QWidget* parent);

  /// Shows a sheet from now on.  takesStrokes: a drag draws a line across its first figure.
  void ShowSheet(SketchSheet sheet, bool takesStrokes);

  /// Lights up the lines with a key; none for 0.
  void Light(int key);

  const SketchSheet& Sheet() const { return Shown; }
  int Lit() const { return LitKey; }

  /// The picture as it is on screen, to be saved.
  DrawingSurface& Drawn();

  /// Puts the picture on the clipboard.
  void Copy();

  QSize sizeHint() const override { return {580, 520}; }

  /// Where a place of one of the figures lies on the widget.
  QPointF PixelOf(int figure, double x, double y);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BringUpToDate();
  void EndStroke(const QPointF& place);

  PictureNotices Notices;
  SketchSheet Shown;
  std::vector<PlacedSketch> Placed;
  QtDrawingSurface Surface;
  QPointF Begin; ///< of a press or a stroke
  QPointF End;
  int LitKey = 0;
  bool TakesStrokes = false;
  bool IsPressed = false;
  bool IsPlaced = false;
  bool IsDrawn = false;
};

} // namespace strutwright
