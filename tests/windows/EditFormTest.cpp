#include "FormFixture.h"

#include "AnalysisState.h"
#include "FileState.h"
#include "ModelBuilder.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>

namespace strutwright {
namespace {

using testing::ElementsAre;

/// Generators, clipboard and undo through the window.
class EditFormTest : public FormTest {
 protected:
  void Push(const QString& button) { Find<QPushButton>(button).click(); }
  void Enter(const QString& box, const QString& text) { Find<QLineEdit>(box).setText(text); }
  QAction& GridCommandNamed(const QString& name) { return Find<QAction>(name); }
};

TEST_F(EditFormTest, GeneratesElevenNodesWithTheTextsOfAFreshProgram) {
  Push("nLineBtn");
  EXPECT_EQ(NodeCount, 11);
  EXPECT_EQ(GrJoints.Text(11, 1), "10");
}

TEST_F(EditFormTest, GivesListedNodesTheirLoad) {
  Push("nLineBtn");
  Enter("nodesTxt", "2-3");
  Push("nodeLoadBtn");
  EXPECT_EQ(GrJoints.Text(2, 4), "-10");
  EXPECT_EQ(GrJoints.Text(3, 4), "-10");
  EXPECT_EQ(GrJoints.Text(4, 4), "");
}

TEST_F(EditFormTest, GivesListedMembersEAndArea) {
  EnterThreeBarTruss();
  Enter("eTxt", "70");
  Enter("aTxt", "500");
  Enter("memTxt", "1,3");
  Push("EABtn");
  EXPECT_EQ(GrMembers.Text(1, 3), "70");
  EXPECT_EQ(GrMembers.Text(3, 4), "500");
  EXPECT_EQ(GrMembers.Text(2, 3), "200");
}

TEST_F(EditFormTest, ShowsTheFormatOfAListThatCanNotBeRead) {
  Enter("nodesTxt", "x");
  Push("nodeLoadBtn");
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "Text input error: the format is 1,2,4-7,59")));
}

TEST_F(EditFormTest, FiltersTheKeysOfNumericBoxes) {
  auto& e = Find<QLineEdit>("eTxt");
  e.clear();
  QTest::keyClicks(&e, "-2a0,0");
  EXPECT_EQ(e.text(), "200");
  auto& x = Find<QLineEdit>("xnlTxt");
  x.clear();
  QTest::keyClicks(&x, "5-b");
  EXPECT_EQ(x.text(), "5-");
  QTest::keyClick(&x, Qt::Key_Backspace);
  EXPECT_EQ(x.text(), "5");
  auto& list = Find<QLineEdit>("nodesTxt");
  list.clear();
  QTest::keyClicks(&list, "1-3, x");
  EXPECT_EQ(list.text(), "1-3, x");
}

TEST_F(EditFormTest, FiltersEveryBoxOfTheTable) {
  for (const char* name : {"eTxt", "aTxt", "nLineNoTxt"}) {
    auto& box = Find<QLineEdit>(name);
    box.clear();
    QTest::keyClicks(&box, "-1");
    EXPECT_EQ(box.text(), "1") << name;
  }
  for (const char* name : {"xnlTxt", "ynlTxt", "nLineX1Txt", "nLineY1Txt", "nLineX2Txt", "nLineY2Txt"}) {
    auto& box = Find<QLineEdit>(name);
    box.clear();
    QTest::keyClicks(&box, "-1z");
    EXPECT_EQ(box.text(), "-1") << name;
  }
}

TEST_F(EditFormTest, OpensTheGridMenuWhenTheRightButtonIsReleased) {
  auto& menu = Find<QMenu>("mnuGrid");
  QTableView& view = View("GrJoints");
  QTest::mousePress(view.viewport(), Qt::RightButton, {}, {20, 20});
  EXPECT_FALSE(menu.isVisible());
  QTest::mouseRelease(view.viewport(), Qt::RightButton, {}, {20, 20});
  EXPECT_TRUE(menu.isVisible());
  menu.close();
}

