#pragma once

#include "Grid.h"
#include "modEquationCells.h"

#include <string>

#include <QList>
#include <QMenu>
#include <QWidget>

class QCheckBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace strutwright {

class EquationGridView;
class TryPanel;
class WorkingPane;
class WorkingSplit;
class frmMain;
class MenuBuilder;

/// The stiffness equations, a child window of the main frame: the method one step at a time, its arrays in three
/// grids, and in words what each step did.
class frmEquations : public QWidget {
 public:
  explicit frmEquations(frmMain& frame);

  /// Empties every value of the three grids; their labels stay.
  void Reset();

  /// Brings what is shown up to the model and keeps its stage.
  void Follow();

  /// Names the step to come anew: the model may have changed since the last one.
  void ShowStepToCome();

  /// The menus that the frame's menu bar shows while this window is active, in their order.
  const QList<QMenu*>& Menus() const { return MenuList; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  using CopyCommand = void (*)(EquationGrid grid, const GridBlock& block);

  QLayout* BuildButtons();
  QWidget* BuildGrids();
  QLayout* BuildWords();
  void GiveWordsRoom();
  void BuildTryIt();
  QWidget* BuildWorking(QWidget* grids);
  QLabel* AddLine(const QString& name, const QString& description, int lines);
  EquationGridView* AddGrid(EquationGrid grid, const QString& name, const QString& description);
  void ScrollTogether();
  void BuildMenus();
  void BuildEditMenu(MenuBuilder& build);

  QPushButton* AddStep(const QString& name, const QString& caption, const QString& toolTip, void (*step)());
  void Press(void (*step)());
  void ShowPage();
  void ShowNumbers();
  void ShowAddedCells();
  void ShowMember(int member);
  void OfferRoomForWorking();
  void ShowOrigin();
  void ShowWorking();
  void ShowQuestion();
  void FollowLink(const std::string& link);
  void Copy(CopyCommand copy);
  void CopyOrigin();

  frmMain& Frame;
  QPushButton* btnShowForces = nullptr;
  QPushButton* btnAddMember = nullptr;
  QPushButton* btnStepBack = nullptr;
  QPushButton* btnMemberForces = nullptr;
  QPushButton* btnReactions = nullptr;
  EquationGridView* grForce = nullptr;
  EquationGridView* grK = nullptr;
  EquationGridView* grDisp = nullptr;
  EquationGridView* ActiveGrid = nullptr; ///< the one that the grid commands are about
  QCheckBox* chkTryIt = nullptr;
  TryPanel* Try = nullptr;
  WorkingPane* txtWorking = nullptr;
  WorkingSplit* splWorking = nullptr;
  QLabel* lblStepDone = nullptr;
  QLabel* lblStepToCome = nullptr;
  QLabel* lblOrigin = nullptr;
  QList<QMenu*> MenuList;
  int ShownMember = 0; ///< what the frame was last asked to show in the truss display; 0 for none
};

} // namespace strutwright
