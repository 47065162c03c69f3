#include "RowLink.h"

#include "ControlBoard.h"
#include "frmMain.h"

#include <optional>
#include <utility>

namespace strutwright {

RowLink::RowLink(frmMain& frame, ControlBoard& board)
    : Frame(frame), Grids{{{board.GrJointsView, ElementKind::Node},
                           {board.GrMembersView, ElementKind::Member},
                           {board.jResGrView, ElementKind::Node},
                           {board.mResGrView, ElementKind::Member}}} {
  for (const LinkedGrid& grid : Grids) {
    grid.view->SetRowsNotice([this, &grid] { TakeRows(grid); });
  }
}

void RowLink::TakeRows(const LinkedGrid& grid) {
  const std::optional<GridBlock> rows = grid.view->ChosenRows();
  if (!rows && grid.view != Last) return;
  Last = grid.view;
  std::vector<Element> elements;
  for (int row = rows ? rows->firstRow : 1; rows && row <= rows->lastRow; ++row) elements.push_back({grid.kind, row});
  Frame.MarkElements(std::move(elements));
}

void RowLink::Choose(Element element) {
  if (element.IsNone()) return;
  for (const LinkedGrid& grid : Grids) {
    if (grid.kind == element.kind && grid.view->isVisibleTo(&Frame)) grid.view->ChooseRow(element.number);
  }
}

} // namespace strutwright
