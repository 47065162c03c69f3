#include "modGrids.h"

#include "AnalysisState.h"
#include "AnalysisTexts.h"
#include "EditingState.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <string>

namespace strutwright {

namespace {

constexpr std::int16_t ResultRowsAtStart = 1;

/// Leaves one empty row, which names no node or member.
void ClearResultGrid(Grid& grid) {
  ClearGrid(grid, ResultRowsAtStart);
  grid.SetText(1, 0, "");
}

void ListNode(int node) {
  jResGr.SetText(node, 0, std::to_string(node));
  jResGr.SetText(node, 1, FormatNumber(NodeDisplacement(node, "x"), "#0.0#"));
  jResGr.SetText(node, 2, FormatNumber(NodeDisplacement(node, "y"), "#0.0#"));
  jResGr.SetText(node, 3, FormatNumber(Reactions.at(XFreedom(node)), "#.#"));
  jResGr.SetText(node, 4, FormatNumber(Reactions.at(YFreedom(node)), "#.#"));
}

void ListMember(int member) {
  mResGr.SetText(member, 0, std::to_string(member));
  mResGr.SetText(member, 1, FormatNumber(MemberForce(member), "#0.0#"));
  mResGr.SetText(member, 2, MemberState(member));
  mResGr.SetText(member, 3, FormatNumber(MemberStress(member), "#0.0##"));
  mResGr.SetText(member, 4, FormatNumber(StretchOrMessage(member), "#0.0##"));
}

} // namespace

void initGrids() {
  ClearGrid(GrJoints, GridCapacity);
  WriteHeadings(GrJoints, JointColumns);
  NumberRows(GrJoints);
  ClearGrid(GrMembers, GridCapacity);
  WriteHeadings(GrMembers, MemberColumns);
  NumberRows(GrMembers);
  ClearResultGrid(jResGr);
  WriteHeadings(jResGr, JointResultColumns);
  ClearResultGrid(mResGr);
  WriteHeadings(mResGr, MemberResultColumns);
}

void ClearResultGrids() {
  for (Grid* grid : {&jResGr, &mResGr}) ClearGrid(*grid, GridCapacity);
}

void resultGrids() {
  jResGr.SetRowCount(NodeCount + 1);
  for (int node = 1; node <= NodeCount; ++node) ListNode(node);
  mResGr.SetRowCount(MemberCount + 1);
  for (int member = 1; member <= MemberCount; ++member) ListMember(member);
}

float StretchOrMessage(int m) {
  if (const auto fault = StretchFaultOf(m)) ShowMessage(MessageIcon::Information, NoStretchText(m, *fault));
  return MemberStretch(m);
}

} // namespace strutwright
