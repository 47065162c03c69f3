#include "modHtml.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::HasSubstr;

TEST(HtmlTest, WritesOutWhatHasAMeaning) {
  EXPECT_EQ(Escaped("a<b> & \"c\""), "a&lt;b&gt; &amp; &quot;c&quot;");
  EXPECT_EQ(Escaped("1\n2\t3\x7f"), "1 2 3 ");
  EXPECT_EQ(Escaped("Br\u00FCcke"), "Br\u00FCcke");
}

TEST(HtmlTest, SetsNumbersToTheRightAndWordsToTheLeft) {
  const std::string table = HtmlTable({{"Node"}, {"Note", true}}, {{"1", "<free>"}});
  EXPECT_THAT(table, HasSubstr("<th align=\"right\">Node</th><th align=\"left\">Note</th></tr></thead>"));
  EXPECT_THAT(table, HasSubstr("<tr><td align=\"right\">1</td><td align=\"left\">&lt;free&gt;</td></tr>"));
}

TEST(HtmlTest, ShadesEveryOtherRow) {
  EXPECT_THAT(HtmlTable({{"N"}}, {{"1"}, {"2"}, {"3"}}),
              HasSubstr("<tr><td align=\"right\">1</td></tr>\n<tr bgcolor=\"#f1f4f6\"><td align=\"right\">2</td></tr>\n"
                        "<tr><td align=\"right\">3"));
}

TEST(HtmlTest, SetsManyRowsInColumnsOfText) {
  const std::vector<HtmlColumn> columns{{"Node"}, {"State", true}, {"F"}};
  std::vector<std::vector<std::string>> rows(MaxTableRows, {"7", "<T>", "-1.25"});
  EXPECT_THAT(HtmlTable(columns, rows), HasSubstr("<table"));
  rows.push_back({"12345", "Zero Bar", "8"});
  const std::string text = HtmlTable(columns, rows);
  EXPECT_THAT(text, testing::Not(HasSubstr("<table")));
  EXPECT_THAT(text, testing::StartsWith("<pre><b> Node  State         F\n</b>    7  &lt;T&gt;       -1.25\n"));
  EXPECT_THAT(text, testing::EndsWith("</b>12345  Zero Bar      8\n</pre>\n"));
}

TEST(HtmlTest, RepeatsTheHeadingsOfManyRows) {
  const std::string text = HtmlTable({{"N"}}, std::vector<std::vector<std::string>>(501, {"1"}));
  std::size_t count = 0;
  for (std::size_t at = text.find("<b>N"); at != std::string::npos; at = text.find("<b>N", at + 1)) ++count;
  EXPECT_EQ(count, 11U); // after every 50 rows
}

TEST(HtmlTest, LeavesATableWithoutRowsItsHeadings) {
  EXPECT_THAT(HtmlTable({{"Node"}}, {}), HasSubstr("Node</th></tr></thead>\n<tbody>\n</tbody></table>"));
}

TEST(HtmlTest, HasHeadingsAndParagraphs) {
  EXPECT_EQ(HtmlHeading(2, "A & B"), "<h2>A &amp; B</h2>\n");
  EXPECT_EQ(HtmlParagraph("1 < 2"), "<p>1 &lt; 2</p>\n");
}

TEST(HtmlTest, PutsALineThatIsSetInBelowTheOneBefore) {
  EXPECT_EQ(HtmlList({"a", "  b", "    c", "d&"}),
            "<ul>\n<li>a</li>\n<ul>\n<li>b</li>\n<ul>\n<li>c</li>\n</ul>\n</ul>\n<li>d&amp;</li>\n</ul>\n");
  EXPECT_EQ(HtmlList({}), "");
}

/// The letters of a picture in a document.
std::string LettersOf(const std::string& png) {
  const std::string html = HtmlPicture(png, 1, 1);
  const std::size_t begin = html.find("base64,") + 7;
  return html.substr(begin, html.find('"', begin) - begin);
}

// The examples of RFC 4648, section 10, and bytes above 127.
TEST(HtmlTest, KeepsAPictureInsideAsBase64) {
  EXPECT_EQ(LettersOf(""), "");
  EXPECT_EQ(LettersOf("f"), "Zg==");
  EXPECT_EQ(LettersOf("fo"), "Zm8=");
  EXPECT_EQ(LettersOf("foo"), "Zm9v");
  EXPECT_EQ(LettersOf("foobar"), "Zm9vYmFy");
  EXPECT_EQ(LettersOf("\xff\xfe\xfb"), "//77");
}

TEST(HtmlTest, GivesAPictureItsSize) {
  EXPECT_THAT(HtmlPicture("foo", 640, 300),
              HasSubstr("width=\"640\" height=\"300\" src=\"data:image/png;base64,Zm9v\""));
}

TEST(HtmlTest, IsAWholePage) {
  const std::string page = HtmlPage("<bridge>", false, "<p>body</p>\n");
  EXPECT_THAT(page, testing::StartsWith("<!DOCTYPE html>"));
  EXPECT_THAT(page, HasSubstr("<meta charset=\"utf-8\">"));
  EXPECT_THAT(page, HasSubstr("<title>&lt;bridge&gt;</title>"));
  EXPECT_THAT(page, testing::Not(HasSubstr("@page")));
  EXPECT_THAT(HtmlPage("bridge", true, ""), HasSubstr("<style>@page { size: A4 landscape; }</style>"));
  EXPECT_THAT(page, testing::EndsWith("<body>\n<p>body</p>\n</body>\n</html>\n"));
}

} // namespace
} // namespace strutwright
