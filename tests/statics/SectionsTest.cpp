#include "HandFixture.h"
#include "TextbookTrusses.h"
#include "modSections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SectionsTest : public HandFixture {
 protected:
  static HandSection Cut(const ModelData& model, const SectionStroke& stroke, double nearness = 0) {
    const HandTruss truss = HandTrussOf(model);
    return SectionAlong(truss, stroke, SolveByHand(truss).forces, nearness);
  }
};

// The truss of three panels: chords at heights 0 and 3, nodes 1 (0, 0) to 4 (12, 0), 5 (4, 3) and 6 (8, 3).

TEST_F(SectionsTest, RefuseALineWithoutLength) {
  EXPECT_EQ(Cut(ThreePanels().model, {6, 1, 6, 1}).whyNot, "The line has no length; draw another line");
}

TEST_F(SectionsTest, RefuseALineThroughANode) {
  EXPECT_EQ(Cut(ThreePanels().model, {8, 4, 8, -1}).whyNot, "The line runs along member 9; draw another line");
  EXPECT_EQ(Cut(ThreePanels().model, {7, 4, 9, 2}).whyNot,
            "The line goes through node 6, where it cuts no member clearly; draw another line");
  EXPECT_EQ(Cut(ThreePanels().model, {8.1, 4, 8.1, 2}).whyNot,
            "The line cuts member 6, but leaves the truss in one piece; draw another line right across it")
      << "the line ends inside of the truss";
}

TEST_F(SectionsTest, TakeANodeAsHitWithinTheNearnessAskedFor) {
  const SectionStroke beside{8.1, 4, 8.1, -1};
  EXPECT_EQ(Cut(ThreePanels().model, beside).whyNot, "");
  EXPECT_EQ(Cut(ThreePanels().model, beside, 0.2).whyNot, "The line runs along member 9; draw another line");
}

TEST_F(SectionsTest, RefuseALineAlongAMember) {
  EXPECT_EQ(Cut(ThreePanels().model, {5, 0, 7, 0}).whyNot, "The line runs along member 2; draw another line");
  EXPECT_EQ(Cut(ThreePanels().model, {-3, 0, -1, 0}).whyNot, "The line cuts no member; draw another line");
}

TEST_F(SectionsTest, RefuseALineThatCutsNothingOrNotThrough) {
  EXPECT_EQ(Cut(ThreePanels().model, {20, 4, 20, -1}).whyNot, "The line cuts no member; draw another line");
  EXPECT_EQ(Cut(ThreePanels().model, {6, 4, 6, 2}).whyNot,
            "The line cuts member 5, but leaves the truss in one piece; draw another line right across it");
}

TEST_F(SectionsTest, RefuseThreeForcesThroughOnePoint) {
  // Three bars that meet in node 1 and end in three pins: cut, they meet there.
  const ModelData fan{{{0, 0, 0, -1}, {-3, 4, 0, 0, 3}, {0, 4, 0, 0, 3}, {3, 4, 0, 0, 3}}, {{1, 2}, {1, 3}, {1, 4}}};
  const HandTruss truss = HandTrussOf(fan);
  const HandSection section = SectionAlong(truss, {-5, 2, 5, 2}, HandForces(truss));
  EXPECT_THAT(section.cut, ElementsAre(1, 2, 3));
  EXPECT_EQ(section.whyNot, "F1, F2 and F3 meet in a point, so no equation has one of them alone; draw another line");
}

TEST_F(SectionsTest, RefuseThreeParallelForces) {
  const ModelData posts{{{0, 3}, {2, 4, 3, -1}, {4, 3}, {0, 0, 0, 0, 3}, {2, 0, 0, 0, 3}, {4, 0, 0, 0, 3}},
                        {{1, 2}, {2, 3}, {1, 3}, {1, 4}, {2, 5}, {3, 6}}};
  const HandTruss truss = HandTrussOf(posts);
  const HandSection section = SectionAlong(truss, {-1, 1, 5, 1}, HandForces(truss));
  EXPECT_EQ(section.whyNot, "F4, F5 and F6 are parallel, so no equation has one of them alone; draw another line");
}

