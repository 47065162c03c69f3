#include "ModelStoreFixture.h"

#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST_F(ModelStoreTest, IsEmptyAtStart) {
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(MemberCount, 0);
  EXPECT_EQ(Record(NodeTable, 0), std::vector<float>(6, 0.0F));
  EXPECT_EQ(Record(MemberTable, 0), std::vector<float>(10, 0.0F));
}

TEST_F(ModelStoreTest, HeadsTheColumnsWithQuantityAndUnit) {
  EXPECT_THAT(RowTexts(GrJoints, 0),
              testing::ElementsAre("JOINTS", "x(m)", "y(m)", "ForceX (kN)", "ForceY (kN)", "Support"));
  EXPECT_THAT(RowTexts(GrMembers, 0),
              testing::ElementsAre("MEMBERS", "Node i", "Node j", "E (kN/mm2)", "A (mm2)", "PS (kN)"));
}

TEST_F(ModelStoreTest, NumbersTheFieldsLikeTheColumns) {
  EXPECT_EQ(JointColumns[NodeX].heading, "x(m)");
  EXPECT_EQ(JointColumns[NodeSupport].heading, "Support");
  EXPECT_EQ(MemberColumns[MemberNodeI].heading, "Node i");
  EXPECT_EQ(MemberColumns[MemberPS].heading, "PS (kN)");
  EXPECT_EQ(MemberFieldLength, 6);
  EXPECT_EQ(MemberFieldForce, 9);
}

using RebuildTest = ModelStoreTest;

TEST_F(RebuildTest, GivesNoRecordButZeroForGridsWithoutDataRows) {
  SetTables(Triangle());
  RebuildModelFromGrids();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(MemberCount, 0);
  EXPECT_EQ(NodeTable.Count(), 0);
  EXPECT_EQ(MemberTable.Count(), 0);
}

TEST_F(RebuildTest, CountsNoRowThatIsEmpty) {
  GrJoints.SetRowCount(21);
  GrMembers.SetRowCount(21);
  RebuildModelFromGrids();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(MemberCount, 0);
}

TEST_F(RebuildTest, ReadsNodeFieldsOneToFive) {
  AddRow(GrJoints, {"1.5", "-2", "10", "-20", "3"});
  RebuildModelFromGrids();
  ASSERT_EQ(NodeCount, 1);
  EXPECT_THAT(Record(NodeTable, 1), testing::ElementsAre(0, 1.5F, -2, 10, -20, 3));
}

TEST_F(RebuildTest, ReadsMemberFieldsOneToFive) {
  AddRow(GrMembers, {"1", "2", "200", "1000", "-7.5"});
  RebuildModelFromGrids();
  ASSERT_EQ(MemberCount, 1);
  EXPECT_THAT(Record(MemberTable, 1), testing::ElementsAre(0, 1, 2, 200, 1000, -7.5F, 0, 0, 0, 0));
}

TEST_F(RebuildTest, NeverCopiesTheLabelColumn) {
  AddRow(GrJoints, {"1", "2", "3", "4", "0"});
  AddRow(GrMembers, {"1", "2", "200", "1000", "0"});
  GrJoints.SetText(1, 0, "9");
  GrMembers.SetText(1, 0, "9");
  RebuildModelFromGrids();
  EXPECT_EQ(NodeTable(1, 0), 0.0F);
  EXPECT_EQ(MemberTable(1, 0), 0.0F);
}

