#include "HandStrokes.h"
#include "ModelBuilder.h"
#include "Pattern.h"
#include "WorkbenchFixture.h"
#include "modHandAgreement.h"
#include "modHandLesson.h"
#include "modModelStore.h"
#include "modRunAnalysis.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

/// 6 m wide and 4 m high, 12 kN down at the top; members 1: the tie, 2 and 3: the rafters.
//  Reactions 6 and 6.  Joint 1: y: 6 + (4/5) F2 = 0, F2 = -7.5; x: F1 = (3/5) 7.5 = 4.5.
ModelData LoadedRafters() { return {{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 4, 0, -12}}, {{1, 2}, {1, 3}, {2, 3}}}; }

/// Two triangles of four each, hinged at node 3, their tops joined by member 19: no joint has less than three members
/// once the feet are done.
ModelData TwoTrianglesAndBar() {
  const float h = 3.4641016F;
  return {{{0, 0, 0, 0, 3},
           {2, 0, 0, -4},
           {4, 0, 0, -2},
           {6, 0, 0, -4},
           {8, 0, 0, 0, 1},
           {1, h / 2},
           {2, h},
           {3, h / 2},
           {5, h / 2},
           {6, h},
           {7, h / 2}},
          {{1, 2},
           {2, 3},
           {3, 4},
           {4, 5},
           {1, 6},
           {6, 7},
           {7, 8},
           {8, 3},
           {2, 6},
           {2, 8},
           {6, 8},
           {3, 9},
           {9, 10},
           {10, 11},
           {11, 5},
           {9, 4},
           {4, 11},
           {9, 11},
           {7, 10}}};
}

/// The members of a square crossed by both diagonals: once indeterminate.
ModelData CrossedSquare() {
  return {{{0, 0, 0, 0, 3}, {3, 0, 0, 0, 1}, {3, 3, 5, 0}, {0, 3}}, {{1, 2}, {2, 3}, {3, 4}, {4, 1}, {1, 3}, {2, 4}}};
}

/// Two cantilevers from pinned nodes to a hinge at the crown.
ModelData ThreeHinges() { return {{{0, 0, 0, 0, 3}, {8, 0, 0, 0, 3}, {4, 3, 0, -10}}, {{1, 3}, {2, 3}}}; }

class HandLessonTest : public WorkbenchFixture {
 protected:
  void Take(const ModelData& model) {
    SetModel(model);
    lesson.Read();
  }

  std::string Told(HandTopic topic, int step) { return TextOf(lesson.Tell(topic, step)); }
  std::string ToldLast(HandTopic topic) { return Told(topic, lesson.LastStep(topic)); }

  HandLesson lesson;
};

TEST_F(HandLessonTest, FindsTheReactionsEquationByEquation) {
  Take(LoadedRafters());
  EXPECT_EQ(lesson.LastStep(HandTopic::FirstReactions), 3);
  EXPECT_THAT(Told(HandTopic::FirstReactions, 0), HasSubstr("The whole truss is cut free of its supports"));
  EXPECT_THAT(Told(HandTopic::FirstReactions, 0), Not(HasSubstr("Sum of x")));
  EXPECT_THAT(Told(HandTopic::FirstReactions, 1), HasSubstr("Sum of x:\n  R1x = 0\n"));
  EXPECT_THAT(Told(HandTopic::FirstReactions, 2), HasSubstr("-6 R1y - 3 (-12) = 0\n  so R1y = 6 kN"));
  EXPECT_THAT(ToldLast(HandTopic::FirstReactions), EndsWith("R1x = 0\nR1y = 6 kN\nR2y = 6 kN\n"));
}

TEST_F(HandLessonTest, CutsTheTrussFreeWithItsLoadsAndReactionsYetUnknown) {
  Take(LoadedRafters());
  const Sketch body = lesson.Tell(HandTopic::FirstReactions, 0).sheet[0].sketch;
  std::vector<std::string> labels;
  for (const SketchArrow& arrow : body.arrows) labels.push_back(arrow.label);
  EXPECT_THAT(labels, testing::UnorderedElementsAre("12 kN", "R1x", "R1y", "R2y"));
}

TEST_F(HandLessonTest, TakesTheHingeOfAThreeHingedArch) {
  Take(ThreeHinges());
  EXPECT_EQ(lesson.LastStep(HandTopic::FirstReactions), 4);
  EXPECT_THAT(Told(HandTopic::FirstReactions, 4), HasSubstr("node 3"));
  EXPECT_THAT(ToldLast(HandTopic::FirstReactions), Not(HasSubstr("indeterminate")));
}

