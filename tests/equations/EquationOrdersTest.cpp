// The five buttons in every order of up to five presses, against the steps written down as they are described: a
// matrix in full, the routines of the analysis, and no memory of how it came about.  Each press is undone again, so
// that every Step Back is checked as well.

#include "AnalysisTexts.h"
#include "EquationsFixture.h"
#include "LongWork.h"
#include "modAnalysis.h"
#include "modMember.h"
#include "modSolver.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using Numbers = std::optional<std::vector<float>>;

/// What the view should hold.
struct Expected {
  int memberIndex = 0;
  std::string caption = "Add Member 1";
  std::optional<StiffnessMatrix> K;
  MemberMatrix k;
  std::vector<std::int16_t> fixed;
  Numbers forces;
  Numbers disp;

  static void Show(const std::vector<MemberAtFault>& atFault) {
    for (const MemberAtFault& each : atFault) ShowMessage(MessageIcon::Critical, IgnoredText(each));
  }

  std::vector<float> Loads() const {
    std::vector<float> P(static_cast<std::size_t>(DofCount) + 1);
    BuildLoadVector(P);
    return P;
  }

  void LayOut() { forces = Loads(); }

  void Create() {
    K = StiffnessMatrix(DofCount);
    fixed.assign(static_cast<std::size_t>(DofCount) + 1, 0);
  }

  void PressAddMember() {
    if (++memberIndex == 1) {
      Create();
      k = {};
    }
    if (memberIndex > MemberCount) {
      memberIndex = 0;
      caption = "Add Member 1";
      K.reset();
      return;
    }
    std::vector<MemberAtFault> atFault;
    for (const MemberFault fault : MemberStiffness(k, memberIndex)) atFault.push_back({memberIndex, fault});
    if (!AddMemberToGlobal(memberIndex, k, *K)) atFault.push_back({memberIndex, MemberFault::NoNode});
    Show(atFault);
    caption = memberIndex < MemberCount ? "Add Member " + std::to_string(memberIndex + 1) : "Clear K";
  }

  void PressShowGlobalK() {
    memberIndex = 0;
    caption = "Add Member 1";
    Create();
    Show(AssembleGlobalStiffness(*K));
  }

  void PressRestrict() {
    if (!K) Create();
    std::vector<float> P = Loads();
    std::vector<float> R(P.size());
    ApplySupports(*K, P, R, fixed);
  }

  void PressSolve() {
    std::vector<float> P = Loads();
    if (!K) Create();
    for (std::size_t d = 0; d < P.size(); ++d) {
      if (fixed[d] == 1) P[d] = 0;
    }
    std::vector<float> D(P.size());
    LongWork work("Solving");
    if (SolveEquations(*K, D, P, work) == SolveOutcome::Solved) {
      disp = D;
    } else {
      ShowMessage(MessageIcon::Critical, AnalysisFailureText(UnstableCheck));
    }
  }
};

class EquationOrdersTest : public EquationsTest {
 protected:
  static constexpr int LongestOrder = 5;

  static Numbers Shown(const FreedomValues& values) { return values ? Numbers(*values) : std::nullopt; }

  void ExpectShown(const Expected& expected) const {
    const EquationPage& page = TheEquations.page;
    ASSERT_EQ(page.addMemberCaption, expected.caption) << order;
    ASSERT_EQ(page.memberIndex, expected.memberIndex) << order;
    ASSERT_EQ(Shown(page.loads), expected.forces) << order;
    ASSERT_EQ(Shown(page.displacements), expected.disp) << order;
    ASSERT_EQ(page.viewStiffness != nullptr, expected.K.has_value()) << order;
    if (expected.K) {
      ASSERT_EQ(page.viewStiffness->Values(), *expected.K) << order;
    }
  }

  /// Presses a button here and there; both must say the same.
  void Press(std::size_t button, Expected& expected) {
    static constexpr std::array Steps{StepShowForces, StepAddMember, StepShowGlobalK, StepRestrict, StepSolve};
    static constexpr std::array Described{&Expected::LayOut, &Expected::PressAddMember, &Expected::PressShowGlobalK,
                                          &Expected::PressRestrict, &Expected::PressSolve};
    Steps[button]();
    const std::vector<Message> said = TakeMessages();
    if (!expected.forces) expected.LayOut();
    const bool emptyBefore = !expected.K;
    (expected.*Described[button])();
    if (Described[button] == &Expected::PressSolve && emptyBefore) expected.K.reset(); // solving shows no matrix
    ASSERT_EQ(said, TakeMessages()) << order;
    ExpectShown(expected);
  }

  void PressEveryButton(const Expected& before, int pressesLeft) {
    for (std::size_t button = 0; button < 5 && !HasFatalFailure(); ++button) {
      order.push_back("FAGRS"[button]);
      Expected after = before;
      Press(button, after);
      if (pressesLeft > 1) PressEveryButton(after, pressesLeft - 1);
      StepBack();
      ExpectShown(before);
      order.pop_back();
      ++presses;
    }
  }

  void TryEveryOrder(const ModelData& model) {
    SetModel(model);
    DofCount = static_cast<std::int16_t>(2 * NodeCount);
    PressEveryButton(Expected{}, LongestOrder);
    EXPECT_EQ(presses, 5 + 25 + 125 + 625 + 3125);
    EXPECT_FALSE(CanStepBack());
  }

  std::string order; ///< the presses so far: F A G R S
  int presses = 0;
};

TEST_F(EquationOrdersTest, HoldsForAStableTruss) { TryEveryOrder(FourNodesThreeBars()); }

TEST_F(EquationOrdersTest, HoldsForIgnoredMembersAndLoadedSupports) {
  ModelData model = TriangleWithIgnoredMembers();
  model.nodes[0].forceX = 3;
  model.members[0].PS = 12;
  TryEveryOrder(model);
}

TEST_F(EquationOrdersTest, HoldsForAMechanism) { TryEveryOrder(Square()); }

TEST_F(EquationOrdersTest, HoldsForNodesWithoutMembers) { TryEveryOrder({{{0, 0, 1, 2, 1}, {3, 0, 0, 0, 3}}, {}}); }

} // namespace
} // namespace strutwright
