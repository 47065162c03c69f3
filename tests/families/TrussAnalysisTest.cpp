// Every truss of every family analyses, and its forces are in equilibrium and those of the textbooks.

#include "AnalysisState.h"
#include "FakePlatform.h"
#include "TrussFixture.h"
#include "modAnalysis.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

// Of the largest force in the truss; the equations are solved in 32-bit floats.
constexpr double NodeTolerance = 5e-5;  // what may be left over at one node
constexpr double ForceTolerance = 2e-3; // what that adds up to along the truss

class TrussAnalysisTest : public PlatformTest {
 protected:
  void SetUp() override {
    TheModel = ModelState{};
    TheAnalysis = AnalysisState{};
  }

  /// Makes a truss the open model and analyses it.
  static bool Analyse(const TrussFamily& family, const TrussTexts& texts) {
    TakeModel(MakeTruss(family, texts));
    return AnalyseTruss() == AnalysisEnd::Done;
  }

  static double Force(int m) { return MemberTable(m, MemberFieldForce); }

  static double LargestForce() {
    double largest = 0;
    for (int m = 1; m <= MemberCount; ++m) largest = std::max(largest, std::fabs(Force(m)));
    return largest;
  }

  static double Reaction(int n, bool alongX) {
    const int code = static_cast<int>(NodeTable(n, NodeSupport));
    const bool held = code != 0 && code != (alongX ? 1 : 2);
    return held ? Reactions.at(alongX ? XFreedom(n) : YFreedom(n)) : 0;
  }
};

/// What is left over of loads, reactions and member forces at a node, in kN.
struct Rest {
  double x = 0;
  double y = 0;
};

Rest MemberPull(int m, int n) {
  const double c = MemberTable(m, MemberFieldCos) * MemberTable(m, MemberFieldForce);
  const double s = MemberTable(m, MemberFieldSin) * MemberTable(m, MemberFieldForce);
  if (RoundNodeNumber(MemberTable(m, MemberNodeI)) == n) return {c, s};
  if (RoundNodeNumber(MemberTable(m, MemberNodeJ)) == n) return {-c, -s};
  return {};
}

TEST_F(TrussAnalysisTest, AnalysesEveryTrussWithEverySupport) {
  for (const TrussFamily& family : TrussFamilies()) {
    for (const int bays : BayCounts(family)) {
      for (const SupportChoice& choice : family.supports) {
        TrussTexts texts = WithBays(family, bays);
        texts.support = choice.name;
        EXPECT_TRUE(Analyse(family, texts)) << NameOf(family, bays) << " " << choice.name;
      }
    }
  }
}

TEST_F(TrussAnalysisTest, BalancesEveryNode) {
  for (const TrussFamily& family : TrussFamilies()) {
    for (const int bays : BayCounts(family)) {
      ASSERT_TRUE(Analyse(family, WithBays(family, bays)));
      const double tolerance = NodeTolerance * LargestForce();
      for (int n = 1; n <= NodeCount; ++n) {
        Rest rest{NodeTable(n, NodeForceX) + Reaction(n, true), NodeTable(n, NodeForceY) + Reaction(n, false)};
        for (int m = 1; m <= MemberCount; ++m) {
          rest.x += MemberPull(m, n).x;
          rest.y += MemberPull(m, n).y;
        }
        EXPECT_NEAR(rest.x, 0, tolerance) << NameOf(family, bays) << " node " << n;
        EXPECT_NEAR(rest.y, 0, tolerance) << NameOf(family, bays) << " node " << n;
      }
    }
  }
}

TEST_F(TrussAnalysisTest, BalancesLoadsAndReactions) {
  for (const TrussFamily& family : TrussFamilies()) {
    for (const int bays : BayCounts(family)) {
      ASSERT_TRUE(Analyse(family, WithBays(family, bays)));
      double x = 0;
      double y = 0;
      double moment = 0; // about the origin
      for (int n = 1; n <= NodeCount; ++n) {
        const double forceX = NodeTable(n, NodeForceX) + Reaction(n, true);
        const double forceY = NodeTable(n, NodeForceY) + Reaction(n, false);
        x += forceX;
        y += forceY;
        moment += NodeTable(n, NodeX) * forceY - NodeTable(n, NodeY) * forceX;
      }
      const double tolerance = ForceTolerance * LargestForce();
      EXPECT_NEAR(x, 0, tolerance) << NameOf(family, bays);
      EXPECT_NEAR(y, 0, tolerance) << NameOf(family, bays);
      EXPECT_NEAR(moment, 0, tolerance * std::max(family.span, family.height)) << NameOf(family, bays);
    }
  }
}

