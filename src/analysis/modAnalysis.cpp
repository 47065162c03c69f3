#include "modAnalysis.h"

#include "AnalysisState.h"
#include "ModelEvents.h"
#include "Platform.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modSolver.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

namespace strutwright {

namespace {

constexpr float RestrainedInY = 1.0F;
constexpr float RestrainedInX = 2.0F;

void AddTo(float& sum, double addend) { sum = static_cast<float>(static_cast<double>(sum) + addend); }

void LeaveAnalysis() {
  AnalysisDone = FlagFalse;
  ModelEvents().AnalysisStateChanged();
}

bool CheckNodeCount() {
  if (NodeCount <= MostAnalysedNodes) return true;
  ShowMessage(MessageIcon::Critical, "The model has " + std::to_string(NodeCount) + " nodes, but at most " +
                                         std::to_string(MostAnalysedNodes) +
                                         " can be analysed.\n"
                                         "Remove nodes and run the analysis again.");
  LeaveAnalysis();
  return false;
}

bool CheckNodeNumber(int m, MemberField field) {
  const int node = RoundNodeNumber(MemberTable(m, field));
  if (node >= 0 && node <= NodeCount) return true;
  const auto rounded = static_cast<float>(std::nearbyint(MemberTable(m, field)));
  ShowMessage(MessageIcon::Critical, "Member " + std::to_string(m) + " names node " + NumberText(rounded) +
                                         ", which does not exist: the nodes are numbered 1 to " +
                                         std::to_string(NodeCount) +
                                         ".\nCorrect the member's node numbers and run the analysis again.");
  LeaveAnalysis();
  return false;
}

/// Reports the first member that names a node outside 0..NodeCount.  Node 0 is left to AddMemberToGlobal.
bool CheckMemberNodes() {
  for (int m = 1; m <= MemberCount; ++m) {
    if (!CheckNodeNumber(m, MemberNodeI) || !CheckNodeNumber(m, MemberNodeJ)) return false;
  }
  return true;
}

/// Sets DofCount, and reports what keeps the model from being analysed at all.
bool CheckModel() {
  if (!CheckNodeCount()) return false;
  DofCount = static_cast<std::int16_t>(2 * NodeCount);
  if (DofCount > 0) return CheckMemberNodes();
  ReportAnalysisFailure(EmptyModelCheck);
  return false;
}

void Restrain(std::size_t freedom, std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed) {
  R.at(freedom) = -P.at(freedom);
  P.at(freedom) = 0.0F;
  fixed.at(freedom) = 1;
}

void AllocateVectors() {
  const auto size = static_cast<std::size_t>(DofCount + 1);
  LoadVector.assign(size, 0.0F);
  FixedDof.assign(size, 0);
  Displacements.assign(size, 0.0F);
  Reactions.assign(size, 0.0F);
}

template <typename Equations>
void AddMembers(Equations& K) {
  MemberStiffnessBuffer.Recreate(4, 4);
  for (int m = 1; m <= MemberCount; ++m) {
    MemberStiffness(MemberStiffnessBuffer, m);
    AddMemberToGlobal(m, MemberStiffnessBuffer, K);
  }
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

/// As long as it lives, messages are left out.
class Silence : public MessageBoxes {
 public:
  Silence() : Before(std::exchange(ThePlatform().messages, this)) {}
  ~Silence() override { ThePlatform().messages = Before; }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

  void Show(const Message& /*message*/) override {}
  bool Ask(const Message& /*question*/) override { return false; }

 private:
  MessageBoxes* Before;
};

// K(d, c) = K(c, d) = 0, K(d, d) = 1: the equation of a restrained freedom reads D(d) = 0.
void RestrainEquations(Matrix& K, const std::vector<std::int16_t>& fixed) {
  for (int d = 1; d <= DofCount; ++d) {
    if (fixed.at(static_cast<std::size_t>(d)) != 1) continue;
    for (int c = 1; c <= DofCount; ++c) {
      K(d, c) = 0.0F;
      K(c, d) = 0.0F;
    }
    K(d, d) = 1.0F;
  }
}

/// The equations once more, entry by entry: what is wrong with members has been reported when they were first made.
Matrix EquationsInFull() {
  const Silence silence;
  Matrix K;
  AssembleGlobalStiffness(K);
  RestrainEquations(K, FixedDof);
  return K;
}

/// The supported node whose number is exactly the value of the field; 0 where there is none.
int SupportedNode(int m, MemberField field) {
  const float number = MemberTable(m, field);
  const int node = RoundNodeNumber(number);
  if (node < 1 || node > NodeCount || static_cast<float>(node) != number) return 0;
  return NodeTable(node, NodeSupport) == 0.0F ? 0 : node;
}

// R += +-(F - PS) (c, s), minus where the member starts.   Checked: reactions balance the loads.
void AddMemberReaction(int node, int m, double sign) {
  const double outer = static_cast<double>(MemberTable(m, MemberFieldForce)) - MemberTable(m, MemberPS);
  AddTo(Reactions[YFreedom(node)], outer * sign * MemberTable(m, MemberFieldSin));
  AddTo(Reactions[XFreedom(node)], outer * sign * MemberTable(m, MemberFieldCos));
}

} // namespace

void AnalyseTruss(std::int16_t& ok) {
  FailedCheck.reset();
  if (!CheckModel()) {
    ok = FlagFalse;
    return;
  }
  AllocateVectors();
  GlobalStiffness = Matrix();
  TiledMatrix K(DofCount);
  AssembleGlobalStiffness(K);
  BuildLoadVector(LoadVector);
  ApplySupports(K, LoadVector, Reactions, FixedDof);
  SolveEquations(K, Displacements, LoadVector, DofCount, ok, EquationsInFull);
  if (ok == FlagFalse) return;
  for (int m = 1; m <= MemberCount; ++m) ComputeMemberForce(m);
  ComputeReactions();
}

void AllocateAnalysisArrays() {
  AllocateVectors();
  GlobalStiffness.Recreate(DofCount, DofCount + 1);
  MemberStiffnessBuffer.Recreate(4, 4);
}

void AssembleGlobalStiffness(Matrix& K) {
  DofCount = static_cast<std::int16_t>(2 * NodeCount);
  K.Recreate(DofCount, DofCount + 1);
  AddMembers(K);
}

void AssembleGlobalStiffness(TiledMatrix& K) {
  DofCount = static_cast<std::int16_t>(2 * NodeCount);
  K = TiledMatrix(DofCount);
  AddMembers(K);
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

void ApplySupports(Matrix& K, std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed) {
  RestrainSupports(P, R, fixed);
  RestrainEquations(K, fixed);
}

void ApplySupports(TiledMatrix& K, std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed) {
  RestrainSupports(P, R, fixed);
  for (int d = 1; d <= DofCount; ++d) {
    if (fixed.at(static_cast<std::size_t>(d)) == 1) K.Restrain(d);
  }
}

void ComputeReactions() {
  // Each reaction gets its members in the order of their numbers.
  for (int m = 1; m <= MemberCount; ++m) {
    const int i = SupportedNode(m, MemberNodeI);
    const int j = SupportedNode(m, MemberNodeJ);
    if (j != 0) AddMemberReaction(j, m, 1.0);
    if (i != 0 && i != j) AddMemberReaction(i, m, -1.0); // a member from a node to itself counts as ending there
  }
}

void ReportAnalysisFailure(int code) {
  FailedCheck = code;
  ShowMessage(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check " + std::to_string(code));
  LeaveAnalysis();
}

float NodeDisplacement(int n, std::string_view direction) {
  return Displacements.at(direction == "x" ? XFreedom(n) : YFreedom(n));
}

} // namespace strutwright
