#include "modGridClipboard.h"

#include "AnalysisState.h"
#include "DataCellWriter.h"
#include "Markup.h"
#include "ModelEvents.h"
#include "Platform.h"
#include "modCellEditing.h"
#include "modGrids.h"
#include "modKeepResults.h"
#include "modModelEditing.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modPastedText.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

namespace {

bool IsDataGrid(const Grid& grid) { return &grid == &GrJoints || &grid == &GrMembers; }

std::string PlainText(const Grid& grid, const GridBlock& block) {
  std::string text;
  for (int row = block.firstRow; row <= block.lastRow; ++row) {
    if (row > block.firstRow) text.push_back('\r');
    for (int column = block.firstColumn; column <= block.lastColumn; ++column) {
      if (column > block.firstColumn) text.push_back('\t');
      text += grid.Text(row, column);
    }
  }
  return text;
}

/// What spreadsheets prefer to the plain text.
std::string SpreadsheetTable(const Grid& grid, const GridBlock& block) {
  std::string html = "<meta charset=\"utf-8\"><table>";
  for (int row = block.firstRow; row <= block.lastRow; ++row) {
    html += "<tr>";
    for (int column = block.firstColumn; column <= block.lastColumn; ++column) {
      html += "<td>" + EscapedMarkup(grid.Text(row, column)) + "</td>";
    }
    html += "</tr>";
  }
  return html + "</table>";
}

/// Writes pasted texts into a grid.  Of those that are no numbers the first is shown at once, as one that was typed
/// is, and the others in one box in the end: a table with a column of names must not bring a box for each.
class PastedBlock {
 public:
  explicit PastedBlock(Grid& grid) : Cells(grid) {}

  void WriteLine(int row, const std::vector<std::string>& line);
  void ReportFailures() const;

 private:
  void WriteCell(int row, int column, const std::string& text);
  void ReportNonNumeric() const;

  DataCellWriter Cells;
  int NonNumeric = 0;
  std::vector<std::string> Places; ///< of the non-numeric texts after the first, as far as they are named
};

void PastedBlock::WriteLine(int row, const std::vector<std::string>& line) {
  int column = 1;
  for (const std::string& text : line) WriteCell(row, column++, text);
  Cells.Write(row, 0, std::to_string(row));
}

void PastedBlock::WriteCell(int row, int column, const std::string& text) {
  constexpr std::size_t mostNamed = 10;
  if (text.empty()) return Cells.Empty(row, column);
  float value = 0;
  if (const std::optional<float> number = NumericValue(text)) {
    value = *number;
  } else if (++NonNumeric == 1) {
    value = CheckCellValue(text, row + 1, column + 1);
  } else if (Places.size() < mostNamed) {
    Places.push_back("(" + std::to_string(row + 1) + "," + std::to_string(column + 1) + ")");
  }
  Cells.Write(row, column, NumberText(value));
}

void PastedBlock::ReportNonNumeric() const {
  const int more = NonNumeric - 1;
  if (more < 1) return;
  const int unnamed = more - static_cast<int>(Places.size());
  std::vector<std::string> names = Places;
  if (unnamed > 0) names.push_back(std::to_string(unnamed) + " more");
  std::string list = names.front();
  for (std::size_t k = 1; k < names.size(); ++k) list += (k + 1 < names.size() ? ", " : " and ") + names[k];
  const bool one = more == 1;
  ShowMessage(MessageIcon::Exclamation,
              std::to_string(more) +
                  (one ? " more non-numeric entry found.\nEntry " : " more non-numeric entries found.\nEntries ") +
                  list + " set to zero");
}

void PastedBlock::ReportFailures() const {
  ReportNonNumeric();
  Cells.ShowFirstMiss();
}

/// What is pasted while results are shown must not take them away.
void ShowPastedRows() {
  if (AnalysisDone != FlagFalse) {
    ShowHint("The grids have changed. Refresh or Run Analysis takes the change in.");
    return;
  }
  RebuildModelFromGrids();
  ModelEvents().ModelChanged();
}

} // namespace

bool IsEnabled(GridCommand command, const Grid& grid) {
  const auto* entry = std::find_if(GridMenu.begin(), GridMenu.end(),
                                   [command](const GridMenuEntry& each) { return each.command == command; });
  return IsDataGrid(grid) ? entry->onDataGrids : entry->onResultsGrids;
}

void RunGridCommand(GridCommand command, Grid& grid) {
  if (!IsEnabled(command, grid)) return;
  switch (command) {
  case GridCommand::Copy: return copyGrid(grid);
  case GridCommand::Paste: return pasteCells(grid);
  case GridCommand::SelectAll: return selectAllCells(grid);
  case GridCommand::Compress: return compressCells(grid);
  case GridCommand::Cut: copyGrid(grid); [[fallthrough]];
  case GridCommand::Delete: blankSelection(grid); AfterModelEdit();
  }
}

void copyGrid(const Grid& grid) {
  const GridBlock selection = grid.Selection();
  if (selection.lastRow == 0) return; // nobody asks for headings alone
  TheClipboard().SetText(PlainText(grid, selection), SpreadsheetTable(grid, selection));
}

void blankSelection(Grid& grid) {
  const GridBlock selection = grid.Selection();
  for (int row = std::max(selection.firstRow, 1); row <= selection.lastRow; ++row) {
    for (int column = std::max(selection.firstColumn, 1); column <= selection.lastColumn; ++column) {
      grid.SetText(row, column, "");
    }
  }
}

void selectAllCells(Grid& grid) {
  if (grid.RowCount() < 2 || grid.ColumnCount() < 2) return;
  grid.SetCurrentCell(1, 1);
  grid.ExtendSelection(grid.RowCount() - 1, grid.ColumnCount() - 1);
}

void pasteCells(Grid& grid) {
  const auto lines = TakeTableApart(TheClipboard().Text());
  if (lines.empty()) return;
  const int firstRow = grid.RowCount() == 1 ? 1 : grid.CurrentRow();
  MakeRoom(grid, static_cast<std::size_t>(firstRow) + lines.size());
  PastedBlock block(grid);
  int row = firstRow;
  for (const auto& line : lines) block.WriteLine(row++, line);
  block.ReportFailures();
  ShowPastedRows();
}

void compressCells(Grid& grid) {
  if (!AskQuestion("This will remove any rows with all zero entries. Proceed?")) return;
  RebuildKeepingResults(); // the node at the origin is looked for in the tables
  if (CompressZeroRows(grid)) AfterModelEdit();
}

} // namespace strutwright
