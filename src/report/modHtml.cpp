#include "modHtml.h"

#include "Markup.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace strutwright {

namespace {

constexpr std::string_view Style = R"(<style>
body { font-family: 'DejaVu Sans', sans-serif; font-size: 9pt; color: #000000; background-color: #ffffff; }
h1 { font-size: 16pt; }
h2 { font-size: 13pt; }
h3 { font-size: 10pt; }
th { font-weight: bold; }
pre { font-family: 'DejaVu Sans Mono', monospace; font-size: 8pt; }
td, th { padding-left: 8px; padding-right: 8px; padding-top: 1px; padding-bottom: 1px; }
</style>
)";

constexpr const char* LandscapeStyle = "<style>@page { size: A4 landscape; }</style>\n";

// Every other row is shaded: thin lines come out uneven on paper.
constexpr std::string_view TableStart = "<table border=\"0\" cellspacing=\"0\">";
constexpr std::string_view HeadingsStart = "<tr bgcolor=\"#dde3e9\">";
constexpr std::string_view ShadedStart = "<tr bgcolor=\"#f1f4f6\">";

std::string Cell(const std::string& tag, const HtmlColumn& column, const std::string& text) {
  return "<" + tag + (column.isText ? R"( align="left">)" : R"( align="right">)") + Escaped(text) + "</" + tag + ">";
}

using Row = std::vector<std::string>;

/// How wide each column must be, in characters; the texts are ASCII.
std::vector<std::size_t> WidthsOf(const Row& headings, const std::vector<Row>& rows) {
  std::vector<std::size_t> widths;
  for (const std::string& heading : headings) widths.push_back(heading.size());
  for (const Row& row : rows) {
    for (std::size_t column = 0; column < widths.size(); ++column) {
      widths[column] = std::max(widths[column], row.at(column).size());
    }
  }
  return widths;
}

std::string PlainRow(const std::vector<HtmlColumn>& columns, const std::vector<std::size_t>& widths, const Row& row) {
  std::string line;
  for (std::size_t column = 0; column < columns.size(); ++column) {
    const std::string room(widths[column] - row[column].size(), ' ');
    line += (column == 0 ? "" : "  ") + (columns[column].isText ? row[column] + room : room + row[column]);
  }
  return Escaped(line) + "\n";
}

/// Columns of plain text, with the headings again and again.
std::string PlainTable(const std::vector<HtmlColumn>& columns, const std::vector<Row>& rows) {
  constexpr std::size_t rowsBelowHeadings = 50;
  Row headings;
  for (const HtmlColumn& column : columns) headings.push_back(column.heading);
  const std::vector<std::size_t> widths = WidthsOf(headings, rows);
  std::string html;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (row % rowsBelowHeadings == 0) {
      html += (row == 0 ? "" : "</pre>\n") + ("<pre><b>" + PlainRow(columns, widths, headings)) + "</b>";
    }
    html += PlainRow(columns, widths, rows[row]);
  }
  return html + "</pre>\n";
}

std::size_t DepthOf(const std::string& line) { return std::min(line.find_first_not_of(' '), line.size()) / 2; }

} // namespace

std::string Escaped(std::string text) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; };
  std::replace_if(text.begin(), text.end(), isControl, ' ');
  return EscapedMarkup(text);
}

std::string Base64(const std::string& bytes) {
  constexpr std::string_view Letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i)
      group = group << 8U | (i < count ? static_cast<std::uint8_t>(bytes[at + i]) : 0U);
    for (std::size_t i = 0; i < 4; ++i) text += i <= count ? Letters[group >> (18 - 6 * i) & 63U] : '=';
  }
  return text;
}

std::string HtmlTable(const std::vector<HtmlColumn>& columns, const std::vector<Row>& rows) {
  if (rows.size() > MaxTableRows) return PlainTable(columns, rows);
  std::string html(TableStart);
  html += "\n<thead>" + std::string(HeadingsStart);
  for (const HtmlColumn& column : columns) html += Cell("th", column, column.heading);
  html += "</tr></thead>\n<tbody>\n";
  bool shaded = false;
  for (const Row& row : rows) {
    html += shaded ? ShadedStart : "<tr>";
    shaded = !shaded;
    for (std::size_t column = 0; column < columns.size(); ++column) {
      html += Cell("td", columns[column], row.at(column));
    }
    html += "</tr>\n";
  }
  return html + "</tbody></table>\n";
}

std::string HtmlHeading(int level, const std::string& text) {
  const std::string tag = "h" + std::to_string(level);
  return "<" + tag + ">" + Escaped(text) + "</" + tag + ">\n";
}

std::string HtmlParagraph(const std::string& text) { return "<p>" + Escaped(text) + "</p>\n"; }

std::string HtmlList(const std::vector<std::string>& lines) {
  std::string html;
  std::size_t depth = 0;
  for (const std::string& line : lines) {
    for (; depth < DepthOf(line) + 1; ++depth) html += "<ul>\n";
    for (; depth > DepthOf(line) + 1; --depth) html += "</ul>\n";
    html += "<li>" + Escaped(line.substr(2 * (depth - 1))) + "</li>\n";
  }
  for (; depth > 0; --depth) html += "</ul>\n";
  return html;
}

std::string HtmlPicture(const std::string& png, int width, int height) {
  return "<p><img alt=\"The truss\" width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) +
         "\" src=\"data:image/png;base64," + Base64(png) + "\"></p>\n";
}

std::string HtmlRoom(int lines) {
  std::string html;
  for (int line = 0; line < lines; ++line) html += "<p>&nbsp;</p>\n";
  return html;
}

std::string HtmlPage(const std::string& title, bool landscape, const std::string& body) {
  return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + Escaped(title) +
         "</title>\n" + std::string(Style) + (landscape ? LandscapeStyle : "") + "</head>\n<body>\n" + body +
         "</body>\n</html>\n";
}

} // namespace strutwright
