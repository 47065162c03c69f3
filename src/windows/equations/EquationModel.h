#pragma once

#include "modEquationCells.h"

#include <QAbstractTableModel>
#include <QPalette>

namespace strutwright {

/// What cells with this tint stand on, in a desktop theme: a colour mixed so lightly into the theme's own that its
/// text stays legible on it.
QColor TintColour(CellTint tint, const QPalette& theme);

/// Of a zero among other numbers: it steps back behind them, and stays legible.
QColor ZeroColour(const QPalette& theme);

/// One grid of the equations view as Qt's views see it: row 0 and column 0 are the headers, every other cell is a cell
/// of the model, one less in both numbers.  It keeps no text: a cell is formatted when it is painted.
class EquationModel : public QAbstractTableModel {
 public:
  /// view: whose theme the tints are mixed with; must outlive the model.
  EquationModel(EquationGrid grid, const QWidget& view);

  EquationGrid Kind() const { return TheGrid; }

  /// Reports to the views that what is shown has changed.
  void Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// Keeps what was typed into a blank cell; judging it is another thing.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  bool IsZero(int row, int column) const;
  QVariant Value(int row, int column, int role) const;
  QVariant BlankValue(int row, int column, int role) const;
  QString Text(int row, int column) const;

  EquationGrid TheGrid;
  const QWidget& View;
  int Rows = 0; ///< data rows and columns as the views know them
  int Columns = 0;
};

} // namespace strutwright
