#include "GridFixture.h"
#include "modGenerators.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Message CountBox = Box(MessageIcon::Information, "Please enter a positive integer for the number of nodes");
const Message CoordinatesBox = Box(MessageIcon::Information, " Please enter numeric data for coordinates of node line");

using AddNodeTest = GridFixture;

TEST_F(AddNodeTest, WritesTheNextRow) {
  NodeCount = 2;
  addNode(2.5F, -1);
  EXPECT_EQ(NodeCount, 3);
  EXPECT_THAT(RowTexts(GrJoints, 3), ElementsAre("3", "2.5", "-1", "", "", ""));
  EXPECT_EQ(GrJoints.RowCount(), 21);
}

TEST_F(AddNodeTest, WritesSevenDigitsAtMost) {
  addNode(10.0F / 3, 1.5e9F);
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "3.333333", "1.5E+09", "", "", ""));
}

TEST_F(AddNodeTest, KeepsWhatTheOtherColumnsHold) {
  WriteRow(GrJoints, 1, {"", "", "5", "-6", "3"});
  addNode(1, 2);
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "1", "2", "5", "-6", "3"));
}

TEST_F(AddNodeTest, GrowsTheGridByARowWhereItIsFull) {
  GridCapacity = 0;
  initGrids();
  addNode(1, 2);
  addNode(3, 4);
  EXPECT_EQ(GrJoints.RowCount(), 3);
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "3", "4", "", "", ""));
}

TEST_F(AddNodeTest, FillsTheLastRowBeforeTheGridGrows) {
  NodeCount = 19;
  addNode(1, 2);
  EXPECT_EQ(GrJoints.RowCount(), 21);
  addNode(3, 4);
  EXPECT_EQ(GrJoints.RowCount(), 22);
}

TEST_F(AddNodeTest, LeavesAllElseToItsCaller) {
  addNode(1, 2);
  EXPECT_THAT(events, IsEmpty());
  EXPECT_EQ(NodeTable.Count(), 0);
}

TEST_F(AddNodeTest, RefusesMoreNodesThanAGridHasRows) {
  GrJoints.SetRowCount(1 + Grid::MaxDataRows);
  NodeCount = Grid::MaxDataRows;
  EXPECT_THROW(addNode(1, 2), std::length_error);
  EXPECT_EQ(NodeCount, Grid::MaxDataRows);
}

using AddMemberTest = GridFixture;

TEST_F(AddMemberTest, WritesTheNextRow) {
  WriteRow(GrMembers, 2, {"", "", "200", "1000", "5"});
  MemberCount = 1;
  AddMember(3, 12);
  EXPECT_EQ(MemberCount, 2);
  EXPECT_THAT(RowTexts(GrMembers, 2), ElementsAre("2", "3", "12", "200", "1000", "5"));
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(AddMemberTest, GrowsTheGridByARowWhereItIsFull) {
  MemberCount = 20;
  AddMember(1, 2);
  EXPECT_EQ(GrMembers.RowCount(), 22);
  EXPECT_THAT(RowTexts(GrMembers, 21), ElementsAre("21", "1", "2", "", "", ""));
}

using NodeLineTest = GridFixture;

TEST_F(NodeLineTest, StartsWithElevenNodesOverTenMetres) {
  GenerateNodeLine({});
  EXPECT_EQ(NodeCount, 11);
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "0", "0", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 11), ElementsAre("11", "10", "0", "", "", ""));
}

TEST_F(NodeLineTest, SpacesItsNodesEquallyBehindTheExistingOnes) {
  SetModel(Triangle());
  GenerateNodeLine({"5", "0", "0", "8", "2"});
  EXPECT_EQ(NodeCount, 8);
  EXPECT_THAT(ColumnTexts(GrJoints, NodeX), ElementsAre("0", "4", "4", "0", "2", "4", "6", "8"));
  EXPECT_THAT(ColumnTexts(GrJoints, NodeY), ElementsAre("0", "0", "3", "0", "0.5", "1", "1.5", "2"));
  EXPECT_THAT(ColumnTexts(GrJoints, 0), ElementsAre("1", "2", "3", "4", "5", "6", "7", "8"));
}

TEST_F(NodeLineTest, GivesBothEndsForTwoNodes) {
  GenerateNodeLine({"2", "1", "-2.5", "-3", "4"});
  EXPECT_EQ(NodeCount, 2);
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "1", "-2.5", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "-3", "4", "", "", ""));
}

TEST_F(NodeLineTest, DividesInDoubleAndRoundsOnce) {
  GenerateNodeLine({"4", "0", "0", "1", "0.1"});
  EXPECT_EQ(NodeTable(2, NodeX), 0.3333333F);
  EXPECT_EQ(NodeTable(3, NodeY), 0.06666667F);
  EXPECT_EQ(GrJoints.Text(2, NodeX), "0.3333333");
}

class ShortNodeLineTest : public GridFixture, public testing::WithParamInterface<const char*> {};

