#include "CheckPresenter.h"

#include "AnalysisState.h"
#include "ControlBoard.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "MainStatusBar.h"
#include "frmCheck.h"
#include "frmMain.h"
#include "modCheck.h"
#include "modCheckLists.h"
#include "modKeepResults.h"
#include "modMarks.h"
#include "modModelStore.h"
#include "modMotionView.h"

#include <stdexcept>

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

void CheckPresenter::CloseWindow() {
  delete Window;
  Window = nullptr;
}

void CheckPresenter::Begin() {
  DropCheck();
  AddedMember = 0;
  Analysing = true;
}

/// The check takes a while on a large truss: the results are on screen before it begins.
void CheckPresenter::Judge() {
  Frame.repaint();
  CheckLastAnalysis();
  ShowStatus();
  if (Window == nullptr || !Window->isVisible()) return;
  Window->Refresh();
  Frame.RedrawWhatCanBeDrawn(false);
}

void CheckPresenter::JudgeQuietly() {
  CheckLastAnalysis();
  ShowMotion(1);
  ShowStatus();
  if (Window != nullptr && Window->isVisible()) Window->Refresh();
}

void CheckPresenter::HideMotion() {
  if (Window == nullptr || !Window->isVisible()) ShowMotion(0);
}

/// A list of loads or areas changes the model and lets the analysis stand; what was judged has gone all the same.
void CheckPresenter::Follow() {
  const bool watched = Window != nullptr && Window->isVisible();
  if (Analysing || Frame.IsWorking() || (!watched && CheckStatusText().empty()) || CheckIsCurrent()) return;
  DropCheck();
  ShowStatus();
  if (watched) Window->Refresh();
}

void CheckPresenter::Drop() {
  Nodes.clear();
  Members.clear();
  DropCheck();
}

void CheckPresenter::ShowStatus() { Status.ShowCheck(QString::fromStdString(CheckStatusText()), CheckStatusLevel()); }

/// At first beside the drawing, which shows what is chosen in it.
void CheckPresenter::Open(const QPoint& place) {
  RebuildKeepingResults();
  if (Window == nullptr) {
    Window = new frmCheck(
        Frame, [this] { return RigidityOnBoard(); }, [this] { FillInRigidity(); });
    Window->move(place);
    BringOntoScreen(*Window);
  }
  Frame.RedrawWhatCanBeDrawn(false); // what was pasted meanwhile is judged, so it is drawn too
  Window->show();
  Window->raise();
  Window->activateWindow();
}

void CheckPresenter::ShowParts(const std::vector<int>& nodes, const std::vector<int>& members) {
  Nodes = nodes;
  Members = members;
  for (Grid* grid : {&GrJoints, &jResGr}) SelectRows(*grid, nodes);
  for (Grid* grid : {&GrMembers, &mResGr}) SelectRows(*grid, members);
  ShowGridOf(nodes.empty() ? 1 : 0);
  Frame.RedrawWhatCanBeDrawn(false);
}

/// Shows a grid of nodes (0) or members (1).  Where its data or its results are shown already, nothing changes.
void CheckPresenter::ShowGridOf(std::size_t kind) {
  QRadioButton& entered = *Board.viewOpt.at(kind);
  const QRadioButton& results = *Board.viewOpt.at(kind + 2);
  const bool shown = entered.isChecked() || (AnalysisDone != FlagFalse && results.isChecked());
  if (!shown) entered.setChecked(true);
}

void CheckPresenter::ShowNoParts() {
  Nodes.clear();
  Members.clear();
  Frame.RedrawWhatCanBeDrawn(false);
}

void CheckPresenter::ShowAddedMember(int m) {
  AddedMember = m;
  AddedIn = ModelAsEntered::Now();
  Frame.RedrawWhatCanBeDrawn(false);
}

RigidityOffer CheckPresenter::RigidityOnBoard() const {
  return OfferRigidity(Board.eTxt->text().toStdString(), Board.aTxt->text().toStdString());
}

void CheckPresenter::FillInRigidity() {
  FillRigidity(Board.eTxt->text().toStdString(), Board.aTxt->text().toStdString());
}

void CheckPresenter::ShowRigidityOffer() {
  if (Window != nullptr && Window->isVisible()) Window->ShowRigidityOffer();
}

void CheckPresenter::Draw() {
  if (DisplaySurface == nullptr) return;
  if (AddedMember != 0 && !AddedIn.IsCurrent()) AddedMember = 0;
  std::vector<int> members = Members;
  if (AddedMember != 0) members.push_back(AddedMember);
  try {
    for (const int m : members) {
      if (m >= 1 && m <= MemberCount) MarkMember(*DisplaySurface, m, Orange, TheDisplay.Style);
    }
    for (const int n : Nodes) {
      if (n >= 1 && n <= NodeCount) MarkNode(*DisplaySurface, n, Orange, TheDisplay.Style);
    }
  } catch (const std::out_of_range&) {
    Members.clear(); // their nodes have gone since they were chosen
    AddedMember = 0;
  }
  DrawShownMotion(*DisplaySurface);
}

} // namespace strutwright
