#include "modMember.h"

#include "AnalysisFixture.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::FloatEq;
using testing::IsEmpty;
using testing::Pointwise;

using GeometryTest = AnalysisFixture;

TEST_F(GeometryTest, MeasuresTheLengthInMetres) {
  SetBar(3, 4);
  EXPECT_EQ(MemberLength(1), 5.0F);
  SetBar(-3, -4);
  EXPECT_EQ(MemberLength(1), 5.0F);
}

TEST_F(GeometryTest, MeasuresFromNodeToNode) {
  SetTables({{{10, 20}, {0, 0}, {13, 16}}, {{1, 3}}});
  EXPECT_EQ(MemberLength(1), 5.0F);
  EXPECT_FLOAT_EQ(MemberCos(1), 0.6F);
  EXPECT_FLOAT_EQ(MemberSin(1), -0.8F);
}

TEST_F(GeometryTest, SquaresInDouble) {
  SetBar(3e30F, 4e30F);
  EXPECT_FLOAT_EQ(MemberLength(1), 5e30F);
  SetBar(3e-30F, 4e-30F);
  EXPECT_FLOAT_EQ(MemberLength(1), 5e-30F);
}

TEST_F(GeometryTest, GivesZeroForAMemberWithoutLength) {
  SetTables({{{1, 1}, {1, 1}}, {{1, 2}, {2, 2}}});
  EXPECT_EQ(MemberLength(1), 0.0F);
  EXPECT_EQ(MemberLength(2), 0.0F);
}

TEST_F(GeometryTest, RoundsNodeNumbersToEven) {
  SetTables({{{1, 0}, {2, 0}, {4, 0}, {8, 0}}, {{0.5F, 1.5F}, {2.5F, 3.5F}, {1.4F, 2.6F}}});
  EXPECT_EQ(MemberLength(1), 2.0F); // record 0 stands at the origin; 1.5 is node 2
  EXPECT_EQ(MemberLength(2), 6.0F); // nodes 2 and 4
  EXPECT_EQ(MemberLength(3), 3.0F); // nodes 1 and 3
}

TEST_F(GeometryTest, PointsFromNodeIToNodeJ) {
  SetBar(3, 4);
  EXPECT_FLOAT_EQ(MemberCos(1), 0.6F);
  EXPECT_FLOAT_EQ(MemberSin(1), 0.8F);
}

TEST_F(GeometryTest, TurnsRoundWithTheEnds) {
  SetTables({{{0, 0}, {3, 4}}, {{2, 1}}});
  EXPECT_FLOAT_EQ(MemberCos(1), -0.6F);
  EXPECT_FLOAT_EQ(MemberSin(1), -0.8F);
}

TEST_F(GeometryTest, FailsForANodeThatDoesNotExist) {
  SetTables({{{0, 0}, {1, 0}}, {{1, 3}, {-1, 2}}});
  EXPECT_THROW(MemberLength(1), std::out_of_range);
  EXPECT_THROW(MemberCos(2), std::out_of_range);
}

TEST_F(GeometryTest, GivesNoDirectionToAMemberBelowOne) {
  SetBar(3, 4);
  for (const int m : {0, -3}) {
    EXPECT_EQ(MemberCos(m), 0.0F);
    EXPECT_EQ(MemberSin(m), 0.0F);
  }
}

class StiffnessTest : public AnalysisFixture {
 protected:
  static void SetStiffness(float E, float A) {
    MemberTable(1, MemberE) = E;
    MemberTable(1, MemberA) = A;
  }

  /// A matrix and fields with marks in them, to see whether they are written.
  void Mark() {
    for (int row = 1; row <= 4; ++row) {
      for (int column = 1; column <= 4; ++column) k(row, column) = 77.0F;
    }
    for (int field = MemberFieldLength; field <= MemberFieldForce; ++field) MemberTable(1, field) = 88.0F;
  }

  void ExpectMarksUntouched() const {
    EXPECT_THAT(Used4(k), Each(77.0F));
    for (int field = MemberFieldLength; field <= MemberFieldForce; ++field) EXPECT_EQ(MemberTable(1, field), 88.0F);
  }

  MemberMatrix k;
};

// EA/L = 200 * 1000 / 4000 = 50, c = 1, s = 0.
TEST_F(StiffnessTest, OfAHorizontalMemberHasNoTermInY) {
  SetBar(4, 0);
  MemberStiffness(k, 1);
  EXPECT_THAT(Used4(k), ElementsAre(50, 0, -50, 0, //
                                    0, 0, 0, 0,    //
                                    -50, 0, 50, 0, //
                                    0, 0, 0, 0));
}

// EA/L = 200 * 1000 / 2000 = 100, c = 0, s = 1.
TEST_F(StiffnessTest, OfAVerticalMemberHasNoTermInX) {
  SetBar(0, 2);
  MemberStiffness(k, 1);
  EXPECT_THAT(Used4(k), ElementsAre(0, 0, 0, 0,      //
                                    0, 100, 0, -100, //
                                    0, 0, 0, 0,      //
                                    0, -100, 0, 100));
}

