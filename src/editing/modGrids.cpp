#include "modGrids.h"

#include "AnalysisState.h"
#include "AnalysisTexts.h"
#include "EditingState.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <string>

namespace strutwright {

namespace {

constexpr std::int16_t ResultRowsAtStart = 1;

/// Leaves one empty row, which names no node or member.
void ClearResultGrid(Grid& grid) {
  ClearGrid(grid, ResultRowsAtStart);
  grid.SetText(1, 0, "");
}

void ListTexts(Grid& grid, int row, const std::array<std::string, 5>& texts) {
  int column = 0;
  for (const std::string& text : texts) {
    if (grid.Text(row, column) != text) grid.SetText(row, column, text); // a view paints what was reported
    ++column;
  }
}

/// whenListed: is called with each member that has been listed.
void ListResults(void (*whenListed)(int m)) {
  if (jResGr.RowCount() != NodeCount + 1) jResGr.SetRowCount(NodeCount + 1);
  for (int node = 1; node <= NodeCount; ++node) ListTexts(jResGr, node, JointResultTexts(node));
  if (mResGr.RowCount() != MemberCount + 1) mResGr.SetRowCount(MemberCount + 1);
  for (int member = 1; member <= MemberCount; ++member) {
    ListTexts(mResGr, member, MemberResultTexts(member));
    whenListed(member);
  }
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

void MakeRoom(Grid& grid, std::size_t rows) {
  constexpr std::size_t max = 1 + Grid::MaxDataRows;
  if (rows <= static_cast<std::size_t>(grid.RowCount())) return;
  const std::size_t spare = rows < max ? 1 : 0;                        // the very last row has none behind it
  grid.SetRowCount(static_cast<int>(std::min(rows, max + 1) + spare)); // one too many is refused as all would be
  NumberRows(grid);
}

void ClearResultGrids() {
  for (Grid* grid : {&jResGr, &mResGr}) ClearGrid(*grid, GridCapacity);
}

std::array<std::string, 5> JointResultTexts(int node) {
  return {std::to_string(node), FormatNumber(NodeDisplacement(node, "x"), "#0.0#"),
          FormatNumber(NodeDisplacement(node, "y"), "#0.0#"), FormatNumber(Reactions.at(XFreedom(node)), "#.#"),
          FormatNumber(Reactions.at(YFreedom(node)), "#.#")};
}

std::array<std::string, 5> MemberResultTexts(int member) {
  return {std::to_string(member), FormatNumber(MemberForce(member), "#0.0#"), MemberState(member),
          FormatNumber(MemberStress(member), "#0.0##"), FormatNumber(MemberStretch(member), "#0.0##")};
}

void resultGrids() {
  ListResults([](int m) { StretchOrMessage(m); });
}

void ListResultsQuietly() {
  ListResults([](int /*m*/) {});
}

float StretchOrMessage(int m) {
  if (const auto fault = StretchFaultOf(m)) ShowMessage(MessageIcon::Information, NoStretchText(m, *fault));
  return MemberStretch(m);
}

} // namespace strutwright
