#pragma once

#include "Formula.h"

#include <string>

namespace strutwright {

/// The formula on one line: "f = (EA / L) (c du + s dv)"; indices after "_", powers after "^", the rows of a matrix in
/// square brackets.  For the clipboard, for screen readers and for comparing.
std::string PlainText(const Formula& formula);

/// How a formula is set: colours depend on what it stands on, and are named as in HTML.
struct FormulaInk {
  std::string lines = "#000000"; ///< lines of fractions, brackets of matrices
  std::string faint = "#707070";
  bool links = false; ///< numbers with a link are links; on paper nobody can follow them
};

/// The formula as HTML that browsers and QTextDocument show alike.  A fraction or a matrix makes it a table, which
/// stands in a line of its own; any other formula can stand among words.
/// A number with a link becomes a link to that name where links are asked for; one with more digits than it shows tells
/// them when pointed at.
std::string HtmlOf(const Formula& formula, const FormulaInk& ink = {});

/// The formula as LaTeX, to stand between dollars.  No package is needed.
std::string LatexOf(const Formula& formula);

} // namespace strutwright
