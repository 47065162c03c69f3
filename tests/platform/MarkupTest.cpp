#include "Markup.h"

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(MarkupTest, EscapesWhatMeansSomethingToHtml) {
  EXPECT_EQ(EscapedMarkup("a<b & \"c\">"), "a&lt;b &amp; &quot;c&quot;&gt;");
}

TEST(MarkupTest, EscapesWhatMeansSomethingToLatex) {
  EXPECT_EQ(EscapedLatex("a_b & 5 % of $1 #2 {x} <y>"), "a\\_b \\& 5 \\% of \\$1 \\#2 \\{x\\} $<$y$>$");
  EXPECT_EQ(EscapedLatex("\\^~|"), "\\textbackslash{}\\textasciicircum{}\\textasciitilde{}$|$");
}

TEST(MarkupTest, PrintsAHyphenBeforeADigitAsAMinus) {
  EXPECT_EQ(EscapedLatex("-5 to 5-a -b"), "$-$5 to 5-a -b");
  EXPECT_EQ(EscapedLatex("\u2212x\u00B2"), "$-$x$^{2}$");
}

TEST(MarkupTest, KeepsLettersOfPlainFontsAndReplacesOthers) {
  EXPECT_EQ(EscapedLatex("Br\u00FCcke \u00E9"), "Br\u00FCcke \u00E9");
  EXPECT_EQ(EscapedLatex("\u00DE \u6A4B x\n\ty\xFF"), "? ? x  y?");
}

TEST(MarkupTest, ShortensNumbersToTwoDecimalsAtMost) {
  EXPECT_EQ(ShortNumber(12), "12");
  EXPECT_EQ(ShortNumber(1.5), "1.5");
  EXPECT_EQ(ShortNumber(-1.256), "-1.26");
  EXPECT_EQ(ShortNumber(100), "100");
  EXPECT_EQ(ShortNumber(0.996), "1");
}

TEST(MarkupTest, HasNoZeroBelowZero) {
  EXPECT_EQ(ShortNumber(0.004), "0");
  EXPECT_EQ(ShortNumber(-0.004), "0");
  EXPECT_EQ(ShortNumber(-0.0), "0");
  EXPECT_EQ(ShortNumber(-0.006), "-0.01");
}

TEST(MarkupTest, TakesTheLargestNumbers) {
  EXPECT_EQ(ShortNumber(1e300).size(), 301U);
  EXPECT_EQ(ShortNumber(-1.7976931348623157e308).size(), 310U);
}

} // namespace
} // namespace strutwright
