#include "AnalysisFixture.h"
#include "LargeModels.h"
#include "modAnalysis.h"
#include "modColumns.h"
#include "modMember.h"
#include "modRenumbering.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <utility>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

/// Forces that balance in exact arithmetic may be off by this part of all loads and prestress together.
constexpr double BalanceTolerance = 1e-4;
/// Entries that cancel in exact arithmetic may be off by this part of the largest stiffness.
constexpr double StiffnessTolerance = 1e-5;
/// Two orders of the same elimination may differ by this part of the largest displacement.
constexpr double OrderTolerance = 1e-3;

constexpr std::uint32_t FirstLawSeed = 4711;
constexpr std::uint32_t SeedCount = 40;

/// A strip of triangles with uneven corners, bars of many sizes, loads and prestress everywhere, and now and then a bar
/// more than it needs.  Each node beyond the first two hangs on the two before it, so that the truss is stable.
ModelData RandomTruss(std::uint32_t seed) {
  std::mt19937 random(seed);
  const auto between = [&random](double least, double most) {
    return static_cast<float>(least + (most - least) * (static_cast<double>(random()) / 4294967296.0));
  };
  const int nodes = 3 + static_cast<int>(random() % 10);
  const auto bar = [&](int i, int j) {
    const auto from = static_cast<float>(i);
    const auto to = static_cast<float>(j);
    return MemberData{from, to, between(70, 210), between(300, 3000), between(-20, 20)};
  };
  ModelData model;
  for (int n = 0; n < nodes; ++n) {
    const float y = (n % 2 == 0 ? 0.0F : 3.0F) + between(-0.5, 0.5);
    model.nodes.push_back({2.0F * static_cast<float>(n) + between(-0.5, 0.5), y, between(-50, 50), between(-50, 50)});
  }
  model.nodes[0].support = 3;
  model.nodes[2].support = random() % 2 == 0 ? 1 : 3;
  if (random() % 3 == 0) model.nodes.back().support = 2;
  for (int n = 2; n <= nodes; ++n) {
    model.members.push_back(bar(n, n - 1));
    if (n > 2) model.members.push_back(bar(n - 2, n));
    if (n > 3 && random() % 3 == 0) model.members.push_back(bar(n - 3, n));
  }
  return model;
}

/// Laws of every truss, on trusses of the seeds FirstLawSeed and up; a failure names its seed.
class LawsTest : public AnalysisFixture, public testing::WithParamInterface<std::uint32_t> {
 protected:
  LawsTest() : model(RandomTruss(GetParam())) {}

  void Analyse() {
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    SetTables(model);
    AnalyseTables();
  }

  static void AnalyseTables() { ASSERT_EQ(AnalyseTruss(), AnalysisEnd::Done); }

  /// Sum of the sizes of everything that acts.
  double Action() const {
    double sum = 0;
    for (const NodeData& node : model.nodes) sum += std::abs(node.forceX) + std::abs(node.forceY);
    for (const MemberData& member : model.members) sum += std::abs(member.PS);
    return sum;
  }

  /// Load and reaction together at node n; reactions count in restrained directions only.
  static std::pair<double, double> OuterForce(int n) {
    const auto x = static_cast<std::size_t>(2 * n - 1);
    const double forceX = NodeTable(n, NodeForceX) + (FixedDof[x] == 1 ? Reactions[x] : 0.0F);
    const double forceY = NodeTable(n, NodeForceY) + (FixedDof[x + 1] == 1 ? Reactions[x + 1] : 0.0F);
    return {forceX, forceY};
  }

  static float LargestDisplacement() {
    float largest = 0;
    for (const float displacement : Displacements) largest = std::max(largest, std::abs(displacement));
    return largest;
  }

  ModelData model;
};

