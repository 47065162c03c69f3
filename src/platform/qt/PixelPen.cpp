#include "PixelPen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>

#include <QRect>

namespace strutwright {

namespace {

constexpr int PixelsAtATime = 4;

constexpr float LongRow = 16; // pixels, from which on it pays to look where in a row something lies
const QPointF HalfAPixel(0.5, 0.5);

// Four pixels at once, in the vectors that GCC and Clang have for every processor.
using Floats [[gnu::vector_size(16)]] = float;
using Integers [[gnu::vector_size(16)]] = std::uint32_t;
using Signed [[gnu::vector_size(16)]] = std::int32_t;
using Halves [[gnu::vector_size(16)]] = std::uint16_t;

constexpr Floats Steps = {0, 1, 2, 3};

Floats Size(Floats x) { return reinterpret_cast<Floats>(reinterpret_cast<Integers>(x) & 0x7FFFFFFFU); }

/// How much of a pixel lies inside an edge at a distance from its centre, positive inside.
Floats Inside(Floats distance) {
  const Floats part = distance + 0.5F;
  const Floats positive = part > 0 ? part : Floats{};
  return positive < 1 ? positive : Floats{} + 1;
}

/// A colour as Blend takes it: red and blue of each pixel, and alpha and green.
struct Ink {
  explicit Ink(QRgb colour)
      : redBlue(reinterpret_cast<Halves>(Integers{} + (colour & 0xFF00FFU))),
        alphaGreen(reinterpret_cast<Halves>(Integers{} + (colour >> 8 & 0xFF00FFU))) {}

  Halves redBlue;
  Halves alphaGreen;
};

// p = p + (ink - p) coverage, in parts of 256, two of a pixel's four numbers at a time.
void Blend(std::uint32_t* pixels, const Ink& ink, Floats coverage) {
  const auto part = reinterpret_cast<Integers>(__builtin_convertvector(coverage * 256 + 0.5F, Signed));
  const auto parts = reinterpret_cast<Halves>(part | part << 16);
  const Halves rest = 256 - parts;
  Integers old;
  std::memcpy(&old, pixels, sizeof(old));
  const Halves redBlue = reinterpret_cast<Halves>(old & 0xFF00FFU) * rest + ink.redBlue * parts;
  const Halves alphaGreen = reinterpret_cast<Halves>(old >> 8 & 0xFF00FFU) * rest + ink.alphaGreen * parts;
  const Halves result = redBlue >> 8 | (alphaGreen & 0xFF00U);
  std::memcpy(pixels, &result, sizeof(result));
}

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

// p = ink + p shine, in parts of 256, rounded, so that white on white stays white; two of a pixel's four numbers at a
// time.
void Copy(std::uint32_t* pixels, const std::uint32_t* ink, const std::uint32_t* shine) {
  using Bytes [[gnu::vector_size(16)]] = std::uint8_t;
  Integers old;
  Halves through;
  Bytes over;
  std::memcpy(&old, pixels, sizeof(old));
  std::memcpy(&through, shine, sizeof(through));
  std::memcpy(&over, ink, sizeof(over));
  const Halves redBlue = reinterpret_cast<Halves>(old & 0xFF00FFU) * through + 128;
  const Halves alphaGreen = reinterpret_cast<Halves>(old >> 8 & 0xFF00FFU) * through + 128;
  const Bytes result = over + reinterpret_cast<Bytes>(redBlue >> 8 | (alphaGreen & 0xFF00U));
  std::memcpy(pixels, &result, sizeof(result));
}

void CopyRow(std::uint32_t* pixels, const std::uint32_t* ink, const std::uint32_t* shine, int width) {
  for (int x = 0; x < width; x += PixelsAtATime) Copy(pixels + x, ink + x, shine + x);
}

} // namespace

Pixels::Pixels(QImage& picture)
    : first(reinterpret_cast<std::uint32_t*>(picture.bits())), width(picture.width()), height(picture.height()) {}

Stamp::Stamp(const QImage& ink) {
  const QRect area = InkOf(ink);
  Left = area.left();
  Top = area.top();
  Width = (area.width() + PixelsAtATime - 1) / PixelsAtATime * PixelsAtATime;
  Height = area.height();
  for (int y = 0; y < Height; ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(ink.constScanLine(Top + y));
    for (int x = 0; x < Width; ++x) {
      const QRgb pixel = x < area.width() ? row[Left + x] : 0;
      Ink.push_back(pixel);
      const auto through = static_cast<std::uint32_t>(255 - qAlpha(pixel));
      Shine.push_back((through + (through >> 7)) * 0x10001U); // 255 becomes 256
    }
  }
}

void Stamp::CopyTo(const Pixels& ground, int x, int y) const {
  x += Left;
  y += Top;
  if (x <= -Width || x >= ground.width) return;
  const bool whole = x >= 0 && x + Width <= ground.width;
  const int first = std::max(0, -y);
  const int last = std::min(Height, ground.height - y);
  for (int row = first; row < last; ++row) {
    const std::size_t at = static_cast<std::size_t>(row) * static_cast<std::size_t>(Width);
    if (whole) {
      CopyRow(ground.Row(y + row) + x, &Ink[at], &Shine[at], Width);
    } else {
      CopyPart(ground.Row(y + row), ground.width, x, at);
    }
  }
}

/// A row that hangs over the picture's edge.
void Stamp::CopyPart(std::uint32_t* pixels, int width, int x, std::size_t at) const {
  std::vector<std::uint32_t> row(static_cast<std::size_t>(Width));
  const int from = std::max(0, -x);
  const int count = std::min(Width, width - x) - from;
  std::copy_n(pixels + (x + from), count, row.begin() + from);
  CopyRow(row.data(), &Ink[at], &Shine[at], Width);
  std::copy_n(row.begin() + from, count, pixels + (x + from));
}

PixelPen::PixelPen(const Pixels& ground, QRgb colour, double width)
    : Ground(ground), Colour(colour | 0xFF000000U), HalfWidth(width / 2) {}

/// What lies no farther than `half` from a straight line: |a x + b y - c| <= half, (a, b) of length 1.
struct Band {
  Band(const QPointF& normal, const QPointF& middle, double halfWidth)
      : a(static_cast<float>(normal.x())), b(static_cast<float>(normal.y())),
        c(static_cast<float>(normal.x() * middle.x() + normal.y() * middle.y())), half(static_cast<float>(halfWidth)) {}