TEST_F(EditFormTest, EnablesTheCommandsThatTheVisibleGridAllows) {
  const auto enabled = [this] {
    std::string text;
    for (const char* name :
         {"mnuGrid_Copy", "mnuGrid_Cut", "mnuGrid_Paste", "mnuGrid_Delete", "mnuGrid_SelectAll", "mnuGrid_Compress"}) {
      text += GridCommandNamed(name).isEnabled() ? '1' : '0';
    }
    return text;
  };
  EXPECT_EQ(enabled(), "111111");
  Find<QRadioButton>("viewOpt_2").click();
  EXPECT_EQ(enabled(), "100010");
  Find<QRadioButton>("viewOpt_1").click();
  EXPECT_EQ(enabled(), "111111");
}

TEST_F(EditFormTest, PastesAtTheCurrentRowFromColumnOneOn) {
  ClickCell(View("GrJoints"), 5, 3);
  clipboard.text = "1\t2\t3\r\n4\t5\t6\r\n";
  QTest::keyClick(&View("GrJoints"), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(GrJoints.Text(5, 1), "1");
  EXPECT_EQ(GrJoints.Text(6, 3), "6");
}

TEST_F(EditFormTest, CopiesAndCutsTheSelection) {
  EnterThreeBarTruss();
  ClickCell(View("GrJoints"), 2, 1);
  QTest::keyClick(&View("GrJoints"), Qt::Key_Right, Qt::ShiftModifier);
  QTest::keyClick(&View("GrJoints"), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboard.text, "4\t0");
  QTest::keyClick(&View("GrJoints"), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(GrJoints.Text(2, 1), "");
  EXPECT_EQ(NodeCount, 2);
  TakeMessages(); // two members have lost a node and can't be drawn
}

TEST_F(EditFormTest, SelectsAllCells) {
  ClickCell(View("GrJoints"), 5, 3);
  GridCommandNamed("mnuGrid_SelectAll").trigger();
  EXPECT_EQ(GrJoints.Selection(), (GridBlock{1, 1, GrJoints.RowCount() - 1, 5}));
  EXPECT_EQ(View("GrJoints").selectionModel()->selectedIndexes().size(), 20 * 5);
}

TEST_F(EditFormTest, AsksBeforeItCompresses) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  messages.WillAnswer(true);
  GridCommandNamed("mnuGrid_Compress").trigger();
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Question, "This will remove any rows with all zero entries. Proceed?")));
  EXPECT_EQ(GrJoints.RowCount(), 4);
}

TEST_F(EditFormTest, UndoesAndRedoesACellEdit) {
  EXPECT_FALSE(Command("mnuUndo").isEnabled());
  ClickCell(View("GrJoints"), 1, 1);
  Type("5");
  Press(Qt::Key_Return);
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Cell Edit");
  QTest::keyClick(&View("GrJoints"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(GrJoints.Text(1, 1), "");
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(Command("mnuRedo").text(), "&Redo Cell Edit");
  Command("mnuRedo").trigger();
  EXPECT_EQ(GrJoints.Text(1, 1), "5");
  EXPECT_EQ(NodeCount, 1);
}

TEST_F(EditFormTest, NumbersTheNodesAlongTheSpanInOneStep) {
  EnterThreeBarTruss(); // 1 (0, 0), 2 (4, 0), 3 (2, 2)
  frame->runAnalysis();
  const float force = MemberTable(2, MemberFieldForce);
  auto& tools = Find<QMenu>("mnuTools");
  tools.popup(frame->mapToGlobal(QPoint(0, 0)));
  QTest::keyClick(&tools, Qt::Key_R);

  EXPECT_EQ(GrJoints.Text(2, NodeX), "2");
  EXPECT_EQ(AnalysisDone, FlagFalse);
  frame->runAnalysis();
  EXPECT_NEAR(MemberTable(2, MemberFieldForce), force, 1e-3);
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Renumber Nodes");
  Command("mnuUndo").trigger();
  EXPECT_EQ(GrJoints.Text(2, NodeX), "4");
}

TEST_F(EditFormTest, KeepsTheResultsWhereTheNodesAreNumberedAlongTheSpanAlready) {
  EnterThreeBarTruss();
  Command("mnuRenumber").trigger();
  frame->runAnalysis();
  const FieldTable before = MemberTable;

  Command("mnuRenumber").trigger();

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Information, "The nodes are numbered along the span already")));
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(MemberTable, before);
}

