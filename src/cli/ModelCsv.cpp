#include "ModelCsv.h"

#include "Output.h"
#include "modAnalysis.h"
#include "modColumns.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace strutwright {

namespace {

constexpr std::size_t ColumnCount = 6;
constexpr int MinCapacity = 20;
constexpr int MaxMembers = 32767;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

struct Record {
  int line = 0; ///< where it begins
  std::vector<std::string> fields;
};

/// Takes comma-separated values apart, record by record.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text) : Rest(text) {
    if (Rest.starts_with(ByteOrderMark)) Rest.remove_prefix(ByteOrderMark.size());
  }

  bool AtEnd() const { return Rest.empty(); }

  Record Next() {
    Record record;
    record.line = Line;
    do {
      record.fields.push_back(NextField());
    } while (TakeComma());
    TakeLineEnd();
    return record;
  }

 private:
  std::string NextField() {
    if (Rest.starts_with('"')) return QuotedField();
    const std::size_t end = std::min(Rest.find_first_of(",\r\n"), Rest.size());
    std::string field(Rest.substr(0, end));
    Rest.remove_prefix(end);
    return field;
  }

  std::string QuotedField() {
    const int began = Line;
    std::string field;
    for (;;) {
      Rest.remove_prefix(1); // the opening quote, or the second one of a pair
      const std::size_t quote = Rest.find('"');
      if (quote == std::string_view::npos) throw CsvError(began, "a quotation mark is not closed");
      field += Rest.substr(0, quote);
      Line += static_cast<int>(std::count(Rest.begin(), Rest.begin() + static_cast<std::ptrdiff_t>(quote), '\n'));
      Rest.remove_prefix(quote + 1);
      if (!Rest.starts_with('"')) return field;
      field += '"';
    }
  }

  bool TakeComma() {
    if (!Rest.starts_with(',')) return false;
    Rest.remove_prefix(1);
    return true;
  }

  void TakeLineEnd() {
    const bool inside = !Rest.empty() && Rest.front() != '\r' && Rest.front() != '\n';
    if (inside) throw CsvError(Line, "a closing quotation mark is not followed by a comma");
    if (Rest.starts_with('\r')) Rest.remove_prefix(1);
    if (Rest.starts_with('\n')) Rest.remove_prefix(1);
    ++Line;
  }

  std::string_view Rest;
  int Line = 1;
};

/// One of the two tables as it is read.
struct Table {
  const std::array<GridColumn, ColumnCount>& columns;
  const char* rowName;
  int mostRows;
  bool begun = false;
  std::vector<std::array<float, ColumnCount>> rows{};
};

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

float ReadValue(const Record& record, std::size_t column, const Table& table) {
  const std::string& text = record.fields[column];
  const bool mayBeEmpty = column > 1;
  if (mayBeEmpty && TrimBlanks(text).empty()) return 0.0F;
  if (const auto value = NumericValue(text)) return *value;
  throw CsvError(record.line,
                 Quoted(text) + " in column " + Quoted(table.columns[column].heading) + " is not a number");
}

void CheckRowNumber(const Record& record, const Table& table) {
  const auto expected = table.rows.size() + 1;
  if (NumericValue(record.fields[0]) == static_cast<float>(expected)) return;
  throw CsvError(record.line, std::string(table.rowName) + " " + Quoted(record.fields[0]) + " stands where " +
                                  table.rowName + " " + std::to_string(expected) + " is expected");
}

/// Spreadsheets write other separators where the comma stands in numbers.
void CheckSeparator(const Record& record) {
  const std::string& text = record.fields.front();
  const std::size_t separator = text.find_first_of(";\t|");
  if (record.fields.size() >= ColumnCount || separator == std::string::npos) return;
  throw CsvError(record.line, "commas are expected between the values, not " +
                                  (text[separator] == '\t' ? "tabs" : Quoted(text.substr(separator, 1))));
}

