#include "modAnalysis.h"

#include "AnalysisFixture.h"
#include "modMember.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class AddMemberTest : public AnalysisFixture {
 protected:
  /// k(p, q) = 10 p + q, so that each entry is known again in K.
  AddMemberTest() {
    for (int p = 1; p <= 4; ++p) {
      for (int q = 1; q <= 4; ++q) k(p, q) = static_cast<float>(10 * p + q);
    }
  }

  void Add(float i, float j) {
    SetTables({{{0, 0}, {1, 0}, {2, 0}}, {{i, j}}});
    added = AddMemberToGlobal(1, k, K);
  }

  void ExpectIgnored(float i, float j) {
    Add(i, j);
    EXPECT_FALSE(added);
    EXPECT_EQ(K, StiffnessMatrix(6));
  }

  MemberMatrix k;
  StiffnessMatrix K{6};
  bool added = false;
};

TEST_F(AddMemberTest, PutsItsBlocksAtTheNodesFreedoms) {
  Add(1, 3);
  EXPECT_TRUE(added);
  EXPECT_EQ(K, (MatrixOf<6>({{{11, 12, 0, 0, 13, 14},
                              {21, 22, 0, 0, 23, 24},
                              {0, 0, 0, 0, 0, 0},
                              {0, 0, 0, 0, 0, 0},
                              {31, 32, 0, 0, 33, 34},
                              {41, 42, 0, 0, 43, 44}}})));
}

TEST_F(AddMemberTest, PutsTheFirstBlockAtNodeI) {
  Add(3, 2);
  EXPECT_EQ(K(5, 5), 11.0F);
  EXPECT_EQ(K(5, 4), 14.0F);
  EXPECT_EQ(K(4, 5), 41.0F);
  EXPECT_EQ(K(4, 4), 44.0F);
}

TEST_F(AddMemberTest, AddsToWhatIsThere) {
  Add(1, 2);
  Add(2, 3);
  EXPECT_EQ(K(3, 3), 33.0F + 11.0F);
  EXPECT_EQ(K(4, 3), 43.0F + 21.0F);
}

TEST_F(AddMemberTest, AddsAllFourBlocksAtOneNodeWhenBothEndsAreThere) {
  Add(2, 2);
  EXPECT_EQ(K(3, 3), 11.0F + 13.0F + 31.0F + 33.0F);
  EXPECT_EQ(K(4, 4), 22.0F + 24.0F + 42.0F + 44.0F);
}

TEST_F(AddMemberTest, RoundsNodeNumbersToEven) {
  Add(0.6F, 2.5F);
  EXPECT_EQ(K(1, 1), 11.0F);
  EXPECT_EQ(K(4, 4), 44.0F);
}

TEST_F(AddMemberTest, IgnoresNodeZero) {
  ExpectIgnored(0, 2);
  ExpectIgnored(2, 0);
}

TEST_F(AddMemberTest, IgnoresNegativeNodes) {
  ExpectIgnored(-1, 2);
  ExpectIgnored(2, -1);
}

TEST_F(AddMemberTest, IgnoresTwoMissingNodes) { ExpectIgnored(0, 0); }

TEST_F(AddMemberTest, IgnoresWhatRoundsToNodeZero) { ExpectIgnored(0.5F, 2); }

using AllocateTest = AnalysisFixture;

TEST_F(AllocateTest, SizesEveryArrayByTheFreedoms) {
  DofCount = 6;
  AllocateAnalysisArrays();
  EXPECT_EQ(GlobalStiffness.Freedoms(), 6);
  EXPECT_EQ(LoadVector.size(), 7U);
  EXPECT_EQ(FixedDof.size(), 7U);
  EXPECT_EQ(Displacements.size(), 7U);
  EXPECT_EQ(Reactions.size(), 7U);
}

TEST_F(AllocateTest, ClearsEveryArray) {
  DofCount = 2;
  AllocateAnalysisArrays();
  GlobalStiffness.Set(1, 1, 7.0F);
  MemberStiffnessBuffer(1, 1) = 7.0F;
  LoadVector[1] = Displacements[1] = Reactions[1] = 7.0F;
  FixedDof[1] = 1;
  AllocateAnalysisArrays();
  EXPECT_EQ(GlobalStiffness, StiffnessMatrix(2));
  EXPECT_EQ(MemberStiffnessBuffer, MemberMatrix());
  EXPECT_THAT(LoadVector, Each(0.0F));
  EXPECT_THAT(Displacements, Each(0.0F));
  EXPECT_THAT(Reactions, Each(0.0F));
  EXPECT_THAT(FixedDof, Each(0));
}

class AssembleTest : public AnalysisFixture {
 protected:
  /// Three nodes in a row, 4 m apart, so that each member between neighbours has EA/L = 50 kN/mm in x only.
  static std::vector<MemberAtFault> SetLine(const std::vector<MemberData>& members) {
    SetTables({{{0, 0}, {4, 0}, {8, 0}}, members});
    return AssembleGlobalStiffness(GlobalStiffness);
  }

  /// The used part of K when these are its entries between freedoms 1, 3 and 5 and all others are zero.
  static StiffnessMatrix InX(const std::array<std::array<float, 3>, 3>& entries) {
    StiffnessMatrix K(6);
    for (std::size_t r = 0; r < 3; ++r) {
      for (std::size_t c = 0; c < 3; ++c)
        K.Set(static_cast<int>(2 * r + 1), static_cast<int>(2 * c + 1), entries[r][c]);
    }
    return K;
  }
};

