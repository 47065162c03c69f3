#include "EquationPages.h"

#include "AnalysisState.h"
#include "AnalysisTexts.h"
#include "Ensure.h"
#include "LongWork.h"
#include "modAnalysis.h"
#include "modModelStore.h"
#include "modSolver.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

namespace strutwright {

namespace {

const std::string FirstCaption = "Add Member 1";

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

void MakeMatrix(EquationPage& page) {
  BeginWithMember1(page);
  page.viewStiffness = std::make_shared<ViewStiffness>(page.viewDofCount);
}

NextShare ShareOf(int m, MemberMatrix& k, int& matrixOf) {
  NextShare next;
  next.faults = MemberStiffness(k, m);
  if (next.faults.empty()) matrixOf = m;
  if (const std::optional<MemberFreedoms> freedoms = FreedomsOf(m)) {
    next.share = MemberShare{m, matrixOf, *freedoms, k, {}};
  } else {
    next.faults.push_back(MemberFault::NoNode);
  }
  return next;
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
    const std::optional<MemberShare> share =
        m == 0 ? std::nullopt : ShareOf(m, page.memberStiffness, page.matrixOf).share;
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

/// What the supports of the model restrain, and the reactions before any member adds to them.
struct Supports {
  std::vector<float> reactions;
  std::vector<std::int16_t> fixed;
};

Supports SupportsNow(const EquationPage& page) {
  std::vector<float> P = Loads(page);
  Supports supports{std::vector<float>(P.size(), 0.0F), std::vector<std::int16_t>(P.size(), 0)};
  RestrainSupports(P, supports.reactions, supports.fixed);
  return supports;
}

} // namespace

void EmptyPageMatrix(EquationPage& page) {
  BeginWithMember1(page);
  page.viewStiffness.reset();
}

void EmptyPage(EquationPage& page) {
  EmptyPageMatrix(page);
  page.loads.reset();
  page.displacements.reset();
  page.memberForces.reset();
  page.reactions.reset();
}

void LayOutPage(EquationPage& page) {
  const auto freedoms = static_cast<std::int16_t>(2 * NodeCount);
  if (page.viewDofCount != freedoms) EmptyPage(page);
  page.viewDofCount = freedoms;
  page.loads = std::make_shared<const std::vector<float>>(Loads(page));
}

std::optional<NextShare> TakeNextMember(EquationPage& page) {
  const int member = page.memberIndex + 1;
  if (member > MemberCount) return std::nullopt;
  if (member == 1) MakeMatrix(page);
  NextShare next = ShareOf(member, page.memberStiffness, page.matrixOf);
  page.memberIndex = static_cast<std::int16_t>(member);
  page.allAdded = member == MemberCount;
  page.addMemberCaption = page.allAdded ? "Clear K" : "Add Member " + std::to_string(member + 1);
  page.lastMember = member;
  page.shownMember = member;
  page.lastFreedoms = next.share ? next.share->freedoms : MemberFreedoms{};
  return next;
}

std::vector<MemberAtFault> MakeWholeMatrix(EquationPage& page) {
  MakeMatrix(page);
  std::vector<MemberAtFault> atFault;
  MemberMatrix k;
  int matrixOf = 0;
  for (int m = 1; m <= MemberCount; ++m) {
    const NextShare next = ShareOf(m, k, matrixOf);
    for (const MemberFault fault : next.faults) atFault.push_back({m, fault});
    if (next.share) page.viewStiffness->Add(*next.share);
  }
  page.allAdded = true;
  return atFault;
}

void RestrictPage(EquationPage& page) {
  std::vector<float> P = Loads(page);
  std::vector<float> R(P.size(), 0.0F);
  // What was restrained before stays so: its equation has been replaced.
  auto fixed = page.fixed ? *page.fixed : std::vector<std::int16_t>(P.size(), 0);
  RestrainSupports(P, R, fixed);
  page.fixed = std::make_shared<const std::vector<std::int16_t>>(std::move(fixed));
  page.viewStiffness = page.viewStiffness ? std::make_shared<ViewStiffness>(*page.viewStiffness)
                                          : std::make_shared<ViewStiffness>(page.viewDofCount);
  page.viewStiffness->Clear(page.fixed);
}

std::vector<float> LoadsToSolve(const EquationPage& page) {
  std::vector<float> P = Loads(page);
  for (std::size_t d = 1; page.fixed && d < P.size(); ++d) {
    if (page.fixed->at(d) == 1) P[d] = 0.0F;
  }
  return P;
}

FreedomValues SolutionOf(const EquationPage& page) {
  std::vector<float> D(EntryCount(page), 0.0F);
  const StiffnessMatrix zeros(page.viewDofCount);
  LongWork work(SolvingText);
  const StiffnessMatrix& K = page.viewStiffness ? page.viewStiffness->Values() : zeros;
  if (SolveEquations(K, D, LoadsToSolve(page), work) != SolveOutcome::Solved) return nullptr;
  return std::make_shared<const std::vector<float>>(std::move(D));
}

void FindMemberForces(EquationPage& page) {
  Ensure(page.displacements != nullptr, "member forces come from displacements");
  std::vector<float> forces(static_cast<std::size_t>(MemberCount) + 1, 0.0F);
  for (int m = 1; m <= MemberCount; ++m) {
    forces[static_cast<std::size_t>(m)] = ForceTermsOf(m, AxisOf(m), *page.displacements).force;
  }
  page.memberForces = std::make_shared<const std::vector<float>>(std::move(forces));
}

void FindReactions(EquationPage& page) {
  FindMemberForces(page);
  std::vector<float> reactions = SupportsNow(page).reactions;
  for (int m = 1; m <= MemberCount; ++m) {
    const float force = page.memberForces->at(static_cast<std::size_t>(m));
    for (const ReactionShare& share : ReactionSharesOf(m, force, AxisOf(m))) AddReactionShare(share, reactions);
  }
  page.reactions = std::make_shared<const std::vector<float>>(std::move(reactions));
}

void BringUpToModel(EquationPage& page) {
  if (page.viewDofCount == 0 || page.viewDofCount != 2 * NodeCount || FindUnknownNode()) return;
  if (page.loads) page.loads = std::make_shared<const std::vector<float>>(Loads(page));
  if (page.fixed) page.fixed = std::make_shared<const std::vector<std::int16_t>>(SupportsNow(page).fixed);
  NameNextMember(page);
  if (page.viewStiffness) RemakeMatrix(page);
  if (page.displacements) page.displacements = SolutionOf(page);
  if (!page.displacements) {
    page.memberForces.reset();
    page.reactions.reset();
  }
  const bool hasReactions = page.reactions != nullptr;
  if (page.memberForces) FindMemberForces(page);
  if (hasReactions) FindReactions(page);
}

} // namespace strutwright
