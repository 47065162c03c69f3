#include "EquationGrids.h"

#include <QScrollBar>

namespace strutwright {

namespace {

constexpr int Slack = 8; // pixels that the vectors may have beyond their least width

} // namespace

EquationGrids::EquationGrids(QWidget* parent, const std::function<void()>& chosen,
                             const std::function<void(AnswerMove)>& answered)
    : QSplitter(Qt::Horizontal, parent), Chosen(chosen), Answered(answered) {
  Views = {Add(EquationGrid::Stiffness, "grK", "Stiffness matrix K, kN/mm"),
           Add(EquationGrid::Displacement, "grDisp", "Displacements D, mm"),
           Add(EquationGrid::Force, "grForce", "Load vector P, kN")};
  ActiveView = Views[0];
  setChildrenCollapsible(false);
  setStretchFactor(0, 1);
  setSizes({2 * parent->width(), 1, 1}); // the matrix gets what the vectors leave
  ScrollTogether();
}

EquationGridView* EquationGrids::Add(EquationGrid grid, const QString& name, const QString& description) {
  auto* view = new EquationGridView(grid, name, this);
  view->setAccessibleName(description);
  view->setToolTip(description);
  view->setContextMenuPolicy(Qt::ActionsContextMenu);
  view->SetNotice([this, view] {
    if (view->hasFocus()) ActiveView = view;
    if (ActiveView != nullptr) Chosen();
  });
  view->SetAnswerer(Answered);
  addWidget(view);
  return view;
}

void EquationGrids::ScrollTogether() {
  for (EquationGridView* moved : Views) {
    for (EquationGridView* other : Views) {
      if (other == moved) continue;
      connect(moved->verticalScrollBar(), &QScrollBar::valueChanged, other->verticalScrollBar(), &QScrollBar::setValue);
    }
  }
  // As many rows fit in each: under all of them there is a bar, or under none.
  connect(Views[0]->horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this](int least, int most) {
    for (EquationGridView* each : Views) {
      each->setHorizontalScrollBarPolicy(most > least ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    }
  });
}

EquationGridView& EquationGrids::Of(EquationGrid grid) const {
  for (EquationGridView* each : Views) {
    if (each->Kind() == grid) return *each;
  }
  return *Views[0];
}

void EquationGrids::Refresh() {
  for (EquationGridView* each : Views) each->Refresh();
}

int EquationGrids::FittingWidth() const {
  return Views[0]->FittingWidth() + Views[1]->minimumWidth() + Views[2]->minimumWidth() + 2 * handleWidth() + Slack;
}

void EquationGrids::SetHeaderLines(int lines) {
  for (EquationGridView* each : Views) each->SetHeaderLines(lines);
}

} // namespace strutwright
