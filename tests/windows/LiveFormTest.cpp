#include "FormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "EquationsState.h"
#include "ModelBuilder.h"
#include "ModelEvents.h"
#include "WorkbenchState.h"
#include "modModelStore.h"
#include "modRunAnalysis.h"

#include <filesystem>
#include <random>

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class LiveFormTest : public FormTest {
 protected:
  LiveFormTest() {
    TheLive.mostTime = TheLive.checkTime = 1e9; // however slow the machine is
  }

  void GoLive() {
    QTest::keyClick(frame.get(), Qt::Key_L, Qt::ControlModifier);
    Command("mnuRefresh").trigger();
  }

  void TypeCell(const QString& grid, int row, int column, const QString& text) {
    ClickCell(View(grid), row, column);
    Type(text);
    Press(Qt::Key_Return);
  }

  bool Ticked(const QString& box) { return Find<QCheckBox>(box).isChecked(); }
};

/// What an analysis leaves.
struct Results {
  std::int16_t done = FlagFalse;
  std::vector<float> displacements;
  std::vector<float> reactions;
  FieldTable members{10};
  std::vector<std::string> listed;

  bool operator==(const Results&) const = default;

  static Results Now() {
    Results now{AnalysisDone, {}, {}, FieldTable{10}, {}};
    if (AnalysisDone == FlagFalse) return now;
    now.displacements = Displacements;
    now.reactions = Reactions;
    now.members = MemberTable;
    for (const Grid* grid : {&jResGr, &mResGr}) {
      for (int row = 0; row < grid->RowCount(); ++row) {
        for (int column = 0; column < grid->ColumnCount(); ++column) now.listed.push_back(grid->Text(row, column));
      }
    }
    return now;
  }
};

TEST_F(LiveFormTest, IsOffAtFirst) {
  EXPECT_FALSE(Command("mnuLive").isChecked());
  EXPECT_EQ(LabelText("stsBar_Live"), "");
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  EXPECT_EQ(AnalysisDone, FlagFalse);
}

TEST_F(LiveFormTest, AnalysesAtOnceAndAfterAnEdit) {
  EnterThreeBarTruss();
  GoLive();
  EXPECT_TRUE(Command("mnuLive").isChecked());
  EXPECT_EQ(LabelText("stsBar_Live"), "Live");
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(mResGr.Text(3, 1), "5.0");
  TypeCell("GrJoints", 3, 4, "-20");
  EXPECT_EQ(LabelText("stsBar_Analysis"), "Analysis Done");
  EXPECT_EQ(mResGr.Text(3, 1), "10.0");
  EXPECT_THAT(LabelText("stsBar_Check"), HasSubstr("digits"));
}

TEST_F(LiveFormTest, WritesNoScratchCopy) {
  EnterThreeBarTruss();
  GoLive();
  TypeCell("GrJoints", 3, 4, "-20");
  EXPECT_FALSE(std::filesystem::exists(folder.Path("temp_truss.stw")));
  QTest::keyClick(frame.get(), Qt::Key_F5);
  EXPECT_TRUE(std::filesystem::exists(folder.Path("temp_truss.stw")));
}

TEST_F(LiveFormTest, TicksTheResultsOnlyWhereNoneIsTicked) {
  GoLive();
  EXPECT_TRUE(Ticked("DSDchk") && Ticked("ReactionsChk") && Ticked("MbrForcesChk"));
}

TEST_F(LiveFormTest, LeavesTheBoxesAsTheyAreTicked) {
  EnterThreeBarTruss();
  GoLive();
  Find<QCheckBox>("ReactionsChk").click();
  TypeCell("GrJoints", 3, 4, "-20");
  EXPECT_FALSE(Ticked("ReactionsChk"));
  EXPECT_TRUE(Ticked("DSDchk"));
  EXPECT_FALSE(ShowReactions);
  EXPECT_TRUE(ShowDeflectedShape);
}

