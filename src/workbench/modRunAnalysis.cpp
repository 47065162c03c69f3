#include "modRunAnalysis.h"

#include "AnalysisState.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modFileCommands.h"
#include "modGrids.h"
#include "modModelStore.h"

#include <cstdint>
#include <exception>
#include <string>

namespace strutwright {

namespace {

bool MakeScratchCopy() {
  // What is too large to be analysed is too large to be read back; the analysis says so in plainer words.
  if (NodeCount > MostAnalysedNodes) return true;
  try {
    writeScratchCopy();
    return true;
  } catch (const std::exception& failure) {
    ShowMessage(MessageIcon::Critical,
                std::string("The scratch copy of the model can't be written or read back - Aborting analysis\n") +
                    failure.what());
    return false;
  }
}

bool Analyse() {
  std::int16_t ok = FlagTrue;
  AnalyseTruss(ok);
  return ok != FlagFalse;
}

} // namespace

bool runAnalysis(ScratchCopy scratch) {
  RebuildModelFromGrids();
  AnalysisDone = FlagTrue;
  FailedCheck.reset(); // it may fail before the equations are reached
  TheHost().RefreshStatusTexts();
  try {
    const bool ready = scratch == ScratchCopy::None || MakeScratchCopy();
    if (ready && Analyse()) {
      resultGrids();
      return true;
    }
  } catch (...) {
    // Half-made arrays are no results, whoever tells the user why.
    TheHost().EndAnalysis(true);
    throw;
  }
  TheHost().EndAnalysis(true);
  return false;
}

} // namespace strutwright
