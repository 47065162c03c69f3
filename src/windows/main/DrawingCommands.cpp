#include "DrawingCommands.h"

#include "ControlBoard.h"
#include "EditingState.h"
#include "MainStatusBar.h"
#include "frmMain.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <cstdint>
#include <string>

#include <QLineEdit>

namespace strutwright {

/// The model is taken from the grids first, so that a row pasted meanwhile is not overwritten.
void DrawingCommands::DrawNode(float x, float y) {
  Frame.EndAnalysis(false);
  RebuildModelFromGrids();
  Frame.addNode(x, y);
  RebuildModelFromGrids();
  Frame.Redraw(false);
}

void DrawingCommands::DrawMember(int i, int j) {
  Frame.EndAnalysis(false);
  RebuildModelFromGrids();
  Frame.AddMember(static_cast<std::int16_t>(i), static_cast<std::int16_t>(j));
  RebuildModelFromGrids();
  if (TheEditing.rigidityFromBoard) {
    TakeRigidityFromBoard();
    RebuildModelFromGrids();
  }
  Frame.Redraw(false);
}

void DrawingCommands::OfferRigidity() {
  const bool without = MemberCount > 0 && !(MemberTable(MemberCount, MemberE) > 0);
  if (without && !TheEditing.rigidityFromBoard) Status.OfferRigidity();
}

/// The new members' E and A are of the same step.
void DrawingCommands::TakeRigidityFromBoard() {
  const int m = MemberCount;
  const std::string E = Board.eTxt->text().toStdString();
  const std::string A = Board.aTxt->text().toStdString();
  if (!GrMembers.Text(m, MemberE).empty() || !GrMembers.Text(m, MemberA).empty()) return;
  if (NumericValue(E).value_or(0.0F) > 0) GrMembers.SetText(m, MemberE, E);
  if (NumericValue(A).value_or(0.0F) > 0) GrMembers.SetText(m, MemberA, A);
}

} // namespace strutwright
