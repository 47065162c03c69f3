#include "FormFixture.h"

#include "AnalysisState.h"
#include "EditingState.h"
#include "ModelBuilder.h"
#include "WorkbenchState.h"
#include "frmCheck.h"
#include "modCheck.h"
#include "modCheckText.h"
#include "modMechanismDrawing.h"
#include "modModelStore.h"
#include "modMotionView.h"

#include <functional>
#include <set>
#include <stdexcept>

#include <QGroupBox>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTextBrowser>
#include <QTimer>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class CheckFormTest : public FormTest {
 protected:
  void OpenCheck() {
    if (!IsOpen()) Activate(*frame);
    QTest::keyClick(IsOpen() ? static_cast<QWidget*>(&Window()) : frame.get(), Qt::Key_F6);
    Activate(Window());
  }

  /// Gives a window the keyboard, as a click into it does.
  static void Activate(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }));
  }

  /// Begins an entry in a cell of the joints grid, in place of what it holds.
  void TypeInJoints(int row, int column, const QString& text) {
    Activate(*frame);
    ClickCell(View("GrJoints"), row, column);
    Type(text);
  }
  frmCheck& Window() { return *static_cast<frmCheck*>(&Find<QDialog>("frmCheck")); }
  bool IsOpen() { return frame->findChild<QDialog*>("frmCheck") != nullptr && Window().isVisible(); }

  std::string Verdict() { return LabelText("verdictLbl"); }
  void Push(const QString& button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }

  std::vector<std::string> Lines(const QString& name) {
    std::vector<std::string> texts;
    auto& list = Find<QListWidget>(name);
    for (int row = 0; row < list.count(); ++row) texts.push_back(list.item(row)->text().toStdString());
    return texts;
  }

  void ClickLine(const QString& name, int row) {
    auto& list = Find<QListWidget>(name);
    list.scrollToItem(list.item(row));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
  }

  /// The row of the table that has this label; -1 where there is none.
  int RowOf(const QString& label) {
    auto& table = Find<QTableWidget>("checkTable");
    for (int row = 0; row < table.rowCount(); ++row) {
      if (table.item(row, 0)->text() == label) return row;
    }
    return -1;
  }

  void ClickRow(const QString& label) {
    auto& table = Find<QTableWidget>("checkTable");
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(RowOf(label), 1)).center());
  }

  std::string TableText(const QString& label, int column) {
    return Find<QTableWidget>("checkTable").item(RowOf(label), column)->text().toStdString();
  }

  int InkOf(const QColor& colour) {
    const QImage picture = Find<QWidget>("Disp").grab().toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
  }
  int HighlightPixels() { return InkOf(QColor(255, 140, 0)); }
  int VioletPixels() { return InkOf(QColor(Violet.red, Violet.green, Violet.blue)); }

  /// Three bars of which one is supported too little, in the grids and in view.
  void EnterMechanism() {
    SetModel({{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {4, 3, 10, 0, 0}, {0, 3, 0, 0, 0}}, {{1, 2}, {2, 3}, {3, 4}, {4, 1}}});
    frame->Redraw(true);
  }

  bool IsGridShown(int index) { return Find<QRadioButton>("viewOpt_" + QString::number(index)).isChecked(); }
};

TEST_F(CheckFormTest, OpensByF6AndByBothMenusWithoutStoppingAnything) {
  EnterThreeBarTruss();
  OpenCheck();
  EXPECT_TRUE(IsOpen());
  EXPECT_FALSE(Window().isModal());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  Window().close();
  Command("mnuCheck").trigger();
  EXPECT_TRUE(IsOpen());
  Window().close();
  Find<QWidget>("frmEquations").findChild<QAction*>("mnuCheck")->trigger();
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(frame->findChildren<QDialog*>("frmCheck").size(), 1);
}

