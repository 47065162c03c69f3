#pragma once

#include "Grid.h"

#include <QList>
#include <QMenu>
#include <QWidget>

namespace strutwright {

class frmMain;

/// The stiffness equations, a child window of the main frame.
class frmEquations : public QWidget {
 public:
  explicit frmEquations(frmMain& frame);

  /// Empties every value of the three grids; their labels stay.
  void Reset();

  /// The menus that the frame's menu bar shows while this window is active, in their order.
  const QList<QMenu*>& Menus() const { return MenuList; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildGrids();
  void BuildMenus();

  frmMain& Frame;
  Grid grForce{2, 2};
  Grid grK{2, 2};
  Grid grDisp{2, 2};
  QList<QMenu*> MenuList;
};

} // namespace strutwright
