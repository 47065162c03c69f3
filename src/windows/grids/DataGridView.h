#pragma once

#include "GridModel.h"

#include <functional>
#include <optional>

#include <QTableView>

class QLabel;

namespace strutwright {

class GridEditBox;

/// A Grid on screen: its headers are the view's headers, its current cell and selection the view's.
/// Read-only until it is given an edit box.
class DataGridView : public QTableView {
 public:
  /// name: the control's name and its name for people, where they differ.
  DataGridView(Grid& grid, const QString& name, QWidget* parent = nullptr);

  Grid& Data() const { return Model.Data(); }

  /// Where the current cell stands in the viewport, scrolled into sight.
  QRect CurrentCellRect();

  /// Lets the user edit cells: a double-click or a typed character opens the box over the current cell, and what it
  /// holds is taken when this view receives the focus.
  void SetEditBox(GridEditBox& box) { EditBox = &box; }

  /// What the grid says in grey as long as none of its data cells holds a text.
  void SetEmptyHint(const QString& hint) { EmptyHint = hint; }

  /// The rows that the user has chosen: by a header, as a range, by a click.  Nothing where the program has selected
  /// them, or where keys or an entry have moved the current cell and nothing more.
  std::optional<GridBlock> ChosenRows() const { return Chosen; }

  /// Selects a whole row, as if the user had clicked on its header.  row: of the grid, 1..RowCount() - 1.
  void ChooseRow(int row);

  /// The user has chosen what is selected now.
  void ChooseSelection();

  /// Called when the user chooses rows, and when they are no longer chosen.
  void SetRowsNotice(std::function<void()> listener) { RowsListener = std::move(listener); }

  /// Called with a global position when the user asks for the grid's menu.
  void SetMenuNotice(std::function<void(const QPoint&)> listener) { MenuListener = std::move(listener); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void updateGeometries() override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void dataChanged(const QModelIndex& first, const QModelIndex& last, const QVector<int>& roles) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void LayOut();
  void OpenEditBox(char32_t typed);
  void CommitPendingEdit();
  void PassToEditBox(QKeyEvent& event);
  void PaintEmptyHint();
  void ShowSelection();
  void TakeSelection();
  void DropChoice();

  GridModel Model;
  QLabel* Corner = nullptr; ///< shows the text of cell (0, 0)
  GridEditBox* EditBox = nullptr;
  QString EmptyHint;
  bool ShowsHint = false; ///< as it was painted last
  std::function<void(const QPoint&)> MenuListener;
  std::function<void()> RowsListener;
  std::optional<GridBlock> Chosen; ///< what the user has chosen, as long as it is selected
  bool Synchronising = false;
  bool PassingKey = false;
};

} // namespace strutwright
