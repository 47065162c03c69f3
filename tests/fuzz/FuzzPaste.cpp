// Any text pasted into a grid, at the row that its first byte names: every cell then holds a number, rows keep their
// numbers, and pasting it again changes nothing.

#include "EditingState.h"
#include "Ensure.h"
#include "QuietPlatform.h"
#include "modEditSnapshot.h"
#include "modGridClipboard.h"
#include "modGrids.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modPastedText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using namespace strutwright;

namespace {

using Table = std::vector<std::vector<std::string>>;

std::string InMarks(const std::string& cell) {
  std::string text = "\"";
  for (const char c : cell) text += c == '"' ? "\"\"" : std::string(1, c);
  return text + "\"";
}

std::string WrittenAsSpreadsheet(const Table& table) {
  std::string text;
  for (const auto& line : table) {
    for (std::size_t cell = 0; cell < line.size(); ++cell) text += (cell > 0 ? "\t" : "") + InMarks(line[cell]);
    text += "\r\n";
  }
  return text;
}

void ExpectRow(int row) {
  Ensure(GrJoints.Text(row, 0) == std::to_string(row), "a row bears its number");
  for (int column = 1; column < GrJoints.ColumnCount(); ++column) {
    const std::string& text = GrJoints.Text(row, column);
    Ensure(text.empty() || NumericValue(text).has_value(), "a cell that was pasted holds a number");
  }
}

void PasteInto(Grid& grid, int row) {
  grid.SetCurrentCell(row, 1);
  pasteCells(grid);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  QuietPlatform platform;
  TheModel = ModelState{};
  TheEditing = EditingState{};
  initGrids();
  const EditSnapshot before = TakeSnapshot();
  const int row = data[0] % GrJoints.RowCount();
  platform.clipboard.text = std::string(data + 1, data + size);

  const Table table = TakeTableApart(platform.clipboard.text);
  Ensure(TakeTableApart(WrittenAsSpreadsheet(table)) == table, "a table can be written and taken apart again");
  PasteInto(GrJoints, row);
  const EditSnapshot after = TakeSnapshot();
  if (table.empty()) Ensure(after == before, "nothing is pasted without a line end");
  Ensure(GrJoints.Text(0, 1) == "x(m)", "the headings stay");
  for (int each = 1; each < GrJoints.RowCount(); ++each) ExpectRow(each);
  PasteInto(GrJoints, row);
  Ensure(TakeSnapshot() == after, "pasting the same again changes nothing");
  return 0;
}
