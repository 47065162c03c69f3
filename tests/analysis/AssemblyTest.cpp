#include "modAnalysis.h"

#include "AnalysisFixture.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;

using AllocateTest = AnalysisFixture;

TEST_F(AllocateTest, SizesEveryArrayByTheFreedoms) {
  DofCount = 6;
  AllocateAnalysisArrays();
  EXPECT_EQ(GlobalStiffness.LastRow(), 6);
  EXPECT_EQ(GlobalStiffness.LastColumn(), 7);
  EXPECT_EQ(MemberStiffnessBuffer.LastRow(), 4);
  EXPECT_EQ(MemberStiffnessBuffer.LastColumn(), 4);
  EXPECT_EQ(LoadVector.size(), 7U);
  EXPECT_EQ(FixedDof.size(), 7U);
  EXPECT_EQ(Displacements.size(), 7U);
  EXPECT_EQ(Reactions.size(), 7U);
}

TEST_F(AllocateTest, ClearsEveryArray) {
  DofCount = 2;
  AllocateAnalysisArrays();
  GlobalStiffness(1, 1) = MemberStiffnessBuffer(1, 1) = 7.0F;
  LoadVector[1] = Displacements[1] = Reactions[1] = 7.0F;
  FixedDof[1] = 1;
  AllocateAnalysisArrays();
  EXPECT_EQ(GlobalStiffness, Matrix(2, 3));
  EXPECT_EQ(MemberStiffnessBuffer, Matrix(4, 4));
  EXPECT_THAT(LoadVector, Each(0.0F));
  EXPECT_THAT(Displacements, Each(0.0F));
  EXPECT_THAT(Reactions, Each(0.0F));
  EXPECT_THAT(FixedDof, Each(0));
}

class AssembleTest : public AnalysisFixture {
 protected:
  /// Three nodes in a row, 4 m apart, so that each member between neighbours has EA/L = 50 kN/mm in x only.
  static void SetLine(const std::vector<MemberData>& members) {
    SetTables({{{0, 0}, {4, 0}, {8, 0}}, members});
    AssembleGlobalStiffness(GlobalStiffness);
  }

  /// The used part of K when these are its entries between freedoms 1, 3 and 5 and all others are zero.
  static Matrix InX(const std::array<std::array<float, 3>, 3>& entries) {
    Matrix K(6, 7);
    for (std::size_t r = 0; r < 3; ++r) {
      for (std::size_t c = 0; c < 3; ++c) K(static_cast<int>(2 * r + 1), static_cast<int>(2 * c + 1)) = entries[r][c];
    }
    return K;
  }
};

TEST_F(AssembleTest, AddsEveryMemberAtItsNodes) {
  SetLine({{1, 2}, {2, 3}});
  EXPECT_EQ(GlobalStiffness, InX({{{50, -50, 0}, {-50, 100, -50}, {0, -50, 50}}}));
}

TEST_F(AssembleTest, CountsTheFreedomsAnew) {
  DofCount = 2;
  SetLine({{1, 2}});
  EXPECT_EQ(DofCount, 6);
  EXPECT_EQ(GlobalStiffness.LastRow(), 6);
  EXPECT_EQ(GlobalStiffness.LastColumn(), 7);
}

TEST_F(AssembleTest, StartsFromZeroEachTime) {
  SetLine({{1, 2}});
  SetLine({{1, 2}});
  EXPECT_EQ(GlobalStiffness(1, 1), 50.0F);
}

TEST_F(AssembleTest, FillsTheMatrixThatItIsGiven) {
  SetTables({{{0, 0}, {4, 0}}, {{1, 2}}});
  Matrix own;
  AssembleGlobalStiffness(own);
  EXPECT_EQ(own(1, 1), 50.0F);
  EXPECT_EQ(GlobalStiffness, Matrix());
}

TEST_F(AssembleTest, StoresLengthAndDirectionOfEveryMember) {
  SetLine({{1, 2}, {3, 1}});
  EXPECT_EQ(MemberTable(1, MemberFieldLength), 4000.0F);
  EXPECT_EQ(MemberTable(2, MemberFieldLength), 8000.0F);
  EXPECT_EQ(MemberTable(2, MemberFieldCos), -1.0F);
}

TEST_F(AssembleTest, AddsThePredecessorForAnIgnoredMember) {
  SetLine({{1, 2}, {2, 3, -200, 777}});
  EXPECT_EQ(GlobalStiffness, InX({{{50, -50, 0}, {-50, 100, -50}, {0, -50, 50}}}));
  EXPECT_EQ(MemberTable(2, MemberFieldLength), 0.0F);
  EXPECT_THAT(TakeMessages(), ElementsAre(IgnoredBox(2, "E-value")));
}

