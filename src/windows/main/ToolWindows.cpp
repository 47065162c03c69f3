#include "ToolWindows.h"

#include "frmInfluence.h"
#include "frmMain.h"
#include "frmVary.h"
#include "modKeepResults.h"

namespace strutwright {

namespace {

void BringToFront(QWidget& window) {
  window.show();
  window.raise();
  window.activateWindow();
}

} // namespace

ToolWindows::ToolWindows(frmMain& frame) : Frame(frame) {}

ToolWindows::~ToolWindows() = default;

void ToolWindows::ShowInfluence() {
  RebuildKeepingResults();
  if (Influence == nullptr) Influence = std::make_unique<frmInfluence>(Frame);
  Influence->Propose();
  BringToFront(*Influence);
}

void ToolWindows::ShowVary() {
  RebuildKeepingResults();
  if (Vary == nullptr) Vary = std::make_unique<frmVary>(Frame);
  Vary->Begin();
  BringToFront(*Vary);
}

void ToolWindows::Follow() {
  if (Influence != nullptr) Influence->Follow();
  if (Vary != nullptr) Vary->Follow();
}

} // namespace strutwright
