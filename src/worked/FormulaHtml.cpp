#include "FormulaTexts.h"
#include "Markup.h"

#include <algorithm>
#include <cstddef>

namespace strutwright {

namespace {

constexpr std::string_view TableBegin = "<table border=\"0\" cellspacing=\"0\" cellpadding=\"0\">";

bool IsTall(const Formula& formula) {
  using Kind = Formula::Kind;
  if (formula.kind == Kind::Fraction || formula.kind == Kind::Matrix || formula.kind == Kind::Stack) return true;
  if (formula.kind != Formula::Kind::Row && formula.kind != Formula::Kind::Brackets) return false;
  return std::any_of(formula.parts.begin(), formula.parts.end(), IsTall);
}

/// A hyphen is too short for a minus.
std::string WithMinus(const std::string& text) {
  std::string html = EscapedMarkup(text);
  for (std::size_t at = html.find('-'); at != std::string::npos; at = html.find('-', at)) html.replace(at, 1, "\u2212");
  return html;
}

/// What a formula is written with.
class HtmlWriter {
 public:
  explicit HtmlWriter(const FormulaInk& ink) : Ink(ink) {}

  std::string Whole(const Formula& formula) const {
    return IsTall(formula) ? std::string(TableBegin) + "<tr>" + Cells(formula) + "</tr></table>" : Inline(formula);
  }

 private:
  std::string Line(std::string_view edge) const {
    return "border-" + std::string(edge) + ":1px solid " + Ink.lines + ";";
  }

  std::string Number(const Formula& number) const {
    std::string html = WithMinus(number.text);
    if (number.tone == FormulaTone::Faint) html = "<span style=\"color:" + Ink.faint + "\">" + html + "</span>";
    if (number.tone == FormulaTone::Strong) html = "<b>" + html + "</b>";
    const std::string title = number.digits.empty() ? "" : " title=\"" + EscapedMarkup(number.digits) + "\"";
    if (Ink.links && !number.link.empty()) {
      return "<a style=\"text-decoration:none\" href=\"" + EscapedMarkup(number.link) + "\"" + title + ">" + html +
             "</a>";
    }
    return title.empty() ? html : "<span" + title + ">" + html + "</span>";
  }

  /// On one line, in which a fraction is written with a stroke.
  std::string Inline(const Formula& formula) const {
    using Kind = Formula::Kind;
    const auto part = [&](std::size_t index) { return Inline(formula.parts.at(index)); };
    switch (formula.kind) {
    case Kind::Symbol: return "<i>" + EscapedMarkup(formula.text) + "</i>";
    case Kind::Number: return Number(formula);
    case Kind::Words: return EscapedMarkup(formula.text);
    case Kind::Sign: return "&nbsp;" + WithMinus(formula.text) + " ";
    case Kind::Index: return part(0) + "<sub>" + part(1) + "</sub>";
    case Kind::Power: return part(0) + "<sup>" + part(1) + "</sup>";
    case Kind::Fraction: return part(0) + "/" + part(1);
    case Kind::Root: return "\u221A(" + part(0) + ")";
    case Kind::Brackets: return "(" + part(0) + ")";
    case Kind::Gap: return "&nbsp;&nbsp;&nbsp;&nbsp; ";
    case Kind::Row:
    case Kind::Matrix:
    case Kind::Stack: break;
    }
    std::string html;
    for (const Formula& each : formula.parts) html += Inline(each);
    return html;
  }

  /// The formula as cells of a table's row: what is on one line shares a cell.
  std::string Cells(const Formula& formula) const {
    std::string html;
    std::string line;
    const auto endLine = [&] {
      if (!line.empty()) html += "<td valign=\"middle\" style=\"padding:0px 1px;white-space:nowrap\">" + line + "</td>";
      line.clear();
    };
    for (const Formula* each : Flat(formula)) {
      if (IsTall(*each)) {
        endLine();
        html += "<td valign=\"middle\" style=\"padding:0px 1px\">" + Tall(*each) + "</td>";
      } else {
        line += Inline(*each);
      }
    }
    endLine();
    return html;
  }

  /// The parts of a row, and of the rows within it; what is in brackets stands between two words.
  static std::vector<const Formula*> Flat(const Formula& formula) {
    static const Formula open = WordsOf("(");
    static const Formula close = WordsOf(")");
    const bool isBrackets = formula.kind == Formula::Kind::Brackets;
    if ((formula.kind != Formula::Kind::Row && !isBrackets) || !IsTall(formula)) return {&formula};
    std::vector<const Formula*> parts;
    if (isBrackets) parts.push_back(&open);
    for (const Formula& each : formula.parts) {
      const std::vector<const Formula*> inner = Flat(each);
      parts.insert(parts.end(), inner.begin(), inner.end());
    }
    if (isBrackets) parts.push_back(&close);
    return parts;
  }

  std::string Tall(const Formula& formula) const {
    if (formula.kind == Formula::Kind::Stack) return Stack(formula);
    return formula.kind == Formula::Kind::Fraction ? Fraction(formula) : Matrix(formula);
  }

  std::string Stack(const Formula& stack) const {
    std::string html(TableBegin);
    for (const Formula& each : stack.parts)
      html += "<tr><td style=\"padding:0px;white-space:nowrap\">" + Whole(each) + "</td></tr>";
    return html + "</table>";
  }

  std::string Fraction(const Formula& formula) const {
    return std::string(TableBegin) + "<tr><td align=\"center\" style=\"padding:0px 3px;white-space:nowrap;" +
           Line("bottom") + "\">" + Whole(formula.parts.at(0)) +
           "</td></tr><tr><td align=\"center\" style=\"padding:0px 3px;white-space:nowrap\">" +
           Whole(formula.parts.at(1)) + "</td></tr></table>";
  }

  std::string Name(const std::string& name) const {
    return "<td align=\"right\" style=\"padding:0px 4px;white-space:nowrap;color:" + Ink.faint + "\">" +
           EscapedMarkup(name) + "</td>";
  }

  /// One side of the square bracket around a matrix, beside one of its rows.
  std::string Bracket(std::string_view side, bool isFirst, bool isLast) const {
    return "<td width=\"4\" style=\"padding:0px 2px;" + Line(side) + (isFirst ? Line("top") : "") +
           (isLast ? Line("bottom") : "") + "\"></td>";
  }

  std::string Matrix(const Formula& matrix) const {
    const auto columns = static_cast<std::size_t>(matrix.columnCount);
    const std::size_t rows = columns == 0 ? 0 : matrix.parts.size() / columns;
    std::string html(TableBegin);
    if (!matrix.columnNames.empty()) {
      html += "<tr>" + std::string(matrix.rowNames.empty() ? "" : "<td></td>") + "<td></td>";
      for (const std::string& name : matrix.columnNames) html += Name(name);
      html += "<td></td></tr>";
    }
    for (std::size_t row = 0; row < rows; ++row) {
      html += "<tr>" + (matrix.rowNames.empty() ? "" : Name(matrix.rowNames[row]));
      html += Bracket("left", row == 0, row + 1 == rows);
      for (std::size_t column = 0; column < columns; ++column) {
        html += "<td align=\"right\" style=\"padding:0px 4px;white-space:nowrap\">" +
                Inline(matrix.parts[row * columns + column]) + "</td>";
      }
      html += Bracket("right", row == 0, row + 1 == rows) + "</tr>";
    }
    return html + "</table>";
  }

  const FormulaInk& Ink;
};

} // namespace

std::string HtmlOf(const Formula& formula, const FormulaInk& ink) { return HtmlWriter(ink).Whole(formula); }

} // namespace strutwright
