#include "EquationGridView.h"

#include "EventGuard.h"
#include "GridMetrics.h"
#include "modExercise.h"

#include <algorithm>

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>

namespace strutwright {

namespace {

constexpr int MostFittedColumns = 64; // of more, the widest text would have to be looked for among thousands

constexpr int NumberPadding = 2 * ColumnPadding; // a number needs more room around it than a heading

} // namespace

EquationGridView::EquationGridView(EquationGrid grid, const QString& name, QWidget* parent)
    : QTableView(parent), Model(grid, *this) {
  setObjectName(name);
  setModel(&Model);
  setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked | CurrentChanged); // of blank cells
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  LayOut();
}

/// A column is at first as wide as a large number needs.
void EquationGridView::LayOut() {
  Corner = new QLabel(this);
  Corner->setAlignment(Qt::AlignCenter);
  Corner->setAttribute(Qt::WA_TransparentForMouseEvents);
  horizontalHeader()->setMinimumSectionSize(fontMetrics().horizontalAdvance("00 x") + NumberPadding);
  horizontalHeader()->setDefaultSectionSize(fontMetrics().horizontalAdvance("-00000.00") + NumberPadding);
  SetHeaderLines(HeaderLines);
  horizontalHeader()->setHighlightSections(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowPadding);
  verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance("DOF") + NumberPadding);
  verticalHeader()->setHighlightSections(false);
  if (Kind() != EquationGrid::Stiffness) LayOutVector();
}

/// A vector is always seen in its full width; its rows move with those of the matrix.
void EquationGridView::LayOutVector() {
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  FitVector();
}

void EquationGridView::SetHeaderLines(int lines) {
  horizontalHeader()->setFixedHeight(lines * fontMetrics().height() + RowPadding);
  if (Kind() != EquationGrid::Stiffness) FitVector();
}

/// A heading that has one line needs all of its width there.
void EquationGridView::FitVector() {
  const bool hasOneLine = horizontalHeader()->height() < 2 * fontMetrics().height();
  const QString heading = QString::fromStdString(EquationCell(Kind(), 0, 1));
  const int number = fontMetrics().horizontalAdvance("-0000.00");
  const int width = hasOneLine ? std::max(number, fontMetrics().horizontalAdvance(heading)) : number;
  horizontalHeader()->setMinimumSectionSize(width + NumberPadding);
  const int labels = fontMetrics().horizontalAdvance("0000 x") + NumberPadding;
  setMinimumWidth(labels + horizontalHeader()->minimumSectionSize() + 2 * frameWidth());
}

int EquationGridView::FittingWidth() const {
  const int bar = verticalScrollBar()->maximum() > verticalScrollBar()->minimum() ? verticalScrollBar()->width() : 0;
  return verticalHeader()->width() + horizontalHeader()->length() + bar + 2 * frameWidth();
}

void EquationGridView::Ask(int row, int column) {
  const QModelIndex cell = Model.index(row - 1, column - 1);
  scrollTo(cell);
  setFocus();
  setCurrentIndex(cell);
  if (state() != EditingState) edit(cell);
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

/// Tab would go to the neighbour, whether it is blank or not.
void EquationGridView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
  const auto end = [this](AnswerMove move) {
    if (Answerer) Guard([this, move] { Answerer(move); });
  };
  if (hint == QAbstractItemDelegate::SubmitModelCache) end(AnswerMove::Judge);
  if (hint == QAbstractItemDelegate::EditNextItem) end(AnswerMove::Next);
  if (hint == QAbstractItemDelegate::EditPreviousItem) end(AnswerMove::Previous);
}

void EquationGridView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  if (Listener) Guard(Listener);
}

void EquationGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.isValid()) ChooseQuestionAt(Kind(), current.row() + 1, current.column() + 1);
  if (Listener) Guard(Listener);
}

void EquationGridView::updateGeometries() {
  QTableView::updateGeometries();
  if (Corner == nullptr) return;
  Corner->setText(QString::fromStdString(EquationCell(Kind(), 0, 0)));
  Corner->setGeometry(frameWidth(), frameWidth(), verticalHeader()->width(), horizontalHeader()->height());
}

} // namespace strutwright
