#pragma once

#include "PixelSurface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace strutwright {

// Shapes in pixels, y downwards, for what must not touch.

/// An upright rectangle.
struct Bounds {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  double Width() const { return right - left; }
  double Height() const { return bottom - top; }
  void Take(PixelPoint point);
  void Take(const Bounds& other);
  Bounds GrownBy(double reach) const { return {left - reach, top - reach, right + reach, bottom + reach}; }
  Bounds MovedBy(PixelPoint by) const { return {left + by.x, top + by.y, right + by.x, bottom + by.y}; }
  bool Contains(PixelPoint point) const;
  bool Touches(const Bounds& other) const {
    return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
  }

  bool operator==(const Bounds&) const = default;
};

/// A rectangle that is turned: `along` is the direction of its length, of length 1.
struct TurnedBox {
  PixelPoint centre;
  PixelPoint along{1, 0};
  double halfLength = 0;
  double halfHeight = 0;

  TurnedBox GrownBy(double reach) const { return {centre, along, halfLength + reach, halfHeight + reach}; }
  TurnedBox MovedBy(PixelPoint by) const { return {centre + by, along, halfLength, halfHeight}; }
  std::array<PixelPoint, 4> Corners() const;
};

// Placing labels asks for these a thousand times a label.
constexpr double Dot(PixelPoint a, PixelPoint b) { return a.x * b.x + a.y * b.y; }
inline double LengthOf(PixelPoint a) { return std::sqrt(a.x * a.x + a.y * a.y); }

/// The direction a quarter turn to the left of one that runs to the right, as seen on the screen: upwards.
constexpr PixelPoint LeftOf(PixelPoint direction) { return {direction.y, -direction.x}; }

/// From a point to the nearest point of a line between two.
double DistanceToLine(PixelPoint point, PixelPoint from, PixelPoint to);

/// A line from one point to another.
struct PixelLineEnds {
  PixelPoint from;
  PixelPoint to;
};

/// The part of a line that lies in a rectangle; nothing where none does.
std::optional<PixelLineEnds> PartWithin(const Bounds& area, PixelPoint from, PixelPoint to);

/// The strip of a line of this width.
TurnedBox StripOf(PixelPoint from, PixelPoint to, double width);

TurnedBox BoxOf(const Bounds& bounds);
Bounds BoundsOf(const TurnedBox& box);

/// From a box to the nearest point of a line between two; 0 where they touch.
double DistanceToBox(const TurnedBox& box, PixelPoint from, PixelPoint to);

/// How far apart two boxes are along the directions of their sides, at the side that parts them most: no more than
/// their distance, and the same except across a corner.  Below zero where they overlap.
inline double GapAlongSides(const TurnedBox& a, const TurnedBox& b) {
  const PixelPoint way = b.centre - a.centre;
  const double same = std::fabs(Dot(a.along, b.along));
  const double turned = std::fabs(Dot(a.along, LeftOf(b.along)));
  const double alongA = std::fabs(Dot(way, a.along)) - a.halfLength - b.halfLength * same - b.halfHeight * turned;
  const double acrossA =
      std::fabs(Dot(way, LeftOf(a.along))) - a.halfHeight - b.halfLength * turned - b.halfHeight * same;
  const double alongB = std::fabs(Dot(way, b.along)) - b.halfLength - a.halfLength * same - a.halfHeight * turned;
  const double acrossB =
      std::fabs(Dot(way, LeftOf(b.along))) - b.halfHeight - a.halfLength * turned - a.halfHeight * same;
  return std::max(std::max(alongA, acrossA), std::max(alongB, acrossB));
}

/// Whether two boxes share more than an edge: no side of either parts them.
inline bool Overlap(const TurnedBox& a, const TurnedBox& b) { return GapAlongSides(a, b) < 0; }

/// Whether a box is no farther than `reach` from the middle line of a strip.
bool IsNearMiddleOf(const TurnedBox& strip, const TurnedBox& box, double reach);

} // namespace strutwright