TEST_F(CheckFormTest, OpensByAClickOnTheStatusPanelOnceThatSaysSomething) {
  QTest::mouseClick(&Find<QLabel>("stsBar_Check"), Qt::LeftButton);
  EXPECT_FALSE(IsOpen());
  EnterThreeBarTruss();
  frame->runAnalysis();
  QTest::mouseClick(&Find<QLabel>("stsBar_Check"), Qt::LeftButton);
  EXPECT_TRUE(IsOpen());
}

TEST_F(CheckFormTest, ClosesByEscapeAndByItsButton) {
  OpenCheck();
  ASSERT_EQ(QApplication::activeWindow(), &Window());
  QTest::keyClick(&Window(), Qt::Key_Escape);
  EXPECT_FALSE(IsOpen());
  OpenCheck();
  Push("btnClose");
  EXPECT_FALSE(IsOpen());
}

TEST_F(CheckFormTest, SaysInWordsThatThereIsNothingYet) {
  OpenCheck();
  EXPECT_EQ(Verdict(), "There is no truss to judge.");
  EXPECT_THAT(Lines("findingsList"), ElementsAre("Nothing odd about the model"));
  EXPECT_THAT(Lines("zeroBarsList"), ElementsAre("No zero bars"));
  EXPECT_EQ(LabelText("motionLbl"), "None: no node can move without stretching a member");
  EXPECT_FALSE(Find<QPushButton>("btnApplyCure").isVisible());
}

TEST_F(CheckFormTest, JudgesTheGridsBeforeAnAnalysis) {
  EnterThreeBarTruss();
  OpenCheck();
  EXPECT_EQ(Verdict(), "The truss is stable, but there are no results to judge.");
  EXPECT_EQ(TableText("Static indeterminacy", 1), "0");
  EXPECT_EQ(RowOf("Digits"), -1);
}

TEST_F(CheckFormTest, ShowsTheFiguresAfterAnAnalysis) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  OpenCheck();
  EXPECT_EQ(Verdict(), "The truss is stable and these results are right to 7 digits.");
  EXPECT_EQ(TableText("Digits", 1), "7");
  EXPECT_THAT(TableText("Largest residual of a node", 1), HasSubstr("kN"));
  EXPECT_EQ(TableText("Mechanisms", 1), "0");
}

TEST_F(CheckFormTest, FollowsAnalysesAndEditsWhileItIsOpen) {
  EnterThreeBarTruss();
  OpenCheck();
  QTest::keyClick(&Window(), Qt::Key_F5);
  EXPECT_EQ(Verdict(), "The truss is stable and these results are right to 7 digits.");
  TypeInJoints(1, 5, "1");
  Press(Qt::Key_Return);
  EXPECT_THAT(Verdict(), HasSubstr("The truss is a mechanism"));
  EXPECT_EQ(RowOf("Digits"), -1);
  Activate(Window());
  QTest::keyClick(&Window(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Verdict(), "The truss is stable, but there are no results to judge.");
}

TEST_F(CheckFormTest, FollowsAnAnalysisThatFails) {
  EnterMechanism();
  OpenCheck();
  frame->runAnalysis();
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(LabelText("stsBar_Check"), "Mechanism - see Check");
  EXPECT_THAT(Verdict(), HasSubstr("The truss is a mechanism"));
}

TEST_F(CheckFormTest, JudgesWhatWasPasted) {
  EnterThreeBarTruss();
  OpenCheck();
  GrJoints.SetText(1, 5, "0"); // as a paste, which changes the grid alone
  OpenCheck();
  EXPECT_THAT(Verdict(), HasSubstr("The truss is a mechanism"));
}

TEST_F(CheckFormTest, OpensTheReportThatHoldsTheCheck) {
  EnterThreeBarTruss();
  OpenCheck();
  frame->runAnalysis();
  Push("btnReport");
  EXPECT_TRUE(Find<QWidget>("frmReport").isVisible());
  EXPECT_THAT(Find<QTextBrowser>("reportTxt").toPlainText().toStdString(), HasSubstr(Verdict()));
}

TEST_F(CheckFormTest, HasNoReportWithoutResults) {
  OpenCheck();
  Push("btnReport");
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "No results report available yet")));
}

