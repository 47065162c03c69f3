#include "modSolver.h"

#include "AnalysisFixture.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

constexpr float PivotLimit = 0.0001F;
constexpr std::int16_t OkMark = 5; // a value that only "untouched" explains

class SolverTest : public AnalysisFixture {
 protected:
  /// Solves with the right-hand side in P (entries 1..n); the result is in D, ok and K.
  void Solve(const std::vector<float>& rightHandSide) {
    std::vector<float> P{99.0F};
    P.insert(P.end(), rightHandSide.begin(), rightHandSide.end());
    D.assign(P.size(), -1.0F);
    SolveEquations(K, D, P, static_cast<std::int16_t>(rightHandSide.size()), ok);
  }

  Matrix K;
  std::vector<float> D;
  std::int16_t ok = OkMark;
};

//  2x + y = 5, x + 3y = 10  gives  x = 1, y = 3.
TEST_F(SolverTest, SolvesTwoEquations) {
  K = MatrixOf<2, 3>({{{2, 1, 0}, {1, 3, 0}}});
  Solve({5, 10});
  EXPECT_THAT(Used(D), ElementsAre(1, 3));
}

TEST_F(SolverTest, LeavesOkAsItWasOnSuccess) {
  K = MatrixOf<2, 3>({{{2, 1, 0}, {1, 3, 0}}});
  Solve({5, 10});
  EXPECT_EQ(ok, OkMark);
  ok = FlagFalse;
  K = MatrixOf<2, 3>({{{2, 1, 0}, {1, 3, 0}}});
  Solve({5, 10});
  EXPECT_EQ(ok, FlagFalse);
}

