#include "Formula.h"
#include "FormulaTexts.h"

#include <stdexcept>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::Not;

/// f_3 = (EA / L) (c du + s dv)
Formula ForceFormula() {
  return EquationOf(IndexOf(SymbolOf("f"), NumberOf("3")),
                    RowOf({FractionOf(SymbolOf("EA"), SymbolOf("L")),
                           BracketsAround(RowOf({SymbolOf("c du"), SignOf("+"), SymbolOf("s dv")}))}));
}

Formula SmallMatrix() {
  return MatrixOf({{NumberOf("1"), InTone(FormulaTone::Faint, NumberOf("0"))}, {NumberOf("-2.5"), NumberOf("3")}},
                  {"1 x", "1 y"}, {"2 x", "2 y"});
}

TEST(FormulaTest, IsPlainTextOnOneLine) {
  EXPECT_EQ(PlainText(ForceFormula()), "f_3 = (EA) / (L)(c du + s dv)");
  EXPECT_EQ(PlainText(SmallMatrix()), "[1 0; -2.5 3]");
  EXPECT_EQ(PlainText(EquationOf(SymbolOf("L"), RootOf(PowerOf(SymbolOf("dx"), NumberOf("2"))))), "L = \u221A(dx^2)");
}

TEST(FormulaTest, WithoutAFractionStandsAmongWords) {
  const Formula row = RowOf({IndexOf(SymbolOf("K"), NumberOf("1")), SignOf("="), NumberOf("-5"), WordsOf(" a<b")});
  EXPECT_EQ(HtmlOf(row), "<i>K</i><sub>1</sub>&nbsp;= \u2212"
                         "5 a&lt;b");
}

TEST(FormulaTest, WithAFractionIsATableWithALineInTheInk) {
  const std::string html = HtmlOf(ForceFormula(), {.lines = "#123456"});
  EXPECT_THAT(html, testing::StartsWith("<table"));
  EXPECT_THAT(html, HasSubstr("border-bottom:1px solid #123456;\"><i>EA</i></td>"));
  EXPECT_THAT(html, testing::EndsWith("</table>"));
}

TEST(FormulaTest, NamesTheRowsAndColumnsOfAMatrix) {
  const std::string html = HtmlOf(SmallMatrix());
  for (const char* name : {">1 x</td>", ">1 y</td>", ">2 x</td>", ">2 y</td>"}) EXPECT_THAT(html, HasSubstr(name));
  EXPECT_THAT(html, HasSubstr("<span style=\"color:#707070\">0</span>"));
  EXPECT_THAT(html, HasSubstr("\u2212"
                              "2.5"));
}

TEST(FormulaTest, TellsTheDigitsOfANumberAndWhereItComesFrom) {
  const FormulaInk screen{.links = true};
  const Formula number = NumberOf("12.35", "12.3456", "node 2");
  EXPECT_EQ(HtmlOf(number, screen), "<a style=\"text-decoration:none\" href=\"node 2\" title=\"12.3456\">12.35</a>");
  EXPECT_EQ(HtmlOf(number), "<span title=\"12.3456\">12.35</span>") << "on paper there is no link";
  EXPECT_EQ(HtmlOf(NumberOf("12.35", "12.3456")), "<span title=\"12.3456\">12.35</span>");
  EXPECT_EQ(HtmlOf(NumberOf("12", "12")), "12") << "no more digits than are shown";
  EXPECT_EQ(HtmlOf(InTone(FormulaTone::Strong, NumberOf("12"))), "<b>12</b>");
}

TEST(FormulaTest, IsLatexBetweenDollars) {
  EXPECT_EQ(LatexOf(ForceFormula()), "{f}_{3} = \\frac{EA}{L}\\left(c du + s dv\\right)");
  EXPECT_EQ(LatexOf(SmallMatrix()), "\\begin{array}{r|rr}\n & \\mbox{2 x} & \\mbox{2 y} \\\\ \\hline\n"
                                    "\\mbox{1 x} & 1 & 0 \\\\\n\\mbox{1 y} & -2.5 & 3 \\\\\n\\end{array}");
  EXPECT_EQ(LatexOf(MatrixOf({{NumberOf("1")}, {NumberOf("2")}})),
            "\\left[\\begin{array}{r}\n1 \\\\\n2 \\\\\n\\end{array}\\right]");
  EXPECT_EQ(LatexOf(RowOf({SymbolOf("\u0394u"), SignOf("\u00B7"), NumberOf("1.5E-05"), WordsOf(" 5 %")})),
            "\\Delta u \\cdot  1.5\\cdot 10^{-5}\\mbox{ 5 \\%}");
}

TEST(FormulaTest, RefusesAMatrixOfUnequalRows) {
  EXPECT_THROW(MatrixOf({{NumberOf("1")}, {}}), std::logic_error);
  EXPECT_THROW(MatrixOf({{NumberOf("1")}}, {"a", "b"}), std::logic_error);
  EXPECT_THROW(MatrixOf({{NumberOf("1")}}, {}, {"a", "b"}), std::logic_error);
  EXPECT_THAT(HtmlOf(MatrixOf({})), Not(HasSubstr("<tr>  "))) << "a matrix without rows is written all the same";
}

TEST(FormulaTest, SetsFormulasSideBySideAndOneBelowTheOther) {
  const Formula half = FractionOf(NumberOf("1"), NumberOf("2"));
  const Formula both = SideBySide({EquationOf(SymbolOf("a"), NumberOf("1")), EquationOf(SymbolOf("b"), half)});
  EXPECT_EQ(PlainText(both), "a = 1; b = (1) / (2)");
  EXPECT_EQ(LatexOf(both), "a = 1\\qquad b = \\frac{1}{2}");
  const Formula stack = StackOf({both, SymbolOf("c")});
  EXPECT_EQ(PlainText(stack), "a = 1; b = (1) / (2); c");
  EXPECT_EQ(LatexOf(stack), "\\begin{array}{l}\n\\displaystyle a = 1\\qquad b = \\frac{1}{2} \\\\[4pt]\n"
                            "\\displaystyle c \\\\[4pt]\n\\end{array}");
  EXPECT_THAT(HtmlOf(stack), testing::HasSubstr("&nbsp;&nbsp;&nbsp;&nbsp; <i>b</i>"));
}

} // namespace
} // namespace strutwright
