#include "DataGridView.h"

#include "EventGuard.h"
#include "GridEditBox.h"
#include "GridMetrics.h"
#include "modCellEditing.h"

#include <optional>

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>

namespace strutwright {

namespace {

/// The character that opens the edit box; nothing for keys that are shortcuts or that move.
std::optional<char32_t> OpeningCharacter(const QKeyEvent& key) {
  if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return std::nullopt;
  if (key.key() == Qt::Key_F2) return U' ';
  if (key.key() == Qt::Key_Escape || key.key() == Qt::Key_Delete) return std::nullopt;
  if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) return std::nullopt;
  const auto characters = key.text().toUcs4();
  if (characters.isEmpty()) return std::nullopt;
  return static_cast<char32_t>(characters.first());
}

constexpr int HintMargin = 8; // pixels

bool HoldsNoText(const Grid& grid) {
  for (int row = 1; row < grid.RowCount(); ++row) {
    for (int column = 1; column < grid.ColumnCount(); ++column) {
      if (!grid.Text(row, column).empty()) return false;
    }
  }
  return true;
}

} // namespace

DataGridView::DataGridView(Grid& grid, const QString& name, QWidget* parent) : QTableView(parent), Model(grid) {
  setObjectName(name);
  setModel(&Model);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setCornerButtonEnabled(false);
  LayOut();
  for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
    connect(header, &QHeaderView::sectionPressed, this, [this] { ChooseSelection(); });
  }
  Model.SetSelectionNotice([this] { ShowSelection(); });
  ShowSelection();
}

void DataGridView::LayOut() {
  Corner = new QLabel(this);
  Corner->setAlignment(Qt::AlignCenter);
  Corner->setAttribute(Qt::WA_TransparentForMouseEvents);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setMinimumSectionSize(fontMetrics().horizontalAdvance("(kN/mm2)") + ColumnPadding);
  horizontalHeader()->setFixedHeight(HeaderLines * fontMetrics().height() + RowPadding);
  horizontalHeader()->setHighlightSections(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowPadding);
  verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance("MEMBERS") + 2 * ColumnPadding);
  verticalHeader()->setHighlightSections(false);
}

QRect DataGridView::CurrentCellRect() {
  const QModelIndex cell = Model.index(Data().CurrentRow() - 1, Data().CurrentColumn() - 1);
  scrollTo(cell);
  return visualRect(cell);
}

void DataGridView::OpenEditBox(char32_t typed) {
  if (EditBox != nullptr) Guard([this, typed] { EditBox->Open(*this, typed); });
}

void DataGridView::CommitPendingEdit() {
  if (EditBox != nullptr) Guard([this] { EditBox->Commit(); });
}

void DataGridView::keyPressEvent(QKeyEvent* event) {
  if (EditBox != nullptr && EditBox->IsPending()) return PassToEditBox(*event);
  const std::optional<char32_t> typed = OpeningCharacter(*event);
  if (typed && EditBox != nullptr) return OpenEditBox(*typed);
  QTableView::keyPressEvent(event);
}

/// Fast fingers can be ahead of the focus.  What the box has no use for comes back here, as to everything that holds
/// it.
void DataGridView::PassToEditBox(QKeyEvent& event) {
  if (PassingKey) return event.ignore();
  const QScopedValueRollback guard(PassingKey, true);
  QCoreApplication::sendEvent(EditBox, &event);
}

/// The edit belongs to the cell that was current before the click.
void DataGridView::mousePressEvent(QMouseEvent* event) {
  CommitPendingEdit();
  QTableView::mousePressEvent(event);
  if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid()) ChooseSelection();
}

void DataGridView::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  if (event->button() == Qt::RightButton && MenuListener) MenuListener(event->globalPosition().toPoint());
}

void DataGridView::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) OpenEditBox(U' ');
}

/// The mouse opens the menu when its button is released; this is the menu key.
void DataGridView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Mouse && MenuListener) {
    MenuListener(viewport()->mapToGlobal(visualRect(currentIndex()).center()));
  }
  event->accept();
}

void DataGridView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  CommitPendingEdit();
}

void DataGridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  ShowsHint = !EmptyHint.isEmpty() && HoldsNoText(Data());
  if (ShowsHint) PaintEmptyHint();
}

