#include "frmGraph.h"

#include "AnalysisState.h"
#include "BusyPointer.h"
#include "CommandFrame.h"
#include "DisplayState.h"
#include "EventGuard.h"
#include "MainStatusBar.h"
#include "Platform.h"
#include "frmMemberDetails.h"
#include "frmNodeDetails.h"
#include "frmReport.h"
#include "modKeepResults.h"
#include "modMarks.h"
#include "modModelEditing.h"
#include "modModelStore.h"
#include "modPicking.h"
#include "modPlaces.h"
#include "modPointing.h"
#include "modRecentFiles.h"
#include "modScales.h"

#include <filesystem>
#include <utility>

#include <QCloseEvent>
#include <QCursor>
#include <QMenu>
#include <QUndoStack>
#include <QVBoxLayout>

namespace strutwright {

namespace {

Qt::CursorShape Shape(MouseCursor cursor) {
  switch (cursor) {
  case MouseCursor::Hand: return Qt::OpenHandCursor;
  case MouseCursor::UpArrow: return Qt::UpArrowCursor;
  case MouseCursor::Default: break;
  }
  return Qt::ArrowCursor;
}

/// A press of the left button that no mode has a use for.
bool IsPlainPress(const MouseEvent& event) {
  const bool dragging = TheMouse.Panning || TheMouse.ZoomDragging;
  return event.button == MouseButton::Left && CurrentMouseMode() == MouseMode::None && !TheMouse.ZoomArmed && !dragging;
}

} // namespace

frmGraph::frmGraph(CommandFrame& frame, MainStatusBar& status) : Frame(frame), Status(status), Tools(frame, *this) {
  setObjectName("frmGraph");
  setWindowTitle("Truss Display");
  Disp = new DisplayArea(*this, this);
  Pointing = std::make_unique<PointingHelp>(*Disp);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(Disp);
  ShowMouseState();
}

void frmGraph::Load() {
  startUpList();
  ResetScales();
}

std::int16_t frmGraph::seekJoint(float x, float y, bool offer) {
  const int n = FindNode(x, y);
  if (n != 0) {
    MarkNode(Surface(), n, Orange, TheDisplay.Style);
    ShowDrawing();
  } else if (offer) {
    OfferNode(x, y);
  }
  return static_cast<std::int16_t>(n);
}

void frmGraph::mnuGenerator_Click() {
  vLaunch(CompanionProgram(ProgramFolder(), static_cast<char>(std::filesystem::path::preferred_separator)));
}

void frmGraph::vLaunch(const std::string& path) { TheShell().Open(path); }

/// What has been pasted meanwhile ends the results.
void frmGraph::mnuResults_Click() {
  RebuildKeepingResults();
  if (HasResultsToReport()) return ShowReport();
  ShowMessage(MessageIcon::Information, AnalysisDone == FlagFalse ? "No results report available yet"
                                                                  : "The model has been changed since its analysis.\n"
                                                                    "Analyse it again for a results report.");
}

void frmGraph::ShowReport() {
  const BusyPointer busy;
  Report report = MakeReport(Frame.ModelName());
  if (ReportWindow == nullptr) {
    ReportWindow = new frmReport(Frame, [this] { mnuResults_Click(); });
    OnSignal(&Frame.EditSteps(), &QUndoStack::indexChanged, this, [this] { ReportWindow->NoteModel(); });
  }
  ReportWindow->ShowReport(std::move(report));
  ReportWindow->show();
  ReportWindow->raise();
  ReportWindow->activateWindow();
}

void frmGraph::stsBarUpdate() { Status.ShowAnalysis(QString::fromStdString(AnalysisText())); }

void frmGraph::DrawSelected() {
  DropMissing(TheDisplay.Selected);
  if (!TheDisplay.Selected.IsEmpty()) DrawSelection(Surface(), TheDisplay.Selected);
}

void frmGraph::EndWalk() { Pointing->EndWalk(); }

void frmGraph::LeaveMode() {
  ClearModes();
  EndWalk();
  ShowMouseState();
}

/// What has been drawn anew may have moved under the marks.
void frmGraph::ShowDrawing() {
  Pointing->DrawingChanged();
  Disp->update();
}

void frmGraph::closeEvent(QCloseEvent* event) {
  if (Frame.IsEnding()) return event->accept();
  event->ignore();
  Guard([] { ShowMessage(MessageIcon::Critical, "Window cannot be closed"); });
}

void frmGraph::Resized() { Frame.RedrawWhatCanBeDrawn(false); }

void frmGraph::MouseMoved(const MouseEvent& event) {
  Status.ShowCoordinates(QString::fromStdString(CoordinatesText(event.x, event.y)));
  if (!Tools.Move(event)) Act(MouseMove(event));
  Pointing->MouseMoved(event.x, event.y, QCursor::pos());
}

/// A click may be a command, and every command first takes a pending edit.
void frmGraph::MousePressed(const MouseEvent& event) {
  Frame.CommitPendingEdit();
  Pointing->HideTip();
  const bool plain = IsPlainPress(event);
  if (!Tools.Press(event)) Act(MousePress(event));
  if (plain) Frame.ChooseRowOf(ElementAt(Surface(), event.x, event.y));
}

/// To a mouse mode two quick clicks are two clicks.
void frmGraph::MouseDoubleClicked(const MouseEvent& event) {
  if (!IsPlainPress(event)) return MousePressed(event);
  Frame.CommitPendingEdit();
  Pointing->HideTip();
  Inspect(ElementAt(Surface(), event.x, event.y));
}

void frmGraph::MouseReleased(const MouseEvent& event) {
  if (!Tools.Release(event)) Act(MouseRelease(event));
}

void frmGraph::MouseLeft() {
  MouseLeave();
  Pointing->HideTip();
  Status.ShowCoordinates("");
  ShowDrawing();
}

void frmGraph::WheelTurned(const MouseEvent& event, double steps) { Act(MouseWheel(event, steps)); }

void frmGraph::ViewKeyPressed(ViewMove move) {
  Frame.Run([this, move] {
    if (MoveView(Surface(), move)) Frame.RedrawWhatCanBeDrawn(false);
  });
}

/// While something is dragged a tip would only be in the way.
void frmGraph::MouseRested(const MouseEvent& event, const QPoint& globalPlace) {
  if (!TheMouse.Panning && !TheMouse.ZoomDragging) Pointing->MouseRests(event.x, event.y, globalPlace);
}

void frmGraph::WalkKeyPressed(ElementKind kind, bool forward) {
  Frame.Run([this, kind, forward] { Pointing->Walk(kind, forward, [this] { Frame.RedrawWhatCanBeDrawn(false); }); });
}

void frmGraph::OpenKeyPressed() {
  Frame.Run([this] { Inspect(Pointing->WalkedTo()); });
}

void frmGraph::FocusLost() { Pointing->EndWalk(); }

void frmGraph::Inspect(Element element) {
  if (element.kind == ElementKind::Node && element.number <= NodeCount) InspectNode(element.number);
  if (element.kind == ElementKind::Member && element.number <= MemberCount) InspectMember(element.number);
}

/// A child window keeps Tab to itself unless it is asked to pass it on.
bool frmGraph::focusNextPrevChild(bool next) { return Frame.MoveFocus(next); }

void frmGraph::Act(const MouseVerdict& verdict) {
  ShowMouseState();
  Do(verdict);
  ShowMouseState();
}

void frmGraph::Do(const MouseVerdict& verdict) {
  const int number = verdict.number;
  switch (verdict.action) {
  case MouseAction::None:
  case MouseAction::NodePicked: return;
  case MouseAction::Redraw: return Frame.Redraw(false);
  case MouseAction::ShowPopUp: return ShowPopUp();
  case MouseAction::InspectNode: return InspectNode(number);
  case MouseAction::InspectMember: return InspectMember(number);
  case MouseAction::OfferNode:
    if (OfferNode(verdict.x, verdict.y)) Act(NodeWasAdded(NodeCount));
    return;
  case MouseAction::MemberNotFound:
    return ShowMessage(MessageIcon::Information, MemberNotFoundText(verdict.x, verdict.y));
  case MouseAction::DeleteNode: return Frame.Edit("Delete Node", [number] { DeleteNode(number, true); });
  case MouseAction::DeleteMember: return Frame.Edit("Delete Member", [number] { DeleteMember(number, true); });
  case MouseAction::AddNode: return Frame.Edit("Draw Node", [&] { Frame.DrawNode(verdict.x, verdict.y); });
  case MouseAction::AddMember: return DrawMemberBetween(number, verdict.endNode);
  }
}

void frmGraph::InspectNode(int n) {
  frmNodeDetails details(Frame);
  details.setNode(static_cast<std::int16_t>(n));
  details.exec();
}

void frmGraph::InspectMember(int m) {
  frmMemberDetails details(Frame);
  details.setMember(static_cast<std::int16_t>(m));
  details.exec();
}

void frmGraph::ShowMouseState() {
  Status.ShowMouseMode(QString::fromStdString(MouseModeText()));
  Disp->setCursor(Shape(TheMouse.Cursor));
  Disp->update();
}

QMenu& frmGraph::MakePopUp(MenuBuilder& build) {
  PopUp = new QMenu(this);
  PopUp->setObjectName("mnuPopUp");
  Parts = std::make_unique<PartMenu>(Frame, *PopUp, build);
  return *PopUp;
}

/// What lies under the press that asked for the menu comes first in it.
void frmGraph::ShowPopUp() {
  Parts->Offer(TheMouse.PressX, -TheMouse.PressY);
  PopUp->exec(QCursor::pos());
  PopUpClosed();
}

/// Returns whether the user had the node added.
bool frmGraph::OfferNode(float x, float y) {
  if (!AskQuestion(NodeNotFoundText(x, y))) return false;
  const WorldPoint point = NearestGridPoint(x, y);
  Frame.Edit("Draw Node", [&] { Frame.DrawNode(point.x, point.y); });
  return true;
}

void frmGraph::DrawMemberBetween(int i, int j) {
  const std::string hint = MemberHint(i, j);
  Frame.Edit("Draw Member", [&] { Frame.DrawMember(i, j); });
  Frame.OfferRigidityOnDrawing();
  if (!hint.empty()) ShowHint(hint);
}

void frmGraph::Choose(MouseMode mode) {
  SetMouseMode(mode);
  ShowMouseState();
}

} // namespace strutwright
