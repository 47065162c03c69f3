#include "modTables.h"

#include "CsvText.h"
#include "ImportError.h"
#include "TableHeadings.h"
#include "modColumns.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace strutwright {

namespace {

constexpr std::size_t ColumnCount = 6;

/// One of the tables as it is read.
struct Table {
  std::vector<ReadColumn> columns;
  const char* rowName;
  std::optional<HeadingPlaces> places{}; ///< once it has begun
  std::vector<ModelRows::Row> rows{};
};

/// The columns of a grid as they may stand in a table; the first is the row's number.
std::vector<ReadColumn> ReadColumnsOf(const std::array<GridColumn, ColumnCount>& grid,
                                      std::vector<std::vector<std::string_view>> names,
                                      const std::vector<std::string_view>& units, std::vector<bool> required) {
  std::vector<ReadColumn> columns;
  for (std::size_t c = 0; c < ColumnCount; ++c) {
    names[c].push_back(grid[c].key);
    columns.push_back({std::move(names[c]), grid[c].heading, units[c], required[c]});
  }
  return columns;
}

std::vector<ReadColumn> NodeReadColumns() {
  return ReadColumnsOf(JointColumns, {{"joints", "joint", "nodes"}, {}, {}, {"forcex"}, {"forcey"}, {"supports"}},
                       {"", "m", "m", "kn", "kn", ""}, {false, true, true, false, false, false});
}

std::vector<ReadColumn> MemberReadColumns() {
  return ReadColumnsOf(MemberColumns, {{"members"}, {"nodei"}, {"nodej"}, {}, {}, {"prestress"}},
                       {"", "", "", "kn/mm2", "mm2", "kn"}, {false, true, true, true, true, false});
}

/// Whether the fields are this table's headings: its first column is there, or its next two are.
bool AreHeadingsOf(const std::vector<std::string>& fields, const std::vector<ReadColumn>& columns) {
  const auto has = [&](const ReadColumn& column) {
    return std::any_of(fields.begin(), fields.end(), [&](const std::string& f) { return IsHeadingOf(f, column); });
  };
  return has(columns[0]) || (has(columns[1]) && has(columns[2]));
}

/// Reads the node and the member table of one text.
class TablesReader {
 public:
  explicit TablesReader(std::vector<std::string>& remarks) : Remarks(remarks) {}

  ModelRows Read(const std::string& text) {
    Separator = SeparatorOf(text);
    CsvReader reader(text, Separator);
    int lastLine = 1;
    while (!reader.AtEnd()) {
      const TableLine line = WithoutEmptyTail(reader.Next());
      lastLine = line.line;
      if (!line.fields.empty()) ReadLine(line);
    }
    for (const Table* table : {&Nodes, &Members}) {
      if (table->places) continue;
      throw ImportError(lastLine, "the table " + Quoted(std::string(table->columns[0].title)) + " is missing");
    }
    return {std::move(Nodes.rows), std::move(Members.rows)};
  }

 private:
  /// The line without what spreadsheets put behind the last column; no fields at all for a blank line.
  TableLine WithoutEmptyTail(TableLine line) const {
    const auto isBlank = [](const std::string& field) { return TrimBlanks(field).empty(); };
    const std::size_t kept = Current == nullptr ? 1 : Current->places->fieldCount;
    while (line.fields.size() > kept && isBlank(line.fields.back())) line.fields.pop_back();
    if (std::all_of(line.fields.begin(), line.fields.end(), isBlank)) line.fields.clear();
    return line;
  }

  void ReadLine(const TableLine& line) {
    for (Table* table : {&Nodes, &Members}) {
      if (!AreHeadingsOf(line.fields, table->columns)) continue;
      return BeginTable(line, *table);
    }
    CheckSeparator(line);
    if (Current == nullptr) throw ImportError(line.line, "the headings \"JOINTS\",... are expected first");
    ReadRow(line);
  }

  void BeginTable(const TableLine& line, Table& table) {
    CheckSeparator(line);
    const std::string title(table.columns[0].title);
    if (table.places) throw ImportError(line.line, "the table " + Quoted(title) + " begins again");
    HeadingPlaces places = FindHeadings(line.fields, table.columns, line.line);
    for (std::size_t c = 0; c < ColumnCount; ++c) {
      if (places.columns[c] || !table.columns[c].required) continue;
      throw ImportError(line.line, "the heading " + Quoted(std::string(table.columns[c].title)) + " is missing");
    }
    for (const std::string& heading : places.leftOut) {
      Remarks.push_back("The column " + Quoted(heading) + " is left out");
    }
    table.places = std::move(places);
    Current = &table;
  }

  /// A line whose values have something else between them would be one value.
  void CheckSeparator(const TableLine& line) const {
    const std::string& text = line.fields.front();
    const std::size_t other = text.find_first_of(";\t|");
    if (line.fields.size() >= ColumnCount || other == std::string::npos) return;
    throw ImportError(line.line, NameOfSeparator(Separator) + " are expected between the values, not " +
                                     (text[other] == '\t' ? "tabs" : Quoted(text.substr(other, 1))));
  }

  void ReadRow(const TableLine& line) {
    const HeadingPlaces& places = *Current->places;
    if (line.fields.size() != places.fieldCount) {
      throw ImportError(line.line, "the line has " + std::to_string(line.fields.size()) + " values instead of " +
                                       std::to_string(places.fieldCount));
    }
    CheckRowNumber(line);
    if (Current == &Nodes) CheckRoomForNode(Nodes.rows.size(), line.line);
    if (Current == &Members) CheckRoomForMember(Members.rows.size(), line.line);
    ModelRows::Row row{};
    for (std::size_t c = 1; c < ColumnCount; ++c) row[c] = ReadValue(line, c);
    Current->rows.push_back(row);
  }

