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
  std::vector<std::uint8_t> Ink; ///< four bytes a pixel, premultiplied
  std::vector<std::uint8_t>
      Shine; ///< of the ground through the ink: 255 less the ink's alpha, once for each of the four
};

/// Draws what a model has by the ten thousand straight onto the pixels: Qt takes microseconds to prepare a line that
/// covers ten of them.  All in device pixels of a picture of the format RGB32, antialiased.
class PixelPen {
 public:
  PixelPen(QImage& picture, QRgb colour, double width);

  /// Beyond its ends the line goes on by `cap`.
  void Line(const QLineF& line, double cap);

  /// Dashes of four widths and gaps of two, counted along the line's longer extent, as Qt counts them.
  void DashedLine(const QLineF& line);

  void Circle(const QPointF& centre, double radius);

 private:
  struct Bar;
  struct Ring;

  template <typename Shape>
  void Fill(const Shape& shape, const QPointF& middle, const QPointF& reach);
  template <typename Shape>
  void FillRow(const Shape& shape, int row, int from, int to);

  Pixels Ground;
  QRgb Colour;
  double HalfWidth;
};

} // namespace strutwright
