#include "CsvText.h"

#include "ImportError.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace strutwright {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t MostFields = 100;

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

/// The first line that holds more than blanks and separators.
std::string_view FirstLine(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n,;");
  if (first == std::string_view::npos) return {};
  const std::size_t before = text.substr(0, first).find_last_of("\r\n");
  text.remove_prefix(before == std::string_view::npos ? 0 : before + 1);
  return text.substr(0, text.find_first_of("\r\n"));
}

} // namespace

std::string CsvRecord(const std::vector<std::string>& fields) {
  std::vector<std::string> quoted;
  quoted.reserve(fields.size());
  std::transform(fields.begin(), fields.end(), std::back_inserter(quoted), CsvField);
  std::string record = quoted.empty() ? "" : quoted.front();
  for (std::size_t i = 1; i < quoted.size(); ++i) record += "," + quoted[i];
  return record + "\r\n";
}

char SeparatorOf(std::string_view text) {
  const std::string_view line = FirstLine(text);
  for (const char separator : {'\t', ';'}) {
    if (line.find(separator) != std::string_view::npos) return separator;
  }
  return ',';
}

std::string NameOfSeparator(char separator) {
  if (separator == '\t') return "tabs";
  return separator == ';' ? "semicolons" : "commas";
}

CsvReader::CsvReader(std::string_view text, char separator) : Rest(text), Separator(separator) {
  if (Rest.starts_with(ByteOrderMark)) Rest.remove_prefix(ByteOrderMark.size());
}

TableLine CsvReader::Next() {
  TableLine record;
  record.line = Line;
  do {
    if (record.fields.size() == MostFields) throw ImportError(Line, "the line has more than 100 values");
    record.fields.push_back(NextField());
  } while (TakeSeparator());
  TakeLineEnd();
  return record;
}

std::string CsvReader::NextField() {
  if (Rest.starts_with('"')) return QuotedField();
  const char ends[] = {Separator, '\r', '\n', '\0'};
  const std::size_t end = std::min(Rest.find_first_of(ends), Rest.size());
  std::string field(Rest.substr(0, end));
  Rest.remove_prefix(end);
  return field;
}

std::string CsvReader::QuotedField() {
  const int began = Line;
  std::string field;
  for (;;) {
    Rest.remove_prefix(1); // the opening quote, or the second one of a pair
    const std::size_t quote = Rest.find('"');
    if (quote == std::string_view::npos) throw ImportError(began, "a quotation mark is not closed");
    field += Rest.substr(0, quote);
    Line += static_cast<int>(std::count(Rest.begin(), Rest.begin() + static_cast<std::ptrdiff_t>(quote), '\n'));
    Rest.remove_prefix(quote + 1);
    if (!Rest.starts_with('"')) return field;
    field += '"';
  }
}

bool CsvReader::TakeSeparator() {
  if (!Rest.starts_with(Separator)) return false;
  Rest.remove_prefix(1);
  return true;
}

void CsvReader::TakeLineEnd() {
  const bool inside = !Rest.empty() && Rest.front() != '\r' && Rest.front() != '\n';
  if (inside) {
    const char* wanted = Separator == ',' ? "comma" : (Separator == ';' ? "semicolon" : "tab");
    throw ImportError(Line, std::string("a closing quotation mark is not followed by a ") + wanted);
  }
  if (Rest.starts_with('\r')) Rest.remove_prefix(1);
  if (Rest.starts_with('\n')) Rest.remove_prefix(1);
  ++Line;
}

} // namespace strutwright
