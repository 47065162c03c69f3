#include "modSolver.h"

#include "AnalysisFixture.h"
#include "LongWork.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

constexpr float PivotLimit = 0.0001F;

/// Rows of K with P beside it.
template <std::size_t N>
using Rows = std::array<std::array<float, N + 1>, N>;

template <std::size_t N>
StiffnessMatrix StiffnessOf(const Rows<N>& rows) {
  StiffnessMatrix K(static_cast<int>(N));
  for (std::size_t r = 0; r < N; ++r) {
    for (std::size_t c = 0; c < N; ++c) K.Set(static_cast<int>(r) + 1, static_cast<int>(c) + 1, rows[r][c]);
  }
  return K;
}

template <std::size_t N>
std::vector<float> LoadsOf(const Rows<N>& rows) {
  std::vector<float> P{99.0F};
  for (const auto& row : rows) P.push_back(row[N]);
  return P;
}

template <std::size_t N>
RowEquations EquationsOf(const Rows<N>& rows) {
  return {StiffnessOf<N>(rows), LoadsOf<N>(rows), WholeEnvelope(static_cast<int>(N))};
}

template <std::size_t N>
Rows<N> RowsOf(const RowEquations& equations) {
  Rows<N> rows{};
  for (std::size_t r = 0; r < N; ++r) {
    for (std::size_t c = 0; c < N; ++c) rows[r][c] = equations.K(static_cast<int>(r) + 1, static_cast<int>(c) + 1);
    rows[r][N] = equations.P(static_cast<int>(r) + 1);
  }
  return rows;
}

class SolverTest : public AnalysisFixture {
 protected:
  template <std::size_t N>
  SolveOutcome Solve(const Rows<N>& rows) {
    LongWork work("Solving");
    D.assign(N + 1, -1.0F);
    return SolveEquations(StiffnessOf<N>(rows), D, LoadsOf<N>(rows), work);
  }

  std::vector<float> D;
};

//  2x + y = 5, x + 3y = 10  gives  x = 1, y = 3.
TEST_F(SolverTest, SolvesTwoEquations) {
  EXPECT_EQ(Solve<2>({{{2, 1, 5}, {1, 3, 10}}}), SolveOutcome::Solved);
  EXPECT_THAT(Used(D), ElementsAre(1, 3));
}

TEST_F(SolverTest, ShowsAndAsksNothing) {
  AnalysisDone = FlagTrue;
  const AnalysisState before = TheAnalysis;
  Solve<1>({{{4, 2}}});
  Solve<1>({{{0, 2}}});
  EXPECT_TRUE(TakeMessages().empty());
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(GlobalStiffness, before.GlobalStiffness);
  EXPECT_EQ(FailedCheck, before.FailedCheck);
}

TEST_F(SolverTest, LeavesEntryZeroAlone) {
  Solve<1>({{{4, 2}}});
  EXPECT_EQ(D[0], -1.0F);
}

TEST_F(SolverTest, DividesOnlyForOneFreedom) {
  EXPECT_EQ(Solve<1>({{{4, 2}}}), SolveOutcome::Solved);
  EXPECT_THAT(Used(D), ElementsAre(0.5F));
}

TEST_F(SolverTest, SolvesOneFreedomAtTheTolerance) {
  EXPECT_EQ(Solve<1>({{{PivotLimit, PivotLimit}}}), SolveOutcome::Solved);
  EXPECT_THAT(Used(D), ElementsAre(1));
}

TEST_F(SolverTest, GivesUpOneFreedomBelowTheTolerance) {
  EXPECT_EQ(Solve<1>({{{std::nextafter(PivotLimit, 0.0F), 2}}}), SolveOutcome::Unstable);
}

TEST_F(SolverTest, GivesARestrainedFreedomItsRightHandSide) {
  Solve<3>({{{2, 0, 1, 5}, {0, 1, 0, 0}, {1, 0, 3, 10}}});
  EXPECT_THAT(Used(D), ElementsAre(1, 0, 3));
}

TEST_F(SolverTest, LeavesDUntouchedWhenUnstable) {
  EXPECT_EQ(Solve<2>({{{1, 0, 1}, {0, 0, 1}}}), SolveOutcome::Unstable);
  EXPECT_THAT(D, testing::Each(-1.0F));
}

TEST_F(SolverTest, FindsAPivotForAZeroOnTheDiagonal) {
  EXPECT_EQ(Solve<2>({{{0, 2, 6}, {4, 0, 8}}}), SolveOutcome::Solved);
  EXPECT_THAT(Used(D), ElementsAre(2, 3));
}

