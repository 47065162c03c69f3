#pragma once

#include "FormulaTexts.h"
#include "Paper.h"
#include "WorkedDocument.h"

#include <string>

namespace strutwright {

// A worked solution as a file.  A picture is drawn on the program's paper; where that fails, FileError is thrown.

/// The blocks as HTML, one below the other, without the page around them.
std::string WorkedHtml(const WorkedDocument& document, const FormulaInk& ink = {});

/// The solution as a page of HTML to read, to print or to make a PDF file of.
PaperDocument WorkedPage(const WorkedDocument& document);

/// The solution as a document that LaTeX compiles with its standard packages and TikZ.
std::string WorkedLatex(const WorkedDocument& document);

/// Whether a name ends in ".pdf", ".html" or ".tex", in letters of either case: what WriteWorked can write.
bool IsNameOfWorked(const std::string& path);

/// Writes the solution in the format that the name's ending says, HTML where it says none.
/// Throws FileError; an older file is then as it was.
void WriteWorked(const WorkedDocument& document, const std::string& path);

/// Asks for a name, suggests that of the model, and writes the solution there.
/// model: the path of its file, or where it has none its name.
/// A failure shows "Error while saving file ", the name and the reason.
void SaveWorked(const WorkedDocument& document, const std::string& model);

} // namespace strutwright
