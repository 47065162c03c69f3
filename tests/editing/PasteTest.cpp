#include "GridFixture.h"
#include "Repeated.h"
#include "modGridClipboard.h"
#include "modPastedText.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Line = std::vector<std::string>;

Message NonNumericBox(const std::string& text, int row, int column) {
  return Box(MessageIcon::Exclamation, "Non-numeric entry found: " + text + ".\nEntry (" + std::to_string(row) + "," +
                                           std::to_string(column) + ") set to zero");
}

Message MoreBox(const std::string& text) { return Box(MessageIcon::Exclamation, text + " set to zero"); }

class PasteTest : public GridFixture {
 protected:
  void Paste(Grid& grid, const std::string& text) {
    clipboard.text = text;
    RunGridCommand(GridCommand::Paste, grid);
  }
};

TEST_F(PasteTest, StartsAtColumnOneOfTheCurrentRow) {
  GrJoints.SetCurrentCell(5, 3);
  Paste(GrJoints, "1\t2\t3\r\n4\t5\t6\r\n");
  EXPECT_THAT(RowTexts(GrJoints, 4), ElementsAre("4", "", "", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 5), ElementsAre("5", "1", "2", "3", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 6), ElementsAre("6", "4", "5", "6", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 7), ElementsAre("7", "", "", "", "", ""));
  EXPECT_EQ(GrJoints.RowCount(), 21);
}

TEST_F(PasteTest, OverwritesOnlyTheCellsOfTheBlock) {
  WriteRow(GrMembers, 1, {"1", "2", "3", "4", "5"});
  Paste(GrMembers, "7\t8\r\n");
  EXPECT_THAT(RowTexts(GrMembers, 1), ElementsAre("1", "7", "8", "3", "4", "5"));
}

TEST_F(PasteTest, WritesNumbersInTheFormOfACell) {
  Paste(GrJoints, " 1.50 \t+2\t1e3\t.5\t-0\r\n");
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "1.5", "2", "1000", "0.5", "0"));
}

TEST_F(PasteTest, LeavesOutWhatStandsBehindTheLastLineEnd) {
  Paste(GrJoints, "1\t2\r\n3\t4");
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "1", "2", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "", "", "", "", ""));
}

TEST_F(PasteTest, CountsLoneLineFeedsAsLineEnds) {
  Paste(GrJoints, "1\t2\n3\t4\n");
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "1", "2", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "3", "4", "", "", ""));
}

class NothingToPasteTest : public PasteTest, public testing::WithParamInterface<const char*> {};

TEST_P(NothingToPasteTest, ChangesNothing) {
  const auto before = AllTexts(GrJoints);
  for (const std::int16_t done : {FlagFalse, FlagTrue}) {
    AnalysisDone = done;
    Paste(GrJoints, GetParam());
  }
  EXPECT_EQ(AllTexts(GrJoints), before);
  EXPECT_THAT(events, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, NothingToPasteTest, testing::Values("", "5", "1\t2\t3", "1\t2\r3\t4\r", "\"1\n2\""));

TEST_F(PasteTest, PastesNothingThatWasCopiedFromAGrid) {
  SetModel(Triangle());
  RunGridCommand(GridCommand::SelectAll, GrJoints);
  RunGridCommand(GridCommand::Copy, GrJoints);
  const auto before = AllTexts(GrMembers);
  RunGridCommand(GridCommand::Paste, GrMembers);
  EXPECT_EQ(AllTexts(GrMembers), before);
}

TEST_F(PasteTest, ReportsACellThatIsNotNumericAndPastesZero) {
  Paste(GrJoints, "1.5\tabc\r\n");
  ExpectBoxes({NonNumericBox("abc", 2, 3)});
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "1.5", "0", "", "", ""));
}

TEST_F(PasteTest, ReportsTheOthersInOneBoxWithPositionsOneGreaterInBoth) {
  GrJoints.SetCurrentCell(4, 2);
  Paste(GrJoints, "x\t2\r\n3\t 1,5 \r\n4\t1e39\r\n");
  ExpectBoxes({NonNumericBox("x", 5, 2), MoreBox("2 more non-numeric entries found.\nEntries (6,3) and (7,3)")});
  EXPECT_THAT(RowTexts(GrJoints, 4), ElementsAre("4", "0", "2", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 5), ElementsAre("5", "3", "0", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 6), ElementsAre("6", "4", "0", "", "", ""));
}

TEST_F(PasteTest, ReportsOneMoreInTheSingular) {
  Paste(GrJoints, "x\t2\r\n3\ty\r\n");
  ExpectBoxes({NonNumericBox("x", 2, 2), MoreBox("1 more non-numeric entry found.\nEntry (3,3)")});
}

