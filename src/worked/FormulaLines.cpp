#include "FormulaTexts.h"
#include "Markup.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace strutwright {

namespace {

// Plain text and LaTeX: both write a formula on one line.

/// What a sign or a letter is called between dollars; others are their own names.
struct MathName {
  std::string_view sign;
  std::string_view latex;
};
constexpr std::array<MathName, 11> MathNames{{{"\u00B7", "\\cdot"},
                                              {"\u00D7", "\\times"},
                                              {"\u2212", "-"},
                                              {"\u00B1", "\\pm"},
                                              {"\u2192", "\\rightarrow"},
                                              {"\u2260", "\\neq"},
                                              {"\u2264", "\\leq"},
                                              {"\u2265", "\\geq"},
                                              {"\u2248", "\\approx"},
                                              {"\u0394", "\\Delta"},
                                              {"\u03A3", "\\Sigma"}}};

std::string InMath(const std::string& text) {
  std::string latex;
  for (std::size_t at = 0; at < text.size();) {
    std::string_view rest = std::string_view(text).substr(at);
    const MathName* found = nullptr;
    for (const MathName& each : MathNames) {
      if (rest.starts_with(each.sign)) found = &each;
    }
    latex += found != nullptr ? std::string(found->latex) + " " : std::string(rest.substr(0, 1));
    at += found != nullptr ? found->sign.size() : 1;
  }
  return latex;
}

/// "1.5E+09" is 1.5 times ten to the ninth.
std::string NumberInMath(const std::string& text) {
  const std::size_t at = text.find('E');
  if (at == std::string::npos) return text;
  return text.substr(0, at) + "\\cdot 10^{" + std::to_string(std::stoi(text.substr(at + 1))) + "}";
}

std::string Joined(const Formula& formula, std::string (*write)(const Formula&)) {
  std::string text;
  for (const Formula& each : formula.parts) text += write(each);
  return text;
}

/// The cells of one row of a matrix, with what stands between them.
std::string MatrixRow(const Formula& matrix, std::size_t row, std::string_view between,
                      std::string (*write)(const Formula&)) {
  const auto columns = static_cast<std::size_t>(matrix.columnCount);
  std::string text;
  for (std::size_t column = 0; column < columns; ++column) {
    text += (column == 0 ? "" : std::string(between)) + write(matrix.parts[row * columns + column]);
  }
  return text;
}

std::size_t MatrixRowCount(const Formula& matrix) {
  return matrix.columnCount == 0 ? 0 : matrix.parts.size() / static_cast<std::size_t>(matrix.columnCount);
}

std::string PlainMatrix(const Formula& matrix) {
  std::string text = "[";
  for (std::size_t row = 0; row < MatrixRowCount(matrix); ++row) {
    text += (row == 0 ? "" : "; ") + MatrixRow(matrix, row, " ", PlainText);
  }
  return text + "]";
}

std::string PlainStack(const Formula& stack) {
  std::string text;
  for (const Formula& each : stack.parts) text += (text.empty() ? "" : "; ") + PlainText(each);
  return text;
}

std::string LatexStack(const Formula& stack) {
  std::string text = "\\begin{array}{l}\n";
  for (const Formula& each : stack.parts) text += "\\displaystyle " + LatexOf(each) + " \\\\[4pt]\n";
  return text + "\\end{array}";
}

/// Names stand outside of the brackets, in arrays beside and above them.
std::string LatexMatrix(const Formula& matrix) {
  const auto columns = static_cast<std::size_t>(matrix.columnCount);
  const bool hasNames = !matrix.rowNames.empty() || !matrix.columnNames.empty();
  std::string text = hasNames ? "\\begin{array}{r|" : "\\left[\\begin{array}{";
  text += std::string(columns, 'r') + "}\n";
  if (!matrix.columnNames.empty()) {
    for (const std::string& name : matrix.columnNames) text += " & \\mbox{" + EscapedLatex(name) + "}";
    text += " \\\\ \\hline\n";
  }
  for (std::size_t row = 0; row < MatrixRowCount(matrix); ++row) {
    if (hasNames) text += (matrix.rowNames.empty() ? "" : "\\mbox{" + EscapedLatex(matrix.rowNames[row]) + "}") + " & ";
    text += MatrixRow(matrix, row, " & ", LatexOf) + " \\\\\n";
  }
  return text + (hasNames ? "\\end{array}" : "\\end{array}\\right]");
}

std::string LatexNumber(const Formula& number) {
  const std::string latex = NumberInMath(number.text);
  return number.tone == FormulaTone::Strong ? "\\mathbf{" + latex + "}" : latex;
}

} // namespace

std::string PlainText(const Formula& formula) {
  using Kind = Formula::Kind;
  const auto part = [&](std::size_t index) { return PlainText(formula.parts.at(index)); };
  switch (formula.kind) {
  case Kind::Symbol:
  case Kind::Number:
  case Kind::Words: return formula.text;
  case Kind::Sign: return " " + formula.text + " ";
  case Kind::Index: return part(0) + "_" + part(1);
  case Kind::Power: return part(0) + "^" + part(1);
  case Kind::Fraction: return "(" + part(0) + ") / (" + part(1) + ")";
  case Kind::Root: return "\u221A(" + part(0) + ")";
  case Kind::Brackets: return "(" + part(0) + ")";
  case Kind::Matrix: return PlainMatrix(formula);
  case Kind::Gap: return "; ";
  case Kind::Stack: return PlainStack(formula);
  case Kind::Row: break;
  }
  return Joined(formula, PlainText);
}

std::string LatexOf(const Formula& formula) {
  using Kind = Formula::Kind;
  const auto part = [&](std::size_t index) { return "{" + LatexOf(formula.parts.at(index)) + "}"; };
  switch (formula.kind) {
  case Kind::Symbol: return InMath(formula.text);
  case Kind::Number: return LatexNumber(formula);
  case Kind::Words: return "\\mbox{" + EscapedLatex(formula.text) + "}";
  case Kind::Sign: return " " + InMath(formula.text) + " ";
  case Kind::Index: return part(0) + "_" + part(1);
  case Kind::Power: return part(0) + "^" + part(1);
  case Kind::Fraction: return "\\frac" + part(0) + part(1);
  case Kind::Root: return "\\sqrt" + part(0);
  case Kind::Brackets: return "\\left(" + LatexOf(formula.parts.at(0)) + "\\right)";
  case Kind::Matrix: return LatexMatrix(formula);
  case Kind::Gap: return "\\qquad ";
  case Kind::Stack: return LatexStack(formula);
  case Kind::Row: break;
  }
  return Joined(formula, LatexOf);
}

} // namespace strutwright