//  x = 0, x + y = 10, 2x + 5y + z = 20  gives  y = 10, z = -30.
TEST_F(SolverTest, ExchangesTheRightHandSideToo) {
  Solve<3>({{{4, 0, 0, 0}, {1, 1, 0, 10}, {2, 5, 1, 20}}});
  EXPECT_EQ(D[1], 0.0F);
  EXPECT_FLOAT_EQ(D[2], 10.0F);
  EXPECT_FLOAT_EQ(D[3], -30.0F);
}

TEST_F(SolverTest, IsUnstableForAZeroColumnAmongOthers) {
  EXPECT_EQ(Solve<3>({{{0, 1, 1, 1}, {0, 2, 4, 2}, {0, 1, 5, 3}}}), SolveOutcome::Unstable);
}

TEST(BringPivotUpTest, KeepsTheUpperOfTwoEqualRows) {
  const Rows<2> rows{{{1, 2, 3}, {-1, 3, 2}}};
  RowEquations equations = EquationsOf<2>(rows);
  BringPivotUp(equations, 1);
  EXPECT_EQ(RowsOf<2>(equations), rows);
}

TEST(BringPivotUpTest, KeepsTheUpperOfTwoEqualRowsBelow) {
  RowEquations equations = EquationsOf<3>({{{1, 0, 0, 1}, {4, 1, 0, 4}, {-4, 0, 1, 0}}});
  BringPivotUp(equations, 1);
  EXPECT_EQ(RowsOf<3>(equations), (Rows<3>{{{4, 1, 0, 4}, {1, 0, 0, 1}, {-4, 0, 1, 0}}}));
}

TEST(BringPivotUpTest, TakesTheRowWithTheLargestEntryInSize) {
  RowEquations equations = EquationsOf<3>({{{1, 0, 1, 1}, {2, 1, 0, 1}, {-3, 0, 1, 1}}});
  BringPivotUp(equations, 1);
  EXPECT_EQ(equations.K(1, 1), -3.0F);
}

TEST(BringPivotUpTest, LooksOnlyBelowThePivot) {
  const Rows<2> rows{{{1, 100, 1}, {0, 2, 1}}};
  RowEquations equations = EquationsOf<2>(rows);
  BringPivotUp(equations, 2);
  EXPECT_EQ(RowsOf<2>(equations), rows);
}

// What elimination left in column 1 stays where it was.
TEST(BringPivotUpTest, ExchangesNoColumnToTheLeft) {
  RowEquations equations = EquationsOf<3>({{{4, 0, 0, 0}, {1, 1, 0, 10}, {2, 5, 1, 20}}});
  BringPivotUp(equations, 2);
  EXPECT_EQ(RowsOf<3>(equations), (Rows<3>{{{4, 0, 0, 0}, {1, 5, 1, 20}, {2, 1, 0, 10}}}));
}

TEST(EliminateColumnTest, SubtractsMultiplesOfThePivotRow) {
  RowEquations equations = EquationsOf<2>({{{2, 4, 6}, {1, 5, 7}}});
  EliminateColumn(equations, 1);
  EXPECT_EQ(RowsOf<2>(equations), (Rows<2>{{{2, 4, 6}, {1, 3, 4}}}));
}

TEST(EliminateColumnTest, DoesNotClearItsColumn) {
  RowEquations equations = EquationsOf<3>({{{2, 0, 0, 0}, {1, 1, 0, 0}, {6, 0, 1, 0}}});
  EliminateColumn(equations, 1);
  EXPECT_EQ(equations.K(2, 1), 1.0F);
  EXPECT_EQ(equations.K(3, 1), 6.0F);
}

TEST(EliminateColumnTest, TouchesNoRowAboveAndNoColumnBefore) {
  RowEquations equations = EquationsOf<3>({{{9, 9, 9, 9}, {9, 2, 4, 6}, {9, 1, 5, 7}}});
  EliminateColumn(equations, 2);
  EXPECT_EQ(RowsOf<3>(equations), (Rows<3>{{{9, 9, 9, 9}, {9, 2, 4, 6}, {9, 1, 3, 4}}}));
}

TEST(EliminateColumnTest, ChangesNothingForAZeroPivot) {
  const Rows<3> rows{{{0, 4, 6, 1}, {1, 5, 7, 2}, {2, 8, 9, 3}}};
  RowEquations equations = EquationsOf<3>(rows);
  EliminateColumn(equations, 1);
  EXPECT_EQ(RowsOf<3>(equations), rows);
}

