#pragma once

#include "AxisValues.h"
#include "ClearLegend.h"
#include "ClearScene.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// How many of a kind of label are in view, and how many there would be with room for all.
struct ShownLabels {
  int shown = 0;
  int all = 0;

  bool operator==(const ShownLabels&) const = default;
};

/// What belongs to the view and not to the truss: values of the axes, legend, and what is left out, in words.
struct ClearFurniture {
  std::array<ShownLabels, LabelKinds> labels; ///< by LabelKind
  bool onPaper = false;
  std::string notice;
  std::optional<Bounds> noticeBox;
  bool noticeHides = false; ///< it found no free place: labels under it are not drawn
  ClearLegend legend;
  std::optional<Bounds> legendBox;
  int legendColumns = 1;
  int legendPlace = -1;
  std::vector<PixelLabel> axisValues;

  /// Whether a label at a place of the surface must give way.
  bool Hides(const TurnedBox& label) const;
};

/// Finds their places in this view: the legend in the freest corner, the notice in another, values of the axes at the
/// border where they touch nothing.
/// legendPlace: where the legend stood before, which it keeps while that is free; -1 for none.
ClearFurniture FurnitureOf(const PixelSurface& surface, const PixelView& view, const ClearSettings& settings,
                           const ClearScene& scene, int legendPlace);

void DrawFurniture(PixelSurface& surface, const ClearFurniture& furniture);

/// Light lines at the multiples of the grid spacings, or of the axis' step where those would lie close.
void DrawClearGrid(PixelSurface& surface, const PixelView& view, const ClearSettings& settings);

/// What is left out, in words: "showing 48 of 61 forces; zoom in or point at a member", on paper without the advice.
/// Empty where nothing is.
/// most: kinds that are named, the most important first.
std::string NoticeOf(const std::array<ShownLabels, LabelKinds>& labels, bool onPaper, int most = LabelKinds);

} // namespace strutwright
