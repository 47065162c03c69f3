#include "modEquationSteps.h"

#include "AnalysisState.h"
#include "EquationsState.h"
#include "LongWork.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modKeepResults.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modSolver.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace strutwright {

namespace {

const std::string FirstCaption = "Add Member 1";

/// Puts the state of the last analysis back when it goes: a solve that fails here says nothing about those results.
class KeptAnalysisState {
 public:
  KeptAnalysisState() = default;
  ~KeptAnalysisState() {
    const bool changed = AnalysisDone != Done;
    AnalysisDone = Done;
    FailedCheck = Failed;
    GlobalStiffness = std::move(Stiffness);
    if (changed) TheHost().RefreshStatusTexts();
  }
  KeptAnalysisState(const KeptAnalysisState&) = delete;
  KeptAnalysisState& operator=(const KeptAnalysisState&) = delete;

 private:
  std::int16_t Done = AnalysisDone;
  std::optional<int> Failed = FailedCheck;
  Matrix Stiffness = std::exchange(GlobalStiffness, Matrix()); ///< the solver may need it for itself
};

bool CheckNodeCount() {
  if (NodeCount <= MostAnalysedNodes) return true;
  ShowMessage(MessageIcon::Critical, "The model has " + std::to_string(NodeCount) + " nodes, but the equations of at " +
                                         "most " + std::to_string(MostAnalysedNodes) + " can be shown.");
  return false;
}

bool CheckNodeNumber(int m, MemberField field) {
  const int node = RoundNodeNumber(MemberTable(m, field));
  if (node >= 0 && node <= NodeCount) return true;
  const auto rounded = static_cast<float>(std::nearbyint(MemberTable(m, field)));
  const std::string there =
      NodeCount == 0 ? "the model has no nodes" : "the nodes are numbered 1 to " + std::to_string(NodeCount);
  ShowMessage(MessageIcon::Critical, "Member " + std::to_string(m) + " names node " + NumberText(rounded) +
                                         ", which does not exist: " + there +
                                         ".\nCorrect the member's node numbers first.");
  return false;
}

/// Whether there are equations to show; reports what stands against it.
bool CheckModel() {
  if (!CheckNodeCount()) return false;
  for (int m = 1; m <= MemberCount; ++m) {
    if (!CheckNodeNumber(m, MemberNodeI) || !CheckNodeNumber(m, MemberNodeJ)) return false;
  }
  return true;
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
  page.memberStiffness.Recreate(4, 4);
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

/// The share of the next member in turn; nothing when it names no two nodes.
std::optional<MemberShare> ShareOf(int m, Matrix& k, int& matrixOf) {
  if (MemberStiffness(k, m)) matrixOf = m;
  const std::optional<std::array<int, 5>> freedoms = MemberFreedoms(m);
  if (!freedoms) return std::nullopt;
  MemberShare share;
  share.member = m;
  share.matrixOf = matrixOf;
  share.freedoms = *freedoms;
  share.k = k;
  return share;
}

void AddNextMember(EquationPage page, int member) {
  std::optional<MemberShare> share = ShareOf(member, page.memberStiffness, page.matrixOf);
  page.memberIndex = static_cast<std::int16_t>(member);
  page.allAdded = member == MemberCount;
  page.addMemberCaption = page.allAdded ? "Clear K" : "Add Member " + std::to_string(member + 1);
  page.lastMember = member;
  page.shownMember = member;
  page.lastFreedoms = share ? share->freedoms : std::array<int, 5>{};
  const bool sameMatrix = page.viewStiffness == TheEquations.page.viewStiffness;
  Turn(std::move(page), EquationStep::AddMember);
  if (!share) return;
  TheEquations.past.back().shareAdded = sameMatrix;
  TheEquations.page.viewStiffness->Add(*std::move(share));
}

void LeaveRestrainedLoadsOut(const EquationPage& page, std::vector<float>& P) {
  if (!page.fixed) return;
  for (std::size_t d = 1; d < P.size(); ++d) {
    if (page.fixed->at(d) == 1) P[d] = 0.0F;
  }
}

/// The displacements in mm; nothing when the equations can't be solved, which has been reported.
FreedomValues SolvePage(const EquationPage& page) {
  const KeptAnalysisState kept;
  if (page.viewDofCount == 0) {
    ReportAnalysisFailure(EmptyModelCheck);
    return nullptr;
  }
  std::vector<float> P = Loads(page);
  LeaveRestrainedLoadsOut(page, P);
  const int n = page.viewDofCount;
  TiledMatrix K = page.viewStiffness ? page.viewStiffness->Values().InTiles() : TiledMatrix(n);
  const auto inFull = [&] { return page.viewStiffness ? page.viewStiffness->Values().InFull() : Matrix(n, n + 1); };
  std::vector<float> D(EntryCount(page), 0.0F);
  std::int16_t ok = FlagTrue;
  SolveEquations(K, D, P, page.viewDofCount, ok, inFull);
  if (ok == FlagFalse) return nullptr;
  return std::make_shared<const std::vector<float>>(std::move(D));
}

} // namespace

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
  Matrix k(4, 4);
  int matrixOf = 0;
  for (int m = 1; m <= MemberCount; ++m) {
    if (std::optional<MemberShare> share = ShareOf(m, k, matrixOf)) page->viewStiffness->Add(*std::move(share));
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