TEST_F(CheckFormTest, SaysWhyThereIsNoCheck) {
  TheCheck.judge = [](AnalysisOutcome) -> CheckReport { throw std::runtime_error("no such luck"); };
  EnterThreeBarTruss();
  OpenCheck();
  frame->runAnalysis();
  EXPECT_EQ(Verdict(), "The check could not be made: no such luck.");
  EXPECT_EQ(RowOf("Mechanisms"), -1);
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(CheckFormTest, ShowsTheWorstMemberInDisplayAndGrid) {
  SetModel(PrattTruss(20));
  frame->runAnalysis();
  OpenCheck();
  const int worst = TheCheck.report.accuracy->worstMember;
  ASSERT_NE(worst, 0);
  EXPECT_EQ(TableText("Largest difference of member forces", 2), "member " + std::to_string(worst));

  ClickRow("Largest difference of member forces");

  EXPECT_EQ(GrMembers.Selection(), (GridBlock{worst, 1, worst, 5}));
  EXPECT_EQ(mResGr.Selection(), (GridBlock{worst, 1, worst, 4}));
  EXPECT_TRUE(IsGridShown(1));
  EXPECT_GT(HighlightPixels(), 5);
}

TEST_F(CheckFormTest, ShowsTheWorstNodeInTheGridThatIsOpen) {
  SetModel(PrattTruss(20));
  frame->runAnalysis();
  OpenCheck();
  const int worst = TheCheck.report.accuracy->worstNode;
  Find<QRadioButton>("viewOpt_2").click();
  ClickRow("Largest difference of displacements");
  EXPECT_EQ(jResGr.CurrentRow(), worst);
  EXPECT_EQ(GrJoints.CurrentRow(), worst);
  EXPECT_TRUE(IsGridShown(2));
  EXPECT_GT(HighlightPixels(), 5);
}

TEST_F(CheckFormTest, ShowsNothingForAFigureWithoutAPlace) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  OpenCheck();
  ClickRow("Mechanisms");
  EXPECT_EQ(HighlightPixels(), 0);
}

TEST_F(CheckFormTest, ShowsWhatAFindingIsAbout) {
  ModelData model = Triangle();
  model.nodes.push_back({2, 0, 0, 0, 3});
  SetModel(model);
  frame->Redraw(true);
  OpenCheck();
  EXPECT_THAT(Lines("findingsList"),
              ElementsAre("Node 4 lies on member 1 but is not joined to it", "Node 4 has no member"));

  ClickLine("findingsList", 0);

  EXPECT_EQ(GrJoints.CurrentRow(), 4);
  EXPECT_EQ(GrMembers.CurrentRow(), 1);
  EXPECT_TRUE(IsGridShown(0));
  EXPECT_GT(HighlightPixels(), 20);
}

TEST_F(CheckFormTest, ShowsAZeroBarByMouseAndByKeys) {
  ModelData model = Triangle();
  model.nodes.push_back({2, 6, 0, 0, 0});
  model.members.push_back({1, 4});
  model.members.push_back({3, 4});
  SetModel(model);
  frame->runAnalysis();
  OpenCheck();
  ASSERT_EQ(TheCheck.report.zeroBars.size(), 3U);
  ClickLine("zeroBarsList", 1);
  EXPECT_EQ(GrMembers.CurrentRow(), 4);
  EXPECT_TRUE(IsGridShown(1));
  QTest::keyClick(&Find<QListWidget>("zeroBarsList"), Qt::Key_Down);
  EXPECT_EQ(GrMembers.CurrentRow(), 5);
  EXPECT_GT(HighlightPixels(), 20);
}

