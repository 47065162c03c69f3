#pragma once

#include "QtDrawingSurface.h"
#include "modPlotDrawing.h"

#include <QWidget>

namespace strutwright {

/// A plot that fills the widget.
class PlotArea : public QWidget {
 public:
  explicit PlotArea(QWidget* parent);

  void ShowPlot(Plot plot);

  /// Saves it under this name: PNG or SVG by the ending, otherwise a bitmap.  Throws FileError.
  void Save(const std::string& path);

  QSize sizeHint() const override { return {560, 320}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Draw();

  Plot Shown;
  QtDrawingSurface Surface;
};

} // namespace strutwright
