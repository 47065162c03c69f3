#pragma once

#include "Grid.h"

#include <functional>

#include <QAbstractTableModel>
#include <QRect>

namespace strutwright {

/// A Grid as Qt's views see it: row 0 and column 0 are the headers, every other cell is a cell of the model, one less
/// in both numbers.  It keeps no text; it passes the grid's change notices on, those of texts when the program next
/// waits for events, all at once: headers measure themselves anew at each.
class GridModel : public QAbstractTableModel {
 public:
  /// grid: must outlive the model, which becomes its one listener.
  explicit GridModel(Grid& grid, QObject* parent = nullptr);
  ~GridModel() override;

  Grid& Data() const { return TheGrid; }

  /// Called after the grid's current cell, selection or display properties have changed.
  void SetSelectionNotice(std::function<void()> listener) { SelectionListener = std::move(listener); }

  /// True while a change of the grid is on its way to the views: what they select by themselves meanwhile, because
  /// rows come or go, is not what the user has selected.
  bool IsTakingChange() const { return Taking; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 protected:
  void customEvent(QEvent* event) override;

 private:
  void TakeChange(const GridChange& change);
  void TakeLayout();
  void TakeRowCount(int rows);
  void TakeColumnCount(int columns);
  void TakeCell(int row, int column);
  void ReportChanges();

  Grid& TheGrid;
  int Rows = 0; ///< data rows and columns as the views know them
  int Columns = 0;
  QRect Changed; ///< of the grid's cells, what has not been reported to the views
  bool Taking = false;
  std::function<void()> SelectionListener;
};

} // namespace strutwright