void ReadRow(const Record& record, Table& table) {
  CheckSeparator(record);
  if (record.fields.size() < ColumnCount) {
    throw CsvError(record.line, "the line has " + std::to_string(record.fields.size()) + " values instead of 6");
  }
  CheckRowNumber(record, table);
  if (table.rows.size() == static_cast<std::size_t>(table.mostRows)) {
    throw CsvError(record.line, "a model has at most " + std::to_string(table.mostRows) + " " + table.rowName + "s");
  }
  std::array<float, ColumnCount> row{};
  for (std::size_t column = 1; column < ColumnCount; ++column) row[column] = ReadValue(record, column, table);
  table.rows.push_back(row);
}

/// The record without what spreadsheets put behind the last column; no fields at all for a blank line.
Record WithoutEmptyTail(Record record) {
  const auto isBlank = [](const std::string& field) { return TrimBlanks(field).empty(); };
  while (record.fields.size() > ColumnCount && isBlank(record.fields.back())) record.fields.pop_back();
  const bool blank = std::all_of(record.fields.begin(), record.fields.end(), isBlank);
  if (blank) record.fields.clear();
  if (record.fields.size() > ColumnCount) {
    throw CsvError(record.line, "the line has " + std::to_string(record.fields.size()) + " values instead of 6");
  }
  return record;
}

/// A table whose columns were exchanged would be a wrong model that looks like a right one.
void CheckHeadings(const Record& record, const Table& table) {
  for (std::size_t column = 0; column < ColumnCount; ++column) {
    const std::string_view heading = column < record.fields.size() ? TrimBlanks(record.fields[column]) : "";
    if (heading == table.columns[column].heading) continue;
    throw CsvError(record.line, "the heading " + Quoted(heading) + " stands where " +
                                    Quoted(table.columns[column].heading) + " is expected");
  }
}

/// Begins a table where the record is its headings.
bool BeginTable(const Record& record, Table& table) {
  const std::string_view first = TrimBlanks(record.fields[0]);
  if (first.starts_with(table.columns[0].heading)) CheckSeparator(record);
  if (first != table.columns[0].heading) return false;
  CheckHeadings(record, table);
  if (table.begun) throw CsvError(record.line, "the table " + Quoted(table.columns[0].heading) + " begins again");
  table.begun = true;
  return true;
}

/// Takes one record in; returns the table that the next row belongs to.
Table* ReadRecord(const Record& record, Table& nodes, Table& members, Table* current) {
  if (BeginTable(record, nodes)) return &nodes;
  if (BeginTable(record, members)) return &members;
  if (current == nullptr) throw CsvError(record.line, "the headings \"JOINTS\",... are expected first");
  ReadRow(record, *current);
  return current;
}

void CopyRows(const Table& table, FieldTable& target) {
  target.Recreate(static_cast<int>(table.rows.size()));
  for (int row = 1; row <= target.Count(); ++row) {
    for (int field = 1; field < static_cast<int>(ColumnCount); ++field) {
      target(row, field) = table.rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(field)];
    }
  }
}

StoredModel ModelOf(const Table& nodes, const Table& members) {
  StoredModel model;
  CopyRows(nodes, model.nodes);
  CopyRows(members, model.members);
  model.nodeCount = static_cast<std::int16_t>(model.nodes.Count());
  model.memberCount = static_cast<std::int16_t>(model.members.Count());
  model.capacity = static_cast<std::int16_t>(std::max({MinCapacity, model.nodes.Count(), model.members.Count()}));
  return model;
}

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

} // namespace

std::string ModelToCsv() { return TableToCsv(NodeTable, JointColumns) + TableToCsv(MemberTable, MemberColumns); }

StoredModel ModelFromCsv(const std::string& text) {
  Table nodes{JointColumns, "node", MaxAnalysedNodes};
  Table members{MemberColumns, "member", MaxMembers};
  Table* current = nullptr;
  CsvReader reader(text);
  int lastLine = 1;
  while (!reader.AtEnd()) {
    const Record record = WithoutEmptyTail(reader.Next());
    lastLine = record.line;
    if (record.fields.empty()) continue;
    current = ReadRecord(record, nodes, members, current);
  }
  for (const Table* table : {&nodes, &members}) {
    if (!table->begun) throw CsvError(lastLine, "the table " + Quoted(table->columns[0].heading) + " is missing");
  }
  return ModelOf(nodes, members);
}

} // namespace strutwright
