#include "EquationsFixture.h"
#include "FormulaTexts.h"
#include "TrussFamilies.h"
#include "modAnalysis.h"
#include "modMember.h"
#include "modNumberText.h"
#include "modWorking.h"

#include <random>
#include <variant>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Every text of a document, block after block.
std::string TextOf(const WorkedDocument& document) {
  std::string text;
  for (const WorkedBlock& block : document.blocks) {
    if (const auto* heading = std::get_if<WorkedHeading>(&block)) text += "# " + heading->text + "\n";
    if (const auto* paragraph = std::get_if<WorkedParagraph>(&block)) text += paragraph->text + "\n";
    if (const auto* formula = std::get_if<WorkedFormula>(&block)) text += PlainText(formula->formula) + "\n";
    if (const auto* table = std::get_if<WorkedTable>(&block)) {
      for (const std::vector<std::string>& row : table->rows) {
        for (const std::string& cell : row) text += cell + " | ";
        text += "\n";
      }
    }
  }
  return text;
}

/// A row of the page's K as the working writes it.
std::string RowAsWritten(int row) {
  std::string text;
  for (int column = 1; column <= TheEquations.page.viewDofCount; ++column) {
    text += (column == 1 ? "" : " ") + NumberAsShown(TheEquations.page.viewStiffness->Values()(row, column));
  }
  return text;
}

std::string Pane() { return TextOf(StepWorking()); }

class WorkingTest : public EquationsTest {
 protected:
  /// Presses every button in turn.
  static void GoThrough() {
    StepShowGlobalK();
    StepRestrict();
    StepSolve();
    StepMemberForces();
    StepReactions();
  }

  /// Logan, A First Course in the Finite Element Method, a corner with three bars: E 30e6 psi, A 2 in2, 10 ft,
  /// 10000 lb downwards.  Entered with inches as mm and 1000 lb as kN.
  static ModelData ThreeBarsAtACorner() {
    return {{{0, 0, 0, -10, 0}, {0, 0.12F, 0, 0, 3}, {0.12F, 0.12F, 0, 0, 3}, {0.12F, 0, 0, 0, 3}},
            {{1, 2, 30000, 2}, {1, 3, 30000, 2}, {1, 4, 30000, 2}}};
  }
};

TEST_F(WorkingTest, ShowsThePublishedMatricesOfFourNodesAndThreeBars) {
  SetModel(FourNodesThreeBars());
  PressAddMember(1);
  EXPECT_THAT(Pane(), HasSubstr("L = \u221A((1.6 \u2212 0)^2 + (0 \u2212 0)^2) = 1.6 m; "));
  EXPECT_THAT(Pane(), HasSubstr("(EA) / (L) = (200 \u00B7 600) / (1600) = 75 kN/mm; "));
  EXPECT_THAT(Pane(), HasSubstr("= [75 0 -75 0; 0 0 0 0; -75 0 75 0; 0 0 0 0] kN/mm"));
  PressAddMember(2);
  EXPECT_THAT(Pane(), HasSubstr("= [64 -48 -64 48; -48 36 48 -36; -64 48 64 -48; 48 -36 -48 36] kN/mm"));
  EXPECT_THAT(Pane(),
              HasSubstr("[0 0 0 0; 0 0 0 0; 0 0 75 0; 0 0 0 50] + [64 -48 -64 48; -48 36 48 -36; -64 48 64 -48; "
                        "48 -36 -48 36] = [64 -48 -64 48; -48 36 48 -36; -64 48 139 -48; 48 -36 -48 86]"));
  const std::string document = TextOf(WorkedSolution("bars"));
  EXPECT_THAT(document, HasSubstr("= [75 0 -75 0; 0 0 0 0; -75 0 75 0; 0 0 0 0] kN/mm"));
  EXPECT_THAT(document, HasSubstr("= [64 -48 -64 48; -48 36 48 -36; -64 48 64 -48; 48 -36 -48 36] kN/mm"));
  const std::string whole = "K = [75 0 0 0 -75 0 0 0; 0 0 0 0 0 0 0 0; 0 0 64 -48 -64 48 0 0; 0 0 -48 36 48 -36 0 0; "
                            "-75 0 -64 48 139 -48 0 0; 0 0 48 -36 -48 86 0 -50; 0 0 0 0 0 0 0 0; 0 0 0 0 0 -50 0 50]";
  EXPECT_THAT(document, HasSubstr(whole));
  GoThrough();
  StepBack();
  StepBack();
  EXPECT_THAT(Pane(), HasSubstr("[139 -48; -48 86][D_3 x; D_3 y] = [0; -80]; [D_3 x; D_3 y] = [-0.4; -1.15]"));
  StepBack();
  StepBack();
  EXPECT_THAT(Pane(), HasSubstr(whole));
  EXPECT_THAT(document, HasSubstr("[139 -48; -48 86][D_3 x; D_3 y] = [0; -80]"));
  EXPECT_THAT(document, HasSubstr("D = [0; 0; 0; 0; -0.4; -1.15; 0; 0] mm"));
  EXPECT_THAT(document, HasSubstr("= -29.84 kN (C)"));
  EXPECT_THAT(document, HasSubstr("= 57.62 kN (T)"));
  EXPECT_THAT(document, HasSubstr("= 37.31 kN (T)"));
  EXPECT_THAT(document, HasSubstr("R_2 y = \u22120 \u2212 (37.31 \u2212 0) \u00B7 (-0.6) = 22.38 kN"));
}

