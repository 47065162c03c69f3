// The solution by hand against the one by stiffness, on trusses whose kind is known by how they were put together.

#include "HandFamilies.h"
#include "HandFixture.h"
#include "LargeModels.h"
#include "modAccuracy.h"
#include "modAnalysis.h"
#include "modForceDiagram.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modPlanar.h"
#include "modSections.h"

#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

constexpr std::uint32_t HandSeed = 20261122;
constexpr int HandTrussCount = 300;
/// Of the largest force: against the solution by stiffness, and among the methods by hand.
constexpr double AgainstStiffness = 1e-9;
constexpr double AmongThemselves = 1e-12;

using HandAgainstStiffnessTest = HandFixture;

/// One of the three hundred, solved.
struct SolvedTruss {
  int number = 0;
  DeterminateTruss made;
  HandTruss truss;
  HandSolution solution;
};

/// All of them, made and solved once for all tests.
const std::vector<SolvedTruss>& SolvedTrusses() {
  static const std::vector<SolvedTruss> solved = [] {
    std::vector<SolvedTruss> all;
    std::mt19937 random(HandSeed);
    for (int number = 0; number < HandTrussCount; ++number) {
      DeterminateTruss made = SeededDeterminate(number, random);
      SetTables(made.model);
      const HandTruss truss = ReadHandTruss();
      all.push_back({number, std::move(made), truss, SolveByHand(truss)});
    }
    return all;
  }();
  return solved;
}

double ForceIn(const HandSolution& solution, int member) {
  return solution.forces.members[static_cast<std::size_t>(member)];
}

int CountOf(const HandSolution& solution, HandStepKind kind) {
  return static_cast<int>(std::count_if(solution.steps.begin(), solution.steps.end(),
                                        [kind](const HandStep& step) { return step.kind == kind; }));
}

TEST_F(HandAgainstStiffnessTest, JointsAgreeOnThreeHundredTrusses) {
  for (const auto& [number, made, truss, solution] : SolvedTrusses()) {
    SCOPED_TRACE(number);
    const RefinedSolution stiff = ByStiffness(made.model);
    const double largest = LargestOf(stiff.forces);
    ASSERT_EQ(solution.stop, "");
    for (std::size_t m = 1; m < stiff.forces.size(); ++m) {
      ASSERT_NEAR(solution.forces.members[m], stiff.forces[m], AgainstStiffness * largest) << "member " << m;
    }
    for (std::size_t d = 1; d < stiff.reactions.size(); ++d) {
      if (solution.forces.reactionKnown[d] == 0 || FixedFreedom(d) == 0) continue;
      ASSERT_NEAR(solution.forces.reactions[d], stiff.reactions[d], AgainstStiffness * largest) << "freedom " << d;
    }
  }
}

TEST_F(HandAgainstStiffnessTest, SimpleCompoundAndComplexAreKeptApart) {
  for (const auto& [number, made, truss, solution] : SolvedTrusses()) {
    SCOPED_TRACE(number);
    ASSERT_EQ(solution.determinacy.kind, made.kind) << solution.determinacy.sentence;
    const int sections = CountOf(solution, HandStepKind::Section);
    const int together = CountOf(solution, HandStepKind::Together);
    const auto hinges = static_cast<int>(solution.reactions.hinges.size());
    EXPECT_EQ(together, made.kind == TrussKind::Complex ? 1 : 0);
    EXPECT_GE(sections + hinges, made.kind == TrussKind::Compound ? 1 : 0);
    EXPECT_LE(sections, made.kind == TrussKind::Simple ? 0 : 1);
  }
}

