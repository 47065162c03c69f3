#include "Grid.h"

#include <limits>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using Kind = GridChange::Kind;

/// A grid of 4 rows and 3 columns, every text "row,column".
Grid LabelledGrid() {
  Grid grid(4, 3);
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 3; ++column) {
      grid.SetText(row, column, std::to_string(row) + "," + std::to_string(column));
    }
  }
  return grid;
}

/// Keeps what a grid reports, from its making on.
struct ChangeLog {
  explicit ChangeLog(Grid& grid) {
    grid.SetChangeNotice([this](const GridChange& change) { changes.push_back(change); });
  }
  ChangeLog(const ChangeLog&) = delete;
  ChangeLog& operator=(const ChangeLog&) = delete;

  std::vector<Kind> Kinds() const {
    std::vector<Kind> kinds;
    for (const GridChange& change : changes) kinds.push_back(change.kind);
    return kinds;
  }

  std::vector<GridChange> changes;
};

TEST(GridTest, IsOneHeaderCellByDefault) {
  const Grid grid;
  EXPECT_EQ(grid.RowCount(), 1);
  EXPECT_EQ(grid.ColumnCount(), 1);
  EXPECT_EQ(grid.Text(0, 0), "");
  EXPECT_EQ(grid.CurrentRow(), 0);
  EXPECT_EQ(grid.CurrentColumn(), 0);
}

TEST(GridTest, StartsOnItsFirstDataCell) {
  const Grid grid(4, 3);
  EXPECT_EQ(grid.CurrentRow(), 1);
  EXPECT_EQ(grid.CurrentColumn(), 1);
  EXPECT_EQ(grid.Selection(), (GridBlock{1, 1, 1, 1}));
}

TEST(GridTest, StartsWithAHeavyFrameAndTheSelectionMarked) {
  const Grid grid(4, 3);
  EXPECT_EQ(grid.FocusFrame(), 2);
  EXPECT_EQ(grid.Highlight(), 1);
}

TEST(GridTest, CountsHeadersAmongRowsAndColumns) {
  Grid grid(4, 3);
  EXPECT_NO_THROW(grid.SetText(3, 2, "last"));
  EXPECT_THROW(grid.SetText(4, 2, "below"), GridRangeError);
  EXPECT_THROW(grid.SetText(3, 3, "beside"), GridRangeError);
}

TEST(GridTest, KeepsEachTextInItsOwnCell) {
  const Grid grid = LabelledGrid();
  EXPECT_EQ(grid.Text(0, 0), "0,0");
  EXPECT_EQ(grid.Text(2, 1), "2,1");
  EXPECT_EQ(grid.Text(1, 2), "1,2");
}

TEST(GridTest, KeepsTextsThatStayInsideWhenItGrows) {
  Grid grid = LabelledGrid();
  grid.SetRowCount(6);
  grid.SetColumnCount(5);
  EXPECT_EQ(grid.Text(3, 2), "3,2");
  EXPECT_EQ(grid.Text(5, 4), "");
  EXPECT_EQ(grid.Text(0, 4), "");
}

TEST(GridTest, KeepsTextsThatStayInsideWhenItShrinks) {
  Grid grid = LabelledGrid();
  grid.SetRowCount(2);
  grid.SetColumnCount(2);
  EXPECT_EQ(grid.Text(1, 1), "1,1");
  EXPECT_THROW(grid.Text(2, 1), GridRangeError);
  EXPECT_THROW(grid.Text(1, 2), GridRangeError);
}

TEST(GridTest, ForgetsTextsThatWereCutOff) {
  Grid grid = LabelledGrid();
  grid.SetRowCount(2);
  grid.SetRowCount(4);
  grid.SetColumnCount(1);
  grid.SetColumnCount(3);
  EXPECT_EQ(grid.Text(3, 0), "");
  EXPECT_EQ(grid.Text(1, 2), "");
}

TEST(GridTest, NeverHasLessThanItsHeaders) {
  for (const int count : {0, -1, std::numeric_limits<int>::min()}) {
    Grid grid = LabelledGrid();
    grid.SetRowCount(count);
    grid.SetColumnCount(count);
    EXPECT_EQ(grid.RowCount(), 1) << count;
    EXPECT_EQ(grid.ColumnCount(), 1) << count;
    EXPECT_EQ(grid.Text(0, 0), "0,0") << count;
  }
}

