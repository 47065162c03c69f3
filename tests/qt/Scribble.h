#pragma once

#include "QtDrawingSurface.h"

#include <array>
#include <cstddef>
#include <random>
#include <string>

namespace strutwright {

/// Draws what models are drawn of, at random, partly outside the picture.
class Scribble {
 public:
  explicit Scribble(unsigned seed) : Random(seed) {}

  /// A number, a short line or a small circle, as a large model has them by the thousand in one place.
  void DrawSmallOneOn(QtDrawingSurface& surface) {
    surface.SetPenColour(Colours[Below(4)]);
    surface.SetTextColour(Colours[Below(4)]);
    surface.SetPenWidth(1 + static_cast<int>(Below(3)));
    const double x = Between(-1, 9);
    const double y = Between(-1, 7);
    switch (Below(5)) {
    case 0: return surface.DrawLine(x, y, x + Between(-0.5, 0.5), y + Between(-0.5, 0.5));
    case 1: return surface.DrawCircle(x, y, Between(0, 0.3));
    default: surface.MoveTo(x, y); surface.DrawText(Numbers[Below(4)]);
    }
  }

  void DrawOneOn(QtDrawingSurface& surface) {
    surface.SetPenColour(Colours[Below(4)]);
    surface.SetTextColour(Colours[Below(4)]);
    surface.SetPenWidth(1 + static_cast<int>(Below(3)));
    surface.SetLineStyle(Below(3) == 0 ? LineStyle::Dashed : LineStyle::Solid);
    surface.SetFillStyle(Below(5) == 0 ? FillStyle::Solid : FillStyle::Transparent);
    surface.SetTextAttribute(Below(8) != 0);
    surface.SetPenMode(Below(20) == 0 ? PenMode::Invert : PenMode::Copy);
    const double x = Between(-2, 10);
    const double y = Between(-2, 8);
    DrawShape(surface, x, y);
  }

 private:
  void DrawShape(QtDrawingSurface& surface, double x, double y) {
    switch (Below(6)) {
    case 0: return surface.DrawLine(x, y, Between(-2, 10), Between(-2, 8));
    case 1: return surface.DrawLine(x, y, x + Between(-0.3, 0.3), y + Between(-0.3, 0.3));
    case 2: return surface.DrawLine(x, y, x, Between(-2, 8));
    case 3: return surface.DrawCircle(x, y, Between(0, 0.5));
    case 4: return surface.DrawBox(x, y, x + Between(0, 1), y + Between(0, 1));
    default: surface.MoveTo(x, y); surface.DrawText(Below(9) == 0 ? "x" : std::to_string(Between(-99, 99)));
    }
  }

  std::size_t Below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(Random); }
  double Between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(Random); }

  static constexpr std::array<Colour, 4> Colours{Black, Red, Blue, Grey};
  static constexpr std::array<const char*, 4> Numbers{"7", "-7.5", "4999", "8888.888"};
  std::mt19937 Random;
};

} // namespace strutwright
