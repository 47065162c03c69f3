#include "ModelStoreFixture.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using CopyModelTest = ModelStoreTest;

TEST_F(CopyModelTest, GivesEachGridARowForEachRecord) {
  GrJoints.SetRowCount(21);
  GrMembers.SetRowCount(21);
  SetTables({{{0, 0}, {1, 0}, {2, 0}}, {{1, 2}, {2, 3}}});
  CopyModelToGrids();
  EXPECT_EQ(GrJoints.RowCount(), 4);
  EXPECT_EQ(GrMembers.RowCount(), 3);
}

TEST_F(CopyModelTest, LeavesOnlyTheHeaderRowsForAnEmptyModel) {
  GrJoints.SetRowCount(21);
  GrMembers.SetRowCount(21);
  CopyModelToGrids();
  EXPECT_EQ(GrJoints.RowCount(), 1);
  EXPECT_EQ(GrMembers.RowCount(), 1);
  EXPECT_EQ(GrJoints.Text(0, 1), "x(m)");
}

TEST_F(CopyModelTest, WritesEveryInputFieldAndTheNumber) {
  SetTables({{{0, 0}, {2.5F, -0.25F, 1.5e9F, 0, 3}}, {{1, 2, 200, 1000, 1e-5F}}});
  CopyModelToGrids();
  EXPECT_THAT(RowTexts(GrJoints, 2), testing::ElementsAre("2", "2.5", "-0.25", "1.5E+09", "0", "3"));
  EXPECT_THAT(RowTexts(GrMembers, 1), testing::ElementsAre("1", "1", "2", "200", "1000", "1E-05"));
}

TEST_F(CopyModelTest, ShowsNeitherLabelsNorResultsOfTheTables) {
  SetTables(Triangle());
  NodeTable(1, 0) = 9.0F;
  MemberTable(1, 0) = 9.0F;
  MemberTable(1, MemberFieldForce) = 77.0F;
  CopyModelToGrids();
  EXPECT_EQ(GrJoints.Text(1, 0), "1");
  EXPECT_EQ(GrMembers.Text(1, 0), "1");
  EXPECT_EQ(GrMembers.ColumnCount(), 6);
}

TEST_F(CopyModelTest, LeavesTheTablesAlone) {
  SetTables(Triangle());
  MemberTable(1, MemberFieldForce) = 77.0F;
  const FieldTable nodes = NodeTable;
  const FieldTable members = MemberTable;
  CopyModelToGrids();
  EXPECT_EQ(NodeTable, nodes);
  EXPECT_EQ(MemberTable, members);
}

TEST_F(CopyModelTest, GivesTheSameModelBackWhenReread) {
  SetTables(PrattTruss(12));
  const FieldTable nodes = NodeTable;
  const FieldTable members = MemberTable;
  CopyModelToGrids();
  RebuildModelFromGrids();
  EXPECT_EQ(NodeTable, nodes);
  EXPECT_EQ(MemberTable, members);
}

TEST_F(CopyModelTest, MakesTheSevenDigitsOfTheTextTheValueInUse) {
  SetTables({{{1.0F / 3.0F, 0}}, {}});
  CopyModelToGrids();
  RebuildModelFromGrids();
  EXPECT_EQ(NodeTable(1, NodeX), 0.3333333F);
  EXPECT_NE(NodeTable(1, NodeX), 1.0F / 3.0F);
}

TEST(RoundNodeNumberTest, RoundsToTheNearest) {
  EXPECT_EQ(RoundNodeNumber(3.0F), 3);
  EXPECT_EQ(RoundNodeNumber(2.4F), 2);
  EXPECT_EQ(RoundNodeNumber(2.6F), 3);
  EXPECT_EQ(RoundNodeNumber(-2.6F), -3);
}

TEST(RoundNodeNumberTest, RoundsTiesToEven) {
  EXPECT_EQ(RoundNodeNumber(0.5F), 0);
  EXPECT_EQ(RoundNodeNumber(1.5F), 2);
  EXPECT_EQ(RoundNodeNumber(2.5F), 2);
  EXPECT_EQ(RoundNodeNumber(3.5F), 4);
  EXPECT_EQ(RoundNodeNumber(-0.5F), 0);
  EXPECT_EQ(RoundNodeNumber(-1.5F), -2);
}

TEST(RoundNodeNumberTest, StaysOutsideEveryModelForWhatNoIntegerHolds) {
  EXPECT_EQ(RoundNodeNumber(1e30F), std::numeric_limits<int>::max());
  EXPECT_EQ(RoundNodeNumber(-1e30F), std::numeric_limits<int>::min());
  EXPECT_EQ(RoundNodeNumber(std::numeric_limits<float>::quiet_NaN()), std::numeric_limits<int>::min());
}

} // namespace
} // namespace strutwright