TEST_P(LawsTest, RenumberingAlongTheSpanLeavesLengthsAndForces) {
  std::mt19937 random(GetParam());
  const int nodes = static_cast<int>(model.nodes.size());
  WriteHeadings(GrJoints, JointColumns);
  WriteHeadings(GrMembers, MemberColumns);
  SetModel(Renumbered(model, RandomOrder(nodes, random)));
  RebuildModelFromGrids(); // in the digits of the grids
  AnalyseTables();
  const FieldTable before = MemberTable;

  RenumberNodesAlongSpan();
  TakeMessages(); // a short truss may have been in order

  AnalyseTables();
  for (int m = 1; m <= MemberCount; ++m) {
    EXPECT_EQ(MemberTable(m, MemberFieldLength), before(m, MemberFieldLength)) << "seed " << GetParam();
    EXPECT_NEAR(MemberForce(m), before(m, MemberFieldForce), OrderTolerance * Action()) << "seed " << GetParam();
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, LawsTest, testing::Range(FirstLawSeed, FirstLawSeed + SeedCount));

TEST_P(LawsTest, LoadsAndReactionsBalance) {
  Analyse();
  double sumX = 0;
  double sumY = 0;
  double moment = 0;
  for (int n = 1; n <= NodeCount; ++n) {
    const auto [forceX, forceY] = OuterForce(n);
    sumX += forceX;
    sumY += forceY;
    moment += forceY * NodeTable(n, NodeX) - forceX * NodeTable(n, NodeY);
  }
  const double span = 2.0 * NodeCount;
  EXPECT_NEAR(sumX, 0, BalanceTolerance * Action());
  EXPECT_NEAR(sumY, 0, BalanceTolerance * Action());
  EXPECT_NEAR(moment, 0, BalanceTolerance * Action() * span);
}

// A supported node's reaction is what its members leave of its load, by the way it is summed; a free node shows whether
// the forces are right.
TEST_P(LawsTest, EveryFreeNodeBalances) {
  Analyse();
  for (int n = 1; n <= NodeCount; ++n) {
    if (NodeTable(n, NodeSupport) != 0.0F) continue;
    auto [sumX, sumY] = OuterForce(n);
    for (int m = 1; m <= MemberCount; ++m) {
      const auto number = static_cast<float>(n);
      const double pull = MemberTable(m, MemberNodeI) == number ? 1 : MemberTable(m, MemberNodeJ) == number ? -1 : 0;
      sumX += pull * MemberForce(m) * MemberCos(m);
      sumY += pull * MemberForce(m) * MemberSin(m);
    }
    EXPECT_NEAR(sumX, 0, BalanceTolerance * Action()) << "node " << n;
    EXPECT_NEAR(sumY, 0, BalanceTolerance * Action()) << "node " << n;
  }
}

TEST_P(LawsTest, SupportsDoNotMove) {
  Analyse();
  for (std::size_t d = 1; d < FixedDof.size(); ++d) {
    if (FixedDof[d] != 1) continue;
    EXPECT_EQ(Displacements[d], 0.0F) << "freedom " << d;
  }
}

TEST_P(LawsTest, TheAssembledMatrixIsSymmetric) {
  SetTables(model);
  StiffnessMatrix K;
  AssembleGlobalStiffness(K);
  for (int row = 1; row <= DofCount; ++row) {
    for (int column = 1; column < row; ++column) EXPECT_EQ(K(row, column), K(column, row)) << row << "," << column;
  }
}

// K times a shift in x, a shift in y, and a small turn about the origin.
TEST_P(LawsTest, TheAssembledMatrixResistsNoRigidMotion) {
  SetTables(model);
  StiffnessMatrix K;
  AssembleGlobalStiffness(K);
  for (int row = 1; row <= DofCount; ++row) {
    double shiftX = 0;
    double shiftY = 0;
    double turn = 0;
    double size = 0;
    for (int n = 1; n <= NodeCount; ++n) {
      const double inX = K(row, 2 * n - 1);
      const double inY = K(row, 2 * n);
      shiftX += inX;
      shiftY += inY;
      turn += inY * NodeTable(n, NodeX) - inX * NodeTable(n, NodeY);
      size += std::abs(inX) + std::abs(inY);
    }
    EXPECT_NEAR(shiftX, 0, StiffnessTolerance * size);
    EXPECT_NEAR(shiftY, 0, StiffnessTolerance * size);
    EXPECT_NEAR(turn, 0, StiffnessTolerance * size * 2.0 * NodeCount);
  }
}

// 0.25 and -1.5 are exact floats, and so is their difference with themselves: zero.
TEST_P(LawsTest, AShiftGivesEveryMemberItsPrestressExactly) {
  Analyse();
  for (int n = 1; n <= NodeCount; ++n) {
    Displacements[static_cast<std::size_t>(2 * n - 1)] = 0.25F;
    Displacements[static_cast<std::size_t>(2 * n)] = -1.5F;
  }
  for (int m = 1; m <= MemberCount; ++m) {
    ComputeMemberForce(m);
    EXPECT_EQ(MemberForce(m), MemberTable(m, MemberPS)) << "member " << m;
  }
}

// A turn by 1/1000: u = -y/1000 and v = x/1000, in mm for coordinates in m.
TEST_P(LawsTest, ASmallTurnGivesEveryMemberItsPrestress) {
  Analyse();
  for (int n = 1; n <= NodeCount; ++n) {
    Displacements[static_cast<std::size_t>(2 * n - 1)] = -NodeTable(n, NodeY);
    Displacements[static_cast<std::size_t>(2 * n)] = NodeTable(n, NodeX);
  }
  for (int m = 1; m <= MemberCount; ++m) {
    ComputeMemberForce(m);
    const double stiffness = MemberTable(m, MemberE) * MemberTable(m, MemberA) / MemberTable(m, MemberFieldLength);
    EXPECT_NEAR(MemberForce(m), MemberTable(m, MemberPS), StiffnessTolerance * stiffness) << "member " << m;
  }
}

// Only signs change: c and s of the member, and with them the signs of its movement and of its share in reactions.
TEST_P(LawsTest, ExchangingTheEndsOfMembersChangesNoBit) {
  Analyse();
  const std::vector<float> displacements = Displacements;
  const std::vector<float> reactions = Reactions;
  const FieldTable members = MemberTable;
  for (MemberData& member : model.members) std::swap(member.i, member.j);
  Analyse();
  EXPECT_EQ(Displacements, displacements);
  EXPECT_EQ(Reactions, reactions);
  for (int m = 1; m <= MemberCount; ++m) EXPECT_EQ(MemberForce(m), members(m, MemberFieldForce)) << "member " << m;
}

TEST_P(LawsTest, TheOrderOfTheMembersDoesNotMatter) {
  Analyse();
  const std::vector<float> displacements = Displacements;
  const double tolerance = OrderTolerance * LargestDisplacement();
  std::ranges::reverse(model.members);
  Analyse();
  for (std::size_t d = 1; d < displacements.size(); ++d) EXPECT_NEAR(Displacements[d], displacements[d], tolerance);
}

TEST_P(LawsTest, TheOrderOfTheNodesDoesNotMatter) {
  Analyse();
  std::vector<float> displacements = Displacements;
  const double tolerance = OrderTolerance * LargestDisplacement();
  std::ranges::reverse(model.nodes);
  for (MemberData& member : model.members) {
    member.i = static_cast<float>(NodeCount + 1) - member.i;
    member.j = static_cast<float>(NodeCount + 1) - member.j;
  }
  Analyse();
  for (std::int16_t n = 1; n <= NodeCount; ++n) {
    const auto before = static_cast<std::size_t>(2 * (NodeCount + 1 - n));
    EXPECT_NEAR(NodeDisplacement(n, "x"), displacements[before - 1], tolerance) << "node " << n;
    EXPECT_NEAR(NodeDisplacement(n, "y"), displacements[before], tolerance) << "node " << n;
  }
}

// A factor of two is exact in every step.
TEST_P(LawsTest, TwiceTheActionGivesTwiceTheAnswer) {
  Analyse();
  const std::vector<float> displacements = Displacements;
  const std::vector<float> reactions = Reactions;
  for (NodeData& node : model.nodes) {
    node.forceX *= 2;
    node.forceY *= 2;
  }
  for (MemberData& member : model.members) member.PS *= 2;
  Analyse();
  for (std::size_t d = 1; d < displacements.size(); ++d) {
    EXPECT_EQ(Displacements[d], 2 * displacements[d]) << "freedom " << d;
    EXPECT_EQ(Reactions[d], 2 * reactions[d]) << "freedom " << d;
  }
}

// The picture in the y axis: only signs change.
TEST_P(LawsTest, TheMirrorImageHasTheMirroredAnswer) {
  Analyse();
  const std::vector<float> displacements = Displacements;
  const FieldTable members = MemberTable;
  for (NodeData& node : model.nodes) {
    node.x = -node.x;
    node.forceX = -node.forceX;
  }
  Analyse();
  for (std::size_t d = 1; d < displacements.size(); ++d) {
    EXPECT_EQ(Displacements[d], d % 2 == 1 ? -displacements[d] : displacements[d]) << "freedom " << d;
  }
  for (int m = 1; m <= MemberCount; ++m) EXPECT_EQ(MemberForce(m), members(m, MemberFieldForce)) << "member " << m;
}

} // namespace
} // namespace strutwright