TEST_F(WorkingTest, ShowsThePublishedNumbersOfThreeBarsAtACorner) {
  SetModel(ThreeBarsAtACorner());
  const std::string document = TextOf(WorkedSolution("corner"));
  // Member 2: 500 times 0.354 in every place.
  const std::string share = "[176.78 176.78 -176.78 -176.78; 176.78 176.78 -176.78 -176.78; "
                            "-176.78 -176.78 176.78 176.78; -176.78 -176.78 176.78 176.78]";
  EXPECT_THAT(document, HasSubstr("= " + share + " kN/mm"));
  PressAddMember(2);
  EXPECT_THAT(Pane(), HasSubstr("= " + share + " kN/mm"));
  EXPECT_THAT(Pane(), HasSubstr(" + " + share + " = [176.78 176.78 -176.78 -176.78; 176.78 676.78 "));
  StepShowGlobalK();
  StepRestrict();
  StepSolve();
  EXPECT_THAT(Pane(), HasSubstr("[676.78 176.78; 176.78 676.78][D_1 x; D_1 y] = [0; -10]"));
  // EA/L = 500 kip/in; K at node 1 is 500 (1.354 0.354; 0.354 1.354); d = (0.414, -1.59) 1e-2 in.
  EXPECT_THAT(document, HasSubstr("[676.78 176.78; 176.78 676.78][D_1 x; D_1 y] = [0; -10]"));
  EXPECT_THAT(document, HasSubstr("D = [0; -0.02; "));
  // Stresses 3965, 1471 and -1035 psi on 2 in2.
  for (const char* force : {"= 7.93 kN (T)", "= 2.93 kN (T)", "= -2.07 kN (C)"})
    EXPECT_THAT(document, HasSubstr(force));
}

TEST_F(WorkingTest, PutsPrestressIntoLoadsForcesAndReactions) {
  SetModel({{{0, 0, 0, 0, 3}, {1, 0, 3, 0, 1}}, {{1, 2, 200, 1000, 5}}});
  StepShowForces();
  EXPECT_THAT(Pane(), HasSubstr("P_1 x = 0 + 5 (prestress) = 5 kN"));
  EXPECT_THAT(Pane(), HasSubstr("P_2 x = 3 + (-5) (prestress) = -2 kN"));
  GoThrough();
  EXPECT_THAT(Pane(), HasSubstr("R_1 x = \u2212(0 + 5) \u2212 (3 \u2212 5) \u00B7 1 = -3 kN"));
  StepBack();
  EXPECT_THAT(Pane(), HasSubstr("f_1 = 200 \u00B7 (1 \u00B7 (-0.01) + 0 \u00B7 0) + 5 = 3 kN (T)"));
}

TEST_F(WorkingTest, NamesPivotsAndExchanges) {
  // K of the free node is (1 10; 10 200) but for its scale: its rows stay; with a stiff cross term they would not.
  SetModel(FourNodesThreeBars());
  StepShowGlobalK();
  StepRestrict();
  EXPECT_THAT(Pane(), HasSubstr("1 x | node 1: support 3 holds x and y | "));
  StepSolve();
  EXPECT_THAT(Pane(), HasSubstr("3 x | 139 |  | \n3 y | 69.42 |  | \n"));
  SetModel(Square());
  StepShowGlobalK();
  StepRestrict();
  StepSolve();
  EXPECT_THAT(Pane(), HasSubstr("too small: nothing resists this motion"));
  TakeMessages();
}

