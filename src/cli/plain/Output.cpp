#include "Output.h"

#include <algorithm>
#include <cstddef>
#include <ostream>

namespace strutwright {

namespace {

std::size_t ColumnWidth(const Grid& grid, int column) {
  std::size_t width = 0;
  for (int row = 0; row < grid.RowCount(); ++row) width = std::max(width, grid.Text(row, column).size());
  return width;
}

} // namespace

void PrintTable(const Grid& grid, std::ostream& out) {
  std::vector<std::size_t> widths;
  for (int column = 0; column < grid.ColumnCount(); ++column) widths.push_back(ColumnWidth(grid, column));
  for (int row = 0; row < grid.RowCount(); ++row) {
    const std::string& label = grid.Text(row, 0);
    out << label << std::string(widths[0] - label.size(), ' ');
    for (int column = 1; column < grid.ColumnCount(); ++column) {
      const std::string& text = grid.Text(row, column);
      out << "  " << std::string(widths[static_cast<std::size_t>(column)] - text.size(), ' ') << text;
    }
    out << '\n';
  }
}

void PrintJsonLine(const Json& value, std::ostream& out) { out << JsonLine(value); }

} // namespace strutwright
