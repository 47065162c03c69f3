#include "DataCellWriter.h"

#include "Platform.h"

namespace strutwright {

void DataCellWriter::Write(int row, int column, const std::string& text) {
  if (row >= 1 && row < Target.RowCount() && column >= 0 && column < Target.ColumnCount()) {
    Target.SetText(row, column, text);
  } else if (!FirstMiss) {
    FirstMiss.emplace(row, column);
  }
}

void DataCellWriter::TellFirstMiss() const {
  if (FirstMiss) ShowMessage(MessageIcon::Critical, FirstMiss->what());
}

} // namespace strutwright
