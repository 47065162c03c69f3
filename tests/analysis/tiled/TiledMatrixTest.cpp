#include "TiledMatrix.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <tuple>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The entries that are not zero, counted from 1.
std::vector<std::tuple<int, int, float>> EntriesOf(const TiledMatrix& K) {
  std::vector<std::tuple<int, int, float>> entries;
  for (int row = 1; row <= K.Freedoms(); ++row) {
    for (int column = 1; column <= K.Freedoms(); ++column) {
      const float* tile = K.Find((row - 1) / TileRows, (column - 1) / TileColumns);
      if (tile == nullptr) continue;
      const float value = TileRow(tile, (row - 1) % TileRows)[(column - 1) % TileColumns];
      if (value != 0.0F) entries.emplace_back(row, column, value);
    }
  }
  return entries;
}

int StoredTiles(const TiledMatrix& K) {
  int count = 0;
  for (int group = 0; group < K.Groups(); ++group) {
    for (int word = 0; word < K.Words(); ++word) count += std::popcount(K.Stored(word, group));
  }
  return count;
}

TEST(TiledMatrixTest, StoresNothingAtFirst) {
  const TiledMatrix K(100);
  EXPECT_EQ(K.Freedoms(), 100);
  EXPECT_EQ(K.Groups(), 25);
  EXPECT_EQ(K.TileColumnCount(), 8); // 128 columns, the next multiple of 64
  EXPECT_EQ(StoredTiles(K), 0);
  EXPECT_EQ(K.Find(0, 0), nullptr);
  EXPECT_EQ(K.LastGroup(0), -1);
  EXPECT_THAT(EntriesOf(K), IsEmpty());
}

TEST(TiledMatrixTest, StoresTheTileOfAnEntryThatIsNamed) {
  TiledMatrix K(100);
  K(6, 18) = 2.5F;
  ASSERT_NE(K.Find(1, 1), nullptr);
  EXPECT_EQ(TileRow(K.Find(1, 1), 1)[1], 2.5F);
  EXPECT_EQ(StoredTiles(K), 1);
  EXPECT_EQ(K.Stored(0, 1), std::uint64_t{1} << 1);
  EXPECT_EQ(K.LastGroup(1), 1);
  EXPECT_THAT(EntriesOf(K), ElementsAre(std::tuple(6, 18, 2.5F)));
}

TEST(TiledMatrixTest, HasTheRightHandSideBesideItsColumns) {
  TiledMatrix K(33);
  K(33, 34) = -1;
  EXPECT_EQ(K.RightHandSide()[32], -1.0F);
  EXPECT_EQ(K.RightHandSide().size(), 36U); // 9 groups
  EXPECT_EQ(StoredTiles(K), 0);
}

TEST(TiledMatrixTest, RefusesEntriesOutsideItsBounds) {
  TiledMatrix K(20);
  for (const auto& [row, column] : {std::pair(0, 1), {21, 1}, {1, 0}, {1, 22}}) {
    EXPECT_THROW(K(row, column), std::logic_error) << row << ", " << column;
  }
  EXPECT_THROW(TiledMatrix(0), std::logic_error);
}

TEST(TiledMatrixTest, GivesATileThatIsMadeAgainAsNothing) {
  TiledMatrix K(40);
  K(1, 1) = 4;
  K.Drop(0, 0);
  EXPECT_EQ(K.Find(0, 0), nullptr);
  EXPECT_EQ(StoredTiles(K), 0);
  EXPECT_EQ(K.LastGroup(0), 0);     // has had one
  const float* tile = K.Make(5, 2); // in the place of the one dropped
  for (int at = 0; at < TileSize; ++at) EXPECT_EQ(tile[at], 0.0F);
}

TEST(TiledMatrixTest, DropsATileThatIsNotStoredWithoutHarm) {
  TiledMatrix K(40);
  K.Drop(3, 1);
  EXPECT_NE(K.Make(3, 1), K.Make(4, 1));
}

TEST(TiledMatrixTest, LeavesTilesWhereTheyAreWhileOthersAreMade) {
  TiledMatrix K(2000);
  float* first = K.Make(0, 0);
  first[0] = 9;
  for (int group = 0; group < K.Groups(); ++group) K.Make(group, group % 100);
  EXPECT_EQ(K.Find(0, 0), first);
  EXPECT_EQ(first[0], 9);
  EXPECT_EQ(StoredTiles(K), K.Groups());
}

/// Exchanges rows 1 and 39, counted from 1, from the second tile column on.
std::vector<int> ExchangeFirstAndLast(TiledMatrix& K) {
  std::vector<int> exchanged;
  K.ExchangeRows(0, 38, 1, [&](int column) { exchanged.push_back(column); });
  return exchanged;
}

TEST(TiledMatrixTest, ExchangesRowsFromAColumnOn) {
  TiledMatrix K(39);
  K(1, 1) = 1;
  K(1, 17) = 2;
  K(39, 18) = 3;
  K(39, 34) = 4;
  EXPECT_THAT(ExchangeFirstAndLast(K), ElementsAre(1, 2));
  EXPECT_THAT(EntriesOf(K), testing::UnorderedElementsAre(std::tuple(1, 1, 1.0F), std::tuple(39, 17, 2.0F),
                                                          std::tuple(1, 18, 3.0F), std::tuple(1, 34, 4.0F)));
}

TEST(TiledMatrixTest, StoresNoTileForARowOfNothingThatIsExchanged) {
  TiledMatrix K(39);
  K(2, 17) = 5; // in the tile of row 1, which itself holds nothing
  ExchangeFirstAndLast(K);
  EXPECT_EQ(StoredTiles(K), 1);
}

TEST(TiledMatrixTest, TakesMinusZeroForSomethingWhenRowsAreExchanged) {
  TiledMatrix K(39);
  K(1, 17) = -0.0F;
  ExchangeFirstAndLast(K);
  EXPECT_TRUE(std::signbit(K(39, 17)));
  EXPECT_FALSE(std::signbit(K(1, 17)));
}

TEST(TiledMatrixTest, CountsMoreColumnsThanAWordHolds) {
  TiledMatrix K(1100);
  K(1, 1090) = 6;
  EXPECT_EQ(K.Words(), 2);
  EXPECT_EQ(K.Stored(0, 0), 0U);
  EXPECT_EQ(K.Stored(1, 0), std::uint64_t{1} << (1089 / 16 - 64));
  EXPECT_EQ(TileRow(K.Find(0, 1089 / 16), 0)[1089 % 16], 6.0F);
}

} // namespace
} // namespace strutwright
