#pragma once

#include "modModelFile.h"

#include <stdexcept>
#include <string>

namespace strutwright {

/// A line of the input can't be part of a model.  what() says why; `line` counts from 1.
class CsvError : public std::runtime_error {
 public:
  CsvError(int atLine, const std::string& reason) : std::runtime_error(reason), line(atLine) {}

  int line;
};

/// The open model as comma-separated values (RFC 4180): the node table under its headings, the member table under
/// its own.  Every number is the shortest text that reads back to the same float.
std::string ModelToCsv();

/// Reads the form that ModelToCsv writes, as a spreadsheet may hand it back: line ends CRLF, LF or CR, blank lines and
/// empty columns behind the last are ignored, an empty value is 0 except in the first data column.
/// The capacity becomes 20, or as many as the model has nodes or members where that is more.
/// Throws CsvError for the first line that is wrong.
StoredModel ModelFromCsv(const std::string& text);

} // namespace strutwright
