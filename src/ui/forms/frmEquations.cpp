#include "frmEquations.h"

#include "DataGridView.h"
#include "EventGuard.h"
#include "Menus.h"
#include "Platform.h"
#include "frmMain.h"
#include "modGrids.h"

#include <QCloseEvent>
#include <QHBoxLayout>

namespace strutwright {

frmEquations::frmEquations(frmMain& frame) : Frame(frame) {
  setObjectName("frmEquations");
  setWindowTitle("Stiffness Equations");
  BuildGrids();
  BuildMenus();
  Reset();
}

void frmEquations::BuildGrids() {
  for (Grid* grid : {&grForce, &grK, &grDisp}) grid->SetText(0, 0, "DOF");
  grForce.SetText(0, 1, "Force (kN)");
  grDisp.SetText(0, 1, "Disp (mm)");
  auto* whole = new QHBoxLayout(this);
  auto* force = new DataGridView(grForce, "grForce", this);
  auto* stiffness = new DataGridView(grK, "grK", this);
  auto* displacement = new DataGridView(grDisp, "grDisp", this);
  force->setAccessibleName("Load vector, kN");
  stiffness->setAccessibleName("Stiffness matrix, kN/mm");
  displacement->setAccessibleName("Displacements, mm");
  whole->addWidget(force, 1);
  whole->addWidget(stiffness, 2);
  whole->addWidget(displacement, 1);
}

void frmEquations::BuildMenus() {
  MenuBuilder build(*this, Frame);
  build.AddFileMenu();
  QMenu& view = *build.AddMenu("mnuView", "&View");
  build.Add(view, "mnuTrussDisplay", "&Truss Display", {}, [this] { Frame.ActivateDisplay(); });
  build.AddAnalyse(*build.AddMenu("mnuAnalysis", "&Analysis"));
  build.AddHelpMenu();
  MenuList = build.Menus();
}

void frmEquations::Reset() {
  for (Grid* grid : {&grForce, &grK, &grDisp}) ClearGrid(*grid, static_cast<std::int16_t>(grid->RowCount() - 1));
}

void frmEquations::closeEvent(QCloseEvent* event) {
  if (Frame.IsEnding()) return event->accept();
  event->ignore();
  Guard([] { ShowMessage(MessageIcon::Critical, "Window cannot be closed"); });
}

} // namespace strutwright