TEST_F(SectionsTest, SayWhatThreeEquationsDoForMoreForces) {
  // Of the left triangle without its top all cut members but one go through node 3.
  const HandTruss truss = HandTrussOf(TwoTriangles());
  HandForces known(truss);
  known.reactions = SolveByHand(truss).forces.reactions;
  known.reactionKnown.assign(known.reactionKnown.size(), 1);
  const HandSection section = SectionAround(truss, {1, 2, 3, 6, 8}, known);
  EXPECT_THAT(section.cut, ElementsAre(3, 6, 7, 12));
  EXPECT_EQ(section.equations.size() + section.open.size(), 4U);
  EXPECT_EQ(section.whyNot, "");
  EXPECT_EQ(section.remark, "4 forces are unknown, and a body has three equations: F6 still stands alone, F3, F12 and "
                            "F7 do not");
  const HandSection hinge = SectionAround(truss, {1, 2, 6, 7, 8}, known);
  EXPECT_THAT(hinge.cut, ElementsAre(2, 8, 19));
  EXPECT_EQ(hinge.remark, "");
  const HandSection wide = SectionAround(truss, {1, 2, 6, 7}, known);
  EXPECT_THAT(wide.cut, ElementsAre(2, 7, 10, 11, 19));
}

TEST_F(SectionsTest, NameTheForceThatStillStandsAlone) {
  // Three bars meet at node 1, and a fourth goes past it.
  const ModelData four{{{0, 0, 0, 0, 3}, {2, 0, 0, 0, 3}, {0, 2}, {2, 2}, {4, 2, 0, -1}},
                       {{1, 3}, {1, 4}, {1, 5}, {2, 5}, {3, 4}, {4, 5}}};
  const HandTruss truss = HandTrussOf(four);
  const HandSection section = SectionAround(truss, {3, 4, 5}, HandForces(truss));
  EXPECT_EQ(section.remark,
            "4 forces are unknown, and a body has three equations: F4 still stands alone, F1, F2 and F3 "
            "do not");
  ASSERT_EQ(section.equations.size(), 1U);
  EXPECT_EQ(section.equations[0].title, "Moment about node 1");
}

TEST_F(SectionsTest, TakeThePartWithFewerForces) {
  // Left of the line act two reactions and nothing else, right of it a reaction and two loads.
  const HandSection section = Cut(ThreePanels().model, {6.5, 4, 6.5, -1});
  EXPECT_THAT(section.body.nodes, ElementsAre(1, 2, 5));
  // Farther right it is the end with one reaction.
  EXPECT_THAT(Cut(ThreePanels().model, {10, 4, 10, -1}).body.nodes, ElementsAre(4));
}

TEST_F(SectionsTest, AddUpAcrossTwoParallels) {
  const HandSection section = Cut(ThreePanels().model, {6.5, 4, 6.5, -1});
  EXPECT_EQ(section.equations.back().title, "Sum of y");
}

TEST_F(SectionsTest, AddUpAcrossParallelsAslant) {
  // A ladder on a slope of 3 to 4, one bay, held below.
  const ModelData ladder{{{0, 0, 0, 0, 3}, {-3, 4, 0, 0, 3}, {8, 6, 0, -5}, {5, 10}}, {{1, 3}, {2, 4}, {3, 4}, {2, 3}}};
  const HandSection section = Cut(ladder, {-2, 8, 6, 1});
  EXPECT_THAT(section.cut, ElementsAre(1, 2, 4));
  const auto diagonal = std::find_if(section.equations.begin(), section.equations.end(),
                                     [](const HandEquation& each) { return each.solution.starts_with("F4"); });
  ASSERT_NE(diagonal, section.equations.end());
  EXPECT_EQ(diagonal->title, "Sum across F1 and F2");
}

TEST_F(SectionsTest, WorkOnIndeterminateTrussesWhereTheyCut) {
  // The crossed panel is redundant, the next is not.
  ModelData model = ThreePanels().model;
  model.members.push_back({2, 6});
  const HandSection inside = Cut(model, {6.5, 4, 6.5, -1});
  EXPECT_EQ(inside.remark, "4 forces are unknown, and a body has three equations: none of F2, F10, F5 and F8 stands "
                           "alone in one");
  const HandSection outside = Cut(model, {10, 4, 10, -1});
  EXPECT_THAT(outside.cut, ElementsAre(3, 6));
  EXPECT_NEAR(outside.values[0], 1200, 1e-9);
}

} // namespace
} // namespace strutwright
