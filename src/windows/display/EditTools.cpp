#include "EditTools.h"

#include "CommandFrame.h"
#include "DisplayState.h"
#include "EventGuard.h"
#include "Platform.h"
#include "frmGraph.h"
#include "modModelEditing.h"
#include "modModelStore.h"
#include "modMouseModes.h"
#include "modRubberBands.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QKeyEvent>

namespace strutwright {

namespace {

constexpr double ReachPixels = 9;
constexpr double TremblePixels = 3;
constexpr double FineStep = 0.1; // of a grid step
constexpr char32_t BackspaceCode = 8;

bool IsTool(MouseMode mode) {
  return mode == MouseMode::Supports || mode == MouseMode::Loads || mode == MouseMode::SelectAndMove;
}

/// What the mouse takes hold of: within PointingReach, however large the truss is.
Element PartAt(WorldPoint point) { return ElementAt(*DisplaySurface, point.x, -static_cast<double>(point.y)); }

/// 0 where there is none.
int NodeInReach(WorldPoint point) {
  const Element part = PartAt(point);
  return part.kind == ElementKind::Node ? part.number : 0;
}

bool IsInside(const MouseEvent& event) {
  const ViewWindow window = DisplaySurface->Window();
  return event.x >= window.left && event.x <= window.left + window.width && event.y >= window.top &&
         event.y <= window.top + window.height;
}

} // namespace

EditTools::EditTools(CommandFrame& frame, frmGraph& graph) : Frame(frame), Graph(graph) {
  FollowTimer.setParent(&Graph);
  FollowTimer.setSingleShot(true);
  OnSignal(&FollowTimer, &QTimer::timeout, &Graph, [this] { Follow(); });
}

double EditTools::MetresAPixel() const {
  return static_cast<double>(DisplaySurface->Window().width) / static_cast<double>(DisplaySurface->PixelWidth());
}

bool EditTools::Press(const MouseEvent& event) {
  if (Dragged || Rectangle) return true; // another button meanwhile
  const bool theirs = event.button == MouseButton::Left && !TheMouse.ZoomArmed && IsTool(CurrentMouseMode());
  if (!theirs || DisplaySurface == nullptr) return false;
  PressPoint = Point = {event.x, -event.y};
  Moved = Copies = Toggles = false;
  switch (CurrentMouseMode()) {
  case MouseMode::Supports: return PressForSupport(Point);
  case MouseMode::Loads: return PressForLoad(Point);
  default: return PressToSelect(event);
  }
}

/// Commands wait from now on.
void EditTools::Take(std::unique_ptr<Drag> drag) {
  Dragged = std::move(drag);
  Frame.HoldCommands();
}

bool EditTools::PressForSupport(WorldPoint point) {
  const int n = NodeInReach(point);
  if (n == 0) {
    ShowHint("There is no node here: click a node to give it the support");
  } else {
    Frame.Edit("Support", [n] { EnterSupport(n, TheMouse.SupportSymbol); });
  }
  return true;
}

bool EditTools::PressForLoad(WorldPoint point) {
  const LoadEnd end = LoadEndAt(point.x, point.y, ReachPixels * MetresAPixel());
  if (end.node != 0) {
    Take(DragLoad(end, point, MetresAPixel()));
    ShowHint(Dragged->Text());
    return true;
  }
  const int n = NodeInReach(point);
  if (n == 0) {
    ShowHint("There is no node here: click a node to load it, or drag the end of a load's arrow");
  } else {
    Frame.Edit("Load", [n] { EnterSymbolLoad(n, TheMouse.ClickedLoad); });
  }
  return true;
}

/// A press on something that is selected keeps the selection, since it may begin a drag of all of it.
bool EditTools::PressToSelect(const MouseEvent& event) {
  Selection& selected = TheDisplay.Selected;
  const Element part = PartAt(Point);
  const int n = part.kind == ElementKind::Node ? part.number : 0;
  const int m = part.kind == ElementKind::Member ? part.number : 0;
  const bool held = selected.nodes.contains(n) || selected.members.contains(m);
  if (n == 0 && m == 0) {
    if (!event.control) selected.Clear();
    Rectangle = true;
  } else if (!held) {
    Select(selected, part, event.control);
  }
  Toggles = held && event.control;
  const std::vector<int> nodes = NodesOf(selected);
  if ((n != 0 || m != 0) && !nodes.empty()) {
    const bool holds = std::find(nodes.begin(), nodes.end(), n) != nodes.end();
    const int first = m == 0 ? nodes.front() : RoundNodeNumber(MemberTable(m, MemberNodeI));
    const bool firstMoves = std::find(nodes.begin(), nodes.end(), first) != nodes.end();
    Take(DragNodes(holds ? n : (firstMoves ? first : nodes.front()), nodes, Point));
    Copies = event.control;
  }
  Frame.RedrawWhatCanBeDrawn(false);
  return true;
}

bool EditTools::Move(const MouseEvent& event) {
  if (!Dragged && !Rectangle) return false;
  if (!event.leftHeld) { // the release went elsewhere
    EndDrag();
    return true;
  }
  if (Rectangle) {
    ShowRubberBand(RubberBand::ZoomBox, {PressPoint.x, -PressPoint.y, event.x, event.y});
    Graph.ShowDrawing();
    return true;
  }
  if (!IsInside(event)) {
    Finish();
    return true;
  }
  Point = {event.x, -event.y};
  Free = event.shift;
  const double way = std::hypot(Point.x - PressPoint.x, Point.y - PressPoint.y);
  if (way > TremblePixels * MetresAPixel()) Moved = true;
  if (Moved) FollowTimer.start(0);
  return true;
}

/// A copy shows where it will lie only in words: nothing is added before the drop.
void EditTools::Follow() {
  FollowTimer.stop();
  if (!Dragged || !Moved) return;
  Dragged->MoveTo(Point, Free);
  if (Copies) {
    const std::string text = "Copy: " + Dragged->Text();
    Dragged->Edits.PutBack();
    return ShowHint(text);
  }
  Frame.FollowDrag();
  ShowHint(Dragged->Text());
}

bool EditTools::Release(const MouseEvent& event) {
  if (event.button != MouseButton::Left || (!Dragged && !Rectangle)) return false;
  if (Rectangle) {
    SelectRectangle(event);
  } else {
    if (IsInside(event)) Point = {event.x, -event.y};
    Finish();
  }
  return true;
}

void EditTools::SelectRectangle(const MouseEvent& event) {
  Rectangle = false;
  HideRubberBand(RubberBand::ZoomBox);
  SelectInside(TheDisplay.Selected, PressPoint.x, PressPoint.y, event.x, -event.y, event.control);
  Frame.RedrawWhatCanBeDrawn(false);
}

void EditTools::Finish() {
  if (!Dragged || !Moved) {
    if (std::exchange(Toggles, false)) {
      Select(TheDisplay.Selected, PartAt(PressPoint), true);
    }
    EndDrag();
    return Frame.RedrawWhatCanBeDrawn(false);
  }
  Follow();
  const std::string refusal = Copies ? "" : Dragged->Refusal();
  if (!refusal.empty()) {
    Cancel();
    return ShowHint(refusal);
  }
  if (Copies) return StartCopy();
  const std::unique_ptr<Drag> done = std::move(Dragged);
  if (done->Edits.ChangeAny()) {
    done->Edits.PutBack();
    Frame.Edit(QString::fromStdString(done->Name()), [&done] {
      done->Edits.PutAgain();
      AfterModelEdit();
    });
  } else {
    Frame.TakeBackDrag();
  }
  EndDrag();
}

void EditTools::StartCopy() {
  Dragged->MoveTo(Point, Free);
  const auto [dx, dy] = Dragged->Way();
  Dragged->Edits.PutBack();
  Dragged.reset();
  EndDrag();
  if (dx != 0 || dy != 0) Graph.CopySelection(dx, dy, 1);
}

bool EditTools::Cancel() {
  if (!Dragged && !Rectangle) return false;
  if (Dragged) {
    Dragged->Edits.PutBack();
    Dragged.reset();
    if (Moved) Frame.TakeBackDrag();
    ShowHint("");
  }
  HideRubberBand(RubberBand::ZoomBox);
  EndDrag();
  return true;
}

void EditTools::EndDrag() {
  FollowTimer.stop();
  Dragged.reset();
  Rectangle = Moved = Copies = false;
  Frame.ReleaseCommands();
  Graph.ShowDrawing();
}

bool EditTools::Key(const QKeyEvent& key) {
  if (Dragged) return KeyOfDrag(key);
  return CurrentMouseMode() == MouseMode::SelectAndMove && KeyOfSelection(key);
}

bool EditTools::KeyOfDrag(const QKeyEvent& key) {
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
    Finish();
    return true;
  }
  const auto characters = key.text().toUcs4();
  const bool back = key.key() == Qt::Key_Backspace;
  if (!back && characters.isEmpty()) return true;
  if (!Dragged->Type(back ? BackspaceCode : static_cast<char32_t>(characters.first()))) return true;
  Moved = true;
  Frame.FollowDrag();
  ShowHint(Dragged->Text());
  return true;
}

