#include "EquationModel.h"

#include "modExercise.h"

#include <QBrush>
#include <QWidget>

namespace strutwright {

namespace {

constexpr double TintStrength = 0.3;
constexpr QColor AddedColour(255, 140, 0);
constexpr QColor ClearedColour(0, 120, 215);
constexpr QColor SolvedColour(0, 160, 60);
constexpr QColor WrongColour(220, 60, 60);

int Mix(int base, int colour, double share = TintStrength) { return qRound(base + share * (colour - base)); }

} // namespace

QColor TintColour(CellTint tint, const QPalette& theme) {
  const QColor base = theme.color(QPalette::Base);
  QColor colour = base;
  switch (tint) {
  case CellTint::None: break;
  case CellTint::Added: colour = AddedColour; break;
  case CellTint::Cleared: colour = ClearedColour; break;
  case CellTint::Solved: colour = SolvedColour; break;
  case CellTint::Wrong: colour = WrongColour; break;
  }
  return {Mix(base.red(), colour.red()), Mix(base.green(), colour.green()), Mix(base.blue(), colour.blue())};
}

QColor ZeroColour(const QPalette& theme) {
  constexpr double strength = 0.55;
  const QColor base = theme.color(QPalette::Base);
  const QColor text = theme.color(QPalette::Text);
  return {Mix(base.red(), text.red(), strength), Mix(base.green(), text.green(), strength),
          Mix(base.blue(), text.blue(), strength)};
}

EquationModel::EquationModel(EquationGrid grid, const QWidget& view) : TheGrid(grid), View(view) { Refresh(); }

void EquationModel::Refresh() {
  const int rows = EquationRowCount() - 1;
  const int columns = EquationColumnCount(TheGrid) - 1;
  if (rows != Rows || columns != Columns) {
    beginResetModel();
    Rows = rows;
    Columns = columns;
    endResetModel();
  } else if (rows > 0 && columns > 0) {
    emit dataChanged(index(0, 0), index(rows - 1, columns - 1));
    emit headerDataChanged(Qt::Horizontal, 0, columns - 1);
    emit headerDataChanged(Qt::Vertical, 0, rows - 1);
  }
}

bool EquationModel::IsZero(int row, int column) const { return EquationValue(TheGrid, row, column) == 0.0F; }

int EquationModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Rows; }

int EquationModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Columns; }

QVariant EquationModel::data(const QModelIndex& index, int role) const {
  return index.isValid() ? Value(index.row() + 1, index.column() + 1, role) : QVariant();
}

QVariant EquationModel::headerData(int section, Qt::Orientation orientation, int role) const {
  return orientation == Qt::Horizontal ? Value(0, section + 1, role) : Value(section + 1, 0, role);
}

Qt::ItemFlags EquationModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  return IsToBeAnswered(TheGrid, index.row() + 1, index.column() + 1) ? flags | Qt::ItemIsEditable : flags;
}

bool EquationModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !ChooseQuestionAt(TheGrid, index.row() + 1, index.column() + 1)) return false;
  KeepTyped(value.toString().toStdString());
  emit dataChanged(index, index);
  return true;
}

QString EquationModel::Text(int row, int column) const {
  const QString text = QString::fromStdString(EquationCell(TheGrid, row, column));
  const bool hasTick = row > 0 && column > 0 && IsAnswered(TheGrid, row, column);
  return hasTick ? text + QString::fromUtf8(" \u2713") : text;
}

/// Of a cell that waits for its answer.
QVariant EquationModel::BlankValue(int row, int column, int role) const {
  const QString typed = QString::fromStdString(TypedInto(TheGrid, row, column));
  const bool isWrong = IsWrong(TheGrid, row, column);
  switch (role) {
  case Qt::EditRole: return typed;
  case Qt::DisplayRole: return isWrong ? typed + QString::fromUtf8(" \u2717") : typed;
  case Qt::ToolTipRole: return "Type what stands here, then press Enter; Tab goes to the next blank cell";
  case Qt::AccessibleTextRole: return isWrong ? "wrong: " + typed : "blank " + typed;
  default: return {};
  }
}

QVariant EquationModel::Value(int row, int column, int role) const {
  // The views may ask while they have not yet heard of a new size.
  if (row >= EquationRowCount() || column >= EquationColumnCount(TheGrid)) return {};
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(int{Qt::AlignCenter} | int{Qt::TextWordWrap});
  if (role == Qt::BackgroundRole) {
    const CellTint tint = EquationTint(TheGrid, row, column);
    return tint == CellTint::None ? QVariant() : QBrush(TintColour(tint, View.palette()));
  }
  if (IsToBeAnswered(TheGrid, row, column)) return BlankValue(row, column, role);
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return Text(row, column);
  if (role == Qt::ForegroundRole && IsZero(row, column)) return QBrush(ZeroColour(View.palette()));
  return {};
}

} // namespace strutwright
