#include "modWorkedTruss.h"

#include "ClearFraming.h"
#include "FileState.h"
#include "LongWork.h"
#include "Platform.h"
#include "modKeepResults.h"
#include "modModelStore.h"
#include "modRedraw.h"
#include "modViewTransform.h"
#include "modWorkedFiles.h"
#include "modWorking.h"

#include <optional>

namespace strutwright {

namespace {

constexpr int WorkedPictureWidth = 640; // logical pixels: the width of an upright page
constexpr int WorkedPictureHeight = 360;

void DrawWorkedTruss(DrawingSurface& surface) {
  SetViewWindow(surface, -1, 10, 0, 3);
  TrussView view{.layers = {.grid = false},
                 .extents = ExtentsOfModel(1),
                 .frameExtents = true,
                 .style = DrawingStyle::Clear,
                 .legend = false,
                 .onPaper = true};
  view.loadsScale = ScaleOfArrowsOn(surface, SettingsOf(view)).value_or(view.loadsScale);
  Draw(surface, view);
}

} // namespace

WorkedPicture PictureOfTruss() { return {WorkedPictureWidth, WorkedPictureHeight, DrawWorkedTruss}; }

WorkedDocument WorkedTruss(const std::string& name) {
  return WorkedSolution(name, NodeCount > 0 ? std::optional(PictureOfTruss()) : std::nullopt);
}

void SaveWorkedTruss(const std::string& name) {
  RebuildKeepingResults();
  if (NodeCount == 0 || MemberCount == 0) {
    ShowMessage(MessageIcon::Information, "There is no truss to work yet\nEnter nodes and members first.");
    return;
  }
  try {
    SaveWorked(WorkedTruss(name), CurrentFileName.empty() ? name : CurrentFileName);
  } catch (const WorkCancelled&) {
    // The user knows.
  }
}

} // namespace strutwright
