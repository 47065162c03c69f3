#include "modRunAnalysis.h"

#include "AnalysisState.h"
#include "AnalysisTexts.h"
#include "ModelEvents.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modFileCommands.h"
#include "modGrids.h"
#include "modModelStore.h"

#include <cstdint>
#include <exception>
#include <string>
#include <vector>

namespace strutwright {

namespace {

bool MakeScratchCopy() {
  // What is too large to be analysed is too large to be read back; the analysis says so in plainer words.
  if (NodeCount > MaxAnalysedNodes) return true;
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

void LeaveAnalysis() {
  AnalysisDone = FlagFalse;
  ModelEvents().AnalysisStateChanged();
}

void ShowMembersAtFault(const std::vector<MemberAtFault>& atFault) {
  for (const MemberAtFault& each : atFault) ShowMessage(MessageIcon::Critical, IgnoredText(each));
}

void RefuseModel(const std::string& text) {
  ShowMessage(MessageIcon::Critical, text);
  LeaveAnalysis();
}

/// Shows why there are no results.
void ReportEnd(AnalysisEnd end) {
  switch (end) {
  case AnalysisEnd::Done: return;
  case AnalysisEnd::TooManyNodes:
    return RefuseModel("The model has " + std::to_string(NodeCount) + " nodes, but at most " +
                       std::to_string(MaxAnalysedNodes) +
                       " can be analysed.\nRemove nodes and run the analysis again.");
  case AnalysisEnd::UnknownNode:
    return RefuseModel(
        UnknownNodeText(FindUnknownNode().value(), "Correct the member's node numbers and run the analysis again."));
  case AnalysisEnd::NoNodes: return ReportAnalysisFailure(EmptyModelCheck);
  case AnalysisEnd::Unstable: return ReportAnalysisFailure(UnstableCheck);
  }
}

bool Analyse() {
  const AnalysisEnd end = AnalyseTruss({ShowMembersAtFault, SolvingText});
  ReportEnd(end);
  return end == AnalysisEnd::Done;
}

void EndWithoutResults() {
  EndAnalysis();
  ModelEvents().ModelChanged();
}

} // namespace

bool runAnalysis(ScratchCopy scratch) {
  RebuildModelFromGrids();
  AnalysisDone = FlagTrue;
  FailedCheck.reset(); // it may fail before the equations are reached
  ModelEvents().AnalysisStateChanged();
  try {
    const bool ready = scratch == ScratchCopy::None || MakeScratchCopy();
    if (ready && Analyse()) {
      resultGrids();
      return true;
    }
  } catch (...) {
    // Half-made arrays are no results, whoever shows the user why.
    EndWithoutResults();
    throw;
  }
  EndWithoutResults();
  return false;
}

void ReportAnalysisFailure(int code) {
  FailedCheck = code;
  ShowMessage(MessageIcon::Critical, AnalysisFailureText(code));
  LeaveAnalysis();
}

} // namespace strutwright
