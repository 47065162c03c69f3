#include "frmMain.h"

// What the lower floors ask of the main frame.

#include "ControlBoard.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "MainStatusBar.h"
#include "RecentFilesMenu.h"
#include "frmEquations.h"
#include "frmGraph.h"
#include "modGrids.h"
#include "modModelStore.h"
#include "modMotionView.h"
#include "modPicking.h"
#include "modRedraw.h"
#include "modRubberBands.h"
#include "modScales.h"

#include <algorithm>

namespace strutwright {

void frmMain::RefreshStatusTexts() {
  if (Graph != nullptr) Graph->stsBarUpdate();
  ShowCheckStatus();
}

/// While long work changes the results there is nothing to draw; whoever works draws when it is done.
void frmMain::Redraw(bool zoomToExtents) {
  if (Working) return;
  RedrawDisplay(DisplaySurface, zoomToExtents);
  ShowDrawing();
}

void frmMain::ClearSurface() {
  if (DisplaySurface != nullptr) DisplaySurface->Clear();
  ForgetRubberBands();
  if (Graph != nullptr) Graph->ShowDrawing();
}

void frmMain::ResetScales() {
  strutwright::ResetScales();
  ShowScales();
}

void frmMain::SetCaption(const std::string& caption) {
  Caption = QString::fromStdString(caption);
  setWindowTitle(Caption);
}

void frmMain::ClearGrids() {
  for (Grid* grid : {&GrJoints, &GrMembers, &jResGr, &mResGr}) ClearGrid(*grid, GridCapacity);
  for (Grid* grid : {&GrJoints, &GrMembers}) {
    NumberRows(*grid);
    grid->SetCurrentCell(std::min(1, grid->RowCount() - 1), 1); // the first row comes when it is needed
  }
}

void frmMain::ShowRecentFiles() {
  for (RecentFilesMenu* list : RecentLists) list->Refresh();
}

void frmMain::ResetEquations() {
  if (Equations != nullptr) Equations->Reset();
}

int frmMain::NodeAt(float x, float y) { return FindNode(x, y); }

void frmMain::DropHighlight() { Redraw(false); }

void frmMain::ShowHint(const std::string& text) { stsBar->ShowHint(QString::fromStdString(text)); }

bool frmMain::ShowProgress(const std::string& text, double fraction) {
  Working = true;
  return stsBar->ShowProgress(QString::fromStdString(text), fraction);
}

void frmMain::EndProgress() {
  Working = false;
  stsBar->EndProgress();
}

/// A highlight tells the user what is being talked about; the picture is of the truss.
void frmMain::SavePicture(const std::string& path) {
  if (!HasHighlight()) return DisplaySurface->SavePicture(path);
  RedrawQuietly(DisplaySurface, false);
  DrawShownMotion(*DisplaySurface);
  try {
    DisplaySurface->SavePicture(path);
  } catch (...) {
    RedrawWhatCanBeDrawn(false);
    throw;
  }
  RedrawWhatCanBeDrawn(false);
}

} // namespace strutwright