  /// Narrows from..to to what of the row y may be covered.
  void Narrow(float y, float& from, float& to) const {
    constexpr float LeastSlope = 1e-6F;
    const float reach = half + 1;
    const float rest = c - b * y;
    if (std::abs(a) < LeastSlope) {
      if (std::abs(rest) > reach) to = from - 1;
      return;
    }
    from = std::max(from, rest / a - reach / std::abs(a));
    to = std::min(to, rest / a + reach / std::abs(a));
  }

  /// How much the band covers of the pixels at x in the row y.  By value, so that it can stay in registers.
  auto InRow(float y) const {
    return [a = a, rest = b * y - c, half = half](Floats x) { return Inside(half - Size(a * x + rest)); };
  }

  float a, b, c, half;
};

/// A line as what two bands have in common.
struct PixelPen::Bar {
  void Narrow(float y, float& from, float& to) const {
    along.Narrow(y, from, to);
    across.Narrow(y, from, to);
  }

  auto InRow(float y) const {
    return
        [lengthwise = along.InRow(y), crosswise = across.InRow(y)](Floats x) { return lengthwise(x) * crosswise(x); };
  }

  Band along;
  Band across;
};

/// Dashes of four widths and gaps of two, counted along x or y, whichever the line runs through faster.
struct PixelPen::DashedBar {
  void Narrow(float y, float& from, float& to) const { bar.Narrow(y, from, to); }

  auto InRow(float y) const {
    return [whole = bar.InRow(y), a = a, rest = b * y - middle, width = width](Floats x) {
      const Floats way = a * x + rest; // from the middle of the first dash
      const Floats number = __builtin_convertvector(__builtin_convertvector(way / (6 * width) + 0.5F, Signed), Floats);
      return whole(x) * Inside(2 * width - Size(way - 6 * width * number));
    };
  }