TEST(GridTest, TakesCountsBelowOneForOneFromTheStart) {
  const Grid grid(0, -5);
  EXPECT_EQ(grid.RowCount(), 1);
  EXPECT_EQ(grid.ColumnCount(), 1);
}

TEST(GridTest, HoldsAsManyDataRowsAsSixteenBitsCount) {
  Grid grid;
  grid.SetRowCount(1 + 32767);
  EXPECT_EQ(grid.RowCount(), 32768);
  EXPECT_EQ(grid.Text(32767, 0), "");
}

TEST(GridTest, RefusesMoreDataRowsAndStaysAsItWas) {
  Grid grid = LabelledGrid();
  const ChangeLog log(grid);
  EXPECT_THROW(grid.SetRowCount(1 + 32768), std::length_error);
  EXPECT_EQ(grid.RowCount(), 4);
  EXPECT_EQ(grid.Text(3, 2), "3,2");
  EXPECT_TRUE(log.changes.empty());
}

TEST(GridRangeErrorTest, ReportsTheCellThatDoesNotExist) {
  const Grid grid(4, 3);
  try {
    grid.Text(7, -2);
    FAIL() << "nothing was thrown";
  } catch (const GridRangeError& error) {
    EXPECT_EQ(error.row, 7);
    EXPECT_EQ(error.column, -2);
    EXPECT_STREQ(error.what(), "The grid has no cell (7,-2)");
  }
}

TEST(GridRangeErrorTest, ComesFromEveryOperationOnACell) {
  Grid grid(4, 3);
  EXPECT_THROW(grid.Text(-1, 0), GridRangeError);
  EXPECT_THROW(grid.SetText(0, -1, ""), GridRangeError);
  EXPECT_THROW(grid.SetCurrentCell(4, 0), GridRangeError);
  EXPECT_THROW(grid.ExtendSelection(0, 3), GridRangeError);
}

TEST(GridRangeErrorTest, LeavesTheSelectionAsItWas) {
  Grid grid(4, 3);
  grid.SetCurrentCell(2, 1);
  const ChangeLog log(grid);
  EXPECT_THROW(grid.SetCurrentCell(4, 0), GridRangeError);
  EXPECT_THROW(grid.ExtendSelection(3, 3), GridRangeError);
  EXPECT_EQ(grid.Selection(), (GridBlock{2, 1, 2, 1}));
  EXPECT_TRUE(log.changes.empty());
}

TEST(GridSelectionTest, IsTheCurrentCellAlone) {
  Grid grid(4, 3);
  grid.SetCurrentCell(1, 1);
  grid.ExtendSelection(3, 2);
  grid.SetCurrentCell(2, 1);
  EXPECT_EQ(grid.Selection(), (GridBlock{2, 1, 2, 1}));
}

TEST(GridSelectionTest, RunsFromTheCurrentCellToWhereItWasExtended) {
  Grid grid(4, 3);
  grid.SetCurrentCell(1, 1);
  grid.ExtendSelection(3, 2);
  EXPECT_EQ(grid.Selection(), (GridBlock{1, 1, 3, 2}));
}

TEST(GridSelectionTest, AscendsWhicheverWayItWasDrawn) {
  Grid grid(4, 3);
  grid.SetCurrentCell(3, 0);
  grid.ExtendSelection(1, 2);
  EXPECT_EQ(grid.Selection(), (GridBlock{1, 0, 3, 2}));
  grid.SetCurrentCell(3, 2);
  grid.ExtendSelection(1, 0);
  EXPECT_EQ(grid.Selection(), (GridBlock{1, 0, 3, 2}));
}

TEST(GridSelectionTest, LeavesTheCurrentCellWhereItIs) {
  Grid grid(4, 3);
  grid.SetCurrentCell(3, 2);
  grid.ExtendSelection(1, 0);
  EXPECT_EQ(grid.CurrentRow(), 3);
  EXPECT_EQ(grid.CurrentColumn(), 2);
}

TEST(GridSelectionTest, ExtendsFromTheCurrentCellEachTime) {
  Grid grid(4, 3);
  grid.SetCurrentCell(2, 1);
  grid.ExtendSelection(3, 2);
  grid.ExtendSelection(1, 0);
  EXPECT_EQ(grid.Selection(), (GridBlock{1, 0, 2, 1}));
}

