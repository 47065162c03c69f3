#include "GridModel.h"

namespace strutwright {

GridModel::GridModel(Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), TheGrid(grid), Rows(grid.RowCount() - 1), Columns(grid.ColumnCount() - 1) {
  TheGrid.SetChangeNotice([this](const GridChange& change) { TakeChange(change); });
}

GridModel::~GridModel() { TheGrid.SetChangeNotice({}); }

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Rows; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Columns; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole) return Qt::AlignCenter;
  if (role != Qt::DisplayRole || !index.isValid()) return {};
  return QString::fromStdString(TheGrid.Text(index.row() + 1, index.column() + 1));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  // In a narrow column the unit stands below its heading.
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(int{Qt::AlignCenter} | int{Qt::TextWordWrap});
  if (role != Qt::DisplayRole) return {};
  const bool across = orientation == Qt::Horizontal;
  if (section < 0 || section >= (across ? Columns : Rows)) return {};
  return QString::fromStdString(across ? TheGrid.Text(0, section + 1) : TheGrid.Text(section + 1, 0));
}

void GridModel::TakeChange(const GridChange& change) {
  switch (change.kind) {
  case GridChange::Kind::Cell: return TakeCell(change.row, change.column);
  case GridChange::Kind::Layout: TakeLayout(); [[fallthrough]];
  case GridChange::Kind::Selection:
  case GridChange::Kind::Display: break;
  }
  if (SelectionListener) SelectionListener();
}

void GridModel::TakeLayout() {
  Taking = true;
  TakeRowCount(TheGrid.RowCount() - 1);
  TakeColumnCount(TheGrid.ColumnCount() - 1);
  Taking = false;
}

void GridModel::TakeRowCount(int rows) {
  if (rows > Rows) {
    beginInsertRows({}, Rows, rows - 1);
    Rows = rows;
    endInsertRows();
  } else if (rows < Rows) {
    beginRemoveRows({}, rows, Rows - 1);
    Rows = rows;
    endRemoveRows();
  }
}

void GridModel::TakeColumnCount(int columns) {
  if (columns > Columns) {
    beginInsertColumns({}, Columns, columns - 1);
    Columns = columns;
    endInsertColumns();
  } else if (columns < Columns) {
    beginRemoveColumns({}, columns, Columns - 1);
    Columns = columns;
    endRemoveColumns();
  }
}

void GridModel::TakeCell(int row, int column) {
  if (row > 0 && column > 0) {
    const QModelIndex cell = index(row - 1, column - 1);
    emit dataChanged(cell, cell, {Qt::DisplayRole});
  } else if (row > 0) {
    emit headerDataChanged(Qt::Vertical, row - 1, row - 1);
  } else if (column > 0) {
    emit headerDataChanged(Qt::Horizontal, column - 1, column - 1);
  }
}

} // namespace strutwright
