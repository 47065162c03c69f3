#pragma once

#include "Colour.h"

#include <span>
#include <string>

namespace strutwright {

/// A place on a surface in logical pixels from its upper left corner, y downwards.
struct PixelPoint {
  double x = 0;
  double y = 0;

  bool operator==(const PixelPoint&) const = default;
};

constexpr PixelPoint operator+(PixelPoint a, PixelPoint b) { return {a.x + b.x, a.y + b.y}; }
constexpr PixelPoint operator-(PixelPoint a, PixelPoint b) { return {a.x - b.x, a.y - b.y}; }
constexpr PixelPoint operator*(double factor, PixelPoint a) { return {factor * a.x, factor * a.y}; }

/// How a line looks; its width is in pixels.
struct LineLook {
  Colour colour;
  double width = 1;
  bool dashed = false;
};

/// A line of text, drawn about its centre.
struct PixelLabel {
  PixelPoint centre;
  PixelPoint along{1, 0}; ///< the direction in which it reads, of length 1
  std::string text;       ///< UTF-8
  Colour colour;
  int size = 12;    ///< height of its font
  PixelPoint box{}; ///< half the size of a white box around it with a thin frame; without one where it is zero
  Colour frame{};

  bool IsBoxed() const { return box.x > 0; }
};

/// What is drawn in pixels: the same at every zoom.  Each call says how it looks; nothing is kept from the one before.
class PixelSurface {
 public:
  virtual ~PixelSurface() = default;

  virtual float PixelWidth() const = 0;
  virtual float PixelHeight() const = 0;

  /// Width of a text in a font of this height.
  virtual double TextWidth(const std::string& text, int size) const = 0;

  virtual void PixelLine(PixelPoint from, PixelPoint to, const LineLook& look) = 0;

  /// A closed figure of three corners or more, filled.
  virtual void PixelPolygon(std::span<const PixelPoint> corners, Colour fill) = 0;

  /// A filled circle with an edge.
  virtual void PixelDot(PixelPoint centre, double radius, const LineLook& edge, Colour fill) = 0;

  virtual void PixelText(const PixelLabel& label) = 0;
};

} // namespace strutwright
