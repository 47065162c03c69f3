#include "AnalysisState.h"
#include "EditingState.h"
#include "EventsTest.h"
#include "ModelBuilder.h"
#include "modGrids.h"
#include "modModelStore.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

std::vector<std::string> RowTexts(const Grid& grid, int row) {
  std::vector<std::string> texts;
  for (int column = 0; column < grid.ColumnCount(); ++column) texts.push_back(grid.Text(row, column));
  return texts;
}

class GridsTest : public EventsTest {
 protected:
  GridsTest() {
    ResetModel();
    TheAnalysis = AnalysisState{};
    TheEditing = EditingState{};
    initGrids();
  }
};

TEST_F(GridsTest, HaveTheHeadingsOfTheirData) {
  EXPECT_THAT(RowTexts(GrJoints, 0), ElementsAre("JOINTS", "x(m)", "y(m)", "ForceX (kN)", "ForceY (kN)", "Support"));
  EXPECT_THAT(RowTexts(GrMembers, 0), ElementsAre("MEMBERS", "Node i", "Node j", "E (kN/mm2)", "A (mm2)", "PS (kN)"));
  EXPECT_THAT(RowTexts(jResGr, 0), ElementsAre("JOINTS", "Def x (mm)", "Def y (mm)", "ForceX (kN)", "ForceY (kN)"));
  EXPECT_THAT(RowTexts(mResGr, 0), ElementsAre("MEMBERS", "Force (kN)", "T or C", "s (N/mm2)", "dL (mm)"));
}

TEST_F(GridsTest, HaveTwentyNumberedRowsForDataAndTwoRowsForResultsAtStart) {
  EXPECT_EQ(GrJoints.RowCount(), 21);
  EXPECT_EQ(GrMembers.RowCount(), 21);
  EXPECT_EQ(GrJoints.Text(20, 0), "20");
  EXPECT_EQ(GrMembers.Text(1, 0), "1");
  EXPECT_EQ(jResGr.RowCount(), 2);
  EXPECT_EQ(mResGr.RowCount(), 2);
}

TEST_F(GridsTest, HaveTheirHeaderRowAloneAtCapacityZero) {
  GridCapacity = 0;
  initGrids();
  EXPECT_EQ(GrJoints.RowCount(), 1);
  EXPECT_EQ(GrMembers.RowCount(), 1);
}

TEST_F(GridsTest, KeepTheirHeaderRowAtANegativeCapacity) {
  GridCapacity = -5;
  initGrids();
  EXPECT_EQ(GrJoints.RowCount(), 1);
  EXPECT_EQ(GrJoints.Text(0, 1), "x(m)");
}

TEST_F(GridsTest, LoseTheirDataButNotTheirHeadersWhenCleared) {
  SetModel(Triangle());

  ClearGrid(GrJoints, 2);

  EXPECT_EQ(GrJoints.RowCount(), 3);
  EXPECT_EQ(GrJoints.Text(0, 2), "y(m)");
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "", "", "", "", ""));
}

class ResultGridsTest : public GridsTest {
 protected:
  /// One free-standing member from node 1 to node 2 with these results.
  void SetResults(float displacement, float reaction, float force) {
    SetTables({{{0, 0}, {3, 0}}, {{1, 2, 200, 1000}}});
    Displacements = {0, 0, 0, displacement, 0};
    Reactions = {0, 0, reaction, 0, 0};
    MemberTable(1, MemberFieldLength) = 3000;
    MemberTable(1, MemberFieldForce) = force;
  }
};

TEST_F(ResultGridsTest, GiveTwoDecimalsOfADisplacementAndOneOfAReaction) {
  SetResults(1.23456F, -7.26F, 0);
  resultGrids();
  EXPECT_THAT(RowTexts(jResGr, 1), ElementsAre("1", "0.0", "0.0", ".", "-7.3"));
  EXPECT_THAT(RowTexts(jResGr, 2), ElementsAre("2", "1.23", "0.0", ".", "."));
}

TEST_F(ResultGridsTest, GiveForceStateStressAndElongation) {
  SetResults(0, 0, 12.3456F);
  resultGrids();
  // 12.3456 kN on 1000 mm2: 12.3456 N/mm2; over 3000 mm at 200 kN/mm2: 0.185184 mm
  EXPECT_THAT(RowTexts(mResGr, 1), ElementsAre("1", "12.35", "T", "12.346", "0.185"));
}

TEST_F(ResultGridsTest, ShowARoundNumberWithOneDecimal) {
  SetResults(2, 5, -4);
  resultGrids();
  EXPECT_EQ(jResGr.Text(2, 1), "2.0");
  EXPECT_EQ(jResGr.Text(1, 4), "5.");
  EXPECT_THAT(RowTexts(mResGr, 1), ElementsAre("1", "-4.0", "C", "-4.0", "-0.06"));
}

TEST_F(ResultGridsTest, LeaveTheStateEmptyAtExactlyTheLimit) {
  SetResults(0, 0, 0.0001F);
  resultGrids();
  EXPECT_EQ(mResGr.Text(1, 2), "");
}

TEST_F(ResultGridsTest, ShowAMessageForAMemberThatCannotStretch) {
  SetResults(0, 0, 0);
  MemberTable(1, MemberA) = 0;
  resultGrids();
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "Ignoring member 1 as area is not valid")));
  EXPECT_THAT(RowTexts(mResGr, 1), ElementsAre("1", "0.0", "Zero Bar", "0.0", "0.0"));
}

} // namespace
} // namespace strutwright