TEST_P(ShortNodeLineTest, IsTheFirstEndAlone) {
  GenerateNodeLine({GetParam(), "1", "2", "8", "2"});
  EXPECT_EQ(NodeCount, 1);
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "1", "2", "", "", ""));
}

INSTANTIATE_TEST_SUITE_P(Counts, ShortNodeLineTest, testing::Values("1", "0", "-3", "1.4", "0.5", " 1 "));

TEST_F(NodeLineTest, RoundsItsCountWithTiesToEven) {
  GenerateNodeLine({"2.5", "0", "0", "1", "0"});
  EXPECT_EQ(NodeCount, 2);
}

class NodeLineCountTest : public GridFixture, public testing::WithParamInterface<const char*> {};

TEST_P(NodeLineCountTest, IsToldAndTakenForZero) {
  GenerateNodeLine({GetParam(), "1", "2", "8", "2"});
  ExpectBoxes({CountBox});
  EXPECT_EQ(NodeCount, 1);
  EXPECT_EQ(GrJoints.Text(1, NodeX), "1");
}

INSTANTIATE_TEST_SUITE_P(NotIntegers, NodeLineCountTest, testing::Values("", "x", "3 nodes", "32768", "1e39"));

class NodeLineEndsTest : public GridFixture, public testing::WithParamInterface<NodeLineTexts> {};

TEST_P(NodeLineEndsTest, AreToldAndGiveNothing) {
  SetModel(Triangle());
  AnalysisDone = FlagTrue;
  MemberTable(1, MemberFieldForce) = 5;
  const auto before = AllTexts(GrJoints);

  GenerateNodeLine(GetParam());

  ExpectBoxes({CoordinatesBox});
  EXPECT_EQ(AllTexts(GrJoints), before);
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 5.0F);
  EXPECT_THAT(events, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(NotNumeric, NodeLineEndsTest,
                         testing::Values(NodeLineTexts{"5", "", "0", "8", "2"}, NodeLineTexts{"5", "0", " ", "8", "2"},
                                         NodeLineTexts{"5", "0", "0", "x", "2"},
                                         NodeLineTexts{"5", "0", "0", "8", "1,5"},
                                         NodeLineTexts{"5", "x", "x", "x", "x"}));

TEST_F(NodeLineTest, ReportsItsCountAndThenOfItsEnds) {
  GenerateNodeLine({"x", "0", "0", "8", ""});
  ExpectBoxes({CountBox, CoordinatesBox});
  EXPECT_EQ(NodeCount, 0);
}

TEST_F(NodeLineTest, EndsTheAnalysisRebuildsAndRedraws) {
  GenerateNodeLine({"3", "0", "0", "8", "2"});
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
  EXPECT_EQ(NodeTable.Count(), 3);
  EXPECT_EQ(NodeTable(3, NodeX), 8.0F);
}

TEST_F(NodeLineTest, OverwritesNoRowThatWasPastedMeanwhile) {
  WriteRow(GrJoints, 1, {"5", "6", "0", "0", "0"}); // the tables do not know it
  GenerateNodeLine({"1", "1", "2", "8", "2"});
  EXPECT_EQ(NodeCount, 2);
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "5", "6", "0", "0", "0"));
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "1", "2", "", "", ""));
}

TEST_F(NodeLineTest, GrowsTheGridAsFarAsItNeeds) {
  GenerateNodeLine({"30", "0", "0", "29", "0"});
  EXPECT_EQ(GrJoints.RowCount(), 31);
  EXPECT_EQ(GrJoints.Text(30, NodeX), "29");
}

TEST_F(NodeLineTest, FillsAGridToItsLastRow) {
  GenerateNodeLine({"32767", "0", "0", "32766", "0"});
  EXPECT_EQ(NodeCount, 32767);
  EXPECT_EQ(GrJoints.Text(32767, NodeX), "32766");
}

TEST_F(NodeLineTest, ChangesNothingWhereItsNodesWouldNotFit) {
  SetModel(Triangle());
  AnalysisDone = FlagTrue;
  MemberTable(1, MemberFieldForce) = 5;

  EXPECT_THROW(GenerateNodeLine({"32767", "0", "0", "1", "0"}), std::length_error);

  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(GrJoints.RowCount(), 4);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 5.0F);
  EXPECT_THAT(events, IsEmpty());
}

using ListedRowsTest = GridFixture;

TEST_F(ListedRowsTest, GetBothTextsAsTheyStand) {
  fillListedRows("1-3,5", GrMembers, "200", "1000", 3, 4);
  for (const int row : {1, 2, 3, 5}) {
    EXPECT_THAT(RowTexts(GrMembers, row), ElementsAre(std::to_string(row), "", "", "200", "1000", ""));
  }
  for (const int row : {4, 6})
    EXPECT_THAT(RowTexts(GrMembers, row), ElementsAre(std::to_string(row), "", "", "", "", ""));
}

TEST_F(ListedRowsTest, AreNotCheckedForNumbers) {
  fillListedRows("2", GrJoints, " -010 ", "abc", 3, 4);
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "", "", " -010 ", "abc", ""));
}