/// The hint lies over cells that have not changed.
void DataGridView::dataChanged(const QModelIndex& first, const QModelIndex& last, const QVector<int>& roles) {
  QTableView::dataChanged(first, last, roles);
  if (!EmptyHint.isEmpty() && ShowsHint != HoldsNoText(Data())) viewport()->update();
}

/// Below the first row, where the entry will stand.
void DataGridView::PaintEmptyHint() {
  QPainter painter(viewport());
  const int top = verticalHeader()->defaultSectionSize();
  const QRect room = viewport()->rect().adjusted(HintMargin, top, -HintMargin, 0);
  const int flags = int{Qt::AlignHCenter} | int{Qt::TextWordWrap};
  QRect text = painter.boundingRect(room, flags, EmptyHint);
  text.moveTop(room.top() + qMax(0, (room.height() - text.height()) / 3));
  painter.fillRect(text.adjusted(-HintMargin, -HintMargin / 2, HintMargin, HintMargin / 2), palette().base());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(text, flags, EmptyHint);
}

/// Fewer rows may fit now, and the one that is being edited must not get lost.
void DataGridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (EditBox != nullptr) EditBox->KeepInSight(*this);
}

void DataGridView::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  if (EditBox != nullptr) EditBox->Follow(*this);
}

void DataGridView::updateGeometries() {
  QTableView::updateGeometries();
  if (EditBox != nullptr) EditBox->Follow(*this);
  if (Corner == nullptr) return;
  Corner->setText(QString::fromStdString(Data().Text(0, 0)));
  Corner->setGeometry(frameWidth(), frameWidth(), verticalHeader()->width(), horizontalHeader()->height());
}

void DataGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  TakeSelection();
}

void DataGridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  TakeSelection();
}

void DataGridView::ShowSelection() {
  if (Synchronising) return;
  const QScopedValueRollback guard(Synchronising, true);
  const GridBlock block = Data().Selection();
  const QModelIndex current = Model.index(Data().CurrentRow() - 1, Data().CurrentColumn() - 1);
  if (!current.isValid() || Data().Highlight() == 0) {
    selectionModel()->clear();
    return;
  }
  const QItemSelection cells(Model.index(block.firstRow - 1, block.firstColumn - 1),
                             Model.index(block.lastRow - 1, block.lastColumn - 1));
  selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
  if (Chosen && *Chosen != block) DropChoice();
}

/// The grid's current cell is where the selection began: it stays as long as it is a corner of what is selected.
/// Whole rows and columns, and blocks that begin elsewhere, begin at their first cell.
void DataGridView::TakeSelection() {
  if (Synchronising || Model.IsTakingChange()) return;
  const QItemSelection cells = selectionModel()->selection();
  if (cells.size() != 1) return;
  const QScopedValueRollback guard(Synchronising, true);
  const QItemSelectionRange& block = cells.first();
  const int top = block.top() + 1;
  const int bottom = block.bottom() + 1;
  const int left = block.left() + 1;
  const int right = block.right() + 1;
  int row = Data().CurrentRow();
  int column = Data().CurrentColumn();
  const bool corner = (row == top || row == bottom) && (column == left || column == right);
  const bool whole = right - left + 1 == Model.columnCount() || bottom - top + 1 == Model.rowCount();
  if (!corner || whole) {
    row = top;
    column = left;
  }
  Data().SetCurrentCell(row, column);
  Data().ExtendSelection(top + bottom - row, left + right - column);
  // A single cell may be no more than where the keys have come to; a click on it is known where it is taken.
  if (bottom > top || right > left) return ChooseSelection();
  DropChoice();
}

void DataGridView::ChooseSelection() {
  Chosen = Data().Selection();
  if (RowsListener) RowsListener();
}

void DataGridView::ChooseRow(int row) {
  if (row < 1 || row >= Data().RowCount()) return;
  Data().SetCurrentCell(row, 1);
  Data().ExtendSelection(row, Data().ColumnCount() - 1);
  ChooseSelection();
  scrollTo(currentIndex());
}

void DataGridView::DropChoice() {
  if (!Chosen) return;
  Chosen.reset();
  if (RowsListener) RowsListener();
}

} // namespace strutwright
