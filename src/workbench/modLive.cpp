#include "modLive.h"

#include "AnalysisState.h"
#include "AnalysisTexts.h"
#include "LongWork.h"
#include "ModelEvents.h"
#include "WorkbenchState.h"
#include "modAnalysis.h"
#include "modCheck.h"
#include "modGrids.h"
#include "modKeepResults.h"
#include "modModelStore.h"

#include <chrono>

namespace strutwright {

namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// As Run Analysis does, but for what it shows.
bool AnalyseQuietly() {
  RebuildModelFromGrids();
  FailedCheck.reset();
  const AnalysisEnd end = AnalyseTruss({[](const auto& /*atFault*/) {}, SolvingText});
  if (end == AnalysisEnd::Unstable) FailedCheck = UnstableCheck;
  return end == AnalysisEnd::Done;
}

void KeepTables() {
  TheLive.nodes = NodeTable;
  TheLive.members = MemberTable;
  TheLive.analysed = true;
}

void EndWithout() {
  if (AnalysisDone != FlagFalse) EndAnalysis();
  RebuildModelFromGrids(); // fields 6 to 9 of a failed analysis are no results
}

} // namespace

bool IsLive() { return TheLive.on && !TheLive.paused; }

void SwitchLive(bool on) {
  TheLive.on = on;
  ResumeLive();
}

void ResumeLive() {
  TheLive.paused = false;
  TheLive.analysed = false;
}

bool LiveIsUpToDate() {
  RebuildKeepingResults();
  return TheLive.analysed && NodeTable == TheLive.nodes && MemberTable == TheLive.members;
}

void AnalyseLive() {
  const Clock::time_point start = Clock::now();
  bool done = false;
  bool cancelled = false;
  try {
    done = AnalyseQuietly();
  } catch (const WorkCancelled&) {
    cancelled = true;
  }
  const bool late = MillisecondsSince(start) > TheLive.mostTime;
  if (done) {
    AnalysisDone = FlagTrue;
    ListResultsQuietly();
  } else {
    EndWithout();
  }
  KeepTables();
  TheLive.paused = cancelled || late;
  ModelEvents().AnalysisStateChanged();
}

const char* LiveText() {
  if (!TheLive.on) return "";
  return TheLive.paused ? "Live paused" : "Live";
}

std::string LiveMotionText() {
  const auto& mechanisms = TheCheck.report.stability.mechanisms;
  return IsLive() && !mechanisms.empty() && CheckIsCurrent() ? mechanisms.front().sentence : "";
}

} // namespace strutwright
