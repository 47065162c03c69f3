#include "modAnalysis.h"

#include "AnalysisFixture.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;

class LoadVectorTest : public AnalysisFixture {
 protected:
  /// P for the model in the tables, every entry `before` at first.
  static std::vector<float> Loads(float before = 0.0F) {
    std::vector<float> P(2 * static_cast<std::size_t>(NodeCount) + 1, before);
    BuildLoadVector(P);
    return Used(P);
  }
};

TEST_F(LoadVectorTest, HoldsTheLoadsNodeByNode) {
  SetTables({{{0, 0, 1, 2}, {4, 0, -3, -4}}, {}});
  EXPECT_THAT(Loads(), ElementsAre(1, 2, -3, -4));
}

TEST_F(LoadVectorTest, KeepsWhatWasThereWhereALoadIsZero) {
  SetTables({{{0, 0, 1, 0}, {4, 0, 0, 2}}, {}});
  EXPECT_THAT(Loads(7), ElementsAre(1, 7, 7, 2));
}

TEST_F(LoadVectorTest, ReplacesWhatWasThereWhereALoadActs) {
  SetTables({{{0, 0, 1, 2}}, {}});
  EXPECT_THAT(Loads(7), ElementsAre(1, 2));
}

// c = 0.6, s = 0.8: the member pulls node 1 by (6, 8) and node 2 by (-6, -8).
TEST_F(LoadVectorTest, TakesPrestressForAPullOnBothEnds) {
  SetBar(3, 4, 10);
  EXPECT_THAT(Loads(), ElementsAre(6, 8, -6, -8));
}

TEST_F(LoadVectorTest, TakesNegativePrestressForAPush) {
  SetBar(3, 4, -10);
  EXPECT_THAT(Loads(), ElementsAre(-6, -8, 6, 8));
}

TEST_F(LoadVectorTest, PullsTheSameWayWhenTheEndsAreExchanged) {
  SetTables({{{0, 0}, {3, 4}}, {{2, 1, 200, 1000, 10}}});
  EXPECT_THAT(Loads(), ElementsAre(6, 8, -6, -8));
}

TEST_F(LoadVectorTest, AddsPrestressToTheLoads) {
  SetTables({{{0, 0, 1, 2}, {3, 4}, {6, 8}}, {{1, 2, 200, 1000, 10}, {2, 3, 200, 1000, 5}}});
  EXPECT_THAT(Loads(), ElementsAre(1 + 6, 2 + 8, -6 + 3, -8 + 4, -3, -4));
}

TEST_F(LoadVectorTest, KnowsTheDirectionBeforeAnyStiffnessWasComputed) {
  SetBar(0, 2, 10);
  ASSERT_EQ(MemberTable(1, MemberFieldSin), 0.0F);
  EXPECT_THAT(Loads(), ElementsAre(0, 10, 0, -10));
}

TEST_F(LoadVectorTest, TakesThePrestressOfAMemberThatIsIgnoredOtherwise) {
  SetTables({{{0, 0}, {3, 4}}, {{1, 2, -200, -1000, 10}}});
  EXPECT_THAT(Loads(), ElementsAre(6, 8, -6, -8));
}

TEST_F(LoadVectorTest, LeavesOutThePrestressOfAMemberAtNodeZero) {
  SetTables({{{0, 0}, {3, 4}}, {{0, 2, 200, 1000, 10}, {1, 0, 200, 1000, 10}}});
  EXPECT_THAT(Loads(), ElementsAre(0, 0, 0, 0));
}

TEST_F(LoadVectorTest, LeavesOutThePrestressOfAMemberWithoutLength) {
  SetTables({{{1, 2, 3, 4}, {1, 2}}, {{1, 2, 200, 1000, 10}, {1, 1, 200, 1000, 10}}});
  EXPECT_THAT(Loads(), ElementsAre(3, 4, 0, 0));
}

TEST_F(LoadVectorTest, RoundsNodeNumbersToEven) {
  SetTables({{{0, 0}, {3, 4}}, {{0.6F, 2.5F, 200, 1000, 10}}});
  EXPECT_THAT(Loads(), ElementsAre(6, 8, -6, -8));
}

