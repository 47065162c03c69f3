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

/// A view paints what it is told of.
void SetIfOther(Grid& grid, int row, int column, const std::string& text) {
  if (grid.Text(row, column) != text) grid.SetText(row, column, text);
}

void ListNode(int node) {
  SetIfOther(jResGr, node, 0, std::to_string(node));
  SetIfOther(jResGr, node, 1, FormatNumber(NodeDisplacement(node, "x"), "#0.0#"));
  SetIfOther(jResGr, node, 2, FormatNumber(NodeDisplacement(node, "y"), "#0.0#"));
  SetIfOther(jResGr, node, 3, FormatNumber(Reactions.at(XFreedom(node)), "#.#"));
  SetIfOther(jResGr, node, 4, FormatNumber(Reactions.at(YFreedom(node)), "#.#"));
}

/// stretch: mm.
void ListMember(int member, float stretch) {
  SetIfOther(mResGr, member, 0, std::to_string(member));
  SetIfOther(mResGr, member, 1, FormatNumber(MemberForce(member), "#0.0#"));
  SetIfOther(mResGr, member, 2, MemberState(member));
  SetIfOther(mResGr, member, 3, FormatNumber(MemberStress(member), "#0.0##"));
  SetIfOther(mResGr, member, 4, FormatNumber(stretch, "#0.0##"));
}

/// stretch: gives that of a member.
void ListResults(float (*stretch)(int m)) {
  if (jResGr.RowCount() != NodeCount + 1) jResGr.SetRowCount(NodeCount + 1);
  for (int node = 1; node <= NodeCount; ++node) ListNode(node);
  if (mResGr.RowCount() != MemberCount + 1) mResGr.SetRowCount(MemberCount + 1);
  for (int member = 1; member <= MemberCount; ++member) ListMember(member, stretch(member));
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

void resultGrids() { ListResults(StretchOrMessage); }

void ListResultsQuietly() { ListResults(MemberStretch); }

float StretchOrMessage(int m) {
  if (const auto fault = StretchFaultOf(m)) ShowMessage(MessageIcon::Information, NoStretchText(m, *fault));
  return MemberStretch(m);
}

} // namespace strutwright
