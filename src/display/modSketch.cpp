#include "modSketch.h"

#include "AxisValues.h"
#include "ClearLegend.h"
#include "ClearPalette.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>

namespace strutwright {

namespace {

constexpr double PickReach = 9; // pixels
constexpr double LitWidth = 4;
constexpr double MarkedRadius = ClearSize::NodeRadius + 2;
constexpr double LeastScaleBar = 40; // pixels
constexpr LineLook StrokeLook{ClearPalette::Deflected, 1.6, true};

bool IsLit(int key, int lit) { return lit != 0 && key == lit; }

void DrawPlainLine(PixelSurface& surface, PixelPoint from, PixelPoint to, SketchTone tone) {
  switch (tone) {
  case SketchTone::Tension: return DrawTie(surface, from, to, 2.6);
  case SketchTone::Compression: return DrawStrut(surface, from, to, 4.2);
  case SketchTone::Unknown: return surface.PixelLine(from, to, {ToneColour(tone), 1.6, true});
  case SketchTone::Faint:
  case SketchTone::NoForce: return surface.PixelLine(from, to, {ToneColour(tone), 1});
  default: return surface.PixelLine(from, to, {ToneColour(tone), 2});
  }
}

void DrawLines(PixelSurface& surface, const PlacedSketch& placed, int lit) {
  for (std::size_t k = 0; k < placed.sketch.lines.size(); ++k) {
    const SketchLine& line = placed.sketch.lines[k];
    const ClearBar& bar = placed.scene.truss.bars[k];
    if (IsLit(line.key, lit)) surface.PixelLine(bar.from, bar.to, {ClearPalette::Deflected, LitWidth});
    if (line.hasHead) {
      DrawArrow(surface, bar.from, bar.to, IsLit(line.key, lit) ? ClearPalette::Deflected : ToneColour(line.tone));
    } else if (!IsLit(line.key, lit)) {
      DrawPlainLine(surface, bar.from, bar.to, line.tone);
    }
  }
}

void DrawPoints(PixelSurface& surface, const PlacedSketch& placed) {
  for (const ClearSupport& support : placed.scene.supports) DrawSupport(surface, support, {});
  for (std::size_t k = 0; k < placed.sketch.points.size(); ++k) {
    const SketchPoint& point = placed.sketch.points[k];
    if (!point.isDot) continue;
    const PixelPoint at = placed.scene.truss.joints[k + 1].at;
    if (point.tone == SketchTone::Marked) {
      surface.PixelDot(at, MarkedRadius, {ClearPalette::Deflected, 2.5}, ClearPalette::Ground);
    } else {
      DrawNodeDot(surface, at);
    }
  }
}

void DrawArrows(PixelSurface& surface, const PlacedSketch& placed, int lit) {
  for (std::size_t k = 0; k < placed.sketch.arrows.size(); ++k) {
    const SketchArrow& arrow = placed.sketch.arrows[k];
    const ClearArrow& at = placed.scene.arrows[k];
    const Colour colour = IsLit(arrow.key, lit) ? ClearPalette::Deflected : ToneColour(arrow.tone);
    if (arrow.hasHead) DrawArrow(surface, at.tail, at.tip, colour);
    if (!arrow.hasHead) surface.PixelLine(at.tail, at.tip, {colour, 1});
  }
}

void DrawTexts(PixelSurface& surface, const PlacedSketch& placed) {
  for (const ClearLabel& label : placed.scene.labels) {
    if (!label.IsPlaced()) continue;
    PixelLabel text{label.box.centre, label.box.along, label.text, label.colour, placed.scene.text.size};
    if (label.kind == LabelKind::MemberNumber) {
      --text.size;
      text.box = {label.halfWidth - 0.5, label.halfHeight - 0.5};
      text.frame = ClearPalette::Frame;
    }
    surface.PixelText(text);
  }
  for (const PlacedSketchText& text : placed.texts) {
    surface.PixelText({text.centre, {1, 0}, text.text, ToneColour(text.tone), ClearSize::LargestText});
  }
}

void WriteFromLeft(PixelSurface& surface, double left, double middle, const std::string& text, Colour colour) {
  constexpr int Size = ClearSize::SmallText;
  surface.PixelText({{left + surface.TextWidth(text, Size) / 2, middle}, {1, 0}, text, colour, Size});
}

/// A bar of a round length with its value, at the lower left.
void DrawScaleBar(PixelSurface& surface, const PlacedSketch& placed) {
  if (placed.sketch.unit.empty() || placed.sketch.lines.empty()) return;
  const double value = RoundStepAbove(LeastScaleBar / placed.scale);
  const double length = value * placed.scale;
  if (!std::isfinite(length)) return;
  const PixelPoint from{placed.area.left + 8, placed.area.bottom - 10};
  const PixelPoint to{from.x + length, from.y};
  surface.PixelLine(from, to, {ClearPalette::Ink, 1.4});
  for (const PixelPoint end : {from, to}) {
    surface.PixelLine({end.x, end.y - 4}, {end.x, end.y + 4}, {ClearPalette::Ink, 1.4});
  }
  WriteFromLeft(surface, to.x + 6, to.y, NumberText(static_cast<float>(value)) + " " + placed.sketch.unit,
                ClearPalette::Ink);
}

void DrawStroke(PixelSurface& surface, const PlacedSketch& placed) {
  if (!placed.sketch.stroke) return;
  const SketchStroke& stroke = *placed.sketch.stroke;
  const auto part = PartWithin(placed.area, placed.At(stroke.x0, stroke.y0), placed.At(stroke.x1, stroke.y1));
  if (part) surface.PixelLine(part->from, part->to, StrokeLook);
}

} // namespace

Colour ToneColour(SketchTone tone) {
  switch (tone) {
  case SketchTone::Faint: return ClearPalette::Frame;
  case SketchTone::Tension: return ClearPalette::Tension;
  case SketchTone::Compression: return ClearPalette::Compression;
  case SketchTone::NoForce: return ClearPalette::ZeroBar;
  case SketchTone::Reaction: return ClearPalette::Reaction;
  case SketchTone::Unknown: return ClearPalette::MemberNumber;
  case SketchTone::Marked: return ClearPalette::Deflected;
  case SketchTone::Ink: break;
  }
  return ClearPalette::Ink;
}

void DrawSketch(PixelSurface& surface, const PlacedSketch& placed, int lit) {
  DrawLines(surface, placed, lit);
  DrawPoints(surface, placed);
  DrawArrows(surface, placed, lit);
  DrawStroke(surface, placed);
  DrawTexts(surface, placed);
  DrawScaleBar(surface, placed);
  if (placed.sketch.title.empty()) return;
  WriteFromLeft(surface, placed.area.left + 8, placed.area.top + 11, placed.sketch.title, ClearPalette::Ink);
}

void DrawSheet(PixelSurface& surface, const std::vector<PlacedSketch>& sheet, int lit) {
  for (const PlacedSketch& placed : sheet) DrawSketch(surface, placed, lit);
}

PixelPoint ToSketch(const PlacedSketch& placed, PixelPoint pixel) {
  return {(pixel.x - placed.origin.x) / placed.scale, (placed.origin.y - pixel.y) / placed.scale};
}

int SketchAt(const std::vector<PlacedSketch>& sheet, PixelPoint pixel) {
  for (std::size_t k = 0; k < sheet.size(); ++k) {
    if (sheet[k].area.Contains(pixel)) return static_cast<int>(k);
  }
  return -1;
}

int PointAt(const PlacedSketch& placed, PixelPoint pixel) {
  int nearest = -1;
  double reach = PickReach;
  for (std::size_t k = 0; k < placed.sketch.points.size(); ++k) {
    if (!placed.sketch.points[k].isDot) continue;
    const double distance = LengthOf(placed.scene.truss.joints[k + 1].at - pixel);
    if (distance >= reach) continue;
    reach = distance;
    nearest = static_cast<int>(k);
  }
  return nearest;
}

int KeyAt(const PlacedSketch& placed, PixelPoint pixel) {
  int key = 0;
  double reach = PickReach;
  const auto consider = [&](int each, PixelPoint from, PixelPoint to) {
    const double distance = each == 0 ? reach : DistanceToLine(pixel, from, to);
    if (distance >= reach) return;
    reach = distance;
    key = each;
  };
  for (std::size_t k = 0; k < placed.sketch.lines.size(); ++k) {
    consider(placed.sketch.lines[k].key, placed.scene.truss.bars[k].from, placed.scene.truss.bars[k].to);
  }
  for (std::size_t k = 0; k < placed.sketch.arrows.size(); ++k) {
    consider(placed.sketch.arrows[k].key, placed.scene.arrows[k].tail, placed.scene.arrows[k].tip);
  }
  return key;
}

} // namespace strutwright
