#pragma once

namespace strutwright {

class ControlBoard;
class MainStatusBar;
class frmMain;

/// Adds what the mouse draws to the model as it stands in the grids, and draws it.
class DrawingCommands {
 public:
  DrawingCommands(frmMain& frame, const ControlBoard& board, MainStatusBar& status)
      : Frame(frame), Board(board), Status(status) {}

  /// At (x, y), in m.
  void DrawNode(float x, float y);

  /// Between two nodes; with the control board's E and A where the user wants that.
  void DrawMember(int i, int j);

  /// After a member was drawn without E and A: offers to give new members those of the control board.
  void OfferRigidity();

 private:
  void TakeRigidityFromBoard();

  frmMain& Frame;
  const ControlBoard& Board;
  MainStatusBar& Status;
};

} // namespace strutwright
