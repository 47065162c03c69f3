#pragma once

#include "DataGridView.h"
#include "modCellEditing.h"

#include <functional>

#include <QLineEdit>
#include <QPointer>

namespace strutwright {

/// The one text box in which the cells of all data grids are edited.  While an edit is pending it lies over the
/// current cell of its grid, whose name is in its property "tag".
class GridEditBox : public QLineEdit {
 public:
  explicit GridEditBox(QWidget* parent);

  /// Begins an edit of the view's current cell, after it has taken one that was pending.
  void Open(DataGridView& view, char32_t typed);

  /// Takes the text into the cell that the edit was begun on, and hides.  Nothing happens without a pending edit.
  void Commit();

  bool IsPending() const { return View != nullptr; }
  bool IsPendingIn(const DataGridView& view) const { return View == &view; }

  /// Lies over its cell again after a view has moved its cells; does nothing for a view without the pending edit.
  void Follow(const DataGridView& view);

  /// The same after a view has got another size, in which the cell may lie out of sight.
  void KeepInSight(DataGridView& view);

  /// How the text gets into its cell: called with the routine that puts it there, which returns whether the cell has
  /// changed.
  void SetCommitter(std::function<void(const std::function<bool()>&)> committer) { Committer = std::move(committer); }

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Cancel();
  void CommitAndMove(CellKey key);
  DataGridView* Close();

  QPointer<DataGridView> View; ///< where an edit is pending
  int Row = 0;                 ///< the cell that it was begun on; a click on a header moves the current one
  int Column = 0;
  std::function<void(const std::function<bool()>&)> Committer = [](const std::function<bool()>& take) { take(); };
};

} // namespace strutwright
