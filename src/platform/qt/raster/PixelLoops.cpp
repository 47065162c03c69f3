#include "PixelLoops.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace strutwright {

namespace {

constexpr int LongRow = 16; // pixels, from which on it pays to look where in a row something lies

/// The pixels of a row from one to before another.
struct Columns {
  int from;
  int to;
};

/// Narrows from..to to what of the row y a band may cover.
void Narrow(const Band& band, float y, float& from, float& to) {
  constexpr float MinSlope = 1e-6F;
  const float reach = band.half + 1;
  const float rest = band.c - band.b * y;
  if (std::abs(band.a) < MinSlope) {
    if (std::abs(rest) > reach) to = from - 1;
    return;
  }
  from = std::max(from, rest / band.a - reach / std::abs(band.a));
  to = std::min(to, rest / band.a + reach / std::abs(band.a));
}

Columns InRow(const Bar& bar, float y, const Area& area) {
  auto from = static_cast<float>(area.left);
  auto to = static_cast<float>(area.right);
  Narrow(bar.along, y, from, to);
  Narrow(bar.across, y, from, to);
  if (!(from < to)) return {0, 0};
  return {static_cast<int>(from), static_cast<int>(std::ceil(to))};
}

Columns InRow(const DashedBar& shape, float y, const Area& area) { return InRow(shape.bar, y, area); }

Columns InRow(const Ring& /*shape*/, float /*y*/, const Area& area) { return {area.left, area.right}; }

namespace plain {
#include "PixelLoops.inc"
} // namespace plain

// Clang would want another pragma.
#if defined(__x86_64__) && !defined(__clang__)
#define STRUTWRIGHT_AVX2
#pragma GCC push_options
#pragma GCC target("avx2")
namespace avx2 {
#include "PixelLoops.inc"
} // namespace avx2
#pragma GCC pop_options
#endif

} // namespace

Pixels::Pixels(QImage& picture, const PixelLoops& theLoops)
    : first(reinterpret_cast<std::uint32_t*>(picture.bits())), width(picture.width()), height(picture.height()),
      loops(&theLoops) {}

Band::Band(const QPointF& normal, const QPointF& middle, double halfWidth)
    : a(static_cast<float>(normal.x())), b(static_cast<float>(normal.y())),
      c(static_cast<float>(normal.x() * middle.x() + normal.y() * middle.y())), half(static_cast<float>(halfWidth)) {}

const PixelLoops& PlainLoops() {
  static constexpr PixelLoops loops{plain::FillBar, plain::FillDashedBar, plain::FillRing, plain::CopyRows};
  return loops;
}

const PixelLoops& FastestLoops() {
#ifdef STRUTWRIGHT_AVX2
  static constexpr PixelLoops loops{avx2::FillBar, avx2::FillDashedBar, avx2::FillRing, avx2::CopyRows};
  if (__builtin_cpu_supports("avx2")) return loops;
#endif
  return PlainLoops();
}

} // namespace strutwright
