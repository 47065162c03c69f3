#pragma once

#include "QtDrawingSurface.h"

#include <QList>
#include <QMenu>
#include <QWidget>

namespace strutwright {

class DisplayArea;
class frmMain;
class MainStatusBar;
class MenuBuilder;

/// The truss display, a child window of the main frame.
class frmGraph : public QWidget {
 public:
  frmGraph(frmMain& frame, MainStatusBar& status);

  /// Writes the analysis panel: "Analysis Done" while there are results, "No Analysis" otherwise.
  void stsBarUpdate();

  QtDrawingSurface& Surface();

  /// Shows what has been drawn.
  void ShowDrawing();

  /// The menus that the frame's menu bar shows while this window is active, in their order.
  const QList<QMenu*>& Menus() const { return MenuList; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildMenus();
  void AddViewMenu(MenuBuilder& build);
  void Refresh();

  frmMain& Frame;
  MainStatusBar& Status;
  DisplayArea* Disp = nullptr;
  QList<QMenu*> MenuList;
};

} // namespace strutwright
