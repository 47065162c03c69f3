#include "AnalysisFixture.h"
#include "modAnalysis.h"
#include "modMember.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

/// Part of the largest value of its kind by which a result may be off.
constexpr double SolvedTolerance = 1e-5;

/// Trusses solved by hand, the working above each.
class HandSolvedTest : public AnalysisFixture {
 protected:
  static void Analyse(const ModelData& model) {
    SetTables(model);
    ASSERT_EQ(AnalyseTruss(), AnalysisEnd::Done);
  }

  static void ExpectForces(const std::vector<double>& expected) {
    std::vector<double> forces;
    for (int m = 1; m <= MemberCount; ++m) forces.push_back(MemberForce(m));
    ExpectAllNear(forces, expected, "member");
  }

  static void ExpectDisplacements(const std::vector<double>& expected) {
    ExpectAllNear({Displacements.begin() + 1, Displacements.end()}, expected, "displacement");
  }

  static void ExpectReactions(const std::vector<double>& expected) {
    std::vector<double> reactions;
    for (std::size_t d = 1; d < Reactions.size(); ++d) reactions.push_back(FixedDof[d] == 1 ? Reactions[d] : 0.0F);
    ExpectAllNear(reactions, expected, "reaction");
  }

 private:
  static void ExpectAllNear(const std::vector<double>& got, const std::vector<double>& expected, const char* what) {
    ASSERT_EQ(got.size(), expected.size());
    double largest = 0;
    for (const double value : expected) largest = std::max(largest, std::abs(value));
    for (std::size_t i = 0; i < got.size(); ++i) {
      EXPECT_NEAR(got[i], expected[i], SolvedTolerance * largest + 1e-9) << what << " " << i + 1;
    }
  }
};

// Node 3, in x: 5 - 0.8 F3 = 0, F3 = 6.25; in y: -10 - F2 - 0.6 F3 = 0, F2 = -13.75.  Node 2, in x: F1 = 0.
// Node 1: R = (-5, -3.75); node 2: R = 13.75 upward.
TEST_F(HandSolvedTest, TriangleInEquilibrium) {
  Analyse(Triangle());
  ExpectForces({0, -13.75, 6.25});
  ExpectReactions({-5, -3.75, 0, 13.75, 0, 0});
}

// Member 2 shortens by 13.75 * 3000 / 200000 = 0.20625 = -v3.  Member 3 stretches by 6.25 * 5000 / 200000 = 0.15625
// = 0.8 u3 + 0.6 v3, so u3 = (0.15625 + 0.12375) / 0.8 = 0.35.
TEST_F(HandSolvedTest, TriangleInMovement) {
  Analyse(Triangle());
  ExpectDisplacements({0, 0, 0, 0, 0.35, -0.20625});
}

TEST_F(HandSolvedTest, TriangleMemberByMember) {
  Analyse(Triangle());
  EXPECT_EQ(MemberState(2), "C");
  EXPECT_EQ(MemberState(3), "T");
  EXPECT_NEAR(MemberStress(2), -13.75, 1e-4); // 1000 * F / 1000
  EXPECT_NEAR(MemberStretch(2), -0.20625, 1e-6);
  EXPECT_NEAR(MemberStretch(3), 0.15625, 1e-6);
}

/// Three bars from a level line of pins, 30 degrees apart, to one node 0.2 m below the middle pin; 200 kN hang there.
ModelData ThreeBars() {
  const auto half = static_cast<float>(0.2 * std::tan(std::acos(-1.0) / 6));
  ModelData model{{{0, 0, 0, 0, 3}, {half, 0, 0, 0, 3}, {2 * half, 0, 0, 0, 3}, {half, -0.2F, 0, -200}}, {}};
  for (const float pin : {1.0F, 2.0F, 3.0F}) model.members.push_back({pin, 4, 3000, 10});
  return model;
}

// The middle bar stretches by v, the outer ones by v cos 30 over the length L / cos 30:
// F2 = P / (1 + 2 cos^3 30) = 86.99290, F1 = F3 = F2 cos^2 30 = 65.24468, v = F2 L / EA = 0.5799527.
TEST_F(HandSolvedTest, ThreeBarsThatShareALoad) {
  Analyse(ThreeBars());
  ExpectForces({65.24468, 86.99290, 65.24468});
  EXPECT_NEAR(NodeDisplacement(4, "y"), -0.5799527, 1e-5);
  EXPECT_NEAR(NodeDisplacement(4, "x"), 0, 1e-5);
}

