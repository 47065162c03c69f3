#include "NegativeZeros.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// 68 tile columns in two words, 257 groups.
class NegativeZerosTest : public testing::Test {
 protected:
  TiledMatrix K{1028};
  NegativeZeros zeros{K};
};

TEST_F(NegativeZerosTest, KnowNoTileAtFirst) {
  EXPECT_FALSE(zeros.IsNoted(0, 0));
  EXPECT_EQ(zeros.Columns(0), 0U);
  EXPECT_EQ(zeros.Columns(1), 0U);
  EXPECT_THAT(zeros.Take(0), IsEmpty());
}

TEST_F(NegativeZerosTest, NameTheColumnsWithTilesNoted) {
  zeros.Note(3, 0);
  zeros.Note(256, 63);
  zeros.Note(5, 65);
  EXPECT_EQ(zeros.Columns(0), std::uint64_t{1} | std::uint64_t{1} << 63);
  EXPECT_EQ(zeros.Columns(1), std::uint64_t{1} << 1);
}

TEST_F(NegativeZerosTest, KeepATileThatIsNotedTwiceOnce) {
  zeros.Note(7, 2);
  zeros.Note(1, 2);
  zeros.Note(7, 2);
  EXPECT_THAT(zeros.Take(2), ElementsAre(7, 1));
}

TEST_F(NegativeZerosTest, ForgetTheTilesOfTheColumnTakenOnly) {
  zeros.Note(7, 2);
  zeros.Note(7, 3);
  zeros.Take(2);
  EXPECT_FALSE(zeros.IsNoted(7, 2));
  EXPECT_TRUE(zeros.IsNoted(7, 3));
  EXPECT_EQ(zeros.Columns(0), std::uint64_t{1} << 3);
}

TEST_F(NegativeZerosTest, CanNoteAgainWhatWasTaken) {
  zeros.Note(7, 2);
  zeros.Take(2);
  zeros.Note(7, 2);
  EXPECT_THAT(zeros.Take(2), ElementsAre(7));
}

} // namespace
} // namespace strutwright
