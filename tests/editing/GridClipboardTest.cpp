#include "GridFixture.h"
#include "modGridClipboard.h"

#include <string>
#include <tuple>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

const Message CompressQuestion =
    Box(MessageIcon::Question, "This will remove any rows with all zero entries. Proceed?");
const Message NothingToRemove = Box(MessageIcon::Information, "No zero rows found");

class GridClipboardTest : public GridFixture {
 protected:
  static void Select(Grid& grid, const GridBlock& block) {
    grid.SetCurrentCell(block.firstRow, block.firstColumn);
    grid.ExtendSelection(block.lastRow, block.lastColumn);
  }
};

using GridMenuTest = GridClipboardTest;

TEST_F(GridClipboardTest, CopiesNothingOfAHeaderRowAlone) {
  for (Grid* grid : {&GrJoints, &GrMembers, &jResGr, &mResGr}) {
    grid->SetRowCount(1);
    clipboard.text = "before";
    RunGridCommand(GridCommand::Copy, *grid);
    if (IsEnabled(GridCommand::Cut, *grid)) RunGridCommand(GridCommand::Cut, *grid);
    EXPECT_EQ(clipboard.text, "before");
  }
}

TEST_F(GridMenuTest, NamesItsEntriesInOrder) {
  std::vector<std::string> names;
  for (const GridMenuEntry& entry : GridMenu) names.emplace_back(entry.name);
  EXPECT_THAT(names, ElementsAre("mnuGrid_Copy", "mnuGrid_Cut", "mnuGrid_Paste", "mnuGrid_Delete", "mnuGrid_SelectAll",
                                 "mnuGrid_Compress"));
}

TEST_F(GridMenuTest, OffersAllEntriesOnTheDataGrids) {
  for (const GridMenuEntry& entry : GridMenu) {
    EXPECT_TRUE(IsEnabled(entry.command, GrJoints)) << entry.name;
    EXPECT_TRUE(IsEnabled(entry.command, GrMembers)) << entry.name;
  }
}

/// A command, and whether it is enabled on the results grids.
using ResultsCase = std::pair<GridCommand, bool>;

class ResultsMenuTest : public GridClipboardTest, public testing::WithParamInterface<ResultsCase> {};