// Bars of 4, 3 and 3 mm with EA = 30000: k = 7500, 10000, 10000.  (17500 -10000; -10000 20000) v = (-0.5, -1):
// v2 = (-0.5 * 20000 - 1 * 10000) / 2.5e8 = -8e-5, v3 = (-1 * 17500 - 0.5 * 10000) / 2.5e8 = -9e-5.
// F1 = 7500 v2 = -0.6, F2 = 10000 (v3 - v2) = -0.1, F3 = -10000 v3 = 0.9.
TEST_F(HandSolvedTest, BarsInOneLineGuidedSideways) {
  Analyse({{{0, 0, 0, 0, 3}, {0, 0.004F, 0, -0.5F, 2}, {0, 0.007F, 0, -1, 2}, {0, 0.010F, 0, 0, 3}},
           {{1, 2, 30000, 1}, {2, 3, 30000, 1}, {3, 4, 30000, 1}}});
  ExpectForces({-0.6, -0.1, 0.9});
  ExpectDisplacements({0, 0, 0, -8e-5, 0, -9e-5, 0, 0});
  ExpectReactions({0, 0.6, 0, 0, 0, 0, 0, 0.9});
}

// Nothing moves, so the prestress stays: the bar pulls both supports inward, and they hold against it.
TEST_F(HandSolvedTest, PrestressBetweenFixedNodes) {
  Analyse({{{0, 0, 0, 0, 3}, {3, 4, 0, 0, 3}}, {{1, 2, 200, 1000, 10}}});
  ExpectForces({10});
  ExpectReactions({-6, -8, 6, 8});
}

// Heated by 10 degrees, PS = -E A alpha dT = -206.01 * 400 * 1.2e-5 * 10 = -9.88848; free to move, the bar grows by
// alpha dT L = 1.2e-5 * 10 * 1000 = 0.12 mm and is left without force.
TEST_F(HandSolvedTest, WarmBarThatMayGrow) {
  Analyse({{{0, 0, 0, 0, 3}, {1, 0, 0, 0, 1}}, {{1, 2, 206.01F, 400, -9.88848F}}});
  ExpectDisplacements({0, 0, 0.12, 0});
  EXPECT_NEAR(MemberForce(1), 0, SolvedTolerance * 9.88848);
}

// k = 50 kN/mm: 10 kN stretch the bar by 0.2 mm; 7 kN act on the pin itself.
TEST_F(HandSolvedTest, LoadOnASupportGoesStraightIntoTheReaction) {
  Analyse({{{0, 0, 7, -3, 3}, {4, 0, 10, 0, 1}}, {{1, 2}}});
  ExpectDisplacements({0, 0, 0.2, 0});
  ExpectReactions({-17, 3, 0, 0});
}

/// A corner node held by a bar to the left and one below, each 4 m; its own support bears `code`.
ModelData Corner(float code) { return {{{0, 4, 0, 0, 3}, {4, 0, 0, 0, 3}, {4, 4, 10, 10, code}}, {{1, 3}, {2, 3}}}; }

// Each bar has k = 50 kN/mm, so that 10 kN move the node by 0.2 mm in every direction that it is free in.
TEST_F(HandSolvedTest, SupportCodesHoldTheirDirections) {
  Analyse(Corner(0));
  ExpectDisplacements({0, 0, 0, 0, 0.2, 0.2});
  Analyse(Corner(1));
  ExpectDisplacements({0, 0, 0, 0, 0.2, 0});
  Analyse(Corner(2));
  ExpectDisplacements({0, 0, 0, 0, 0, 0.2});
  for (const float both : {3.0F, 1.5F, -1.0F}) {
    Analyse(Corner(both));
    ExpectDisplacements({0, 0, 0, 0, 0, 0});
    ExpectReactions({0, 0, 0, 0, -10, -10});
  }
}

// The second bar is ignored and lends its nodes the first one's k = 50 in x: node 3 is held by 100, not by 50.
TEST_F(HandSolvedTest, IgnoredMemberStiffensLikeItsPredecessor) {
  Analyse({{{0, 0, 0, 0, 3}, {0, 1, 0, 0, 3}, {4, 0, 10, 0, 1}}, {{1, 3}, {2, 3, -200}}});
  ExpectDisplacements({0, 0, 0, 0, 0.1, 0});
  ExpectForces({5, 0});
}

} // namespace
} // namespace strutwright