TEST_F(ListedRowsTest, BecomePartOfTheModel) {
  SetModel(Triangle());
  fillListedRows("2,3", GrJoints, "7", "-8", 3, 4);
  EXPECT_EQ(NodeTable(2, NodeForceX), 7.0F);
  EXPECT_EQ(NodeTable(3, NodeForceY), -8.0F);
  EXPECT_THAT(events, ElementsAre("ModelChanged"));
  EXPECT_FALSE(rangeError);
}

TEST_F(ListedRowsTest, StayAsTheyAreForABadList) {
  const auto before = AllTexts(GrJoints);
  fillListedRows("1,,2", GrJoints, "7", "-8", 3, 4);
  ExpectBoxes({Box(MessageIcon::Information, "Text input error: the format is 1,2,4-7,59")});
  EXPECT_EQ(AllTexts(GrJoints), before);
  EXPECT_THAT(events, IsEmpty());
  EXPECT_TRUE(rangeError);
}

TEST_F(ListedRowsTest, MakeTheGridGrow) {
  GridCapacity = 10;
  initGrids();
  fillListedRows("12", GrJoints, "7", "-8", 3, 4);
  EXPECT_EQ(GrJoints.RowCount(), 13);
  EXPECT_THAT(RowTexts(GrJoints, 11), ElementsAre("11", "", "", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 12), ElementsAre("12", "", "", "7", "-8", ""));
}

TEST_F(ListedRowsTest, GetRowNumbersWhereTheGridGrows) {
  GrMembers.SetText(2, 0, "x");
  fillListedRows("22", GrMembers, "7", "-8", 3, 4);
  EXPECT_EQ(GrMembers.RowCount(), 23);
  EXPECT_EQ(GrMembers.Text(2, 0), "2");
  EXPECT_EQ(GrMembers.Text(22, 0), "22");
}

TEST_F(ListedRowsTest, DoNotMakeTheGridGrowForARowOneBeyondItsLast) {
  fillListedRows("20,21", GrMembers, "7", "-8", 3, 4);
  ExpectBoxes({MissBox(21, 3)});
  EXPECT_EQ(GrMembers.RowCount(), 21);
  EXPECT_THAT(RowTexts(GrMembers, 20), ElementsAre("20", "", "", "7", "-8", ""));
  EXPECT_THAT(events, ElementsAre("ModelChanged"));
  EXPECT_FALSE(rangeError);
}

TEST_F(ListedRowsTest, DoNotCountTheHeaderRow) {
  fillListedRows("0-1", GrJoints, "7", "-8", 3, 4);
  ExpectBoxes({MissBox(0, 3)});
  EXPECT_EQ(GrJoints.Text(0, 3), "ForceX (kN)");
  EXPECT_EQ(GrJoints.Text(1, 4), "-8");
}

TEST_F(ListedRowsTest, PassOverAColumnThatIsNotThere) {
  fillListedRows("1-3", GrJoints, "7", "-8", 5, 6);
  ExpectBoxes({MissBox(1, 6)});
  EXPECT_EQ(GrJoints.Text(3, 5), "7");
}

TEST_F(ListedRowsTest, KeepTheResultsMarkedValidAndZeroTheirFields) {
  SetModel(Triangle());
  AnalysisDone = FlagTrue;
  MemberTable(1, MemberFieldForce) = 5;
  fillListedRows("1-3", GrMembers, "210", "500", 3, 4);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 0.0F);
  EXPECT_THAT(events, ElementsAre("ModelChanged"));
}

TEST_F(ListedRowsTest, EndTheAnalysisWhereTheCountOfNodesHasChanged) {
  SetModel(Triangle());
  AnalysisDone = FlagTrue;
  GrJoints.SetRowCount(5);
  GrJoints.SetText(4, NodeX, "9");
  fillListedRows("1-3", GrJoints, "7", "-8", 3, 4);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
}

TEST_F(ListedRowsTest, EndTheAnalysisWhereTheCountOfMembersHasChanged) {
  SetModel(Triangle());
  AnalysisDone = FlagTrue;
  GrMembers.SetText(3, MemberNodeI, "");
  fillListedRows("1-3", GrJoints, "7", "-8", 3, 4);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
}

TEST_F(ListedRowsTest, EndNoAnalysisWhereThereIsNone) {
  SetModel(Triangle());
  GrMembers.SetText(3, MemberNodeI, "");
  fillListedRows("1-3", GrJoints, "7", "-8", 3, 4);
  EXPECT_THAT(events, ElementsAre("ModelChanged"));
}

/// Writing a row once for each time that it is listed would take longer than anyone waits.
TEST_F(ListedRowsTest, AreWrittenQuicklyWhereTheListNamesThemAgainAndAgain) {
  std::string list;
  for (int time = 0; time < 100; ++time) list += "1-32767,";
  fillListedRows(list + "1", GrJoints, "7", "-8", 3, 4);
  EXPECT_EQ(GrJoints.RowCount(), 32768);
  EXPECT_EQ(GrJoints.Text(32767, 4), "-8");
}

} // namespace
} // namespace strutwright
