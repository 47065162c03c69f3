#pragma once

#include "BoardController.h"
#include "CheckPresenter.h"
#include "CommandFrame.h"
#include "DrawingCommands.h"
#include "EditHistory.h"
#include "GridCommands.h"
#include "LivePresenter.h"
#include "MainListener.h"
#include "MainStatusBar.h"
#include "RecoveryKeeper.h"
#include "ResultsBeforeDrag.h"
#include "RowLink.h"
#include "ToolWindows.h"
#include "TrussPresenter.h"
#include "modCheck.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QMdiSubWindow;
class QMenu;

namespace strutwright {

class frmEquations;
class frmGraph;
class MainCentre;
class MenuBuilder;
class RecentFilesMenu;

/// The main frame: it lays out tool bar, status bar, control board and the two child windows, and hands on what they
/// are asked for to those who do it.
class frmMain : public CommandFrame {
 public:
  frmMain();
  ~frmMain() override;

  /// Analyses the model and shows the results.
  void runAnalysis();

  /// The results no longer belong to the model.  redraw: draw the truss again afterwards, without them.
  void EndAnalysis(bool redraw);

  /// Starts the animation of the deflected shape; nothing happens without results.
  void AnimateDSD();

  /// Starts the program in the frame, which is shown already: state, grids, child windows, view.
  void MDIForm_Load();

  /// Opens a model file as File > Open does after its name has been chosen.
  /// path: full, not empty.
  void OpenModel(const std::string& path);

  /// Takes the size and place that the frame had when the program last ended; to be called before it is shown.
  void RestorePlace();

  /// Lays the grids out for GridCapacity.
  void initGrids();

  /// Ends the program at once, without a question.
  void EndProgram();

  /// Appends a node row at (x, y), in m, or a member row between two nodes; nothing else.
  void addNode(float x, float y);
  void AddMember(std::int16_t i, std::int16_t j);

  /// Lists the results of the analysis in the results grids.
  void resultGrids();

  /// Makes the window 1.25 times as wide and high.
  void ZoomOut() { Truss->ZoomOut(); }

  void Run(const std::function<void()>& command) override;
  void Edit(const QString& what, const std::function<void()>& command) override;

  /// Runs one of the commands that begin an empty model, and leaves the keyboard where its first node is typed.
  void BeginNewModel(void (*command)());

  /// What the user calls the model: its file's name, or what the title says in its place.
  std::string ModelName() const;

  /// The steps that changed the model, so that it can be known when it changes.
  const QUndoStack& EditSteps() const { return History.Steps(); }

  void CommitPendingEdit();

  /// What Tab and Shift+Tab do: gives the keyboard to the next or previous control of the whole frame, wherever it is.
  bool MoveFocus(bool next) { return focusNextPrevChild(next); }

  /// Add a node or a member to the model as it stands in the grids, and draw it.
  void DrawNode(float x, float y) { Drawn->DrawNode(x, y); }
  void DrawMember(int i, int j) { Drawn->DrawMember(i, j); }

  /// Fill the Edit menu of a child window.
  void AddHistoryActions(MenuBuilder& build, QMenu& menu);
  void AddGridActions(QMenu& menu) const { Grids->AddTo(menu); }

  /// Shows the recent files in a File menu from now on.
  void AddRecentFiles(RecentFilesMenu& menu) { RecentLists << &menu; }

  /// Shows the options dialog until the user closes it.
  void ShowOptions();

  bool IsEnding() const { return Ending; }
  void ActivateDisplay();
  void ActivateEquations();

  /// Offers the clear drawing in the status bar where the drawing on screen prints numbers over each other.
  void OfferClearDrawing();

  /// That offer is no longer needed.
  void DropOffer() { stsBar->OfferClearDrawing(false); }

  /// Changes between the described and the clear drawing.
  void SwitchStyle() { Board->SwitchStyle(); }

  /// Sets the forces scale so that the longest arrow is about a sixth of the truss.
  void FitArrows() { Board->FitArrows(); }

  /// Draws the truss again; what can't be drawn is said in the status bar and not in a box.
  void RedrawWhatCanBeDrawn(bool zoomToExtents) { Truss->RedrawWhatCanBeDrawn(zoomToExtents); }

  /// Draws the truss with member m, which the stiffness equations have just added, highlighted until the model changes
  /// or is analysed; 0: without that highlight.
  void ShowAddedMember(int m) { Check->ShowAddedMember(m); }

  /// Draws the truss with these nodes and members highlighted until the model is edited, and selects their rows in the
  /// grids, of which one that has such rows is shown.  What the model does not have is passed over.
  void ShowParts(const std::vector<int>& nodes, const std::vector<int>& members) { Check->ShowParts(nodes, members); }

  /// Draws the truss without what ShowParts has highlighted; what is selected stays.
  void ShowNoParts() { Check->ShowNoParts(); }

