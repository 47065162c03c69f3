#include "Grid.h"

#include <algorithm>
#include <cstddef>

namespace strutwright {

GridRangeError::GridRangeError(int atRow, int atColumn)
    : std::out_of_range("The grid has no cell (" + std::to_string(atRow) + "," + std::to_string(atColumn) + ")"),
      row(atRow), column(atColumn) {}

Grid::Grid(int rows, int columns) {
  SetColumnCount(columns);
  SetRowCount(rows);
}

void Grid::SetRowCount(int rows) {
  if (rows > 1 + MaxDataRows) throw std::length_error("A grid has at most 32767 data rows");
  const bool hadNone = Rows == 1;
  Rows = std::max(rows, 1);
  Cells.resize(static_cast<std::size_t>(Rows), std::vector<std::string>(static_cast<std::size_t>(Columns)));
  KeepCurrentInside();
  if (hadNone) Current.firstRow = Current.lastRow = std::min(1, Rows - 1);
  Notify({GridChange::Kind::Layout});
}

void Grid::SetColumnCount(int columns) {
  const bool hadNone = Columns == 1;
  Columns = std::max(columns, 1);
  for (auto& row : Cells) row.resize(static_cast<std::size_t>(Columns));
  KeepCurrentInside();
  if (hadNone) Current.firstColumn = Current.lastColumn = std::min(1, Columns - 1);
  Notify({GridChange::Kind::Layout});
}

const std::string& Grid::Text(int row, int column) const {
  Check(row, column);
  return Cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

void Grid::SetText(int row, int column, std::string text) {
  Check(row, column);
  Cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = std::move(text);
  Notify({GridChange::Kind::Cell, row, column});
}

void Grid::SetCurrentCell(int row, int column) {
  Check(row, column);
  Current = {row, column, row, column};
  Notify({GridChange::Kind::Selection});
}

void Grid::ExtendSelection(int row, int column) {
  Check(row, column);
  Current.lastRow = row;
  Current.lastColumn = column;
  Notify({GridChange::Kind::Selection});
}

GridBlock Grid::Selection() const {
  const auto [top, bottom] = std::minmax(Current.firstRow, Current.lastRow);
  const auto [left, right] = std::minmax(Current.firstColumn, Current.lastColumn);
  return {top, left, bottom, right};
}

void Grid::SetFocusFrame(int style) {
  FocusFrameStyle = style;
  Notify({GridChange::Kind::Display});
}

void Grid::SetHighlight(int style) {
  HighlightStyle = style;
  Notify({GridChange::Kind::Display});
}

void Grid::Check(int row, int column) const {
  if (row < 0 || row >= Rows || column < 0 || column >= Columns) throw GridRangeError(row, column);
}

void Grid::KeepCurrentInside() {
  Current.firstRow = std::min(Current.firstRow, Rows - 1);
  Current.lastRow = std::min(Current.lastRow, Rows - 1);
  Current.firstColumn = std::min(Current.firstColumn, Columns - 1);
  Current.lastColumn = std::min(Current.lastColumn, Columns - 1);
}

void Grid::Notify(const GridChange& change) const {
  if (Listener) Listener(change);
}

} // namespace strutwright
