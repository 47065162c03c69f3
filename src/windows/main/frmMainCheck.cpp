#include "frmMain.h"

// The check of the answer in the main frame.

#include "AnalysisState.h"
#include "ControlBoard.h"
#include "EditingState.h"
#include "MainStatusBar.h"
#include "frmCheck.h"
#include "modCheck.h"
#include "modCheckLists.h"
#include "modKeepResults.h"
#include "modModelStore.h"

#include <QMdiSubWindow>
#include <QScreen>

namespace strutwright {

namespace {

/// Moves a window as little as it takes to have all of it on its screen.
void BringOntoScreen(QWidget& window) {
  const QRect room = window.screen()->availableGeometry();
  QRect place(window.pos(), window.size());
  place.moveRight(qMin(place.right(), room.right()));
  place.moveBottom(qMin(place.bottom(), room.bottom()));
  place.moveLeft(qMax(place.left(), room.left()));
  place.moveTop(qMax(place.top(), room.top()));
  window.move(place.topLeft());
}

} // namespace

/// The check takes a while on a large truss: the results are on screen before it begins.
void frmMain::CheckAnalysis() {
  repaint();
  CheckLastAnalysis();
  ShowCheckStatus();
  if (Check == nullptr || !Check->isVisible()) return;
  Check->Refresh();
  RedrawWhatCanBeDrawn(false);
}

/// A list of loads or areas changes the model and lets the analysis stand; what was judged has gone all the same.
void frmMain::FollowModelInCheck() {
  const bool watched = Check != nullptr && Check->isVisible();
  if (Analysing || Working || (!watched && CheckStatusText().empty()) || CheckIsCurrent()) return;
  DropCheck();
  ShowCheckStatus();
  if (watched) Check->Refresh();
}

void frmMain::ShowCheckStatus() { stsBar->ShowCheck(QString::fromStdString(CheckStatusText()), CheckStatusLevel()); }

/// At first beside the drawing, which shows what is chosen in it.
void frmMain::ShowCheck() {
  RebuildKeepingResults();
  if (Check == nullptr) {
    Check = new frmCheck(*this);
    Check->move(EquationsWindow->mapToGlobal(QPoint(0, 0)));
    BringOntoScreen(*Check);
  }
  RedrawWhatCanBeDrawn(false); // what was pasted meanwhile is judged, so it is drawn too
  Check->show();
  Check->raise();
  Check->activateWindow();
}

/// Of the data or the results of nodes, 0, or members, 1, what the user has open stays.
void frmMain::ShowGridOf(std::size_t kind) {
  QRadioButton& entered = *CBpic->viewOpt.at(kind);
  const QRadioButton& results = *CBpic->viewOpt.at(kind + 2);
  const bool shown = entered.isChecked() || (AnalysisDone != FlagFalse && results.isChecked());
  if (!shown) entered.setChecked(true);
}

void frmMain::ShowParts(const std::vector<int>& nodes, const std::vector<int>& members) {
  HighlightedNodes = nodes;
  HighlightedMembers = members;
  for (Grid* grid : {&GrJoints, &jResGr}) SelectRows(*grid, nodes);
  for (Grid* grid : {&GrMembers, &mResGr}) SelectRows(*grid, members);
  ShowGridOf(nodes.empty() ? 1 : 0);
  RedrawWhatCanBeDrawn(false);
}

void frmMain::ShowNoParts() {
  HighlightedNodes.clear();
  HighlightedMembers.clear();
  RedrawWhatCanBeDrawn(false);
}

RigidityOffer frmMain::RigidityOnBoard() const {
  return OfferRigidity(CBpic->eTxt->text().toStdString(), CBpic->aTxt->text().toStdString());
}

void frmMain::FillInRigidity() { FillRigidity(CBpic->eTxt->text().toStdString(), CBpic->aTxt->text().toStdString()); }

} // namespace strutwright
