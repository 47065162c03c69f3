#pragma once

#include "modPointing.h"

#include <array>
#include <vector>

namespace strutwright {

class ControlBoard;
class DataGridView;
class frmMain;

/// Links the four grids and the drawing: rows that the user chooses in a grid are marked in the drawing, and an element
/// that is clicked there has its row chosen in the grid that is shown.
class RowLink {
 public:
  RowLink(frmMain& frame, ControlBoard& board);

  /// Chooses the row of an element in the grid that is shown; nothing happens where that grid has none of its kind.
  void Choose(Element element);

 private:
  struct LinkedGrid {
    DataGridView* view;
    ElementKind kind; ///< of its rows
  };

  void TakeRows(const LinkedGrid& grid);

  frmMain& Frame;
  std::array<LinkedGrid, 4> Grids;
  const DataGridView* Last = nullptr; ///< where rows were chosen last: those and no others are marked
};

} // namespace strutwright