TEST_F(TrussAnalysisTest, AnalysesTheFlattestAndTheSteepest) {
  for (const TrussFamily& family : TrussFamilies()) {
    for (const float steepness : {MinSteepness, family.mostSteepness}) {
      for (const int bays : BayCounts(family)) {
        TrussTexts texts = WithBays(family, bays);
        texts[TrussField::Span] = "100";
        texts[TrussField::Height] = std::to_string(100 * steepness);
        EXPECT_TRUE(Analyse(family, texts)) << NameOf(family, bays) << ", " << steepness;
      }
    }
  }
}

TEST_F(TrussAnalysisTest, SharesTheLoadsBetweenTheSupportsOfASymmetricTruss) {
  for (const TrussFamily& family : TrussFamilies()) {
    for (const int bays : BayCounts(family)) {
      if (family.supports.front().kind != SupportKind::PinRoller) continue;
      ASSERT_TRUE(Analyse(family, WithBays(family, bays)));
      const double half = 10.0 * (bays - 1) / 2;
      EXPECT_NEAR(Reaction(1, false), half, ForceTolerance * LargestForce()) << NameOf(family, bays);
      EXPECT_NEAR(Reaction(NodeCount, false), half, ForceTolerance * LargestForce()) << NameOf(family, bays);
    }
  }
}

/// Twice the middle of a member: equal for two members only where they are one another's mirror image or one.
std::pair<double, double> Place(int m) {
  const auto at = [m](MemberField end, NodeField field) {
    return NodeTable(RoundNodeNumber(MemberTable(m, end)), field);
  };
  return {at(MemberNodeI, NodeX) + at(MemberNodeJ, NodeX), at(MemberNodeI, NodeY) + at(MemberNodeJ, NodeY)};
}

TEST_F(TrussAnalysisTest, GivesMirroredMembersEqualForces) {
  constexpr double SamePlace = 1e-3; // m
  for (const TrussFamily& family : TrussFamilies()) {
    for (const int bays : BayCounts(family)) {
      if (family.supports.front().kind != SupportKind::PinRoller || bays % 2 == 1) continue;
      ASSERT_TRUE(Analyse(family, WithBays(family, bays)));
      const double tolerance = ForceTolerance * LargestForce();
      for (int m = 1; m <= MemberCount; ++m) {
        int images = 0;
        for (int other = 1; other <= MemberCount; ++other) {
          if (std::fabs(Place(m).first + Place(other).first - 2 * family.span) > SamePlace) continue;
          if (std::fabs(Place(m).second - Place(other).second) > SamePlace) continue;
          ++images;
          EXPECT_NEAR(Force(m), Force(other), tolerance) << NameOf(family, bays) << " " << m;
        }
        EXPECT_EQ(images, 1) << NameOf(family, bays) << " " << m;
      }
    }
  }
}

/// The chord members next to midspan, the lower and the upper one, by the middle of the member left of it or over it.
struct ChordForces {
  double lower = 0;
  double upper = 0;
};

ChordForces ForcesNearMidspan(double span, double bay, double upperY) {
  ChordForces forces;
  for (int m = 1; m <= MemberCount; ++m) {
    const auto [x, y] = Place(m);
    if (MemberTable(m, MemberFieldSin) != 0 || x / 2 < span / 2 - 0.75 * bay || x / 2 > span / 2 + 0.25 * bay) continue;
    if (std::fabs(y / 2 - upperY) < 1e-3) forces.upper = MemberTable(m, MemberFieldForce);
    if (y == 0) forces.lower = MemberTable(m, MemberFieldForce);
  }
  return forces;
}

/// P at each of the inner panel points of n bays of length d: M = P d i (n - i) / 2 at panel point i.
double Moment(double P, double d, int n, int i) { return P * d * i * (n - i) / 2; }

TEST_F(TrussAnalysisTest, HasTheTextbooksChordForcesAtMidspan) {
  struct Case {
    const char* family;
    int lower; ///< panel points from midspan to the point whose moment the lower chord carries
    int upper;
  };
  for (const Case& each : {Case{"pratt", 1, 0}, Case{"howe", 0, 1}, Case{"k", 1, 1}}) {
    const TrussFamily& family = Family(each.family);
    for (int n = 4; n <= BaysToTest; n += 2) {
      ASSERT_TRUE(Analyse(family, WithBays(family, n)));
      const double d = family.span / static_cast<double>(n);
      const ChordForces forces = ForcesNearMidspan(family.span, d, family.height);
      const double tolerance = ForceTolerance * LargestForce();
      EXPECT_NEAR(forces.lower, Moment(10, d, n, n / 2 - each.lower) / family.height, tolerance) << NameOf(family, n);
      EXPECT_NEAR(forces.upper, -Moment(10, d, n, n / 2 - each.upper) / family.height, tolerance) << NameOf(family, n);
    }
  }
}