TEST_F(HandLessonTest, StepsThroughTheJoints) {
  Take(LoadedRafters());
  EXPECT_EQ(lesson.LastStep(HandTopic::Joints), 4); // three joints, and what is known at the end
  EXPECT_EQ(Told(HandTopic::Joints, 1),
            "Step 1 of 3: joint 1\n\nTwo unknown forces.\n\n"
            "Sum of x:\n  F1 + 0.6 F2 = 0\nSum of y:\n  6 + 0.8 F2 = 0\n  so F2 = -7.5 kN (compression)\n\n"
            "F1 = 4.5 kN (tension)\nF2 = -7.5 kN (compression)\n");
  EXPECT_THAT(ToldLast(HandTopic::Joints), HasSubstr("All forces are known"));
  EXPECT_THAT(ToldLast(HandTopic::Joints), HasSubstr("F3 = -7.5 kN (compression)"));
  EXPECT_EQ(lesson.StepOfJoint(1), 1);
  EXPECT_EQ(lesson.StepOfJoint(99), 0);
}

TEST_F(HandLessonTest, ShowsTrussJointAndPolygonOfAStep) {
  Take(LoadedRafters());
  const SketchSheet sheet = lesson.Tell(HandTopic::Joints, 1).sheet;
  ASSERT_THAT(sheet, SizeIs(3));
  EXPECT_THAT(sheet[0].sketch.points, SizeIs(3));
  EXPECT_EQ(sheet[0].sketch.points[0].tone, SketchTone::Marked);
  EXPECT_EQ(sheet[0].sketch.lines[1].tone, SketchTone::Ink); // not known before this step
  EXPECT_EQ(lesson.Tell(HandTopic::Joints, 2).sheet[0].sketch.lines[1].tone, SketchTone::Compression);
  EXPECT_THAT(sheet[1].sketch.arrows, SizeIs(4)); // two reactions and two members
  EXPECT_THAT(sheet[2].sketch.lines, SizeIs(3));  // R1x is none
}

TEST_F(HandLessonTest, OffersTheSectionOfACompoundTruss) {
  Take(TwoTrianglesAndBar());
  ASSERT_EQ(lesson.Solution().determinacy.kind, TrussKind::Compound) << lesson.Solution().determinacy.sentence;
  const auto& steps = lesson.Solution().steps;
  const auto isSection = [](const HandStep& step) { return step.kind == HandStepKind::Section; };
  const int section = static_cast<int>(std::find_if(steps.begin(), steps.end(), isSection) - steps.begin()) + 1;
  EXPECT_THAT(Told(HandTopic::Joints, section),
              HasSubstr("a section\n\nNo joint left has at most two unknown forces: the "
                        "truss is compound. The section through member"));
  EXPECT_THAT(Told(HandTopic::Joints, section), HasSubstr("F19 = -3.4641 kN (compression)"));
  EXPECT_THAT(lesson.Tell(HandTopic::Joints, section).sheet, SizeIs(2));
}

TEST_F(HandLessonTest, GoesThroughAComplexTruss) {
  Take({{{-4, -3, 0, 0, 3}, {-4, 0}, {0, 4, 5, 0}, {4, 0}, {4, -3, 0, 0, 1}, {0, 0}},
        {{3, 2}, {3, 4}, {6, 1}, {6, 5}, {5, 2}, {5, 4}, {4, 1}, {2, 1}, {3, 6}}});
  EXPECT_THAT(Told(HandTopic::Joints, 1), HasSubstr("the truss is complex"));
  EXPECT_THAT(ToldLast(HandTopic::Joints), HasSubstr("F9 = 2.1429 kN (tension)"));
  EXPECT_THAT(ToldLast(HandTopic::ForceDiagram), HasSubstr("There is no force diagram: members 5 and 7 cross."));
}

TEST_F(HandLessonTest, StopsAtAnIndeterminateTruss) {
  Take(CrossedSquare());
  EXPECT_THAT(ToldLast(HandTopic::Joints), StartsWith("Here it stops"));
  EXPECT_THAT(ToldLast(HandTopic::Joints), HasSubstr("b + r = 6 + 3 = 9"));
  EXPECT_THAT(ToldLast(HandTopic::Joints), HasSubstr("F5 is left open"));
  EXPECT_THAT(ToldLast(HandTopic::ForceDiagram), HasSubstr("There is no force diagram: "));
}

