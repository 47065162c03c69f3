#include "Menus.h"
#include "frmGraph.h"
#include "frmMain.h"
#include "modFileCommands.h"
#include "modKeepResults.h"

namespace strutwright {

void frmGraph::BuildMenus() {
  MenuBuilder build(*this, Frame);
  build.AddFileMenu();
  QMenu& drawing = *build.AddMenu("mnuDraw", "&Drawing");
  build.Add(drawing, "mnuSavePic", "Save &Picture...", {}, savePicture, "Saves the truss display as a picture");
  AddViewMenu(build);
  QMenu& analysis = *build.AddMenu("mnuAnalysis", "&Analysis");
  build.AddAnalyse(analysis);
  build.Add(analysis, "mnuAnimate", "A&nimate", {}, [this] { Frame.AnimateDSD(); },
            "Lets the deflected shape grow and shrink");
  build.AddHelpMenu();
  MenuList = build.Menus();
}

void frmGraph::AddViewMenu(MenuBuilder& build) {
  QMenu& view = *build.AddMenu("mnuView", "&View");
  build.Add(view, "mnuZoomOut", "Zoom Out F3", {}, [this] { Frame.ZoomOut(); });
  build.Add(view, "mnuZoomExtents", "Zoom Extents F4", {}, [this] { Frame.Redraw(true); });
  build.Add(view, "mnuRefresh", "&Refresh", Qt::CTRL | Qt::Key_R, [this] { Refresh(); },
            "Takes the grids in and draws the truss again");
  view.addSeparator();
  build.Add(view, "mnuEquations", "&Stiffness Equations", {}, [this] { Frame.ActivateEquations(); });
}

/// What has been pasted meanwhile is taken in.
void frmGraph::Refresh() {
  RebuildKeepingResults();
  Frame.Redraw(false);
}

} // namespace strutwright
