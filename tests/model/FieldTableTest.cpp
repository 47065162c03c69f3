#include "FieldTable.h"

#include "Ensure.h"

#include <algorithm>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(FieldTableTest, HoldsRecordZeroOnlyAtFirst) {
  const FieldTable table(6);
  EXPECT_EQ(table.Count(), 0);
  EXPECT_EQ(table.FieldCount(), 6);
  EXPECT_THAT(table.InOrder(), testing::ElementsAre(0, 0, 0, 0, 0, 0));
}

TEST(FieldTableTest, HasRecordsFromZeroToTheCountOnceRecreated) {
  FieldTable table(10);
  table.Recreate(3);
  EXPECT_EQ(table.Count(), 3);
  EXPECT_EQ(table.InOrder().size(), 4U * 10U);
  EXPECT_NO_THROW(table(0, 0) = 1.0F);
  EXPECT_NO_THROW(table(3, 9) = 1.0F);
}

TEST(FieldTableTest, DiscardsOldValuesWhenRecreated) {
  FieldTable table(2);
  table.Recreate(2);
  std::ranges::fill(table.InOrder(), 7.0F);
  table.Recreate(2);
  EXPECT_THAT(table.InOrder(), testing::Each(0.0F));
}

TEST(FieldTableTest, ShrinksWhenRecreatedWithFewerRecords) {
  FieldTable table(2);
  table.Recreate(5);
  table.Recreate(1);
  EXPECT_EQ(table.InOrder().size(), 4U);
  EXPECT_THROW(table(2, 0), std::out_of_range);
}

TEST(FieldTableTest, VariesTheEntityFastestInMemory) {
  FieldTable table(2);
  table.Recreate(2);
  for (int entity = 0; entity <= 2; ++entity) {
    for (int field = 0; field <= 1; ++field) table(entity, field) = static_cast<float>(10 * field + entity);
  }
  EXPECT_THAT(table.InOrder(), testing::ElementsAre(0, 1, 2, 10, 11, 12));
}

TEST(FieldTableTest, LetsValuesBeWrittenInMemoryOrder) {
  FieldTable table(2);
  table.Recreate(1);
  table.InOrder()[2] = 5.0F;
  EXPECT_EQ(table(0, 1), 5.0F);
}

TEST(FieldTableTest, RefusesEveryIndexOutside) {
  FieldTable table(6);
  table.Recreate(2);
  EXPECT_THROW(table(3, 1), std::out_of_range);
  EXPECT_THROW(table(-1, 1), std::out_of_range);
  EXPECT_THROW(table(1, 6), std::out_of_range);
  EXPECT_THROW(table(1, -1), std::out_of_range);
}

TEST(FieldTableTest, RefusesEveryIndexOutsideForReadingToo) {
  const FieldTable table(6);
  EXPECT_THROW(table(1, 1), std::out_of_range);
  EXPECT_THROW(table(0, 6), std::out_of_range);
}

TEST(FieldTableTest, TakesANegativeCountForABug) {
  FieldTable table(6);
  EXPECT_THROW(table.Recreate(-1), EnsureFailed);
}

TEST(FieldTableTest, EqualsATableOfTheSameShapeAndValues) {
  FieldTable one(2);
  FieldTable other(2);
  one.Recreate(1);
  EXPECT_NE(one, other);
  other.Recreate(1);
  EXPECT_EQ(one, other);
  other(1, 1) = 1.0F;
  EXPECT_NE(one, other);
}

// Both hold twelve zeros.
TEST(FieldTableTest, DiffersFromATableOfAnotherShape) {
  FieldTable wide(6);
  FieldTable narrow(3);
  wide.Recreate(1);
  narrow.Recreate(3);
  EXPECT_NE(wide, narrow);
}

} // namespace
} // namespace strutwright