TEST_F(PasteTest, NamesTenOfTheOthers) {
  Paste(GrMembers, Repeated("a\n", 11));
  ExpectBoxes({NonNumericBox("a", 2, 2),
               MoreBox("10 more non-numeric entries found.\nEntries (3,2), (4,2), (5,2), (6,2), (7,2), (8,2), (9,2), "
                       "(10,2), (11,2) and (12,2)")});
  GrMembers.SetCurrentCell(1, 1);
  Paste(GrMembers, Repeated("a\n", 13));
  ExpectBoxes({NonNumericBox("a", 2, 2),
               MoreBox("12 more non-numeric entries found.\nEntries (3,2), (4,2), (5,2), (6,2), (7,2), (8,2), (9,2), "
                       "(10,2), (11,2), (12,2) and 2 more")});
}

TEST_F(PasteTest, LeavesEmptyAndBlankCellsEmptyWithoutABox) {
  WriteRow(GrJoints, 2, {"7", "7", "7", "7", "7"});
  Paste(GrJoints, "0\t0\t\t\t3\r\n4\t \t\"\"\t-10\t\r\n\t\t\t\t\r\n");
  ExpectBoxes({});
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "0", "0", "", "", "3"));
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "4", "", "", "-10", ""));
  EXPECT_THAT(RowTexts(GrJoints, 3), ElementsAre("3", "", "", "", "", ""));
}

TEST_F(PasteTest, MakesNoNodeOfABlankRow) {
  Paste(GrJoints, "0\t0\t\t\t\n4\t0\t\t\t\n\t\t\t\t\n");
  EXPECT_EQ(NodeCount, 2);
}

TEST_F(PasteTest, SaysNothingOfEmptyCellsBesideTheGrid) {
  Paste(GrJoints, "1\t2\t3\t4\t5\t\t \r\n");
  ExpectBoxes({});
}

TEST_F(PasteTest, GrowsByTheRowsThatItLacksAndASpareOne) {
  GrJoints.SetCurrentCell(20, 1);
  Paste(GrJoints, "1\r\n2\r\n");
  EXPECT_EQ(GrJoints.RowCount(), 23);
  EXPECT_THAT(RowTexts(GrJoints, 20), ElementsAre("20", "1", "", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 21), ElementsAre("21", "2", "", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 22), ElementsAre("22", "", "", "", "", ""));
}

TEST_F(PasteTest, DoesNotGrowWhereItsLastLineFits) {
  GrJoints.SetCurrentCell(19, 1);
  Paste(GrJoints, "1\r\n2\r\n");
  EXPECT_EQ(GrJoints.RowCount(), 21);
  EXPECT_THAT(RowTexts(GrJoints, 20), ElementsAre("20", "2", "", "", "", ""));
}

TEST_F(PasteTest, NumbersItsRows) {
  GrJoints.SetText(2, 0, "x");
  GrJoints.SetCurrentCell(2, 1);
  Paste(GrJoints, "1\r\n");
  EXPECT_EQ(GrJoints.Text(2, 0), "2");
}

TEST_F(PasteTest, GivesAGridWithoutDataRowsItsFirstOnes) {
  GridCapacity = 0;
  initGrids();
  Paste(GrJoints, "1\t2\r\n3\t4\r\n");
  EXPECT_THAT(ColumnTexts(GrJoints, 0), ElementsAre("1", "2", "3"));
  EXPECT_THAT(ColumnTexts(GrJoints, NodeY), ElementsAre("2", "4", ""));
  EXPECT_EQ(GrJoints.CurrentRow(), 1);
}

TEST_F(PasteTest, PassesOverColumnsThatTheGridDoesNotHave) {
  GrJoints.SetCurrentCell(2, 1);
  Paste(GrJoints, "1\t2\t3\t4\t5\r\n1\t2\t3\t4\t5\t6\t7\r\n8\t9\t8\t9\t8\t9\r\n");
  ExpectBoxes({MissBox(3, 6)});
  EXPECT_THAT(RowTexts(GrJoints, 3), ElementsAre("3", "1", "2", "3", "4", "5"));
  EXPECT_THAT(RowTexts(GrJoints, 4), ElementsAre("4", "8", "9", "8", "9", "8"));
  EXPECT_THAT(events, ElementsAre("ModelChanged"));
}

TEST_F(PasteTest, PassesOverTheHeaderRow) {
  GrJoints.SetCurrentCell(0, 1);
  Paste(GrJoints, "1\t2\r\n3\t4\r\n");
  ExpectBoxes({MissBox(0, 1)});
  EXPECT_THAT(RowTexts(GrJoints, 0), ElementsAre("JOINTS", "x(m)", "y(m)", "ForceX (kN)", "ForceY (kN)", "Support"));
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "3", "4", "", "", ""));
}

