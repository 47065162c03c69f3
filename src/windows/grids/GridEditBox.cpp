#include "GridEditBox.h"

#include "DataGridView.h"
#include "EventGuard.h"

#include <optional>

#include <QKeyEvent>

namespace strutwright {

namespace {

std::optional<CellKey> MovingKey(int key) {
  switch (key) {
  case Qt::Key_Return:
  case Qt::Key_Enter: return CellKey::Enter;
  case Qt::Key_Down: return CellKey::Down;
  case Qt::Key_Up: return CellKey::Up;
  case Qt::Key_Left: return CellKey::Left;
  case Qt::Key_Right: return CellKey::Right;
  default: return std::nullopt;
  }
}

bool IsShortcut(const QKeyEvent& key) {
  return (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

} // namespace

GridEditBox::GridEditBox(QWidget* parent) : QLineEdit(parent) {
  setObjectName("grTxtBox");
  setAccessibleName("Cell being edited");
  setToolTip("Enter takes the number and goes down, Escape leaves the cell as it was");
  setAlignment(Qt::AlignCenter);
  setFrame(false);
  hide();
}

void GridEditBox::Open(DataGridView& view, char32_t typed) {
  Commit();
  EnsureDataCell(view.Data());
  setText(QString::fromStdString(OpeningText(view.Data(), typed)));
  setProperty("tag", view.objectName());
  setParent(view.viewport());
  View = &view;
  Row = view.Data().CurrentRow();
  Column = view.Data().CurrentColumn();
  setGeometry(view.CurrentCellRect());
  show();
  setFocus();
  setCursorPosition(static_cast<int>(text().size()));
}

void GridEditBox::Follow(const DataGridView& view) {
  if (View == &view) setGeometry(View->visualRect(View->model()->index(Row - 1, Column - 1)));
}

void GridEditBox::KeepInSight(DataGridView& view) {
  if (View != &view) return;
  view.scrollTo(view.model()->index(Row - 1, Column - 1));
  Follow(view);
}

/// Ends the edit before anything else happens: a message over the half-ended edit would give the grid the focus back
/// and so take the text a second time.
DataGridView* GridEditBox::Close() {
  DataGridView* view = View;
  View = nullptr;
  if (hasFocus()) view->setFocus();
  hide();
  return view;
}

void GridEditBox::Commit() {
  if (!View) return;
  const std::string entered = text().toStdString();
  Grid& grid = Close()->Data();
  // The grid has lost the row when the model has changed behind the edit.
  if (Row >= grid.RowCount() || Column >= grid.ColumnCount()) return;
  Committer([this, &grid, &entered] { return CommitCell(grid, Row, Column, entered); });
}

void GridEditBox::Cancel() {
  if (View) Close()->setFocus();
}

void GridEditBox::CommitAndMove(CellKey key) {
  DataGridView* view = View;
  if (view == nullptr) return;
  view->setFocus(); // takes the text
  Commit();         // where the window is not active, no focus arrives
  MoveCurrentCell(view->Data(), key);
  view->CurrentCellRect();
}

/// Keys that the box needs itself must not trigger the shortcuts of the window.
bool GridEditBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Escape || (MovingKey(key->key()) && !IsShortcut(*key))) {
      event->accept();
      return true;
    }
  }
  return QLineEdit::event(event);
}

void GridEditBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return Cancel();
  const std::optional<CellKey> key = MovingKey(event->key());
  if (key && !IsShortcut(*event)) return Guard([this, key] { CommitAndMove(*key); });
  QLineEdit::keyPressEvent(event);
}

} // namespace strutwright
