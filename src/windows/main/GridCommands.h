#pragma once

#include "Grid.h"
#include "modGridClipboard.h"

#include <cstddef>

#include <QMenu>

namespace strutwright {

class ControlBoard;
class DataGridView;
class CommandFrame;

/// The commands on a grid: the menu `mnuGrid` that a right click opens, and their keys.  They work on the grid that is
/// visible.
class GridCommands {
 public:
  GridCommands(CommandFrame& frame, ControlBoard& board);

  /// Makes a grid visible: 0 GrJoints, 1 GrMembers, 2 jResGr, 3 mResGr.
  void ShowGrid(std::size_t index);

  /// Adds the commands to an Edit menu.
  void AddTo(QMenu& menu) const { menu.addActions(mnuGrid->actions()); }

 private:
  void BuildMenu();
  void OpenMenu(DataGridView& view, const QPoint& place);
  void EnableActions();
  void Run(GridCommand command);

  CommandFrame& Frame;
  ControlBoard& Board;
  QMenu* mnuGrid = nullptr;
  Grid* Shown;
};

} // namespace strutwright
