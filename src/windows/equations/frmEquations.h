#pragma once

#include "Grid.h"
#include "modEquationCells.h"
#include "modPointing.h"

#include <string>

#include <QList>
#include <QMenu>
#include <QWidget>

class QCheckBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace strutwright {

class CommandFrame;
class EquationGrids;
enum class AnswerMove;
class TryPanel;
class WorkingPane;
class WorkingSplit;
class MenuBuilder;

/// The stiffness equations, a child window of the main frame: the method one step at a time, its arrays in three
/// grids, and in words what each step did.
class frmEquations : public QWidget {
 public:
  explicit frmEquations(CommandFrame& frame);

  /// Empties every value of the three grids; their labels stay.
  void Reset();

  /// Brings what is shown up to the model and keeps its stage.
  void Follow();

  /// Names the step to come anew: the model may have changed since the last one.
  void ShowStepToCome();

  /// The user has pointed at a member or a node of the drawing: where Try It asks about it, that question has its turn.
  void ChooseQuestionOf(Element element);

  /// Adds the menus that are its own: Edit and View.
  void AddMenus(MenuBuilder& build);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  using CopyCommand = void (*)(EquationGrid grid, const GridBlock& block);

  void BuildButtons();
  QLayout* BuildWords();
  void BuildTryIt();
  QWidget* BuildWorking();
  QLabel* AddLine(const QString& name, const QString& description);
  QCheckBox* AddSwitch(const QString& name, const QString& caption, const QString& toolTip);
  void BuildViewMenu(MenuBuilder& build);
  void BuildEditMenu(MenuBuilder& build);
  void Arrange();

  QPushButton* AddStep(const QString& name, const QString& caption, const QString& toolTip, void (*step)());
  void Press(QPushButton& button, void (*step)());
  void ShowPage();
  void ShowNumbers();
  void ShowAddedCells();
  void ShowParts();
  void ShowMember(int member);
  void ShowPaneOrGrids();
  void ShowOrigin();
  void ShowQuestion();
  void GoToQuestion();
  void TakeAnswer(AnswerMove move);
  void FollowLink(const std::string& link);
  void Copy(CopyCommand copy);
  void CopyOrigin();

  CommandFrame& Frame;
  QGridLayout* ButtonPlaces = nullptr;
  QList<QPushButton*> Buttons; ///< the steps, in the order in which they stand
  QPushButton* btnAddMember = nullptr;
  QPushButton* btnStepBack = nullptr;
  QPushButton* btnMemberForces = nullptr;
  QPushButton* btnReactions = nullptr;
  QPushButton* Pressed = nullptr; ///< the last one
  EquationGrids* Grids = nullptr;
  QCheckBox* chkWorking = nullptr;
  QCheckBox* chkTryIt = nullptr;
  TryPanel* Try = nullptr;
  WorkingPane* txtWorking = nullptr;
  WorkingSplit* splWorking = nullptr;
  QLabel* lblStepDone = nullptr;
  QLabel* lblStepToCome = nullptr;
  QLabel* lblOrigin = nullptr;
  int ShownMember = 0; ///< what the frame was last asked to show in the truss display; 0 for none
  int AskedNode = 0;   ///< marked over the drawing because a question is about it; 0 for none
};

} // namespace strutwright
