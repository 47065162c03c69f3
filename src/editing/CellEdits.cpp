#include "CellEdits.h"

#include "modModelEditing.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace strutwright {

namespace {

struct NewText {
  int column;
  std::string text;
};

void Enter(Grid& grid, int row, int count, std::initializer_list<NewText> texts) {
  if (row < 1 || row > count) return;
  for (const NewText& each : texts) grid.SetText(row, each.column, each.text);
  AfterModelEdit();
}

void EnterNode(int n, std::initializer_list<NewText> texts) {
  RebuildModelFromGrids();
  Enter(GrJoints, n, NodeCount, texts);
}

void EnterMember(int m, std::initializer_list<NewText> texts) {
  RebuildModelFromGrids();
  Enter(GrMembers, m, MemberCount, texts);
}

} // namespace

CellEdits::Cell& CellEdits::Find(Grid& grid, int row, int column) {
  const auto [place, isNew] = Places.try_emplace({&grid, row, column}, Cells.size());
  if (!isNew) return Cells[place->second];
  const std::string& text = grid.Text(row, column);
  return Cells.emplace_back(Cell{&grid, row, column, text, text});
}

void CellEdits::Put(Grid& grid, int row, int column, const std::string& text) {
  Find(grid, row, column).after = text;
  if (grid.Text(row, column) != text) grid.SetText(row, column, text);
}

void CellEdits::PutBack() {
  for (const Cell& cell : Cells) cell.grid->SetText(cell.row, cell.column, cell.before);
}

void CellEdits::PutAgain() {
  for (const Cell& cell : Cells) cell.grid->SetText(cell.row, cell.column, cell.after);
}

bool CellEdits::ChangeAny() const {
  return std::any_of(Cells.begin(), Cells.end(), [](const Cell& cell) { return cell.before != cell.after; });
}

void EnterSupport(int n, int code) { EnterNode(n, {{NodeSupport, std::to_string(code)}}); }

void EnterLoad(int n, const std::string& forceX, const std::string& forceY) {
  EnterNode(n, {{NodeForceX, forceX}, {NodeForceY, forceY}});
}

void EnterLoadAlong(int n, bool alongY, const std::string& force) {
  EnterNode(n, {{alongY ? NodeForceY : NodeForceX, force}});
}

void EnterRigidity(int m, const std::string& E, const std::string& A) { EnterMember(m, {{MemberE, E}, {MemberA, A}}); }

void EnterPrestress(int m, const std::string& PS) { EnterMember(m, {{MemberPS, PS}}); }

double RoundStep(double most) {
  if (!(most > 0) || !std::isfinite(most)) return 1;
  const double power = std::pow(10.0, std::floor(std::log10(most)));
  for (const double digit : {5.0, 2.0}) {
    if (digit * power <= most) return digit * power;
  }
  return power;
}

} // namespace strutwright
