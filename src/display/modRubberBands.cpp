#include "modRubberBands.h"

#include "DisplayState.h"
#include "modDrawing.h"

#include <cstddef>
#include <optional>

namespace strutwright {

namespace {

std::optional<RubberShape>& Shown(RubberBand band) { return TheMouse.RubberBands.at(static_cast<std::size_t>(band)); }

void DrawInverted(DrawingSurface& surface, RubberBand band, const RubberShape& shape) {
  UsePen(surface, Black);
  surface.SetPenWidth(1);
  surface.SetPenMode(PenMode::Invert);
  if (band == RubberBand::MemberLine) {
    surface.DrawLine(shape.x1, shape.y1, shape.x2, shape.y2);
  } else {
    surface.DrawBox(shape.x1, shape.y1, shape.x2, shape.y2);
  }
  surface.SetPenMode(PenMode::Copy);
}

/// Erases a band where it is and draws it at its new place, if it has one.
void Replace(RubberBand band, const std::optional<RubberShape>& shape) {
  if (DisplaySurface == nullptr || Shown(band) == shape) return;
  const bool done = TryDrawing([&] {
    if (Shown(band)) DrawInverted(*DisplaySurface, band, *Shown(band));
    if (shape) DrawInverted(*DisplaySurface, band, *shape);
  });
  if (!done) return ForgetRubberBands();
  Shown(band) = shape;
}

} // namespace

void ShowRubberBand(RubberBand band, const RubberShape& shape) { Replace(band, shape); }

void HideRubberBand(RubberBand band) { Replace(band, std::nullopt); }

void HideRubberBands() {
  HideRubberBand(RubberBand::ZoomBox);
  HideRubberBand(RubberBand::MemberLine);
  HideRubberBand(RubberBand::SnapMark);
}

void ForgetRubberBands() { TheMouse.RubberBands = {}; }

} // namespace strutwright
