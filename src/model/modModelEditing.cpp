#include "modModelEditing.h"

#include "ModelEvents.h"
#include "Platform.h"
#include "modModelStore.h"
#include "modNodeSearch.h"
#include "modNumberText.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

namespace {

constexpr const char* DeletedCell = " ";
constexpr char32_t Backspace = 8;

/// For each row of a grid, header included, whether it is to be removed.
using RowMarks = std::vector<bool>;

void CheckDataRow(const Grid& grid, int row) {
  if (row < 1 || row >= grid.RowCount()) throw GridRangeError(row, 1);
}

bool Confirm(const std::string& question) {
  if (AskQuestion(question)) return true;
  ModelEvents().PickDropped();
  return false;
}

void BlankRow(Grid& grid, int row) {
  for (int column = 1; column < grid.ColumnCount(); ++column) grid.SetText(row, column, DeletedCell);
}

bool IsNumeric(const std::string& text) { return NumericValue(text).has_value(); }

bool HoldsNothing(const std::string& text) {
  return text.find_first_not_of(" \t") == std::string::npos || NumericValue(text) == 0.0F;
}

bool RowHoldsNothing(const Grid& grid, int row) {
  for (int column = 1; column < grid.ColumnCount(); ++column) {
    if (!HoldsNothing(grid.Text(row, column))) return false;
  }
  return true;
}

RowMarks MarkRows(const Grid& grid, const std::function<bool(int)>& removable) {
  RowMarks marks(static_cast<std::size_t>(grid.RowCount()));
  for (int row = 1; row < grid.RowCount(); ++row) marks[static_cast<std::size_t>(row)] = removable(row);
  return marks;
}

/// The texts of the data rows that stay, column 0 included.
std::vector<std::vector<std::string>> RemainingTexts(const Grid& grid, const RowMarks& removed) {
  std::vector<std::vector<std::string>> texts;
  for (int row = 1; row < grid.RowCount(); ++row) {
    if (removed[static_cast<std::size_t>(row)]) continue;
    auto& rowTexts = texts.emplace_back();
    for (int column = 0; column < grid.ColumnCount(); ++column) rowTexts.push_back(grid.Text(row, column));
  }
  return texts;
}

void WriteTexts(Grid& grid, const std::vector<std::vector<std::string>>& texts) {
  int row = 0;
  for (const auto& rowTexts : texts) {
    ++row;
    grid.SetText(row, 0, std::to_string(row));
    for (int column = 1; column < grid.ColumnCount(); ++column) {
      grid.SetText(row, column, rowTexts[static_cast<std::size_t>(column)]);
    }
  }
}

/// Removes the marked rows; false, after a message, when there is none.
bool RemoveRows(Grid& grid, const RowMarks& removed) {
  if (std::find(removed.begin(), removed.end(), true) == removed.end()) {
    ShowMessage(MessageIcon::Information, "No zero rows found");
    return false;
  }
  auto texts = RemainingTexts(grid, removed);
  const bool emptied = texts.empty();
  if (emptied) texts.emplace_back(static_cast<std::size_t>(grid.ColumnCount()));
  grid.SetRowCount(1 + static_cast<int>(texts.size()));
  WriteTexts(grid, texts);
  if (emptied) grid.SetCurrentCell(1, 0);
  return true;
}

bool MeetsNode(int m, int n) {
  const auto number = static_cast<float>(n);
  return MemberTable(m, MemberNodeI) == number || MemberTable(m, MemberNodeJ) == number;
}

/// Returns whether there were any.
bool BlankMembersAt(int n) {
  bool any = false;
  for (int m = 1; m <= MemberCount; ++m) {
    if (!MeetsNode(m, n)) continue;
    BlankRow(GrMembers, m);
    any = true;
  }
  return any;
}

void LowerNodeNumbersAbove(int n) {
  for (int m = 1; m <= MemberCount; ++m) {
    if (!IsNumeric(GrMembers.Text(m, MemberNodeI))) continue;
    for (const MemberField end : {MemberNodeI, MemberNodeJ}) {
      const float number = MemberTable(m, end);
      if (number > static_cast<float>(n)) GrMembers.SetText(m, end, NumberText(number - 1));
    }
  }
}

/// Keeps the row of the node at the world origin among those that stay.
void SpareOriginNode(RowMarks& removed) {
  const auto row = static_cast<std::size_t>(FindNode(0, 0));
  if (row > 0 && row < removed.size() && IsNumeric(GrJoints.Text(static_cast<int>(row), NodeX))) removed[row] = false;
}

/// For each row of GrJoints, the number of its node once the marked rows are gone; 0 for a marked one.
std::vector<int> NewNodeNumbers(const RowMarks& removed) {
  std::vector<int> numbers{0};
  int remaining = 0;
  for (std::size_t row = 1; row < removed.size(); ++row) numbers.push_back(removed[row] ? 0 : ++remaining);
  return numbers;
}

/// A number that names no row stays as it is: it names none afterwards either.
void FollowNode(int member, MemberField end, const std::vector<int>& newNumbers) {
  const auto value = NumericValue(GrMembers.Text(member, end));
  if (!value) return;
  const int number = RoundNodeNumber(*value);
  if (number < 1 || number >= static_cast<int>(newNumbers.size())) return;
  const int newNumber = newNumbers[static_cast<std::size_t>(number)];
  if (newNumber != number) GrMembers.SetText(member, end, std::to_string(newNumber));
}

} // namespace

