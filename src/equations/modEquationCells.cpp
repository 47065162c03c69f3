#include "modEquationCells.h"

#include "EquationsState.h"
#include "modExercise.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace strutwright {

namespace {

constexpr std::string_view CellFormat = "#0.##";

void Check(EquationGrid grid, int row, int column) {
  const bool inside = row >= 0 && row < EquationRowCount() && column >= 0 && column < EquationColumnCount(grid);
  if (!inside) throw GridRangeError(row, column);
}

std::string HeaderCell(EquationGrid grid, int row, int column) {
  if (row == 0 && column == 0) return "DOF";
  if (column == 0) return FreedomLabel(row);
  switch (grid) {
  case EquationGrid::Force: return "Force (kN)";
  case EquationGrid::Displacement: return "Disp (mm)";
  case EquationGrid::Stiffness: break;
  }
  return FreedomLabel(column);
}

bool IsHeader(int row, int column) { return row == 0 || column == 0; }

bool HasFreedom(const std::array<int, 5>& freedoms, int freedom) {
  return freedom > 0 && std::find(freedoms.begin() + 1, freedoms.end(), freedom) != freedoms.end();
}

CellTint AddedTint(int row, int column) {
  const std::array<int, 5>& freedoms = TheEquations.page.lastFreedoms;
  const bool added = IsHeader(row, column) ? HasFreedom(freedoms, row + column)
                                           : HasFreedom(freedoms, row) && HasFreedom(freedoms, column);
  return added ? CellTint::Added : CellTint::None;
}

CellTint ClearedTint(int row, int column) {
  const std::vector<std::int16_t>& fixed = *TheEquations.page.fixed;
  const bool cleared = fixed[static_cast<std::size_t>(row)] == 1 || fixed[static_cast<std::size_t>(column)] == 1;
  return cleared ? CellTint::Cleared : CellTint::None;
}

} // namespace

std::string FreedomLabel(int freedom) { return std::to_string((freedom + 1) / 2) + (freedom % 2 == 1 ? " x" : " y"); }

int EquationRowCount() { return TheEquations.page.viewDofCount + 1; }

int EquationColumnCount(EquationGrid grid) { return grid == EquationGrid::Stiffness ? EquationRowCount() : 2; }

std::optional<float> EquationValue(EquationGrid grid, int row, int column) {
  Check(grid, row, column);
  const EquationPage& page = TheEquations.page;
  if (IsHeader(row, column) || IsBlank(grid, row, column)) return std::nullopt;
  if (grid == EquationGrid::Stiffness) {
    return page.viewStiffness ? std::optional(page.viewStiffness->Values()(row, column)) : std::nullopt;
  }
  const FreedomValues& values = grid == EquationGrid::Force ? page.loads : page.displacements;
  return values ? std::optional(values->at(static_cast<std::size_t>(row))) : std::nullopt;
}

std::string EquationCell(EquationGrid grid, int row, int column) {
  Check(grid, row, column);
  if (IsHeader(row, column)) return HeaderCell(grid, row, column);
  const std::optional<float> value = EquationValue(grid, row, column);
  return value ? FormatNumber(*value, CellFormat) : "";
}

std::string NumberAsShown(float value) {
  std::string text = FormatNumber(value, CellFormat);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

CellTint EquationTint(EquationGrid grid, int row, int column) {
  Check(grid, row, column);
  if (IsWrong(grid, row, column)) return CellTint::Wrong;
  if (IsBlank(grid, row, column)) return CellTint::None;
  if (IsAnswered(grid, row, column)) return CellTint::Solved;
  const EquationStep step = TheEquations.page.lastStep;
  if (grid == EquationGrid::Displacement) {
    return step == EquationStep::Solve && !IsHeader(row, column) ? CellTint::Solved : CellTint::None;
  }
  if (grid == EquationGrid::Force) return CellTint::None;
  if (step == EquationStep::AddMember) return AddedTint(row, column);
  if (step == EquationStep::Restrict) return ClearedTint(row, column);
  return CellTint::None;
}

} // namespace strutwright
