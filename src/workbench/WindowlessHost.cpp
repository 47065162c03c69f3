#include "WindowlessHost.h"

#include "AnalysisState.h"
#include "EditingState.h"
#include "FileSystem.h"
#include "modGrids.h"
#include "modModelStore.h"

namespace strutwright {

void WindowlessHost::EndAnalysis(bool /*redraw*/) { AnalysisDone = FlagFalse; }

void WindowlessHost::ClearGrids() {
  for (Grid* grid : {&GrJoints, &GrMembers, &jResGr, &mResGr}) ClearGrid(*grid, GridCapacity);
  for (Grid* grid : {&GrJoints, &GrMembers}) NumberRows(*grid);
}

void WindowlessHost::SavePicture(const std::string& /*path*/) { throw FileError("There is no drawing to save"); }

} // namespace strutwright
