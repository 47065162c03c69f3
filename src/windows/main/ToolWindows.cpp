#include "ToolWindows.h"

#include "frmClassSet.h"
#include "frmHand.h"
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

frmHand& ToolWindows::MakeHand() {
  RebuildKeepingResults();
  if (Hand == nullptr) Hand = std::make_unique<frmHand>(Frame);
  Hand->Begin();
  return *Hand;
}

void ToolWindows::ShowHand() { BringToFront(MakeHand()); }

void ToolWindows::ShowClassSet() {
  RebuildKeepingResults();
  if (ClassSet == nullptr) ClassSet = std::make_unique<frmClassSet>(Frame);
  ClassSet->Begin();
  BringToFront(*ClassSet);
}

void ToolWindows::ShowJointByHand(int node) {
  frmHand& hand = MakeHand();
  hand.ShowJoint(node);
  BringToFront(hand);
}

void ToolWindows::Follow() {
  if (ClassSet != nullptr) ClassSet->Follow();
  if (Hand != nullptr) Hand->Follow();
  if (Influence != nullptr) Influence->Follow();
  if (Vary != nullptr) Vary->Follow();
}

} // namespace strutwright
