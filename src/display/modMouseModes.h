#pragma once

#include "MouseState.h"

#include <string>

namespace strutwright {

enum class MouseMode {
  None,
  Pan,
  DrawNode,
  DrawMember,
  SelectMember,
  SelectNode,
  Delete,
  Supports,
  Loads,
  SelectAndMove
};

/// The commands that choose a mode.  Sets the mode's flag and clears the others, the armed zoom among them; ends a
/// drag and forgets a half drawn member, whose highlight goes with it.  Leaving pan mode restores the pointer.
void SetMouseMode(MouseMode mode);

/// The command for a zoom rectangle: the next left press starts it.  The mode stays and resumes after it.
void ArmZoom();

/// Back to the plain mouse, without a mode, an armed zoom, a drag or half a member.
void ClearModes();

/// To be called when the pop-up menu that a right press asked for has closed: clears the modes, unless one of the
/// commands above was chosen meanwhile.
void PopUpClosed();

MouseMode CurrentMouseMode();

/// The text of the mouse panel, such as "Draw Node"; "Zoom Mode" while the zoom is armed.
std::string MouseModeText();

/// The pointer that fits the mode while the mouse moves.
MouseCursor CursorForMode();

/// The text of the coordinates panel for a point of the surface, whose y points down: "x: 1.50   y: -2.00".
std::string CoordinatesText(float X, float Y);

/// The text of the analysis panel: "Analysis Done" or "No Analysis".
std::string AnalysisText();

/// Ends panning or drawing a zoom rectangle, which is erased.  Nothing happens without either.
void EndDrag();

/// Forgets the nodes picked for a member, and the line that follows the mouse.
void ForgetPicks();

} // namespace strutwright
