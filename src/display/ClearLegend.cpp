#include "ClearLegend.h"

#include "AxisValues.h"
#include "ClearPalette.h"
#include "ClearSymbols.h"
#include "ClearTexts.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace strutwright {

namespace {

constexpr double SampleWidth = 30;
constexpr double SampleGap = 6;
constexpr double LineHeight = 16;
constexpr double EntryGap = 16;
constexpr double Room = 5; // around all of it
constexpr double WallWidth = 1.2;

/// A round force whose arrow is true to scale; 0 where there is none.
double SampleForce(const LegendFacts& facts) {
  if (!(facts.pixelsPerForce > 0) || !std::isfinite(facts.pixelsPerForce)) return 0;
  const double least = RoundStepAbove(ClearSize::MinArrow / facts.pixelsPerForce);
  return least * facts.pixelsPerForce <= std::max(2 * ClearSize::MinArrow, facts.longestArrow) ? least : 0;
}

std::string ScaleText(double force) { return PlainText(force, force < 1e-6 ? 7 : (force < 1 ? 6 : 0)) + " kN"; }

double WidthOfEntry(const LegendEntry& entry, const ClearLegend& legend, const PixelSurface& surface) {
  const double sample = entry.sample == LegendSample::None ? 0 : std::max(SampleWidth, legend.arrow) + SampleGap;
  return sample + surface.TextWidth(entry.text, ClearSize::SmallText);
}

void DrawSample(PixelSurface& surface, LegendSample sample, PixelPoint from, PixelPoint to) {
  switch (sample) {
  case LegendSample::Tie: return DrawTie(surface, from, to, 3);
  case LegendSample::Strut: return DrawStrut(surface, from, to, 4.6);
  case LegendSample::ZeroBar: return surface.PixelLine(from, to, {ClearPalette::ZeroBar, 1});
  case LegendSample::Load: return DrawArrow(surface, from, to, ClearPalette::Ink);
  case LegendSample::Reaction: return DrawArrow(surface, from, to, ClearPalette::Reaction);
  case LegendSample::Deflected: return surface.PixelLine(from, to, {ClearPalette::Deflected, 1.3, true});
  case LegendSample::None: break;
  }
}

bool IsArrow(LegendSample sample) { return sample == LegendSample::Load || sample == LegendSample::Reaction; }

void DrawEntry(PixelSurface& surface, const LegendEntry& entry, const ClearLegend& legend, PixelPoint left) {
  const double room = entry.sample == LegendSample::None ? 0 : std::max(SampleWidth, legend.arrow);
  const double length = IsArrow(entry.sample) && legend.arrow > 0 ? legend.arrow : SampleWidth;
  const PixelPoint begin{left.x + (room - length) / 2, left.y};
  if (entry.sample != LegendSample::None) DrawSample(surface, entry.sample, begin, {begin.x + length, begin.y});
  const double text = surface.TextWidth(entry.text, ClearSize::SmallText);
  const double start = left.x + room + (room > 0 ? SampleGap : 0);
  surface.PixelText({{start + text / 2, left.y}, {1, 0}, entry.text, ClearPalette::Ink, ClearSize::SmallText});
}

/// Of the columns, each as wide as its widest entry; no more of them than entries.
std::vector<double> ColumnWidths(const ClearLegend& legend, int columns, const PixelSurface& surface) {
  std::vector<double> widths(std::clamp<std::size_t>(legend.entries.size(), 1, static_cast<std::size_t>(columns)), 0.0);
  for (std::size_t entry = 0; entry < legend.entries.size(); ++entry) {
    double& width = widths[entry % widths.size()];
    width = std::max(width, WidthOfEntry(legend.entries[entry], legend, surface));
  }
  return widths;
}

} // namespace

ClearLegend MakeLegend(const ClearSettings& settings, const LegendFacts& facts) {
  ClearLegend legend;
  const auto add = [&](bool wanted, LegendSample sample, const std::string& text) {
    if (wanted) legend.entries.push_back({sample, text});
  };
  add(facts.ties, LegendSample::Tie, "T  tension, +");
  add(facts.struts, LegendSample::Strut, "C  compression, \u2212");
  add(facts.zeroBars, LegendSample::ZeroBar, "0  no force");
  const double force = SampleForce(facts);
  const bool cut = facts.largestForce * facts.pixelsPerForce > facts.longestArrow + 1;
  const std::string scale = force > 0 ? " " + ScaleText(force) + (cut ? ", longest cut" : "") : ", not to scale";
  if (force > 0) legend.arrow = force * facts.pixelsPerForce;
  add(facts.loads, LegendSample::Load, "load" + scale);
  add(facts.reactions, LegendSample::Reaction, "reaction" + scale);
  add(settings.deflectedShape, LegendSample::Deflected,
      "displacements \u00d7 " + PlainText(settings.deflectionScale, 2));
  const bool forces = facts.ties || facts.struts || facts.zeroBars || facts.loads || facts.reactions;
  add(forces || settings.layers.grid, LegendSample::None, forces ? "forces in kN, lengths in m" : "lengths in m");
  return legend;
}

LegendSize SizeOf(const ClearLegend& legend, int columns, const PixelSurface& surface) {
  const std::vector<double> widths = ColumnWidths(legend, columns, surface);
  const std::size_t rows = (legend.entries.size() + widths.size() - 1) / widths.size();
  const double gaps = EntryGap * static_cast<double>(widths.size() - 1);
  return {std::accumulate(widths.begin(), widths.end(), gaps) + 2 * Room,
          LineHeight * static_cast<double>(rows) + (rows > 1 ? 2 * Room : 0)};
}

void DrawLegend(PixelSurface& surface, const ClearLegend& legend, int columns, PixelPoint corner) {
  const std::vector<double> widths = ColumnWidths(legend, columns, surface);
  const bool oneRow = legend.entries.size() <= widths.size();
  const PixelPoint first{corner.x + Room, corner.y + LineHeight / 2 + (oneRow ? 0 : Room)};
  PixelPoint left = first;
  for (std::size_t entry = 0; entry < legend.entries.size(); ++entry) {
    DrawEntry(surface, legend.entries[entry], legend, left);
    const std::size_t column = entry % widths.size();
    left = column + 1 < widths.size() ? left + PixelPoint{widths[column] + EntryGap, 0}
                                      : PixelPoint{first.x, left.y + LineHeight};
  }
}

void DrawTie(PixelSurface& surface, PixelPoint from, PixelPoint to, double width) {
  surface.PixelLine(from, to, {ClearPalette::Tension, width});
}

/// Two walls and white between them, which also shows where colours do not.
void DrawStrut(PixelSurface& surface, PixelPoint from, PixelPoint to, double width) {
  surface.PixelLine(from, to, {ClearPalette::Compression, width});
  surface.PixelLine(from, to, {ClearPalette::Ground, std::max(1.0, width - 2 * WallWidth)});
}

} // namespace strutwright
