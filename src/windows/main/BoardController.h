#pragma once

#include <functional>

#include <QTimer>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace strutwright {

class ControlBoard;
class Grid;
class GridCommands;
class frmMain;

/// Which results are shown.
struct ResultTicks {
  bool reactions = false;
  bool memberForces = false;
  bool deflectedShape = false;
};

/// What the controls of the control board do: grids and edits of their cells, panels for data entry, display switches,
/// scales and the animation.
class BoardController {
 public:
  BoardController(frmMain& frame, ControlBoard& board, GridCommands& grids);

  /// Sets the three flags of the results and their boxes, without the clicks and so without a drawing for each.
  void TickResultSwitches(bool ticked) { TickResults({ticked, ticked, ticked}); }
  void TickResults(const ResultTicks& ticks);

  ResultTicks TickedResults() const;

  /// Sets the flags of the results to what their boxes say, or to nothing without results; the boxes stay.
  void ShowTickedResults();

  /// Ticks the boxes of the results where none is ticked.
  void TickResultsForLive();

  /// The scales as at start.
  void ResetScales();

  /// Changes between the described and the clear drawing.
  void SwitchStyle();

  /// Sets the forces scale so that the longest arrow is about a sixth of the truss.
  void FitArrows();

  /// Starts the animation of the deflected shape; nothing happens without results.
  void Animate();

  void StopClock() { Timer1.stop(); }

 private:
  struct List {
    QPushButton* button;
    QString what;
    QLineEdit* numbers;
    Grid* grid;
    QLineEdit* value1;
    QLineEdit* value2;
    int column;
  };

  void ConnectGrids(GridCommands& grids);
  void ConnectLine();
  void ConnectList(const List& list);
  void ConnectSwitches();
  void ConnectResultSwitch(QCheckBox* box, bool& flag, bool& guard);
  void ConnectStyle();
  void ShowStyle();
  void ConnectScales();
  void ShowScales();
  void StartClock();
  void TakeCell(const std::function<bool()>& take);
  void ClickResultSwitch(QCheckBox& box, bool& flag, bool& guard);
  void stepDeflectionScale(bool up);
  void stepLoadsScale(bool up);
  void Tick();

  frmMain& Frame;
  ControlBoard& Board;
  QTimer Timer1;
  bool reactionsGuard = false; ///< the next click of the box is the program's own
  bool forcesGuard = false;
  bool deflectedGuard = false;
};

} // namespace strutwright
