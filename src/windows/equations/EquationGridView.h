#pragma once

#include "EquationModel.h"
#include "Grid.h"

#include <functional>

#include <QTableView>

class QLabel;

namespace strutwright {

/// What follows after something was typed into a blank cell.
enum class AnswerMove {
  Judge,   ///< Enter: it is judged
  Next,    ///< Tab: the next blank cell has its turn
  Previous ///< Shift+Tab: the one before
};

/// One grid of the equations view on screen; only what Try It leaves blank can be typed.
class EquationGridView : public QTableView {
 public:
  EquationGridView(EquationGrid grid, const QString& name, QWidget* parent);

  EquationGrid Kind() const { return Model.Kind(); }

  /// Shows what the grid holds now; current cell and selection stay where the size is the same.
  void Refresh();

  /// Has the keyboard type into a blank cell; row and column are the grid's own.
  void Ask(int row, int column);

  /// How wide it is with all of its columns.
  int FittingWidth() const;

  void SetHeaderLines(int lines);

  /// The selected cells, in the grid's own numbers; nothing is selected when the block has no row.
  GridBlock SelectedBlock() const;

  /// Called when the current cell has changed, or the keyboard has come to this grid.
  void SetNotice(std::function<void()> listener) { Listener = std::move(listener); }

  /// Called when a key has ended the typing into a blank cell; what was typed has been kept by then.
  void SetAnswerer(std::function<void(AnswerMove)> answerer) { Answerer = std::move(answerer); }

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void updateGeometries() override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
  void LayOut();
  void LayOutVector();
  void FitVector();
  void FitColumns();

  EquationModel Model;
  QLabel* Corner = nullptr; ///< shows the text of cell (0, 0)
  std::function<void()> Listener;
  std::function<void(AnswerMove)> Answerer;
};

} // namespace strutwright
