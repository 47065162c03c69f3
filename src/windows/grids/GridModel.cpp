#include "GridModel.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QEvent>

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
  if (Changed.isNull()) QCoreApplication::postEvent(this, new QEvent(QEvent::User)); // the queue owns it
  Changed |= QRect(column, row, 1, 1);
}

void GridModel::customEvent(QEvent* /*event*/) { ReportChanges(); }

void GridModel::ReportChanges() {
  // Rows may have gone since.
  const QRect cells = std::exchange(Changed, {}) & QRect(0, 0, Columns + 1, Rows + 1);
  const QRect data = cells & QRect(1, 1, Columns, Rows);
  if (cells.left() == 0 && cells.bottom() > 0) {
    emit headerDataChanged(Qt::Vertical, std::max(cells.top(), 1) - 1, cells.bottom() - 1);
  }
  if (cells.top() == 0 && cells.right() > 0) {
    emit headerDataChanged(Qt::Horizontal, std::max(cells.left(), 1) - 1, cells.right() - 1);
  }
  if (data.isEmpty()) return;
  emit dataChanged(index(data.top() - 1, data.left() - 1), index(data.bottom() - 1, data.right() - 1),
                   {Qt::DisplayRole});
}

} // namespace strutwright
