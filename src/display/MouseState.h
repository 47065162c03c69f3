#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace strutwright {

enum class MouseButton { None, Left, Right, Middle };

/// The pointer over the drawing.
enum class MouseCursor { Default, Hand, UpArrow };

/// What a click of the mode Loads gives a node.
enum class LoadSymbol { Down, Up, Left, Right, None };

/// Two corners or two ends, in surface coordinates.
struct RubberShape {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;

  bool operator==(const RubberShape&) const = default;
};

/// What the mouse does in the display and what it is in the middle of.  Of the modes, DrawNodeMode and DrawMemberMode
/// among them, at most one is on; an armed zoom leaves the mode alone.
struct MouseState {
  bool PanMode = false;          ///< dragging moves the view
  bool SelectMemberMode = false; ///< a click opens the member inspector
  bool SelectNodeMode = false;   ///< a click opens the node inspector
  bool DeleteMode = false;       ///< a click deletes a node, or else a member
  bool SupportMode = false;      ///< a click gives a node the support of SupportSymbol
  bool LoadMode = false;         ///< a click loads a node, a drag changes a load
  bool MoveMode = false;         ///< selects nodes and members, and drags them
  bool ZoomArmed = false;        ///< the next left press starts a zoom rectangle

  bool ZoomDragging = false; ///< a zoom rectangle is being drawn
  bool Panning = false;      ///< the view is being moved
  MouseButton DragButton = MouseButton::None;
  float PressX = 0; ///< where a button was pressed last, in surface coordinates
  float PressY = 0;

  std::int16_t PickCount = 0; ///< nodes picked for the member being drawn
  int FirstNode = 0;          ///< the first of them, and where it lay, in m
  float FirstX = 0;
  float FirstY = 0;

  int SupportSymbol = 3; ///< code, as in NodeSupport
  LoadSymbol ClickedLoad = LoadSymbol::Down;

  MouseCursor Cursor = MouseCursor::Default;
  bool ModeChosen = false; ///< since the pop-up menu was asked for

  std::array<std::optional<RubberShape>, 3> RubberBands; ///< on the surface now, by RubberBand
};

} // namespace strutwright
