#include "Formula.h"

#include "Ensure.h"

#include <utility>

namespace strutwright {

namespace {

Formula Leaf(Formula::Kind kind, const std::string& text) {
  Formula formula;
  formula.kind = kind;
  formula.text = text;
  return formula;
}

Formula Compound(Formula::Kind kind, std::vector<Formula> parts) {
  Formula formula;
  formula.kind = kind;
  formula.parts = std::move(parts);
  return formula;
}

} // namespace

Formula SymbolOf(const std::string& letters) { return Leaf(Formula::Kind::Symbol, letters); }

Formula NumberOf(const std::string& shown, const std::string& digits, const std::string& link) {
  Formula number = Leaf(Formula::Kind::Number, shown);
  number.digits = digits == shown ? "" : digits;
  number.link = link;
  return number;
}

Formula WordsOf(const std::string& words) { return Leaf(Formula::Kind::Words, words); }

Formula SignOf(const std::string& sign) { return Leaf(Formula::Kind::Sign, sign); }

Formula RowOf(std::vector<Formula> parts) { return Compound(Formula::Kind::Row, std::move(parts)); }

Formula IndexOf(Formula base, Formula index) {
  return Compound(Formula::Kind::Index, {std::move(base), std::move(index)});
}

Formula PowerOf(Formula base, Formula exponent) {
  return Compound(Formula::Kind::Power, {std::move(base), std::move(exponent)});
}

Formula FractionOf(Formula above, Formula below) {
  return Compound(Formula::Kind::Fraction, {std::move(above), std::move(below)});
}

Formula RootOf(Formula inside) { return Compound(Formula::Kind::Root, {std::move(inside)}); }

Formula BracketsAround(Formula inside) { return Compound(Formula::Kind::Brackets, {std::move(inside)}); }

Formula MatrixOf(const std::vector<std::vector<Formula>>& cells, std::vector<std::string> rowNames,
                 std::vector<std::string> columnNames) {
  Formula matrix = Compound(Formula::Kind::Matrix, {});
  matrix.columnCount = cells.empty() ? 0 : static_cast<int>(cells.front().size());
  for (const std::vector<Formula>& row : cells) {
    Ensure(row.size() == cells.front().size(), "all rows of a matrix are alike long");
    matrix.parts.insert(matrix.parts.end(), row.begin(), row.end());
  }
  Ensure(rowNames.empty() || rowNames.size() == cells.size(), "every row has a name, or none has");
  Ensure(columnNames.empty() || columnNames.size() == static_cast<std::size_t>(matrix.columnCount),
         "every column has a name, or none has");
  matrix.rowNames = std::move(rowNames);
  matrix.columnNames = std::move(columnNames);
  return matrix;
}

Formula SideBySide(std::vector<Formula> formulas) {
  std::vector<Formula> parts;
  for (Formula& each : formulas) {
    if (!parts.empty()) parts.push_back(Compound(Formula::Kind::Gap, {}));
    parts.push_back(std::move(each));
  }
  return RowOf(std::move(parts));
}

Formula StackOf(std::vector<Formula> formulas) { return Compound(Formula::Kind::Stack, std::move(formulas)); }

Formula InTone(FormulaTone tone, Formula part) {
  part.tone = tone;
  return part;
}

Formula EquationOf(Formula left, Formula right) { return RowOf({std::move(left), SignOf("="), std::move(right)}); }

} // namespace strutwright
