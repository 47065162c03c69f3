#pragma once

#include "modPointing.h"

#include <functional>
#include <string>
#include <vector>

#include <QMainWindow>

class QUndoStack;

namespace strutwright {

class Progress;

/// The main frame as the other windows know it: it runs their commands, and shows in the drawing what they are about.
class CommandFrame : public QMainWindow {
 public:
  /// Runs a command inside the guard, after it has taken a pending edit of a cell.
  virtual void Run(const std::function<void()>& command) = 0;

  /// Runs a command that may change the model, as one step that can be undone.
  /// what: its name, as in "Undo Paste".
  virtual void Edit(const QString& what, const std::function<void()>& command) = 0;

  /// The steps that changed the model, so that it can be known when it changes.
  virtual const QUndoStack& EditSteps() const = 0;

  virtual void CommitPendingEdit() = 0;

  /// What Tab and Shift+Tab do: gives the keyboard to the next or previous control of the whole frame, wherever it is.
  bool MoveFocus(bool next) { return focusNextPrevChild(next); }

  /// What the user calls the model: its file's name, or what the title says in its place.
  virtual std::string ModelName() const = 0;

  /// Long work shows its progress.
  virtual bool IsWorking() const = 0;
  virtual bool IsEnding() const = 0;

  /// Shows the progress of long work in another place from now on; in the status bar again for nullptr.
  virtual void ShowProgressIn(Progress* place) = 0;

  /// While something is dragged, commands wait for its end.
  virtual void HoldCommands() = 0;
  virtual void ReleaseCommands() = 0;

  /// The grids have changed in the middle of a drag.  Live analysis follows at once; without it the results end.
  virtual void FollowDrag() = 0;

  /// The grids hold again what they held before the drag, and the results that it ended hold again.
  virtual void TakeBackDrag() = 0;

  /// Draws the truss, unless long work is changing the results.  zoomToExtents: frame the whole model first.
  virtual void Redraw(bool zoomToExtents) = 0;

  /// Draws the truss again; what can't be drawn is said in the status bar and not in a box.
  virtual void RedrawWhatCanBeDrawn(bool zoomToExtents) = 0;

  /// Draws the truss with member m, which the stiffness equations have just added, highlighted until the model changes
  /// or is analysed; 0: without that highlight.
  virtual void ShowAddedMember(int m) = 0;

  /// Draws the truss with these nodes and members highlighted until the model is edited, and selects their rows in the
  /// grids, of which one that has such rows is shown.  What the model does not have is passed over.
  virtual void ShowParts(const std::vector<int>& nodes, const std::vector<int>& members) = 0;

  /// Draws the truss without what ShowParts has highlighted; what is selected stays.
  virtual void ShowNoParts() = 0;

  /// Marks nodes and members over the drawing, those and no others.
  virtual void MarkElements(std::vector<Element> elements) = 0;

  /// Chooses the row of an element in the grid that is shown, if that has such rows.
  /// Where the stiffness equations ask about it, that question has its turn.
  virtual void ChooseRowOf(Element element) = 0;

  /// The nodes and members that were selected or walked to have other numbers now, or none.
  virtual void ForgetParts() = 0;

  /// Add a node or a member to the model as it stands in the grids, and draw it.
  virtual void DrawNode(float x, float y) = 0;
  virtual void DrawMember(int i, int j) = 0;

  /// After a member was drawn without E and A: offers to give new members those of the control board.
  virtual void OfferRigidityOnDrawing() = 0;

  /// Brings the truss display to the front.
  virtual void ActivateDisplay() = 0;

  /// Opens the hand methods on the joint of a node.
  virtual void ShowJointByHand(int node) = 0;
};

} // namespace strutwright
