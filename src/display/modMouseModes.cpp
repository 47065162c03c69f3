#include "modMouseModes.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "ViewEvents.h"
#include "modNumberText.h"
#include "modRubberBands.h"

#include <array>

namespace strutwright {

namespace {

struct ModeFlag {
  MouseMode mode;
  bool& isOn;
  const char* text;
};

/// The order is that in which the panel names them.
const std::array<ModeFlag, 9>& ModeFlags() {
  static const std::array<ModeFlag, 9> flags{{
      {MouseMode::Pan, TheMouse.PanMode, "Pan Mode"},
      {MouseMode::DrawNode, DrawNodeMode, "Draw Node"},
      {MouseMode::DrawMember, DrawMemberMode, "Draw Member"},
      {MouseMode::SelectMember, TheMouse.SelectMemberMode, "Select Member"},
      {MouseMode::SelectNode, TheMouse.SelectNodeMode, "Select Node"},
      {MouseMode::Delete, TheMouse.DeleteMode, "Delete Mode"},
      {MouseMode::Supports, TheMouse.SupportMode, "Supports"},
      {MouseMode::Loads, TheMouse.LoadMode, "Loads"},
      {MouseMode::SelectAndMove, TheMouse.MoveMode, "Select and Move"},
  }};
  return flags;
}

/// Its first node is still highlighted.
void DropHalfMember() {
  const bool isHalfDrawn = TheMouse.PickCount > 0;
  ForgetPicks();
  if (isHalfDrawn) ViewEvents().ViewChanged();
}

void DropSelection() {
  if (TheDisplay.Selected.IsEmpty()) return;
  TheDisplay.Selected.Clear();
  ViewEvents().ViewChanged();
}

} // namespace

void SetMouseMode(MouseMode mode) {
  if (TheMouse.PanMode) TheMouse.Cursor = MouseCursor::Default;
  TheMouse.ZoomArmed = false;
  for (const ModeFlag& flag : ModeFlags()) flag.isOn = flag.mode == mode;
  TheMouse.ModeChosen = true;
  EndDrag();
  HideRubberBands();
  if (mode != MouseMode::SelectAndMove) DropSelection();
  DropHalfMember();
}

void ArmZoom() {
  TheMouse.ZoomArmed = true;
  TheMouse.ModeChosen = true;
  HideRubberBand(RubberBand::SnapMark);
}

void ClearModes() {
  SetMouseMode(MouseMode::None);
  TheMouse.Cursor = MouseCursor::Default;
}

void PopUpClosed() {
  if (!TheMouse.ModeChosen) ClearModes();
}

MouseMode CurrentMouseMode() {
  for (const ModeFlag& flag : ModeFlags()) {
    if (flag.isOn) return flag.mode;
  }
  return MouseMode::None;
}

std::string MouseModeText() {
  if (TheMouse.ZoomArmed) return "Zoom Mode";
  for (const ModeFlag& flag : ModeFlags()) {
    if (flag.isOn) return flag.text;
  }
  return "Mouse Mode";
}

MouseCursor CursorForMode() {
  const bool zooms = TheMouse.ZoomArmed || TheMouse.ZoomDragging;
  if (TheMouse.Panning || (TheMouse.PanMode && !zooms)) return MouseCursor::Hand;
  return TheMouse.DeleteMode ? MouseCursor::UpArrow : MouseCursor::Default;
}

std::string CoordinatesText(float X, float Y) {
  return "x: " + FormatNumber(X, "0.00") + "   y: " + FormatNumber(-Y, "0.00");
}

std::string AnalysisText() { return AnalysisDone ? "Analysis Done" : "No Analysis"; }

void EndDrag() {
  TheMouse.Panning = TheMouse.ZoomDragging = false;
  TheMouse.DragButton = MouseButton::None;
  HideRubberBand(RubberBand::ZoomBox);
}

void ForgetPicks() {
  TheMouse.PickCount = 0;
  TheMouse.FirstNode = 0;
  HideRubberBand(RubberBand::MemberLine);
}

} // namespace strutwright
