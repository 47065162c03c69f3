#include "DataCellWriter.h"

#include "Platform.h"

namespace strutwright {

void DataCellWriter::Write(int row, int column, const std::string& text) {
  if (HasCell(row, column)) {
    Target.SetText(row, column, text);
  } else if (!FirstMiss) {
    FirstMiss.emplace(row, column);
  }
}

void DataCellWriter::Empty(int row, int column) {
  if (HasCell(row, column)) Target.SetText(row, column, "");
}

bool DataCellWriter::HasCell(int row, int column) const {
  return row >= 1 && row < Target.RowCount() && column >= 0 && column < Target.ColumnCount();
}

void DataCellWriter::ShowFirstMiss() const {
  if (FirstMiss) ShowMessage(MessageIcon::Critical, FirstMiss->what());
}

} // namespace strutwright
