#include "StrokeCanvas.h"

#include "MarkPainter.h"

#include <stdexcept>
#include <utility>

#include <QPainter>

namespace strutwright {

StrokeCanvas::StrokeCanvas() : Painter(std::make_unique<MarkPainter>()) {}

StrokeCanvas::~StrokeCanvas() = default;

void StrokeCanvas::Resize(const QSize& size, double ratio) {
  QImage image(qRound(size.width() * ratio), qRound(size.height() * ratio), QImage::Format_RGB32);
  if (image.isNull()) throw std::runtime_error("There is no memory for the picture");
  image.setDevicePixelRatio(ratio);
  Image = std::move(image);
  Clear();
}

void StrokeCanvas::Clear() { Image.fill(Qt::white); }

void StrokeCanvas::Paint(std::span<const Stroke> strokes) {
  if (!strokes.empty()) Painter->Paint(strokes, Image);
}

/// Not antialiased: half a pixel inverted twice would not be what it was.
void StrokeCanvas::Invert(const Stroke& stroke) {
  QPainter painter(&Image);
  painter.setCompositionMode(QPainter::RasterOp_NotDestination);
  PaintStroke(painter, stroke);
}

double StrokeCanvas::WidthOf(const std::string& text, int size) const { return Painter->WidthOf(text, size); }

} // namespace strutwright
