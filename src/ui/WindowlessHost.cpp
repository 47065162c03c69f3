#include "WindowlessHost.h"

#include "AnalysisState.h"
#include "UiState.h"
#include "modGrids.h"
#include "modModelStore.h"

namespace strutwright {

void WindowlessHost::EndAnalysis(bool /*redraw*/) { AnalysisDone = FlagFalse; }

void WindowlessHost::ClearGrids() {
  for (Grid* grid : {&GrJoints, &GrMembers, &jResGr, &mResGr}) ClearGrid(*grid, GridCapacity);
}

} // namespace strutwright