bool EditTools::KeyOfSelection(const QKeyEvent& key) {
  const bool control = key.modifiers().testFlag(Qt::ControlModifier);
  const bool fine = key.modifiers().testFlag(Qt::ShiftModifier);
  const bool any = !NodesOf(TheDisplay.Selected).empty();
  switch (key.key()) {
  case Qt::Key_A:
    if (!control) return false;
    SelectEverything(TheDisplay.Selected);
    break;
  case Qt::Key_PageDown: SelectNextNode(TheDisplay.Selected, 1, control); break;
  case Qt::Key_PageUp: SelectNextNode(TheDisplay.Selected, -1, control); break;
  case Qt::Key_Left: return any && (Nudge(-1, 0, fine), true);
  case Qt::Key_Right: return any && (Nudge(1, 0, fine), true);
  case Qt::Key_Up: return any && (Nudge(0, 1, fine), true);
  case Qt::Key_Down: return any && (Nudge(0, -1, fine), true);
  default: return false;
  }
  Frame.RedrawWhatCanBeDrawn(false);
  return true;
}

/// Without a grid a step is a metre.
void EditTools::Nudge(int right, int up, bool fine) {
  const auto step = [fine](float spacing) {
    return (fine ? FineStep : 1) * (spacing > 0 ? static_cast<double>(spacing) : 1);
  };
  CellEdits edits;
  const std::string refusal =
      MoveNodesBy(NodesOf(TheDisplay.Selected), right * step(GridSpacingX), up * step(GridSpacingY), edits);
  if (!refusal.empty()) return ShowHint(refusal);
  edits.PutBack();
  Frame.Edit("Move Nodes", [&edits] {
    edits.PutAgain();
    AfterModelEdit();
  });
}

} // namespace strutwright
