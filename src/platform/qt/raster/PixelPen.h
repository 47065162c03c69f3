#pragma once

#include "Cover.h"
#include "PixelLoops.h"

#include <cstdint>
#include <vector>

#include <QImage>
#include <QLineF>
#include <QPointF>
#include <QRect>

namespace strutwright {

/// A small picture that gets copied often: its ink, and what it leaves of the ground.
class Stamp {
 public:
  Stamp() = default;

  /// ink: premultiplied.  What is transparent all around is cut off.
  explicit Stamp(const QImage& ink);

  /// x, y: where on the ground the upper left corner of the ink's whole picture comes.
  void CopyTo(const Pixels& ground, int x, int y) const;

  /// Where in the ink's whole picture it has pixels that are not transparent.
  QRect InkArea() const { return {Left, Top, InkWidth, Height}; }

  /// Whether nothing would be seen of it there.
  bool IsHidden(const Cover& above, int x, int y) const;

  /// Adds its opaque pixels to what is covered.
  void AddTo(Cover& above, int x, int y) const { above.Add(Opaque, x + Left, y + Top); }

 private:
  std::uint64_t RowOf(int y, bool (*isOne)(QRgb)) const;
  static void CopyOverEdge(const Pixels& ground, int x, int y, const StampRows& rows);

  int Left = 0;
  int Top = 0;
  int InkWidth = 0;
  int Width = 0; ///< that, filled up to a multiple of what the processor takes at a time
  int Height = 0;
  std::vector<std::uint32_t> Ink;          ///< premultiplied
  std::vector<std::uint32_t> Transparency; ///< of the ground through the ink, of 256, in either half
  std::vector<std::uint64_t> Seen; ///< the pixels that are not transparent; empty where a row is too long for a Cover
  std::vector<std::uint64_t> Opaque;
};

/// Draws what a model has by the ten thousand straight onto the pixels: Qt takes microseconds to prepare a line that
/// covers ten of them.  All in device pixels of a picture of the format RGB32, antialiased.
class PixelPen {
 public:
  PixelPen(const Pixels& ground, QRgb colour, double width);

  /// Its ends stand out by half the width.
  void SolidLine(const QLineF& line);

  /// Dashes of four widths and gaps of two, counted along the line's longer extent, as Qt counts them.
  void DashedLine(const QLineF& line);

  void Circle(const QPointF& centre, double radius);

 private:
  Area AreaOf(const QPointF& middle, const QPointF& reach) const;
  void Line(const QLineF& line, double cap, bool dashed);

  Pixels Ground;
  QRgb Colour;
  double HalfWidth;
};

} // namespace strutwright
