#include "modCheckLists.h"

#include "WorkbenchState.h"
#include "modModelStore.h"
#include "modMotionView.h"

#include <algorithm>

namespace strutwright {

namespace {

using Lines = std::vector<CheckLine>;

constexpr const char* NoReport = "The check could not be made";

Lines InWords(const std::string& text) { return {{text, {}, {}}}; }

CheckLine LineOf(const Cure& cure) {
  if (cure.IsRigidity()) return {cure.text, {}, TheCheck.report.withoutRigidity};
  if (cure.IsMember()) return {cure.text, {cure.node, cure.otherNode}, {}};
  return {cure.text, {cure.node}, {}};
}

} // namespace

Lines FindingLines() {
  if (!TheCheck.failure.empty()) return InWords(NoReport);
  Lines lines;
  for (const Finding& each : TheCheck.report.findings) lines.push_back({each.text, each.nodes, each.members});
  return lines.empty() ? InWords("Nothing odd about the model") : lines;
}

Lines ZeroBarLines() {
  if (!TheCheck.failure.empty()) return InWords(NoReport);
  if (!TheCheck.report.stability.Stable()) return InWords("Not looked for in a mechanism");
  Lines lines;
  for (const ZeroBar& bar : TheCheck.report.zeroBars) {
    lines.push_back({"Member " + std::to_string(bar.member) + ": " + bar.reason, {}, {bar.member}});
  }
  return lines.empty() ? InWords("No zero bars") : lines;
}

Lines CureLines() {
  Lines lines;
  const Mechanism* shown = ShownMechanism();
  if (shown == nullptr) return lines;
  for (const Cure& cure : shown->cures) lines.push_back(LineOf(cure));
  return lines.empty() ? InWords("No single member or support would") : lines;
}

void SelectRows(Grid& grid, const std::vector<int>& rows) {
  const auto first = std::find_if(rows.begin(), rows.end(), [](int row) { return row >= 1; });
  if (first == rows.end() || *first >= grid.RowCount() || grid.ColumnCount() < 2) return;
  const int count = static_cast<int>(rows.end() - first);
  const bool together = rows.back() == *first + count - 1 && rows.back() < grid.RowCount();
  grid.SetCurrentCell(*first, 1);
  grid.ExtendSelection(together ? rows.back() : *first, grid.ColumnCount() - 1);
}

} // namespace strutwright
