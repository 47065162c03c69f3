#include "CheckFixture.h"
#include "FindingsFixture.h"
#include "modColumns.h"
#include "modEntryGaps.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class EntryGapsTest : public CheckFixture {
 protected:
  EntryGapsTest() {
    WriteHeadings(GrJoints, JointColumns);
    WriteHeadings(GrMembers, MemberColumns);
  }

  /// Gives a grid one row for each text, which goes into column 1; the other columns hold numbers.
  static void Fill(Grid& grid, const std::vector<std::string>& texts) {
    grid.SetRowCount(static_cast<int>(texts.size()) + 1);
    int row = 1;
    for (const std::string& text : texts) {
      grid.SetText(row, 1, text);
      grid.SetText(row, 2, "1");
      ++row;
    }
    RebuildModelFromGrids();
  }

  static std::string JointsText(const std::vector<std::string>& texts) {
    Fill(GrJoints, texts);
    return RowGapText();
  }
};

TEST_F(EntryGapsTest, IsNamedWithWhatIsReadAndWhatIsNot) {
  EXPECT_EQ(JointsText({"0", "", "4"}), "Row 2 has no x: 2 nodes are read, row 3 is not.");
  EXPECT_EQ(JointsText({"0", " ", "4"}), "Row 2 has no x: 2 nodes are read, row 3 is not.");
}

TEST_F(EntryGapsTest, IsNamedInSingularAndPlural) {
  EXPECT_EQ(JointsText({"", "4"}), "Row 1 has no x: 1 node is read, row 2 is not.");
  EXPECT_EQ(JointsText({"", "", "4"}), "Rows 1 and 2 have no x: 1 node is read, row 3 is not.");
  EXPECT_EQ(JointsText({"1", "", "", "4", "5"}), "Rows 2 and 3 have no x: 3 nodes are read, rows 4 and 5 are not.");
  EXPECT_EQ(JointsText({"1", "", "3", "", "5"}), "Rows 2 and 4 have no x: 3 nodes are read, row 5 is not.");
}

TEST_F(EntryGapsTest, IsNamedWithItsFirstRowsWhereItIsLong) {
  std::vector<std::string> texts(6, "");
  for (int row = 7; row <= 12; ++row) texts.emplace_back("5");
  EXPECT_EQ(JointsText(texts), "Rows 1, 2, 3, 4 and 2 more have no x: 6 nodes are read, rows 7, 8, 9, 10 and 2 more "
                               "are not.");
}

TEST_F(EntryGapsTest, OfMembersIsAboutNodeI) {
  Fill(GrMembers, {"1", "", "2"});
  EXPECT_EQ(RowGapText(), "Row 2 has no Node i: 2 members are read, row 3 is not.");
  Fill(GrMembers, {"", "2"});
  EXPECT_EQ(RowGapText(), "Row 1 has no Node i: 1 member is read, row 2 is not.");
}

TEST_F(EntryGapsTest, OfBothGridsAreNamedOneAfterTheOther) {
  Fill(GrJoints, {"", "1"});
  Fill(GrMembers, {"", "1"});
  EXPECT_EQ(RowGapText(), "Row 1 has no x: 1 node is read, row 2 is not. "
                          "Row 1 has no Node i: 1 member is read, row 2 is not.");
}

TEST_F(EntryGapsTest, AreNoneWhereOnlyTheRowsBehindTheLastAreEmpty) {
  EXPECT_EQ(JointsText({"0", "4", "", ""}), "");
  EXPECT_EQ(JointsText({"", "", ""}), "");
  EXPECT_EQ(JointsText({}), "");
}

TEST_F(EntryGapsTest, AreTheFirstThingThatTheCheckFindsOdd) {
  Fill(GrMembers, {"", "0"});
  Fill(GrJoints, {"0", "", "4"});
  const std::vector<Finding> findings = FindOddities(ReadTruss());
  ASSERT_GE(findings.size(), 2U);
  EXPECT_EQ(findings[0].kind, FindingKind::RowGap);
  EXPECT_EQ(findings[0].text, "Row 2 has no x: 2 nodes are read, row 3 is not.");
  EXPECT_THAT(findings[0].nodes, ElementsAre(2));
  EXPECT_EQ(findings[1].text, "Row 1 has no Node i: 1 member is read, row 2 is not.");
  EXPECT_THAT(findings[1].members, ElementsAre(1));
}

TEST_F(EntryGapsTest, OfAModelWithoutGridsAreNone) {
  ResetModel(); // as in a program without windows
  EXPECT_EQ(RowGapText(), "");
  SetTables(Triangle());
  EXPECT_THAT(FindOddities(ReadTruss()), IsEmpty());
}

using MissingNodeTest = CheckFixture;

TEST_F(MissingNodeTest, IsNamedWithWhereTheMemberIsDrawn) {
  SetTables({{{0, 0}, {4, 0}}, {{1, 2}, {1, 0}}});
  EXPECT_EQ(MissingNodeText(), "Member 2 has no Node j: it is drawn to the origin.");
  SetTables({{{0, 0}, {4, 0}}, {{0, 2}, {0, 1}}});
  EXPECT_EQ(MissingNodeText(), "Members 1 and 2 have no Node i: they are drawn from the origin.");
  SetTables({{{0, 0}, {4, 0}}, {{0, 0}}});
  EXPECT_EQ(MissingNodeText(), "Member 1 has no nodes.");
}

TEST_F(MissingNodeTest, IsNamedForEachEnd) {
  SetTables({{{0, 0}, {4, 0}}, {{0, 2}, {1, 0}, {0, 0}, {0, 0}}});
  EXPECT_EQ(MissingNodeText(), "Member 2 has no Node j: it is drawn to the origin. "
                               "Member 1 has no Node i: it is drawn from the origin. Members 3 and 4 have no nodes.");
}

TEST_F(MissingNodeTest, IsNotNamedWhereEveryMemberHasTwo) {
  SetTables(Triangle());
  EXPECT_EQ(MissingNodeText(), "");
  SetTables({{{0, 0}}, {{1, 7}}}); // another matter: that node is not there
  EXPECT_EQ(MissingNodeText(), "");
}

} // namespace
} // namespace strutwright
