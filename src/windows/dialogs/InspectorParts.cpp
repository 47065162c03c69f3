#include "InspectorParts.h"

#include "DataGridView.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr int Padding = 14; // pixels, left and right of a text together

/// The width that the view's labels at the left need.
int LabelWidth(const DataGridView& view) {
  int widest = 0;
  for (int row = 1; row < view.Data().RowCount(); ++row) {
    const QString label = QString::fromStdString(view.Data().Text(row, 0));
    widest = qMax(widest, view.fontMetrics().horizontalAdvance(label));
  }
  return widest + Padding;
}

void ShowWhole(DataGridView& view, const QString& columnText) {
  view.horizontalHeader()->setFixedHeight(view.verticalHeader()->defaultSectionSize());
  view.verticalHeader()->setFixedWidth(LabelWidth(view));
  const int rows = view.Data().RowCount();
  const int columns = view.Data().ColumnCount() - 1;
  const int columnWidth = view.fontMetrics().horizontalAdvance(columnText) + Padding;
  const int frame = 2 * view.frameWidth();
  view.setFixedHeight(rows * view.verticalHeader()->defaultSectionSize() + frame);
  view.setMinimumWidth(LabelWidth(view) + columns * columnWidth + frame);
  view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

} // namespace

CaptionedGrid AddInspectorGrid(Grid& grid, const QString& name, const QString& caption, const QString& columnText) {
  auto* captioned = new QWidget;
  auto* label = new QLabel(caption);
  auto* view = new DataGridView(grid, name);
  view->setAccessibleName(caption);
  view->setToolTip(caption);
  label->setBuddy(view);
  ShowWhole(*view, columnText);
  auto* column = new QVBoxLayout(captioned);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(label);
  column->addWidget(view);
  column->addStretch();
  return {captioned, view};
}

QWidget* ButtonRow(QPushButton& deleteButton, QPushButton& closeButton) {
  auto* row = new QWidget;
  auto* buttons = new QHBoxLayout(row);
  buttons->setContentsMargins(0, 0, 0, 0);
  buttons->addWidget(&deleteButton);
  buttons->addStretch();
  buttons->addWidget(&closeButton);
  return row;
}

} // namespace strutwright
