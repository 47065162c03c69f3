#include "modMember.h"

#include "AnalysisFixture.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

/// One 3-4-5 member from node 1 to node 2, E 200 and A 1000 so that EA/L = 40 kN/mm, analysed up to its fields.
class MemberForceTest : public AnalysisFixture {
 protected:
  MemberForceTest() {
    SetBar(3, 4);
    MemberTable(1, MemberFieldLength) = 5000.0F;
    MemberTable(1, MemberFieldCos) = 0.6F;
    MemberTable(1, MemberFieldSin) = 0.8F;
    MemberTable(1, MemberFieldForce) = 99.0F;
    ClearDisplacements();
  }

  static float ComputedForce() {
    ComputeMemberForce(1);
    return MemberForce(1);
  }
};

TEST_F(MemberForceTest, IsFieldNine) { EXPECT_EQ(MemberForce(1), 99.0F); }

TEST_F(MemberForceTest, IsZeroWithoutDisplacementAndPrestress) { EXPECT_EQ(ComputedForce(), 0.0F); }

// c du + s dv = 0.6 * 1 + 0.8 * 2 = 2.2 mm; times 40.
TEST_F(MemberForceTest, IsTensionWhenTheEndsPart) {
  Displacements = {0, 0, 0, 1, 2};
  EXPECT_FLOAT_EQ(ComputedForce(), 88.0F);
}

TEST_F(MemberForceTest, IsCompressionWhenTheEndsApproach) {
  Displacements = {0, 1, 2, 0, 0};
  EXPECT_FLOAT_EQ(ComputedForce(), -88.0F);
}

TEST_F(MemberForceTest, TakesOnlyTheMovementAlongTheMember) {
  Displacements = {0, 0, 0, -4, 3};
  EXPECT_NEAR(ComputedForce(), 0.0F, 1e-5F);
}

TEST_F(MemberForceTest, AddsThePrestress) {
  MemberTable(1, MemberPS) = 12.0F;
  Displacements = {0, 0, 0, 1, 2};
  EXPECT_FLOAT_EQ(ComputedForce(), 100.0F);
}

// The movement is multiplied by E, then by A, then divided by L: here another order would give another float.
TEST_F(MemberForceTest, KeepsTheOrderOfItsProducts) {
  SetTables({{{0, 0}, {8.96F, 0.83F}}, {{1, 2, 88, 799, 2.5F}}});
  MemberMatrix k;
  MemberStiffness(k, 1);
  Displacements = {0, 0, 0, -0.348F, 0.288F};
  EXPECT_EQ(ComputedForce(), -0x1.f497ecp-15F);
}

TEST_F(MemberForceTest, IsThePrestressWhenBothEndsMoveAlike) {
  MemberTable(1, MemberPS) = -7.5F;
  Displacements = {0, 3.3F, -1.7F, 3.3F, -1.7F};
  EXPECT_EQ(ComputedForce(), -7.5F);
}

TEST_F(MemberForceTest, UsesTheStoredDirectionAndLength) {
  MemberTable(1, MemberFieldLength) = 2000.0F;
  MemberTable(1, MemberFieldCos) = 1.0F;
  MemberTable(1, MemberFieldSin) = 0.0F;
  Displacements = {0, 0, 0, 1, 2};
  EXPECT_FLOAT_EQ(ComputedForce(), 100.0F);
}

TEST_F(MemberForceTest, TakesNoDisplacementForANodeBelowOne) {
  MemberTable(1, MemberPS) = 12.0F;
  Displacements = {9, 9, 9, 1, 2};
  MemberTable(1, MemberNodeI) = 0.0F;
  EXPECT_EQ(ComputedForce(), 12.0F);
  MemberTable(1, MemberNodeI) = 1.0F;
  MemberTable(1, MemberNodeJ) = -1.0F;
  EXPECT_EQ(ComputedForce(), 12.0F);
}

TEST_F(MemberForceTest, RoundsNodeNumbersToEven) {
  MemberTable(1, MemberNodeI) = 0.6F;
  MemberTable(1, MemberNodeJ) = 2.5F;
  Displacements = {0, 0, 0, 1, 2};
  EXPECT_FLOAT_EQ(ComputedForce(), 88.0F);
}

// The movement 1.00000001 mm is 1 as a float: 50 * 1 - 50 = 0, and 5e-7 would be left of it in double.
TEST_F(MemberForceTest, RoundsTheMovementOfTheEndsToAFloat) {
  SetBar(4, 0, -50);
  MemberTable(1, MemberFieldLength) = 4000.0F;
  MemberTable(1, MemberFieldCos) = 1.0F;
  Displacements = {0, -1e-8F, 0, 1, 0};
  EXPECT_EQ(ComputedForce(), 0.0F);
}

// E A = 1e50 is no float.
TEST_F(MemberForceTest, MultipliesInDouble) {
  MemberTable(1, MemberE) = 1e25F;
  MemberTable(1, MemberA) = 1e25F;
  MemberTable(1, MemberFieldLength) = 1e30F;
  Displacements = {0, 0, 0, 1, 2};
  EXPECT_FLOAT_EQ(ComputedForce(), 2.2e20F);
}

struct DeadMember {
  MemberField field;
  float value;
};

class NoForceTest : public MemberForceTest, public testing::WithParamInterface<DeadMember> {};

TEST_P(NoForceTest, IsLeftWhereEAreaOrLengthIsNotAboveZero) {
  MemberTable(1, MemberPS) = 12.0F;
  Displacements = {0, 0, 0, 1, 2};
  MemberTable(1, GetParam().field) = GetParam().value;
  EXPECT_EQ(ComputedForce(), 0.0F);
}

