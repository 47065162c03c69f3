#pragma once

#include "ModelAsEntered.h"
#include "modCheck.h"

#include <cstddef>
#include <vector>

class QPoint;

namespace strutwright {

class ControlBoard;
class MainStatusBar;
class frmCheck;
class frmMain;

/// Shows the check of the answer in the main frame: its words in the status bar, its window, and the parts of the
/// truss that a line of it is about, highlighted in the drawing and selected in the grids.
class CheckPresenter {
 public:
  CheckPresenter(frmMain& frame, ControlBoard& board, MainStatusBar& status)
      : Frame(frame), Board(board), Status(status) {}

  /// Runs an analysis, which the check waits for, and then judges its answer.
  template <class Work>
  void JudgeAfter(const Work& analyse) {
    Begin();
    try {
      analyse();
    } catch (...) {
      End();
      Follow(); // without results
      throw;
    }
    End();
    Judge();
  }

  /// Judges the results of live analysis.  Of a mechanism the first motion is shown.
  void JudgeQuietly();

  /// Shows no mechanism any more, unless the check window does.
  void HideMotion();

  /// Judges no longer what has been judged once the model is another one.
  void Follow();

  /// The results end.
  void Drop();

  void ShowStatus();

  /// Opens the check window, at first at this place, or brings it to the front, on the model as it stands in the grids.
  void Open(const QPoint& place);

  /// Highlights these nodes and members, and selects their rows in the grids, of which one that has such rows is shown.
  void ShowParts(const std::vector<int>& nodes, const std::vector<int>& members);

  /// Highlights these parts no longer; what is selected stays.
  void ShowNoParts();

  /// Highlights the member that the stiffness equations have just added too, until the model changes or is analysed;
  /// 0: none.
  void ShowAddedMember(int m);

  bool HasHighlight() const { return AddedMember != 0 || !Nodes.empty() || !Members.empty(); }

  /// What the control board's E and A can do for members without rigidity, and doing it.
  RigidityOffer RigidityOnBoard() const;
  void FillInRigidity();

  /// Shows the offer in the check window, where it is open.
  void ShowRigidityOffer();

  /// The frame closes, and the check window with it.
  void CloseWindow();

  /// Draws the highlight, and the mechanism that is shown, over the truss.
  void Draw();

 private:
  void Begin();
  void End() { Analysing = false; }
  void Judge();
  void ShowGridOf(std::size_t kind);

  frmMain& Frame;
  ControlBoard& Board;
  MainStatusBar& Status;
  frmCheck* Window = nullptr; ///< nullptr until it is first asked for
  std::vector<int> Nodes;     ///< highlighted until the model is edited
  std::vector<int> Members;
  int AddedMember = 0;    ///< highlighted too; 0 for none
  ModelAsEntered AddedIn; ///< the model that this member belongs to
  bool Analysing = false; ///< the check waits for what the analysis comes to
};

} // namespace strutwright
