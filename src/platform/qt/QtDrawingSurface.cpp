#include "QtDrawingSurface.h"

#include "PictureFile.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <span>
#include <utility>

#include <QLineF>
#include <QRectF>
#include <QString>

namespace strutwright {

namespace {

constexpr double ClipMargin = 16;    // pixels, more than any pen is wide
constexpr double LargeRadius = 4096; // pixels
constexpr int LargeCircleSides = 720;

QRgb QtColour(Colour colour) { return qRgb(colour.red, colour.green, colour.blue); }

bool IsPlace(const QPointF& point) { return std::isfinite(point.x()) && std::isfinite(point.y()); }

bool IsInside(const QPointF& point, const QRectF& area) {
  return point.x() >= area.left() && point.x() <= area.right() && point.y() >= area.top() && point.y() <= area.bottom();
}

/// Whether a line lies beyond one of a rectangle's sides.
bool IsBeyond(const QPointF& start, const QPointF& end, const QRectF& area) {
  return std::max(start.x(), end.x()) < area.left() || std::min(start.x(), end.x()) > area.right() ||
         std::max(start.y(), end.y()) < area.top() || std::min(start.y(), end.y()) > area.bottom();
}

/// Where a rectangle cuts a line: the fraction of the line before it, and the coordinate of the edge that cuts.
struct Cut {
  double at;
  std::optional<double> x = {};
  std::optional<double> y = {};
};

/// Narrows from..to of a line that runs from `start` by `step` in one coordinate to what lies in low..high.
bool NarrowCut(double start, double step, double low, double high, std::optional<double> Cut::*coordinate, Cut& from,
               Cut& to) {
  if (step == 0) return start >= low && start <= high;
  if (step < 0) std::swap(low, high);
  Cut entry{(low - start) / step};
  Cut leave{(high - start) / step};
  entry.*coordinate = low;
  leave.*coordinate = high;
  if (entry.at > from.at) from = entry;
  if (leave.at < to.at) to = leave;
  return from.at <= to.at;
}

/// The part of a line inside a rectangle (Liang and Barsky).  Where its ends lie far out, a sum loses more than the
/// rectangle is wide; so the edge itself counts where it cuts.
std::optional<QLineF> Clipped(const QPointF& start, const QPointF& end, const QRectF& area) {
  if (IsInside(start, area) && IsInside(end, area)) return QLineF(start, end);
  if (IsBeyond(start, end, area)) return std::nullopt;
  const QPointF step = end - start;
  if (!IsPlace(start) || !IsPlace(step)) return std::nullopt;
  Cut from{0};
  Cut to{1};
  if (!NarrowCut(start.x(), step.x(), area.left(), area.right(), &Cut::x, from, to)) return std::nullopt;
  if (!NarrowCut(start.y(), step.y(), area.top(), area.bottom(), &Cut::y, from, to)) return std::nullopt;
  const auto place = [&](const Cut& cut) {
    return QPointF(std::clamp(cut.x.value_or(start.x() + cut.at * step.x()), area.left(), area.right()),
                   std::clamp(cut.y.value_or(start.y() + cut.at * step.y()), area.top(), area.bottom()));
  };
  return QLineF(place(from), place(to));
}

QRectF ClipArea(const QSize& size) {
  return QRectF(QPointF(0, 0), QSizeF(size)).adjusted(-ClipMargin, -ClipMargin, ClipMargin, ClipMargin);
}

} // namespace

QtDrawingSurface::QtDrawingSurface(int width, int height, double ratio) { Resize(width, height, ratio); }

void QtDrawingSurface::Resize(int width, int height, double ratio) {
  const QSize size(std::max(width, 1), std::max(height, 1));
  Canvas.Resize(size, ratio);
  Ratio = ratio;
  const QSize old = std::exchange(Size, size);
  QtDrawingSurface::Clear();
  if (old.isEmpty()) return QtDrawingSurface::SetWindow(View);
  const double newWidth = static_cast<double>(View.width) * Size.width() / old.width();
  const double newHeight = static_cast<double>(View.height) * Size.height() / old.height();
  QtDrawingSurface::SetWindow({static_cast<float>(View.left + (View.width - newWidth) / 2),
                               static_cast<float>(View.top + (View.height - newHeight) / 2),
                               static_cast<float>(newWidth), static_cast<float>(newHeight)});
}

void QtDrawingSurface::SetWindow(const ViewWindow& window) {
  View = window;
  ScaleX = Size.width() / static_cast<double>(View.width);
  ScaleY = Size.height() / static_cast<double>(View.height);
}

QPointF QtDrawingSurface::ToPixel(double x, double y) const {
  return {(x - View.left) * ScaleX, (y - View.top) * ScaleY};
}

QPointF QtDrawingSurface::ToSurface(const QPointF& pixel) const {
  return {View.left + pixel.x() / ScaleX, View.top + pixel.y() / ScaleY};
}

const QImage& QtDrawingSurface::Image() const {
  CatchUp();
  return Canvas.Picture();
}

void QtDrawingSurface::Clear() {
  Strokes.clear();
  Painted = 0;
  Canvas.Clear();
}

void QtDrawingSurface::SetPenColour(Colour colour) { Pen.colour = QtColour(colour); }

void QtDrawingSurface::SetFillColour(Colour colour) { FillColour = QtColour(colour); }

void QtDrawingSurface::SetTextColour(Colour colour) { TextColour = QtColour(colour); }

void QtDrawingSurface::MoveTo(double x, double y) {
  X = x;
  Y = y;
}

template <typename Kind>
void QtDrawingSurface::Paint(Kind&& stroke) {
  if (Mode == PenMode::Copy) {
    Strokes.emplace_back(std::forward<Kind>(stroke));
  } else {
    CatchUp();
    Canvas.Invert(std::forward<Kind>(stroke));
  }
}

void QtDrawingSurface::CatchUp() const {
  Canvas.Paint(std::span(Strokes).subspan(Painted));
  Painted = Strokes.size();
}

/// Where an upright or level line must lie to fill whole device pixels.
double QtDrawingSurface::Sharp(double pixel, double width) const {
  const bool odd = std::lround(width * Ratio) % 2 != 0;
  return (odd ? std::floor(pixel * Ratio) + 0.5 : std::round(pixel * Ratio)) / Ratio;
}

void QtDrawingSurface::DrawPixelLine(QPointF from, QPointF to, const PenLook& pen) {
  const std::optional<QLineF> part = Clipped(from, to, ClipArea(Size));
  if (!part) return;
  QPointF start = part->p1();
  QPointF end = part->p2();
  if (from.x() == to.x()) start.rx() = end.rx() = Sharp(start.x(), pen.width);
  if (from.y() == to.y()) start.ry() = end.ry() = Sharp(start.y(), pen.width);
  Paint(LineStroke{{start, end}, pen});
}

void QtDrawingSurface::DrawLine(double x1, double y1, double x2, double y2) {
  DrawPixelLine(ToPixel(x1, y1), ToPixel(x2, y2));
  MoveTo(x2, y2);
}

void QtDrawingSurface::DrawBox(double x1, double y1, double x2, double y2) {
  const QPointF first = ToPixel(x1, y1);
  const QPointF last = ToPixel(x2, y2);
  if (Fill == FillStyle::Solid && IsPlace(first) && IsPlace(last)) {
    Paint(BoxStroke{QRectF(first, last).normalized() & ClipArea(Size), FillColour});
  }
  DrawPixelLine(first, {last.x(), first.y()});
  DrawPixelLine({last.x(), first.y()}, last);
  DrawPixelLine(last, {first.x(), last.y()});
  DrawPixelLine({first.x(), last.y()}, first);
}

void QtDrawingSurface::DrawCircle(double x, double y, double radius) {
  MoveTo(x, y);
  const QPointF centre = ToPixel(x, y);
  const double radiusX = std::abs(radius * ScaleX); // a window may be turned over
  const double radiusY = std::abs(radius * ScaleY);
  if (!IsPlace(centre) || !std::isfinite(radiusX) || !std::isfinite(radiusY)) return;
  const QRectF bounds(centre.x() - radiusX, centre.y() - radiusY, 2 * radiusX, 2 * radiusY);
  if (!bounds.intersects(ClipArea(Size))) return;
  if (std::max(radiusX, radiusY) > LargeRadius) return DrawLargeCircle(centre, radiusX, radiusY);
  Paint(CircleStroke{bounds, Pen, Fill == FillStyle::Solid ? std::optional(FillColour) : std::nullopt});
}

/// Side by side, so that only those in sight are painted; a circle of this size is never filled.
void QtDrawingSurface::DrawLargeCircle(const QPointF& centre, double radiusX, double radiusY) {
  const auto at = [&](int side) {
    const double angle = 2 * std::numbers::pi * side / LargeCircleSides;
    return centre + QPointF(radiusX * std::cos(angle), radiusY * std::sin(angle));
  };
  for (int side = 0; side < LargeCircleSides; ++side) DrawPixelLine(at(side), at(side + 1));
}

void QtDrawingSurface::DrawText(const std::string& text) {
  const QPointF corner = ToPixel(X, Y);
  // Texts are short: one that starts farther out than the picture is wide can't reach into it.
  if (!IsPlace(corner) || corner.x() < -Size.width() || corner.x() > Size.width()) return;
  if (corner.y() < -Size.height() || corner.y() > Size.height()) return;
  Paint(TextStroke{corner, text, TextColour, TextAttribute});
}

void QtDrawingSurface::SavePicture(const std::string& path) { WritePicture(path, Image(), Size, Strokes); }

double QtDrawingSurface::TextWidth(const std::string& text, int size) const { return Canvas.WidthOf(text, size); }

void QtDrawingSurface::PixelLine(PixelPoint from, PixelPoint to, const LineLook& look) {
  DrawPixelLine({from.x, from.y}, {to.x, to.y}, {QtColour(look.colour), look.width, look.dashed});
}

void QtDrawingSurface::PixelPolygon(std::span<const PixelPoint> corners, Colour fill) {
  QPolygonF polygon;
  for (const PixelPoint& corner : corners) polygon << QPointF(corner.x, corner.y);
  if (polygon.boundingRect().intersects(ClipArea(Size))) Paint(PolygonStroke{polygon, QtColour(fill)});
}

void QtDrawingSurface::PixelDot(PixelPoint centre, double radius, const LineLook& edge, Colour fill) {
  const QPointF place(centre.x, centre.y);
  if (!IsPlace(place) || !IsInside(place, ClipArea(Size))) return;
  Paint(DotStroke{place, radius, {QtColour(edge.colour), edge.width}, QtColour(fill)});
}

void QtDrawingSurface::PixelText(const PixelLabel& label) {
  const QPointF place(label.centre.x, label.centre.y);
  // Texts are short: what lies farther out than the picture is wide can't reach into it.
  const QRectF reach =
      QRectF(QPointF(0, 0), QSizeF(Size)).adjusted(-Size.width(), -Size.height(), Size.width(), Size.height());
  if (!IsPlace(place) || !reach.contains(place)) return;
  Paint(LabelStroke{place,
                    {label.along.x, label.along.y},
                    label.text,
                    QtColour(label.colour),
                    label.size,
                    {2 * label.box.x, 2 * label.box.y},
                    QtColour(label.frame)});
}

} // namespace strutwright
