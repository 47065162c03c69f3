#pragma once

#include "ClearSettings.h"
#include "PlaneGeometry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace strutwright {

enum class LegendSample : std::uint8_t { Tie, Strut, ZeroBar, Load, Reaction, Deflected, None };

struct LegendEntry {
  LegendSample sample = LegendSample::None;
  std::string text;
};

/// What there is to explain in a drawing.
struct LegendFacts {
  bool ties = false;
  bool struts = false;
  bool zeroBars = false;
  bool loads = false;
  bool reactions = false;
  double largestForce = 0;   ///< of an arrow, kN
  double pixelsPerForce = 0; ///< of an arrow that is neither cut nor lengthened
  double longestArrow = 0;   ///< pixels
};

/// The explanations of a drawing, and the length of its sample arrow in pixels.
struct ClearLegend {
  std::vector<LegendEntry> entries;
  double arrow = 0;
};

ClearLegend MakeLegend(const ClearSettings& settings, const LegendFacts& facts);

/// How much room a legend takes with its entries row after row in so many columns.
struct LegendSize {
  double width = 0;
  double height = 0;
};
LegendSize SizeOf(const ClearLegend& legend, int columns, const PixelSurface& surface);

/// Draws it with its upper left corner at a place.
void DrawLegend(PixelSurface& surface, const ClearLegend& legend, int columns, PixelPoint corner);

// The looks that the drawing and its legend share.

void DrawTie(PixelSurface& surface, PixelPoint from, PixelPoint to, double width);
void DrawStrut(PixelSurface& surface, PixelPoint from, PixelPoint to, double width);

} // namespace strutwright