TEST_F(AssembleTest, AddsThePredecessorTwiceForTwoIgnoredMembers) {
  SetLine({{1, 2}, {2, 3, -200}, {1, 2, 200, -1}});
  EXPECT_EQ(GlobalStiffness, InX({{{100, -100, 0}, {-100, 150, -50}, {0, -50, 50}}}));
  EXPECT_THAT(TakeMessages(), ElementsAre(IgnoredBox(2, "E-value"), IgnoredBox(3, "A-value")));
}

// Both ends of the second member are node 3, where 50 - 50 - 50 + 50 is added.
TEST_F(AssembleTest, AddsThePredecessorAtBothEndsOfAMemberWithoutLength) {
  SetLine({{1, 2}, {3, 3}});
  EXPECT_EQ(GlobalStiffness, InX({{{50, -50, 0}, {-50, 50, 0}, {0, 0, 0}}}));
  EXPECT_THAT(TakeMessages(), ElementsAre(IgnoredBox(2, "has no length")));
}

TEST_F(AssembleTest, AddsZerosForAnIgnoredFirstMember) {
  SetLine({{1, 2, -200}, {2, 3}});
  EXPECT_EQ(GlobalStiffness, InX({{{0, 0, 0}, {0, 50, -50}, {0, -50, 50}}}));
  TakeMessages();
}

TEST_F(AssembleTest, AddsZerosForAnIgnoredFirstMemberOfASecondAssembly) {
  SetLine({{1, 2}});
  SetLine({{1, 2, -200}});
  EXPECT_EQ(GlobalStiffness, Matrix(6, 7));
  TakeMessages();
}

// The zero matrix of a member with E = 0 is a predecessor like any other.
TEST_F(AssembleTest, TakesAMemberWithoutStiffnessForAPredecessor) {
  SetLine({{1, 2}, {1, 2, 0}, {2, 3, -200}});
  EXPECT_EQ(GlobalStiffness, InX({{{50, -50, 0}, {-50, 50, 0}, {0, 0, 0}}}));
  TakeMessages();
}

TEST_F(AssembleTest, LeavesOutAMemberAtNodeZeroAndGoesOn) {
  SetLine({{0, 2}, {2, 3}});
  EXPECT_EQ(GlobalStiffness, InX({{{0, 0, 0}, {0, 50, -50}, {0, -50, 50}}}));
  EXPECT_THAT(TakeMessages(), ElementsAre(IgnoredBox(1, "node numbers")));
}

// Each of the 32767 members adds 50; all sums are below 2^24 and exact.
TEST_F(AssembleTest, EndsWithTheLastMemberThatSixteenBitsCount) {
  SetTables({{{0, 0}, {4, 0}}, std::vector<MemberData>(32767, MemberData{1, 2})});
  AssembleGlobalStiffness(GlobalStiffness);
  EXPECT_EQ(GlobalStiffness(1, 1), 50.0F * 32767.0F);
  EXPECT_EQ(MemberTable(32767, MemberFieldLength), 4000.0F);
}

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

TEST_F(LoadVectorTest, RoundsNodeNumbersToEven) {
  SetTables({{{0, 0}, {3, 4}}, {{0.6F, 2.5F, 200, 1000, 10}}});
  EXPECT_THAT(Loads(), ElementsAre(6, 8, -6, -8));
}

// 0.8 as a float is above 0.8, so that 0.8 * 1.25 is above 1, but is 1 as a float.  2^24 + 1 falls back to 2^24;
// anything more would give 2^24 + 2.
TEST_F(LoadVectorTest, RoundsThePrestressComponentsToFloats) {
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
      for (int column = 1; column <= 5; ++column) K(row, column) = static_cast<float>(10 * row + column);
    }
  }

  void Apply(float code1, float code2) {
    NodeTable(1, NodeSupport) = code1;
    NodeTable(2, NodeSupport) = code2;
    ApplySupports(K, P, R, fixed);
  }

  Matrix K{4, 5};
  std::vector<float> P{0, 1, 2, 3, 4};
  std::vector<float> R;
  std::vector<std::int16_t> fixed;
};

TEST_F(SupportsTest, ChangeNothingForFreeNodes) {
  const Matrix before = K;
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
  EXPECT_EQ(K, (MatrixOf<4, 5>({{{11, 0, 0, 14, 15}, {0, 1, 0, 0, 25}, {0, 0, 1, 0, 35}, {41, 0, 0, 44, 45}}})));
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
