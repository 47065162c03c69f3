#pragma once

#include "MouseState.h"

namespace strutwright {

/// An event of the mouse over the drawing.
struct MouseEvent {
  float x = 0; ///< in surface coordinates of the window as it is now
  float y = 0;
  MouseButton button = MouseButton::None; ///< the one that was pressed or released
  bool leftHeld = false;                  ///< what is held after the event
  bool middleHeld = false;
  bool control = false; ///< the key, while it happens
  bool shift = false;
};

/// What is to be done after an event.
enum class MouseAction {
  None,
  Redraw,         ///< the window has moved: draw again and keep the view
  ShowPopUp,      ///< show the pop-up menu, then call PopUpClosed
  InspectNode,    ///< open the inspector of node `number`
  InspectMember,  ///< open the inspector of member `number`
  OfferNode,      ///< ask NodeNotFoundText(x, y); on Yes add a node at NearestGridPoint(x, y), then call NodeWasAdded
  MemberNotFound, ///< show MemberNotFoundText(x, y)
  DeleteNode,     ///< delete node `number`, after its question
  DeleteMember,   ///< delete member `number`, after its question
  AddNode,        ///< add a node at (x, y)
  NodePicked,     ///< node `number` is the start of a member; nothing to do
  AddMember,      ///< add a member from node `number` to node `endNode`
};

/// What an event has come to.  Points are world points in m, y upwards.
struct MouseVerdict {
  MouseAction action = MouseAction::None;
  int number = 0;
  int endNode = 0;
  float x = 0;
  float y = 0;

  bool operator==(const MouseVerdict&) const = default;
};

// The events change the mouse's state and what follows the mouse on DisplaySurface, and highlight what was picked.
// They open nothing and change no model: that is for whoever acts on the verdict, who afterwards shows
// MouseModeText and TheMouse.Cursor.  A position that is no number, and a missing surface, make an event count for
// nothing.

MouseVerdict MouseMove(const MouseEvent& event);
MouseVerdict MousePress(const MouseEvent& event);
MouseVerdict MouseRelease(const MouseEvent& event);

/// The mouse has left the drawing.
void MouseLeave();

/// Turns of the wheel about the mouse: a step away from the user shows 1/1.25 of what was seen.
MouseVerdict MouseWheel(const MouseEvent& event, double steps);

/// Goes on after node n was added because it was offered: while a member is being drawn it counts as picked.
MouseVerdict NodeWasAdded(int n);

} // namespace strutwright
