#pragma once

#include "AnalysisState.h"
#include "CheckedTruss.h"
#include "FakePlatform.h"
#include "HandTruss.h"
#include "ModelBuilder.h"
#include "RefinedSolution.h"
#include "modHandSolution.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace strutwright {

/// The state of a program that has just started, and short ways to solve by hand and by stiffness.
class HandFixture : public PlatformTest {
 protected:
  HandFixture() {
    ResetModel();
    TheAnalysis = AnalysisState{};
  }

  static HandTruss HandTrussOf(const ModelData& model) {
    SetTables(model);
    return ReadHandTruss();
  }

  static HandSolution Solved(const ModelData& model) { return SolveByHand(HandTrussOf(model)); }

  /// The double-precision solution by stiffness.
  static RefinedSolution ByStiffness(const ModelData& model) {
    SetTables(model);
    return Refine(ReadTruss());
  }

  /// Whether the freedom of the model in the tables is restrained.
  static int FixedFreedom(std::size_t freedom) { return ReadTruss().fixed[freedom]; }

  /// The end node of a member.
  static int EndOf(const HandTruss& truss, int member) { return truss.members[static_cast<std::size_t>(member - 1)].j; }

  static double LargestOf(const std::vector<double>& values) {
    double largest = 0;
    for (const double value : values) largest = std::max(largest, std::abs(value));
    return largest;
  }
};

} // namespace strutwright
