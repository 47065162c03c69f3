#include "modRunAnalysis.h"

#include "AnalysisState.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modGrids.h"
#include "modModelStore.h"

namespace strutwright {

bool runAnalysis() {
  RebuildModelFromGrids();
  AnalysisDone = FlagTrue;
  TheHost().RefreshStatusTexts();
  std::int16_t ok = FlagTrue;
  AnalyseTruss(ok);
  if (ok == FlagFalse) {
    TheHost().EndAnalysis(true);
    return false;
  }
  resultGrids();
  return true;
}

} // namespace strutwright
