#pragma once

#include "Host.h"

#include <cstdint>
#include <functional>

#include <QCheckBox>
#include <QMainWindow>
#include <QTimer>

class QMdiSubWindow;
class QVBoxLayout;

namespace strutwright {

class ChildArea;
class ControlBoard;
class frmEquations;
class frmGraph;
class MainStatusBar;

/// The main frame: tool bar, status bar, control board and the two child windows.
class frmMain : public QMainWindow, public Host {
 public:
  frmMain();
  ~frmMain() override;

  /// Analyses the model and shows the results.
  void runAnalysis();
  void EndAnalysis(bool redraw) override;

  /// Starts the animation of the deflected shape; nothing happens without results.
  void AnimateDSD();

  /// Starts the program in the frame, which is shown already: state, grids, child windows, view.
  void MDIForm_Load();

  /// Lays the grids out for GridCapacity.
  void initGrids();

  /// Ends the program at once, without a question.
  void EndProgram();

  /// Lists the results of the analysis in the results grids.
  void resultGrids();

  /// Makes the window 1.25 times as wide and high.
  void ZoomOut();

  /// Runs a command inside the guard, after it has taken a pending edit of a cell.
  void Run(const std::function<void()>& command);

  bool IsEnding() const { return Ending; }
  void ActivateDisplay();
  void ActivateEquations();

  /// Draws the truss with member m highlighted; 0: without a highlight.
  void HighlightMember(int m);

  void RefreshStatusTexts() override;
  void Redraw(bool zoomToExtents) override;
  void ClearSurface() override;
  ModelLayers Layers() override;
  void ResetScales() override;
  void SetCaption(const std::string& caption) override;
  void ClearGrids() override;
  void ResetEquations() override;
  int NodeAt(float x, float y) override;
  void DropHighlight() override;
  void ShowHint(const std::string& text) override;
  bool ShowProgress(const std::string& text, double fraction) override;
  void EndProgress() override;
  void SavePicture(const std::string& path) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildToolBar();
  void BuildCentre();
  void BuildStrip();
  void ConnectBoard();
  void ConnectSwitches();
  void ConnectScales();
  void ConnectKeys();
  void ShowMenus(QMdiSubWindow* active);
  void TakeCell(const std::function<bool()>& take);
  void RedrawWhatCanBeDrawn();
  void ClickResultSwitch(QCheckBox& box, bool& flag, bool& guard);
  void TickResultSwitches(bool ticked);
  void stepDeflectionScale(bool up);
  void stepLoadsScale(bool up);
  void ShowScales();
  void Tick();
  void HideBoard();
  void ShowBoard();

  MainStatusBar* stsBar = nullptr;
  ControlBoard* CBpic = nullptr;
  ChildArea* Children = nullptr;
  QWidget* BtnPic = nullptr; ///< the strip that brings the hidden board back
  QVBoxLayout* Centre = nullptr;
  frmGraph* Graph = nullptr;         ///< nullptr until MDIForm_Load
  frmEquations* Equations = nullptr; ///< likewise
  QMdiSubWindow* GraphWindow = nullptr;
  QMdiSubWindow* EquationsWindow = nullptr;
  QTimer Timer1;
  bool reactionsGuard = false; ///< the next click of the box is the program's own
  bool forcesGuard = false;
  bool deflectedGuard = false;
  bool Working = false; ///< long work shows its progress
  bool Ending = false;
};

} // namespace strutwright
