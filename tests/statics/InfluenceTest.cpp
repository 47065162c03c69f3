#include "LargeModels.h"
#include "Pattern.h"
#include "StaticsFixture.h"
#include "TrussFamilies.h"
#include "modAccuracy.h"
#include "modAnalysis.h"
#include "modInfluence.h"
#include "modMember.h"
#include "modPath.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

using Values = std::vector<double>;

constexpr double Digits = 1e-9; // what an ordinate has to agree to, relative to the largest of its kind

Quantity ForceOf(int member) { return {QuantityKind::MemberForce, member, false}; }
Quantity ReactionX(int node) { return {QuantityKind::Reaction, node, false}; }
Quantity ReactionY(int node) { return {QuantityKind::Reaction, node, true}; }
Quantity DisplacementX(int node) { return {QuantityKind::Displacement, node, false}; }
Quantity DisplacementY(int node) { return {QuantityKind::Displacement, node, true}; }

testing::Matcher<Values> Are(const Values& expected) { return Pointwise(DoubleNear(1e-12), expected); }

class InfluenceTest : public StaticsFixture {
 protected:
  static Values Line(const ModelData& model, const Quantity& quantity, const std::vector<int>& path) {
    SetTables(model);
    const InfluenceLine line = InfluenceLines().LineOf(quantity, path);
    EXPECT_TRUE(line.IsSure());
    EXPECT_EQ(line.nodes, path);
    return line.values;
  }
};

// A load P on the top: each support bears P/2, each slope -(P/2)/(4/5) = -5/8 P, the tie 5/8 P 3/5 = 3/8 P.
TEST_F(InfluenceTest, OfATriangleIsThatByHand) {
  const ModelData model{{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 4}}, {{1, 2}, {1, 3}, {2, 3}}};
  EXPECT_THAT(Line(model, ForceOf(1), {1, 3, 2}), Are({0, 0.375, 0}));
  EXPECT_THAT(Line(model, ForceOf(2), {1, 3, 2}), Are({0, -0.625, 0}));
  EXPECT_THAT(Line(model, ForceOf(3), {1, 3, 2}), Are({0, -0.625, 0}));
  EXPECT_THAT(Line(model, ReactionY(1), {1, 3, 2}), Are({1, 0.5, 0}));
  EXPECT_THAT(Line(model, ReactionY(2), {1, 3, 2}), Are({0, 0.5, 1}));
  EXPECT_THAT(Line(model, ReactionX(1), {1, 3, 2}), Are({0, 0, 0}));
}

// The load at x leaves the left support 1 - x/12.  With a cut through the second bay:
// - the moment about node 3 is 4 m times the upper chord's pressure: -(1 - x/12) 6/4 + (6 - x)/4 for a load at x <= 6,
//   which is -x/8, and by symmetry -(12 - x)/8 beyond;
// - up and down, 4/5 of the diagonal 6-3 is the left support's force less the loads left of the cut: at node 2
//   (3/4 - 1) 5/4 = -5/16, at node 3 1/2 5/4 = 5/8, at node 4 1/4 5/4 = 5/16;
// - the moment about node 6 is 4 m times the lower chord 2-3: node 2 3/4 3/4 = 9/16, node 3 3/8, node 4 3/16.
// The hanger 2-6 bears what stands on node 2.  Node 7 joins two members in line, so that 3-7 bears nothing.
TEST_F(InfluenceTest, OfABridgeIsThatByHand) {
  const ModelData model = BridgeOfFourBays();
  const std::vector<int> path{1, 2, 3, 4, 5};
  EXPECT_THAT(Line(model, ForceOf(6), path), Are({0, -0.375, -0.75, -0.375, 0}));
  EXPECT_THAT(Line(model, ForceOf(12), path), Are({0, -0.3125, 0.625, 0.3125, 0}));
  EXPECT_THAT(Line(model, ForceOf(2), path), Are({0, 0.5625, 0.375, 0.1875, 0}));
  EXPECT_THAT(Line(model, ForceOf(9), path), Are({0, 1, 0, 0, 0}));
  EXPECT_EQ(Line(model, ForceOf(10), path), (Values{0, 0, 0, 0, 0}));
  EXPECT_THAT(Line(model, ReactionY(1), path), Are({1, 0.75, 0.5, 0.25, 0}));
  EXPECT_THAT(Line(model, ReactionY(5), path), Are({0, 0.25, 0.5, 0.75, 1}));
}

