#include "FormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "modModelStore.h"

#include <filesystem>

#include <QCheckBox>
#include <QToolBar>

namespace strutwright {
namespace {

using testing::ElementsAre;

class AnalysisFormTest : public FormTest {
 protected:
  bool Ticked(const QString& name) { return Find<QCheckBox>(name).isChecked(); }
  bool AllTicked() { return Ticked("ReactionsChk") && Ticked("MbrForcesChk") && Ticked("DSDchk"); }
};

TEST_F(AnalysisFormTest, TicksTheResultBoxesAndDrawsTheirLayers) {
  EnterThreeBarTruss();
  EXPECT_EQ(Ink(Qt::blue), 0);
  frame->runAnalysis();
  EXPECT_TRUE(AllTicked());
  EXPECT_TRUE(ShowReactions && ShowMemberForces && ShowDeflectedShape);
  EXPECT_EQ(LabelText("stsBar_Analysis"), "Analysis Done");
  EXPECT_GT(Ink(Qt::blue), 50);
  EXPECT_GT(Ink(Qt::green), 50);
  EXPECT_GT(Ink(Qt::red), 50);
}

TEST_F(AnalysisFormTest, ListsTheResultsWithAZeroReactionAsAPoint) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  EXPECT_EQ(View("jResGr").model()->rowCount(), 3);
  EXPECT_EQ(jResGr.Text(1, 3), ".");
  EXPECT_EQ(jResGr.Text(1, 4), "5.");
  EXPECT_EQ(mResGr.Text(3, 2), "T");
}

TEST_F(AnalysisFormTest, DrawsAndAnimatesATrussWithAMemberThatNamesNode0) {
  EnterThreeBarTruss();
  GrMembers.SetText(4, 1, "0");
  GrMembers.SetText(4, 2, "3");
  frame->runAnalysis();
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Error: member index 4 node numbers\nMember ignored"),
                          Box(MessageIcon::Information, "Ignoring member 4 as E and A are not valid")));
  frame->AnimateDSD();
  QTest::qWait(250); // two ticks of the clock
  frame->Redraw(false);
  EXPECT_EQ(TakeMessages().size(), 0U);
}

TEST_F(AnalysisFormTest, WritesItsScratchCopyBesideTheProgram) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  EXPECT_TRUE(std::filesystem::exists(folder.Path("temp_truss.stw")));
}

TEST_F(AnalysisFormTest, SetsTheFlagsAgainInASecondRun) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  ShowReactions = false;
  frame->runAnalysis();
  EXPECT_TRUE(ShowReactions);
}

TEST_F(AnalysisFormTest, LeavesTheAnalysisStateWithoutAMessageWhileItStillHolds) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  frame->EndAnalysis(true);
  EXPECT_FALSE(Ticked("ReactionsChk") || Ticked("MbrForcesChk") || Ticked("DSDchk"));
  EXPECT_FALSE(ShowReactions || ShowMemberForces || ShowDeflectedShape);
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
  EXPECT_EQ(Ink(Qt::blue), 0);
}

TEST_F(AnalysisFormTest, DrawsTheOldPictureWhereEndingDoesNotRedraw) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  frame->EndAnalysis(false);
  EXPECT_GT(Ink(Qt::blue), 50);
}

TEST_F(AnalysisFormTest, SaysOnceThatThereAreNoResultsAndLeavesTheBoxEmpty) {
  for (const char* name : {"ReactionsChk", "MbrForcesChk", "DSDchk"}) {
    for (int attempt = 1; attempt <= 2; ++attempt) {
      Find<QCheckBox>(name).click();
      EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "No results available"))) << name;
      EXPECT_FALSE(Ticked(name));
    }
  }
  EXPECT_FALSE(ShowReactions || ShowMemberForces || ShowDeflectedShape);
}

TEST_F(AnalysisFormTest, SaysSoAgainAfterAPendingEditHasEndedTheAnalysis) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  ClickCell(View("GrJoints"), 3, 4);
  Type("-5");
  Find<QCheckBox>("ReactionsChk").click();
  TakeMessages();
  Find<QCheckBox>("ReactionsChk").click();
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "No results available")));
  EXPECT_FALSE(Ticked("ReactionsChk"));
}

TEST_F(AnalysisFormTest, SwitchesALayerOffAndOnWithoutComputingAgain) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  Find<QCheckBox>("MbrForcesChk").click();
  EXPECT_FALSE(ShowMemberForces);
  EXPECT_EQ(Ink(Qt::blue), 0);
  MemberTable(1, MemberFieldForce) = 99;
  Find<QCheckBox>("MbrForcesChk").click();
  EXPECT_TRUE(ShowMemberForces);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 99.0F);
  EXPECT_GT(Ink(Qt::blue), 50);
}

TEST_F(AnalysisFormTest, LeavesNoAnalysisAfterAnUnstableModel) {
  EnterThreeBarTruss();
  GrJoints.SetText(1, 5, "0");
  frame->runAnalysis();
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_FALSE(AllTicked());
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
}

TEST_F(AnalysisFormTest, SaysThatAnEmptyModelCanNotBeAnalysed) {
  frame->runAnalysis();
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(AnalysisDone, FlagFalse);
}

TEST_F(AnalysisFormTest, NamesTheMemberWhoseNodeDoesNotExist) {
  EnterThreeBarTruss();
  GrMembers.SetText(2, 2, "9");
  frame->runAnalysis();
  const auto boxes = TakeMessages();
  ASSERT_FALSE(boxes.empty());
  EXPECT_EQ(boxes[0].icon, MessageIcon::Critical);
  EXPECT_THAT(boxes[0].text, testing::AllOf(testing::HasSubstr("2"), testing::HasSubstr("9")));
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
}

TEST_F(AnalysisFormTest, RunsFromTheToolBarAndByF5) {
  EnterThreeBarTruss();
  Find<QToolBar>("Toolbar1").actions().at(5)->trigger();
  EXPECT_EQ(AnalysisDone, FlagTrue);
  frame->EndAnalysis(true);
  QTest::keyClick(frame.get(), Qt::Key_F5);
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(AnalysisFormTest, KeepsTheResultsOnRefreshAndSaveOfAnUnchangedModel) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  const float force = MemberTable(1, MemberFieldForce);
  Command("mnuRefresh").trigger();
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), force);
  dialog.WillChoose(folder.Path("bridge.stw"));
  Command("mnuSave").trigger();
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), force);
}

TEST_F(AnalysisFormTest, EndsOnRefreshOfAChangedGrid) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  GrJoints.SetText(3, 4, "-20");
  Command("mnuRefresh").trigger();
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_EQ(NodeTable(3, NodeForceY), -20.0F);
}

} // namespace
} // namespace strutwright
