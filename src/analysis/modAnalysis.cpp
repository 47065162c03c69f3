#include "modAnalysis.h"

#include "AnalysisState.h"
#include "LongWork.h"
#include "modModelStore.h"
#include "modSolver.h"

#include <cmath>
#include <cstddef>

namespace strutwright {

namespace {

void AddTo(float& sum, double addend) { sum = static_cast<float>(static_cast<double>(sum) + addend); }

bool NamesUnknownNode(int m, MemberField field) {
  const int node = RoundNodeNumber(MemberTable(m, field));
  return node < 0 || node > NodeCount;
}

/// Sets DofCount; Done where nothing keeps the model from being analysed.
AnalysisEnd CheckModel() {
  if (NodeCount > MaxAnalysedNodes) return AnalysisEnd::TooManyNodes;
  DofCount = static_cast<std::int16_t>(2 * NodeCount);
  if (DofCount <= 0) return AnalysisEnd::NoNodes;
  return FindUnknownNode() ? AnalysisEnd::UnknownNode : AnalysisEnd::Done;
}

void Restrain(std::size_t freedom, std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed) {
  R.at(freedom) = -P.at(freedom);
  P.at(freedom) = 0.0F;
  fixed.at(freedom) = 1;
}

// P(i) += PS (c, s), P(j) -= PS (c, s).   Checked: a bar between fixed ends bears PS and moves nothing.
void AddPrestress(int m, std::vector<float>& P) {
  const double PS = MemberTable(m, MemberPS);
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  // Without two nodes or a length there is no direction to push in; the member has been reported as ignored.
  if (i <= 0 || j <= 0 || !(MemberLength(m) > 0)) return;
  const auto Px = static_cast<float>(MemberCos(m) * PS);
  const auto Py = static_cast<float>(MemberSin(m) * PS);
  AddTo(P.at(XFreedom(j)), -Px);
  AddTo(P.at(YFreedom(j)), -Py);
  AddTo(P.at(XFreedom(i)), Px);
  AddTo(P.at(YFreedom(i)), Py);
}

/// The supported node whose number is exactly the value of the field; 0 where there is none.
int SupportedNode(int m, MemberField field) {
  const float number = MemberTable(m, field);
  const int node = RoundNodeNumber(number);
  if (node < 1 || node > NodeCount || static_cast<float>(node) != number) return 0;
  return NodeTable(node, NodeSupport) == 0.0F ? 0 : node;
}

} // namespace

AnalysisEnd AnalyseTruss(const AnalysisReports& reports) {
  if (const AnalysisEnd end = CheckModel(); end != AnalysisEnd::Done) return end;
  AllocateAnalysisArrays();
  reports.membersAtFault(AssembleGlobalStiffness(GlobalStiffness));
  BuildLoadVector(LoadVector);
  ApplySupports(GlobalStiffness, LoadVector, Reactions, FixedDof);
  LongWork work(reports.solvingText);
  const SolveOutcome outcome = SolveEquations(GlobalStiffness, Displacements, LoadVector, work);
  if (outcome == SolveOutcome::Unstable) return AnalysisEnd::Unstable;
  for (int m = 1; m <= MemberCount; ++m) ComputeMemberForce(m);
  ComputeReactions();
  return AnalysisEnd::Done;
}

std::optional<UnknownNode> FindUnknownNode() {
  for (int m = 1; m <= MemberCount; ++m) {
    for (const MemberField field : {MemberNodeI, MemberNodeJ}) {
      if (NamesUnknownNode(m, field)) return UnknownNode{m, static_cast<float>(std::nearbyint(MemberTable(m, field)))};
    }
  }
  return std::nullopt;
}

void AllocateAnalysisArrays() {
  const auto size = static_cast<std::size_t>(DofCount + 1);
  GlobalStiffness = StiffnessMatrix(DofCount);
  MemberStiffnessBuffer = MemberMatrix();
  LoadVector.assign(size, 0.0F);
  FixedDof.assign(size, 0);
  Displacements.assign(size, 0.0F);
  Reactions.assign(size, 0.0F);
}

std::vector<MemberAtFault> AssembleGlobalStiffness(StiffnessMatrix& K) {
  std::vector<MemberAtFault> atFault;
  DofCount = static_cast<std::int16_t>(2 * NodeCount);
  K = StiffnessMatrix(DofCount);
  MemberStiffnessBuffer = MemberMatrix();
  for (int m = 1; m <= MemberCount; ++m) {
    for (const MemberFault fault : MemberStiffness(MemberStiffnessBuffer, m)) atFault.push_back({m, fault});
    if (!AddMemberToGlobal(m, MemberStiffnessBuffer, K)) atFault.push_back({m, MemberFault::NoNode});
  }
  return atFault;
}

void BuildLoadVector(std::vector<float>& P) {
  for (int i = 1; i <= NodeCount; ++i) {
    if (NodeTable(i, NodeForceX) != 0.0F) P.at(XFreedom(i)) = NodeTable(i, NodeForceX);
    if (NodeTable(i, NodeForceY) != 0.0F) P.at(YFreedom(i)) = NodeTable(i, NodeForceY);
  }
  for (int m = 1; m <= MemberCount; ++m) {
    if (MemberTable(m, MemberPS) != 0.0F) AddPrestress(m, P);
  }
}

void RestrainSupports(std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed) {
  for (int i = 1; i <= NodeCount; ++i) {
    const float code = NodeTable(i, NodeSupport);
    if (code == 0.0F) continue;
    if (code != RestrainedInX) Restrain(YFreedom(i), P, R, fixed);
    if (code != RestrainedInY) Restrain(XFreedom(i), P, R, fixed);
  }
}

// K(d, c) = K(c, d) = 0, K(d, d) = 1: the equation of a restrained freedom reads D(d) = 0.
void RestrainEquations(StiffnessMatrix& K, const std::vector<std::int16_t>& fixed) {
  for (int d = 1; d <= K.Freedoms(); ++d) {
    if (fixed.at(static_cast<std::size_t>(d)) == 1) K.Restrain(d);
  }
}

void ApplySupports(StiffnessMatrix& K, std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed) {
  RestrainSupports(P, R, fixed);
  RestrainEquations(K, fixed);
}

// R += +-(F - PS) (c, s), minus where the member starts.   Checked: reactions balance the loads.
std::vector<ReactionShare> ReactionSharesOf(int m, float force, const MemberAxis& axis) {
  const int i = SupportedNode(m, MemberNodeI);
  const int j = SupportedNode(m, MemberNodeJ);
  const double outer = static_cast<double>(force) - MemberTable(m, MemberPS);
  std::vector<ReactionShare> shares;
  const auto add = [&](int node, double sign) {
    shares.push_back({YFreedom(node), sign, axis.s, outer * sign * axis.s});
    shares.push_back({XFreedom(node), sign, axis.c, outer * sign * axis.c});
  };
  if (j != 0) add(j, 1.0);
  if (i != 0 && i != j) add(i, -1.0); // a member from a node to itself counts as ending there
  return shares;
}

void AddReactionShare(const ReactionShare& share, std::vector<float>& R) { AddTo(R.at(share.freedom), share.share); }

void ComputeReactions() {
  // Each reaction gets its members in the order of their numbers.
  for (int m = 1; m <= MemberCount; ++m) {
    for (const ReactionShare& share : ReactionSharesOf(m, MemberTable(m, MemberFieldForce), StoredAxis(m))) {
      AddReactionShare(share, Reactions);
    }
  }
}

float NodeDisplacement(int n, std::string_view direction) {
  return Displacements.at(direction == "x" ? XFreedom(n) : YFreedom(n));
}

} // namespace strutwright