/// Of a Warren truss the upper chord over midspan carries M / h, and the lower chord left of midspan the mean of the
/// moments at its ends, since its upper node stands over its middle and M is straight between loads.
TEST_F(TrussAnalysisTest, HasTheTextbooksChordForcesOfAWarrenTruss) {
  const TrussFamily& family = Family("warren");
  for (int n = 2; n <= BaysToTest; n += 2) {
    ASSERT_TRUE(Analyse(family, WithBays(family, n)));
    const double d = family.span / static_cast<double>(n);
    const ChordForces forces = ForcesNearMidspan(family.span, d, family.height);
    const double tolerance = ForceTolerance * LargestForce();
    EXPECT_NEAR(forces.upper, -Moment(10, d, n, n / 2) / family.height, tolerance) << NameOf(family, n);
    const double mean = (Moment(10, d, n, n / 2) + Moment(10, d, n, n / 2 - 1)) / 2;
    EXPECT_NEAR(forces.lower, mean / family.height, tolerance) << NameOf(family, n);
  }
}

/// The moment of even loads is a parabola as the arch is: M / y is the same at every panel point.
TEST_F(TrussAnalysisTest, LeavesTheDiagonalsOfAnArchWithoutForce) {
  const TrussFamily& family = Family("bowstring");
  for (const int n : BayCounts(family)) {
    TrussTexts texts = WithBays(family, n);
    texts[TrussField::DiagonalArea] = "77";
    ASSERT_TRUE(Analyse(family, texts));
    const double tie = 10.0 * family.span * n / 8 / family.height; // P d n^2 / (8 h)
    for (int m = 1; m <= MemberCount; ++m) {
      const bool diagonal = MemberTable(m, MemberA) == 77;
      if (!diagonal && Place(m).second != 0) continue;
      EXPECT_NEAR(Force(m), diagonal ? 0 : tie, ForceTolerance * LargestForce()) << NameOf(family, n);
    }
  }
}

/// P at each of the n upper nodes away from the wall: M = P d (1 + 2 + ... + n) at the wall, in both chords' end bays
/// as a diagonal from the upper node leaves the lower chord with the moment about that node.
TEST_F(TrussAnalysisTest, HoldsACantileverAtItsWall) {
  const TrussFamily& family = Family("cantilever");
  for (const int n : BayCounts(family)) {
    ASSERT_TRUE(Analyse(family, WithBays(family, n)));
    const double moment = 10.0 * family.span / n * n * (n + 1) / 2;
    EXPECT_NEAR(Reaction(1, true), moment / family.height, ForceTolerance * LargestForce()) << NameOf(family, n);
    EXPECT_NEAR(Reaction(2, true), -moment / family.height, ForceTolerance * LargestForce()) << NameOf(family, n);
    EXPECT_NEAR(Reaction(2, false), 10.0 * n, ForceTolerance * LargestForce()) << NameOf(family, n);
  }
}

/// The wind pulls at the left foot and presses on the right one: P h (1 + ... + n) / n / width.
TEST_F(TrussAnalysisTest, HoldsATowerAgainstOverturning) {
  const TrussFamily& family = Family("tower");
  for (const int n : BayCounts(family)) {
    ASSERT_TRUE(Analyse(family, WithBays(family, n)));
    const double pull = 10.0 * family.height * (n + 1) / 2 / family.span;
    EXPECT_NEAR(Reaction(1, false), -pull, ForceTolerance * LargestForce()) << NameOf(family, n);
    EXPECT_NEAR(Reaction(2, false), pull, ForceTolerance * LargestForce()) << NameOf(family, n);
  }
}

TEST_F(TrussAnalysisTest, StretchesTheDiagonalsOfAPrattTrussAndPressesThoseOfAHoweTruss) {
  for (const int sign : {1, -1}) {
    const TrussFamily& family = Family(sign == 1 ? "pratt" : "howe");
    TrussTexts texts = WithBays(family, 12);
    texts[TrussField::DiagonalArea] = "77";
    ASSERT_TRUE(Analyse(family, texts));
    for (int m = 1; m <= MemberCount; ++m) {
      if (MemberTable(m, MemberA) != 77) continue;
      EXPECT_GT(sign * Force(m), 1) << family.name << " " << m;
    }
  }
}

} // namespace
} // namespace strutwright