  Bar bar;
  float a, b, middle, width;
};

struct PixelPen::Ring {
  static void Narrow(float /*y*/, float& /*from*/, float& /*to*/) {}

  auto InRow(float y) const {
    return [*this, dy = y - centreY](Floats x) {
      Floats distance = (x - centreX) * (x - centreX) + dy * dy;
      for (int i = 0; i < PixelsAtATime; ++i) distance[i] = std::sqrt(distance[i]);
      return Inside(half - Size(distance - radius));
    };
  }

  float centreX, centreY, radius, half;
};

/// reach: how far the shape goes from its middle, to either side and up and down.
template <typename Shape>
void PixelPen::Fill(const Shape& shape, const QPointF& middle, const QPointF& reach) {
  // What is half a pixel outside still has a part in it.
  const double height = Ground.height;
  const int top = static_cast<int>(std::floor(std::clamp(middle.y() - reach.y(), 0.0, height)));
  const int bottom = static_cast<int>(std::ceil(std::clamp(middle.y() + reach.y(), 0.0, height))) - 1;
  const auto left = std::max(0.0F, static_cast<float>(middle.x() - reach.x()));
  const auto right = std::min(static_cast<float>(Ground.width), static_cast<float>(middle.x() + reach.x()));
  for (int row = top; row <= bottom; ++row) {
    float from = left;
    float to = right;
    if (to - from > LongRow) shape.Narrow(static_cast<float>(row) + 0.5F, from, to);
    if (from < to) FillRow(shape, row, static_cast<int>(from), static_cast<int>(std::ceil(to)));
  }
}

template <typename Shape>
void PixelPen::FillRow(const Shape& shape, int row, int from, int to) {
  std::uint32_t* pixels = Ground.Row(row);
  const auto coverage = shape.InRow(static_cast<float>(row) + 0.5F);
  const Ink ink(Colour);
  for (int x = from / PixelsAtATime * PixelsAtATime; x < to; x += PixelsAtATime) {
    const Floats parts = coverage(static_cast<float>(x) + 0.5F + Steps);
    if (x + PixelsAtATime <= Ground.width) {
      Blend(pixels + x, ink, parts);
    } else { // over the picture's edge
      std::array<std::uint32_t, PixelsAtATime> edge{};
      std::copy(pixels + x, pixels + Ground.width, edge.begin());
      Blend(edge.data(), ink, parts);
      std::copy_n(edge.begin(), Ground.width - x, pixels + x);
    }
  }
}

void PixelPen::Line(const QLineF& line, double cap, bool dashed) {
  const double length = std::sqrt(line.dx() * line.dx() + line.dy() * line.dy());
  const QPointF along = length > 0 ? QPointF(line.dx(), line.dy()) / length : QPointF(1, 0);
  const double half = length / 2 + cap;
  const QPointF size(std::abs(along.x()), std::abs(along.y()));
  const QPointF reach = half * size + HalfWidth * QPointF(size.y(), size.x()) + HalfAPixel;
  const Bar bar{Band(along, line.center(), half), Band(QPointF(-along.y(), along.x()), line.center(), HalfWidth)};
  if (!dashed) return Fill(bar, line.center(), reach);
  const bool level = size.x() >= size.y();
  const float a = level ? std::copysign(1.0F, bar.along.a) : 0.0F;
  const float b = level ? 0.0F : std::copysign(1.0F, bar.along.b);
  const double start = a * line.x1() + b * line.y1();
  Fill(DashedBar{bar, a, b, static_cast<float>(start + 4 * HalfWidth), static_cast<float>(2 * HalfWidth)},
       line.center(), reach);
}

void PixelPen::SolidLine(const QLineF& line) { Line(line, HalfWidth, false); }

void PixelPen::DashedLine(const QLineF& line) { Line(line, 0, true); }

void PixelPen::Circle(const QPointF& centre, double radius) {
  const double reach = radius + HalfWidth;
  Fill(Ring{static_cast<float>(centre.x()), static_cast<float>(centre.y()), static_cast<float>(radius),
            static_cast<float>(HalfWidth)},
       centre, QPointF(reach, reach) + HalfAPixel);
}

} // namespace strutwright
