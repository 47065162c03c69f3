#pragma once

#include "AnalysisState.h"
#include "EditingState.h"
#include "EventsTest.h"
#include "ModelBuilder.h"
#include "modGrids.h"
#include "modModelStore.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {

/// The four grids as at start: 20 numbered rows for nodes and members each.
class GridFixture : public EventsTest {
 protected:
  GridFixture() {
    ResetModel();
    TheAnalysis = AnalysisState{};
    TheEditing = EditingState{};
    initGrids();
  }

  static std::vector<std::string> RowTexts(const Grid& grid, int row) {
    std::vector<std::string> texts;
    for (int column = 0; column < grid.ColumnCount(); ++column) texts.push_back(grid.Text(row, column));
    return texts;
  }

  static std::vector<std::string> ColumnTexts(const Grid& grid, int column) {
    std::vector<std::string> texts;
    for (int row = 1; row < grid.RowCount(); ++row) texts.push_back(grid.Text(row, column));
    return texts;
  }

  /// Writes texts from column 1 on.
  static void WriteRow(Grid& grid, int row, const std::vector<std::string>& texts) {
    int column = 1;
    for (const std::string& text : texts) grid.SetText(row, column++, text);
  }

  /// All texts of a grid, headers included.
  static std::vector<std::vector<std::string>> AllTexts(const Grid& grid) {
    std::vector<std::vector<std::string>> texts;
    for (int row = 0; row < grid.RowCount(); ++row) texts.push_back(RowTexts(grid, row));
    return texts;
  }

  void ExpectBoxes(const std::vector<Message>& expected) { EXPECT_EQ(TakeMessages(), expected); }
};

/// The box for the first cell that a command named and the grid does not have.
inline Message MissBox(int row, int column) {
  return Box(MessageIcon::Critical,
             "The grid has no cell (" + std::to_string(row) + "," + std::to_string(column) + ")");
}

} // namespace strutwright
