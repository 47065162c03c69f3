#include "modEditSnapshot.h"

#include "FileState.h"
#include "ModelEvents.h"
#include "modModelStore.h"

#include <cstddef>

namespace strutwright {

namespace {

GridTexts TextsOf(const Grid& grid) {
  GridTexts kept{grid.RowCount(), grid.ColumnCount(), {}};
  kept.texts.reserve(static_cast<std::size_t>(kept.rows) * static_cast<std::size_t>(kept.columns));
  for (int row = 0; row < kept.rows; ++row) {
    for (int column = 0; column < kept.columns; ++column) kept.texts.push_back(grid.Text(row, column));
  }
  return kept;
}

void WriteTexts(const GridTexts& kept, Grid& grid) {
  if (grid.RowCount() != kept.rows) grid.SetRowCount(kept.rows);
  if (grid.ColumnCount() != kept.columns) grid.SetColumnCount(kept.columns);
  auto text = kept.texts.begin();
  for (int row = 0; row < kept.rows; ++row) {
    for (int column = 0; column < kept.columns; ++column, ++text) {
      // A view paints what was reported: an undone edit of one cell is one cell.
      if (grid.Text(row, column) != *text) grid.SetText(row, column, *text);
    }
  }
}

} // namespace

EditSnapshot TakeSnapshot() {
  return {TextsOf(GrJoints), TextsOf(GrMembers), GridCapacity, CurrentFileName, TheFiles.Opened.open};
}

void RestoreSnapshot(const EditSnapshot& snapshot) {
  EndAnalysis(); // or its results would be drawn on the model that comes back
  WriteTexts(snapshot.joints, GrJoints);
  WriteTexts(snapshot.members, GrMembers);
  GridCapacity = snapshot.gridCapacity;
  CurrentFileName = snapshot.currentFileName;
  TheFiles.Opened.open = snapshot.modelNumber;
  RebuildModelFromGrids();
  ModelEvents().ModelChanged();
}

} // namespace strutwright
