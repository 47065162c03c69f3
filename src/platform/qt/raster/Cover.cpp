#include "Cover.h"

#include <algorithm>

namespace strutwright {

namespace {

constexpr std::uint64_t All = ~std::uint64_t{0};

/// The rows of so many from y on that lie on a picture.
struct RowsOnPicture {
  RowsOnPicture(std::size_t count, int y, int height)
      : from(std::max(0, -y)), to(std::min(static_cast<int>(count), height - y)) {}

  int from;
  int to;
};

} // namespace

/// A strip on the left for what begins beside the picture, those of the picture, the last of which may be a part of one
/// or none of it, and one for what ends beside it.
void Cover::Reset(int width, int height) {
  Width = width;
  Height = height;
  const auto rows = static_cast<std::size_t>(height);
  const auto inside = static_cast<std::size_t>(width / RowLength);
  Strips.assign((inside + 3) * rows, All);
  std::fill_n(Strips.begin() + height, inside * rows, 0);
  std::fill_n(Strips.begin() + static_cast<std::ptrdiff_t>((inside + 1) * rows), rows, All << width % RowLength);
}

/// Where in the strips a pixel is, at the bit x % RowLength.  The pixels that go on to the right are Height words
/// later.
std::size_t Cover::WordOf(int x, int y) const {
  const auto strip = static_cast<std::size_t>((x + RowLength) / RowLength);
  return strip * static_cast<std::size_t>(Height) + static_cast<std::size_t>(y);
}

bool Cover::Hides(PixelRows pixels, int x, int y) const {
  if (x <= -RowLength || x >= Width) return true;
  const RowsOnPicture rows(pixels.size(), y, Height);
  if (rows.from >= rows.to) return true;
  const std::uint64_t* left = &Strips[WordOf(x, y + rows.from)];
  const std::uint64_t* right = left + Height;
  const int shift = (x + RowLength) % RowLength;
  std::uint64_t seen = 0;
  for (int row = rows.from; row < rows.to; ++row) {
    const std::uint64_t covered = *left++ >> shift | *right++ << 1 << (RowLength - 1 - shift);
    seen |= pixels[static_cast<std::size_t>(row)] & ~covered;
  }
  return seen == 0;
}

/// Whether the wanted ones of a strip's pixels are covered in some rows.
bool Cover::HidesStrip(int start, int top, int bottom, std::uint64_t wanted) const {
  constexpr int RowsAtATime = 16;
  while (top < bottom) {
    const int count = std::min(bottom - top, RowsAtATime);
    const auto rows = std::span(Strips).subspan(WordOf(start, top), static_cast<std::size_t>(count));
    std::uint64_t seen = 0;
    for (const std::uint64_t row : rows) seen |= wanted & ~row;
    if (seen != 0) return false;
    top += count;
  }
  return true;
}

bool Cover::Hides(const QRect& area) const {
  const int left = std::max(area.left(), 0);
  const int right = std::min(area.right() + 1, Width);
  const int top = std::max(area.top(), 0);
  const int bottom = std::min(area.bottom() + 1, Height);
  for (int start = left / RowLength * RowLength; start < right && top < bottom; start += RowLength) {
    const std::uint64_t wanted = All << std::max(left - start, 0) & All >> std::max(start + RowLength - right, 0);
    if (!HidesStrip(start, top, bottom, wanted)) return false;
  }
  return true;
}

void Cover::Add(PixelRows pixels, int x, int y) {
  if (x <= -RowLength || x >= Width) return;
  const RowsOnPicture rows(pixels.size(), y, Height);
  if (rows.from >= rows.to) return;
  std::uint64_t* left = &Strips[WordOf(x, y + rows.from)];
  std::uint64_t* right = left + Height;
  const int shift = (x + RowLength) % RowLength;
  for (int row = rows.from; row < rows.to; ++row) {
    const std::uint64_t bits = pixels[static_cast<std::size_t>(row)];
    *left++ |= bits << shift;
    *right++ |= bits >> 1 >> (RowLength - 1 - shift);
  }
}

} // namespace strutwright
