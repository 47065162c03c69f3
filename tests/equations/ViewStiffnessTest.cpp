// The view's K takes memory only where it is not zero; it must hold what the matrix in full holds, bit for bit.

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

  static MemberShare Share(int m, const Matrix& k) { return {m, m, *MemberFreedoms(m), k}; }

  static ViewStiffness Assembled() {
    ViewStiffness stiffness(2 * NodeCount);
    Matrix k(4, 4);
    for (int m = 1; m <= MemberCount; ++m) {
      MemberStiffness(k, m);
      stiffness.Add(Share(m, k));
    }
    return stiffness;
  }

  static void ExpectSame(const ViewMatrix& sparse, const Matrix& full) {
    ASSERT_EQ(sparse.Last(), full.LastRow());
    for (int row = 1; row <= sparse.Last(); ++row) {
      for (int column = 1; column <= sparse.Last(); ++column) {
        ASSERT_EQ(sparse(row, column), full(row, column)) << "K(" << row << ", " << column << "), seed " << Seed;
      }
    }
  }

  std::mt19937 random{Seed};
};

TEST_F(ViewStiffnessTest, IsAssembledAsTheMatrixInFull) {
  for (int i = 0; i < RandomModels; ++i) {
    SetTables(RandomModel());
    Matrix full;
    AssembleGlobalStiffness(full);

    ExpectSame(Assembled().Values(), full);
  }
  TakeMessages();
}

TEST_F(ViewStiffnessTest, IsRestrictedAsTheMatrixInFull) {
  for (int i = 0; i < RandomModels; ++i) {
    SetTables(RandomModel());
    AllocateAnalysisArrays();
    Matrix full;
    AssembleGlobalStiffness(full);
    AllocateAnalysisArrays();
    ApplySupports(full, LoadVector, Reactions, FixedDof);

    ViewStiffness stiffness = Assembled();
    stiffness.Clear(std::make_shared<const std::vector<std::int16_t>>(FixedDof));

    ExpectSame(stiffness.Values(), full);
  }
  TakeMessages();
}

TEST_F(ViewStiffnessTest, GivesTheSameMatrixInFull) {
  SetTables(Triangle());
  Matrix full;
  AssembleGlobalStiffness(full);

  EXPECT_EQ(Assembled().Values().InFull(), full);
}

TEST_F(ViewStiffnessTest, TakesSharesBackOneByOne) {
  for (int i = 0; i < RandomModels; ++i) {
    SetTables(RandomModel());
    ViewStiffness stiffness = Assembled();
    while (!stiffness.Shares().empty()) {
      stiffness.TakeBack();
      MemberCount = static_cast<std::int16_t>(stiffness.Shares().size());
      Matrix full;
      AssembleGlobalStiffness(full);
      ExpectSame(stiffness.Values(), full);
    }
  }
  TakeMessages();
}

TEST_F(ViewStiffnessTest, StoresNoZeros) {
  SetTables(FourNodesThreeBars());

  // Member 1 lies along x and member 2 along y: 4 entries each; member 3 has 16, of which each shares one with them.
  EXPECT_EQ(Assembled().Values().StoredCount(), 4U + 4U + 16U - 2U);
}

TEST_F(ViewStiffnessTest, StoresOneEntryForARestrainedFreedom) {
  ViewMatrix K(4);
  K.Put(1, 3, 5);
  K.Put(3, 1, 5);
  K.Put(3, 3, 7);

  K.ClearFreedom(3);

  EXPECT_EQ(K.StoredCount(), 1U);
  EXPECT_EQ(K(3, 3), 1.0F);
}

TEST_F(ViewStiffnessTest, HasNoEntriesOutside) {
  const ViewMatrix K(2);

  EXPECT_THROW(K(0, 1), EnsureFailed);
  EXPECT_THROW(K(1, 3), EnsureFailed);
  EXPECT_THROW(K(-1, 1), EnsureFailed);
}

TEST_F(ViewStiffnessTest, TakesNoShareBackThatWasNotAdded) {
  ViewStiffness stiffness(2);

  EXPECT_THROW(stiffness.TakeBack(), EnsureFailed);
}

} // namespace
} // namespace strutwright