TEST_F(HandLessonTest, ChecksAJointWithTheComputedForces) {
  Take(CrossedSquare());
  EXPECT_FALSE(HandLesson::HasComputed());
  EXPECT_THAT(TextOf(lesson.TellJoint(3, false)), HasSubstr("Not every force of this joint is known"));
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  EXPECT_TRUE(HandLesson::HasComputed());
  EXPECT_TRUE(lesson.IsCurrent());
  EXPECT_THAT(TextOf(lesson.TellJoint(3, true)), HasSubstr("The computed forces"));
  EXPECT_THAT(TextOf(lesson.TellJoint(3, true)), HasSubstr("polygon closes"));
}

TEST_F(HandLessonTest, OffersTheForcesOfTheAnalysisAtTheEnd) {
  Take(CrossedSquare());
  EXPECT_THAT(ToldLast(HandTopic::Joints), EndsWith("Run the analysis (F5) to see its forces beside these.\n"));
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  EXPECT_THAT(ToldLast(HandTopic::Joints), EndsWith("Tick Computed to see the forces of the analysis beside these.\n"));
  const HandTelling computed = lesson.TellComputed(lesson.LastStep(HandTopic::Joints));
  EXPECT_EQ(computed.heading, "By hand and computed");
  EXPECT_THAT(computed.sentences.front(), HasSubstr("indeterminate to degree 1"));
  EXPECT_THAT(computed.solution.at(4), MatchesPattern("F5 = .* kN .*, by hand left open"));
  EXPECT_NE(computed.sheet.front().sketch.lines.at(4).tone, SketchTone::Ink);
}

TEST_F(HandLessonTest, SetsTheForcesOfBothWaysSideBySide) {
  Take(LoadedRafters());
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  const std::string all = TextOf(lesson.TellComputed(4));
  EXPECT_THAT(all, HasSubstr("F3 = -7.5 kN (compression), by hand -7.5\n"));
  EXPECT_THAT(all, EndsWith(HandAgreementText() + "\n"));
  EXPECT_EQ(lesson.JointOfStep(2), 2);
  EXPECT_EQ(lesson.JointOfStep(4), 0); // the end
  EXPECT_THAT(TextOf(lesson.TellComputed(2)), StartsWith("Joint 2\n"));
}

TEST_F(HandLessonTest, SaysHowManyDigitsBothWaysShare) {
  Take(LoadedRafters());
  EXPECT_EQ(HandAgreementText(), ""); // before the analysis
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  EXPECT_THAT(HandAgreementText(),
              MatchesPattern("Joints by hand and stiffness agree to [67] digits of the largest force."));
  EXPECT_THAT(ToldLast(HandTopic::Joints), HasSubstr(HandAgreementText()));
  MemberTable(1, MemberFieldForce) += 0.01F;
  EXPECT_EQ(DigitsShared(lesson.Truss(), lesson.Solution()), 2); // 0.01 of 7.5
}

TEST_F(HandLessonTest, ComparesNothingThatEquilibriumLeavesOpen) {
  Take(CrossedSquare());
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  EXPECT_EQ(HandAgreementText(), "");
}

TEST_F(HandLessonTest, ShowsAnyJointWithAllItsForces) {
  Take(LoadedRafters());
  EXPECT_THAT(TextOf(lesson.TellJoint(3, false)),
              HasSubstr("Sum of y:\n  -12 - 0.8 (-7.5) - 0.8 (-7.5) = 0\n\nThe forces balance: the polygon closes.\n"));
}

TEST_F(HandLessonTest, CutsAlongALine) {
  Take(LoadedRafters());
  const std::string text = TextOf(lesson.TellSection({2, 5, 2, -1}));
  EXPECT_THAT(text, StartsWith("Section through members 1 and 2\n\nNode 1 is cut free.\n"));
  EXPECT_THAT(text, HasSubstr("so F1 = 4.5 kN (tension)"));
  EXPECT_THAT(text, HasSubstr("so F2 = -7.5 kN (compression)"));
}

TEST_F(HandLessonTest, ShowsTheCutAboveThePartCutFree) {
  Take(LoadedRafters());
  const SketchSheet sheet = lesson.TellSection({2, 5, 2, -1}).sheet;
  ASSERT_THAT(sheet, SizeIs(2));
  for (const SketchPart& part : sheet) {
    EXPECT_EQ(part.left, 0);
    EXPECT_EQ(part.width, 1);
  }
  EXPECT_EQ(sheet[0].top, 0);
  EXPECT_EQ(sheet[1].top, sheet[0].height);
  EXPECT_DOUBLE_EQ(sheet[1].top + sheet[1].height, 1);
}