  /// Chooses the row of an element in the grid that is shown, if that has such rows.
  /// Where the stiffness equations ask about it, that question has its turn.
  void ChooseRowOf(Element element);

  /// Marks nodes and members over the drawing, those and no others.
  void MarkElements(std::vector<Element> elements);

  /// What the control board's E and A can do for members without rigidity, and doing it.
  RigidityOffer RigidityOnBoard() const { return Check->RigidityOnBoard(); }
  void FillInRigidity() { Check->FillInRigidity(); }
  void NoteRigidity() { Check->ShowRigidityOffer(); }

  /// Switches live analysis on or off.
  void SwitchLive(bool on);

  /// Lets everything that is shown follow the model where live analysis is on.
  void FollowModel() { Live->Follow(); }
  void ResumeLive() { Live->Resume(); }

  /// The grids have changed in the middle of a drag.  Live analysis follows at once; without it the results end.
  void FollowDrag();

  /// The grids hold again what they held before the drag, and the results that it ended hold again.
  void TakeBackDrag();

  /// While something is dragged, commands wait for its end.
  void HoldCommands() { Holds = true; }
  void ReleaseCommands();

  /// After a member was drawn without E and A: offers to give new members those of the control board.
  void OfferRigidityOnDrawing() { Drawn->OfferRigidity(); }
  void EndRigidityOffer() { stsBar->EndOffer(); }

  /// Opens the window that varies a quantity, or brings it to the front.
  void ShowVary() { Tools->ShowVary(); }

  /// Opens the window that makes a class set, or brings it to the front.
  void ShowClassSet() { Tools->ShowClassSet(); }

  /// Open the hand methods, or there the joint of a node.
  void ShowHand() { Tools->ShowHand(); }
  void ShowJointByHand(int node) { Tools->ShowJointByHand(node); }

  /// Brings the stiffness equations up to the model, at the stage that they show.
  void FollowEquations();

  /// Whether the child windows are there.
  bool IsLoaded() const { return Graph != nullptr && !Ending; }

  /// Shows what the grids lack, and the motion of a truss that live analysis has found to be a mechanism.
  void ShowEntryNote();

  /// Saves the truss display as a picture under a name that the user is asked for.
  void SavePicture();

  /// Opens the check window, or brings it to the front, on the model as it stands in the grids.
  void ShowCheck();

  /// Opens the window of the influence lines, or brings it to the front, on the model as it stands in the grids.
  void ShowInfluence() { Tools->ShowInfluence(); }

  /// Draws the truss, unless long work is changing the results.  zoomToExtents: frame the whole model first.
  void Redraw(bool zoomToExtents) { Truss->Redraw(zoomToExtents); }

  /// Long work shows its progress.
  bool IsWorking() const { return StatusView->IsWorking(); }

  void ShowHint(const std::string& text) { StatusView->ShowHint(text); }

  /// The status bar, for the platform.
  MainStatus& Status() { return *StatusView; }

  // What the floors below report, as the frame shows it.

  void LeaveResults();
  void ShowStatusTexts();
  void ResetEquations();

  /// The nodes and members that were selected or walked to have other numbers now, or none.
  void ForgetParts();

  void ResetScales() { Board->ResetScales(); }
  void SetCaption(const std::string& caption);
  void ShowRecentFiles();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildToolBar();
  void BuildCentre();
  void ConnectKeys();
  void ShowMenus(QMdiSubWindow* active);
  void ShowDrawing();
  void Analyse();

  MainStatusBar* stsBar = nullptr;
  MainCentre* Centre = nullptr;
  ControlBoard* CBpic = nullptr;     ///< of the centre
  frmGraph* Graph = nullptr;         ///< nullptr until MDIForm_Load
  frmEquations* Equations = nullptr; ///< likewise
  bool Holds = false;                ///< commands wait
  std::vector<std::function<void()>> Waiting;
  std::optional<ResultsBeforeDrag> BeforeDrag; ///< while something is dragged
  QMdiSubWindow* GraphWindow = nullptr;
  QMdiSubWindow* EquationsWindow = nullptr;
  QList<RecentFilesMenu*> RecentLists; ///< one in each File menu
  QString Caption{"Strutwright"};      ///< without what a child window that fills the frame adds to the title
  EditHistory History{Caption};
  RecoveryKeeper Recovery{*this, History.Steps()};
  std::unique_ptr<MainStatus> StatusView;
  std::unique_ptr<GridCommands> Grids;
  std::unique_ptr<BoardController> Board;
  std::unique_ptr<CheckPresenter> Check;
  std::unique_ptr<RowLink> Rows;
  std::unique_ptr<DrawingCommands> Drawn;
  std::unique_ptr<ToolWindows> Tools;
  std::unique_ptr<TrussPresenter> Truss;
  std::unique_ptr<LivePresenter> Live;
  std::unique_ptr<MainListener> Listener;
  bool Ending = false;
};

} // namespace strutwright
