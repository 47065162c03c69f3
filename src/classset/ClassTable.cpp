#include "ClassTable.h"

#include "ClassFault.h"
#include "ClassTexts.h"
#include "CsvText.h"
#include "ImportError.h"
#include "modNumberText.h"
#include "modTables.h"

#include <algorithm>
#include <cstddef>

namespace strutwright {

namespace {

std::string Trimmed(const std::string& text) { return std::string(TrimBlanks(text)); }

bool HasNoText(const TableLine& line) {
  return std::all_of(line.fields.begin(), line.fields.end(),
                     [](const std::string& field) { return TrimBlanks(field).empty(); });
}

std::string Listed(const std::vector<std::string_view>& names) {
  std::string list;
  for (const std::string_view name : names) list += (list.empty() ? "" : ",") + std::string(name);
  return list;
}

/// Where each column stands.
std::vector<std::size_t> PlacesOf(const std::vector<std::string_view>& columns, const TableLine& headings,
                                  const std::string& what) {
  std::vector<std::size_t> places;
  for (const std::string_view column : columns) {
    const auto found = std::find_if(headings.fields.begin(), headings.fields.end(), [column](const std::string& each) {
      return InSmallLetters(TrimBlanks(each)) == column;
    });
    if (found == headings.fields.end()) {
      throw ClassFault(what + " has no column " + InQuotes(column) + ": its first line must be " + Listed(columns));
    }
    places.push_back(static_cast<std::size_t>(found - headings.fields.begin()));
  }
  return places;
}

/// Spreadsheets end lines with the separators of columns that are empty.
void DropBlankEnd(TableLine& line) {
  while (!line.fields.empty() && TrimBlanks(line.fields.back()).empty()) line.fields.pop_back();
}

/// The fields beyond the last heading, joined to its own.
void JoinBeyond(TableLine& line, std::size_t count) {
  while (line.fields.size() > count) {
    const std::string beyond = line.fields[count];
    line.fields.erase(line.fields.begin() + static_cast<std::ptrdiff_t>(count));
    if (!TrimBlanks(beyond).empty()) line.fields[count - 1] += "," + beyond;
  }
}

} // namespace

TableText ReadableTable(const std::string& text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  constexpr std::string_view name = "sep=";
  const std::size_t begin = text.starts_with(mark) ? mark.size() : 0;
  const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
  const bool isTold = end == begin + name.size() + 1 && InSmallLetters(text.substr(begin, name.size())) == name;
  if (!isTold) return {text, SeparatorOf(text)};
  return {text.substr(end), text[end - 1]};
}

std::vector<ClassRow> ReadClassTable(const std::string& text, const std::vector<std::string_view>& columns,
                                     const std::string& what) {
  std::vector<ClassRow> rows;
  std::vector<std::size_t> places;
  std::size_t width = 0;
  try {
    const TableText table = ReadableTable(text);
    CsvReader reader(table.text, table.separator);
    while (!reader.AtEnd()) {
      TableLine line = reader.Next();
      if (HasNoText(line)) continue;
      DropBlankEnd(line);
      if (places.empty()) {
        places = PlacesOf(columns, line, what);
        width = line.fields.size();
        continue;
      }
      if (places.back() + 1 == width) JoinBeyond(line, width);
      if (line.fields.size() > width) {
        throw ClassFault("Line " + std::to_string(line.line) + " of " + InSmallLetters(what) +
                         " has more fields than headings: put a number with a comma in quotation marks");
      }
      line.fields.resize(std::max(line.fields.size(), width));
      ClassRow row{line.line, {}};
      for (const std::size_t place : places) row.values.push_back(Trimmed(line.fields[place]));
      rows.push_back(row);
    }
  } catch (const ImportError& error) {
    throw ClassFault(what + " can't be read: " + error.Sentence());
  }
  if (places.empty()) throw ClassFault(what + " is empty: its first line must be " + Listed(columns));
  return rows;
}

} // namespace strutwright
