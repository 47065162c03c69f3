#pragma once

#include "EventsTest.h"
#include "ModelBuilder.h"
#include "modColumns.h"
#include "modModelStore.h"

#include <string>
#include <vector>

namespace strutwright {

/// Data grids with their headings and no data row.
class ModelStoreTest : public EventsTest {
 protected:
  ModelStoreTest() {
    ResetModel();
    WriteHeadings(GrJoints, JointColumns);
    WriteHeadings(GrMembers, MemberColumns);
  }

  /// Appends a data row with these texts from column 1 on.
  static void AddRow(Grid& grid, const std::vector<std::string>& texts) {
    const int row = grid.RowCount();
    grid.SetRowCount(row + 1);
    int column = 1;
    for (const std::string& text : texts) grid.SetText(row, column++, text);
  }

  static std::vector<std::string> RowTexts(const Grid& grid, int row) {
    std::vector<std::string> texts;
    for (int column = 0; column < grid.ColumnCount(); ++column) texts.push_back(grid.Text(row, column));
    return texts;
  }

  static std::vector<float> Record(const FieldTable& table, int entity) {
    std::vector<float> values;
    for (int field = 0; field < table.FieldCount(); ++field) values.push_back(table(entity, field));
    return values;
  }
};

} // namespace strutwright
