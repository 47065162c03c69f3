#pragma once

#include <functional>

#include <QSplitter>

namespace strutwright {

class WorkingPane;

/// The grids of the equations window and the pane with the working: side by side where the window is wide, one below
/// the other where it is high, and otherwise one in place of the other.  How they share their room is kept in
/// TheWorkingPlace, for each way by itself; until the user has moved the bar, the grids get the width that they need.
class WorkingSplit : public QSplitter {
 public:
  WorkingSplit(QWidget* grids, WorkingPane* pane, QWidget* parent);

  /// Opens or closes the pane.
  void ShowPane(bool on);

  /// Where there is no room for both: whether the pane is shown, or the grids.
  void PreferPane(bool pane);

  /// The width in which no column of the grids is out of sight.
  void FitGrids(int width);

  bool HasRoomForBoth() const;

  /// Called when that has changed.
  void SetNotice(std::function<void()> listener) { Listener = std::move(listener); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowWhatHasRoom();
  void TakeShares();
  void KeepShares();

  QWidget* Grids;
  WorkingPane* Pane;
  bool PrefersPane = false;
  int FittingWidth = 0; ///< of the grids, pixels
  std::function<void()> Listener;
};

} // namespace strutwright
