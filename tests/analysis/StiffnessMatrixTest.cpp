#include "StiffnessMatrix.h"

#include "Ensure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using Entry = StiffnessMatrix::Entry;

std::vector<Entry> RowOf(const StiffnessMatrix& K, int row) {
  const auto entries = K.Row(row);
  return {entries.begin(), entries.end()};
}

TEST(StiffnessMatrixTest, HoldsZerosAtFirst) {
  const StiffnessMatrix K(3);
  EXPECT_EQ(K.Freedoms(), 3);
  EXPECT_EQ(K(1, 3), 0.0F);
  EXPECT_EQ(K.StoredCount(), 0U);
  EXPECT_EQ(StiffnessMatrix().Freedoms(), 0);
}

TEST(StiffnessMatrixTest, AddsAndRoundsToAFloatEachTime) {
  StiffnessMatrix K(2);
  K.Add(1, 2, 16777216.0F); // 2^24, whose successor is no float
  K.Add(1, 2, 1.0F);
  K.Add(1, 2, 1.0F);
  EXPECT_EQ(K(1, 2), 16777216.0F);
  EXPECT_EQ(K(2, 1), 0.0F);
}

TEST(StiffnessMatrixTest, StoresNothingForAZeroThatIsAdded) {
  StiffnessMatrix K(2);
  K.Add(1, 2, 0.0F);
  K.Add(2, 2, -0.0F);
  EXPECT_EQ(K.StoredCount(), 0U);
}

TEST(StiffnessMatrixTest, KeepsARowByAscendingColumn) {
  StiffnessMatrix K(40);
  for (const int column : {7, 40, 1, 20, 8}) K.Add(3, column, static_cast<float>(column));
  EXPECT_THAT(RowOf(K, 3), ElementsAre(Entry{1, 1}, Entry{7, 7}, Entry{8, 8}, Entry{20, 20}, Entry{40, 40}));
  EXPECT_TRUE(RowOf(K, 4).empty());
}

TEST(StiffnessMatrixTest, SetsAnEntryWhateverItWas) {
  StiffnessMatrix K(2);
  K.Add(1, 1, 5);
  K.Set(1, 1, 3);
  K.Set(2, 1, 4);
  EXPECT_EQ(K(1, 1), 3.0F);
  EXPECT_EQ(K(2, 1), 4.0F);
}

TEST(StiffnessMatrixTest, LeavesARestrainedFreedomTheOneOnItsDiagonal) {
  StiffnessMatrix K(4);
  for (const int other : {1, 3, 4}) {
    K.Set(3, other, 5);
    K.Set(other, 3, 5);
  }
  K.Set(1, 1, 7);
  K.Restrain(3);
  EXPECT_THAT(RowOf(K, 3), ElementsAre(Entry{3, 1}));
  EXPECT_THAT(RowOf(K, 1), ElementsAre(Entry{1, 7}));
  EXPECT_TRUE(RowOf(K, 4).empty());
  EXPECT_EQ(K.StoredCount(), 2U);
}

TEST(StiffnessMatrixTest, RestrainsAFreedomThatNothingMeets) {
  StiffnessMatrix K(2);
  K.Restrain(2);
  EXPECT_THAT(RowOf(K, 2), ElementsAre(Entry{2, 1}));
}

TEST(StiffnessMatrixTest, TakesAnEntryThatIsNotMirroredForABug) {
  StiffnessMatrix K(3);
  K.Set(2, 3, 1);
  EXPECT_THROW(K.Restrain(2), EnsureFailed);
}

TEST(StiffnessMatrixTest, HasNoEntriesOutside) {
  StiffnessMatrix K(2);
  EXPECT_THROW(K(0, 1), EnsureFailed);
  EXPECT_THROW(K(1, 3), EnsureFailed);
  EXPECT_THROW(K(-1, 1), EnsureFailed);
  EXPECT_THROW(K.Add(3, 1, 1), EnsureFailed);
  EXPECT_THROW(K.Set(1, 0, 1), EnsureFailed);
  EXPECT_THROW(K.Row(3), EnsureFailed);
  EXPECT_THROW(K.Restrain(0), EnsureFailed);
}

TEST(StiffnessMatrixTest, EqualsWhatHoldsTheSameWhateverIsStored) {
  StiffnessMatrix one(2);
  StiffnessMatrix other(2);
  one.Set(1, 1, 4);
  one.Set(1, 2, 0);
  other.Set(1, 1, 4);
  EXPECT_EQ(one, other);
  other.Set(2, 2, 1);
  EXPECT_NE(one, other);
  EXPECT_NE(StiffnessMatrix(2), StiffnessMatrix(3));
}

} // namespace
} // namespace strutwright
