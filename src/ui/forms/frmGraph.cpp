#include "frmGraph.h"

#include "AnalysisState.h"
#include "DisplayArea.h"
#include "EventGuard.h"
#include "MainStatusBar.h"
#include "Menus.h"
#include "Platform.h"
#include "frmMain.h"
#include "modScales.h"

#include <QCloseEvent>
#include <QVBoxLayout>

namespace strutwright {

frmGraph::frmGraph(frmMain& frame, MainStatusBar& status) : Frame(frame), Status(status) {
  setObjectName("frmGraph");
  setWindowTitle("Truss Display");
  Disp = new DisplayArea(this);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(Disp);
  Disp->SetResizeNotice([this] { Frame.Redraw(false); });
  BuildMenus();
  ResetScales();
}

void frmGraph::stsBarUpdate() { Status.ShowAnalysis(AnalysisDone == FlagFalse ? "No Analysis" : "Analysis Done"); }

QtDrawingSurface& frmGraph::Surface() { return Disp->Surface(); }

void frmGraph::ShowDrawing() { Disp->update(); }

void frmGraph::closeEvent(QCloseEvent* event) {
  if (Frame.IsEnding()) return event->accept();
  event->ignore();
  Guard([] { ShowMessage(MessageIcon::Critical, "Window cannot be closed"); });
}

} // namespace strutwright