TEST_F(RebuildTest, StoresZeroForWhatIsNotNumeric) {
  AddRow(GrJoints, {"1", "abc", "", "1,5", "1e39"});
  AddRow(GrMembers, {"1", "x", "0x10", " ", "inf"});
  RebuildModelFromGrids();
  EXPECT_THAT(Record(NodeTable, 1), testing::ElementsAre(0, 1, 0, 0, 0, 0));
  EXPECT_THAT(Record(MemberTable, 1), testing::ElementsAre(0, 1, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST_F(RebuildTest, CountsByColumnOneOnly) {
  AddRow(GrJoints, {"", "2", "3", "4", "1"});
  AddRow(GrJoints, {"0", "", "", "", ""});
  AddRow(GrMembers, {"abc", "2", "200", "1000", "0"});
  RebuildModelFromGrids();
  EXPECT_EQ(NodeCount, 1);
  EXPECT_EQ(MemberCount, 0);
}

TEST_F(RebuildTest, NeitherCountsNorReadsTheHeadings) {
  GrJoints.SetText(0, 1, "5");
  AddRow(GrJoints, {"7"});
  RebuildModelFromGrids();
  EXPECT_EQ(NodeCount, 1);
  EXPECT_EQ(NodeTable(1, NodeX), 7.0F);
}

TEST_F(RebuildTest, CountsBeyondAGapButCopiesTheFirstRows) {
  AddRow(GrJoints, {"1", "10"});
  AddRow(GrJoints, {"gap", "20"});
  AddRow(GrJoints, {"3", "30"});
  RebuildModelFromGrids();
  ASSERT_EQ(NodeCount, 2);
  EXPECT_THAT(Record(NodeTable, 1), testing::ElementsAre(0, 1, 10, 0, 0, 0));
  EXPECT_THAT(Record(NodeTable, 2), testing::ElementsAre(0, 0, 20, 0, 0, 0));
}

TEST_F(RebuildTest, TreatsAGapAmongMembersAlike) {
  AddRow(GrMembers, {"", "2"});
  AddRow(GrMembers, {"3", "4"});
  RebuildModelFromGrids();
  ASSERT_EQ(MemberCount, 1);
  EXPECT_EQ(MemberTable(1, MemberNodeI), 0.0F);
  EXPECT_EQ(MemberTable(1, MemberNodeJ), 2.0F);
}

TEST_F(RebuildTest, DiscardsWhatTheAnalysisWrote) {
  SetModel(Triangle());
  for (int field = MemberFieldLength; field <= MemberFieldForce; ++field) MemberTable(2, field) = 5.0F;
  RebuildModelFromGrids();
  for (int field = MemberFieldLength; field <= MemberFieldForce; ++field) EXPECT_EQ(MemberTable(2, field), 0.0F);
}

TEST_F(RebuildTest, CountsAsManyRowsAsSixteenBitsHold) {
  GrJoints.SetRowCount(1 + Grid::MaxDataRows);
  for (int row = 1; row < GrJoints.RowCount(); ++row) GrJoints.SetText(row, 1, "1");
  RebuildModelFromGrids();
  EXPECT_EQ(NodeCount, 32767);
  EXPECT_EQ(NodeTable(32767, NodeX), 1.0F);
}

TEST_F(RebuildTest, KeepsTheCurrentCells) {
  SetModel(Triangle());
  GrJoints.SetCurrentCell(3, 4);
  GrMembers.SetCurrentCell(2, 5);
  RebuildModelFromGrids();
  EXPECT_EQ(std::pair(GrJoints.CurrentRow(), GrJoints.CurrentColumn()), std::pair(3, 4));
  EXPECT_EQ(std::pair(GrMembers.CurrentRow(), GrMembers.CurrentColumn()), std::pair(2, 5));
}

TEST_F(RebuildTest, LeavesTheTextsAlone) {
  AddRow(GrJoints, {"1.50", " 2 ", "abc", "", "1e39"});
  RebuildModelFromGrids();
  EXPECT_THAT(RowTexts(GrJoints, 1), testing::ElementsAre("", "1.50", " 2 ", "abc", "", "1e39"));
}

TEST_F(RebuildTest, ReportsNothing) {
  AddRow(GrJoints, {"1", "abc", "abc", "abc", "abc"});
  RebuildModelFromGrids();
  EXPECT_TRUE(TakeMessages().empty());
}

TEST_F(RebuildTest, LeavesFrameAndHighlightAsInNormalUse) {
  for (Grid* grid : {&GrJoints, &GrMembers}) {
    grid->SetFocusFrame(1);
    grid->SetHighlight(0);
  }
  RebuildModelFromGrids();
  for (const Grid* grid : {&GrJoints, &GrMembers}) {
    EXPECT_EQ(grid->FocusFrame(), 2);
    EXPECT_EQ(grid->Highlight(), 1);
  }
}

TEST_F(RebuildTest, TurnsFrameAndHighlightOffMeanwhile) {
  SetModel(Triangle());
  for (Grid* grid : {&GrJoints, &GrMembers}) {
    std::vector<std::pair<int, int>> seen;
    grid->SetChangeNotice([&](const GridChange&) { seen.emplace_back(grid->FocusFrame(), grid->Highlight()); });
    RebuildModelFromGrids();
    grid->SetChangeNotice({});
    EXPECT_THAT(seen, testing::Contains(std::pair(0, 0)));
    EXPECT_EQ(seen.back(), std::pair(2, 1));
  }
}

/// Both displays are off before either table is read, so a move of the current cell would not be seen.
TEST_F(RebuildTest, MovesNoCellWhileFrameOrHighlightShow) {
  SetModel(Triangle());
  int visibleMoves = 0;
  GrJoints.SetChangeNotice([&](const GridChange& change) {
    const bool shown = GrJoints.FocusFrame() != 0 || GrJoints.Highlight() != 0;
    if (change.kind != GridChange::Kind::Display && shown) ++visibleMoves;
  });
  RebuildModelFromGrids();
  GrJoints.SetChangeNotice({});
  EXPECT_EQ(visibleMoves, 0);
}

} // namespace
} // namespace strutwright
