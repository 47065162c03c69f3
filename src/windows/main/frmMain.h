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
  const QUndoStack& EditSteps() const override { return History.Steps(); }
  void CommitPendingEdit() override;
  std::string ModelName() const override;
  bool IsWorking() const override { return StatusView->IsWorking(); }
  bool IsEnding() const override { return Ending; }
  void ShowProgressIn(Progress* place) override { StatusView->ShowProgressIn(place); }
  void HoldCommands() override { Holds = true; }
  void ReleaseCommands() override;
  void FollowDrag() override;
  void TakeBackDrag() override;
  void Redraw(bool zoomToExtents) override { Truss->Redraw(zoomToExtents); }
  void RedrawWhatCanBeDrawn(bool zoomToExtents) override { Truss->RedrawWhatCanBeDrawn(zoomToExtents); }
  void ShowAddedMember(int m) override { Check->ShowAddedMember(m); }
  void ShowParts(const std::vector<int>& nodes, const std::vector<int>& members) override {
    Check->ShowParts(nodes, members);
  }
  void ShowNoParts() override { Check->ShowNoParts(); }
  void MarkElements(std::vector<Element> elements) override;
  void ChooseRowOf(Element element) override;
  void ForgetParts() override;
  void DrawNode(float x, float y) override { Drawn->DrawNode(x, y); }
  void DrawMember(int i, int j) override { Drawn->DrawMember(i, j); }
  void OfferRigidityOnDrawing() override { Drawn->OfferRigidity(); }
  void ActivateDisplay() override;
  void ShowJointByHand(int node) override { Tools->ShowJointByHand(node); }

  /// Runs one of the commands that begin an empty model, and leaves the keyboard where its first node is typed.
  void BeginNewModel(void (*command)());

  /// Fill the Edit menu of a child window.
  void AddHistoryActions(MenuBuilder& build, QMenu& menu);
  void AddGridActions(QMenu& menu) const { Grids->AddTo(menu); }

  /// Shows the recent files in a File menu from now on.
  void AddRecentFiles(RecentFilesMenu& menu) { RecentLists << &menu; }

  /// Shows the options dialog until the user closes it.
  void ShowOptions();

  void ActivateEquations();

  /// Offers the clear drawing in the status bar where the drawing on screen prints numbers over each other.
  void OfferClearDrawing();

  /// That offer is no longer needed.
  void DropOffer() { stsBar->OfferClearDrawing(false); }

  /// Changes between the described and the clear drawing.
  void SwitchStyle() { Board->SwitchStyle(); }

  /// Sets the forces scale so that the longest arrow is about a sixth of the truss.
  void FitArrows() { Board->FitArrows(); }

  void NoteRigidity() { Check->ShowRigidityOffer(); }

  /// Switches live analysis on or off.
  void SwitchLive(bool on);

  /// Lets everything that is shown follow the model where live analysis is on.
  void FollowModel() { Live->Follow(); }
  void ResumeLive() { Live->Resume(); }

  void EndRigidityOffer() { stsBar->EndOffer(); }

  /// Opens the window that varies a quantity, or brings it to the front.
  void ShowVary() { Tools->ShowVary(); }

  /// Opens the window that makes a class set, or brings it to the front.
  void ShowClassSet() { Tools->ShowClassSet(); }

  /// Opens the hand methods, or brings them to the front.
  void ShowHand() { Tools->ShowHand(); }

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

  /// The status bar, for the platform.
  MainStatus& Status() { return *StatusView; }

  // What the floors below report, as the frame shows it.

  void LeaveResults();
  void ShowStatusTexts();
  void ResetEquations();
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
  QList<QMenu*> GraphMenus; ///< of the menu bar while the truss display is active
  QList<QMenu*> EquationMenus;
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
