#include "StrokeCanvas.h"

#include "PixelPen.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>
#include <variant>

#include <QPainter>

namespace strutwright {

namespace {

constexpr double SmallRadius = 64; // pixels; PixelPen looks at all of a circle's square
constexpr double Roundness = 0.01; // pixels by which the radii of a circle may differ

QLineF InDevicePixels(const QLineF& line, double ratio) { return {line.p1() * ratio, line.p2() * ratio}; }

double DeviceWidth(const PenLook& pen, double ratio) { return std::max(pen.width, 1) * ratio; }

/// Whether the PixelPen can draw a circle.
bool IsPlain(const CircleStroke& stroke) {
  const double radius = stroke.bounds.width() / 2;
  const bool round = std::abs(stroke.bounds.height() / 2 - radius) <= Roundness;
  return round && radius <= SmallRadius && !stroke.fill && !stroke.pen.dashed;
}

/// Draws straight onto the picture what can be drawn so; it says whether it could.
class DirectPainter {
 public:
  DirectPainter(LetterStamps& stamps, QImage& picture)
      : Stamps(stamps), Ratio(picture.devicePixelRatio()), Ground(picture) {}

  bool operator()(const LineStroke& stroke) const {
    PixelPen pen(Ground, stroke.pen.colour, DeviceWidth(stroke.pen, Ratio));
    const QLineF line = InDevicePixels(stroke.line, Ratio);
    if (stroke.pen.dashed) {
      pen.DashedLine(line);
    } else {
      pen.SolidLine(line);
    }
    return true;
  }

  bool operator()(const CircleStroke& stroke) const {
    if (!IsPlain(stroke)) return false;
    PixelPen(Ground, stroke.pen.colour, DeviceWidth(stroke.pen, Ratio))
        .Circle(stroke.bounds.center() * Ratio, stroke.bounds.width() / 2 * Ratio);
    return true;
  }

  bool operator()(const BoxStroke& /*stroke*/) const { return false; }

  bool operator()(const TextStroke& stroke) const { return Stamps.Print(Ground, stroke, Ratio); }

 private:
  LetterStamps& Stamps;
  double Ratio;
  Pixels Ground;
};

} // namespace

void StrokeCanvas::Resize(const QSize& size, double ratio) {
  QImage image(qRound(size.width() * ratio), qRound(size.height() * ratio), QImage::Format_RGB32);
  if (image.isNull()) throw std::runtime_error("There is no memory for the picture");
  image.setDevicePixelRatio(ratio);
  Image = std::move(image);
  Clear();
}

void StrokeCanvas::Clear() { Image.fill(Qt::white); }

void StrokeCanvas::Paint(std::span<const Stroke> strokes) {
  if (strokes.empty()) return;
  const DirectPainter direct(Stamps, Image);
  for (const Stroke& stroke : strokes) {
    if (Image.width() >= LeastWidth && std::visit(direct, stroke)) continue;
    QPainter painter(&Image); // not kept: what is drawn directly goes past it
    painter.setRenderHint(QPainter::Antialiasing);
    PaintStroke(painter, stroke);
  }
}

/// Not antialiased: half a pixel inverted twice would not be what it was.
void StrokeCanvas::Invert(const Stroke& stroke) {
  QPainter painter(&Image);
  painter.setCompositionMode(QPainter::RasterOp_NotDestination);
  PaintStroke(painter, stroke);
}

} // namespace strutwright
