#include "modEquationSteps.h"

#include "AnalysisState.h"
#include "AnalysisTexts.h"
#include "EquationsState.h"
#include "LongWork.h"
#include "ModelEvents.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modKeepResults.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modSolver.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace strutwright {

namespace {

const std::string FirstCaption = "Add Member 1";

/// Whether there are equations to show; reports what stands against it.
bool CheckModel() {
  if (NodeCount > MaxAnalysedNodes) {
    ShowMessage(MessageIcon::Critical, "The model has " + std::to_string(NodeCount) +
                                           " nodes, but the equations of at most " + std::to_string(MaxAnalysedNodes) +
                                           " can be shown.");
    return false;
  }
  const std::optional<UnknownNode> unknown = FindUnknownNode();
  if (!unknown) return true;
  ShowMessage(MessageIcon::Critical, UnknownNodeText(*unknown, "Correct the member's node numbers first."));
  return false;
}

std::size_t EntryCount(const EquationPage& page) { return static_cast<std::size_t>(page.viewDofCount) + 1; }

std::vector<float> Loads(const EquationPage& page) {
  std::vector<float> P(EntryCount(page), 0.0F);
  BuildLoadVector(P);
  return P;
}

/// Member 1 comes next, and to zeros.
void BeginWithMember1(EquationPage& page) {
  page.memberIndex = 0;
  page.addMemberCaption = FirstCaption;
  page.memberStiffness = {};
  page.matrixOf = 0;
  page.fixed.reset();
  page.allAdded = false;
  page.shownMember = 0;
}

void EmptyMatrix(EquationPage& page) {
  BeginWithMember1(page);
  page.viewStiffness.reset();
}

void MakeMatrix(EquationPage& page) {
  BeginWithMember1(page);
  page.viewStiffness = std::make_shared<ViewStiffness>(page.viewDofCount);
}

void EmptyArrays(EquationPage& page) {
  EmptyMatrix(page);
  page.loads.reset();
  page.displacements.reset();
}

void LayOut(EquationPage& page) {
  const auto freedoms = static_cast<std::int16_t>(2 * NodeCount);
  if (page.viewDofCount != freedoms) EmptyArrays(page);
  page.viewDofCount = freedoms;
  page.loads = std::make_shared<const std::vector<float>>(Loads(page));
}

/// A copy of the page for the next press, which fits the model as it is now; nothing when there is none to show.
std::optional<EquationPage> NextPage() {
  RebuildKeepingResults();
  if (!CheckModel()) return std::nullopt;
  EquationPage page = TheEquations.page;
  if (page.viewDofCount != 2 * NodeCount) LayOut(page);
  return page;
}

void Turn(EquationPage page, EquationStep step) {
  page.lastStep = step;
  if (step != EquationStep::AddMember) {
    page.lastMember = 0;
    page.lastFreedoms = {};
  }
  TheEquations.past.push_back({std::exchange(TheEquations.page, std::move(page)), false});
}

void ShowIgnored(int m, MemberFault fault) { ShowMessage(MessageIcon::Critical, IgnoredText({m, fault})); }

/// The share of the next member in turn; nothing when it names no two nodes.  Shows what is wrong with the member.
std::optional<MemberShare> ShareOf(int m, MemberMatrix& k, int& matrixOf) {
  const std::vector<MemberFault> faults = MemberStiffness(k, m);
  for (const MemberFault fault : faults) ShowIgnored(m, fault);
  if (faults.empty()) matrixOf = m;
  const std::optional<MemberFreedoms> freedoms = FreedomsOf(m);
  if (freedoms) return MemberShare{m, matrixOf, *freedoms, k, {}};
  ShowIgnored(m, MemberFault::NoNode);
  return std::nullopt;
}

void AddNextMember(EquationPage page, int member) {
  std::optional<MemberShare> share = ShareOf(member, page.memberStiffness, page.matrixOf);
  page.memberIndex = static_cast<std::int16_t>(member);
  page.allAdded = member == MemberCount;
  page.addMemberCaption = page.allAdded ? "Clear K" : "Add Member " + std::to_string(member + 1);
  page.lastMember = member;
  page.shownMember = member;
  page.lastFreedoms = share ? share->freedoms : MemberFreedoms{};
  const bool sameMatrix = page.viewStiffness == TheEquations.page.viewStiffness;
  Turn(std::move(page), EquationStep::AddMember);
  if (!share) return;
  TheEquations.past.back().shareAdded = sameMatrix;
  TheEquations.page.viewStiffness->Add(*share);
}

void LeaveRestrainedLoadsOut(const EquationPage& page, std::vector<float>& P) {
  if (!page.fixed) return;
  for (std::size_t d = 1; d < P.size(); ++d) {
    if (page.fixed->at(d) == 1) P[d] = 0.0F;
  }
}

SolveOutcome Solve(const StiffnessMatrix& K, std::vector<float>& D, const std::vector<float>& P) {
  LongWork work(SolvingText);
  return SolveEquations(K, D, P, work);
}

/// The displacements in mm; nothing when the equations can't be solved.
FreedomValues Solution(const EquationPage& page) {
  std::vector<float> P = Loads(page);
  LeaveRestrainedLoadsOut(page, P);
  std::vector<float> D(EntryCount(page), 0.0F);
  const StiffnessMatrix zeros(page.viewDofCount);
  if (Solve(page.viewStiffness ? page.viewStiffness->Values() : zeros, D, P) != SolveOutcome::Solved) return nullptr;
  return std::make_shared<const std::vector<float>>(std::move(D));
}

/// The same, and what keeps them from being solved is shown.
FreedomValues SolvePage(const EquationPage& page) {
  if (page.viewDofCount == 0) {
    ShowMessage(MessageIcon::Critical, AnalysisFailureText(EmptyModelCheck));
    return nullptr;
  }
  if (FreedomValues solution = Solution(page)) return solution;
  ShowMessage(MessageIcon::Critical, AnalysisFailureText(UnstableCheck));
  return nullptr;
}

/// The share of a member as the model is now; nothing when it names no two nodes.
std::optional<MemberShare> ShareNow(int m, EquationPage& page) {
  if (MemberStiffness(page.memberStiffness, m).empty()) page.matrixOf = m;
  const std::optional<MemberFreedoms> freedoms = FreedomsOf(m);
  if (!freedoms) return std::nullopt;
  return MemberShare{m, page.matrixOf, *freedoms, page.memberStiffness, {}};
}

/// Adds the members up to the page's last one again, and restrains between them what was restrained.
void RemakeMatrix(EquationPage& page) {
  const std::vector<int> cleared = page.viewStiffness->MembersBeforeClearings();
  page.viewStiffness = std::make_shared<ViewStiffness>(page.viewDofCount);
  page.memberStiffness = {};
  page.matrixOf = 0;
  const int last = page.memberIndex == 0 && page.allAdded ? MemberCount : std::min<int>(page.memberIndex, MemberCount);
  auto next = cleared.begin();
  for (int m = 0; m <= last; ++m) {
    const std::optional<MemberShare> share = m == 0 ? std::nullopt : ShareNow(m, page);
    if (share) page.viewStiffness->Add(*share);
    for (; next != cleared.end() && (*next <= m || m == last); ++next) page.viewStiffness->Clear(page.fixed);
  }
}

void NameNextMember(EquationPage& page) {
  if (page.memberIndex == 0) return;
  page.allAdded = page.memberIndex >= MemberCount;
  page.addMemberCaption = page.allAdded ? "Clear K" : "Add Member " + std::to_string(page.memberIndex + 1);
  const std::optional<MemberFreedoms> freedoms =
      page.lastMember >= 1 && page.lastMember <= MemberCount ? FreedomsOf(page.lastMember) : std::nullopt;
  page.lastFreedoms = freedoms.value_or(MemberFreedoms{});
}

FreedomFlags FlagsNow(const EquationPage& page) {
  std::vector<float> P = Loads(page);
  std::vector<float> R(P.size(), 0.0F);
  std::vector<std::int16_t> fixed(P.size(), 0);
  RestrainSupports(P, R, fixed);
  return std::make_shared<const std::vector<std::int16_t>>(std::move(fixed));
}

} // namespace