TEST(EliminateColumnTest, TakesAPivotThatIsOnlySmall) {
  RowEquations equations = EquationsOf<2>({{{1e-30F, 1e-30F, 0}, {1, 3, 7}}});
  EliminateColumn(equations, 1);
  EXPECT_EQ(equations.K(2, 2), 2.0F);
}

// 2^24 + 1 is no float and falls back to 2^24, twice; a sum kept in double would reach 2^24 + 2.
TEST(EliminateColumnTest, RoundsToAFloatAtEachStep) {
  RowEquations equations = EquationsOf<3>({{{1, 0, 0, 1}, {0, 1, 0, 1}, {-1, -1, 1, 16777216}}});
  EliminateColumn(equations, 1);
  EliminateColumn(equations, 2);
  EXPECT_EQ(equations.P(3), 16777216.0F);
}

// 1/3 as a float is above 1/3, and 1 - 3 * (1/3) would leave -3e-8.
TEST(EliminateColumnTest, KeepsTheFactorInDouble) {
  RowEquations equations = EquationsOf<2>({{{3, 3, 0}, {1, 1, 0}}});
  EliminateColumn(equations, 1);
  EXPECT_EQ(equations.K(2, 2), 0.0F);
}

// 4097^2 = 16785409 has 25 bits; as a float it would be 16785408 and leave 0.
TEST(EliminateColumnTest, KeepsTheProductInDouble) {
  RowEquations equations = EquationsOf<2>({{{1, 4097, 0}, {4097, 16785408, 0}}});
  EliminateColumn(equations, 1);
  EXPECT_EQ(equations.K(2, 2), -1.0F);
}

TEST(IsStableTest, PassesADiagonalOfExactlyTheTolerance) {
  EXPECT_TRUE(IsStable(EquationsOf<2>({{{1, 0, 0}, {0, PivotLimit, 0}}})));
}

TEST(IsStableTest, FailsJustBelowTheTolerance) {
  EXPECT_FALSE(IsStable(EquationsOf<2>({{{1, 0, 0}, {0, std::nextafter(PivotLimit, 0.0F), 0}}})));
  EXPECT_FALSE(IsStable(EquationsOf<2>({{{std::nextafter(PivotLimit, 0.0F), 0, 0}, {0, 1, 0}}})));
}

TEST(IsStableTest, GoesByTheSizeOfTheDiagonal) {
  EXPECT_TRUE(IsStable(EquationsOf<1>({{{-PivotLimit, 0}}})));
  EXPECT_FALSE(IsStable(EquationsOf<1>({{{std::nextafter(-PivotLimit, 0.0F), 0}}})));
}

//  4y = 8, 2x + y = 4  gives  y = 2, x = 1.
TEST(BackSubstituteTest, SolvesFromTheLastRowUp) {
  RowEquations equations = EquationsOf<2>({{{2, 1, 4}, {0, 4, 8}}});
  BackSubstitute(equations);
  EXPECT_EQ(RowsOf<2>(equations), (Rows<2>{{{2, 1, 1}, {0, 4, 2}}}));
}

TEST(BackSubstituteTest, ReadsNothingBelowTheDiagonal) {
  RowEquations equations = EquationsOf<2>({{{2, 1, 4}, {77, 4, 8}}});
  BackSubstitute(equations);
  EXPECT_EQ(equations.P(1), 1.0F);
}

// 2^24 + 1 + 1 in double; a float sum would stay at 2^24 and leave 2.
TEST(BackSubstituteTest, AddsUpInDouble) {
  RowEquations equations =
      EquationsOf<4>({{{1, 1, 1, 1, 16777218}, {0, 1, 0, 0, 16777216}, {0, 0, 1, 0, 1}, {0, 0, 0, 1, 1}}});
  BackSubstitute(equations);
  EXPECT_EQ(equations.P(1), 0.0F);
}

/// An envelope of n columns with so many entries to change in each, and none beside P.
Envelope EnvelopeWithUpdates(int n, int each) {
  Envelope envelope{std::vector<int>(static_cast<std::size_t>(n) + 1),
                    std::vector<int>(static_cast<std::size_t>(n) + 1)};
  for (int p = 1; p <= n; ++p) {
    envelope.lowestRow[static_cast<std::size_t>(p)] = p + each;
    envelope.rightmostColumn[static_cast<std::size_t>(p)] = p;
  }
  return envelope;
}

TEST(TakeOverTest, LeavesAThousandUpdatesForEachFreedomToTheRows) {
  EXPECT_FALSE(TilesAreFaster(EnvelopeWithUpdates(7, 1000)));
  EXPECT_TRUE(TilesAreFaster(EnvelopeWithUpdates(7, 1001)));
}

} // namespace
} // namespace strutwright
