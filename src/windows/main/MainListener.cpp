#include "MainListener.h"

#include "MainStatusBar.h"
#include "frmMain.h"
#include "modGrids.h"

namespace strutwright {

MainListener::MainListener(frmMain& frame) : Frame(frame) {
  ListenToModel(this);
  ListenToFiles(this);
  ListenToView(this);
}

MainListener::~MainListener() {
  ListenToModel(nullptr);
  ListenToFiles(nullptr);
  ListenToView(nullptr);
}

void MainListener::AnalysisEnded() { Frame.LeaveResults(); }

void MainListener::AnalysisStateChanged() { Frame.ShowStatusTexts(); }

void MainListener::ModelChanged() { Frame.Redraw(false); }

/// Without its highlight.
void MainListener::PickDropped() { Frame.Redraw(false); }

/// A half-built matrix is of the old numbers.
void MainListener::NodesRenumbered() {
  Frame.ForgetParts();
  Frame.ResetEquations();
  Frame.ResumeLive();
}

void MainListener::ModelEmptied() {
  ClearResultGrids();
  Frame.ForgetParts();
  Frame.EndRigidityOffer();
}

void MainListener::ModelReplaced() {
  Frame.EndRigidityOffer();
  Frame.ResetEquations();
  Frame.ResumeLive();
  Frame.Redraw(true);
}

void MainListener::FileOpened() {
  Frame.ForgetParts();
  Frame.ResetScales();
}

void MainListener::CaptionChanged(const std::string& caption) { Frame.SetCaption(caption); }

void MainListener::RecentFilesChanged() { Frame.ShowRecentFiles(); }

void MainListener::ViewChanged() { Frame.Redraw(false); }

void MainStatus::ShowHint(const std::string& text) { Bar.ShowHint(QString::fromStdString(text)); }

bool MainStatus::ShowProgress(const std::string& text, double fraction) {
  Working = true;
  if (Elsewhere != nullptr) return Elsewhere->ShowProgress(text, fraction);
  return Bar.ShowProgress(QString::fromStdString(text), fraction);
}

void MainStatus::EndProgress() {
  Working = false;
  if (Elsewhere != nullptr) return Elsewhere->EndProgress();
  Bar.EndProgress();
}

} // namespace strutwright
