// How the lines of a drawing become a truss.

#include "ImportFixture.h"
#include "modModelStore.h"

#include <string>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::Contains;

using DrawnTrussTest = ImportTest;

TEST_F(DrawnTrussTest, JoinsEndsWithinTheTolerance) {
  const DxfText drawing = DxfText().Line("0", 0, 0, 4, 0).Line("0", 4.0009, 0, 8, 0).Line("0", 8.002, 0, 9, 0);
  Import(drawing);
  EXPECT_EQ(model.nodeCount, 5);
  EXPECT_EQ(model.members(2, MemberNodeI), 2);
  EXPECT_EQ(model.members(3, MemberNodeI), 4);
  Import(drawing, {.tolerance = 0.003});
  EXPECT_EQ(model.nodeCount, 4);
}

TEST_F(DrawnTrussTest, LeavesOutLinesWithoutLengthAndLinesOnTopOfEachOther) {
  Import(DxfText().Line("0", 0, 0, 4, 0).Line("0", 4, 0, 0, 0).Line("0", 1, 1, 1, 1));
  EXPECT_EQ(model.memberCount, 1);
  EXPECT_THAT(remarks, Contains("1 line shorter than the tolerance is left out"));
  EXPECT_THAT(remarks, Contains("1 line drawn on top of another is left out"));
}

TEST_F(DrawnTrussTest, MakesSupportsOfPointsAndBlocksOnLayersWithTheirCode) {
  Import(DxfText()
             .Line("0", 0, 0, 4, 0)
             .Line("0", 4, 0, 8, 0)
             .Point("support_3", 0, 0)
             .Point("SUPPORT 1", 4, 0.0005, "INSERT")
             .Point("Support-2", 8, 0)
             .Point("support_1", 8, 0)
             .Point("support_1", 5, 5));
  EXPECT_EQ(model.nodes(1, NodeSupport), 3);
  EXPECT_EQ(model.nodes(2, NodeSupport), 1);
  EXPECT_EQ(model.nodes(3, NodeSupport), 3) << "both directions together";
  EXPECT_THAT(remarks, Contains("1 support stands at no end of a line and is left out"));
}

TEST_F(DrawnTrussTest, TakesEAndAFromTheTableOfLayers) {
  Import(DxfText().Line("Chord", 0, 0, 4, 0).Line("web", 4, 0, 8, 0),
         {.layers = {{"chord", {210, 2000}}}, .rigidity = {70, 500}});
  EXPECT_EQ(model.members(1, MemberE), 210);
  EXPECT_EQ(model.members(1, MemberA), 2000);
  EXPECT_EQ(model.members(2, MemberE), 70);
  EXPECT_THAT(remarks, Contains("Members on the layers \"web\" get E = 70 kN/mm2 and A = 500 mm2"));
}

TEST_F(DrawnTrussTest, SplitsCrossingsOnlyWhenAsked) {
  const DxfText cross = DxfText().Line("0", 0, 0, 4, 4).Line("0", 0, 4, 4, 0);
  Import(cross);
  EXPECT_EQ(model.nodeCount, 4);
  EXPECT_EQ(model.memberCount, 2);
  Import(cross, {.split = true});
  ASSERT_EQ(model.nodeCount, 5);
  ASSERT_EQ(model.memberCount, 4);
  EXPECT_EQ(model.nodes(5, NodeX), 2);
  EXPECT_EQ(model.members(1, MemberNodeJ), 5);
  EXPECT_EQ(model.members(2, MemberNodeI), 5);
}

TEST_F(DrawnTrussTest, SplitsWhereALineEndsOnAnother) {
  Import(DxfText().Line("0", 0, 0, 8, 0).Line("0", 6, 0, 6, 3).Line("0", 2, 0.0004, 2, 3), {.split = true});
  EXPECT_EQ(model.nodeCount, 6);
  ASSERT_EQ(model.memberCount, 5);
  EXPECT_EQ(model.members(1, MemberNodeJ), 5) << "the nearer one first";
  EXPECT_EQ(model.members(2, MemberNodeJ), 3);
}

TEST_F(DrawnTrussTest, SplitsLinesInOneLineWithoutDoublingThem) {
  Import(DxfText().Line("0", 0, 0, 8, 0).Line("0", 4, 0, 12, 0), {.split = true});
  EXPECT_EQ(model.nodeCount, 4);
  EXPECT_EQ(model.memberCount, 3);
}

TEST_F(DrawnTrussTest, RefusesMorePiecesThanAModelCanHave) {
  DxfText drawing;
  for (int k = 0; k < 200; ++k) drawing.Line("0", k, -1, k, 200).Line("0", -1, k, 200, k);
  try {
    Import(drawing, {.split = true});
    FAIL();
  } catch (const ImportError& error) {
    EXPECT_EQ(error.Sentence(), "split at its crossings, the drawing has more than 32767 members");
  }
}

} // namespace
} // namespace strutwright