TEST_P(ResultsMenuTest, OffersCopyAndSelectAllOnly) {
  EXPECT_EQ(IsEnabled(GetParam().first, jResGr), GetParam().second);
  EXPECT_EQ(IsEnabled(GetParam().first, mResGr), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Commands, ResultsMenuTest,
                         testing::Values(ResultsCase{GridCommand::Copy, true}, ResultsCase{GridCommand::Cut, false},
                                         ResultsCase{GridCommand::Paste, false},
                                         ResultsCase{GridCommand::Delete, false},
                                         ResultsCase{GridCommand::SelectAll, true},
                                         ResultsCase{GridCommand::Compress, false}));

TEST_F(GridMenuTest, ChangesNoResultsGrid) {
  WriteRow(jResGr, 1, {"1", "2", "3", "4"});
  clipboard.text = "5\t6\r\n";
  for (const GridCommand command : {GridCommand::Cut, GridCommand::Paste, GridCommand::Delete, GridCommand::Compress}) {
    RunGridCommand(command, jResGr);
  }
  EXPECT_THAT(RowTexts(jResGr, 1), ElementsAre("", "1", "2", "3", "4"));
  EXPECT_EQ(clipboard.text, "5\t6\r\n");
  EXPECT_THAT(events, IsEmpty());
}

using CopyTest = GridClipboardTest;

TEST_F(CopyTest, PutsTabsBetweenCellsAndCarriageReturnsBetweenRows) {
  WriteRow(GrJoints, 1, {"1", "2", "3"});
  WriteRow(GrJoints, 2, {"4", "", "abc"});
  Select(GrJoints, {1, 1, 2, 3});

  RunGridCommand(GridCommand::Copy, GrJoints);

  EXPECT_EQ(clipboard.text, "1\t2\t3\r4\t\tabc");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(CopyTest, PutsAnHtmlTableBesideThePlainText) {
  WriteRow(GrJoints, 1, {"1", "a<b>&c"});
  WriteRow(GrJoints, 2, {"", "-2.5"});
  Select(GrJoints, {1, 1, 2, 2});
  copyGrid(GrJoints);
  EXPECT_EQ(clipboard.html, "<meta charset=\"utf-8\"><table><tr><td>1</td><td>a&lt;b&gt;&amp;c</td></tr>"
                            "<tr><td></td><td>-2.5</td></tr></table>");
}

TEST_F(CopyTest, TakesTheSelectionWhicheverWayItWasDrawn) {
  WriteRow(GrMembers, 3, {"1", "2"});
  Select(GrMembers, {3, 2, 3, 1});
  copyGrid(GrMembers);
  EXPECT_EQ(clipboard.text, "1\t2");
}

TEST_F(CopyTest, TakesASingleCell) {
  WriteRow(GrJoints, 3, {"", "7.5"});
  GrJoints.SetCurrentCell(3, 2);
  copyGrid(GrJoints);
  EXPECT_EQ(clipboard.text, "7.5");
}

TEST_F(CopyTest, TakesResultsAsTheyAreShown) {
  WriteRow(jResGr, 1, {"0.0", "-1.25", ".", "7.3"});
  Select(jResGr, {1, 1, 1, 4});
  RunGridCommand(GridCommand::Copy, jResGr);
  EXPECT_EQ(clipboard.text, "0.0\t-1.25\t.\t7.3");
}

TEST_F(CopyTest, ReplacesWhatWasOnTheClipboard) {
  clipboard.text = "old";
  GrJoints.SetCurrentCell(1, 1);
  copyGrid(GrJoints);
  EXPECT_EQ(clipboard.text, "");
}

using CutTest = GridClipboardTest;

TEST_F(CutTest, LeavesTheCellsEmptyAndTheirTextOnTheClipboard) {
  SetModel(Triangle());
  Select(GrJoints, {2, 2, 3, 3});

  RunGridCommand(GridCommand::Cut, GrJoints);

  EXPECT_EQ(clipboard.text, "0\t0\r3\t5");
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "4", "", "", "0", "1"));
  EXPECT_THAT(RowTexts(GrJoints, 3), ElementsAre("3", "4", "", "", "-10", "0"));
}

TEST_F(CutTest, EndsTheAnalysisRebuildsAndRedraws) {
  SetModel(Triangle());
  Select(GrJoints, {3, 2, 3, 2});
  RunGridCommand(GridCommand::Cut, GrJoints);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
  EXPECT_EQ(NodeTable(3, NodeY), 0.0F);
}

using DeleteCellsTest = GridClipboardTest;

TEST_F(DeleteCellsTest, EmptiesTheSelectionAlone) {
  SetModel(Triangle());
  clipboard.text = "kept";
  Select(GrMembers, {2, 4, 1, 3});

  RunGridCommand(GridCommand::Delete, GrMembers);

  EXPECT_THAT(RowTexts(GrMembers, 1), ElementsAre("1", "1", "2", "", "", "0"));
  EXPECT_THAT(RowTexts(GrMembers, 2), ElementsAre("2", "2", "3", "", "", "0"));
  EXPECT_THAT(RowTexts(GrMembers, 3), ElementsAre("3", "3", "1", "200", "1000", "0"));
  EXPECT_EQ(clipboard.text, "kept");
}

TEST_F(DeleteCellsTest, EndsTheAnalysisRebuildsAndRedraws) {
  SetModel(Triangle());
  Select(GrMembers, {1, 3, 3, 3});
  RunGridCommand(GridCommand::Delete, GrMembers);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
  EXPECT_EQ(MemberTable(2, MemberE), 0.0F);
}

