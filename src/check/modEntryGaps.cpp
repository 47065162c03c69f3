#include "modEntryGaps.h"

#include "modModelStore.h"
#include "modNumberText.h"

namespace strutwright {

namespace {

bool HasNumber(const Grid& grid, int row) { return NumericValue(grid.Text(row, 1)).has_value(); }

RowGap GapIn(const Grid& grid) {
  RowGap gap;
  if (grid.ColumnCount() < 2) return gap;
  std::vector<int> numbered;
  for (int row = 1; row < grid.RowCount(); ++row) {
    if (HasNumber(grid, row)) numbered.push_back(row);
  }
  gap.readRows = static_cast<int>(numbered.size());
  for (const int row : numbered) {
    if (row > gap.readRows) gap.unreadRows.push_back(row);
  }
  if (!gap.IsOne()) return gap;
  for (int row = 1; row < numbered.back(); ++row) {
    if (!HasNumber(grid, row)) gap.emptyRows.push_back(row);
  }
  return gap;
}

std::string Text(const RowGap& gap, const std::string& column, const std::string& noun) {
  const bool oneEmpty = gap.emptyRows.size() == 1;
  const bool oneRead = gap.readRows == 1;
  const bool oneUnread = gap.unreadRows.size() == 1;
  return (oneEmpty ? "Row " : "Rows ") + FirstNumbers(gap.emptyRows) + (oneEmpty ? " has no " : " have no ") + column +
         ": " + std::to_string(gap.readRows) + " " + noun + (oneRead ? " is" : "s are") + " read, " +
         (oneUnread ? "row " : "rows ") + FirstNumbers(gap.unreadRows) + (oneUnread ? " is not." : " are not.");
}

std::string JointsText(const RowGap& gap) { return Text(gap, "x", "node"); }
std::string MembersText(const RowGap& gap) { return Text(gap, "Node i", "member"); }

/// Sentences on one line.
std::string Joined(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& each : sentences) text += (text.empty() ? "" : " ") + each;
  return text;
}

/// The members that name node 0 as this end, and at the other one a node or not.
std::vector<int> MembersWithout(MemberField end, MemberField other, bool hasOther) {
  std::vector<int> members;
  for (int m = 1; m <= MemberCount; ++m) {
    const bool lacks = RoundNodeNumber(MemberTable(m, end)) == 0;
    if (lacks && (RoundNodeNumber(MemberTable(m, other)) != 0) == hasOther) members.push_back(m);
  }
  return members;
}

std::string MembersHaveNo(const std::vector<int>& members, const std::string& what) {
  const bool one = members.size() == 1;
  return (one ? "Member " : "Members ") + FirstNumbers(members) + (one ? " has no " : " have no ") + what;
}

std::string DrawnText(const std::vector<int>& members, const std::string& what, const std::string& where) {
  return MembersHaveNo(members, what) + (members.size() == 1 ? ": it is drawn " : ": they are drawn ") + where + ".";
}

} // namespace

RowGap GapInJoints() { return GapIn(GrJoints); }

RowGap GapInMembers() { return GapIn(GrMembers); }

std::string RowGapText() {
  std::vector<std::string> sentences;
  if (const RowGap gap = GapInJoints(); gap.IsOne()) sentences.push_back(JointsText(gap));
  if (const RowGap gap = GapInMembers(); gap.IsOne()) sentences.push_back(MembersText(gap));
  return Joined(sentences);
}

std::string MissingNodeText() {
  std::vector<std::string> sentences;
  const std::vector<int> withoutJ = MembersWithout(MemberNodeJ, MemberNodeI, true);
  const std::vector<int> withoutI = MembersWithout(MemberNodeI, MemberNodeJ, true);
  const std::vector<int> withoutBoth = MembersWithout(MemberNodeI, MemberNodeJ, false);
  if (!withoutJ.empty()) sentences.push_back(DrawnText(withoutJ, "Node j", "to the origin"));
  if (!withoutI.empty()) sentences.push_back(DrawnText(withoutI, "Node i", "from the origin"));
  if (!withoutBoth.empty()) sentences.push_back(MembersHaveNo(withoutBoth, "nodes."));
  return Joined(sentences);
}

void FindRowGaps(FindingList& findings) {
  if (const RowGap gap = GapInJoints(); gap.IsOne()) {
    findings.Add(FindingKind::RowGap, [&gap] {
      return Finding{FindingKind::RowGap, JointsText(gap), gap.emptyRows, {}};
    });
  }
  if (const RowGap gap = GapInMembers(); gap.IsOne()) {
    findings.Add(FindingKind::RowGap, [&gap] {
      return Finding{FindingKind::RowGap, MembersText(gap), {}, gap.emptyRows};
    });
  }
}

} // namespace strutwright
