#pragma once

#include "MenuBuilder.h"

namespace strutwright {

class frmEquations;
class frmGraph;
class frmMain;

/// The menus of a child window, with the entries that both children show.
class FrameMenus : public MenuBuilder {
 public:
  FrameMenus(QWidget& owner, frmMain& frame);

  void AddFileMenu();
  void AddAnalyse(QMenu& menu);
  void AddCheck(QMenu& menu);
  void AddHelpMenu();

 private:
  void AddExamples(QMenu& menu);
  void AddRestore(QMenu& menu);

  QWidget& Owner;
  frmMain& Frame;
};

/// Build the menus that the frame's menu bar shows while a child window is active, in their order; those of the truss
/// display with its pop-up menu.
QList<QMenu*> BuildGraphMenus(frmMain& frame, frmGraph& graph);
QList<QMenu*> BuildEquationMenus(frmMain& frame, frmEquations& equations);

} // namespace strutwright
