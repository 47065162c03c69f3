#include "CheckFixture.h"
#include "LargeModels.h"
#include "Motions.h"
#include "TrussFamilies.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using StabilityTest = CheckFixture;

constexpr std::uint32_t Seed = 20261121;
constexpr int ModelCount = 500;

/// Each factor alone, and then all at once.
constexpr std::array<std::array<float, 3>, 8> Factors{{{1, 1, 1},
                                                       {1e-6F, 1, 1},
                                                       {1e6F, 1, 1},
                                                       {1, 1e-6F, 1},
                                                       {1, 1e6F, 1},
                                                       {1, 1, 1e-6F},
                                                       {1, 1, 1e6F},
                                                       {1e-6F, 1e6F, 1e6F}}};

/// One of the 500: families in turn, 6 to 300 nodes, every other one a mechanism.
KnownTruss SeededTruss(int number, std::mt19937& random) {
  const auto family = static_cast<KnownFamily>(number % FamilyCount);
  const int nodes = 6 + (number < FamilyCount ? 0 : Below(295, random));
  KnownTruss truss = MakeTruss(family, nodes, random);
  return number / FamilyCount % 2 == 0 ? truss : Weakened(truss, family, random);
}

TEST_F(StabilityTest, IsRightOnFiveHundredTrussesAtEveryScale) {
  std::mt19937 random(Seed);
  RecordProperty("seed", static_cast<int>(Seed));
  int mechanisms = 0;
  for (int number = 0; number < ModelCount; ++number) {
    const KnownTruss truss = SeededTruss(number, random);
    mechanisms += truss.mechanisms;
    for (const auto& [E, A, length] : Factors) {
      const Motions motions = FindMotions(TrussOf(Scaled(truss.model, E, A, length)), 1);
      ASSERT_EQ(motions.mechanisms, truss.mechanisms) << "seed " << Seed << ", truss " << number;
      ASSERT_EQ(motions.redundants, truss.indeterminacy) << "seed " << Seed << ", truss " << number;
    }
  }
  EXPECT_NEAR(mechanisms, ModelCount / 2, FamilyCount);
}

/// A chain of two members between two pins, on a line through the origin.
ModelData Chain(float begin, float first, float second, float slope, float scale) {
  const auto node = [slope, scale](float x, float support) {
    return NodeData{scale * x, scale * (slope * x), 0, 0, support};
  };
  return {{node(begin, 3), node(begin + first, 0), node(begin + first + second, 3)}, {{1, 2}, {2, 3}}};
}

TEST_F(StabilityTest, SeesAStraightChainThroughTheRoundingOfItsNodes) {
  for (const float begin : {0.0F, 10.0F, 30.0F, 60.0F, 500.0F}) {
    for (const float slope : {0.1F, 0.25F, 0.3F, 0.4F, 0.7F, 3.3F}) {
      for (const float first : {0.5F, 1.0F, 1.5F}) {
        for (const float scale : {1e-6F, 1e-3F, 1.0F, 1e3F, 1e6F}) {
          const Motions motions = FindMotions(TrussOf(Chain(begin, first, 0.8F, slope, scale)), 1);
          EXPECT_EQ(motions.mechanisms, 1) << begin << ", " << slope << ", " << first << ", " << scale;
        }
      }
    }
  }
}

TEST_F(StabilityTest, TakesAChainOfNumbersThatAreExactForWhatItIs) {
  const ModelData flat{{{0, 0, 0, 0, 3}, {1000, 0.001F}, {2000, 0, 0, 0, 3}}, {{1, 2}, {2, 3}}};
  EXPECT_EQ(FindMotions(TrussOf(flat), 1).mechanisms, 0);
}

/// Every node but the first two is joined to two others, which are not in line with it: stable, and determinate.
ModelData SimpleTruss(int nodes, std::mt19937& random) {
  ModelData model{{{0, 0, 0, 0, 3}, {50, 0, 0, 0, 1}}, {{1, 2}}};
  const auto recent = [&] {
    const int last = static_cast<int>(model.nodes.size());
    return std::max(1, last - Below(5, random));
  };
  while (static_cast<int>(model.nodes.size()) < nodes) {
    const int a = recent();
    const int b = recent();
    const NodeData& one = model.nodes[At(a - 1)];
    const NodeData& other = model.nodes[At(b - 1)];
    const NodeData fresh{std::round((one.x + other.x) / 2) + static_cast<float>(Below(121, random) - 60),
                         std::round((one.y + other.y) / 2) + static_cast<float>(Below(121, random) - 60)};
    const double ax = one.x - fresh.x;
    const double ay = one.y - fresh.y;
    const double bx = other.x - fresh.x;
    const double by = other.y - fresh.y;
    if (!(std::abs(ax * by - ay * bx) > 0.1 * std::hypot(ax, ay) * std::hypot(bx, by))) continue;
    model.nodes.push_back(fresh);
    const auto number = static_cast<float>(model.nodes.size());
    model.members.push_back({static_cast<float>(a), number});
    model.members.push_back({static_cast<float>(b), number});
  }
  return model;
}

TEST_F(StabilityTest, DoesNotTakeALongCrookedTrussForAMechanism) {
  std::mt19937 random(Seed);
  for (int number = 0; number < 60; ++number) {
    const Motions motions = FindMotions(TrussOf(SimpleTruss(100 + 100 * (number % 3), random)), 1);
    ASSERT_EQ(motions.mechanisms, 0) << "seed " << Seed << ", truss " << number;
    ASSERT_EQ(motions.redundants, 0);
  }
}

TEST_F(StabilityTest, SeesThatParallelLinksLetABodyMove) {
  // A triangle on three links whose slopes are equal but for rounding.
  for (const float slope : {0.3F, 0.7F, 1.1F}) {
    ModelData model{{{10, 20}, {14, 20.1F}, {12, 23.3F}}, {{1, 2}, {2, 3}, {1, 3}}};
    for (int n = 1; n <= 3; ++n) {
      const NodeData& from = model.nodes[At(n - 1)];
      const float run = 0.9F + 0.1F * static_cast<float>(n);
      model.nodes.push_back({from.x + run, from.y + slope * run, 0, 0, 3});
      model.members.push_back({static_cast<float>(n), static_cast<float>(n + 3)});
    }
    EXPECT_EQ(FindMotions(TrussOf(model), 1).mechanisms, 1) << slope;
    model.nodes.back().x += 0.1F;
    EXPECT_EQ(FindMotions(TrussOf(model), 1).mechanisms, 0) << slope;
  }
}

TEST_F(StabilityTest, SeesThatLinksThroughOnePointLetABodyTurn) {
  const float factor = 0.37F;
  ModelData model{{{1, 2}, {4, 2.1F}, {2.2F, 5.3F}}, {{1, 2}, {2, 3}, {1, 3}}};
  for (int n = 1; n <= 3; ++n) { // away from the point (1.7, 3.1)
    const NodeData& from = model.nodes[At(n - 1)];
    model.nodes.push_back({from.x + factor * (from.x - 1.7F), from.y + factor * (from.y - 3.1F), 0, 0, 3});
    model.members.push_back({static_cast<float>(n), static_cast<float>(n + 3)});
  }
  EXPECT_EQ(FindMotions(TrussOf(model), 1).mechanisms, 1);
  model.nodes.back().x += 0.1F;
  EXPECT_EQ(FindMotions(TrussOf(model), 1).mechanisms, 0);
}

} // namespace
} // namespace strutwright
