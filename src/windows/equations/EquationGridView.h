#pragma once

#include "EquationModel.h"
#include "Grid.h"

#include <functional>

#include <QTableView>

class QLabel;

namespace strutwright {

/// One grid of the equations view on screen; read-only.
class EquationGridView : public QTableView {
 public:
  EquationGridView(EquationGrid grid, const QString& name, QWidget* parent);

  EquationGrid Kind() const { return Model.Kind(); }

  /// Shows what the grid holds now; current cell and selection stay where the size is the same.
  void Refresh();

  /// The selected cells, in the grid's own numbers; nothing is selected when the block has no row.
  GridBlock SelectedBlock() const;

  /// Called when the current cell has changed, or the keyboard has come to this grid.
  void SetNotice(std::function<void()> listener) { Listener = std::move(listener); }

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void updateGeometries() override;

 private:
  void LayOut();
  void LayOutVector();
  void FitColumns();

  EquationModel Model;
  QLabel* Corner = nullptr; ///< shows the text of cell (0, 0)
  std::function<void()> Listener;
};

} // namespace strutwright
