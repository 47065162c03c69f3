#include "PixelPen.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <QRect>

namespace strutwright {

namespace {

constexpr double Edge = 0.5; // pixels by which a shape reaches out of itself: it covers something of those beside it

/// The first of so many pixels with its middle behind a place, or their number.
int FirstBehind(double place, int count) { return static_cast<int>(std::clamp(place + 0.5, 0.0, 1.0 * count)); }

/// The pixel after the last with its middle before a place.
int EndBefore(double place, int count) { return count - FirstBehind(count - place, count); }

/// The smallest rectangle with everything in it that is not transparent.
QRect InkOf(const QImage& picture) {
  QRect ink;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (qAlpha(picture.pixel(x, y)) != 0) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

} // namespace

Stamp::Stamp(const QImage& ink) {
  const QRect area = InkOf(ink);
  Left = area.left();
  Top = area.top();
  InkWidth = area.width();
  Width = (InkWidth + MinWidth - 1) / MinWidth * MinWidth;
  Height = area.height();
  for (int y = 0; y < Height; ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(ink.constScanLine(Top + y));
    for (int x = 0; x < Width; ++x) {
      const QRgb pixel = x < InkWidth ? row[Left + x] : 0;
      Ink.push_back(pixel);
      const auto through = static_cast<std::uint32_t>(255 - qAlpha(pixel));
      Transparency.push_back((through + (through >> 7)) * 0x10001U); // 255 becomes 256
    }
  }
  if (Width > Cover::RowLength) return;
  for (int y = 0; y < Height; ++y) {
    Seen.push_back(RowOf(y, [](QRgb pixel) { return qAlpha(pixel) > 0; }));
    Opaque.push_back(RowOf(y, [](QRgb pixel) { return qAlpha(pixel) == 255; }));
  }
}

/// The pixels of some kind in a row, as a Cover wants them.
std::uint64_t Stamp::RowOf(int y, bool (*isOne)(QRgb)) const {
  std::uint64_t bits = 0;
  for (int x = 0; x < Width; ++x) {
    if (isOne(Ink[static_cast<std::size_t>(y * Width + x)])) bits |= std::uint64_t{1} << x;
  }
  return bits;
}

bool Stamp::IsHidden(const Cover& above, int x, int y) const {
  return !Seen.empty() && above.Hides(Seen, x + Left, y + Top);
}

void Stamp::CopyTo(const Pixels& ground, int x, int y) const {
  x += Left;
  y += Top;
  if (x <= -Width || x >= ground.width) return;
  const int first = std::max(0, -y);
  const int last = std::min(Height, ground.height - y);
  if (first >= last) return;
  const std::size_t at = static_cast<std::size_t>(first) * static_cast<std::size_t>(Width);
  const StampRows rows{&Ink[at], &Transparency[at], Width, last - first};
  if (x >= 0 && x + Width <= ground.width) {
    ground.loops->copyRows(ground, x, y + first, rows);
  } else {
    CopyOverEdge(ground, x, y + first, rows);
  }
}

/// On a ground of its own, which goes back as far as it lies on the picture.
void Stamp::CopyOverEdge(const Pixels& ground, int x, int y, const StampRows& rows) {
  QImage part(rows.width, rows.count, QImage::Format_RGB32);
  part.fill(Qt::white);
  const Pixels own(part, *ground.loops);
  const int from = std::max(0, -x);
  const int count = std::min(rows.width, ground.width - x) - from;
  for (int row = 0; row < rows.count; ++row) std::copy_n(ground.Row(y + row) + (x + from), count, own.Row(row) + from);
  own.loops->copyRows(own, 0, 0, rows);
  for (int row = 0; row < rows.count; ++row) std::copy_n(own.Row(row) + from, count, ground.Row(y + row) + (x + from));
}

PixelPen::PixelPen(const Pixels& ground, QRgb colour, double width)
    : Ground(ground), Colour(colour | 0xFF000000U), HalfWidth(width / 2) {}

/// The pixels that something may touch that goes from its middle so far to either side and up and down.
Area PixelPen::AreaOf(const QPointF& middle, const QPointF& reach) const {
  return {.top = FirstBehind(middle.y() - reach.y(), Ground.height),
          .bottom = EndBefore(middle.y() + reach.y(), Ground.height),
          .left = FirstBehind(middle.x() - reach.x(), Ground.width),
          .right = EndBefore(middle.x() + reach.x(), Ground.width)};
}

void PixelPen::Line(const QLineF& line, double cap, bool dashed) {
  const double length = std::sqrt(line.dx() * line.dx() + line.dy() * line.dy());
  const QPointF along = length > 0 ? QPointF(line.dx(), line.dy()) / length : QPointF(1, 0);
  const double half = length / 2 + cap;
  const QPointF size(std::abs(along.x()), std::abs(along.y()));
  const Area area = AreaOf(line.center(), (half + Edge) * size + (HalfWidth + Edge) * QPointF(size.y(), size.x()));
  const Bar bar{Band(along, line.center(), half), Band(QPointF(-along.y(), along.x()), line.center(), HalfWidth)};
  if (!dashed) return Ground.loops->fillBar(Ground, Colour, area, bar);
  const bool level = size.x() >= size.y();
  const float a = level ? std::copysign(1.0F, bar.along.a) : 0.0F;
  const float b = level ? 0.0F : std::copysign(1.0F, bar.along.b);
  const double start = a * line.x1() + b * line.y1();
  Ground.loops->fillDashedBar(
      Ground, Colour, area, {bar, a, b, static_cast<float>(start + 4 * HalfWidth), static_cast<float>(2 * HalfWidth)});
}

void PixelPen::SolidLine(const QLineF& line) { Line(line, HalfWidth, false); }

void PixelPen::DashedLine(const QLineF& line) { Line(line, 0, true); }

void PixelPen::Circle(const QPointF& centre, double radius) {
  const double reach = radius + HalfWidth + Edge;
  Ground.loops->fillRing(Ground, Colour, AreaOf(centre, QPointF(reach, reach)),
                         {static_cast<float>(centre.x()), static_cast<float>(centre.y()), static_cast<float>(radius),
                          static_cast<float>(HalfWidth)});
}

} // namespace strutwright