TEST_F(LiveFormTest, EndsTheAnalysisAsEverOnceItIsOff) {
  EnterThreeBarTruss();
  GoLive();
  QTest::keyClick(frame.get(), Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(LabelText("stsBar_Live"), "");
  TypeCell("GrJoints", 3, 4, "-20");
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_FALSE(Ticked("DSDchk") || Ticked("ReactionsChk") || Ticked("MbrForcesChk"));
}

TEST_F(LiveFormTest, DrawsAndNamesTheMotionOfAMechanism) {
  EnterThreeBarTruss();
  GoLive();
  TypeCell("GrJoints", 1, 5, "1"); // both supports roll now
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_THAT(TakeMessages(), IsEmpty());
  EXPECT_EQ(TheCheck.motion, 1);
  EXPECT_THAT(LabelText("stsBar_Check"), StartsWith("Mechanism"));
  EXPECT_EQ(LabelText("stsBar_Hint"), TheCheck.report.stability.mechanisms.at(0).sentence);
  EXPECT_TRUE(Ticked("DSDchk"));
  EXPECT_FALSE(ShowDeflectedShape);
  TypeCell("GrJoints", 1, 5, "3");
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(TheCheck.motion, 0);
  EXPECT_EQ(LabelText("stsBar_Hint"), "");
  EXPECT_TRUE(ShowDeflectedShape);
}

TEST_F(LiveFormTest, ShowsTheMotionAfterTheCheckWindowIsClosed) {
  EnterThreeBarTruss();
  GoLive();
  TypeCell("GrJoints", 1, 5, "1");
  Command("mnuCheck").trigger();
  Find<QDialog>("frmCheck").close();
  EXPECT_EQ(TheCheck.motion, 1);
  QTest::keyClick(frame.get(), Qt::Key_L, Qt::ControlModifier); // off
  Command("mnuCheck").trigger();
  Find<QDialog>("frmCheck").close();
  EXPECT_EQ(TheCheck.motion, 0);
}

TEST_F(LiveFormTest, TakesATickOfAMechanismForTheResultsToCome) {
  EnterThreeBarTruss();
  GoLive();
  TypeCell("GrJoints", 1, 5, "1");
  Find<QCheckBox>("ReactionsChk").click();
  EXPECT_THAT(TakeMessages(), IsEmpty());
  TypeCell("GrJoints", 1, 5, "3");
  EXPECT_FALSE(ShowReactions);
}

TEST_F(LiveFormTest, FollowsUndoAndRedo) {
  EnterThreeBarTruss();
  GoLive();
  TypeCell("GrJoints", 3, 4, "-20");
  Command("mnuUndo").trigger();
  EXPECT_EQ(mResGr.Text(3, 1), "5.0");
  Command("mnuRedo").trigger();
  EXPECT_EQ(mResGr.Text(3, 1), "10.0");
}

TEST_F(LiveFormTest, TakesAListOfAreasIn) {
  EnterThreeBarTruss();
  GoLive();
  const std::string before = jResGr.Text(3, 2);
  Find<QLineEdit>("eTxt").setText("200");
  Find<QLineEdit>("aTxt").setText("500");
  Find<QLineEdit>("memTxt").setText("1-3");
  Find<QPushButton>("EABtn").click();
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_NE(jResGr.Text(3, 2), before);
}

TEST_F(LiveFormTest, KeepsTheStageOfTheEquations) {
  EnterThreeBarTruss();
  GoLive();
  for (const char* button : {"btnShowForces", "btnAddMember", "btnAddMember", "btnRestrict"})
    Find<QPushButton>(button).click();
  const float before = TheEquations.page.viewStiffness->Values()(6, 6);
  Find<QRadioButton>("viewOpt_1").click();
  TypeCell("GrMembers", 1, 4, "2000");
  const EquationPage& page = TheEquations.page;
  EXPECT_EQ(page.addMemberCaption, "Add Member 3");
  EXPECT_EQ(page.viewStiffness->Shares().size(), 2U);
  EXPECT_NEAR(page.viewStiffness->Values()(6, 6), 1.5F * before, 1e-3F * before);
  EXPECT_EQ(page.viewStiffness->Values()(1, 1), 1); // restrained
  Find<QRadioButton>("viewOpt_0").click();
  TypeCell("GrJoints", 3, 4, "-20");
  EXPECT_EQ(TheEquations.page.loads->at(6), -20);
}

TEST_F(LiveFormTest, SolvesTheEquationsAgainWhereTheyWereSolved) {
  EnterThreeBarTruss();
  GoLive();
  for (const char* button : {"btnShowForces", "btnShowGlobalK", "btnRestrict", "btnSolve"})
    Find<QPushButton>(button).click();
  TypeCell("GrJoints", 3, 4, "-20");
  EXPECT_EQ(*TheEquations.page.displacements, Displacements);
  Find<QPushButton>("btnStepBack").click();
  EXPECT_EQ(TheEquations.page.loads->at(6), -20);
}

TEST_F(LiveFormTest, PausesWhereAnAnalysisTakesTooLong) {
  EnterThreeBarTruss();
  TheLive.mostTime = -1;
  GoLive();
  EXPECT_EQ(LabelText("stsBar_Live"), "Live paused");
  EXPECT_THAT(LabelText("stsBar_Hint"), HasSubstr("Tools > Renumber Nodes Along the Span"));
  EXPECT_EQ(AnalysisDone, FlagTrue);
  TypeCell("GrJoints", 3, 4, "-20");
  EXPECT_EQ(AnalysisDone, FlagFalse);
  TheLive.mostTime = 1e9;
  Command("mnuRenumber").trigger();
  EXPECT_EQ(LabelText("stsBar_Live"), "Live");
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(LiveFormTest, ChecksAfterAPauseWhereTheCheckTakesLong) {
  EnterThreeBarTruss();
  TheLive.checkTime = -1;
  GoLive();
  TypeCell("GrJoints", 3, 4, "-20");
  EXPECT_EQ(LabelText("stsBar_Check"), "");
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_TRUE(QTest::qWaitFor([this] { return LabelText("stsBar_Check") != ""; }));
  EXPECT_THAT(LabelText("stsBar_Check"), HasSubstr("digits"));
}

TEST_F(LiveFormTest, IsRemembered) {
  GoLive();
  StartNextRun();
  frame->RestorePlace();
  EXPECT_TRUE(Command("mnuLive").isChecked());
  EXPECT_EQ(LabelText("stsBar_Live"), "Live");
  Command("mnuLive").trigger();
  StartNextRun();
  frame->RestorePlace();
  EXPECT_FALSE(Command("mnuLive").isChecked());
}

/// A user who edits at random.
class RandomEdits : public LiveFormTest {
 protected:
  int Below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

  void EditSomething() {
    static const std::array<QString, 8> numbers{"0", "1", "2", "3", "-10", "200", "4.5", "1000"};
    if (AnalysisDone == FlagFalse && Below(2) == 0) return Command("mnuUndo").trigger();
    switch (Below(9)) {
    case 0: return Command("mnuUndo").trigger();
    case 1: return Command("mnuRedo").trigger();
    case 2: return frame->Edit("Draw Node", [&] { frame->DrawNode(static_cast<float>(Below(9)), 1.5F); });
    case 3: return frame->Edit("Draw Member", [&] { frame->DrawMember(1 + Below(3), 1 + Below(NodeCount)); });
    case 4: return FillAreas(numbers[static_cast<std::size_t>(1 + Below(7))]);
    default: break;
    }
    const bool joints = Below(2) == 0;
    Grid& grid = joints ? GrJoints : GrMembers;
    const int row = 1 + Below(joints ? 4 : 5);
    frame->Edit("Cell Edit", [&] {
      grid.SetText(row, 1 + Below(5), numbers[static_cast<std::size_t>(Below(8))].toStdString());
      EndAnalysis();
    });
  }

  void FillAreas(const QString& area) {
    Find<QLineEdit>("eTxt").setText("200");
    Find<QLineEdit>("aTxt").setText(area);
    Find<QLineEdit>("memTxt").setText("1-3");
    Find<QPushButton>("EABtn").click();
  }

  std::mt19937 random{20261122};
};

TEST_F(RandomEdits, LeaveWhatAFreshAnalysisGives) {
  EnterThreeBarTruss();
  GoLive();
  int analysed = 0;
  for (int edit = 1; edit <= 1000; ++edit) {
    EditSomething();
    const Results live = Results::Now();
    TheLive.on = false;
    strutwright::runAnalysis(ScratchCopy::None);
    messages.shown.clear();
    const Results fresh = Results::Now();
    TheLive.on = true;
    ASSERT_TRUE(live == fresh) << "edit " << edit;
    analysed += live.done != FlagFalse ? 1 : 0;
  }
  EXPECT_GT(analysed, 100);
}

} // namespace
} // namespace strutwright
