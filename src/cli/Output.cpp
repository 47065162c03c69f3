#include "Output.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ostream>

namespace strutwright {

namespace {

std::size_t ColumnWidth(const Grid& grid, int column) {
  std::size_t width = 0;
  for (int row = 0; row < grid.RowCount(); ++row) width = std::max(width, grid.Text(row, column).size());
  return width;
}

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
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

std::string CsvRecord(const std::vector<std::string>& fields) {
  std::vector<std::string> quoted;
  quoted.reserve(fields.size());
  std::transform(fields.begin(), fields.end(), std::back_inserter(quoted), CsvField);
  std::string record = quoted.empty() ? "" : quoted.front();
  for (std::size_t i = 1; i < quoted.size(); ++i) record += "," + quoted[i];
  return record + "\r\n";
}

std::string ValidText(const std::string& text) {
  return nlohmann::json::parse(nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

Json JsonNumber(float value) {
  if (!std::isfinite(value)) return nullptr;
  return value == 0 ? 0.0F : value;
}

void PrintJsonLine(const Json& value, std::ostream& out) {
  out << value.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace strutwright