INSTANTIATE_TEST_SUITE_P(ZeroAndNegative, NoForceTest,
                         testing::Values(DeadMember{MemberE, 0}, DeadMember{MemberE, -1}, DeadMember{MemberA, 0},
                                         DeadMember{MemberA, -1}, DeadMember{MemberFieldLength, 0},
                                         DeadMember{MemberFieldLength, -1}),
                         [](const auto& dead) {
                           return "Field" + std::to_string(dead.param.field) +
                                  (dead.param.value < 0 ? "Negative" : "Zero");
                         });

/// State word of a force.
class MemberStateTest : public AnalysisFixture {
 protected:
  MemberStateTest() { SetBar(3, 4); }

  static std::string StateOf(float force) {
    MemberTable(1, MemberFieldForce) = force;
    return MemberState(1);
  }

  static constexpr float Limit = 0.0001F;
};

TEST_F(MemberStateTest, IsTInTension) {
  EXPECT_EQ(StateOf(12.0F), "T");
  EXPECT_EQ(StateOf(std::nextafter(Limit, 1.0F)), "T");
}

TEST_F(MemberStateTest, IsCInCompression) {
  EXPECT_EQ(StateOf(-12.0F), "C");
  EXPECT_EQ(StateOf(std::nextafter(-Limit, -1.0F)), "C");
}

TEST_F(MemberStateTest, IsZeroBarBetweenTheLimits) {
  EXPECT_EQ(StateOf(0.0F), "Zero Bar");
  EXPECT_EQ(StateOf(-0.0F), "Zero Bar");
  EXPECT_EQ(StateOf(std::nextafter(Limit, 0.0F)), "Zero Bar");
  EXPECT_EQ(StateOf(std::nextafter(-Limit, 0.0F)), "Zero Bar");
}

TEST_F(MemberStateTest, IsEmptyForAForceOfExactlyTheLimit) {
  EXPECT_EQ(StateOf(Limit), "");
  EXPECT_EQ(StateOf(-Limit), "");
}

TEST_F(MemberStateTest, IsZeroBarBeforeAnyAnalysis) { EXPECT_EQ(MemberState(1), "Zero Bar"); }

class MemberStressTest : public AnalysisFixture {
 protected:
  static float StressOf(float force, float A) {
    SetBar(3, 4);
    MemberTable(1, MemberFieldForce) = force;
    MemberTable(1, MemberA) = A;
    return MemberStress(1);
  }
};

// 10 kN on 4 mm2 = 2500 N/mm2.
TEST_F(MemberStressTest, IsForceByAreaInNewtonPerSquareMillimetre) {
  EXPECT_EQ(StressOf(10, 4), 2500.0F);
  EXPECT_EQ(StressOf(-10, 4), -2500.0F);
}

TEST_F(MemberStressTest, IsZeroWhereTheAreaIsNotAboveZero) {
  EXPECT_EQ(StressOf(10, 0), 0.0F);
  EXPECT_EQ(StressOf(10, -4), 0.0F);
}

TEST_F(MemberStressTest, MultipliesInDouble) { EXPECT_FLOAT_EQ(StressOf(3e38F, 1e6F), 3e35F); }

class MemberStretchTest : public AnalysisFixture {
 protected:
  MemberStretchTest() {
    SetTables({{{0, 0}, {4, 0}}, std::vector<MemberData>(7, MemberData{1, 2})});
    MemberTable(7, MemberFieldLength) = 4000.0F;
    MemberTable(7, MemberFieldForce) = 10.0F;
  }

  /// Stretch of member 7 with these values.
  static float StretchOf(float E, float A) {
    MemberTable(7, MemberE) = E;
    MemberTable(7, MemberA) = A;
    return MemberStretch(7);
  }

  static void ExpectNone(float E, float A, StretchFault fault) {
    EXPECT_EQ(StretchOf(E, A), 0.0F);
    EXPECT_EQ(StretchFaultOf(7), fault);
  }
};

// 10 * 4000 / (200 * 1000) = 0.2 mm.
TEST_F(MemberStretchTest, IsForceTimesLengthByEA) {
  EXPECT_FLOAT_EQ(StretchOf(200, 1000), 0.2F);
  EXPECT_EQ(StretchFaultOf(7), std::nullopt);
}

TEST_F(MemberStretchTest, IsNegativeInCompression) {
  MemberTable(7, MemberFieldForce) = -10.0F;
  EXPECT_FLOAT_EQ(StretchOf(200, 1000), -0.2F);
}

TEST_F(MemberStretchTest, MultipliesInDouble) {
  MemberTable(7, MemberFieldLength) = 1e30F;
  MemberTable(7, MemberFieldForce) = 1e30F;
  EXPECT_FLOAT_EQ(StretchOf(1e30F, 1e30F), 1.0F);
}

TEST_F(MemberStretchTest, IsNoneForAnAreaNotAboveZero) {
  ExpectNone(200, 0, StretchFault::A);
  ExpectNone(200, -1, StretchFault::A);
}

TEST_F(MemberStretchTest, IsNoneForENotAboveZero) {
  ExpectNone(0, 1000, StretchFault::E);
  ExpectNone(-1, 1000, StretchFault::E);
}

TEST_F(MemberStretchTest, IsNoneForEAndTheAreaTogether) {
  ExpectNone(0, 0, StretchFault::EAndA);
  ExpectNone(-1, 0, StretchFault::EAndA);
  ExpectNone(0, -1, StretchFault::EAndA);
}

} // namespace
} // namespace strutwright
