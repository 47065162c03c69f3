#include "modEquationCopy.h"

#include "Platform.h"
#include "modNumberText.h"

#include <functional>
#include <optional>
#include <string>

namespace strutwright {

namespace {

/// What stands around and between cells.
struct CellFrame {
  std::string begin;
  std::string rowBegin;
  std::string betweenCells;
  std::string rowEnd;
  std::string betweenRows;
  std::string end;
};

const CellFrame PlainFrame{"", "", "\t", "", "\r", ""};
const CellFrame SpreadsheetFrame{"", "", "\t", "\r\n", "", ""};
const CellFrame HtmlFrame{"<meta charset=\"utf-8\"><table>", "<tr><td>", "</td><td>", "</td></tr>", "", "</table>"};
const CellFrame BmatrixFrame{"\\begin{bmatrix}\n", "  ", " & ", "", " \\\\\n", "\n\\end{bmatrix}\n"};

using CellText = std::function<std::string(int row, int column)>;

std::string Write(const GridBlock& block, const CellFrame& frame, const CellText& cell) {
  std::string text = frame.begin;
  for (int row = block.firstRow; row <= block.lastRow; ++row) {
    text += (row > block.firstRow ? frame.betweenRows : "") + frame.rowBegin;
    for (int column = block.firstColumn; column <= block.lastColumn; ++column) {
      if (column > block.firstColumn) text += frame.betweenCells;
      text += cell(row, column);
    }
    text += frame.rowEnd;
  }
  return text + frame.end;
}

CellText Shown(EquationGrid grid) {
  return [grid](int row, int column) { return EquationCell(grid, row, column); };
}

CellText WithEveryDigit(EquationGrid grid) {
  return [grid](int row, int column) {
    const std::optional<float> value = EquationValue(grid, row, column);
    return value ? ShortestText(*value) : EquationCell(grid, row, column);
  };
}

/// Labels upright, as words; numbers without a point at their end.
CellText InLatex(EquationGrid grid) {
  return [grid](int row, int column) {
    const std::optional<float> value = EquationValue(grid, row, column);
    if (value) return NumberAsShown(*value);
    const std::string label = EquationCell(grid, row, column);
    return label.empty() ? label : "\\text{" + label + "}";
  };
}

bool CheckSize(const GridBlock& block) {
  const long long rows = block.lastRow - block.firstRow + 1;
  const long long cells = rows * (block.lastColumn - block.firstColumn + 1);
  if (cells <= MaxCopiedCells) return true;
  ShowMessage(MessageIcon::Information, "The selection has " + std::to_string(cells) + " cells, but at most " +
                                            std::to_string(MaxCopiedCells) +
                                            " can be copied at once.\nSelect fewer cells.");
  return false;
}

} // namespace

void CopyCells(EquationGrid grid, const GridBlock& block) {
  if (!CheckSize(block)) return;
  TheClipboard().SetText(Write(block, PlainFrame, Shown(grid)), Write(block, HtmlFrame, Shown(grid)));
}

void CopyCellsInFullPrecision(EquationGrid grid, const GridBlock& block) {
  if (!CheckSize(block)) return;
  TheClipboard().SetText(Write(block, SpreadsheetFrame, WithEveryDigit(grid)), "");
}

void CopyCellsAsLatex(EquationGrid grid, const GridBlock& block) {
  if (!CheckSize(block)) return;
  TheClipboard().SetText(Write(block, BmatrixFrame, InLatex(grid)), "");
}

} // namespace strutwright
