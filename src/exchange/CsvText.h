#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

/// One record of comma-separated values (RFC 4180), line end included.
std::string CsvRecord(const std::vector<std::string>& fields);

/// One line of a table that is read.
struct TableLine {
  int line = 0; ///< where it begins, from 1
  std::vector<std::string> fields;
};

/// What stands between the values of a table: a tab, a semicolon or a comma, whichever its first line with a text has,
/// in this order.  Without any it is the comma.
char SeparatorOf(std::string_view text);

/// Its name in a message: "commas".
std::string NameOfSeparator(char separator);

/// Takes separated values apart, line by line: line ends CRLF, LF or CR, and values in quotation marks.
class CsvReader {
 public:
  CsvReader(std::string_view text, char separator);

  bool AtEnd() const { return Rest.empty(); }

  /// Throws ImportError where quotation marks are wrong or a line has more than a hundred values.
  TableLine Next();

 private:
  std::string NextField();
  std::string QuotedField();
  bool TakeSeparator();
  void TakeLineEnd();

  std::string_view Rest;
  char Separator;
  int Line = 1;
};

} // namespace strutwright
