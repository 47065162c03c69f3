#include "frmMain.h"

// The check of the answer in the main frame.

#include "MainStatusBar.h"
#include "UiState.h"
#include "modCheck.h"

namespace strutwright {

/// The check takes a while on a large truss: the results are on screen before it begins.
void frmMain::CheckAnalysis() {
  repaint();
  CheckLastAnalysis();
  ShowCheckStatus();
}

/// A list of loads or areas changes the model and lets the analysis stand; what was judged has gone all the same.
void frmMain::FollowModel() {
  if (CheckStatusText().empty() || CheckIsCurrent()) return;
  DropCheck();
  ShowCheckStatus();
}

void frmMain::ShowCheckStatus() { stsBar->ShowCheck(QString::fromStdString(CheckStatusText()), CheckStatusLevel()); }

} // namespace strutwright