TEST_F(WorkingTest, SaysWhyThereIsNothingToShow) {
  EXPECT_EQ(Pane(), "There is no model yet: enter nodes and members in the grids below, then press Show Force or Add "
                    "Member 1.\n");
  EXPECT_THAT(TextOf(WorkedSolution("none")), HasSubstr("There is no truss to work: it needs nodes and members."));
  SetModel({{}, {{1, 2}}});
  EXPECT_THAT(TextOf(WorkedSolution("none")), HasSubstr("There is no truss to work: it needs nodes and members."));
  SetModel(Triangle());
  EXPECT_THAT(Pane(), HasSubstr("Press Show Force, Add Member 1 or Show Global K"));
  StepShowForces();
  SetModel(FourNodesThreeBars());
  EXPECT_THAT(Pane(), HasSubstr("The model has changed since this step was taken"));
}

TEST_F(WorkingTest, ShowsNoNumbersOfAMemberWhoseAreaHasChangedSince) {
  SetModel(FourNodesThreeBars());
  PressAddMember(1);
  GrMembers.SetText(1, MemberA, "700");
  RebuildModelFromGrids();
  EXPECT_THAT(Pane(), HasSubstr("The model has changed since this step was taken"));
}

TEST_F(WorkingTest, FindsNoForcesFromTheDisplacementsOfAnotherModel) {
  SetModel(FourNodesThreeBars());
  GoThrough();
  SetModel(TriangleWithIgnoredMembers());
  StepMemberForces();
  const std::vector<Message> shown = TakeMessages();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0].text, "The model has changed since its equations were solved: press Solve first.");
  EXPECT_THAT(Pane(), HasSubstr("The model has changed since this step was taken"));
}

TEST_F(WorkingTest, ShowsWhatAnIgnoredMemberDoes) {
  SetModel(TriangleWithIgnoredMembers());
  PressAddMember(2);
  EXPECT_THAT(Pane(), HasSubstr("# Member 2 is ignored"));
  EXPECT_THAT(Pane(), HasSubstr("the matrix of member 1 was added once more"));
  TakeMessages();
}

TEST_F(WorkingTest, SaysThatANumberHasNoValue) {
  SetModel({{{0, 0, 0, 0, 3}, {1, 0, 0, 0, 1}}, {{1, 2, 3e38F, 3e38F}}});
  PressAddMember(1);
  EXPECT_THAT(Pane(), HasSubstr("Some of these numbers have no value"));

  ModelData weak = Triangle(); // its stiffness and loads have values, its displacements have none
  weak.nodes[2].forceX = 3e38F;
  for (MemberData& member : weak.members) member.A = 0.01F;
  SetModel(weak);
  ResetEquations();
  StepShowGlobalK();
  StepRestrict();
  EXPECT_THAT(Pane(), Not(HasSubstr("Some of these numbers have no value")));
  StepSolve();
  EXPECT_THAT(Pane(), HasSubstr("Some of these numbers have no value"));
}

TEST_F(WorkingTest, LeavesTheMatricesOfLargerTrussesOutAndSaysSo) {
  SetModel(PrattTruss(8));
  EXPECT_THAT(TextOf(WorkedSolution("8")), HasSubstr("# 2. The stiffness matrix, member by member"));
  SetModel(PrattTruss(10));
  const std::string large = TextOf(WorkedSolution("10"));
  EXPECT_THAT(large, HasSubstr("The matrices of trusses of up to 8 nodes are written out. This one has 10, so they are "
                               "left out."));
  EXPECT_THAT(large, HasSubstr("# 6. The reactions"));
  EXPECT_THAT(large, Not(HasSubstr("[")));
}

TEST_F(WorkingTest, ListsAFewOfManyInThePane) {
  SetModel(PrattTruss(300));
  GoThrough();
  StepBack();
  EXPECT_THAT(Pane(),
              HasSubstr("The first 40 of 597 members are listed here; Tools > Worked Solution lists them all."));
}

TEST_F(WorkingTest, ChangesNeitherTheModelNorTheView) {
  SetModel(Triangle());
  GoThrough();
  const FieldTable members = MemberTable;
  const EquationPage* page = &TheEquations.page;
  const FreedomValues reactions = page->reactions;
  WorkedSolution("triangle");
  EXPECT_EQ(MemberTable, members);
  EXPECT_EQ(TheEquations.page.reactions, reactions);
}