TEST_F(SolverTest, ShowsAndAsksNothingOnSuccess) {
  AnalysisDone = FlagTrue;
  K = MatrixOf<1, 2>({{{4, 0}}});
  Solve({2});
  EXPECT_TRUE(TakeMessages().empty());
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(SolverTest, TakesTheRightHandSideFromPAndNotFromTheMatrix) {
  K = MatrixOf<2, 3>({{{2, 0, 77}, {0, 4, 77}}});
  Solve({2, 8});
  EXPECT_THAT(Used(D), ElementsAre(1, 2));
}

TEST_F(SolverTest, LeavesEntryZeroAlone) {
  K = MatrixOf<1, 2>({{{4, 0}}});
  Solve({2});
  EXPECT_EQ(D[0], -1.0F);
  EXPECT_EQ(K(0, 0), 0.0F);
}

TEST_F(SolverTest, LeavesTheSolutionInTheLastColumn) {
  K = MatrixOf<2, 3>({{{2, 1, 0}, {1, 3, 0}}});
  Solve({5, 10});
  EXPECT_EQ(K(1, 3), 1.0F);
  EXPECT_EQ(K(2, 3), 3.0F);
}

TEST_F(SolverTest, DividesOnlyForOneFreedom) {
  K = MatrixOf<1, 2>({{{4, 0}}});
  Solve({2});
  EXPECT_THAT(Used(D), ElementsAre(0.5F));
  EXPECT_EQ(K(1, 1), 4.0F);
}

TEST_F(SolverTest, SolvesOneFreedomAtTheTolerance) {
  K = MatrixOf<1, 2>({{{PivotLimit, 0}}});
  Solve({PivotLimit});
  EXPECT_THAT(Used(D), ElementsAre(1));
}

TEST_F(SolverTest, GivesUpOneFreedomBelowTheTolerance) {
  K = MatrixOf<1, 2>({{{std::nextafter(PivotLimit, 0.0F), 0}}});
  Solve({2});
  EXPECT_THAT(TakeMessages(), ElementsAre(FailureBox(2)));
}

TEST_F(SolverTest, GivesARestrainedFreedomItsRightHandSide) {
  K = MatrixOf<3, 4>({{{2, 0, 1, 0}, {0, 1, 0, 0}, {1, 0, 3, 0}}});
  Solve({5, 0, 10});
  EXPECT_THAT(Used(D), ElementsAre(1, 0, 3));
}

class UnstableTest : public SolverTest {
 protected:
  UnstableTest() {
    AnalysisDone = FlagTrue;
    K = MatrixOf<2, 3>({{{1, 0, 0}, {0, 0, 0}}});
    Solve({1, 1});
    shown = TakeMessages();
  }

  std::vector<Message> shown;
};

TEST_F(UnstableTest, IsReportedWithCodeTwo) {
  EXPECT_THAT(shown,
              ElementsAre(Box(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check 2")));
  EXPECT_EQ(shown[0].title, "Strutwright");
  EXPECT_EQ(FailedCheck, 2);
}

TEST_F(UnstableTest, ClearsOk) { EXPECT_EQ(ok, 0); }

TEST_F(UnstableTest, LeavesDUntouched) { EXPECT_THAT(D, testing::Each(-1.0F)); }

TEST_F(UnstableTest, LeavesTheAnalysisState) {
  EXPECT_EQ(AnalysisDone, 0);
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged"));
}

using PivotTest = SolverTest;

// Without an exchange the first row stays (1 2) and the second becomes 3 + 2.
TEST_F(PivotTest, KeepsTheUpperOfTwoEqualRows) {
  K = MatrixOf<2, 3>({{{1, 2, 0}, {-1, 3, 0}}});
  Solve({3, 2});
  EXPECT_EQ(K(1, 1), 1.0F);
  EXPECT_EQ(K(1, 2), 2.0F);
  EXPECT_EQ(K(2, 2), 5.0F);
}

TEST_F(PivotTest, KeepsTheUpperOfTwoEqualRowsBelow) {
  K = MatrixOf<3, 4>({{{1, 0, 0, 0}, {4, 1, 0, 0}, {-4, 0, 1, 0}}});
  Solve({1, 4, 0});
  EXPECT_EQ(K(1, 1), 4.0F);
}

TEST_F(PivotTest, TakesTheRowWithTheLargestEntryInSize) {
  K = MatrixOf<3, 4>({{{1, 0, 1, 0}, {2, 1, 0, 0}, {-3, 0, 1, 0}}});
  Solve({1, 1, 1});
  EXPECT_EQ(K(1, 1), -3.0F);
}

TEST_F(PivotTest, LooksOnlyBelowThePivot) {
  K = MatrixOf<2, 3>({{{1, 100, 0}, {0, 2, 0}}});
  Solve({1, 1});
  EXPECT_EQ(K(1, 2), 100.0F);
  EXPECT_EQ(K(2, 2), 2.0F);
}

// Rows 2 and 3 are exchanged from column 2 on; what elimination left in column 1 stays where it was.
TEST_F(PivotTest, ExchangesNoColumnToTheLeft) {
  K = MatrixOf<3, 4>({{{4, 0, 0, 0}, {1, 1, 0, 0}, {2, 5, 1, 0}}});
  Solve({0, 10, 20});
  EXPECT_EQ(K(2, 1), 1.0F);
  EXPECT_EQ(K(3, 1), 2.0F);
  EXPECT_EQ(K(2, 2), 5.0F);
  EXPECT_EQ(K(3, 2), 1.0F);
}

//  x = 0, x + y = 10, 2x + 5y + z = 20  gives  y = 10, z = -30.
TEST_F(PivotTest, ExchangesTheRightHandSideToo) {
  K = MatrixOf<3, 4>({{{4, 0, 0, 0}, {1, 1, 0, 0}, {2, 5, 1, 0}}});
  Solve({0, 10, 20});
  EXPECT_EQ(D[1], 0.0F);
  EXPECT_FLOAT_EQ(D[2], 10.0F);
  EXPECT_FLOAT_EQ(D[3], -30.0F);
}

TEST_F(PivotTest, FindsAPivotForAZeroOnTheDiagonal) {
  K = MatrixOf<2, 3>({{{0, 2, 0}, {4, 0, 0}}});
  Solve({6, 8});
  EXPECT_THAT(Used(D), ElementsAre(2, 3));
  EXPECT_EQ(ok, OkMark);
}

TEST_F(PivotTest, GoesOnWithTheOtherColumnsAfterAZeroColumn) {
  K = MatrixOf<3, 4>({{{0, 1, 1, 0}, {0, 2, 4, 0}, {0, 1, 5, 0}}});
  Solve({1, 2, 3});
  EXPECT_EQ(K(3, 3), 3.0F); // 5 - 4 * 1/2
  EXPECT_EQ(K(2, 2), 2.0F);
  EXPECT_THAT(TakeMessages(), ElementsAre(FailureBox(2)));
}

TEST(EliminateColumnTest, SubtractsMultiplesOfThePivotRow) {
  Matrix K = MatrixOf<2, 3>({{{2, 4, 6}, {1, 5, 7}}});
  EliminateColumn(K, 1, 2);
  EXPECT_EQ(K, (MatrixOf<2, 3>({{{2, 4, 6}, {1, 3, 4}}})));
}

TEST(EliminateColumnTest, DoesNotClearItsColumn) {
  Matrix K = MatrixOf<3, 4>({{{2, 0, 0, 0}, {1, 1, 0, 0}, {6, 0, 1, 0}}});
  EliminateColumn(K, 1, 3);
  EXPECT_EQ(K(2, 1), 1.0F);
  EXPECT_EQ(K(3, 1), 6.0F);
}

TEST(EliminateColumnTest, TouchesNoRowAboveAndNoColumnBefore) {
  Matrix K = MatrixOf<3, 4>({{{9, 9, 9, 9}, {9, 2, 4, 6}, {9, 1, 5, 7}}});
  EliminateColumn(K, 2, 3);
  EXPECT_EQ(K, (MatrixOf<3, 4>({{{9, 9, 9, 9}, {9, 2, 4, 6}, {9, 1, 3, 4}}})));
}

TEST(EliminateColumnTest, ChangesNothingForAZeroPivot) {
  const Matrix before = MatrixOf<3, 4>({{{0, 4, 6, 1}, {1, 5, 7, 2}, {2, 8, 9, 3}}});
  Matrix K = before;
  EliminateColumn(K, 1, 3);
  EXPECT_EQ(K, before);
}

TEST(EliminateColumnTest, TakesAPivotThatIsOnlySmall) {
  Matrix K = MatrixOf<2, 3>({{{1e-30F, 1e-30F, 0}, {1, 3, 7}}});
  EliminateColumn(K, 1, 2);
  EXPECT_EQ(K(2, 2), 2.0F);
}

// 2^24 + 1 is no float and falls back to 2^24, twice; a sum kept in double would reach 2^24 + 2.
TEST(EliminateColumnTest, RoundsToAFloatAtEachStep) {
  Matrix K = MatrixOf<3, 4>({{{1, 0, 0, 1}, {0, 1, 0, 1}, {-1, -1, 1, 16777216}}});
  EliminateColumn(K, 1, 3);
  EliminateColumn(K, 2, 3);
  EXPECT_EQ(K(3, 4), 16777216.0F);
}

// 1/3 as a float is above 1/3, and 1 - 3 * (1/3) would leave -3e-8.
TEST(EliminateColumnTest, KeepsTheFactorInDouble) {
  Matrix K = MatrixOf<2, 3>({{{3, 3, 0}, {1, 1, 0}}});
  EliminateColumn(K, 1, 2);
  EXPECT_EQ(K(2, 2), 0.0F);
}

// 4097^2 = 16785409 has 25 bits; as a float it would be 16785408 and leave 0.
TEST(EliminateColumnTest, KeepsTheProductInDouble) {
  Matrix K = MatrixOf<2, 3>({{{1, 4097, 0}, {4097, 16785408, 0}}});
  EliminateColumn(K, 1, 2);
  EXPECT_EQ(K(2, 2), -1.0F);
}

TEST(IsStableTest, PassesADiagonalOfExactlyTheTolerance) {
  EXPECT_TRUE(IsStable(MatrixOf<2, 3>({{{1, 0, 0}, {0, PivotLimit, 0}}}), 2));
}

TEST(IsStableTest, FailsJustBelowTheTolerance) {
  EXPECT_FALSE(IsStable(MatrixOf<2, 3>({{{1, 0, 0}, {0, std::nextafter(PivotLimit, 0.0F), 0}}}), 2));
  EXPECT_FALSE(IsStable(MatrixOf<2, 3>({{{std::nextafter(PivotLimit, 0.0F), 0, 0}, {0, 1, 0}}}), 2));
}

TEST(IsStableTest, GoesByTheSizeOfTheDiagonal) {
  EXPECT_TRUE(IsStable(MatrixOf<1, 2>({{{-PivotLimit, 0}}}), 1));
  EXPECT_FALSE(IsStable(MatrixOf<1, 2>({{{std::nextafter(-PivotLimit, 0.0F), 0}}}), 1));
}

TEST(IsStableTest, LooksAtTheDiagonalOfTheFirstFreedomsOnly) {
  EXPECT_TRUE(IsStable(MatrixOf<2, 3>({{{1, 0, 0}, {0, 1, 0}}}), 2));
  EXPECT_TRUE(IsStable(MatrixOf<2, 3>({{{1, 0, 0}, {0, 0, 0}}}), 1));
}

//  4y = 8, 2x + y = 4  gives  y = 2, x = 1.
TEST(BackSubstituteTest, SolvesFromTheLastRowUp) {
  Matrix K = MatrixOf<2, 3>({{{2, 1, 4}, {0, 4, 8}}});
  BackSubstitute(K, 2);
  EXPECT_EQ(K, (MatrixOf<2, 3>({{{2, 1, 1}, {0, 4, 2}}})));
}

TEST(BackSubstituteTest, ReadsNothingBelowTheDiagonal) {
  Matrix K = MatrixOf<2, 3>({{{2, 1, 4}, {77, 4, 8}}});
  BackSubstitute(K, 2);
  EXPECT_EQ(K(1, 3), 1.0F);
}

// 2^24 + 1 + 1 in double; a float sum would stay at 2^24 and leave 2.
TEST(BackSubstituteTest, AddsUpInDouble) {
  Matrix K = MatrixOf<4, 5>({{{1, 1, 1, 1, 16777218}, {0, 1, 0, 0, 16777216}, {0, 0, 1, 0, 1}, {0, 0, 0, 1, 1}}});
  BackSubstitute(K, 4);
  EXPECT_EQ(K(1, 5), 0.0F);
}

} // namespace
} // namespace strutwright