// A bracket on a wall: nodes 1 (0, 0) and 2 (0, 3) pinned, 3 (4, 0), 4 (4, 3), 5 (8, 0).
// A cut through the first bay, the part on the right of it:
// - moment about node 3: upper chord 2-4 times 3 m is 4 m times a load at node 5, 4/3;
// - moment about node 2: lower chord 1-3 times 3 m is -4 m at node 3 and -8 m at node 5;
// - 3/5 of the diagonal 2-3 is the load: 5/3 for both.
// The wall pushes at node 1 with what the lower chord brings, and takes a load that stands on it.
TEST_F(InfluenceTest, OfABracketIsThatByHand) {
  const ModelData model{{{0, 0, 0, 0, 3}, {0, 3, 0, 0, 3}, {4, 0}, {4, 3}, {8, 0}},
                        {{1, 3}, {3, 5}, {2, 4}, {2, 3}, {3, 4}, {4, 5}}};
  const std::vector<int> path{1, 3, 5};
  EXPECT_THAT(Line(model, ForceOf(3), path), Are({0, 0, 4.0 / 3}));
  EXPECT_THAT(Line(model, ForceOf(1), path), Are({0, -4.0 / 3, -8.0 / 3}));
  EXPECT_THAT(Line(model, ForceOf(4), path), Are({0, 5.0 / 3, 5.0 / 3}));
  EXPECT_THAT(Line(model, ReactionX(1), path), Are({0, 4.0 / 3, 8.0 / 3}));
  EXPECT_THAT(Line(model, ReactionY(1), path), Are({1, 0, 0}));
  EXPECT_THAT(Line(model, ReactionY(2), path), Are({0, 1, 1}));
}

// Two bars side by side hang a node: each takes a part of the load like its stiffness EA/L, 20 and 60 kN/mm.
TEST_F(InfluenceTest, OfAnIndeterminateTrussGoesByStiffness) {
  const ModelData model{{{0, 1, 0, 0, 3}, {0, 0, 0, 0, 2}}, {{1, 2, 200, 100, 5}, {2, 1, 200, 300, -7}}};
  EXPECT_THAT(Line(model, ForceOf(1), {2}), Are({0.25}));
  EXPECT_THAT(Line(model, ForceOf(2), {2}), Are({0.75}));
  EXPECT_THAT(Line(model, DisplacementY(2), {2}), Are({-1.0 / 80}));
  EXPECT_THAT(Line(model, DisplacementX(2), {2}), Are({0}));
}

TEST_F(InfluenceTest, LeavesOutTheLoadsAndThePrestressOfTheModel) {
  ModelData loaded = BridgeOfFourBays();
  loaded.nodes[2].forceY = -30;
  loaded.members[5].PS = 40;
  for (const Quantity& quantity : {ForceOf(6), ForceOf(12), ReactionY(1), DisplacementY(3)}) {
    EXPECT_EQ(Line(loaded, quantity, {1, 2, 3}), Line(BridgeOfFourBays(), quantity, {1, 2, 3}));
  }
}

TEST_F(InfluenceTest, FollowsItsPathBackwardsToo) {
  Values there = Line(BridgeOfFourBays(), ForceOf(12), {1, 2, 3, 4, 5});
  std::reverse(there.begin(), there.end());
  EXPECT_EQ(Line(BridgeOfFourBays(), ForceOf(12), {5, 4, 3, 2, 1}), there);
}

