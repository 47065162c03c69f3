#include "FormFixture.h"

#include "AnalysisState.h"
#include "ModelBuilder.h"
#include "WorkbenchState.h"
#include "modModelStore.h"

#include <stdexcept>

#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>

namespace strutwright {
namespace {

/// The status panel of the check.
class CheckPanelTest : public FormTest {
 protected:
  std::string Panel() { return LabelText("stsBar_Check"); }
  QString Look() { return Find<QLabel>("stsBar_Check").styleSheet(); }
};

TEST_F(CheckPanelTest, IsTheFourthAndEmptyAtFirst) {
  QStringList panels;
  for (const QLabel* each : Find<QStatusBar>("stsBar").findChildren<QLabel*>()) panels << each->objectName();
  EXPECT_EQ(panels.indexOf("stsBar_Check"), 3);
  EXPECT_EQ(Panel(), "");
}

TEST_F(CheckPanelTest, SaysTheDigitsAfterAnAnalysisWithoutColour) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  EXPECT_EQ(Panel(), "7 digits");
  EXPECT_FALSE(Look().contains("background"));
  EXPECT_EQ(LabelText("stsBar_Analysis"), "Analysis Done");
}

TEST_F(CheckPanelTest, NamesAMechanismAfterTheBoxOfTheFailedAnalysis) {
  SetModel(Square());
  frame->runAnalysis();
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(Panel(), "Mechanism - see Check");
  EXPECT_TRUE(Look().contains("#c62828"));
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
}

TEST_F(CheckPanelTest, IsOrangeWithItsWordsWhereRoundingAloneIsToBlame) {
  ModelData model = Triangle();
  for (MemberData& member : model.members) member.A = 0.001F;
  SetModel(model);
  frame->runAnalysis();
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(Panel(), "Unstable by rounding only - see Check");
  EXPECT_TRUE(Look().contains("#ffb347"));
}

TEST_F(CheckPanelTest, IsBlankAfterAnEditOfACell) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  ClickCell(View("GrJoints"), 3, 4);
  Type("-5");
  EXPECT_EQ(Panel(), "7 digits");
  Press(Qt::Key_Return);
  EXPECT_EQ(Panel(), "");
  EXPECT_FALSE(Look().contains("background"));
}

TEST_F(CheckPanelTest, IsBlankAfterAnEditOfAMechanism) {
  SetModel(Square());
  frame->runAnalysis();
  TakeMessages();
  frame->DrawMember(1, 3);
  EXPECT_EQ(Panel(), "");
}

TEST_F(CheckPanelTest, IsBlankAfterAListThatChangesTheModelOnly) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  Find<QLineEdit>("nodesTxt").setText("3");
  Find<QLineEdit>("ynlTxt").setText("-7");
  Find<QPushButton>("nodeLoadBtn").click();
  EXPECT_EQ(AnalysisDone, FlagTrue); // as results stay marked valid then
  EXPECT_EQ(Panel(), "");
}

TEST_F(CheckPanelTest, StaysThroughWhatChangesNothing) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  Command("mnuRefresh").trigger();
  Command("mnuZoomExtents").trigger();
  EXPECT_EQ(Panel(), "7 digits");
}

TEST_F(CheckPanelTest, IsBlankAfterUndoAndAfterNew) {
  EnterThreeBarTruss();
  frame->Edit("Cell Edit", [] { GrJoints.SetText(3, 4, "-20"); });
  frame->runAnalysis();
  EXPECT_EQ(Panel(), "7 digits");
  Command("mnuUndo").trigger();
  EXPECT_EQ(Panel(), "");
  frame->runAnalysis();
  EXPECT_EQ(Panel(), "7 digits");
  Command("mnuNew").trigger();
  EXPECT_EQ(Panel(), "");
}

TEST_F(CheckPanelTest, SaysNothingWhereTheCheckItselfFails) {
  TheCheck.judge = [](AnalysisOutcome) -> CheckReport { throw std::runtime_error("no such luck"); };
  EnterThreeBarTruss();
  frame->runAnalysis();
  EXPECT_EQ(Panel(), "");
  EXPECT_EQ(LabelText("stsBar_Analysis"), "Analysis Done");
  EXPECT_GT(Ink(Qt::blue), 50);
}

} // namespace
} // namespace strutwright
