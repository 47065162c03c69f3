#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <QImage>
#include <QLineF>
#include <QPointF>

namespace strutwright {

/// The pixels of a picture of the format RGB32, as long as nobody else changes it.
struct Pixels {
  explicit Pixels(QImage& picture);

  std::uint32_t* Row(int row) const { return first + static_cast<std::ptrdiff_t>(row) * width; }

  std::uint32_t* first;
  int width;
  int height;
};

/// A small picture that gets copied often: its ink, and what it leaves of the ground.
class Stamp {
 public:
  Stamp() = default;

  /// ink: premultiplied.  What is transparent all around is cut off.
  explicit Stamp(const QImage& ink);

  /// x, y: where on the ground the upper left corner of the ink's whole picture comes.
  void CopyTo(const Pixels& ground, int x, int y) const;

 private:
  void CopyPart(std::uint32_t* pixels, int width, int x, std::size_t at) const;

  int Left = 0;
  int Top = 0;
  int Width = 0; ///< a multiple of what the processor takes at a time
  int Height = 0;
  std::vector<std::uint32_t> Ink;   ///< premultiplied
  std::vector<std::uint32_t> Shine; ///< of the ground through the ink, of 256, in either half
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
  struct Bar;
  struct DashedBar;
  struct Ring;

  void Line(const QLineF& line, double cap, bool dashed);

  template <typename Shape>
  void Fill(const Shape& shape, const QPointF& middle, const QPointF& reach);
  template <typename Shape>
  void FillRow(const Shape& shape, int row, int from, int to);

  Pixels Ground;
  QRgb Colour;
  double HalfWidth;
};

} // namespace strutwright
