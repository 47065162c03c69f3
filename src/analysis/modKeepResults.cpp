#include "modKeepResults.h"

#include "AnalysisState.h"
#include "ModelEvents.h"
#include "modModelStore.h"

namespace strutwright {

namespace {

/// Whether two tables hold the same in the fields that a user enters.
bool HoldSameInput(const FieldTable& one, const FieldTable& other) {
  if (one.Count() != other.Count()) return false;
  for (int field = 1; field <= 5; ++field) {
    for (int entity = 1; entity <= one.Count(); ++entity) {
      if (one(entity, field) != other(entity, field)) return false;
    }
  }
  return true;
}

void CopyResultFields(const FieldTable& from, FieldTable& to) {
  for (int field = MemberFieldLength; field <= MemberFieldForce; ++field) {
    for (int member = 1; member <= from.Count(); ++member) to(member, field) = from(member, field);
  }
}

} // namespace

void RebuildKeepingResults() {
  const FieldTable nodes = NodeTable;
  const FieldTable members = MemberTable;
  RebuildModelFromGrids();
  if (AnalysisDone == FlagFalse) return;
  if (HoldSameInput(nodes, NodeTable) && HoldSameInput(members, MemberTable)) {
    CopyResultFields(members, MemberTable);
  } else {
    EndAnalysis();
    ModelEvents().ModelChanged();
  }
}

} // namespace strutwright