TEST_F(CheckFormTest, MarksOneThingAtATimeAndNothingOnceItCloses) {
  ModelData model = Triangle();
  model.nodes.push_back({2, 0, 0, 0, 3});
  SetModel(model);
  frame->Redraw(true);
  OpenCheck();
  ClickLine("findingsList", 0);
  ClickLine("findingsList", 1);
  const int alone = HighlightPixels();
  ClickLine("findingsList", 0);
  EXPECT_GT(HighlightPixels(), alone);
  Window().close();
  EXPECT_EQ(HighlightPixels(), 0);
}

TEST_F(CheckFormTest, SurvivesTheChoiceOfWhatAPendingEditTakesAway) {
  ModelData model = Triangle();
  model.nodes.push_back({2, 0, 0, 0, 3});
  SetModel(model);
  frame->Redraw(true);
  OpenCheck();
  TypeInJoints(4, 1, "9"); // moves node 4 off member 1
  ClickLine("findingsList", 1);
  EXPECT_EQ(NodeTable(4, NodeX), 9.0F);
  EXPECT_THAT(Lines("findingsList"), ElementsAre("Node 4 has no member"));
}

TEST_F(CheckFormTest, PassesOverPartsThatTheModelDoesNotHave) {
  EnterThreeBarTruss();
  OpenCheck();
  frame->ShowParts({0, 99}, {-1, 99});
  EXPECT_EQ(HighlightPixels(), 0);
}

TEST_F(CheckFormTest, CopiesItsReport) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  OpenCheck();
  Push("btnCopy");
  EXPECT_EQ(clipboard.text, CheckText(TheCheck.report));
  EXPECT_THAT(clipboard.text, HasSubstr("Static indeterminacy: 0\n"));
}

TEST_F(CheckFormTest, DrawsTheMechanismWhileItIsOpen) {
  EnterMechanism();
  EXPECT_EQ(VioletPixels(), 0);
  OpenCheck();
  EXPECT_EQ(LabelText("motionLbl"), "1 of 1: Nodes 3 and 4 can move to the right; no member or support resists this.");
  EXPECT_GT(VioletPixels(), 50);
  Window().close();
  EXPECT_EQ(VioletPixels(), 0);
}

TEST_F(CheckFormTest, SwingsTheMechanismUntilItIsStopped) {
  EnterMechanism();
  OpenCheck();
  auto& clock = Find<QTimer>("MotionTimer");
  EXPECT_TRUE(clock.isActive());
  const int before = TheCheck.motionStep;
  EXPECT_TRUE(QTest::qWaitFor([before] { return TheCheck.motionStep != before; }));
  Push("btnAnimateMotion");
  EXPECT_FALSE(clock.isActive());
  EXPECT_EQ(TheCheck.motionStep, WidestStep);
  Push("btnAnimateMotion");
  EXPECT_TRUE(clock.isActive());
}

TEST_F(CheckFormTest, RunsNoClockWithoutAMechanismOrOutOfSight) {
  EnterMechanism();
  OpenCheck();
  auto& clock = Find<QTimer>("MotionTimer");
  Window().hide();
  EXPECT_FALSE(clock.isActive());
  OpenCheck();
  EXPECT_TRUE(clock.isActive());
  frame->Edit("Add Member", [] { ApplyCure({1, 3, 0, ""}); });
  EXPECT_FALSE(clock.isActive());
  EXPECT_EQ(VioletPixels(), 0);
}

TEST_F(CheckFormTest, ShowsIndependentMotionsInTurn) {
  SetModel({{{0, 0, 0, 0, 3}, {0, 4, 1, -0.5F, 0}, {0, 7, 1, -1, 0}, {0, 10, 0, 0, 3}}, {{1, 2}, {2, 3}, {3, 4}}});
  OpenCheck();
  EXPECT_FALSE(Find<QPushButton>("btnPreviousMotion").isEnabled());
  EXPECT_THAT(Lines("curesList"), ElementsAre("Support node 2 in x (support code 2)"));
  Push("btnNextMotion");
  EXPECT_THAT(LabelText("motionLbl"), testing::StartsWith("2 of 2: Node 3"));
  EXPECT_THAT(Lines("curesList"), ElementsAre("Support node 3 in x (support code 2)"));
  EXPECT_FALSE(Find<QPushButton>("btnNextMotion").isEnabled());
  Push("btnPreviousMotion");
  EXPECT_EQ(TheCheck.motion, 1);
}

