#include "EquationGridView.h"

#include "EventGuard.h"
#include "GridMetrics.h"

#include <algorithm>

#include <QHeaderView>
#include <QLabel>

namespace strutwright {

namespace {

constexpr int MostFittedColumns = 64; // of more, the widest text would have to be looked for among thousands

constexpr int NumberPadding = 2 * ColumnPadding; // a number needs more room around it than a heading

} // namespace

EquationGridView::EquationGridView(EquationGrid grid, const QString& name, QWidget* parent)
    : QTableView(parent), Model(grid, *this) {
  setObjectName(name);
  setModel(&Model);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // the three grids scroll together: as many rows fit in each
  LayOut();
}

/// A column is at first as wide as a large number needs.
void EquationGridView::LayOut() {
  Corner = new QLabel(this);
  Corner->setAlignment(Qt::AlignCenter);
  Corner->setAttribute(Qt::WA_TransparentForMouseEvents);
  horizontalHeader()->setMinimumSectionSize(fontMetrics().horizontalAdvance("00 x") + NumberPadding);
  horizontalHeader()->setDefaultSectionSize(fontMetrics().horizontalAdvance("-00000.00") + NumberPadding);
  horizontalHeader()->setFixedHeight(HeaderLines * fontMetrics().height() + RowPadding);
  horizontalHeader()->setHighlightSections(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowPadding);
  verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance("DOF") + NumberPadding);
  verticalHeader()->setHighlightSections(false);
  if (Kind() != EquationGrid::Stiffness) LayOutVector();
}

/// A vector is always seen in its full width; its rows move with those of the matrix.
void EquationGridView::LayOutVector() {
  horizontalHeader()->setMinimumSectionSize(fontMetrics().horizontalAdvance("-0000.00") + NumberPadding);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const int labels = fontMetrics().horizontalAdvance("0000 x") + NumberPadding;
  setMinimumWidth(labels + horizontalHeader()->minimumSectionSize() + 2 * frameWidth());
}

void EquationGridView::Refresh() {
  Model.Refresh();
  if (Kind() == EquationGrid::Stiffness) FitColumns();
}

/// Makes each column of K as wide as its widest number.  Of a large truss, every column is as wide as a large number
/// needs, so that no column has to be looked through.
void EquationGridView::FitColumns() {
  const int columns = Model.columnCount();
  if (columns > MostFittedColumns) {
    for (int column = 0; column < MostFittedColumns; ++column) { // which a smaller truss may have narrowed
      horizontalHeader()->resizeSection(column, horizontalHeader()->defaultSectionSize());
    }
    return;
  }
  for (int column = 0; column < columns; ++column) {
    int width = fontMetrics().horizontalAdvance(Model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    for (int row = 0; row < Model.rowCount(); ++row) {
      width = std::max(width, fontMetrics().horizontalAdvance(Model.index(row, column).data().toString()));
    }
    horizontalHeader()->resizeSection(column, width + NumberPadding);
  }
}

GridBlock EquationGridView::SelectedBlock() const {
  GridBlock block{0, 0, -1, -1};
  const QItemSelection cells = selectionModel()->selection();
  if (cells.isEmpty()) {
    const QModelIndex cell = currentIndex();
    return cell.isValid() ? GridBlock{cell.row() + 1, cell.column() + 1, cell.row() + 1, cell.column() + 1} : block;
  }
  const QItemSelectionRange& range = cells.first();
  return {range.top() + 1, range.left() + 1, range.bottom() + 1, range.right() + 1};
}

void EquationGridView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  if (Listener) Guard(Listener);
}

void EquationGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (Listener) Guard(Listener);
}

void EquationGridView::updateGeometries() {
  QTableView::updateGeometries();
  if (Corner == nullptr) return;
  Corner->setText(QString::fromStdString(EquationCell(Kind(), 0, 0)));
  Corner->setGeometry(frameWidth(), frameWidth(), verticalHeader()->width(), horizontalHeader()->height());
}

} // namespace strutwright
