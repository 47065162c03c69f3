#pragma once

#include "AnalysisState.h"
#include "CheckedTruss.h"
#include "FakePlatform.h"
#include "ModelBuilder.h"
#include "modAnalysis.h"
#include "modCures.h"
#include "modMechanisms.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace strutwright {

/// The state of a program that has just started, and short ways to analyse and to check.
class CheckFixture : public PlatformTest {
 protected:
  CheckFixture() {
    ResetModel();
    TheAnalysis = AnalysisState{};
  }

  static CheckedTruss TrussOf(const ModelData& model) {
    SetTables(model);
    return ReadTruss();
  }

  static StabilityReport StabilityOf(const ModelData& model) { return JudgeStability(TrussOf(model)); }

  /// Analyses the model as the program does; whether there are results.
  bool Analyse(const ModelData& model) {
    SetTables(model);
    AnalysisDone = FlagTrue;
    FailedCheck.reset();
    const AnalysisEnd end =
        AnalyseTruss({[this](const std::vector<MemberAtFault>& seen) { atFault = seen; }, [] { return ""; }});
    if (end == AnalysisEnd::Done) return true;
    AnalysisDone = FlagFalse;
    FailedCheck = end == AnalysisEnd::Unstable ? UnstableCheck : EmptyModelCheck;
    return false;
  }

  std::vector<MemberAtFault> atFault; ///< of the last analysis
};

/// Published mechanisms, with E 200 and A 1000.
inline ModelData MechanismM1() {
  return {{{0, 0, 0, 0, 3}, {3, 0, 0, -10, 0}, {0, 4, 0, 0, 1}}, {{1, 2}, {2, 3}, {1, 3}}};
}
inline ModelData MechanismM2() {
  return {{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {4, 3, 10, 0, 0}, {0, 3, 0, 0, 0}}, {{1, 2}, {2, 3}, {3, 4}, {4, 1}}};
}
inline ModelData MechanismM3() {
  return {{{0, 0, 0, 0, 3}, {0, 4, 1, -0.5F, 0}, {0, 7, 1, -1, 0}, {0, 10, 0, 0, 3}}, {{1, 2}, {2, 3}, {3, 4}}};
}
inline ModelData MechanismM4() {
  return {{{0, 0, 0, 0, 1}, {4, 0, 0, 0, 1}, {2, 3, 10, 0, 1}}, {{1, 2}, {2, 3}, {3, 1}}};
}

} // namespace strutwright