  void CheckRowNumber(const TableLine& line) const {
    if (!Current->places->columns[0]) return;
    const std::string& text = line.fields[Current->places->columns[0]->index];
    const auto expected = Current->rows.size() + 1;
    if (NumericValue(text) == static_cast<float>(expected)) return;
    const std::string name = Current->rowName;
    throw ImportError(line.line, name + " " + Quoted(text) + " stands where " + name + " " + std::to_string(expected) +
                                     " is expected");
  }

  float ReadValue(const TableLine& line, std::size_t column) const {
    const std::optional<ColumnPlace>& place = Current->places->columns[column];
    if (!place) return 0;
    const std::string& text = line.fields[place->index];
    const bool mayBeEmpty = column > 1;
    if (mayBeEmpty && TrimBlanks(text).empty()) return 0;
    if (const auto value = CellNumber(text)) {
      const auto converted = static_cast<float>(static_cast<double>(*value) * place->factor);
      if (std::isfinite(converted)) return converted;
    }
    throw ImportError(line.line, Quoted(text) + " in column " + Quoted(std::string(Current->columns[column].title)) +
                                     " is not a number");
  }

  std::vector<std::string>& Remarks;
  char Separator = ',';
  Table Nodes{NodeReadColumns(), "node"};
  Table Members{MemberReadColumns(), "member"};
  Table* Current = nullptr;
};

std::string TableToCsv(const FieldTable& table, const std::array<GridColumn, ColumnCount>& columns) {
  std::vector<std::string> fields;
  for (const GridColumn& column : columns) fields.emplace_back(column.heading);
  std::string csv = CsvRecord(fields);
  for (int row = 1; row <= table.Count(); ++row) {
    fields[0] = std::to_string(row);
    for (std::size_t field = 1; field < ColumnCount; ++field) {
      fields[field] = ShortestText(table(row, static_cast<int>(field)));
    }
    csv += CsvRecord(fields);
  }
  return csv;
}

const std::vector<ReadColumn>& LayerColumns() {
  static const std::vector<ReadColumn> columns{
      {{"layer"}, "layer", ""}, {{"e"}, "E (kN/mm2)", "kn/mm2"}, {{"a"}, "A (mm2)", "mm2"}};
  return columns;
}

HeadingPlaces LayerPlaces(const TableLine& line) {
  HeadingPlaces places = FindHeadings(line.fields, LayerColumns(), line.line);
  for (std::size_t c = 0; c < places.columns.size(); ++c) {
    if (places.columns[c]) continue;
    throw ImportError(line.line, "the heading " + Quoted(std::string(LayerColumns()[c].title)) + " is missing");
  }
  return places;
}

float LayerValue(const TableLine& line, const ColumnPlace& place) {
  const std::string text = place.index < line.fields.size() ? line.fields[place.index] : "";
  const auto value = CellNumber(text);
  if (!value) throw ImportError(line.line, Quoted(text) + " is not a number");
  const auto number = static_cast<float>(static_cast<double>(*value) * place.factor);
  if (!std::isfinite(number)) throw ImportError(line.line, Quoted(text) + " is too large");
  return number;
}

} // namespace

std::string ModelToCsv() { return TableToCsv(NodeTable, JointColumns) + TableToCsv(MemberTable, MemberColumns); }

bool BeginsWithHeadings(const std::string& text) {
  CsvReader reader(text, SeparatorOf(text));
  while (!reader.AtEnd()) {
    const TableLine line = reader.Next();
    const bool blank = std::all_of(line.fields.begin(), line.fields.end(),
                                   [](const std::string& field) { return TrimBlanks(field).empty(); });
    if (!blank) return AreHeadingsOf(line.fields, NodeReadColumns()) || AreHeadingsOf(line.fields, MemberReadColumns());
  }
  return false;
}

ModelRows RowsFromTables(const std::string& text, std::vector<std::string>& remarks) {
  return TablesReader(remarks).Read(text);
}

LayerTable ReadLayerTable(const std::string& text) {
  LayerTable table;
  std::optional<HeadingPlaces> places;
  CsvReader reader(text, SeparatorOf(text));
  while (!reader.AtEnd()) {
    const TableLine line = reader.Next();
    const bool blank = std::all_of(line.fields.begin(), line.fields.end(),
                                   [](const std::string& field) { return TrimBlanks(field).empty(); });
    if (blank) continue;
    if (!places) {
      places = LayerPlaces(line);
      continue;
    }
    const std::size_t name = places->columns[0]->index;
    if (name >= line.fields.size()) throw ImportError(line.line, "the name of the layer is missing");
    const std::string layer = InSmallLetters(TrimBlanks(line.fields[name]));
    table[layer] = {LayerValue(line, *places->columns[1]), LayerValue(line, *places->columns[2])};
  }
  if (!places) throw ImportError(0, "the headings \"layer\", \"E\" and \"A\" are expected first");
  return table;
}

std::optional<float> CellNumber(const std::string& text) {
  if (std::count(text.begin(), text.end(), ',') != 1 || text.find('.') != std::string::npos) return NumericValue(text);
  std::string pointed = text;
  pointed[pointed.find(',')] = '.';
  return NumericValue(pointed);
}

std::string InSmallLetters(std::string_view text) {
  std::string small(text);
  std::transform(small.begin(), small.end(), small.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return small;
}

} // namespace strutwright
