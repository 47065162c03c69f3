#include "ModelBuilder.h"
#include "WorkbenchFixture.h"
#include "modInfluenceSheet.h"
#include "modModelStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// 6 m wide and 4 m high; members 1: the tie, 2 and 3: the rafters.
ModelData Rafters() { return {{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 4}}, {{1, 2}, {1, 3}, {2, 3}}}; }

InfluenceQuestion OfMember(int member, const std::string& train = "") {
  return {"1,3,2", {QuantityKind::MemberForce, member, true}, train};
}

class InfluenceSheetTest : public WorkbenchFixture {
 protected:
  InfluenceSheetTest() { SetTables(Rafters()); }

  InfluenceSheet sheet;
};

// Half of the load goes to each support; at node 1 the rafter's part upward is F 4/5 = -1/2, and the tie takes 3/5 of
// F.
TEST_F(InfluenceSheetTest, HasTheLineByHand) {
  sheet.Ask(OfMember(1));
  EXPECT_EQ(sheet.Fault(), "");
  const InfluenceShape shape = sheet.Shape({});
  EXPECT_THAT(shape.nodes, ElementsAre(1, 3, 2));
  EXPECT_NEAR(shape.values.at(1), 0.375, 1e-12);
  EXPECT_EQ(shape.member, 1);
  EXPECT_THAT(shape.captions, ElementsAre("Force of member 1 in kN for 1 kN downward"));
  EXPECT_THAT(shape.loads, IsEmpty());
}

TEST_F(InfluenceSheetTest, SaysTheValueBetweenNodes) {
  sheet.Ask(OfMember(1));
  EXPECT_EQ(sheet.ValueText(1.5), "x = 1.5 m: 0.1875 kN per kN");
  EXPECT_EQ(sheet.ValueText(6), "x = 6 m: 0 kN per kN");
  EXPECT_EQ(sheet.ValueText(6.01), "");
  EXPECT_EQ(sheet.ValueText(-0.01), "");
}

TEST_F(InfluenceSheetTest, PutsALoadOf1KNWhereItIsPointedAt) {
  sheet.Ask(OfMember(1, "100@0"));
  const InfluenceShape shape = sheet.Shape(1.5);
  ASSERT_EQ(shape.loads.size(), 1U);
  EXPECT_EQ(shape.loads[0].x, 1.5);
  EXPECT_EQ(shape.loads[0].force, 1);
  ASSERT_TRUE(shape.mark.has_value());
  EXPECT_NEAR(shape.mark->value, 0.1875, 1e-12);
}

TEST_F(InfluenceSheetTest, ShowsTheTrainWhereItIsWorst) {
  sheet.Ask(OfMember(1, "100@0"));
  const InfluenceShape shape = sheet.Shape(99); // beside the path
  ASSERT_EQ(shape.loads.size(), 1U);
  EXPECT_EQ(shape.loads[0].x, 3);
  EXPECT_EQ(shape.loads[0].force, 100);
  EXPECT_FALSE(shape.mark.has_value());
  ASSERT_EQ(shape.captions.size(), 3U);
  EXPECT_EQ(shape.captions[2], "Maximum 37.5 kN: first axle at x = 3 m, going right");
}

TEST_F(InfluenceSheetTest, SaysWhatIsWrong) {
  sheet.Ask({"1,3", {QuantityKind::MemberForce, 9, true}, ""});
  EXPECT_EQ(sheet.Fault(), "There is no member 9: choose one from 1 to 3");
  sheet.Ask({"1,9", {QuantityKind::MemberForce, 1, true}, ""});
  EXPECT_THAT(sheet.Fault(), HasSubstr("name nodes that exist"));
  sheet.Ask(OfMember(1, "50@-1"));
  EXPECT_THAT(sheet.Fault(), HasSubstr("negative distance"));
  EXPECT_THAT(sheet.Shape({}).nodes, IsEmpty());
  EXPECT_EQ(sheet.ValueText(1), "");
}

TEST_F(InfluenceSheetTest, NeedsAStableTruss) {
  SetTables(Square());
  sheet.Ask({"1-2", {QuantityKind::MemberForce, 1, true}, ""});
  EXPECT_THAT(sheet.Fault(), HasSubstr("Influence lines need a stable truss, but "));
}

TEST_F(InfluenceSheetTest, FollowsTheModel) {
  EXPECT_FALSE(sheet.IsCurrent());
  sheet.Ask(OfMember(1));
  EXPECT_TRUE(sheet.IsCurrent());
  NodeTable(3, NodeY) = 2; // half as high, twice the force
  EXPECT_FALSE(sheet.IsCurrent());
  sheet.Ask(OfMember(1));
  EXPECT_NEAR(sheet.Shape({}).values.at(1), 0.75, 1e-12);
}

TEST_F(InfluenceSheetTest, WalksToAndFro) {
  sheet.Ask(OfMember(1));
  EXPECT_EQ(sheet.WalkPosition(0), 0);
  EXPECT_EQ(sheet.WalkPosition(InfluenceSheet::StepsOfAWalk / 2), 3);
  EXPECT_EQ(sheet.WalkPosition(InfluenceSheet::StepsOfAWalk), 6);
  EXPECT_EQ(sheet.WalkPosition(2 * InfluenceSheet::StepsOfAWalk), 0);
  EXPECT_EQ(sheet.WalkPosition(3 * InfluenceSheet::StepsOfAWalk), 6);
}

TEST_F(InfluenceSheetTest, StepsFromNodeToNode) {
  sheet.Ask(OfMember(1));
  EXPECT_EQ(sheet.NextNode(0, 1), 3);
  EXPECT_EQ(sheet.NextNode(3.5, 1), 6);
  EXPECT_EQ(sheet.NextNode(6, 1), 6);
  EXPECT_EQ(sheet.NextNode(3, -1), 0);
  EXPECT_EQ(sheet.NextNode(0, -1), 0);
}

TEST_F(InfluenceSheetTest, ProposesTheLoadedChordAndAMemberThatThereIs) {
  EXPECT_EQ(ProposedQuestion(2), (InfluenceQuestion{"1,2", {QuantityKind::MemberForce, 2, true}, ""}));
  EXPECT_EQ(ProposedQuestion(9).quantity.number, 1);
}

TEST_F(InfluenceSheetTest, FindsTheNearestMemberAndNode) {
  EXPECT_EQ(MemberWithin(3, 0.2, 0.5), 1);
  EXPECT_EQ(MemberWithin(3, 0.5, 0.5), 0);
  EXPECT_EQ(MemberWithin(1.5, 2.1, 0.5), 2);
  EXPECT_EQ(NodeWithin(5.8, 0, 0.5), 2);
  EXPECT_EQ(NodeWithin(5.4, 0, 0.5), 0);
}

} // namespace
} // namespace strutwright
