#include "FormFixture.h"

#include "AnalysisState.h"
#include "modModelStore.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSplitter>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class CellEditingFormTest : public FormTest {
 protected:
  QTableView& joints = View("GrJoints");
  QLineEdit& box = Find<QLineEdit>("grTxtBox");
};

TEST_F(CellEditingFormTest, TakesATypedNumberAndMovesDownOnEnter) {
  ClickCell(joints, 2, 1);
  Type("5");
  EXPECT_TRUE(box.isVisible());
  EXPECT_EQ(box.property("tag"), "GrJoints");
  Press(Qt::Key_Return);
  EXPECT_FALSE(box.isVisible());
  EXPECT_EQ(GrJoints.Text(2, 1), "5");
  EXPECT_EQ(GrJoints.CurrentRow(), 3);
  EXPECT_EQ(GrJoints.CurrentColumn(), 1);
  EXPECT_TRUE(joints.hasFocus());
}

TEST_F(CellEditingFormTest, LiesExactlyOverItsCell) {
  ClickCell(joints, 2, 3);
  Type("5");
  const QRect cell = joints.visualRect(joints.currentIndex());
  EXPECT_EQ(QRect(box.mapTo(joints.viewport(), QPoint(0, 0)), box.size()), cell);
}

TEST_F(CellEditingFormTest, OpensWithTheTypedCharacterAlone) {
  GrJoints.SetText(1, 1, "12");
  ClickCell(joints, 1, 1);
  Type("7");
  EXPECT_EQ(box.text(), "7");
  EXPECT_EQ(box.cursorPosition(), 1);
}

TEST_F(CellEditingFormTest, OpensWithTheCellsTextOnABlankOrControlKeyOrDoubleClick) {
  GrJoints.SetText(1, 1, "12");
  ClickCell(joints, 1, 1);
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Backspace, Qt::Key_F2}) {
    Press(key);
    EXPECT_TRUE(box.isVisible()) << key;
    EXPECT_EQ(box.text(), "12") << key;
    EXPECT_EQ(box.cursorPosition(), 2) << key;
    Press(Qt::Key_Escape);
  }
  QTest::mouseDClick(joints.viewport(), Qt::LeftButton, {}, joints.visualRect(joints.currentIndex()).center());
  EXPECT_TRUE(box.isVisible());
  EXPECT_EQ(box.text(), "12");
}

TEST_F(CellEditingFormTest, LeavesShortcutsAlone) {
  ClickCell(joints, 1, 1);
  Press(Qt::Key_K, Qt::ControlModifier);
  Press(Qt::Key_Q, Qt::AltModifier);
  EXPECT_FALSE(box.isVisible());
}

TEST_F(CellEditingFormTest, GoesOnAfterKeysThatMeanNothingToIt) {
  ClickCell(joints, 2, 2);
  Type("9");
  for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_PageDown, Qt::Key_F9}) {
    Press(key);
    Press(key, Qt::AltModifier);
    EXPECT_TRUE(box.isVisible()) << key;
  }
  EXPECT_EQ(box.text(), "9");
  EXPECT_EQ(GrJoints.CurrentRow(), 2);
}

TEST_F(CellEditingFormTest, LeavesTheCellAsItWasOnEscape) {
  GrJoints.SetText(2, 2, "3");
  ClickCell(joints, 2, 2);
  Type("9");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(box.isVisible());
  EXPECT_EQ(GrJoints.Text(2, 2), "3");
  EXPECT_TRUE(joints.hasFocus());
}

TEST_F(CellEditingFormTest, AddsANumberedRowBelowTheLast) {
  const int last = GrJoints.RowCount() - 1;
  ClickCell(joints, last, 1);
  Type("1");
  Press(Qt::Key_Return);
  EXPECT_EQ(GrJoints.RowCount(), last + 2);
  EXPECT_EQ(GrJoints.Text(last + 1, 0), std::to_string(last + 1));
  EXPECT_EQ(GrJoints.CurrentRow(), last + 1);
  EXPECT_EQ(joints.model()->rowCount(), last + 1);
}

