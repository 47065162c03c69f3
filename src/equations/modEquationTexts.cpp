#include "modEquationTexts.h"

#include "modEquationCells.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <vector>

namespace strutwright {

namespace {

// The table of sentences; %1 and %2 stand for what each says below.

// What was done.
constexpr std::string_view NothingDone = "Nothing has been assembled yet.";
constexpr std::string_view ForcesShown =
    "The load vector P holds the loads at the nodes, and what prestressed members exert on them.";
constexpr std::string_view MemberAdded = // member, its freedoms
    "The 16 numbers of member %1 were added to K in the rows and columns of its freedoms, %2.";
constexpr std::string_view MemberIgnored = // member, its predecessor
    "Member %1 was ignored, so the matrix of member %2 was added once more, at the freedoms of member %1.";
constexpr std::string_view FirstMemberIgnored = // member
    "Member %1 was ignored, and no valid member came before it: zeros were added.";
constexpr std::string_view MemberWithoutNodes = // member
    "Member %1 was ignored: without two nodes there is no place in K for it.";
constexpr std::string_view StiffnessCleared = "K was cleared.";
constexpr std::string_view AllMembersAdded = // number of members
    "K is the sum of the matrices of all members (%1), each added at its own freedoms.";
constexpr std::string_view SupportsApplied = // number of freedoms
    "Supported freedoms (%1) can't move: their rows and columns are zero now, with 1 on the diagonal.";
constexpr std::string_view NoSupports = "No node has a support, so nothing was cleared.";
constexpr std::string_view EquationsSolved = "K D = P was solved: D holds the displacement of each freedom in mm.";
constexpr std::string_view NothingToSolve = "There is no freedom, so there is nothing to solve.";
constexpr std::string_view NotSolved =
    "K D = P has no single solution: something can move without any member resisting it.";

constexpr std::string_view ForcesFound =
    "Each member's force follows from how its ends moved apart: f = EA/L (c du + s dv) + PS.";
constexpr std::string_view ReactionsFound =
    "Each reaction balances the loads and the member forces at its support: R = -P + sum of +-(f - PS) (c, s).";

// What comes next.
constexpr std::string_view ModelFirst =
    "Enter nodes and members; then Add Member 1 or Show Global K begins the matrix.";
constexpr std::string_view FirstMemberNext =
    "Add Member 1 begins K with one member; Show Global K assembles all members at once.";
constexpr std::string_view MemberNext = // member
    "Add Member %1 adds the next member at its own freedoms.";
constexpr std::string_view SupportsNext = "Restrict DOFs takes the supported freedoms out of the equations.";
constexpr std::string_view SolutionNext = "Solve finds the displacements that balance the loads.";
constexpr std::string_view SupportsBeforeSolution =
    "Nothing holds the truss in place before Restrict DOFs, so restrict first, then solve.";
constexpr std::string_view MembersBeforeSolution =
    "Show Global K assembles all members; then restrict and solve again.";
constexpr std::string_view MendModel =
    "Add the members or supports that are missing, and begin again with Show Global K.";
constexpr std::string_view ForcesNext = "Member Forces finds what each member bears; Show Global K begins again.";
constexpr std::string_view ReactionsNext = "Reactions finds what the supports do to the truss.";
constexpr std::string_view BeginAgain = "That was the whole method. Show Global K begins again.";

std::string Fill(std::string_view sentence, const std::string& first = {}, const std::string& second = {}) {
  std::string text;
  for (std::size_t i = 0; i < sentence.size(); ++i) {
    if (sentence[i] != '%') {
      text += sentence[i];
    } else {
      text += sentence[++i] == '1' ? first : second;
    }
  }
  return text;
}

std::string Fill(std::string_view sentence, int first) { return Fill(sentence, std::to_string(first)); }

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool last = i + 1 == words.size();
    text += (i == 0 ? "" : last ? " and " : ", ") + words[i];
  }
  return text;
}

std::string MemberText(const EquationPage& page) {
  const int member = page.lastMember;
  if (page.lastFreedoms[1] == 0) return Fill(MemberWithoutNodes, member);
  if (page.matrixOf == 0) return Fill(FirstMemberIgnored, member);
  if (page.matrixOf != member) return Fill(MemberIgnored, std::to_string(member), std::to_string(page.matrixOf));
  std::vector<std::string> labels;
  for (std::size_t p = 1; p <= 4; ++p) labels.push_back(FreedomLabel(page.lastFreedoms[p]));
  return Fill(MemberAdded, std::to_string(member), Joined(labels));
}

int FixedCount(const EquationPage& page) {
  return page.fixed ? static_cast<int>(std::count(page.fixed->begin(), page.fixed->end(), 1)) : 0;
}