// EA/L = 200 * 1000 / 5000 = 40, c = 0.6, s = 0.8: c2 = 0.36, cs = 0.48, s2 = 0.64.
TEST_F(StiffnessTest, OfASkewMemberCouplesXAndY) {
  SetBar(3, 4);
  MemberStiffness(k, 1);
  const std::vector<float> expected{14.4F,  19.2F,  -14.4F, -19.2F, //
                                    19.2F,  25.6F,  -19.2F, -25.6F, //
                                    -14.4F, -19.2F, 14.4F,  19.2F,  //
                                    -19.2F, -25.6F, 19.2F,  25.6F};
  EXPECT_THAT(Used4(k), Pointwise(FloatEq(), expected));
}

TEST_F(StiffnessTest, OfAFallingMemberCouplesWithTheOtherSign) {
  SetBar(3, -4);
  MemberStiffness(k, 1);
  EXPECT_FLOAT_EQ(k(1, 2), -19.2F);
  EXPECT_FLOAT_EQ(k(1, 4), 19.2F);
  EXPECT_FLOAT_EQ(k(3, 4), -19.2F);
}

TEST_F(StiffnessTest, StaysTheSameWhenTheEndsAreExchanged) {
  SetBar(3, 4);
  MemberStiffness(k, 1);
  MemberMatrix exchanged;
  MemberTable(1, MemberNodeI) = 2;
  MemberTable(1, MemberNodeJ) = 1;
  MemberStiffness(exchanged, 1);
  EXPECT_EQ(exchanged, k);
  EXPECT_FLOAT_EQ(MemberTable(1, MemberFieldCos), -0.6F);
}

TEST_F(StiffnessTest, StoresLengthInMillimetresAndDirection) {
  SetBar(3, 4);
  MemberStiffness(k, 1);
  EXPECT_EQ(MemberTable(1, MemberFieldLength), 5000.0F);
  EXPECT_FLOAT_EQ(MemberTable(1, MemberFieldCos), 0.6F);
  EXPECT_FLOAT_EQ(MemberTable(1, MemberFieldSin), 0.8F);
}

TEST_F(StiffnessTest, LeavesTheForceAlone) {
  SetBar(3, 4);
  Mark();
  MemberStiffness(k, 1);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 88.0F);
}

TEST_F(StiffnessTest, OverwritesTheMatrixOfThePreviousMember) {
  SetBar(4, 0);
  Mark();
  MemberStiffness(k, 1);
  EXPECT_THAT(Used4(k), testing::Not(testing::Contains(77.0F)));
}

// E A = 1e50 is no float; E A / L is.
TEST_F(StiffnessTest, MultipliesInDouble) {
  SetBar(1e17F, 0);
  SetStiffness(1e25F, 1e25F);
  MemberStiffness(k, 1);
  EXPECT_FLOAT_EQ(k(1, 1), 1e30F);
}

TEST_F(StiffnessTest, IsZeroWithoutComplaintForEOfZero) {
  SetBar(3, 4);
  Mark();
  SetStiffness(0, 1000);
  EXPECT_THAT(MemberStiffness(k, 1), IsEmpty());
  EXPECT_THAT(Used4(k), Each(0.0F));
  EXPECT_EQ(MemberTable(1, MemberFieldLength), 5000.0F);
}

TEST_F(StiffnessTest, IsZeroWithoutComplaintForAOfZero) {
  SetBar(3, 4);
  Mark();
  SetStiffness(200, 0);
  EXPECT_THAT(MemberStiffness(k, 1), IsEmpty());
  EXPECT_THAT(Used4(k), Each(0.0F));
}

TEST_F(StiffnessTest, IgnoresAMemberWithNegativeE) {
  SetBar(3, 4);
  Mark();
  SetStiffness(-1, 1000);
  EXPECT_THAT(MemberStiffness(k, 1), ElementsAre(MemberFault::EBelowZero));
  ExpectMarksUntouched();
}

TEST_F(StiffnessTest, IgnoresAMemberWithNegativeA) {
  SetBar(3, 4);
  Mark();
  SetStiffness(200, -1e-30F);
  EXPECT_THAT(MemberStiffness(k, 1), ElementsAre(MemberFault::ABelowZero));
  ExpectMarksUntouched();
}

TEST_F(StiffnessTest, IgnoresAMemberWithoutLength) {
  SetBar(0, 0);
  Mark();
  EXPECT_THAT(MemberStiffness(k, 1), ElementsAre(MemberFault::NoLength));
  ExpectMarksUntouched();
}

TEST_F(StiffnessTest, IgnoresAMemberFromANodeToItself) {
  SetTables({{{0, 0}, {3, 4}}, {{2, 2}}});
  Mark();
  EXPECT_THAT(MemberStiffness(k, 1), ElementsAre(MemberFault::NoLength));
  ExpectMarksUntouched();
}

TEST_F(StiffnessTest, ReportsEverythingThatIsWrongInTurn) {
  SetBar(0, 0);
  SetStiffness(-1, -1);
  EXPECT_THAT(MemberStiffness(k, 1),
              ElementsAre(MemberFault::EBelowZero, MemberFault::ABelowZero, MemberFault::NoLength));
}

} // namespace
} // namespace strutwright
