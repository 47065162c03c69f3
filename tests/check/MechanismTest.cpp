#include "CheckFixture.h"
#include "LargeModels.h"
#include "Motions.h"
#include "TrussFamilies.h"

#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;
using testing::SizeIs;

using MechanismTest = CheckFixture;

constexpr double Tolerance = 1e-12;

std::vector<std::string> Sentences(const StabilityReport& report) {
  std::vector<std::string> sentences;
  for (const Mechanism& mechanism : report.mechanisms) sentences.push_back(mechanism.sentence);
  return sentences;
}

std::vector<std::string> CureTexts(const Mechanism& mechanism) {
  std::vector<std::string> texts;
  for (const Cure& cure : mechanism.cures) texts.push_back(cure.text);
  return texts;
}

ModelData Cured(ModelData model, const Cure& cure) {
  const auto index = static_cast<std::size_t>(cure.node - 1);
  if (cure.IsMember()) {
    model.members.push_back({static_cast<float>(cure.node), static_cast<float>(cure.otherNode)});
  } else {
    model.nodes[index].support = static_cast<float>(cure.supportCode);
  }
  return model;
}

TEST_F(MechanismTest, OfThreeBarsWithTooFewSupportsIsNamed) {
  const StabilityReport report = StabilityOf(MechanismM1());
  EXPECT_THAT(Sentences(report), ElementsAre("Node 2 can move up while node 3 moves to the left; "
                                             "no member or support resists this"));
  EXPECT_EQ(report.mechanismCount, 1);
  EXPECT_EQ(report.indeterminacy, 1);
  // 4/5 of the movement of node 2 along the sloping member is 3/5 of the movement of node 3.
  EXPECT_THAT(report.mechanisms[0].motion,
              Pointwise(DoubleNear(Tolerance), std::vector<double>{0, 0, 0, 0, 0.75, -1, 0}));
  EXPECT_THAT(report.mechanisms[0].nodes, ElementsAre(2, 3));
  EXPECT_THAT(CureTexts(report.mechanisms[0]),
              ElementsAre("Support node 3 in x (support code 3)", "Support node 2 in y (support code 1)"));
}

TEST_F(MechanismTest, OfASquareIsASwayThatADiagonalStops) {
  const StabilityReport report = StabilityOf(MechanismM2());
  EXPECT_THAT(Sentences(report), ElementsAre("Nodes 3 and 4 can move to the right; no member or support resists this"));
  EXPECT_THAT(CureTexts(report.mechanisms[0]),
              ElementsAre("Add a member from node 1 to node 3", "Add a member from node 2 to node 4",
                          "Support node 3 in x (support code 2)", "Support node 4 in x (support code 2)"));
}

TEST_F(MechanismTest, OfAColumnOfBarsAreTwo) {
  const StabilityReport report = StabilityOf(MechanismM3());
  EXPECT_EQ(report.mechanismCount, 2);
  EXPECT_EQ(report.indeterminacy, 1);
  EXPECT_THAT(Sentences(report), ElementsAre("Node 2 can move to the right; no member or support resists this",
                                             "Node 3 can move to the right; no member or support resists this"));
  EXPECT_THAT(CureTexts(report.mechanisms[1]), ElementsAre("Support node 3 in x (support code 2)"));
}

TEST_F(MechanismTest, OfATriangleOnRollersTakesAllNodesAlong) {
  const StabilityReport report = StabilityOf(MechanismM4());
  EXPECT_THAT(Sentences(report),
              ElementsAre("Nodes 1, 2 and 3 can move to the right; no member or support resists this"));
  EXPECT_EQ(report.indeterminacy, 1);
  EXPECT_THAT(CureTexts(report.mechanisms[0]),
              ElementsAre("Support node 1 in x (support code 3)", "Support node 2 in x (support code 3)",
                          "Support node 3 in x (support code 3)"));
}

TEST_F(MechanismTest, OfANodeWithoutMembersAreItsFreeDirections) {
  ModelData model = Triangle();
  model.nodes.push_back({9, 9});
  model.nodes.push_back({9, 5, 0, 0, 1});
  model.nodes.push_back({9, 7, 0, 0, 3});
  const StabilityReport report = StabilityOf(model);
  EXPECT_EQ(report.mechanismCount, 3);
  EXPECT_EQ(report.indeterminacy, 0);
  EXPECT_THAT(Sentences(report), ElementsAre("Node 4 can move to the right; no member or support resists this",
                                             "Node 4 can move up; no member or support resists this",
                                             "Node 5 can move to the right; no member or support resists this"));
}

