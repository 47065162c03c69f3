#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <QRect>

namespace strutwright {

/// Some pixels of a picture row by row: the lowest bit is the leftmost pixel.
using PixelRows = std::span<const std::uint64_t>;

/// Which pixels of a picture something opaque will come over.  Those beside the picture count as covered.
class Cover {
 public:
  static constexpr int RowLength = 64; ///< pixels, of PixelRows

  /// No pixel of a picture of this size is covered.
  void Reset(int width, int height);

  /// Whether all of some pixels are covered; x, y: the place of the first bit.
  bool Hides(PixelRows pixels, int x, int y) const;

  /// Whether all pixels of an area are covered.
  bool Hides(const QRect& area) const;

  void Add(PixelRows pixels, int x, int y);

 private:
  std::size_t WordOf(int x, int y) const;
  bool HidesStrip(int start, int top, int bottom, std::uint64_t wanted) const;

  int Width = 0;
  int Height = 0;
  std::vector<std::uint64_t> Strips; ///< each RowLength pixels wide and as high as the picture, one after the other
};

} // namespace strutwright