TEST_F(PasteTest, RebuildsAndRedrawsWithoutResults) {
  Paste(GrJoints, "1\t2\r\n");
  EXPECT_THAT(events, ElementsAre("ModelChanged"));
  EXPECT_EQ(NodeTable(1, NodeY), 2.0F);
}

TEST_F(PasteTest, LeavesCurrentResultsAndTheTablesAlone) {
  SetModel(Triangle());
  AnalysisDone = FlagTrue;
  MemberTable(1, MemberFieldForce) = 5;
  Paste(GrJoints, "1\t2\r\n");
  EXPECT_EQ(GrJoints.Text(1, NodeX), "1");
  EXPECT_EQ(NodeTable(1, NodeX), 0.0F);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 5.0F);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_THAT(events, ElementsAre("ShowHint(The grids have changed. Refresh or Run Analysis takes the change in.)"));
}

TEST_F(PasteTest, FillsAGridToItsLastRow) {
  Paste(GrJoints, Repeated("1\n", Grid::MaxDataRows));
  EXPECT_EQ(GrJoints.RowCount(), 1 + Grid::MaxDataRows);
  EXPECT_EQ(GrJoints.Text(Grid::MaxDataRows, 1), "1");
  EXPECT_EQ(NodeCount, Grid::MaxDataRows);
}

TEST_F(PasteTest, ChangesNothingWhereThereAreMoreRowsThanAGridHas) {
  const auto before = AllTexts(GrJoints);
  for (const int lines : {Grid::MaxDataRows, 70000}) {
    GrJoints.SetCurrentCell(2, 1);
    EXPECT_THROW(Paste(GrJoints, Repeated("1\n", lines)), std::length_error);
  }
  EXPECT_EQ(AllTexts(GrJoints), before);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(PasteTest, TakesCellsInQuotationMarks) {
  Paste(GrJoints, "\"1\n\"\t2\n\"3\"\t\"4\r\n\"\n");
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "1", "2", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "3", "4", "", "", ""));
}

TEST_F(PasteTest, ShowsWhatStoodInQuotationMarksWithoutThem) {
  Paste(GrJoints, "\"say \"\"5\"\"\n\"\t2\n");
  ExpectBoxes({NonNumericBox("say \"5\"", 2, 2)});
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "0", "2", "", "", ""));
}

TEST(TakeTableApartTest, FindsNoLineWithoutALineEnd) {
  EXPECT_THAT(TakeTableApart(""), IsEmpty());
  EXPECT_THAT(TakeTableApart("1\t2"), IsEmpty());
  EXPECT_THAT(TakeTableApart("1\r2\r"), IsEmpty());
}

TEST(TakeTableApartTest, EndsLinesAtLineFeedsWithOrWithoutCarriageReturn) {
  EXPECT_THAT(TakeTableApart("a\tb\r\nc\nd"), ElementsAre(Line{"a", "b"}, Line{"c"}));
}

TEST(TakeTableApartTest, KeepsEmptyCellsAndLines) {
  EXPECT_THAT(TakeTableApart("\t\n\n1\t\n\t2\n"), ElementsAre(Line{"", ""}, Line{""}, Line{"1", ""}, Line{"", "2"}));
}

TEST(TakeTableApartTest, TrimsBlanksAndNothingElse) {
  EXPECT_THAT(TakeTableApart("  1 2 \t   \t\rx\n"), ElementsAre(Line{"1 2", "", "\rx"}));
}

TEST(TakeTableApartTest, KeepsTabsAndDoubledMarksOfAQuotedCell) {
  EXPECT_THAT(TakeTableApart("\"a\tb\"\t\"c\"\"d\"\t\"\"\t\"\"\"\"\n"), ElementsAre(Line{"a\tb", "c\"d", "", "\""}));
}

TEST(TakeTableApartTest, TakesLineEndsOutOfAQuotedCell) {
  EXPECT_THAT(TakeTableApart("\"a\nb\r\nc\"\n\"\r\n\"\n"), ElementsAre(Line{"abc"}, Line{""}));
}

TEST(TakeTableApartTest, TakesAMarkThatOpensNoQuotedCellAsItStands) {
  EXPECT_THAT(TakeTableApart("\"a\tb\nc\n"), ElementsAre(Line{"\"a", "b"}, Line{"c"}));
  EXPECT_THAT(TakeTableApart("\"a\"b\t\"\n"), ElementsAre(Line{"\"a\"b", "\""}));
  EXPECT_THAT(TakeTableApart("5\"\t6\n"), ElementsAre(Line{"5\"", "6"}));
}

/// Reading on to the end of the text at each mark would take longer than anyone waits.
TEST(TakeTableApartTest, IsQuickWithMarksThatAreNeverClosed) {
  const auto lines = TakeTableApart(Repeated("\"a\t\"\"b\t", 200000) + "\n");
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].size(), 400001U);
}

} // namespace
} // namespace strutwright