TEST_F(InfluenceTest, OfWhatCannotMoveOrBearIsZero) {
  ModelData model = BridgeOfFourBays();
  model.members.push_back({2, 7, 0, 1000, 3});
  model.members.push_back({2, 2});
  const Values nothing{0, 0, 0};
  EXPECT_EQ(Line(model, DisplacementY(1), {1, 2, 3}), nothing);
  EXPECT_EQ(Line(model, ForceOf(14), {1, 2, 3}), nothing);
  EXPECT_EQ(Line(model, ForceOf(15), {1, 2, 3}), nothing);
}

/// Nodes of a model that lie one behind the other, at random.
std::vector<int> RandomPath(const ModelData& model, std::mt19937& random) {
  std::vector<int> path;
  for (int n = 1; n <= static_cast<int>(model.nodes.size()); ++n) {
    if (Below(2, random) == 0) path.push_back(n);
  }
  const auto x = [&model](int node) { return model.nodes[static_cast<std::size_t>(node) - 1].x; };
  std::sort(path.begin(), path.end(), [&](int a, int b) { return x(a) < x(b); });
  path.erase(std::unique(path.begin(), path.end(), [&](int a, int b) { return x(a) == x(b); }), path.end());
  return path.empty() ? std::vector<int>{1} : path;
}

/// A sound truss with prestress in some of its members, one in nine of them indeterminate.
ModelData SeededTruss(int number, std::mt19937& random) {
  ModelData model = MakeTruss(static_cast<KnownFamily>(number % FamilyCount), 6 + Below(50, random), random).model;
  for (MemberData& member : model.members) member.PS = Below(4, random) == 0 ? 25.0F : 0;
  return model;
}

/// A model with nothing but loads downward on a path.
ModelData LoadedOn(ModelData model, const std::vector<int>& path, const std::vector<float>& loads) {
  for (NodeData& node : model.nodes) node.forceX = node.forceY = 0;
  for (MemberData& member : model.members) member.PS = 0;
  for (std::size_t k = 0; k < path.size(); ++k) model.nodes[static_cast<std::size_t>(path[k]) - 1].forceY = -loads[k];
  return model;
}

/// Every quantity of a truss with its value in a solution, kind by kind.
struct KnownValue {
  Quantity quantity;
  double value = 0;
};
using Kinds = std::vector<std::vector<KnownValue>>;

Kinds ValuesOf(const CheckedTruss& truss, const Values& forces, const Values& reactions, const Values& displacements) {
  Kinds kinds(3);
  for (const CheckedMember& member : truss.members) {
    kinds[0].push_back({ForceOf(member.number), forces[At(member.number)]});
  }
  for (std::size_t d = 1; d <= truss.FreedomCount(); ++d) {
    const int node = static_cast<int>(d + 1) / 2;
    const bool alongY = d % 2 == 0;
    if (truss.fixed[d] != 0) kinds[1].push_back({{QuantityKind::Reaction, node, alongY}, reactions[d]});
    kinds[2].push_back({{QuantityKind::Displacement, node, alongY}, displacements[d]});
  }
  return kinds;
}

/// Compares all ordinates times loads with values of a solution; tolerance relative to the largest of their kind.
void ExpectSums(const InfluenceLines& lines, const std::vector<int>& path, const std::vector<float>& loads,
                const Kinds& kinds, double tolerance, const std::string& where) {
  for (const std::vector<KnownValue>& kind : kinds) {
    double largest = 0;
    for (const KnownValue& known : kind) largest = std::max(largest, std::abs(known.value));
    for (const KnownValue& known : kind) {
      const InfluenceLine line = lines.LineOf(known.quantity, path);
      double sum = 0;
      for (std::size_t k = 0; k < path.size(); ++k) sum += static_cast<double>(loads[k]) * line.values[k];
      ASSERT_NEAR(sum, known.value, tolerance * largest) << where << QuantityName(known.quantity);
    }
  }
}

std::vector<float> RandomLoads(std::size_t count, std::mt19937& random) {
  std::vector<float> loads(count);
  for (float& load : loads) load = 1 + static_cast<float>(Below(1000, random)) / 16;
  return loads;
}

