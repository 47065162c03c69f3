#include "modMouseEvents.h"

#include "DisplayState.h"
#include "modDrawing.h"
#include "modMarks.h"
#include "modModelStore.h"
#include "modMouseModes.h"
#include "modPicking.h"
#include "modRubberBands.h"
#include "modViewTransform.h"

#include <cmath>

namespace strutwright {

namespace {

constexpr double WheelStep = 1.25;
constexpr double MarkSize = 4; // pixels from the middle to a side

bool Counts(const MouseEvent& event) {
  return DisplaySurface != nullptr && std::isfinite(event.x) && std::isfinite(event.y);
}

bool IsDragging() { return TheMouse.Panning || TheMouse.ZoomDragging; }

bool DragButtonIsHeld(const MouseEvent& event) {
  return TheMouse.DragButton == MouseButton::Middle ? event.middleHeld : event.leftHeld;
}

void StartDrag(bool& drag, MouseButton button) {
  drag = true;
  TheMouse.DragButton = button;
}

// Picking: what was found is highlighted.

int PickNode(WorldPoint point) {
  const int n = FindNode(point.x, point.y);
  if (n != 0) TryDrawing([n] { MarkNode(*DisplaySurface, n, Orange, TheDisplay.Style); });
  return n;
}

int PickMember(WorldPoint point) {
  const int m = FindMember(point.x, point.y);
  if (m != 0) TryDrawing([m] { MarkMember(*DisplaySurface, m, Orange, TheDisplay.Style); });
  return m;
}

MouseVerdict At(MouseAction action, WorldPoint point) { return {.action = action, .x = point.x, .y = point.y}; }

MouseVerdict InspectMember(WorldPoint point) {
  const int m = PickMember(point);
  return m == 0 ? At(MouseAction::MemberNotFound, point) : MouseVerdict{MouseAction::InspectMember, m};
}

MouseVerdict InspectNode(WorldPoint point) {
  const int n = PickNode(point);
  return n == 0 ? At(MouseAction::OfferNode, point) : MouseVerdict{MouseAction::InspectNode, n};
}

MouseVerdict DeleteNodeOrMember(WorldPoint point) {
  if (const int n = PickNode(point); n != 0) return {MouseAction::DeleteNode, n};
  if (const int m = PickMember(point); m != 0) return {MouseAction::DeleteMember, m};
  return At(MouseAction::MemberNotFound, point);
}

MouseVerdict AddSnappedNode(WorldPoint point) {
  if (!IsSnapped(point.x, point.y)) return {};
  return At(MouseAction::AddNode, NearestGridPoint(point.x, point.y));
}

// Drawing a member.

/// Between its two picks the model may become another one.
bool FirstNodeStands() {
  const int n = TheMouse.FirstNode;
  return n >= 1 && n <= NodeCount && NodeTable(n, NodeX) == TheMouse.FirstX && NodeTable(n, NodeY) == TheMouse.FirstY;
}

MouseVerdict TakePick(int n) {
  if (TheMouse.PickCount > 0 && FirstNodeStands()) {
    const int start = TheMouse.FirstNode;
    ForgetPicks();
    return {MouseAction::AddMember, start, n};
  }
  ForgetPicks();
  TheMouse.PickCount = 1;
  TheMouse.FirstNode = n;
  TheMouse.FirstX = NodeTable(n, NodeX);
  TheMouse.FirstY = NodeTable(n, NodeY);
  return {MouseAction::NodePicked, n};
}

/// The line goes first: a highlight drawn over it would be inverted where they cross.
MouseVerdict PickMemberNode(WorldPoint point) {
  HideRubberBand(RubberBand::MemberLine);
  const int n = PickNode(point);
  return n == 0 ? At(MouseAction::OfferNode, point) : TakePick(n);
}

// What follows the mouse.

void FollowWithMember(const MouseEvent& event) {
  if (TheMouse.PickCount == 0) return;
  if (!FirstNodeStands()) return ForgetPicks();
  ShowRubberBand(RubberBand::MemberLine, {TheMouse.FirstX, -TheMouse.FirstY, event.x, event.y});
}

void FollowWithMark(const MouseEvent& event) {
  const WorldPoint point{event.x, -event.y};
  if (TheMouse.ZoomArmed || TheMouse.ZoomDragging || !IsSnapped(point.x, point.y)) {
    return HideRubberBand(RubberBand::SnapMark);
  }
  const WorldPoint node = NearestGridPoint(point.x, point.y);
  const double across = MarkSize * DisplaySurface->Window().width / DisplaySurface->PixelWidth();
  const double down = MarkSize * DisplaySurface->Window().height / DisplaySurface->PixelHeight();
  ShowRubberBand(RubberBand::SnapMark, {node.x - across, -node.y - down, node.x + across, -node.y + down});
}

MouseVerdict Pan(const MouseEvent& event) {
  if (event.x == TheMouse.PressX && event.y == TheMouse.PressY) return {};
  PanWindow(*DisplaySurface, TheMouse.PressX, TheMouse.PressY, event.x, event.y);
  return {MouseAction::Redraw};
}

// Presses.

void KeepPress(const MouseEvent& event) {
  TheMouse.PressX = event.x;
  TheMouse.PressY = event.y;
}

MouseVerdict PressRight(const MouseEvent& event) {
  EndDrag();
  KeepPress(event);
  if (TheMouse.PanMode || TheMouse.DeleteMode) TheMouse.Cursor = MouseCursor::Default;
  if (DrawMemberMode && TheMouse.PickCount >= 2) {
    ForgetPicks();
    return {};
  }
  TheMouse.ModeChosen = false;
  return {MouseAction::ShowPopUp};
}

/// Only modes that the left button alone serves.
MouseVerdict PressLeft(WorldPoint point) {
  if (TheMouse.PanMode) StartDrag(TheMouse.Panning, MouseButton::Left);
  if (TheMouse.SelectMemberMode) return InspectMember(point);
  if (TheMouse.SelectNodeMode) return InspectNode(point);
  if (TheMouse.DeleteMode) return DeleteNodeOrMember(point);
  return {};
}

} // namespace

MouseVerdict MouseMove(const MouseEvent& event) {
  if (!Counts(event)) return {};
  if (IsDragging() && !DragButtonIsHeld(event)) EndDrag(); // the release went elsewhere
  TheMouse.Cursor = CursorForMode();
  if (TheMouse.Panning) return Pan(event);
  if (TheMouse.ZoomDragging) {
    ShowRubberBand(RubberBand::ZoomBox, {TheMouse.PressX, TheMouse.PressY, event.x, event.y});
  }
  if (DrawMemberMode) FollowWithMember(event);
  if (DrawNodeMode) FollowWithMark(event);
  return {};
}

MouseVerdict MousePress(const MouseEvent& event) {
  if (!Counts(event) || event.button == MouseButton::None) return {};
  if (event.button == MouseButton::Right) return PressRight(event);
  if (IsDragging()) return {};
  KeepPress(event);
  const WorldPoint point{event.x, -event.y};
  if (event.button == MouseButton::Left && TheMouse.ZoomArmed) {
    TheMouse.ZoomArmed = false;
    StartDrag(TheMouse.ZoomDragging, MouseButton::Left);
    return {};
  }
  if (DrawNodeMode) return AddSnappedNode(point);
  if (DrawMemberMode) return PickMemberNode(point);
  if (event.button == MouseButton::Left) return PressLeft(point);
  StartDrag(TheMouse.Panning, MouseButton::Middle);
  return {};
}

MouseVerdict MouseRelease(const MouseEvent& event) {
  if (DisplaySurface == nullptr) return {};
  TryDrawing([] { DisplaySurface->SetPenMode(PenMode::Copy); });
  if (!IsDragging() || event.button != TheMouse.DragButton) return {};
  const bool zooms = TheMouse.ZoomDragging;
  EndDrag();
  if (!zooms || !Counts(event)) return {};
  const bool isSet = ZoomToRectangle(*DisplaySurface, TheMouse.PressX, TheMouse.PressY, event.x, event.y);
  return {isSet ? MouseAction::Redraw : MouseAction::None};
}

void MouseLeave() { HideRubberBand(RubberBand::SnapMark); }

MouseVerdict MouseWheel(const MouseEvent& event, double steps) {
  if (!Counts(event)) return {};
  const bool isSet = ZoomAbout(*DisplaySurface, event.x, event.y, std::pow(WheelStep, -steps));
  return {isSet ? MouseAction::Redraw : MouseAction::None};
}

MouseVerdict NodeWasAdded(int n) {
  if (DisplaySurface == nullptr || !DrawMemberMode || n < 1 || n > NodeCount) return {};
  TryDrawing([n] { MarkNode(*DisplaySurface, n, Orange, TheDisplay.Style); });
  return TakePick(n);
}

} // namespace strutwright
