#include "modWorkedFiles.h"

#include "DocumentFiles.h"
#include "HtmlNewPage.h"
#include "Markup.h"
#include "Platform.h"
#include "TikzSurface.h"
#include "modHtml.h"
#include "modSafeSave.h"

#include <variant>
#include <vector>

namespace strutwright {

namespace {

/// Writes each kind of block as HTML.
struct HtmlBlocks {
  const FormulaInk& ink;
  std::vector<PaperPicture>& pictures;

  std::string operator()(const WorkedHeading& heading) const { return HtmlHeading(heading.level, heading.text); }
  std::string operator()(const WorkedParagraph& paragraph) const { return HtmlParagraph(paragraph.text); }
  std::string operator()(const WorkedFormula& formula) const {
    const std::string html = HtmlOf(formula.formula, ink);
    return html.starts_with("<table") ? html + "\n" : "<p>" + html + "</p>\n";
  }
  std::string operator()(const WorkedTable& table) const {
    std::vector<HtmlColumn> columns;
    for (const WorkedColumn& each : table.columns) columns.push_back({each.heading, each.isText});
    return HtmlTable(columns, table.rows);
  }
  std::string operator()(const WorkedPicture& picture) const {
    pictures.push_back(picture.made.png.empty() ? ThePaper().Picture(picture.width, picture.height, picture.draw)
                                                : picture.made);
    return HtmlPicture(pictures.back().png, picture.width, picture.height);
  }
  std::string operator()(const WorkedRoom& room) const { return HtmlRoom(room.lines); }
  std::string operator()(const WorkedNewPage& /*page*/) const { return std::string(HtmlNewPage) + "\n"; }
};

/// Formulas and tables that are too wide for the page are made smaller.
constexpr std::string_view LatexBegin = R"(% A worked solution, written by Strutwright.  Compile it with pdflatex.
\documentclass[10pt,a4paper]{article}
\usepackage[utf8]{inputenc}
\usepackage[margin=18mm%PAPER%]{geometry}
\usepackage{graphicx,longtable,tikz}
\setlength{\parindent}{0pt}
\setlength{\parskip}{4pt plus 2pt}
\newsavebox{\workedbox}
\newcommand{\workedformula}[1]{\sbox{\workedbox}{$\displaystyle #1$}\par\noindent
  \ifdim\wd\workedbox>\linewidth \resizebox{\linewidth}{!}{\usebox{\workedbox}}\else\usebox{\workedbox}\fi\par}
\newcommand{\workedpicture}[1]{\sbox{\workedbox}{#1}\par\noindent
  \ifdim\wd\workedbox>\linewidth \resizebox{\linewidth}{!}{\usebox{\workedbox}}\else\usebox{\workedbox}\fi\par}
)";

std::string LatexRow(const std::vector<std::string>& cells) {
  std::string row;
  for (std::size_t i = 0; i < cells.size(); ++i) row += (i == 0 ? "" : " & ") + EscapedLatex(cells[i]);
  return row + " \\\\\n";
}

/// The same as LaTeX.
struct LatexBlocks {
  std::string operator()(const WorkedHeading& heading) const {
    return (heading.level <= 2 ? "\\section*{" : "\\subsection*{") + EscapedLatex(heading.text) + "}\n";
  }
  std::string operator()(const WorkedParagraph& paragraph) const { return EscapedLatex(paragraph.text) + "\n\n"; }
  std::string operator()(const WorkedFormula& formula) const {
    return "\\workedformula{" + LatexOf(formula.formula) + "}\n";
  }
  std::string operator()(const WorkedTable& table) const {
    std::string columns;
    std::vector<std::string> headings;
    for (const WorkedColumn& each : table.columns) {
      columns += each.isText ? 'l' : 'r';
      headings.push_back(each.heading);
    }
    std::string tex = "\\begin{longtable}[l]{" + columns + "}\n" + LatexRow(headings) + "\\hline\\endhead\n";
    for (const std::vector<std::string>& row : table.rows) tex += LatexRow(row);
    return tex + "\\end{longtable}\n";
  }
  /// What the paper draws on measures the texts.
  std::string operator()(const WorkedPicture& picture) const {
    std::string tex;
    ThePaper().Picture(1, 1, [&](DrawingSurface& measure) {
      TikzSurface tikz(measure, static_cast<float>(picture.width), static_cast<float>(picture.height));
      picture.draw(tikz);
      tex = tikz.Picture();
    });
    return "\\workedpicture{%\n" + tex + "}\n";
  }
  std::string operator()(const WorkedRoom& room) const {
    return "\\vspace*{" + std::to_string(2 * room.lines) + "\\baselineskip}\n\n";
  }
  std::string operator()(const WorkedNewPage& /*page*/) const { return "\\clearpage\n"; }
};

std::string HtmlOfBlocks(const WorkedDocument& document, const FormulaInk& ink, std::vector<PaperPicture>& pictures) {
  std::string html;
  for (const WorkedBlock& block : document.blocks) html += std::visit(HtmlBlocks{ink, pictures}, block);
  return html;
}

} // namespace

std::string WorkedHtml(const WorkedDocument& document, const FormulaInk& ink) {
  std::vector<PaperPicture> pictures;
  return HtmlOfBlocks(document, ink, pictures);
}

PaperDocument WorkedPage(const WorkedDocument& document) {
  std::vector<PaperPicture> pictures;
  const std::string body = HtmlHeading(1, document.title) + HtmlOfBlocks(document, {}, pictures);
  return {document.title, HtmlPage(document.title, document.landscape, body), document.landscape, pictures};
}

std::string WorkedLatex(const WorkedDocument& document) {
  std::string tex(LatexBegin);
  constexpr std::string_view paper = "%PAPER%";
  tex.replace(tex.find(paper), paper.size(), document.landscape ? ",landscape" : "");
  tex += "\\begin{document}\n\\section*{\\LARGE " + EscapedLatex(document.title) + "}\n";
  for (const WorkedBlock& block : document.blocks) tex += std::visit(LatexBlocks{}, block);
  return tex + "\\end{document}\n";
}

bool IsNameOfWorked(const std::string& path) {
  return HasEnding(path, ".pdf") || HasEnding(path, ".html") || HasEnding(path, ".tex");
}

namespace {

std::string BytesFor(const WorkedDocument& document, const std::string& path) {
  if (HasEnding(path, ".tex")) return WorkedLatex(document);
  const PaperDocument page = WorkedPage(document);
  return HasEnding(path, ".pdf") ? ThePaper().Pdf(page) : page.html;
}

} // namespace

void WriteWorked(const WorkedDocument& document, const std::string& path) {
  SaveWholeFile(path, BytesFor(document, path));
}

void SaveWorked(const WorkedDocument& document, const std::string& model) {
  const std::string path = AskDocumentName(model, "Save Worked Solution", "pdf",
                                           "PDF documents|*.pdf|HTML pages|*.html|LaTeX documents|*.tex|All files|*.*");
  SaveDocument(path, [&] { return BytesFor(document, path); });
}

} // namespace strutwright
