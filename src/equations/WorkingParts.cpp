#include "WorkingParts.h"

#include "modEquationCells.h"
#include "modNumberText.h"

#include <algorithm>
#include <iterator>

namespace strutwright {

namespace {

constexpr std::string_view FineFormat = "#0.####";

Formula NumberInFormat(float value, const std::string& text, const std::string& link) {
  const Formula number = NumberOf(text, ShortestText(value), link);
  return value == 0 ? InTone(FormulaTone::Faint, number) : number;
}

} // namespace

Formula ShownNumber(float value, const std::string& link) { return NumberInFormat(value, NumberAsShown(value), link); }

Formula FineNumber(float value, const std::string& link) {
  std::string text = FormatNumber(value, FineFormat);
  if (text.ends_with('.')) text.pop_back();
  return NumberInFormat(value, text, link);
}

Formula AsTerm(const Formula& number) { return number.text.starts_with('-') ? BracketsAround(number) : number; }

std::string NodeLink(int node) { return "node " + std::to_string(node); }

std::string MemberLink(int member) { return "member " + std::to_string(member); }

std::string EntryLink(int row, int column) { return "K " + std::to_string(row) + " " + std::to_string(column); }

Formula MatrixAt(const std::vector<int>& freedoms, const std::vector<std::vector<Formula>>& cells) {
  return MatrixOf(cells, LabelsOf(freedoms), LabelsOf(freedoms));
}

std::vector<std::string> LabelsOf(const std::vector<int>& freedoms) {
  std::vector<std::string> labels;
  std::transform(freedoms.begin(), freedoms.end(), std::back_inserter(labels), FreedomLabel);
  return labels;
}

int WorkingWriter::Listed(int count, const std::string& what) {
  if (Extent == WorkingExtent::Document || count <= MaxListedInPane) return count;
  Say("The first " + std::to_string(MaxListedInPane) + " of " + std::to_string(count) + " " + what +
      " are listed here; Tools > Worked Solution lists them all.");
  return MaxListedInPane;
}

} // namespace strutwright
