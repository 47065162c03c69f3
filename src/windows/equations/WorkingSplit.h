#pragma once

#include <QSplitter>

namespace strutwright {

class WorkingPane;

/// The grids of the equations window and the pane with the working: side by side where the window is wide, otherwise
/// one below the other, and K alone where there is no room for both.  How they share their room is kept in
/// TheWorkingPlace, for each way by itself.
class WorkingSplit : public QSplitter {
 public:
  WorkingSplit(QWidget* grids, WorkingPane* pane, QWidget* parent);

  /// Opens or closes the pane.
  void ShowPane(bool on);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowWhereThereIsRoom();
  void TakeShares();
  void KeepShares();

  WorkingPane* Pane;
};

} // namespace strutwright