TEST_F(HandLessonTest, AsksForAnotherLine) {
  Take(LoadedRafters());
  EXPECT_THAT(TextOf(lesson.TellSection({3, 5, 3, -1})), HasSubstr("The line goes through node 3"));
  EXPECT_THAT(TextOf(lesson.TellSection({-1, 0, 7, 0})), HasSubstr("The line runs along member 1"));
  EXPECT_THAT(TextOf(lesson.TellSection({9, 5, 9, -1})), HasSubstr("The line cuts no member; draw another line."));
  EXPECT_THAT(TextOf(lesson.TellSection({1, 1, 1, 1})), HasSubstr("The line has no length"));
  EXPECT_THAT(TextOf(lesson.TellSection({2.8, 5, 2.8, -1}, 0.3)), HasSubstr("through node 3"));
}

TEST_F(HandLessonTest, ProposesALineThatDecides) {
  Take(LoadedRafters());
  const SectionStroke stroke = lesson.ProposedStroke();
  EXPECT_THAT(lesson.TellSection(stroke).equations, SizeIs(2));
  EXPECT_GT(stroke.y0, 4) << "it begins above the truss";
  EXPECT_LT(stroke.y1, 0) << "and ends below it";
}

TEST_F(HandLessonTest, ProposesTheSameLineWhereverTheTrussStands) {
  ModelData model = LoadedRafters();
  Take(model);
  const SectionStroke here = lesson.ProposedStroke();
  for (NodeData& node : model.nodes) node.x -= 100;
  Take(model);
  const SectionStroke there = lesson.ProposedStroke();
  EXPECT_DOUBLE_EQ(there.x0, here.x0 - 100);
  EXPECT_DOUBLE_EQ(there.y0, here.y0);
  EXPECT_DOUBLE_EQ(there.x1, here.x1 - 100);
  EXPECT_DOUBLE_EQ(there.y1, here.y1);
}

TEST_F(HandLessonTest, DrawsTheForceDiagramLineByLine) {
  Take(LoadedRafters());
  const int last = lesson.LastStep(HandTopic::ForceDiagram);
  EXPECT_EQ(last, 6); // a load, two reactions, three members
  EXPECT_THAT(Told(HandTopic::ForceDiagram, 0), HasSubstr("Every space between two forces has a letter"));
  EXPECT_THAT(Told(HandTopic::ForceDiagram, 4), HasSubstr("Line 4 of 6"));
  EXPECT_THAT(ToldLast(HandTopic::ForceDiagram), HasSubstr("The diagram closes; its closing error is 0 kN."));
  const SketchSheet sheet = lesson.Tell(HandTopic::ForceDiagram, 4).sheet;
  ASSERT_THAT(sheet, SizeIs(2));
  EXPECT_THAT(sheet[1].sketch.lines, SizeIs(4));
  EXPECT_THAT(lesson.LineText(last), HasSubstr("member "));
  EXPECT_EQ(lesson.LineText(0), "");
  EXPECT_EQ(lesson.LineText(last + 1), "");
}

TEST_F(HandLessonTest, FindsMembersWithoutForceInTheirOrder) {
  ModelData model = LoadedRafters();
  model.nodes.push_back({3, 0}); // on the tie, held by it and hung from the top
  model.members = {{1, 4}, {4, 2}, {1, 3}, {2, 3}, {3, 4}};
  Take(model);
  EXPECT_EQ(lesson.LastStep(HandTopic::ZeroMembers), 1);
  EXPECT_THAT(Told(HandTopic::ZeroMembers, 0), HasSubstr("Some members can be seen to bear nothing"));
  EXPECT_THAT(Told(HandTopic::ZeroMembers, 1), HasSubstr("Member 5: "));
  const Sketch shown = lesson.Tell(HandTopic::ZeroMembers, 1).sheet[0].sketch;
  EXPECT_EQ(shown.lines[4].label, "0");
  EXPECT_EQ(shown.points[3].tone, SketchTone::Marked);
}

TEST_F(HandLessonTest, SaysWhereThereIsNothingToFind) {
  Take({});
  EXPECT_THAT(Told(HandTopic::Joints, 0), HasSubstr("The model has no nodes: enter a truss first."));
  Take(Square());
  for (const HandTopic topic : {HandTopic::FirstReactions, HandTopic::ZeroMembers, HandTopic::Joints,
                                HandTopic::Sections, HandTopic::ForceDiagram}) {
    EXPECT_THAT(Told(topic, 0), HasSubstr("What can move need not be in equilibrium"));
    EXPECT_EQ(lesson.LastStep(topic), 0);
  }
  EXPECT_THAT(TextOf(lesson.TellJoint(1, false)), HasSubstr("What can move"));
  EXPECT_THAT(TextOf(lesson.TellSection({1, 5, 1, -5})), HasSubstr("What can move"));
}