TEST_F(InfluenceTest, TimesLoadsIsTheSolutionOfTheseLoads) {
  constexpr std::uint32_t seed = 20261122;
  std::mt19937 random(seed);
  for (int number = 0; number < 200; ++number) {
    const std::string where = "seed " + std::to_string(seed) + ", truss " + std::to_string(number) + ": ";
    const ModelData model = SeededTruss(number, random);
    const std::vector<int> path = RandomPath(model, random);
    const std::vector<float> loads = RandomLoads(path.size(), random);
    SetTables(model);
    const InfluenceLines lines;
    ASSERT_EQ(lines.Fault(), "") << where;
    const ModelData loaded = LoadedOn(model, path, loads);
    SetTables(loaded);
    const CheckedTruss truss = ReadTruss();
    const RefinedSolution exact = Refine(truss);
    ExpectSums(lines, path, loads, ValuesOf(truss, exact.forces, exact.reactions, exact.displacements), Digits, where);
  }
}

/// The results of the analysis, in double.
Kinds AnalysedValues(const CheckedTruss& truss) {
  Values forces(At(truss.memberCount) + 1);
  for (int m = 1; m <= truss.memberCount; ++m) forces[At(m)] = static_cast<double>(MemberForce(m));
  return ValuesOf(truss, forces, Values(Reactions.begin(), Reactions.end()),
                  Values(Displacements.begin(), Displacements.end()));
}

TEST_F(InfluenceTest, TimesLoadsIsTheAnalysisWithinItsDigits) {
  constexpr std::uint32_t seed = 7;
  std::mt19937 random(seed);
  for (int number = 0; number < 200; ++number) {
    const std::string where = "seed " + std::to_string(seed) + ", truss " + std::to_string(number) + ": ";
    const ModelData model = SeededTruss(number, random);
    const std::vector<int> path = RandomPath(model, random);
    const std::vector<float> loads = RandomLoads(path.size(), random);
    SetTables(model);
    const InfluenceLines lines;
    SetTables(LoadedOn(model, path, loads));
    ASSERT_EQ(AnalyseTruss(), AnalysisEnd::Done) << where;
    const CheckedTruss truss = ReadTruss();
    const int digits = CompareResults(truss, Refine(truss)).digits;
    ASSERT_GE(digits, 1) << where;
    ExpectSums(lines, path, loads, AnalysedValues(truss), std::pow(10.0, -digits), where);
  }
}

TEST_F(InfluenceTest, OfTheReactionsAddsUpToTheLoad) {
  std::mt19937 random(3);
  for (int number = 0; number < 45; ++number) {
    const ModelData model = SeededTruss(number, random);
    SetTables(model);
    const std::vector<int> path = RandomPath(model, random);
    const InfluenceLines lines;
    Values up(path.size(), 0);
    Values right(path.size(), 0);
    for (int n = 1; n <= NodeCount; ++n) {
      for (const Quantity& reaction : {ReactionX(n), ReactionY(n)}) {
        if (!QuantityFault(reaction).empty()) continue;
        const InfluenceLine line = lines.LineOf(reaction, path);
        Values& sum = reaction.alongY ? up : right;
        for (std::size_t k = 0; k < path.size(); ++k) sum[k] += line.values[k];
      }
    }
    EXPECT_THAT(up, Pointwise(DoubleNear(Digits), Values(path.size(), 1))) << number;
    EXPECT_THAT(right, Pointwise(DoubleNear(Digits), Values(path.size(), 0))) << number;
  }
}