void FollowModel() {
  EquationPage& page = TheEquations.page;
  if (page.viewDofCount == 0 || page.viewDofCount != 2 * NodeCount || FindUnknownNode()) return;
  if (page.loads) page.loads = std::make_shared<const std::vector<float>>(Loads(page));
  if (page.fixed) page.fixed = FlagsNow(page);
  NameNextMember(page);
  if (page.viewStiffness) RemakeMatrix(page);
  if (page.displacements) page.displacements = Solution(page);
}

void StepShowForces() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  LayOut(*page);
  Turn(*std::move(page), EquationStep::ShowForces);
}

void StepAddMember() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  const int member = page->memberIndex + 1;
  if (member > MemberCount) {
    EmptyMatrix(*page);
    Turn(*std::move(page), EquationStep::ClearStiffness);
    return;
  }
  if (member == 1) MakeMatrix(*page);
  AddNextMember(*std::move(page), member);
}

void StepShowGlobalK() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  MakeMatrix(*page);
  MemberMatrix k;
  int matrixOf = 0;
  for (int m = 1; m <= MemberCount; ++m) {
    if (const std::optional<MemberShare> share = ShareOf(m, k, matrixOf)) page->viewStiffness->Add(*share);
  }
  page->allAdded = true;
  Turn(*std::move(page), EquationStep::ShowGlobalK);
}

void StepRestrict() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  std::vector<float> P = Loads(*page);
  std::vector<float> R(P.size(), 0.0F);
  // What was restrained before stays so: its equation has been replaced.
  auto fixed = page->fixed ? *page->fixed : std::vector<std::int16_t>(P.size(), 0);
  RestrainSupports(P, R, fixed);
  page->fixed = std::make_shared<const std::vector<std::int16_t>>(std::move(fixed));
  page->viewStiffness = page->viewStiffness ? std::make_shared<ViewStiffness>(*page->viewStiffness)
                                            : std::make_shared<ViewStiffness>(page->viewDofCount);
  page->viewStiffness->Clear(page->fixed);
  Turn(*std::move(page), EquationStep::Restrict);
}

void StepSolve() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  try {
    const FreedomValues solution = SolvePage(*page);
    if (solution) page->displacements = solution;
    Turn(*std::move(page), solution ? EquationStep::Solve : EquationStep::SolveFailed);
  } catch (const WorkCancelled&) {
    // The user knows; the view stays as it is.
  }
}

bool CanStepBack() { return !TheEquations.past.empty(); }

void StepBack() {
  if (!CanStepBack()) return;
  PastPage last = std::move(TheEquations.past.back());
  TheEquations.past.pop_back();
  TheEquations.page = std::move(last.page);
  if (last.shareAdded) TheEquations.page.viewStiffness->TakeBack();
}

void ResetEquations() {
  EmptyArrays(TheEquations.page);
  TheEquations.page.lastStep = EquationStep::None;
  TheEquations.page.lastMember = 0;
  TheEquations.page.lastFreedoms = {};
  TheEquations.past.clear();
}

} // namespace strutwright
