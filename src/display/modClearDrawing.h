#pragma once

#include "ClearFurniture.h"
#include "ClearScene.h"
#include "DrawingSurface.h"
#include "FieldTable.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// What a clear drawing shows; to look at what was drawn where.
struct ClearOutcome {
  std::array<ShownLabels, LabelKinds> labels; ///< by LabelKind
  std::string notice;                         ///< what is left out, in words; empty where nothing is
};

/// What is kept from one drawing to the next, so that labels stay where they are and are not placed again: while the
/// view moves or the deflected shape grows nothing of it changes.
class ClearMemory {
 public:
  /// The scene of the model in the tables; made anew only where something that it shows has changed.
  const ClearScene& SceneFor(const SceneRequest& request, const PixelSurface& surface);

  /// The scene that was drawn last.
  const ClearScene& Last() const { return Scene; }

  /// How many scenes were made.
  int MadeCount() const { return Made; }

  int legendPlace = -1; ///< where the legend stood; tried first

 private:
  bool IsSameModel() const;

  bool IsKept = false;
  SceneRequest Request;
  FieldTable Nodes{6};
  FieldTable Members{10};
  std::vector<float> KeptReactions;
  ClearScene Scene;
  int Made = 0;
};

/// Draws the model in the tables and, as the settings ask for, its results: symbols and texts in pixels, no text on
/// another.  The surface has been cleared.  Failures are reported as those of the described drawing.
ClearOutcome DrawClear(PixelSurface& surface, const PixelView& view, const ClearSettings& settings, ClearMemory& memory,
                       const FailureReport& failures = ShowDrawingFailure);

/// Draws the labels of a member once more, for what was drawn over them.  The surface shows what was drawn last.
void DrawLabelsOfMember(PixelSurface& surface, const PixelView& view, const ClearMemory& memory, int m);

/// The view of a surface that shows this window.
PixelView ViewOf(const PixelSurface& surface, const ViewWindow& window);

} // namespace strutwright
