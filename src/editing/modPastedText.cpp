#include "modPastedText.h"

#include <cstddef>
#include <optional>
#include <utility>

namespace strutwright {

namespace {

constexpr std::string_view LineEnd = "\r\n";

/// The length of the line end at the front of a text; 0 when there is none.  A carriage return alone is none.
std::size_t LineEndLength(std::string_view text) {
  if (text.starts_with('\n')) return 1;
  return text.starts_with(LineEnd) ? LineEnd.size() : 0;
}

bool EndsCell(std::string_view rest) { return rest.empty() || rest.front() == '\t' || LineEndLength(rest) > 0; }

/// The length of the cell in quotation marks at the front of a text, both marks included.  Nothing when the text does
/// not begin with one: a mark that is never closed, or has something behind it, is a character like any other.
std::optional<std::size_t> QuotedLength(std::string_view text) {
  if (!text.starts_with('"')) return std::nullopt;
  std::size_t mark = text.find('"', 1);
  while (mark != std::string_view::npos && text.substr(mark + 1).starts_with('"')) mark = text.find('"', mark + 2);
  if (mark == std::string_view::npos || !EndsCell(text.substr(mark + 1))) return std::nullopt;
  return mark + 1;
}

std::size_t PlainLength(std::string_view text) {
  std::size_t length = 0;
  while (!EndsCell(text.substr(length))) ++length;
  return length;
}

std::string WithoutMarks(std::string_view quoted) {
  std::string text;
  for (std::size_t at = 1; at + 1 < quoted.size(); ++at) {
    text.push_back(quoted[at]);
    if (quoted[at] == '"') ++at; // written twice
  }
  return text;
}

std::string WithoutLineEnds(std::string_view text) {
  std::string kept;
  while (!text.empty()) {
    const std::size_t length = LineEndLength(text);
    if (length == 0) kept.push_back(text.front());
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return kept;
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Takes a cell off the front of a text.
std::string TakeCell(std::string_view& text) {
  const std::optional<std::size_t> quoted = QuotedLength(text);
  const std::string_view cell = text.substr(0, quoted ? *quoted : PlainLength(text));
  text.remove_prefix(cell.size());
  return Trimmed(WithoutLineEnds(quoted ? WithoutMarks(cell) : std::string(cell)));
}

} // namespace

std::vector<std::vector<std::string>> TakeTableApart(std::string_view text) {
  std::vector<std::vector<std::string>> lines;
  std::vector<std::string> line;
  while (!text.empty()) {
    line.push_back(TakeCell(text));
    if (const std::size_t length = LineEndLength(text)) {
      text.remove_prefix(length);
      lines.push_back(std::move(line));
      line.clear();
    } else if (!text.empty()) {
      text.remove_prefix(1); // a tab, which has a cell behind it, if an empty one
    }
  }
  return lines;
}

} // namespace strutwright