std::string FailureToCome(const EquationPage& page) {
  if (!page.allAdded) return std::string(MembersBeforeSolution);
  return std::string(page.fixed ? MendModel : SupportsBeforeSolution);
}

// Where an entry comes from.

std::string SharePlace(const MemberShare& share) {
  std::string text = "member " + std::to_string(share.member);
  if (share.matrixOf != share.member) text += " with the matrix of member " + std::to_string(share.matrixOf);
  return text;
}

/// "3 x is supported", "1 x and 2 y are supported"
std::string SupportedText(const std::vector<std::int16_t>& fixed, int row, int column) {
  std::vector<std::string> labels;
  for (const int freedom : {row, column}) {
    const bool twice = freedom == column && row == column && !labels.empty();
    if (fixed[static_cast<std::size_t>(freedom)] == 1 && !twice) labels.push_back(FreedomLabel(freedom));
  }
  return Joined(labels) + (labels.size() == 1 ? " is supported" : " are supported");
}

/// A sum as it is written: the sign stands between its terms.
class WrittenSum {
 public:
  void Add(float value, const std::string& place) {
    if (Terms == 0) {
      Text = NumberAsShown(value);
    } else {
      Text += (value < 0 ? " - " : " + ") + NumberAsShown(std::abs(value));
    }
    Text += " (" + place + ")";
    ++Terms;
  }
  int TermCount() const { return Terms; }
  const std::string& Written() const { return Text; }

 private:
  std::string Text;
  int Terms = 0;
};

void AddShares(WrittenSum& sum, const ViewStiffness& stiffness, std::size_t first, int row, int column) {
  const std::vector<MemberShare>& shares = stiffness.Shares();
  for (std::size_t i = first; i < shares.size(); ++i) {
    const float share = shares[i].At(row, column);
    if (share != 0.0F) sum.Add(share, SharePlace(shares[i]));
  }
}

} // namespace

std::string StepDoneText(const EquationPage& page) {
  switch (page.lastStep) {
  case EquationStep::None: break;
  case EquationStep::ShowForces: return std::string(ForcesShown);
  case EquationStep::AddMember: return MemberText(page);
  case EquationStep::ClearStiffness: return std::string(StiffnessCleared);
  case EquationStep::ShowGlobalK: return Fill(AllMembersAdded, static_cast<int>(page.viewStiffness->Shares().size()));
  case EquationStep::Restrict:
    return FixedCount(page) > 0 ? Fill(SupportsApplied, FixedCount(page)) : std::string(NoSupports);
  case EquationStep::Solve: return std::string(EquationsSolved);
  case EquationStep::MemberForces: return std::string(ForcesFound);
  case EquationStep::SupportReactions: return std::string(ReactionsFound);
  case EquationStep::SolveFailed: return std::string(page.viewDofCount == 0 ? NothingToSolve : NotSolved);
  }
  return std::string(NothingDone);
}

std::string StepToComeText() {
  const EquationPage& page = TheEquations.page;
  if (NodeCount == 0 || MemberCount == 0) return std::string(ModelFirst);
  if (page.lastStep == EquationStep::Solve) return std::string(ForcesNext);
  if (page.lastStep == EquationStep::MemberForces) return std::string(ReactionsNext);
  if (page.lastStep == EquationStep::SupportReactions) return std::string(BeginAgain);
  if (page.lastStep == EquationStep::SolveFailed) return FailureToCome(page);
  if (!page.viewStiffness) return std::string(FirstMemberNext);
  if (page.fixed) return std::string(FixedCount(page) > 0 ? SolutionNext : MendModel);
  if (!page.allAdded) return Fill(MemberNext, page.memberIndex + 1);
  return std::string(SupportsNext);
}

std::string CellOrigin(int row, int column) {
  const std::optional<float> value = EquationValue(EquationGrid::Stiffness, row, column);
  if (!value) return "";
  const ViewStiffness& stiffness = *TheEquations.page.viewStiffness;
  const ViewStiffness::Origin origin = stiffness.OriginOf(row, column);
  const std::string name = "K(" + FreedomLabel(row) + ", " + FreedomLabel(column) + ") = ";
  const std::string result = NumberAsShown(*value) + " kN/mm";
  const std::string cleared = origin.cleared ? "cleared: " + SupportedText(*origin.cleared, row, column) : "";
  WrittenSum sum;
  if (origin.cleared) sum.Add(row == column ? 1.0F : 0.0F, cleared);
  const int termsBefore = sum.TermCount();
  AddShares(sum, stiffness, origin.firstShare, row, column);
  if (sum.TermCount() > termsBefore) return name + sum.Written() + " = " + result;
  return name + result + ", " + (origin.cleared ? cleared : "no member adds to it so far");
}

} // namespace strutwright