TEST_F(DeleteCellsTest, LeavesTheHeadersAlone) {
  SetModel(Triangle());
  Select(GrJoints, {0, 0, 3, 5});
  blankSelection(GrJoints);
  EXPECT_THAT(RowTexts(GrJoints, 0), ElementsAre("JOINTS", "x(m)", "y(m)", "ForceX (kN)", "ForceY (kN)", "Support"));
  EXPECT_THAT(ColumnTexts(GrJoints, 0), ElementsAre("1", "2", "3"));
  EXPECT_THAT(ColumnTexts(GrJoints, 1), Each(""));
}

using SelectAllTest = GridClipboardTest;

TEST_F(SelectAllTest, SelectsEveryDataCellFromTheFirst) {
  GrJoints.SetCurrentCell(5, 3);
  RunGridCommand(GridCommand::SelectAll, GrJoints);
  EXPECT_EQ(std::pair(GrJoints.CurrentRow(), GrJoints.CurrentColumn()), std::pair(1, 1));
  EXPECT_EQ(GrJoints.Selection(), (GridBlock{1, 1, 20, 5}));
}

TEST_F(SelectAllTest, WorksOnAResultsGrid) {
  RunGridCommand(GridCommand::SelectAll, mResGr);
  EXPECT_EQ(mResGr.Selection(), (GridBlock{1, 1, 1, 4}));
}

TEST_F(SelectAllTest, DoesNothingInAGridWithoutDataRows) {
  GrJoints.SetRowCount(1);
  RunGridCommand(GridCommand::SelectAll, GrJoints);
  EXPECT_EQ(GrJoints.CurrentRow(), 0);
}

class CompressTest : public GridClipboardTest {
 protected:
  CompressTest() {
    SetModel({{{4, 0}, {0, 0}, {4, 3}}, {{1, 2}, {2, 3}, {0, 0, 0, 0}}});
    messages.WillAnswer(true);
  }
};

TEST_F(CompressTest, AsksAndRemovesTheRowsWithoutEntry) {
  RunGridCommand(GridCommand::Compress, GrMembers);
  ExpectBoxes({CompressQuestion});
  EXPECT_EQ(GrMembers.RowCount(), 3);
  EXPECT_EQ(MemberCount, 2);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
}

TEST_F(CompressTest, KeepsTheNodeAtTheOrigin) {
  GrJoints.SetRowCount(10);
  RunGridCommand(GridCommand::Compress, GrJoints);
  ExpectBoxes({CompressQuestion});
  EXPECT_THAT(ColumnTexts(GrJoints, NodeX), ElementsAre("4", "0", "4"));
}

TEST_F(CompressTest, LooksForTheNodeAtTheOriginAmongRowsThatWerePasted) {
  GrJoints.SetRowCount(6);
  WriteRow(GrJoints, 2, {"7", "0", "0", "0", "0"});
  WriteRow(GrJoints, 4, {"0", "0", "0", "0", "0"});
  RunGridCommand(GridCommand::Compress, GrJoints);
  ExpectBoxes({CompressQuestion});
  EXPECT_THAT(ColumnTexts(GrJoints, NodeX), ElementsAre("4", "7", "4", "0")) << "row 5 was empty";
  EXPECT_THAT(RowTexts(GrMembers, 1), ElementsAre("1", "1", "2", "200", "1000", "0"));
}

TEST_F(CompressTest, ChangesNothingWhereNoRowGoes) {
  AnalysisDone = FlagTrue;
  MemberTable(1, MemberFieldForce) = 5;
  RunGridCommand(GridCommand::Compress, GrJoints);
  ExpectBoxes({CompressQuestion, NothingToRemove});
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 5.0F);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(GridClipboardTest, CompressesNothingWhereTheUserDeclines) {
  const auto before = AllTexts(GrJoints);
  messages.WillAnswer(false);
  RunGridCommand(GridCommand::Compress, GrJoints);
  ExpectBoxes({CompressQuestion});
  EXPECT_EQ(AllTexts(GrJoints), before);
  EXPECT_THAT(events, IsEmpty());
}

} // namespace
} // namespace strutwright
