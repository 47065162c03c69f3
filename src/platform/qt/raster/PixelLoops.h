#pragma once

#include <cstddef>
#include <cstdint>

#include <QImage>
#include <QPointF>

namespace strutwright {

struct PixelLoops;

/// Compiled for every processor, and for the one at hand; both give the same pixels.
const PixelLoops& PlainLoops();
const PixelLoops& FastestLoops();

/// The pixels of a picture of the format RGB32, as long as nobody else changes it, and the loops that touch them.
struct Pixels {
  explicit Pixels(QImage& picture, const PixelLoops& theLoops = FastestLoops());

  std::uint32_t* Row(int row) const { return first + static_cast<std::ptrdiff_t>(row) * width; }

  std::uint32_t* first;
  int width;
  int height;
  const PixelLoops* loops;
};

constexpr int MinWidth = 8; // pixels: as many as are painted at a time

/// What lies no farther than `half` from a straight line: |a x + b y - c| <= half, (a, b) of length 1.
struct Band {
  Band(const QPointF& normal, const QPointF& middle, double halfWidth);

  float a, b, c, half;
};

/// A line as what two bands have in common.
struct Bar {
  Band along;
  Band across;
};

/// Dashes of four widths and gaps of two, counted along x or y, whichever the line runs through faster.
struct DashedBar {
  Bar bar;
  float a, b, middle, width;
};

struct Ring {
  float centreX, centreY, radius, half;
};

/// Where a shape may cover something; bottom and right are one behind the last row and column.
struct Area {
  int top, bottom;
  int left, right;
};

/// The rows of a stamp one after the other.
struct StampRows {
  const std::uint32_t* ink;
  const std::uint32_t* transparency;
  int width; ///< a multiple of MinWidth
  int count;
};

/// The loops that touch the pixels, antialiased.  A ground must be at least MinWidth wide.
struct PixelLoops {
  void (*fillBar)(const Pixels& ground, std::uint32_t colour, const Area& area, const Bar& shape);
  void (*fillDashedBar)(const Pixels& ground, std::uint32_t colour, const Area& area, const DashedBar& shape);
  void (*fillRing)(const Pixels& ground, std::uint32_t colour, const Area& area, const Ring& shape);

  /// x, y: where on the ground the first pixel comes; all of them must lie on it.
  void (*copyRows)(const Pixels& ground, int x, int y, const StampRows& rows);
};

} // namespace strutwright
