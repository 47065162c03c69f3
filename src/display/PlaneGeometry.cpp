#include "PlaneGeometry.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

/// The square of a point's distance to a line.
double SquareToLine(PixelPoint point, PixelPoint from, PixelPoint to) {
  const PixelPoint line = to - from;
  const double square = Dot(line, line);
  const double part = square > 0 ? std::clamp(Dot(point - from, line) / square, 0.0, 1.0) : 0;
  const PixelPoint way = point - (from + part * line);
  return Dot(way, way);
}

/// The square of the distance between a line and a box that does not touch it.
double SquareToBox(const TurnedBox& box, PixelPoint from, PixelPoint to) {
  double least = 1e300;
  for (const PixelPoint corner : box.Corners()) least = std::min(least, SquareToLine(corner, from, to));
  for (const PixelPoint end : {from, to}) {
    const double along = std::fabs(Dot(end - box.centre, box.along)) - box.halfLength;
    const double across = std::fabs(Dot(end - box.centre, LeftOf(box.along))) - box.halfHeight;
    const PixelPoint way{std::max(along, 0.0), std::max(across, 0.0)};
    least = std::min(least, Dot(way, way));
  }
  return least;
}

/// Narrows the part of a line, from 0 to 1, to where offset + part * slope is not negative.
void NarrowPart(double offset, double slope, double& first, double& last) {
  if (slope > 0) {
    first = std::max(first, -offset / slope);
  } else if (slope < 0) {
    last = std::min(last, -offset / slope);
  } else if (!(offset >= 0)) {
    last = -1;
  }
}

} // namespace

void Bounds::Take(PixelPoint point) { Take(Bounds{point.x, point.y, point.x, point.y}); }

void Bounds::Take(const Bounds& other) {
  left = std::min(left, other.left);
  top = std::min(top, other.top);
  right = std::max(right, other.right);
  bottom = std::max(bottom, other.bottom);
}

bool Bounds::Contains(PixelPoint point) const {
  return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
}

std::array<PixelPoint, 4> TurnedBox::Corners() const {
  const PixelPoint length = halfLength * along;
  const PixelPoint height = halfHeight * LeftOf(along);
  return {centre - length - height, centre + length - height, centre + length + height, centre - length + height};
}

double DistanceToLine(PixelPoint point, PixelPoint from, PixelPoint to) {
  return std::sqrt(SquareToLine(point, from, to));
}

std::optional<PixelLineEnds> PartWithin(const Bounds& area, PixelPoint from, PixelPoint to) {
  const PixelPoint way = to - from;
  double first = 0;
  double last = 1;
  NarrowPart(from.x - area.left, way.x, first, last);
  NarrowPart(area.right - from.x, -way.x, first, last);
  NarrowPart(from.y - area.top, way.y, first, last);
  NarrowPart(area.bottom - from.y, -way.y, first, last);
  if (!(first <= last)) return std::nullopt;
  return PixelLineEnds{from + first * way, from + last * way};
}

TurnedBox StripOf(PixelPoint from, PixelPoint to, double width) {
  const PixelPoint line = to - from;
  const double length = LengthOf(line);
  const PixelPoint along = length > 0 ? (1 / length) * line : PixelPoint{1, 0};
  return {0.5 * (from + to), along, length / 2, width / 2};
}

TurnedBox BoxOf(const Bounds& bounds) {
  return {{(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2},
          {1, 0},
          bounds.Width() / 2,
          bounds.Height() / 2};
}

Bounds BoundsOf(const TurnedBox& box) {
  const PixelPoint across = LeftOf(box.along);
  const double x = box.halfLength * std::fabs(box.along.x) + box.halfHeight * std::fabs(across.x);
  const double y = box.halfLength * std::fabs(box.along.y) + box.halfHeight * std::fabs(across.y);
  return {box.centre.x - x, box.centre.y - y, box.centre.x + x, box.centre.y + y};
}

double DistanceToBox(const TurnedBox& box, PixelPoint from, PixelPoint to) {
  if (Overlap(box, StripOf(from, to, 0))) return 0;
  return std::sqrt(SquareToBox(box, from, to));
}

bool IsNearMiddleOf(const TurnedBox& strip, const TurnedBox& box, double reach) {
  const double gap = GapAlongSides(box, {strip.centre, strip.along, strip.halfLength, 0});
  if (gap < 0 || gap > reach) return gap < 0;
  const PixelPoint half = strip.halfLength * strip.along;
  return SquareToBox(box, strip.centre - half, strip.centre + half) <= reach * reach;
}

} // namespace strutwright