TEST_F(CellEditingFormTest, MovesWithTheArrowsAndStopsAtTheEdges) {
  const auto editAndPress = [&](Qt::Key key) {
    Type("1");
    Press(key);
    return std::pair(GrJoints.CurrentRow(), GrJoints.CurrentColumn());
  };
  ClickCell(joints, 1, 1);
  EXPECT_EQ(editAndPress(Qt::Key_Left), std::pair(1, 1));
  EXPECT_EQ(editAndPress(Qt::Key_Up), std::pair(1, 1));
  EXPECT_EQ(editAndPress(Qt::Key_Right), std::pair(1, 2));
  EXPECT_EQ(editAndPress(Qt::Key_Down), std::pair(2, 2));
  EXPECT_EQ(editAndPress(Qt::Key_Left), std::pair(2, 1));
  EXPECT_EQ(editAndPress(Qt::Key_Up), std::pair(1, 1));
  ClickCell(joints, 1, 5);
  EXPECT_EQ(editAndPress(Qt::Key_Right), std::pair(1, 5));
}

TEST_F(CellEditingFormTest, SaysWhereANonNumericEntryStandsAndSetsItToZero) {
  ClickCell(joints, 2, 3);
  Type("abc");
  Press(Qt::Key_Return);
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Exclamation, "Non-numeric entry found: abc.\nEntry (2,3) set to zero")));
  EXPECT_EQ(GrJoints.Text(2, 3), "0");
  EXPECT_EQ(GrJoints.CurrentRow(), 3);
}

TEST_F(CellEditingFormTest, TakesANumberTooLargeForAFloatAsNonNumeric) {
  ClickCell(joints, 1, 1);
  Type("1e39");
  Press(Qt::Key_Return);
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(GrJoints.Text(1, 1), "0");
}

TEST_F(CellEditingFormTest, CommitsIntoTheOldCellWhenAnotherIsClicked) {
  ClickCell(joints, 1, 1);
  Type("4");
  ClickCell(joints, 3, 2);
  EXPECT_EQ(GrJoints.Text(1, 1), "4");
  EXPECT_EQ(GrJoints.Text(3, 2), "");
  EXPECT_EQ(GrJoints.CurrentRow(), 3);
  EXPECT_EQ(GrJoints.CurrentColumn(), 2);
}

TEST_F(CellEditingFormTest, CommitsIntoItsGridBeforeAnotherGridIsChosen) {
  ClickCell(joints, 1, 1);
  Type("4");
  Find<QRadioButton>("viewOpt_1").click();
  EXPECT_EQ(GrJoints.Text(1, 1), "4");
  EXPECT_EQ(GrMembers.Text(1, 1), "");
  EXPECT_FALSE(box.isVisible());
}

TEST_F(CellEditingFormTest, CommitsBeforeACommandOfAMenu) {
  ClickCell(joints, 1, 1);
  Type("4");
  Command("mnuRefresh").trigger();
  EXPECT_EQ(GrJoints.Text(1, 1), "4");
}

TEST_F(CellEditingFormTest, EditsTheMembersGridUnderItsName) {
  Find<QRadioButton>("viewOpt_1").click();
  ClickCell(View("GrMembers"), 1, 3);
  Type("210");
  EXPECT_EQ(box.property("tag"), "GrMembers");
  Press(Qt::Key_Return);
  EXPECT_EQ(GrMembers.Text(1, 3), "210");
}

TEST_F(CellEditingFormTest, LeavesTheResultsGridsReadOnly) {
  Find<QRadioButton>("viewOpt_2").click();
  ClickCell(View("jResGr"), 1, 1);
  Type("5");
  EXPECT_FALSE(box.isVisible());
}

TEST_F(CellEditingFormTest, AddsTheFirstRowWhereThereIsNone) {
  GridCapacity = 0;
  frame->initGrids();
  ASSERT_EQ(GrJoints.RowCount(), 1);
  joints.setFocus();
  Type("3");
  Press(Qt::Key_Return);
  EXPECT_EQ(GrJoints.Text(1, 1), "3");
  EXPECT_EQ(GrJoints.Text(1, 0), "1");
}

