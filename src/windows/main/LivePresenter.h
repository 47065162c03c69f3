#pragma once

#include <QTimer>

namespace strutwright {

class BoardController;
class CheckPresenter;
class MainStatusBar;
class frmMain;

/// Live analysis in the main frame: after each command that has changed the model, and while a drag changes it, the
/// results, the check, the drawing and the stiffness equations follow.
class LivePresenter {
 public:
  LivePresenter(frmMain& frame, BoardController& board, CheckPresenter& check, MainStatusBar& status);

  /// Switches it on or off.  Boxes of results that are all unticked are ticked then: there would be nothing to see.
  void Switch(bool on);

  /// Analyses the model where it is another one than was analysed last.  Does nothing while live analysis is off.
  void Follow();

  /// The same in the middle of a drag, which has changed the grids.
  void FollowDrag();

  /// The model has become another one: where live analysis had paused, it goes on.
  void Resume();

  /// Shows in the status bar whether it is on.
  void ShowState();

 private:
  void Analyse();
  void SayThatItPauses();
  void Judge();

  frmMain& Frame;
  BoardController& Board;
  CheckPresenter& Check;
  MainStatusBar& Status;
  QTimer CheckTimer;    ///< runs where the check waits for the last of several events
  double CheckTime = 0; ///< ms that the last one took
  bool Analysing = false;
};

} // namespace strutwright
