#include "modModelStore.h"

#include "modColumns.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace strutwright {

namespace {

constexpr int FirstInputField = 1;
constexpr int LastInputField = 5;

/// Keeps a grid's view from following while the grid is walked; afterwards the view is as it is in normal use.
class QuietGrid {
 public:
  explicit QuietGrid(Grid& grid) : Walked(grid) { SetDisplay(0, 0); }
  QuietGrid(const QuietGrid&) = delete;
  QuietGrid& operator=(const QuietGrid&) = delete;
  ~QuietGrid() { SetDisplay(2, 1); }

 private:
  void SetDisplay(int focusFrame, int highlight) {
    Walked.SetFocusFrame(focusFrame);
    Walked.SetHighlight(highlight);
  }

  Grid& Walked;
};

std::int16_t CountNumericRows(const Grid& grid) {
  int count = 0;
  for (int row = 1; row < grid.RowCount(); ++row) {
    if (NumericValue(grid.Text(row, FirstInputField))) ++count;
  }
  return static_cast<std::int16_t>(count); // a grid has no more rows than the type holds
}

void ReadRows(const Grid& grid, int count, FieldTable& table) {
  table.Recreate(count);
  for (int row = 1; row <= count; ++row) {
    for (int field = FirstInputField; field <= LastInputField; ++field) {
      table(row, field) = NumericValue(grid.Text(row, field)).value_or(0.0F);
    }
  }
}

void WriteRows(const FieldTable& table, int count, Grid& grid) {
  grid.SetRowCount(count + 1);
  for (int row = 1; row <= count; ++row) {
    for (int field = FirstInputField; field <= LastInputField; ++field) {
      grid.SetText(row, field, NumberText(table(row, field)));
    }
    grid.SetText(row, 0, std::to_string(row));
  }
}

} // namespace

ModelTables ReadGrids() {
  ModelTables model;
  ReadRows(GrJoints, CountNumericRows(GrJoints), model.nodes);
  ReadRows(GrMembers, CountNumericRows(GrMembers), model.members);
  return model;
}

void RebuildModelFromGrids() {
  const QuietGrid quietJoints(GrJoints);
  const QuietGrid quietMembers(GrMembers);
  NodeCount = CountNumericRows(GrJoints);
  MemberCount = CountNumericRows(GrMembers);
  ReadRows(GrJoints, NodeCount, NodeTable);
  ReadRows(GrMembers, MemberCount, MemberTable);
}

void ClearGrid(Grid& grid, std::int16_t n) {
  for (int row = 1; row < grid.RowCount(); ++row) {
    for (int column = 1; column < grid.ColumnCount(); ++column) grid.SetText(row, column, "");
  }
  grid.SetRowCount(n + 1);
}

void NumberRows(Grid& grid) {
  for (int row = 1; row < grid.RowCount(); ++row) grid.SetText(row, 0, std::to_string(row));
}

void CopyModelToGrids() {
  WriteRows(NodeTable, NodeCount, GrJoints);
  WriteRows(MemberTable, MemberCount, GrMembers);
}

int RoundNodeNumber(float number) {
  using Limits = std::numeric_limits<int>;
  // Node numbers are whole and small, and an analysis rounds hundreds of thousands of them.
  if (number >= 0.0F && number <= 32767.0F && static_cast<float>(static_cast<int>(number)) == number) {
    return static_cast<int>(number);
  }
  const double nearest = std::nearbyint(static_cast<double>(number));
  if (std::isnan(nearest)) return Limits::min();
  return static_cast<int>(std::clamp<double>(nearest, Limits::min(), Limits::max()));
}

} // namespace strutwright
