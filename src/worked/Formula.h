#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// How a part of a formula stands out.
enum class FormulaTone {
  Plain,
  Faint, ///< a zero among other numbers
  Strong ///< what the text is about
};

/// A formula as a value: a tree that can be written as HTML, as LaTeX and as plain text (FormulaTexts.h).
/// Made with the routines below; the texts are UTF-8 and not escaped yet.
struct Formula {
  enum class Kind {
    Symbol,   ///< a letter or letters that stand for a value: K, EA
    Number,   ///< digits
    Words,    ///< plain words, such as a unit
    Sign,     ///< what stands between two values, with room on both sides: = + · ->
    Row,      ///< parts side by side
    Index,    ///< parts: the base, and what stands below its right end
    Power,    ///< parts: the base and the exponent
    Fraction, ///< parts: above and below the line
    Root,     ///< part: what the square root is taken of
    Brackets, ///< part: what stands in round brackets
    Matrix,   ///< parts: the cells, row after row
    Gap,      ///< room between two formulas in one line
    Stack     ///< parts: formulas one below the other
  };

  Kind kind = Kind::Row;
  std::string text;                     ///< of a symbol, number, words or sign
  std::string digits;                   ///< of a number: all its digits; empty where the text shows them
  std::string link;                     ///< of a number: where it comes from, for who shows it; empty for nowhere
  FormulaTone tone{};                   ///< of a number
  std::vector<Formula> parts;           ///< as the kind says
  std::vector<std::string> rowNames;    ///< of a matrix; empty for none
  std::vector<std::string> columnNames; ///< of a matrix; empty for none
  int columnCount = 0;                  ///< of a matrix

  bool operator==(const Formula&) const = default;
};

Formula SymbolOf(const std::string& letters);
Formula NumberOf(const std::string& shown, const std::string& digits = "", const std::string& link = "");
Formula WordsOf(const std::string& words);
Formula SignOf(const std::string& sign);
Formula RowOf(std::vector<Formula> parts);
Formula IndexOf(Formula base, Formula index);
Formula PowerOf(Formula base, Formula exponent);
Formula FractionOf(Formula above, Formula below);
Formula RootOf(Formula inside);
Formula BracketsAround(Formula inside);

/// A matrix, or with one column a vector.  cells: row after row, all rows alike long.  The names may be left out.
Formula MatrixOf(const std::vector<std::vector<Formula>>& cells, std::vector<std::string> rowNames = {},
                 std::vector<std::string> columnNames = {});

/// Formulas side by side, with room between them, and one below the other.
Formula SideBySide(std::vector<Formula> formulas);
Formula StackOf(std::vector<Formula> formulas);

/// The same part in another tone.
Formula InTone(FormulaTone tone, Formula part);

/// left = right
Formula EquationOf(Formula left, Formula right);

} // namespace strutwright
