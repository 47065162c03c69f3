#pragma once

#include "DisplayArea.h"
#include "EditTools.h"
#include "PartMenu.h"
#include "PointingHelp.h"
#include "modMouseModes.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QMenu>
#include <QWidget>

namespace strutwright {

class CommandFrame;
class MainStatusBar;
class MenuBuilder;
class frmReport;

/// The truss display, a child window of the main frame.
class frmGraph : public QWidget, private DisplayListener {
 public:
  frmGraph(CommandFrame& frame, MainStatusBar& status);

  /// What the display does once, as the program starts: takes the recent files, which may welcome the user, and the
  /// scales.  To be called while it is on screen, so that a box stands over a whole window.
  void Load();

  /// The first node closer than PickRadius to a world point, in m, which is drawn highlighted; 0 when there is none.
  /// offer: ask then whether to add a node at the nearest grid point; the result is 0 all the same.
  std::int16_t seekJoint(float x, float y, bool offer);

  /// Starts the companion generator program, if it is there.
  void mnuGenerator_Click();

  /// Has the desktop open a path.
  void vLaunch(const std::string& path);

  /// Shows the results report of the model, made anew; says so where there are no results.
  void mnuResults_Click();

  /// Writes the analysis panel: "Analysis Done" while there are results, "No Analysis" otherwise.
  void stsBarUpdate();

  QtDrawingSurface& Surface() { return Disp->Surface(); }

  /// Shows what has been drawn.
  void ShowDrawing();

  /// Marks nodes and members over the drawing, those and no others.
  void Mark(std::vector<Element> elements) { Pointing->Mark(std::move(elements)); }

  /// Puts back what is being dragged; returns whether anything was.
  bool CancelDrag() { return Tools.Cancel(); }

  /// Adds copies of what is selected, each by (dx, dy), in m, from the one before, and selects the last one.
  void CopySelection(double dx, double dy, int count);

  /// Draws what is selected over the truss.
  void DrawSelected();

  /// Leaves the mouse mode.
  void LeaveMode();

  /// Begins a mouse mode.
  void Choose(MouseMode mode);

  /// Shows the mouse mode in the status bar, by the cursor and in the drawing.
  void ShowMouseState();

  /// Ask how what is selected is copied, or mirrored, and do it; level: up or down.
  void AskForCopies();
  void AskForMirror(bool level);

  /// Makes the pop-up menu, with the entries for what is under the pointer.
  QMenu& MakePopUp(MenuBuilder& build);

  /// Takes away the mark on what keys have walked to.
  void EndWalk();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void Resized() override;
  void MouseMoved(const MouseEvent& event) override;
  void MousePressed(const MouseEvent& event) override;
  void MouseReleased(const MouseEvent& event) override;
  void MouseLeft() override;
  void WheelTurned(const MouseEvent& event, double steps) override;
  void ViewKeyPressed(ViewMove move) override;
  void MouseDoubleClicked(const MouseEvent& event) override;
  void MouseRested(const MouseEvent& event, const QPoint& globalPlace) override;
  void WalkKeyPressed(ElementKind kind, bool forward) override;
  void OpenKeyPressed() override;
  void FocusLost() override;
  void PaintOver(QPainter& painter) override { Pointing->Paint(painter); }
  bool ToolKeyPressed(const QKeyEvent& key) override { return Tools.Key(key); }

  void Inspect(Element element);
  void Act(const MouseVerdict& verdict);
  void Do(const MouseVerdict& verdict);
  void InspectNode(int n);
  void InspectMember(int m);
  void ShowPopUp();
  bool OfferNode(float x, float y);
  void DrawMemberBetween(int i, int j);
  bool HasSelection();
  void ShowReport();

  CommandFrame& Frame;
  MainStatusBar& Status;
  DisplayArea* Disp = nullptr;
  std::unique_ptr<PointingHelp> Pointing;
  EditTools Tools;
  std::unique_ptr<PartMenu> Parts; ///< the entries of the pop-up menu for what is under the pointer
  QMenu* PopUp = nullptr;
  frmReport* ReportWindow = nullptr; ///< nullptr until the first report; the frame owns it
};

} // namespace strutwright