TEST_F(EditFormTest, EndsTheAnalysisWhenAStepIsUndone) {
  Push("nLineBtn");
  EnterThreeBarTruss();
  GrJoints.SetRowCount(4);
  frame->runAnalysis();
  ASSERT_EQ(AnalysisDone, FlagTrue);
  Command("mnuUndo").trigger();
  EXPECT_EQ(AnalysisDone, FlagFalse);
}

TEST_F(EditFormTest, BringsFileNameCaptionAndCapacityBackWithTheModel) {
  EnterThreeBarTruss();
  dialog.WillChoose(folder.Path("a.stw"));
  Command("mnuSaveAs").trigger();
  Command("mnuNew").trigger();
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo New");
  Command("mnuUndo").trigger();
  EXPECT_EQ(CurrentFileName, folder.Path("a.stw"));
  EXPECT_EQ(frame->windowTitle(), "a.stw");
  EXPECT_EQ(GridCapacity, 20);
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(EditFormTest, LeavesTheFileThatTheModelWasSavedToSince) {
  EnterThreeBarTruss();
  dialog.WillChoose(folder.Path("a.stw"));
  Command("mnuSaveAs").trigger();
  Push("nLineBtn");
  dialog.WillChoose(folder.Path("b.stw"));
  Command("mnuSaveAs").trigger();
  Command("mnuUndo").trigger();
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(CurrentFileName, folder.Path("b.stw"));
  EXPECT_EQ(frame->windowTitle(), "b.stw");
}

/// The model in a file: 4 nodes in a.stw, 5 in b.stw; both are closed again.
class OpenTwoFilesTest : public EditFormTest {
 protected:
  OpenTwoFilesTest() {
    for (const int nodes : {4, 5}) {
      SetModel({std::vector<NodeData>(static_cast<std::size_t>(nodes)), {}});
      PutFile(nodes == 4 ? a : b, WriteModel());
    }
    Open(a);
    Open(b);
  }

  void Open(const std::string& path) {
    dialog.WillChoose(path);
    Command("mnuOpen").trigger();
  }

  void EditACell() {
    ClickCell(View("GrJoints"), 1, 1);
    Type("7");
    Press(Qt::Key_Return);
  }

  std::string a = folder.Path("a.stw");
  std::string b = folder.Path("b.stw");
  std::string c = folder.Path("c.stw");
};

TEST_F(OpenTwoFilesTest, KeepTheNameThatTheModelWasSavedUnderAcrossAnUndoneOpen) {
  EditACell();
  dialog.WillChoose(c);
  Command("mnuSaveAs").trigger();

  for (const char* step : {"mnuUndo", "mnuUndo"}) Command(step).trigger();
  EXPECT_EQ(NodeCount, 4);
  EXPECT_EQ(CurrentFileName, a);
  EXPECT_EQ(frame->windowTitle(), "a.stw");

  for (const char* step : {"mnuRedo", "mnuRedo"}) Command(step).trigger();
  EXPECT_EQ(NodeCount, 5);
  EXPECT_EQ(CurrentFileName, c);
  EXPECT_EQ(frame->windowTitle(), "c.stw");
  const std::string bytes = FileBytes(b);
  Command("mnuSave").trigger();
  EXPECT_EQ(FileBytes(b), bytes);
}

TEST_F(OpenTwoFilesTest, AskForANameWhereAnotherModelWasSavedOverTheFile) {
  dialog.WillChoose(a);
  Command("mnuSaveAs").trigger();
  Command("mnuUndo").trigger();
  ASSERT_EQ(NodeCount, 4);
  EXPECT_EQ(CurrentFileName, "");

  dialog.WillChoose(c);
  Command("mnuSave").trigger();

  EXPECT_EQ(LoadModelFile(a).nodeCount, 5);
  EXPECT_EQ(LoadModelFile(c).nodeCount, 4);
}

TEST_F(OpenTwoFilesTest, BringTheirOwnCapacityBack) {
  GridCapacity = 33;
  Command("mnuUndo").trigger();
  EXPECT_EQ(GridCapacity, 20);
  Command("mnuRedo").trigger();
  EXPECT_EQ(GridCapacity, 33);
}

TEST_F(OpenTwoFilesTest, MakeNoStepOfOpeningWhatIsOpen) {
  Open(b);
  Command("mnuUndo").trigger();
  EXPECT_EQ(NodeCount, 4);
  EXPECT_EQ(CurrentFileName, a);
}

TEST_F(EditFormTest, UndoesANewThatOnlyGaveAFile) {
  Command("mnuNew").trigger();
  ASSERT_EQ(frame->windowTitle(), "newTruss.stw");
  Command("mnuNew").trigger();
  Command("mnuUndo").trigger();
  EXPECT_EQ(frame->windowTitle(), "Strutwright");
  EXPECT_EQ(CurrentFileName, "");
  EXPECT_EQ(GrJoints.RowCount(), 21);
}

TEST_F(EditFormTest, MakesNoStepOfAnOpenThatIsCancelled) {
  Push("nLineBtn");
  dialog.WillCancel();
  Command("mnuOpen").trigger();
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Node Line");
}

TEST_F(EditFormTest, UndoesByKeyWhileTheEquationsAreActive) {
  Push("nLineBtn");
  frame->ActivateEquations();
  View("GrJoints").setFocus();
  QTest::keyClick(&View("GrJoints"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(NodeCount, 0);
}

TEST_F(EditFormTest, DeletesNoCellWhileTheDrawingHasTheFocus) {
  EnterThreeBarTruss();
  ClickCell(View("GrJoints"), 2, 1);
  QWidget& drawing = Find<QWidget>("Disp");
  drawing.setFocus();
  QTest::keyClick(&drawing, Qt::Key_Delete);
  EXPECT_EQ(GrJoints.Text(2, 1), "4");
}

TEST_F(EditFormTest, KeepsTheSelectedBlockOnARightClickInside) {
  EnterThreeBarTruss();
  QTableView& view = View("GrJoints");
  ClickCell(view, 1, 1);
  for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down}) {
    QTest::keyClick(&view, key, Qt::ShiftModifier);
  }
  ASSERT_EQ(GrJoints.Selection(), (GridBlock{1, 1, 3, 3}));
  QTest::mouseClick(view.viewport(), Qt::RightButton, {}, view.visualRect(view.model()->index(1, 1)).center());
  Find<QMenu>("mnuGrid").close();
  EXPECT_EQ(GrJoints.Selection(), (GridBlock{1, 1, 3, 3}));
  EXPECT_EQ(GrJoints.CurrentRow(), 1);
}

TEST_F(EditFormTest, BeginsAWholeRowAtItsFirstCell) {
  QTableView& view = View("GrJoints");
  ClickCell(view, 1, 2);
  const QPoint header(5, view.verticalHeader()->sectionViewportPosition(3) + 12);
  QTest::mouseClick(view.verticalHeader()->viewport(), Qt::LeftButton, {}, header);
  EXPECT_EQ(GrJoints.CurrentRow(), 4);
  EXPECT_EQ(GrJoints.CurrentColumn(), 1);
  EXPECT_EQ(GrJoints.Selection(), (GridBlock{4, 1, 4, 5}));
}

TEST_F(EditFormTest, CommitsIntoTheEditedCellAfterAClickOnAHeader) {
  QTableView& view = View("GrJoints");
  ClickCell(view, 2, 1);
  Type("5");
  const QPoint header(5, view.verticalHeader()->sectionViewportPosition(5) + 12);
  QTest::mouseClick(view.verticalHeader()->viewport(), Qt::LeftButton, {}, header);
  Command("mnuRefresh").trigger();
  EXPECT_EQ(GrJoints.Text(2, 1), "5");
  EXPECT_EQ(GrJoints.Text(6, 1), "");
}

TEST_F(EditFormTest, KeepsTwoHundredStepsAndMore) {
  ClickCell(View("GrJoints"), 1, 1);
  for (int step = 1; step <= 220; ++step) {
    Type(QString::number(step % 10));
    Press(Qt::Key_Down);
  }
  for (int step = 1; step <= 220; ++step) Command("mnuUndo").trigger();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_FALSE(Command("mnuUndo").isEnabled());
}

TEST_F(EditFormTest, MakesOneStepOfOneCommandAndNoneOfOneThatChangesNothing) {
  Push("nLineBtn");
  Enter("nodesTxt", "1-3");
  Push("nodeLoadBtn");
  GridCommandNamed("mnuGrid_Copy").trigger();
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Node Load");
  Command("mnuUndo").trigger();
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Node Line");
  Command("mnuUndo").trigger();
  EXPECT_FALSE(Command("mnuUndo").isEnabled());
}

} // namespace
} // namespace strutwright