TEST_F(HandAgainstStiffnessTest, TheAnalysisAgreesWithinTheDigitsThatTheCheckReports) {
  int compared = 0;
  for (const auto& [number, made, truss, solution] : SolvedTrusses()) {
    SCOPED_TRACE(number);
    SetTables(made.model);
    AnalysisDone = FlagTrue;
    ASSERT_EQ(AnalyseTruss(), AnalysisEnd::Done);
    const CheckedTruss checked = ReadTruss();
    const int digits = CompareResults(checked, Refine(checked)).digits;
    if (digits > 0) ++compared;
    const double allowed = std::pow(10.0, -digits) * LargestOf(solution.forces.members);
    for (int m = 1; m <= MemberCount; ++m) ASSERT_NEAR(MemberForce(m), ForceIn(solution, m), allowed) << m;
  }
  EXPECT_GT(compared, HandTrussCount - 20);
}

/// A point somewhere in the box around the truss.
double Within(const std::vector<double>& coordinates, std::mt19937& random) {
  const auto [low, high] = std::minmax_element(coordinates.begin() + 1, coordinates.end());
  return *low + (*high - *low) * (1.4 * Below(100001, random) / 100000 - 0.2);
}

TEST_F(HandAgainstStiffnessTest, AThousandRandomSectionsAgree) {
  std::mt19937 random(HandSeed);
  int sections = 0;
  int equations = 0;
  for (const auto& [number, made, truss, solution] : SolvedTrusses()) {
    SCOPED_TRACE(number);
    if (sections >= 1000) break;
    const double largest = LargestOf(solution.forces.members);
    for (int attempt = 0; attempt < 60; ++attempt) {
      const HandSection section = SectionAlong(
          truss, {Within(truss.x, random), Within(truss.y, random), Within(truss.x, random), Within(truss.y, random)},
          solution.forces);
      if (!section.whyNot.empty() || section.equations.empty()) continue;
      ++sections;
      for (std::size_t k = 0; k < section.equations.size(); ++k) {
        ++equations;
        ASSERT_EQ(section.equations[k].unknowns.size(), 1U);
        const int member = section.body.forces[static_cast<std::size_t>(section.equations[k].unknowns[0].force)].member;
        ASSERT_NEAR(section.values[k], ForceIn(solution, member), AmongThemselves * largest)
            << section.equations[k].text;
      }
    }
  }
  EXPECT_GE(sections, 1000);
  EXPECT_GT(equations, 2000);
}

/// The model without the loads that stand inside the truss.
ModelData LoadedOutside(ModelData model, const HandTruss& truss) {
  const PlanarTruss planar = FindSpaces(truss);
  std::vector<char> outside(model.nodes.size(), 0);
  for (const int half : planar.faces[static_cast<std::size_t>(planar.outer)]) {
    outside[static_cast<std::size_t>(HeadOf(truss, half) - 1)] = 1;
  }
  for (std::size_t n = 0; n < model.nodes.size(); ++n) {
    if (outside[n] == 0) model.nodes[n].forceX = model.nodes[n].forceY = 0;
  }
  return model;
}

TEST_F(HandAgainstStiffnessTest, TheForceDiagramAgreesAndCloses) {
  int diagrams = 0;
  for (const auto& [number, made, truss, solvedWithAll] : SolvedTrusses()) {
    SCOPED_TRACE(number);
    if (!WhyNotPlanar(truss).empty()) continue;
    const HandTruss outside = HandTrussOf(LoadedOutside(made.model, truss));
    const HandSolution solution = outside.load == truss.load ? solvedWithAll : SolveByHand(outside);
    const ForceDiagram diagram = DrawForceDiagram(outside, solution);
    ASSERT_EQ(diagram.whyNot, "");
    ++diagrams;
    const double largest = LargestOf(solution.forces.members);
    EXPECT_LT(diagram.closingError, 2 * AmongThemselves * largest);
    for (const DiagramLine& line : diagram.lines) {
      if (line.kind != ForceKind::Member) continue;
      ASSERT_NEAR(line.force, ForceIn(solution, line.member), AmongThemselves * largest) << "member " << line.member;
    }
  }
  EXPECT_GT(diagrams, 200);
}

} // namespace
} // namespace strutwright
