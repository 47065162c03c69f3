#include "modEquationSteps.h"

#include "AnalysisState.h"
#include "AnalysisTexts.h"
#include "EquationPages.h"
#include "LongWork.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modExercise.h"
#include "modKeepResults.h"
#include "modModelStore.h"

#include <optional>
#include <string>
#include <utility>

namespace strutwright {

namespace {

constexpr const char* ChangedSinceSolution =
    "The model has changed since its equations were solved: press Solve first.";

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

/// A copy of the page for the next press, which fits the model as it is now; nothing when there is none to show.
std::optional<EquationPage> NextPage() {
  RebuildKeepingResults();
  if (!CheckModel()) return std::nullopt;
  EquationPage page = TheEquations.page;
  if (page.viewDofCount != 2 * NodeCount) LayOutPage(page);
  return page;
}

/// Notes what model the page shows; a step after the other of one model shares the note.
void TakeModelOf(EquationPage& page) {
  if (page.madeOf == nullptr || !page.madeOf->IsCurrent()) {
    page.madeOf = std::make_shared<const ModelAsEntered>(ModelAsEntered::Now());
  }
}

void Turn(EquationPage page, EquationStep step) {
  page.lastStep = step;
  TakeModelOf(page);
  if (step != EquationStep::AddMember) {
    page.lastMember = 0;
    page.lastFreedoms = {};
  }
  TheEquations.past.push_back({std::exchange(TheEquations.page, std::move(page)), false});
}

void ShowIgnored(int m, MemberFault fault) { ShowMessage(MessageIcon::Critical, IgnoredText({m, fault})); }

void AddNextMember(EquationPage page) {
  const NextShare next = TakeNextMember(page).value();
  for (const MemberFault fault : next.faults) ShowIgnored(page.lastMember, fault);
  const bool sameMatrix = page.viewStiffness == TheEquations.page.viewStiffness;
  Turn(std::move(page), EquationStep::AddMember);
  if (!next.share) return;
  TheEquations.past.back().shareAdded = sameMatrix;
  TheEquations.page.viewStiffness->Add(*next.share);
}

/// The displacements in mm.  Nothing when the equations can't be solved, and what keeps them from it is shown.
FreedomValues SolvePage(const EquationPage& page) {
  if (page.viewDofCount == 0) {
    ShowMessage(MessageIcon::Critical, AnalysisFailureText(EmptyModelCheck));
    return nullptr;
  }
  if (FreedomValues solution = SolutionOf(page)) return solution;
  ShowMessage(MessageIcon::Critical, AnalysisFailureText(UnstableCheck));
  return nullptr;
}

/// A step from the displacements on; without any nothing happens.
void StepOn(void (*find)(EquationPage&), EquationStep step) {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  if (!page->displacements) {
    if (CanFindForces()) ShowMessage(MessageIcon::Critical, ChangedSinceSolution);
    return;
  }
  find(*page);
  Turn(*std::move(page), step);
}

} // namespace

void FollowModel() {
  DropQuestions(); // they were about the model as it was
  BringUpToModel(TheEquations.page);
  TakeModelOf(TheEquations.page);
}

void StepShowForces() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  LayOutPage(*page);
  Turn(*std::move(page), EquationStep::ShowForces);
}

void StepAddMember() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  if (page->memberIndex < MemberCount) return AddNextMember(*std::move(page));
  EmptyPageMatrix(*page);
  Turn(*std::move(page), EquationStep::ClearStiffness);
}

void StepShowGlobalK() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  for (const MemberAtFault& each : MakeWholeMatrix(*page)) ShowIgnored(each.member, each.fault);
  Turn(*std::move(page), EquationStep::ShowGlobalK);
}

void StepRestrict() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  RestrictPage(*page);
  Turn(*std::move(page), EquationStep::Restrict);
}

void StepSolve() {
  std::optional<EquationPage> page = NextPage();
  if (!page) return;
  try {
    const FreedomValues solution = SolvePage(*page);
    if (solution) {
      page->displacements = solution;
      page->memberForces.reset();
      page->reactions.reset();
    }
    Turn(*std::move(page), solution ? EquationStep::Solve : EquationStep::SolveFailed);
  } catch (const WorkCancelled&) {
    // The user knows; the view stays as it is.
  }
}

bool CanFindForces() {
  return TheEquations.page.displacements != nullptr && TheEquations.page.lastStep != EquationStep::SolveFailed;
}

void StepMemberForces() { StepOn(FindMemberForces, EquationStep::MemberForces); }

void StepReactions() { StepOn(FindReactions, EquationStep::SupportReactions); }

bool CanStepBack() { return !TheEquations.past.empty(); }

void StepBack() {
  if (!CanStepBack()) return;
  DropQuestions();
  PastPage last = std::move(TheEquations.past.back());
  TheEquations.past.pop_back();
  TheEquations.page = std::move(last.page);
  if (last.shareAdded) TheEquations.page.viewStiffness->TakeBack();
}

void ResetEquations() {
  DropQuestions();
  EmptyPage(TheEquations.page);
  TheEquations.page.lastStep = EquationStep::None;
  TheEquations.page.lastMember = 0;
  TheEquations.page.lastFreedoms = {};
  TheEquations.past.clear();
}

} // namespace strutwright