TEST_F(MechanismTest, IsNotAChainThatSagsByAThousandthOfItsSpan) {
  const ModelData sagging{{{0, 0, 0, 0, 3}, {5, -0.01F, 0, -1}, {10, 0, 0, 0, 3}}, {{1, 2}, {2, 3}}};
  EXPECT_TRUE(StabilityOf(sagging).Stable());
  ModelData straight = sagging;
  straight.nodes[1].y = 0;
  EXPECT_EQ(StabilityOf(straight).mechanismCount, 1);
}

TEST_F(MechanismTest, IsAStraightChainWhateverItsSlopeAndTheRoundingOfItsNodes) {
  ModelData model{{{0, 0, 0, 0, 3}, {0.7F, 0.3F * 0.7F}, {1.9F, 0.3F * 1.9F, 0, 0, 3}}, {{1, 2}, {2, 3}}};
  EXPECT_EQ(StabilityOf(model).mechanismCount, 1);
}

TEST_F(MechanismTest, KeepsMotionsOfSeparateStoreysSeparate) {
  // Two storeys without diagonals: the upper sways on the lower, or the lower takes it along.
  const ModelData frame{{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 3}, {0, 3}, {4, 3}, {0, 6}, {4, 6}},
                        {{1, 3}, {2, 4}, {3, 4}, {3, 5}, {4, 6}, {5, 6}}};
  EXPECT_THAT(Sentences(StabilityOf(frame)),
              ElementsAre("Nodes 3 and 4 can move to the right; no member or support resists this",
                          "Nodes 5 and 6 can move to the right; no member or support resists this"));
}

TEST_F(MechanismTest, CountsWhatItDoesNotNameAnyMore) {
  ModelData model;
  for (int n = 0; n < 6; ++n) {
    model.nodes.push_back({static_cast<float>(n), static_cast<float>(n % 2)});
    if (n >= 1) model.members.push_back({static_cast<float>(n), static_cast<float>(n + 1)});
    if (n >= 2) model.members.push_back({static_cast<float>(n - 1), static_cast<float>(n + 1)});
    model.nodes.back().support = 1;
  }
  EXPECT_THAT(Sentences(StabilityOf(model)),
              ElementsAre("Nodes 1, 2, 3 and 4 can move to the right, and 2 more nodes move, too; "
                          "no member or support resists this"));
}

TEST_F(MechanismTest, AreCountedBeyondTheDescribedOnes) {
  ModelData model;
  for (int n = 0; n < 30; ++n) model.nodes.push_back({static_cast<float>(n), 0});
  const StabilityReport report = StabilityOf(model);
  EXPECT_EQ(report.mechanismCount, 60);
  EXPECT_THAT(report.mechanisms, SizeIs(MaxMechanisms));
}

TEST_F(MechanismTest, IsMadeByMembersThatBearNothing) {
  for (const MemberData& lame : {MemberData{3, 1, 0, 1000}, MemberData{3, 1, 200, 0}, MemberData{3, 1, -200, 1000},
                                 MemberData{3, 1, 200, -1000}, MemberData{3, 3}, MemberData{3, 0}, MemberData{3, 9}}) {
    ModelData model = Triangle();
    model.members[2] = lame;
    EXPECT_EQ(StabilityOf(model).mechanismCount, 1) << lame.i << ' ' << lame.j << ' ' << lame.E << ' ' << lame.A;
  }
}

TEST_F(MechanismTest, TakesTheSupportCodesAsTheAnalysisDoes) {
  ModelData model = Triangle();
  model.nodes[0].support = 1.5F; // any other value holds both
  EXPECT_TRUE(StabilityOf(model).Stable());
  model.nodes[0].support = 2;
  EXPECT_EQ(StabilityOf(model).mechanismCount, 1);
}

TEST_F(MechanismTest, IsNoneOfAModelWithoutNodes) {
  const StabilityReport report = StabilityOf({});
  EXPECT_TRUE(report.Stable());
  EXPECT_EQ(report.indeterminacy, 0);
}