void DeleteNode(int n, bool ask) {
  CheckDataRow(GrJoints, n);
  if (ask && !Confirm("Are you sure you want to delete node " + std::to_string(n) + " and all connecting members?")) {
    return;
  }
  RebuildModelFromGrids(); // the members are judged as the grids have them now, with the old node numbers
  BlankRow(GrJoints, n);
  CompressGrid(GrJoints);
  const bool anyMember = BlankMembersAt(n);
  LowerNodeNumbersAbove(n);
  if (anyMember) CompressGrid(GrMembers);
  AfterModelEdit();
}

void DeleteMember(int m, bool ask) {
  CheckDataRow(GrMembers, m);
  if (ask && !Confirm("Are you sure you want to delete member " + std::to_string(m) + "?")) return;
  BlankRow(GrMembers, m);
  CompressGrid(GrMembers);
  AfterModelEdit();
}

bool CompressGrid(Grid& grid) {
  return RemoveRows(grid, MarkRows(grid, [&grid](int row) { return grid.Text(row, 1) == DeletedCell; }));
}

bool CompressZeroRows(Grid& grid) {
  RowMarks removed = MarkRows(grid, [&grid](int row) { return RowHoldsNothing(grid, row); });
  const bool nodesGo = &grid == &GrJoints;
  if (nodesGo) SpareOriginNode(removed);
  if (!RemoveRows(grid, removed)) return false;
  if (nodesGo) RenumberMemberNodes(NewNodeNumbers(removed));
  return true;
}

void RenumberMemberNodes(const std::vector<int>& newNumbers) {
  for (int member = 1; member < GrMembers.RowCount(); ++member) {
    for (const MemberField end : {MemberNodeI, MemberNodeJ}) FollowNode(member, end, newNumbers);
  }
}

void AfterModelEdit() {
  // Without a current analysis there is nothing to end, and ending it shows nothing.
  EndAnalysis();
  RebuildModelFromGrids();
  ModelEvents().ModelChanged();
}

void FilterNumericKey(char32_t& key, bool allowMinus) {
  const std::u32string_view allowed = allowMinus ? U"0123456789.-" : U"0123456789.";
  if (key != Backspace && allowed.find(key) == std::u32string_view::npos) key = 0;
}

} // namespace strutwright