// A member that is 1 mm too short is one whose prestress is EA/L times 1 mm.
TEST_F(InfluenceTest, IsTheDeflectionUnderAShortening) {
  std::mt19937 random(4);
  int indeterminate = 0;
  for (int number = 0; number < 45; ++number) {
    SetTables(LoadedOn(SeededTruss(number, random), {}, {}));
    indeterminate += static_cast<KnownFamily>(number % FamilyCount) == KnownFamily::CrossBracedTower ? 1 : 0;
    CheckedTruss truss = ReadTruss();
    CheckedMember& member = truss.members[static_cast<std::size_t>(Below(truss.memberCount, random))];
    member.prestress = member.axialRigidity / member.length;
    const RefinedSolution shortened = Refine(truss);
    member.prestress = 0;
    for (int n = 1; n <= truss.nodeCount; ++n) {
      truss.load[AlongY(n)] = -1;
      const double N = Refine(truss).forces[At(member.number)];
      truss.load[AlongY(n)] = 0;
      EXPECT_NEAR(N, shortened.displacements[AlongY(n)], 1e-9) << number << ": node " << n;
      EXPECT_NEAR(InfluenceLines().LineOf(ForceOf(member.number), {n}).values[0], N, 1e-9) << number << ": node " << n;
    }
  }
  EXPECT_GE(indeterminate, 5);
}

TEST_F(InfluenceTest, SolvesForLoadsOfAnyKindByTheSameFactors) {
  ModelData model = BridgeOfFourBays();
  model.members[5].PS = 40;
  SetTables(model);
  const InfluenceLines lines;
  for (const int node : {2, 3}) {
    Values P(17, 0);
    P[AlongY(node)] = -1;
    EXPECT_NEAR(lines.Solver().Solve(P).forces[12], node == 2 ? -0.3125 : 0.625, 1e-12);
  }
}

TEST_F(InfluenceTest, NeedsATruss) {
  SetTables({});
  EXPECT_EQ(InfluenceLines().Fault(), "The model has no nodes, so it has no influence lines: enter a truss first");
}

TEST_F(InfluenceTest, NeedsAStableTruss) {
  SetTables(Square());
  EXPECT_THAT(InfluenceLines().Fault(),
              MatchesPattern("Influence lines need a stable truss, but nodes? [1-4].* can move .*; no member or "
                             "support resists this: add a member from node . to node ."));
  SetTables({{{0, 0}, {4, 0, 0, 0, 3}}, {{1, 2}}});
  EXPECT_THAT(InfluenceLines().Fault(), testing::EndsWith(": support node 1 in y (support code 1)"));
}

TEST_F(InfluenceTest, IsOfWhatThereIs) {
  SetTables(BridgeOfFourBays());
  EXPECT_EQ(QuantityFault(ForceOf(13)), "");
  EXPECT_EQ(QuantityFault(ForceOf(14)), "There is no member 14: choose one from 1 to 13");
  EXPECT_EQ(QuantityFault(ForceOf(0)), "There is no member 0: choose one from 1 to 13");
  EXPECT_EQ(QuantityFault(DisplacementY(8)), "");
  EXPECT_EQ(QuantityFault(DisplacementY(9)), "There is no node 9: choose one from 1 to 8");
  EXPECT_EQ(QuantityFault(ReactionX(-1)), "There is no node -1: choose one from 1 to 8");
  EXPECT_EQ(QuantityFault(ReactionX(1)), "");
  EXPECT_EQ(QuantityFault(ReactionY(5)), "");
  const std::string cure = ": choose a node and a direction that one holds";
  EXPECT_EQ(QuantityFault(ReactionX(5)), "No support holds node 5 in x" + cure);
  EXPECT_EQ(QuantityFault(ReactionY(2)), "No support holds node 2 in y" + cure);
  SetTables({});
  EXPECT_EQ(QuantityFault(ForceOf(1)), "There is no member 1, since the model has no members: enter a truss first");
}

TEST_F(InfluenceTest, HasANameAndAUnit) {
  EXPECT_EQ(QuantityName(ForceOf(7)), "Force of member 7");
  EXPECT_EQ(QuantityName(ReactionY(1)), "Reaction of node 1 in y");
  EXPECT_EQ(QuantityName(DisplacementX(4)), "Displacement of node 4 in x");
  EXPECT_EQ(QuantityUnit(ForceOf(7)), "kN");
  EXPECT_EQ(QuantityUnit(ReactionX(7)), "kN");
  EXPECT_EQ(QuantityUnit(DisplacementY(7)), "mm");
}

} // namespace
} // namespace strutwright