TEST_F(CellEditingFormTest, EndsTheAnalysisWhenTheTextChangesAndNotOtherwise) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  ClickCell(joints, 3, 4);
  Press(Qt::Key_Return);
  Press(Qt::Key_Return);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  ClickCell(joints, 3, 4);
  Type("-20");
  Press(Qt::Key_Return);
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
  EXPECT_EQ(NodeTable(3, NodeForceY), -20.0F);
}

TEST_F(CellEditingFormTest, SaysInTheStatusBarWhatCanNotBeDrawnYet) {
  Find<QRadioButton>("viewOpt_1").click();
  ClickCell(View("GrMembers"), 1, 1);
  Type("7");
  Press(Qt::Key_Return);
  EXPECT_THAT(LabelText("stsBar_Hint"), HasSubstr("Drawing error: check the input data"));
}

TEST_F(CellEditingFormTest, SaysInTheStatusBarWhichRowsAGapLeavesUnread) {
  EnterThreeBarTruss();
  ClickCell(joints, 2, 1);
  Press(Qt::Key_Delete);
  const std::string gap = "Row 2 has no x: 2 nodes are read, row 3 is not.";
  EXPECT_EQ(TakeMessages().size(), 1U) << "members name node 3, which can't be drawn";
  EXPECT_EQ(LabelText("stsBar_Hint"), gap);
  ClickCell(joints, 2, 2);
  Type("1");
  Press(Qt::Key_Return);
  EXPECT_EQ(LabelText("stsBar_Hint"), gap) << "not what the drawing makes of it";
  Command("mnuUndo").trigger();
  TakeMessages();
  Command("mnuUndo").trigger();
  EXPECT_EQ(LabelText("stsBar_Hint"), "");
}

TEST_F(CellEditingFormTest, SaysThatAHalfTypedMemberIsDrawnToTheOrigin) {
  EnterThreeBarTruss();
  Find<QRadioButton>("viewOpt_1").click();
  ClickCell(View("GrMembers"), 4, 1);
  Type("3");
  Press(Qt::Key_Right);
  EXPECT_EQ(LabelText("stsBar_Hint"), "Member 4 has no Node j: it is drawn to the origin.");
  Type("2");
  Press(Qt::Key_Return);
  EXPECT_EQ(LabelText("stsBar_Hint"), "");
}

TEST_F(CellEditingFormTest, ShowsTheGridsHeadingsAndRowNumbers) {
  EXPECT_EQ(joints.model()->headerData(0, Qt::Horizontal), "x(m)");
  EXPECT_EQ(joints.model()->headerData(19, Qt::Vertical), "20");
  EXPECT_EQ(joints.model()->columnCount(), 5);
}

TEST_F(CellEditingFormTest, FollowsItsCellWhenTheFrameIsResized) {
  ClickCell(joints, 2, 3);
  Type("5");
  const QRect before = box.geometry();
  for (const QSize& size : {QSize(1500, 900), QSize(1100, 700)}) {
    frame->resize(size);
    QTest::qWait(1);
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(box.geometry(), joints.visualRect(joints.model()->index(1, 2)));
    EXPECT_NE(box.geometry(), before);
  }
  Press(Qt::Key_Return);
  EXPECT_EQ(GrJoints.Text(2, 3), "5");
}

TEST_F(CellEditingFormTest, StaysInSightWhenTheBoardGetsLower) {
  frame->resize(1180, 1000);
  auto& splitter = Find<QSplitter>("BoardSplitter");
  splitter.setSizes({300, 700});
  QTest::qWait(1);
  ClickCell(joints, 19, 1);
  Type("5");
  splitter.setSizes({800, 200});
  QTest::qWait(1);
  EXPECT_TRUE(joints.viewport()->rect().contains(box.geometry()));
  EXPECT_EQ(box.geometry(), joints.visualRect(joints.model()->index(18, 0)));
}

TEST_F(CellEditingFormTest, FollowsItsCellWhenTheGridIsScrolled) {
  ClickCell(joints, 2, 1);
  Type("1");
  const int before = box.y();
  joints.verticalScrollBar()->setValue(1);
  EXPECT_LT(box.y(), before);
  Press(Qt::Key_Return);
  EXPECT_EQ(GrJoints.Text(2, 1), "1");
}

} // namespace
} // namespace strutwright
