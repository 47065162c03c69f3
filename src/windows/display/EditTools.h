#pragma once

#include "modDrags.h"
#include "modMouseEvents.h"

#include <memory>

#include <QTimer>

class QKeyEvent;

namespace strutwright {

class CommandFrame;
class frmGraph;

/// The mouse modes that edit where one looks: Supports, Loads, Select and Move.  While something is dragged, commands
/// wait for its end.
class EditTools {
 public:
  EditTools(CommandFrame& frame, frmGraph& graph);

  // Each returns whether the event was theirs.
  bool Press(const MouseEvent& event);
  bool Move(const MouseEvent& event);
  bool Release(const MouseEvent& event);
  bool Key(const QKeyEvent& key);

  /// Something follows the mouse, or a press may become a drag.
  bool IsDragging() const { return Dragged != nullptr; }

  /// Ends a drag where it is.
  void Finish();

  /// Puts back what is dragged; returns whether anything was.
  bool Cancel();

 private:
  bool PressForSupport(WorldPoint point);
  bool PressForLoad(WorldPoint point);
  bool PressToSelect(const MouseEvent& event);
  void Take(std::unique_ptr<Drag> drag);
  void Follow();
  void StartCopy();
  void EndDrag();
  void SelectRectangle(const MouseEvent& event);
  bool KeyOfDrag(const QKeyEvent& key);
  bool KeyOfSelection(const QKeyEvent& key);
  void Nudge(int right, int up, bool fine);
  double MetresAPixel() const;

  CommandFrame& Frame;
  frmGraph& Graph;
  std::unique_ptr<Drag> Dragged; ///< nullptr while nothing is
  bool Moved = false;            ///< since the press, by more than a tremble
  bool Copies = false;           ///< the drag copies what is selected
  bool Toggles = false;          ///< a press that becomes no drag takes something out of the selection
  WorldPoint PressPoint;
  WorldPoint Point; ///< where the pointer is
  bool Free = false;
  bool Rectangle = false; ///< a rectangle of the selection is being drawn
  QTimer FollowTimer;     ///< of several moves in a row only the last is followed
};

} // namespace strutwright