TEST_F(CheckFormTest, AddsACureAsOneStepThatCanBeUndone) {
  EnterMechanism();
  OpenCheck();
  EXPECT_FALSE(Find<QPushButton>("btnApplyCure").isEnabled());
  ClickLine("curesList", 0);
  EXPECT_GT(HighlightPixels(), 5);
  Push("btnApplyCure");
  EXPECT_EQ(MemberCount, 5);
  EXPECT_EQ(GrMembers.Text(5, 3), "200");
  EXPECT_EQ(Verdict(), "The truss is stable, but there are no results to judge.");
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Add Member");
  Command("mnuUndo").trigger();
  EXPECT_EQ(MemberCount, 4);
  EXPECT_GT(VioletPixels(), 50);
  Command("mnuRedo").trigger();
  EXPECT_EQ(MemberCount, 5);
}

TEST_F(CheckFormTest, AddsASupportByKeysAlone) {
  EnterMechanism();
  OpenCheck();
  auto& list = Find<QListWidget>("curesList");
  list.setFocus();
  for (int press = 0; press < 3; ++press) QTest::keyClick(&list, Qt::Key_Down);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(TheCheck.report.stability.mechanismCount, 0);
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Add Support");
}

TEST_F(CheckFormTest, LeavesACureThatAPendingEditHasOvertaken) {
  EnterMechanism();
  OpenCheck();
  ClickLine("curesList", 2);
  TypeInJoints(3, 5, "3");
  Push("btnApplyCure");
  EXPECT_EQ(NodeTable(3, NodeSupport), 3.0F);
  EXPECT_EQ(MemberCount, 4);
}

TEST_F(CheckFormTest, GivesEveryControlANameAToolTipAndAKeyOfItsOwn) {
  EnterMechanism();
  OpenCheck();
  std::multiset<QChar> keys;
  for (const QWidget* each : Window().findChildren<QWidget*>()) {
    const auto* button = qobject_cast<const QPushButton*>(each);
    const auto* label = qobject_cast<const QLabel*>(each);
    const auto* view = qobject_cast<const QAbstractItemView*>(each);
    if (button != nullptr || view != nullptr) {
      if (each->objectName().startsWith("qt_") || qobject_cast<const QListWidget*>(each->parent()) != nullptr) continue;
      if (each->inherits("QHeaderView") || each->inherits("QTableCornerButton")) continue;
      EXPECT_FALSE(each->objectName().isEmpty());
      EXPECT_FALSE(each->toolTip().isEmpty()) << each->objectName().toStdString();
    }
    const QString text = button != nullptr ? button->text() : (label != nullptr && label->buddy() ? label->text() : "");
    const auto mark = text.indexOf('&');
    if (mark >= 0) keys.insert(text[mark + 1].toLower());
  }
  EXPECT_EQ(keys.size(), 12U);
  EXPECT_EQ(std::set<QChar>(keys.begin(), keys.end()).size(), keys.size());
}

TEST_F(CheckFormTest, CutsNoTextOff) {
  EnterMechanism();
  OpenCheck();
  QCoreApplication::processEvents();
  for (const QLabel* label : Window().findChildren<QLabel*>()) {
    if (!label->isVisible()) continue;
    EXPECT_GE(label->height(), label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height())
        << label->text().toStdString();
  }
  for (const QPushButton* button : Window().findChildren<QPushButton*>()) {
    EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text().remove('&')));
  }
}

} // namespace
} // namespace strutwright