TEST_F(AssembleTest, AddsEveryMemberAtItsNodes) {
  EXPECT_THAT(SetLine({{1, 2}, {2, 3}}), IsEmpty());
  EXPECT_EQ(GlobalStiffness, InX({{{50, -50, 0}, {-50, 100, -50}, {0, -50, 50}}}));
}

TEST_F(AssembleTest, CountsTheFreedomsAnew) {
  DofCount = 2;
  SetLine({{1, 2}});
  EXPECT_EQ(DofCount, 6);
  EXPECT_EQ(GlobalStiffness.Freedoms(), 6);
}

TEST_F(AssembleTest, StartsFromZeroEachTime) {
  SetLine({{1, 2}});
  SetLine({{1, 2}});
  EXPECT_EQ(GlobalStiffness(1, 1), 50.0F);
}

TEST_F(AssembleTest, FillsTheMatrixThatItIsGiven) {
  SetTables({{{0, 0}, {4, 0}}, {{1, 2}}});
  StiffnessMatrix own;
  AssembleGlobalStiffness(own);
  EXPECT_EQ(own(1, 1), 50.0F);
  EXPECT_EQ(GlobalStiffness, StiffnessMatrix());
}

TEST_F(AssembleTest, StoresLengthAndDirectionOfEveryMember) {
  SetLine({{1, 2}, {3, 1}});
  EXPECT_EQ(MemberTable(1, MemberFieldLength), 4000.0F);
  EXPECT_EQ(MemberTable(2, MemberFieldLength), 8000.0F);
  EXPECT_EQ(MemberTable(2, MemberFieldCos), -1.0F);
}

TEST_F(AssembleTest, AddsThePredecessorForAnIgnoredMember) {
  EXPECT_THAT(SetLine({{1, 2}, {2, 3, -200, 777}}), ElementsAre(MemberAtFault{2, MemberFault::EBelowZero}));
  EXPECT_EQ(GlobalStiffness, InX({{{50, -50, 0}, {-50, 100, -50}, {0, -50, 50}}}));
  EXPECT_EQ(MemberTable(2, MemberFieldLength), 0.0F);
}

TEST_F(AssembleTest, AddsThePredecessorTwiceForTwoIgnoredMembers) {
  EXPECT_THAT(SetLine({{1, 2}, {2, 3, -200}, {1, 2, 200, -1}}),
              ElementsAre(MemberAtFault{2, MemberFault::EBelowZero}, MemberAtFault{3, MemberFault::ABelowZero}));
  EXPECT_EQ(GlobalStiffness, InX({{{100, -100, 0}, {-100, 150, -50}, {0, -50, 50}}}));
}

// Both ends of the second member are node 3, where 50 - 50 - 50 + 50 is added.
TEST_F(AssembleTest, AddsThePredecessorAtBothEndsOfAMemberWithoutLength) {
  EXPECT_THAT(SetLine({{1, 2}, {3, 3}}), ElementsAre(MemberAtFault{2, MemberFault::NoLength}));
  EXPECT_EQ(GlobalStiffness, InX({{{50, -50, 0}, {-50, 50, 0}, {0, 0, 0}}}));
}

TEST_F(AssembleTest, AddsZerosForAnIgnoredFirstMember) {
  SetLine({{1, 2, -200}, {2, 3}});
  EXPECT_EQ(GlobalStiffness, InX({{{0, 0, 0}, {0, 50, -50}, {0, -50, 50}}}));
}

TEST_F(AssembleTest, AddsZerosForAnIgnoredFirstMemberOfASecondAssembly) {
  SetLine({{1, 2}});
  SetLine({{1, 2, -200}});
  EXPECT_EQ(GlobalStiffness, StiffnessMatrix(6));
}

// The zero matrix of a member with E = 0 is a predecessor like any other.
TEST_F(AssembleTest, TakesAMemberWithoutStiffnessForAPredecessor) {
  SetLine({{1, 2}, {1, 2, 0}, {2, 3, -200}});
  EXPECT_EQ(GlobalStiffness, InX({{{50, -50, 0}, {-50, 50, 0}, {0, 0, 0}}}));
}

TEST_F(AssembleTest, LeavesOutAMemberAtNodeZeroAndGoesOn) {
  EXPECT_THAT(SetLine({{0, 2}, {2, 3}}), ElementsAre(MemberAtFault{1, MemberFault::NoNode}));
  EXPECT_EQ(GlobalStiffness, InX({{{0, 0, 0}, {0, 50, -50}, {0, -50, 50}}}));
}

TEST_F(AssembleTest, ReturnsWhatIsWrongMemberByMember) {
  EXPECT_THAT(SetLine({{0, 2, -200, -1}, {1, 2}, {0, 0}}),
              ElementsAre(MemberAtFault{1, MemberFault::EBelowZero}, MemberAtFault{1, MemberFault::ABelowZero},
                          MemberAtFault{1, MemberFault::NoNode}, MemberAtFault{3, MemberFault::NoLength},
                          MemberAtFault{3, MemberFault::NoNode}));
}

// Each of the 32767 members adds 50; all sums are below 2^24 and exact.
TEST_F(AssembleTest, EndsWithTheLastMemberThatSixteenBitsCount) {
  SetTables({{{0, 0}, {4, 0}}, std::vector<MemberData>(32767, MemberData{1, 2})});
  AssembleGlobalStiffness(GlobalStiffness);
  EXPECT_EQ(GlobalStiffness(1, 1), 50.0F * 32767.0F);
  EXPECT_EQ(MemberTable(32767, MemberFieldLength), 4000.0F);
}

} // namespace
} // namespace strutwright