TEST_F(HandLessonTest, SaysThatNothingIsLoaded) {
  ModelData model = LoadedRafters();
  model.nodes[2].forceY = 0;
  Take(model);
  EXPECT_THAT(Told(HandTopic::Joints, 0), HasSubstr("No node is loaded: every force that equilibrium can find is 0."));
  EXPECT_THAT(lesson.Tell(HandTopic::Joints, 1).sheet[2].sketch.lines, IsEmpty());
}

TEST_F(HandLessonTest, SaysThatPrestressChangesNothing) {
  ModelData model = LoadedRafters();
  model.members[0].PS = 25;
  Take(model);
  EXPECT_THAT(Told(HandTopic::Joints, 0), HasSubstr("Prestress changes no force that statics alone can find"));
  EXPECT_THAT(ToldLast(HandTopic::Joints), HasSubstr("F1 = 4.5 kN (tension)"));
}

TEST_F(HandLessonTest, NamesWhatIsLeftOut) {
  ModelData model = LoadedRafters();
  model.members.push_back({2, 2});
  Take(model);
  EXPECT_THAT(Told(HandTopic::FirstReactions, 0), HasSubstr("Member 4 has no length and is left out."));
}

TEST_F(HandLessonTest, TakesTheSmallestAndTheLargestForces) {
  for (const float load : {1e-30F, 1e30F}) {
    ModelData model = LoadedRafters();
    model.nodes[2].forceY = -load;
    Take(model);
    EXPECT_THAT(ToldLast(HandTopic::Joints), HasSubstr("All forces are known"));
    EXPECT_THAT(ToldLast(HandTopic::ForceDiagram), HasSubstr("closing error is 0 kN"));
    EXPECT_THAT(lesson.Tell(HandTopic::Joints, 1).sheet[2].sketch.lines, SizeIs(3));
  }
}

TEST_F(HandLessonTest, TakesNodesAtOnePlace) {
  ModelData model = LoadedRafters();
  model.nodes.push_back({6, 0});
  model.members.push_back({1, 4});
  model.members.push_back({4, 3});
  Take(model);
  for (int step = 0; step <= lesson.LastStep(HandTopic::Joints); ++step) EXPECT_NE(Told(HandTopic::Joints, step), "");
  EXPECT_THAT(ToldLast(HandTopic::ForceDiagram), HasSubstr("There is no force diagram"));
}

TEST_F(HandLessonTest, IsAboutTheModelThatItRead) {
  Take(LoadedRafters());
  EXPECT_TRUE(lesson.IsCurrent());
  NodeTable(3, NodeForceY) = -24;
  EXPECT_FALSE(lesson.IsCurrent());
}

TEST_F(HandLessonTest, KeepsToTheStepsThatThereAre) {
  Take(LoadedRafters());
  EXPECT_EQ(Told(HandTopic::Joints, -1), Told(HandTopic::Joints, 0));
  EXPECT_EQ(Told(HandTopic::Joints, 99), ToldLast(HandTopic::Joints));
}

TEST(HandStrokesTest, ReadsFourNumbers) {
  const StrokeReading reading = ReadStroke({"1.5", "5", "2", "-1"});
  EXPECT_EQ(reading.fault, "");
  EXPECT_EQ(reading.stroke.x0, 1.5);
  EXPECT_EQ(reading.stroke.y1, -1);
  EXPECT_THAT(StrokeTexts(reading.stroke), ElementsAre("1.5", "5", "2", "-1"));
}

TEST(HandStrokesTest, AsksForWhatIsNoNumber) {
  for (const std::string bad : {"", "x", "1,5"}) {
    EXPECT_EQ(ReadStroke({"1", bad, "2", "3"}).fault,
              "Type the line's ends as four numbers in m, such as 4.5, 5 and 4.5, -1.");
  }
}

TEST(HandTellingTest, WritesOnlyTheFirstOfVeryManyEquations) {
  HandTelling telling;
  telling.equations.resize(63);
  EXPECT_THAT(TextOf(telling), HasSubstr("and 3 more equations\n"));
  telling.equations.resize(60);
  EXPECT_THAT(TextOf(telling), Not(HasSubstr("more equations")));
}

} // namespace
} // namespace strutwright