TEST_F(WorkingTest, StepsBackFromReactionsToTheLoads) {
  SetModel(Triangle());
  StepShowForces();
  GoThrough();
  EXPECT_EQ(TheEquations.page.lastStep, EquationStep::SupportReactions);
  StepBack();
  EXPECT_EQ(TheEquations.page.lastStep, EquationStep::MemberForces);
  EXPECT_EQ(TheEquations.page.reactions, nullptr);
  StepBack();
  EXPECT_EQ(TheEquations.page.memberForces, nullptr);
  EXPECT_EQ(TheEquations.page.lastStep, EquationStep::Solve);
}

TEST_F(WorkingTest, SaysWhereANumberComesFrom) {
  using Kind = NumberSource::Kind;
  EXPECT_EQ(SourceOfLink("node 3"), (NumberSource{Kind::Node, 3, 0}));
  EXPECT_EQ(SourceOfLink("member 12"), (NumberSource{Kind::Member, 12, 0}));
  EXPECT_EQ(SourceOfLink("force 2"), (NumberSource{Kind::Member, 2, 0}));
  EXPECT_EQ(SourceOfLink("K 3 4"), (NumberSource{Kind::Stiffness, 3, 4}));
  EXPECT_EQ(SourceOfLink("P 1"), (NumberSource{Kind::Load, 1, 0}));
  EXPECT_EQ(SourceOfLink("D 8"), (NumberSource{Kind::Displacement, 8, 0}));
  for (const char* text : {"", "K 3", "node", "node x", "else 3"}) EXPECT_EQ(SourceOfLink(text), std::nullopt) << text;
}

TEST_F(WorkingTest, FindsNoForcesBeforeTheDisplacements) {
  SetModel(Triangle());
  StepMemberForces();
  StepReactions();
  EXPECT_FALSE(CanFindForces());
  EXPECT_FALSE(CanStepBack());
}

// Every number in pane and document is the table's: 100 seeded trusses.
TEST_F(WorkingTest, AgreesWithTheTablesInPaneAndDocument) {
  std::mt19937 random(20261122);
  for (int round = 0; round < 100; ++round) {
    ModelData model = PrattTruss(4 + 2 * static_cast<int>(random() % 2));
    for (NodeData& node : model.nodes) {
      node.x += static_cast<float>(random() % 100) / 400.0F;
      node.forceX = static_cast<float>(random() % 50);
    }
    for (MemberData& member : model.members) member.PS = static_cast<float>(random() % 7);
    SetModel(model);
    StepShowGlobalK();
    const std::string matrix = Pane();
    const std::string document = TextOf(WorkedSolution("truss"));
    for (int row = 1; row <= TheEquations.page.viewDofCount; ++row) {
      ASSERT_THAT(matrix, HasSubstr(RowAsWritten(row)));
      ASSERT_THAT(document, HasSubstr(RowAsWritten(row)));
    }
    GoThrough();
    const std::string reactions = Pane();
    StepBack();
    const std::string forces = Pane();
    ASSERT_EQ(AnalyseTruss(), AnalysisEnd::Done);
    ASSERT_NE(document.find(reactions.substr(reactions.find('\n'))), std::string::npos);
    ASSERT_NE(document.find(forces.substr(forces.find('\n'))), std::string::npos);
    for (int m = 1; m <= MemberCount; ++m) {
      ASSERT_EQ(TheEquations.page.memberForces->at(static_cast<std::size_t>(m)), MemberForce(m));
      ASSERT_THAT(forces, HasSubstr(" = " + NumberAsShown(MemberForce(m)) + " kN"));
    }
    for (int n = 1; n <= NodeCount; ++n) {
      if (NodeTable(n, NodeSupport) == 0) continue;
      ASSERT_THAT(reactions, HasSubstr("R_" + std::to_string(n) + " y = "));
      ASSERT_THAT(reactions, HasSubstr(" = " + NumberAsShown(Reactions[YFreedom(n)]) + " kN"));
    }
    for (int row = 1; row <= DofCount; ++row) {
      ASSERT_THAT(document, HasSubstr(NumberAsShown(Displacements[static_cast<std::size_t>(row)])));
    }
  }
}

} // namespace
} // namespace strutwright
