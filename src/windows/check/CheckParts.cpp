#include "CheckParts.h"

#include <string>

#include <QHeaderView>
#include <QSignalBlocker>

namespace strutwright {

namespace {

constexpr int MaxRowsKept = 5; // of a list, in sight where the window is small
constexpr int CellRoom = 6;    // pixels, above and below a text together

std::string WorstText(const CheckRow& row) {
  if (row.worstNode != 0) return "node " + std::to_string(row.worstNode);
  return row.worstMember != 0 ? "member " + std::to_string(row.worstMember) : "";
}

/// Room for so many lines, of which some may be broken in two: not less than a few, not more than all.
void KeepRoom(QListWidget& list, int lines) {
  const int line = list.fontMetrics().lineSpacing() + 4;
  const int frame = 2 * list.frameWidth() + 2;
  list.setMinimumHeight(qBound(1, lines, MaxRowsKept) * line + frame);
  list.setMaximumHeight((lines == 1 ? 1 : 2 * lines) * line + frame);
}

} // namespace

QLabel* NewLabel(const QString& name, const QString& description) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setAccessibleDescription(description); // its name is what it says
  label->setToolTip(description);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

LineList::LineList(const QString& name, const QString& description) {
  setObjectName(name);
  setAccessibleName(description);
  setToolTip(description);
  setWordWrap(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setResizeMode(QListView::Adjust);
}

void LineList::Show(const std::vector<CheckLine>& lines) {
  const QSignalBlocker silent(this);
  clear();
  for (const CheckLine& line : lines) {
    addItem(QString::fromStdString(line.text));
    if (!line.Selects()) item(count() - 1)->setFlags(Qt::ItemIsEnabled);
  }
  KeepRoom(*this, static_cast<int>(lines.size()));
}

FigureTable::FigureTable() : QTableWidget(0, 3) {
  setObjectName("checkTable");
  setAccessibleName("Figures of the check");
  setToolTip("The figures of the check; choose a line to see the node or member that is worst");
  setHorizontalHeaderLabels({"Figure", "Value", "Worst at"});
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setTabKeyNavigation(false);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + CellRoom);
  QHeaderView& across = *horizontalHeader();
  across.setSectionResizeMode(QHeaderView::ResizeToContents);
  across.setSectionResizeMode(1, QHeaderView::Stretch);
  across.setHighlightSections(false);
}

void FigureTable::Show(const std::vector<CheckRow>& rows) {
  const QSignalBlocker silent(this);
  clearSelection();
  setRowCount(static_cast<int>(rows.size()));
  int row = 0;
  for (const CheckRow& each : rows) {
    int column = 0;
    for (const std::string& text : {each.label, each.value, WorstText(each)}) {
      auto* item = new QTableWidgetItem(QString::fromStdString(text)); // the table owns it
      item->setToolTip(item->text());
      setItem(row, column++, item);
    }
    ++row;
  }
  const int header = horizontalHeader()->sizeHint().height();
  setFixedHeight(header + row * verticalHeader()->defaultSectionSize() + 2 * frameWidth());
}

} // namespace strutwright
