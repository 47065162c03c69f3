#include "modCellEditing.h"

#include "Platform.h"
#include "modNumberText.h"

#include <algorithm>
#include <optional>

namespace strutwright {

namespace {

constexpr char32_t Blank = U' ';

/// UTF-8 of one character.
std::string Utf8(char32_t c) {
  const auto tail = [](char32_t bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
  if (c < 0x80) return {static_cast<char>(c)};
  if (c < 0x800) return {static_cast<char>(0xC0U | (c >> 6U)), tail(c)};
  if (c < 0x10000) return {static_cast<char>(0xE0U | (c >> 12U)), tail(c >> 6U), tail(c)};
  return {static_cast<char>(0xF0U | (c >> 18U)), tail(c >> 12U), tail(c >> 6U), tail(c)};
}

} // namespace

float CheckCellValue(const std::string& text, int row, int column) {
  const std::optional<float> value = NumericValue(text);
  if (value) return *value;
  ShowMessage(MessageIcon::Exclamation, "Non-numeric entry found: " + text + ".\nEntry (" + std::to_string(row) + "," +
                                            std::to_string(column) + ") set to zero");
  return 0;
}

std::string OpeningText(const Grid& grid, char32_t typed) {
  return typed <= Blank ? grid.Text(grid.CurrentRow(), grid.CurrentColumn()) : Utf8(typed);
}

void EnsureDataCell(Grid& grid) {
  if (grid.RowCount() == 1) AddRowAtBottom(grid);
  const int row = std::max(grid.CurrentRow(), 1);
  const int column = std::max(grid.CurrentColumn(), 1);
  if (row != grid.CurrentRow() || column != grid.CurrentColumn()) grid.SetCurrentCell(row, column);
}

bool CommitCell(Grid& grid, int row, int column, const std::string& text) {
  const std::string newText = NumberText(CheckCellValue(text, row, column));
  if (newText == grid.Text(row, column)) return false;
  grid.SetText(row, column, newText);
  return true;
}

void MoveCurrentCell(Grid& grid, CellKey key) {
  int row = grid.CurrentRow();
  int column = grid.CurrentColumn();
  switch (key) {
  case CellKey::Enter:
  case CellKey::Down:
    if (row == grid.RowCount() - 1) AddRowAtBottom(grid);
    ++row;
    break;
  case CellKey::Up: row = std::max(row - 1, 1); break;
  case CellKey::Left: column = std::max(column - 1, 1); break;
  case CellKey::Right: column = std::min(column + 1, grid.ColumnCount() - 1); break;
  }
  grid.SetCurrentCell(row, column);
}

void AddRowAtBottom(Grid& grid) {
  const int row = grid.RowCount();
  grid.SetRowCount(row + 1);
  grid.SetText(row, 0, std::to_string(row));
}

} // namespace strutwright
