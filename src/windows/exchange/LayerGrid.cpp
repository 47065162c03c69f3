#include "LayerGrid.h"

#include "modNumberText.h"

#include <QHeaderView>
#include <QSignalBlocker>

namespace strutwright {

namespace {

enum LayerColumn { NameColumn, MembersColumn, EColumn, AColumn };

constexpr int TypedRole = Qt::UserRole;
constexpr int RowsShown = 4;
constexpr int RowRoom = 6; // pixels beside the text

constexpr const char* LayersTip =
    "The layers of the drawing and the E and A of the members on each; type others into the last two columns";

QString NumberOrNothing(const DrawnLayer& layer, float LayerRigidity::*number) {
  return layer.rigidity ? QString::fromStdString(ShortestText((*layer.rigidity).*number)) : QString();
}

} // namespace

LayerGrid::LayerGrid() : QTableWidget(0, 4) {
  setObjectName("layersGrd");
  setAccessibleName("Layers of the drawing");
  setToolTip(LayersTip);
  setHorizontalHeaderLabels({"Layer", "Members", "E (kN/mm2)", "A (mm2)"});
  setTabKeyNavigation(false);
  setEditTriggers(DoubleClicked | SelectedClicked | EditKeyPressed | AnyKeyPressed);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowRoom);
  horizontalHeader()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
  horizontalHeader()->setHighlightSections(false);
  setFixedHeight(horizontalHeader()->sizeHint().height() + RowsShown * verticalHeader()->defaultSectionSize() +
                 2 * frameWidth());
  // What the user enters stays when the drawing is read anew.
  connect(this, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* changed) {
    const QSignalBlocker silent(this);
    changed->setData(TypedRole, true);
  });
}

void LayerGrid::SetCell(int row, int column, const QString& text, Qt::ItemFlags flags) {
  if (item(row, column) == nullptr) setItem(row, column, new QTableWidgetItem); // the table owns it
  QTableWidgetItem& cell = *item(row, column);
  if (cell.data(TypedRole).toBool()) return;
  cell.setText(text);
  cell.setFlags(flags);
}

void LayerGrid::Show(const std::vector<DrawnLayer>& layers) {
  const QSignalBlocker silent(this);
  setRowCount(static_cast<int>(layers.size()));
  constexpr Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  int row = 0;
  for (const DrawnLayer& layer : layers) {
    SetCell(row, NameColumn, QString::fromStdString(layer.name), shown);
    SetCell(row, MembersColumn, QString::number(layer.members), shown);
    SetCell(row, EColumn, NumberOrNothing(layer, &LayerRigidity::E), shown | Qt::ItemIsEditable);
    SetCell(row, AColumn, NumberOrNothing(layer, &LayerRigidity::A), shown | Qt::ItemIsEditable);
    ++row;
  }
}

std::vector<TypedLayer> LayerGrid::Typed() const {
  std::vector<TypedLayer> typed;
  for (int row = 0; row < rowCount(); ++row) {
    const bool isTyped = item(row, EColumn)->data(TypedRole).toBool() || item(row, AColumn)->data(TypedRole).toBool();
    if (!isTyped) continue;
    typed.push_back({item(row, NameColumn)->text().toStdString(), item(row, EColumn)->text().toStdString(),
                     item(row, AColumn)->text().toStdString()});
  }
  return typed;
}

} // namespace strutwright
