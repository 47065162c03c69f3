#include "PlotArea.h"

#include "EventGuard.h"

#include <utility>

#include <QPainter>

namespace strutwright {

namespace {

constexpr QSize MinPlot{300, 200};

} // namespace

PlotArea::PlotArea(QWidget* parent) : QWidget(parent), Surface(width(), height(), devicePixelRatioF()) {
  setObjectName("plotArea");
  setAccessibleName("Plot of the result");
  setToolTip("The result over the range of the slider; the dot shows where the slider stands");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(MinPlot);
}

void PlotArea::ShowPlot(Plot plot) {
  Shown = std::move(plot);
  update();
}

void PlotArea::Draw() {
  Surface.Resize(width(), height(), devicePixelRatioF());
  Surface.Clear();
  DrawPlot(Surface, Shown);
}

void PlotArea::Save(const std::string& path) {
  Draw();
  Surface.SavePicture(path);
}

void PlotArea::paintEvent(QPaintEvent* /*event*/) {
  Guard([this] { Draw(); });
  QPainter(this).drawImage(QPoint(0, 0), Surface.Image());
}

} // namespace strutwright