TEST_F(MechanismTest, CountsRedundantMembersAndSupports) {
  ModelData model = Square();
  model.members.push_back({1, 3});
  EXPECT_EQ(StabilityOf(model).indeterminacy, 0);
  model.members.push_back({2, 4});
  model.nodes[1].support = 3;
  model.members.push_back({4, 2});
  EXPECT_EQ(StabilityOf(model).indeterminacy, 3);
}

TEST(DirectionWordsTest, NameEightDirections) {
  EXPECT_EQ(DirectionWords(1, 0), "to the right");
  EXPECT_EQ(DirectionWords(-1, 0.08), "to the left");
  EXPECT_EQ(DirectionWords(-0.08, 1), "up");
  EXPECT_EQ(DirectionWords(0, -1), "down");
  EXPECT_EQ(DirectionWords(1, 0.1), "up and to the right");
  EXPECT_EQ(DirectionWords(-1, 1), "up and to the left");
  EXPECT_EQ(DirectionWords(0.5, -1), "down and to the right");
  EXPECT_EQ(DirectionWords(-1, -2), "down and to the left");
}

TEST(MotionSentenceTest, JoinsThreeDirections) {
  EXPECT_EQ(MotionSentence({0, 0, 1, 0, -1, -1, 0}), "Node 1 can move up while node 2 moves down and node 3 moves to "
                                                     "the left; no member or support resists this");
}

TEST(MotionSentenceTest, NamesTheNodesThatMoveMost) {
  EXPECT_EQ(MotionSentence({0, 0.5, 0, 1, 0, 1, 0, 1, 0, 1, 0}),
            "Nodes 2, 3, 4 and 5 can move to the right, and 1 more node moves, too; no member or support resists this");
}

/// The motions of weakened trusses of every family, and the same with two mechanisms.
class MotionLawTest : public CheckFixture {
 protected:
  template <typename Law>
  void ForWeakTrusses(const Law& law) {
    constexpr std::uint32_t seed = 4711;
    std::mt19937 random(seed);
    for (int number = 0; number < 5 * FamilyCount; ++number) {
      const auto family = static_cast<KnownFamily>(number % FamilyCount);
      ModelData model = Weakened(MakeTruss(family, 6 + Below(80, random), random), family, random).model;
      if (number >= 3 * FamilyCount) model.members.erase(model.members.begin() + 3);
      SCOPED_TRACE("seed " + std::to_string(seed) + ", truss " + std::to_string(number));
      law(model, StabilityOf(model));
    }
  }
};

TEST_F(MotionLawTest, StretchesNoMember) {
  ForWeakTrusses([](const ModelData& model, const StabilityReport& report) {
    const CheckedTruss truss = TrussOf(model);
    for (const Mechanism& mechanism : report.mechanisms) {
      std::vector<double> elongations;
      for (const CheckedMember& member : truss.members) elongations.push_back(Elongation(member, mechanism.motion));
      EXPECT_THAT(elongations, Each(DoubleNear(0, 1e-9)));
    }
  });
}

TEST_F(MotionLawTest, MovesNoSupportAndHasTheLargestMovementOne) {
  ForWeakTrusses([](const ModelData& model, const StabilityReport& report) {
    const CheckedTruss truss = TrussOf(model);
    for (const Mechanism& mechanism : report.mechanisms) {
      double largest = 0;
      for (std::size_t d = 1; d < mechanism.motion.size(); ++d) {
        largest = std::max(largest, std::abs(mechanism.motion[d]));
        EXPECT_TRUE(truss.fixed[d] == 0 || mechanism.motion[d] == 0) << d;
      }
      EXPECT_NEAR(largest, 1, 1e-9); // of movements that differ by rounding the first is the largest
    }
  });
}

TEST_F(MotionLawTest, IsStoppedByEachOfItsCures) {
  ForWeakTrusses([](const ModelData& model, const StabilityReport& report) {
    ASSERT_FALSE(report.mechanisms.empty());
    for (const Mechanism& mechanism : report.mechanisms) {
      EXPECT_FALSE(mechanism.cures.empty());
      EXPECT_LE(mechanism.cures.size(), 5U);
      for (const Cure& cure : mechanism.cures) {
        EXPECT_EQ(StabilityOf(Cured(model, cure)).mechanismCount, report.mechanismCount - 1) << cure.text;
      }
    }
  });
}

} // namespace
} // namespace strutwright
