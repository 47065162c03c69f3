#include "CheckFixture.h"
#include "LargeModels.h"
#include "Motions.h"
#include "TrussFamilies.h"

#include <array>
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
  const auto family = static_cast<TrussFamily>(number % FamilyCount);
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

} // namespace
} // namespace strutwright
