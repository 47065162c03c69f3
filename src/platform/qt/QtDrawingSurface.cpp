#include "QtDrawingSurface.h"

#include "PictureFile.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <stdexcept>
#include <utility>

#include <QFont>
#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QString>

namespace strutwright {

namespace {

constexpr int TextSize = 13;         // pixels
constexpr double HaloWidth = 3;      // pixels, half of it on either side of a letter's edge
constexpr double ClipMargin = 16;    // pixels, more than any pen is wide
constexpr double LargeRadius = 4096; // pixels
constexpr int LargeCircleSides = 720;

QColor QtColour(Colour colour) { return {colour.red, colour.green, colour.blue}; }

bool IsPlace(const QPointF& point) { return std::isfinite(point.x()) && std::isfinite(point.y()); }

/// Narrows from..to, fractions of a line that runs from `start` by `step` in one coordinate, to low..high.
bool Narrow(double start, double step, double low, double high, double& from, double& to) {
  if (step == 0) return start >= low && start <= high;
  const double first = (low - start) / step;
  const double second = (high - start) / step;
  from = std::max(from, std::min(first, second));
  to = std::min(to, std::max(first, second));
  return from <= to;
}

/// The part of a line inside a rectangle (Liang and Barsky).
std::optional<QLineF> Clipped(const QPointF& start, const QPointF& end, const QRectF& area) {
  const QPointF step = end - start;
  if (!IsPlace(start) || !IsPlace(step)) return std::nullopt;
  double from = 0;
  double to = 1;
  if (!Narrow(start.x(), step.x(), area.left(), area.right(), from, to)) return std::nullopt;
  if (!Narrow(start.y(), step.y(), area.top(), area.bottom(), from, to)) return std::nullopt;
  return QLineF(start + from * step, start + to * step);
}

QRectF ClipArea(const QSize& size) {
  return QRectF(QPointF(0, 0), QSizeF(size)).adjusted(-ClipMargin, -ClipMargin, ClipMargin, ClipMargin);
}

QFont TextFont() {
  QFont font;
  font.setPixelSize(TextSize);
  return font;
}

/// Letters over a thin halo, or over a white box.
void PaintText(QPainter& painter, const QPointF& corner, const QString& text, const QColor& colour, bool halo) {
  const QFont font = TextFont();
  const QFontMetricsF metrics(font);
  const QPointF baseline = corner + QPointF(0, metrics.ascent());
  if (halo) {
    QPainterPath letters;
    letters.addText(baseline, font, text);
    painter.strokePath(letters, QPen(Qt::white, HaloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  } else {
    painter.fillRect(QRectF(corner, QSizeF(metrics.horizontalAdvance(text), metrics.height())), Qt::white);
  }
  painter.setFont(font);
  painter.setPen(colour);
  painter.drawText(baseline, text);
}

} // namespace

QtDrawingSurface::QtDrawingSurface(int width, int height, double ratio) { Resize(width, height, ratio); }

void QtDrawingSurface::Resize(int width, int height, double ratio) {
  const QSize old = std::exchange(Size, QSize(std::max(width, 1), std::max(height, 1)));
  Ratio = ratio;
  const QSize device(qRound(Size.width() * ratio), qRound(Size.height() * ratio));
  Picture = QImage(device, QImage::Format_RGB32);
  if (Picture.isNull()) throw std::runtime_error("There is no memory for the picture");
  Picture.setDevicePixelRatio(ratio);
  QtDrawingSurface::Clear();
  if (old.isEmpty()) return;
  const double newWidth = static_cast<double>(View.width) * Size.width() / old.width();
  const double newHeight = static_cast<double>(View.height) * Size.height() / old.height();
  View.left = static_cast<float>(View.left + (View.width - newWidth) / 2);
  View.top = static_cast<float>(View.top + (View.height - newHeight) / 2);
  View.width = static_cast<float>(newWidth);
  View.height = static_cast<float>(newHeight);
}

QPointF QtDrawingSurface::ToPixel(double x, double y) const {
  return {(x - View.left) / View.width * Size.width(), (y - View.top) / View.height * Size.height()};
}

QPointF QtDrawingSurface::ToSurface(const QPointF& pixel) const {
  return {View.left + pixel.x() / Size.width() * View.width, View.top + pixel.y() / Size.height() * View.height};
}

void QtDrawingSurface::Clear() {
  Strokes.clear();
  Picture.fill(Qt::white);
}

void QtDrawingSurface::SetPenColour(Colour colour) { PenColour = QtColour(colour); }

void QtDrawingSurface::SetFillColour(Colour colour) { FillColour = QtColour(colour); }

void QtDrawingSurface::SetTextColour(Colour colour) { TextColour = QtColour(colour); }

void QtDrawingSurface::MoveTo(double x, double y) {
  X = x;
  Y = y;
}

/// What inverts is not antialiased, because half a pixel inverted twice would not be what it was.
void QtDrawingSurface::Paint(Stroke stroke) {
  QPainter painter(&Picture);
  if (Mode == PenMode::Invert) {
    painter.setCompositionMode(QPainter::RasterOp_NotDestination);
    stroke(painter);
    return;
  }
  painter.setRenderHint(QPainter::Antialiasing);
  stroke(painter);
  Strokes.push_back(std::move(stroke));
}

QPen QtDrawingSurface::Pen() const {
  QPen pen(PenColour, PenWidth, Style == LineStyle::Dashed ? Qt::DashLine : Qt::SolidLine);
  pen.setCapStyle(Style == LineStyle::Dashed ? Qt::FlatCap : Qt::RoundCap);
  return pen;
}

/// Where an upright or level line must lie to fill whole device pixels.
double QtDrawingSurface::Sharp(double pixel) const {
  const bool odd = std::lround(PenWidth * Ratio) % 2 != 0;
  return (odd ? std::floor(pixel * Ratio) + 0.5 : std::round(pixel * Ratio)) / Ratio;
}

void QtDrawingSurface::DrawPixelLine(QPointF from, QPointF to) {
  const std::optional<QLineF> part = Clipped(from, to, ClipArea(Size));
  if (!part) return;
  QLineF line = *part;
  if (from.x() == to.x()) line.setLine(Sharp(line.x1()), line.y1(), Sharp(line.x1()), line.y2());
  if (from.y() == to.y()) line.setLine(line.x1(), Sharp(line.y1()), line.x2(), Sharp(line.y1()));
  Paint([pen = Pen(), line](QPainter& painter) {
    painter.setPen(pen);
    painter.drawLine(line);
  });
}

void QtDrawingSurface::DrawLine(double x1, double y1, double x2, double y2) {
  DrawPixelLine(ToPixel(x1, y1), ToPixel(x2, y2));
  MoveTo(x2, y2);
}

void QtDrawingSurface::DrawBox(double x1, double y1, double x2, double y2) {
  const QPointF first = ToPixel(x1, y1);
  const QPointF last = ToPixel(x2, y2);
  if (Fill == FillStyle::Solid && IsPlace(first) && IsPlace(last)) {
    const QRectF inside = QRectF(first, last).normalized() & ClipArea(Size);
    Paint([inside, colour = FillColour](QPainter& painter) { painter.fillRect(inside, colour); });
  }
  DrawPixelLine(first, {last.x(), first.y()});
  DrawPixelLine({last.x(), first.y()}, last);
  DrawPixelLine(last, {first.x(), last.y()});
  DrawPixelLine({first.x(), last.y()}, first);
}

void QtDrawingSurface::DrawCircle(double x, double y, double radius) {
  MoveTo(x, y);
  const QPointF centre = ToPixel(x, y);
  const double radiusX = radius / View.width * Size.width();
  const double radiusY = radius / View.height * Size.height();
  if (!IsPlace(centre) || !std::isfinite(radiusX) || !std::isfinite(radiusY)) return;
  const QRectF bounds(centre.x() - radiusX, centre.y() - radiusY, 2 * radiusX, 2 * radiusY);
  if (!bounds.intersects(ClipArea(Size))) return;
  if (std::max(radiusX, radiusY) > LargeRadius) return DrawLargeCircle(centre, radiusX, radiusY);
  Paint([bounds, pen = Pen(), brush = Fill == FillStyle::Solid ? QBrush(FillColour) : QBrush()](QPainter& painter) {
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.drawEllipse(bounds);
  });
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
  const QString letters = QString::fromStdString(text);
  // Texts are short: one that starts farther out than the picture is wide can't reach into it.
  if (!IsPlace(corner) || corner.x() < -Size.width() || corner.x() > Size.width()) return;
  if (corner.y() < -Size.height() || corner.y() > Size.height()) return;
  Paint([corner, letters, colour = TextColour, halo = TextAttribute](QPainter& painter) {
    PaintText(painter, corner, letters, colour, halo);
  });
}

void QtDrawingSurface::SavePicture(const std::string& path) {
  WritePicture(path, Picture, Size, [this](QPainter& painter) {
    for (const Stroke& stroke : Strokes) {
      painter.save();
      stroke(painter);
      painter.restore();
    }
  });
}

} // namespace strutwright