TEST(GridSelectionTest, MayCoverTheHeaders) {
  Grid grid(4, 3);
  grid.SetCurrentCell(0, 0);
  grid.ExtendSelection(3, 2);
  EXPECT_EQ(grid.Selection(), (GridBlock{0, 0, 3, 2}));
}

TEST(GridSelectionTest, MovesInsideWhenTheGridShrinks) {
  Grid grid(10, 8);
  grid.SetCurrentCell(8, 6);
  grid.ExtendSelection(9, 7);
  grid.SetRowCount(4);
  grid.SetColumnCount(3);
  EXPECT_EQ(grid.CurrentRow(), 3);
  EXPECT_EQ(grid.CurrentColumn(), 2);
  EXPECT_EQ(grid.Selection(), (GridBlock{3, 2, 3, 2}));
}

TEST(GridSelectionTest, KeepsThePartThatStaysInside) {
  Grid grid(10, 8);
  grid.SetCurrentCell(2, 2);
  grid.ExtendSelection(9, 7);
  grid.SetRowCount(4);
  EXPECT_EQ(grid.Selection(), (GridBlock{2, 2, 3, 7}));
}

TEST(GridSelectionTest, StaysWhenTheGridGrows) {
  Grid grid(4, 3);
  grid.SetCurrentCell(2, 1);
  grid.SetRowCount(40);
  grid.SetColumnCount(30);
  EXPECT_EQ(grid.Selection(), (GridBlock{2, 1, 2, 1}));
}

TEST(GridSelectionTest, LeavesTheHeadersWithTheFirstDataRowAndColumn) {
  Grid grid;
  grid.SetColumnCount(6);
  EXPECT_EQ(grid.Selection(), (GridBlock{0, 1, 0, 1}));
  grid.SetRowCount(21);
  EXPECT_EQ(grid.Selection(), (GridBlock{1, 1, 1, 1}));
}

TEST(GridSelectionTest, StaysOnAHeaderThatWasChosenWhenMoreRowsCome) {
  Grid grid(4, 3);
  grid.SetCurrentCell(0, 0);
  grid.SetRowCount(10);
  grid.SetColumnCount(5);
  EXPECT_EQ(grid.Selection(), (GridBlock{0, 0, 0, 0}));
}

TEST(GridNoticeTest, NamesTheCellWhoseTextChanged) {
  Grid grid(4, 3);
  const ChangeLog log(grid);
  grid.SetText(2, 1, "7");
  ASSERT_THAT(log.Kinds(), testing::ElementsAre(Kind::Cell));
  EXPECT_EQ(log.changes[0].row, 2);
  EXPECT_EQ(log.changes[0].column, 1);
}

TEST(GridNoticeTest, ComesWhenTheChangeIsMade) {
  Grid grid(4, 3);
  std::string seen;
  grid.SetChangeNotice([&](const GridChange& change) { seen = grid.Text(change.row, change.column); });
  grid.SetText(2, 1, "7");
  EXPECT_EQ(seen, "7");
}

TEST(GridNoticeTest, ReportsEveryNewLayout) {
  Grid grid(4, 3);
  const ChangeLog log(grid);
  grid.SetRowCount(5);
  grid.SetColumnCount(4);
  EXPECT_THAT(log.Kinds(), testing::ElementsAre(Kind::Layout, Kind::Layout));
}

TEST(GridNoticeTest, ReportsEveryNewSelection) {
  Grid grid(4, 3);
  const ChangeLog log(grid);
  grid.SetCurrentCell(2, 2);
  grid.ExtendSelection(3, 2);
  EXPECT_THAT(log.Kinds(), testing::ElementsAre(Kind::Selection, Kind::Selection));
}

TEST(GridNoticeTest, ReportsEveryNewDisplay) {
  Grid grid(4, 3);
  const ChangeLog log(grid);
  grid.SetFocusFrame(1);
  grid.SetHighlight(0);
  EXPECT_THAT(log.Kinds(), testing::ElementsAre(Kind::Display, Kind::Display));
  EXPECT_EQ(grid.FocusFrame(), 1);
  EXPECT_EQ(grid.Highlight(), 0);
}

TEST(GridNoticeTest, EndsWithAnEmptyListener) {
  Grid grid(4, 3);
  const ChangeLog log(grid);
  grid.SetChangeNotice({});
  grid.SetText(1, 1, "7");
  EXPECT_TRUE(log.changes.empty());
}

} // namespace
} // namespace strutwright
