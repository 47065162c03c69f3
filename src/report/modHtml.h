#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace strutwright {

// Building blocks of a document: HTML that QTextDocument and every browser show alike.  Texts are UTF-8.

/// A text with its special characters written out; line ends and other control characters become blanks.
std::string Escaped(std::string text);

/// A column of a table.
struct HtmlColumn {
  std::string heading;
  bool isText = false; ///< set to the left; numbers are set to the right
};

inline constexpr std::size_t MaxTableRows = 500;

/// A table: its headings come again on every page.  rows: as many texts as there are columns, not escaped yet.
/// More than MaxTableRows rows are set in columns of plain text, on purpose: to lay a table out takes Qt a tenth of a
/// second for every hundred rows.
std::string HtmlTable(const std::vector<HtmlColumn>& columns, const std::vector<std::vector<std::string>>& rows);

/// A heading, 1 the highest, and a paragraph.  The text is not escaped yet.
std::string HtmlHeading(int level, const std::string& text);
std::string HtmlParagraph(const std::string& text);

/// A list of lines; a line indented by two blanks more than the one before belongs below it.
std::string HtmlList(const std::vector<std::string>& lines);

/// Bytes as letters: three as four; "=" stands for the bytes that are missing at the end.
std::string Base64(const std::string& bytes);

/// A PNG picture that lies in the document.
std::string HtmlPicture(const std::string& png, int width, int height);

/// Blank lines to write on by hand.
std::string HtmlRoom(int lines);

/// The whole document.  landscape: printed pages lie on their side.  body: HTML.
std::string HtmlPage(const std::string& title, bool landscape, const std::string& body);

} // namespace strutwright