// 0.8 as a float is above 0.8, so that 0.8 * 1.25 is above 1, but is 1 as a float.  2^24 + 1 falls back to 2^24;
// anything more would give 2^24 + 2.
TEST_F(LoadVectorTest, RoundsThePrestressComponentsToFloats) {
  SetBar(4, 3, 1.25F);
  NodeTable(1, NodeForceX) = 16777216.0F;
  EXPECT_EQ(Loads()[0], 16777216.0F);
  SetBar(3, 4, 1.25F);
  NodeTable(1, NodeForceY) = 16777216.0F;
  EXPECT_EQ(Loads()[1], 16777216.0F);
}

class SupportsTest : public AnalysisFixture {
 protected:
  SupportsTest() {
    SetTables({{{0, 0}, {4, 0}}, {}});
    DofCount = 4;
    R.assign(5, 55.0F);
    fixed.assign(5, 0);
    for (int row = 1; row <= 4; ++row) {
      for (int column = 1; column <= 4; ++column) K.Set(row, column, static_cast<float>(10 * row + column));
    }
  }

  void Apply(float code1, float code2) {
    NodeTable(1, NodeSupport) = code1;
    NodeTable(2, NodeSupport) = code2;
    ApplySupports(K, P, R, fixed);
  }

  StiffnessMatrix K{4};
  std::vector<float> P{0, 1, 2, 3, 4};
  std::vector<float> R;
  std::vector<std::int16_t> fixed;
};

TEST_F(SupportsTest, ChangeNothingForFreeNodes) {
  const StiffnessMatrix before = K;
  Apply(0, -0.0F);
  EXPECT_EQ(K, before);
  EXPECT_THAT(Used(P), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(Used(R), Each(55.0F));
  EXPECT_THAT(Used(fixed), Each(0));
}

TEST_F(SupportsTest, RestrainYForCodeOne) {
  Apply(1, 0);
  EXPECT_THAT(Used(fixed), ElementsAre(0, 1, 0, 0));
}

TEST_F(SupportsTest, RestrainXForCodeTwo) {
  Apply(0, 2);
  EXPECT_THAT(Used(fixed), ElementsAre(0, 0, 1, 0));
}

TEST_F(SupportsTest, RestrainBothForEveryOtherCode) {
  for (const float code : {3.0F, 1.5F, -1.0F, -2.0F, 4.0F, 0.1F, 1e-40F}) {
    fixed.assign(5, 0);
    Apply(code, 0);
    EXPECT_THAT(Used(fixed), ElementsAre(1, 1, 0, 0)) << code;
  }
}

TEST_F(SupportsTest, CompareCodesAsFloats) {
  Apply(std::nextafter(1.0F, 2.0F), std::nextafter(2.0F, 1.0F));
  EXPECT_THAT(Used(fixed), ElementsAre(1, 1, 1, 1));
}

TEST_F(SupportsTest, TurnTheLoadIntoAReactionOfOppositeSign) {
  Apply(3, 1);
  EXPECT_THAT(Used(R), ElementsAre(-1, -2, 55, -4));
}

TEST_F(SupportsTest, TakeTheLoadAwayFromRestrainedFreedoms) {
  Apply(3, 1);
  EXPECT_THAT(Used(P), ElementsAre(0, 0, 3, 0));
}

TEST_F(SupportsTest, PutOneOnTheDiagonalOfAZeroRowAndColumn) {
  Apply(1, 2);
  EXPECT_EQ(K, (MatrixOf<4>({{{11, 0, 0, 14}, {0, 1, 0, 0}, {0, 0, 1, 0}, {41, 0, 0, 44}}})));
}

TEST_F(SupportsTest, ImposeWhatIsMarkedAsFixedAlready) {
  fixed[4] = 1;
  Apply(0, 0);
  EXPECT_EQ(K(4, 4), 1.0F);
  EXPECT_EQ(K(4, 1), 0.0F);
  EXPECT_EQ(P[4], 4.0F);
}

} // namespace
} // namespace strutwright
