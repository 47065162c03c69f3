#include "Envelope.h"

#include "RowEquations.h"

#include <cmath>
#include <limits>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

/// So many freedoms, with ones on the diagonal and at the given places and their mirror images.
StiffnessMatrix MatrixWith(int freedoms, const std::vector<std::pair<int, int>>& places) {
  StiffnessMatrix K(freedoms);
  for (int d = 1; d <= freedoms; ++d) K.Set(d, d, 1);
  for (const auto& [row, column] : places) {
    K.Set(row, column, 1);
    K.Set(column, row, 1);
  }
  return K;
}

std::vector<int> FromOne(const std::vector<int>& values) { return {values.begin() + 1, values.end()}; }

TEST(EnvelopeTest, HoldsTheDiagonalOfEquationsThatDoNotKnowEachOther) {
  for (const StiffnessMatrix& K : {MatrixWith(3, {}), StiffnessMatrix(3)}) {
    const Envelope envelope = EnvelopeOf(K);
    EXPECT_THAT(FromOne(envelope.lowestRow), ElementsAre(1, 2, 3));
    EXPECT_THAT(FromOne(envelope.rightmostColumn), ElementsAre(1, 2, 3));
    EXPECT_EQ(envelope.Updates(), 0);
  }
}

// Row 3 may come up to row 1, with its entry in column 5, and every row down to 3 gets multiples of it then.
TEST(EnvelopeTest, ReachesAsFarAsAnyRowThatMayBeExchanged) {
  const Envelope envelope = EnvelopeOf(MatrixWith(6, {{1, 3}, {3, 5}}));
  EXPECT_THAT(FromOne(envelope.lowestRow), ElementsAre(3, 3, 5, 5, 5, 6));
  EXPECT_THAT(FromOne(envelope.rightmostColumn), ElementsAre(5, 5, 5, 5, 5, 6));
}

TEST(EnvelopeTest, GrowsFromColumnToColumn) {
  const Envelope envelope = EnvelopeOf(MatrixWith(5, {{1, 4}, {2, 3}}));
  EXPECT_THAT(FromOne(envelope.lowestRow), ElementsAre(4, 4, 4, 4, 5));
  EXPECT_THAT(FromOne(envelope.rightmostColumn), ElementsAre(4, 4, 4, 4, 5));
}

TEST(EnvelopeTest, CountsTheEntriesThatChangeWithTheLoads) {
  const Envelope envelope = EnvelopeOf(MatrixWith(3, {{1, 2}}));
  EXPECT_EQ(envelope.UpdatesOf(1), 2); // row 2, in column 2 and in P
  EXPECT_EQ(envelope.UpdatesOf(2), 0);
  EXPECT_EQ(envelope.Updates(), 2);
}

TEST(EnvelopeTest, IsWholeOnlyWhenNothingIsLeftOut) {
  EXPECT_TRUE(WholeEnvelope(4).IsWhole());
  EXPECT_TRUE(EnvelopeOf(MatrixWith(4, {{1, 4}})).IsWhole());
  EXPECT_FALSE(EnvelopeOf(MatrixWith(4, {{1, 3}})).IsWhole());
  EXPECT_EQ(WholeEnvelope(3).Updates(), 2 * 3 + 1 * 2);
}

class RowEquationsTest : public testing::Test {
 protected:
  static RowEquations EquationsOf(const StiffnessMatrix& K) {
    return {K, std::vector<float>(static_cast<std::size_t>(K.Freedoms()) + 1, 2.0F), EnvelopeOf(K)};
  }
};

TEST_F(RowEquationsTest, HoldWhatTheMatrixHolds) {
  StiffnessMatrix K = MatrixWith(6, {{1, 3}, {3, 5}});
  K.Set(3, 5, 7);
  const RowEquations equations = EquationsOf(K);
  EXPECT_EQ(equations.K(3, 5), 7.0F);
  EXPECT_EQ(equations.K(3, 1), 1.0F);
  EXPECT_EQ(equations.K(2, 5), 0.0F); // nothing yet, but it may be filled
  EXPECT_EQ(equations.P(6), 2.0F);
  EXPECT_EQ(equations.LastColumn(3), 5);
  EXPECT_EQ(equations.LastColumn(2), 2);
}

TEST_F(RowEquationsTest, ExchangeRowsFromTheColumnOn) {
  StiffnessMatrix K = MatrixWith(5, {{1, 3}, {2, 3}, {3, 5}});
  K.Set(3, 2, 4);
  RowEquations equations = EquationsOf(K);
  equations.P(3) = 9;
  equations.Exchange(2, 3, 2);
  EXPECT_EQ(equations.K(3, 1), 1.0F); // left of the column
  EXPECT_EQ(equations.K(2, 2), 4.0F);
  EXPECT_EQ(equations.K(2, 5), 1.0F);
  EXPECT_EQ(equations.K(3, 5), 0.0F);
  EXPECT_EQ(equations.P(2), 9.0F);
  EXPECT_EQ(equations.LastColumn(2), 5);
  EXPECT_EQ(equations.LastColumn(3), 3);
}

TEST_F(RowEquationsTest, CanNotBeTrustedWithWhatIsNotFiniteUnlessTheyAreWhole) {
  StiffnessMatrix K = MatrixWith(3, {{1, 2}});
  EXPECT_TRUE(EquationsOf(K).CanBeTrusted());
  K.Set(2, 2, std::numeric_limits<float>::infinity());
  EXPECT_FALSE(EquationsOf(K).CanBeTrusted());
  EXPECT_TRUE(RowEquations(K, std::vector<float>(4), WholeEnvelope(3)).CanBeTrusted());

  RowEquations equations = EquationsOf(MatrixWith(3, {}));
  equations.P(3) = std::numeric_limits<float>::quiet_NaN();
  EXPECT_FALSE(equations.CanBeTrusted());
}

TEST_F(RowEquationsTest, ClearTheSignsOfZeroLoadsFromARowOn) {
  RowEquations equations = EquationsOf(MatrixWith(3, {}));
  for (int row = 1; row <= 3; ++row) equations.P(row) = -0.0F;
  equations.ClearSignsOfZeroLoads(2);
  EXPECT_TRUE(std::signbit(equations.P(1)));
  EXPECT_FALSE(std::signbit(equations.P(2)));
  EXPECT_FALSE(std::signbit(equations.P(3)));
}

} // namespace
} // namespace strutwright
