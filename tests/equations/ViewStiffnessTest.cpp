// The view's K comes about step by step; it must hold what the analysis makes at once, bit for bit.

#include "ViewStiffness.h"
#include "EquationsFixture.h"
#include "modAnalysis.h"
#include "modMember.h"

#include <cstddef>
#include <memory>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

constexpr unsigned Seed = 20261121;
constexpr int RandomModels = 30;

class ViewStiffnessTest : public EquationsTest {
 protected:
  /// Nodes anywhere, members between any two of them, some from a node to itself, any support.
  ModelData RandomModel() {
    std::uniform_real_distribution<float> coordinate(-9, 9);
    std::uniform_int_distribution<int> code(0, 3);
    ModelData model;
    const int nodes = std::uniform_int_distribution<int>(1, 7)(random);
    for (int n = 0; n < nodes; ++n) {
      model.nodes.push_back({coordinate(random), coordinate(random), coordinate(random), coordinate(random),
                             static_cast<float>(code(random))});
    }
    std::uniform_int_distribution<int> node(1, nodes);
    for (int m = 0; m < 12; ++m) {
      model.members.push_back({static_cast<float>(node(random)), static_cast<float>(node(random))});
    }
    return model;
  }

  static MemberShare Share(int m, const MemberMatrix& k) { return {m, m, *FreedomsOf(m), k, {}}; }

  static ViewStiffness Assembled() {
    ViewStiffness stiffness(2 * NodeCount);
    MemberMatrix k;
    for (int m = 1; m <= MemberCount; ++m) {
      MemberStiffness(k, m);
      stiffness.Add(Share(m, k));
    }
    return stiffness;
  }

  std::mt19937 random{Seed};
};

TEST_F(ViewStiffnessTest, IsAssembledAsByTheAnalysis) {
  for (int i = 0; i < RandomModels; ++i) {
    SetTables(RandomModel());
    StiffnessMatrix whole;
    AssembleGlobalStiffness(whole);

    EXPECT_EQ(Assembled().Values(), whole) << "seed " << Seed;
  }
}

TEST_F(ViewStiffnessTest, IsRestrictedAsByTheAnalysis) {
  for (int i = 0; i < RandomModels; ++i) {
    SetTables(RandomModel());
    AllocateAnalysisArrays();
    StiffnessMatrix whole;
    AssembleGlobalStiffness(whole);
    AllocateAnalysisArrays();
    ApplySupports(whole, LoadVector, Reactions, FixedDof);

    ViewStiffness stiffness = Assembled();
    stiffness.Clear(std::make_shared<const std::vector<std::int16_t>>(FixedDof));

    EXPECT_EQ(stiffness.Values(), whole) << "seed " << Seed;
  }
}

TEST_F(ViewStiffnessTest, TakesSharesBackOneByOne) {
  for (int i = 0; i < RandomModels; ++i) {
    SetTables(RandomModel());
    ViewStiffness stiffness = Assembled();
    while (!stiffness.Shares().empty()) {
      stiffness.TakeBack();
      MemberCount = static_cast<std::int16_t>(stiffness.Shares().size());
      StiffnessMatrix whole;
      AssembleGlobalStiffness(whole);
      EXPECT_EQ(stiffness.Values(), whole) << "seed " << Seed;
    }
  }
}

TEST_F(ViewStiffnessTest, StoresNoZeros) {
  SetTables(FourNodesThreeBars());

  // Member 1 lies along x and member 2 along y: 4 entries each; member 3 has 16, of which each shares one with them.
  EXPECT_EQ(Assembled().Values().StoredCount(), 4U + 4U + 16U - 2U);
}

TEST_F(ViewStiffnessTest, TakesNoShareBackThatWasNotAdded) {
  ViewStiffness stiffness(2);

  EXPECT_THROW(stiffness.TakeBack(), EnsureFailed);
}

} // namespace
} // namespace strutwright
