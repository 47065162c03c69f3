#include "DisplayFormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "WorkbenchState.h"
#include "modModelStore.h"

#include <functional>

#include <QCheckBox>
#include <QDialog>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// The three-bar truss, under the mouse.
class EditToolsTest : public DisplayFormTest {
 protected:
  EditToolsTest() {
    TheLive.mostTime = 1e9; // however slow the machine is
    EnterThreeBarTruss();
    Command("mnuRefresh").trigger();
    Area().setFocus();
  }

  void Click(double x, double y, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(&Area(), Qt::LeftButton, keys, At(x, y));
  }

  void Take(double x, double y, Qt::KeyboardModifiers keys = {}) {
    QTest::mousePress(&Area(), Qt::LeftButton, keys, At(x, y));
  }

  void MoveTo(double x, double y, Qt::KeyboardModifiers keys = {}) {
    QMouseEvent move(QEvent::MouseMove, At(x, y), Area().mapToGlobal(At(x, y)), Qt::NoButton, Qt::LeftButton, keys);
    QCoreApplication::sendEvent(&Area(), &move);
    QCoreApplication::processEvents(); // what follows the mouse waits until there is no further event
  }

  void Drop(double x, double y) { QTest::mouseRelease(&Area(), Qt::LeftButton, {}, At(x, y)); }

  void DragFromTo(double x1, double y1, double x2, double y2, Qt::KeyboardModifiers keys = {}) {
    Take(x1, y1, keys);
    MoveTo(x2, y2, keys);
    Drop(x2, y2);
  }

  void PressInArea(Qt::Key key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(&Area(), key, keys); }

  std::string Node(int n) { return GrJoints.Text(n, 1) + " " + GrJoints.Text(n, 2); }
  std::string UndoText() { return Command("mnuUndo").text().toStdString(); }
  std::string Hint() { return LabelText("stsBar_Hint"); }

  /// Does something in the pop-up menu at a point.
  void RightClick(double x, double y, const std::function<void(QMenu&)>& work) {
    InPopUp(work);
    QTest::mouseClick(&Area(), Qt::RightButton, {}, At(x, y));
  }

  static QAction& Entry(QMenu& menu, const QString& name) {
    for (QAction* each : menu.actions()) {
      if (each->objectName() == name) return *each;
    }
    throw std::runtime_error("There is no entry " + name.toStdString());
  }

  /// Fills the fields of the next dialog and accepts it.
  void InDialog(const std::function<void(QDialog&)>& work) {
    QTimer::singleShot(0, frame.get(), [work] {
      auto* asked = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(asked, nullptr);
      work(*asked);
    });
  }

  static void FillIn(QDialog& asked, const QString& field, const QString& text) {
    auto* box = asked.findChild<QLineEdit*>(field);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
  }

  static void Accept(QDialog& asked) { QTest::mouseClick(asked.findChild<QPushButton*>("btnOK"), Qt::LeftButton); }
};

TEST_F(EditToolsTest, OffersWhatANodeCanBeMade) {
  RightClick(2, 2, [](QMenu& menu) {
    EXPECT_TRUE(Entry(menu, "mnuNodePin").isVisible());
    EXPECT_FALSE(Entry(menu, "mnuMemberEA").isVisible());
    EXPECT_TRUE(Entry(menu, "mnuDrawNodes").isVisible());
    Entry(menu, "mnuNodePin").trigger();
  });
  EXPECT_EQ(GrJoints.Text(3, 5), "3");
  EXPECT_EQ(UndoText(), "&Undo Support");
  Command("mnuUndo").trigger();
  EXPECT_EQ(GrJoints.Text(3, 5), "0");
}

/// The underlined letters of a menu that stand there more than once: such a key chooses nothing at its first press.
QStringList SharedKeysOf(const QMenu& menu) {
  QStringList keys;
  QStringList shared;
  for (const QAction* each : menu.actions()) {
    const QString key = QKeySequence::mnemonic(each->text()).toString();
    if (!each->isVisible() || each->isSeparator() || key.isEmpty()) continue;
    if (keys.contains(key)) shared << menu.objectName() + " " + key;
    keys << key;
  }
  return shared;
}

TEST_F(EditToolsTest, NoTwoEntriesOfAMenuShareTheirKey) {
  for (const QMenu* menu : frame->findChildren<QMenu*>()) {
    if (menu->objectName() == "mnuPopUp") continue; // nothing is offered there yet
    EXPECT_EQ(SharedKeysOf(*menu).join(", ").toStdString(), "");
  }
  const auto look = [](QMenu& menu) { EXPECT_EQ(SharedKeysOf(menu).join(", ").toStdString(), ""); };
  RightClick(2, 2, look); // a node
  RightClick(1, 1, look); // a member
  RightClick(5, 3, look);
}

TEST_F(EditToolsTest, OffersNothingMoreBesideTheTruss) {
  RightClick(5, 3, [](QMenu& menu) {
    EXPECT_FALSE(Entry(menu, "mnuNodePin").isVisible());
    EXPECT_FALSE(Entry(menu, "mnuMemberEA").isVisible());
  });
}

TEST_F(EditToolsTest, AsksForTheLoadOfANode) {
  RightClick(2, 2, [this](QMenu& menu) {
    InDialog([](QDialog& asked) {
      EXPECT_EQ(asked.windowTitle(), "Load at Node 3");
      FillIn(asked, "forceXTxt", "2.5");
      Accept(asked);
    });
    Entry(menu, "mnuNodeLoad").trigger();
  });
  EXPECT_EQ(GrJoints.Text(3, 3), "2.5");
  EXPECT_EQ(GrJoints.Text(3, 4), "-10");
}

TEST_F(EditToolsTest, RefusesWhatIsNoNumber) {
  RightClick(2, 2, [this](QMenu& menu) {
    InDialog([](QDialog& asked) {
      FillIn(asked, "forceXTxt", "much");
      Accept(asked);
      EXPECT_TRUE(asked.isVisible());
      asked.reject();
    });
    Entry(menu, "mnuNodeLoad").trigger();
  });
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Exclamation, "This is not a number: much\nType one, such as -12.5.")));
  EXPECT_EQ(GrJoints.Text(3, 3), "0");
}

TEST_F(EditToolsTest, AsksForEAndAAndPrestressOfAMember) {
  RightClick(1, 1, [this](QMenu& menu) {
    EXPECT_FALSE(Entry(menu, "mnuNodePin").isVisible());
    InDialog([](QDialog& asked) {
      FillIn(asked, "memberATxt", "750");
      Accept(asked);
    });
    Entry(menu, "mnuMemberEA").trigger();
    InDialog([](QDialog& asked) {
      FillIn(asked, "memberPSTxt", "12");
      Accept(asked);
    });
    Entry(menu, "mnuMemberPS").trigger();
  });
  EXPECT_EQ(GrMembers.Text(1, 4), "750");
  EXPECT_EQ(GrMembers.Text(1, 5), "12");
  EXPECT_EQ(UndoText(), "&Undo Prestress");
}

TEST_F(EditToolsTest, DeletesAMemberAfterItsQuestion) {
  messages.WillAnswer(true);
  RightClick(1, 1, [](QMenu& menu) { Entry(menu, "mnuMemberDelete").trigger(); });
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(MemberCount, 2);
}

TEST_F(EditToolsTest, GivesNodesSupportsByClicks) {
  Command("mnuSupportRollerY").trigger();
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Supports");
  Click(2, 2);
  EXPECT_EQ(GrJoints.Text(3, 5), "2");
  Click(5, 3);
  EXPECT_THAT(Hint(), StartsWith("There is no node here"));
  Command("mnuSupportFree").trigger();
  Click(2, 2);
  EXPECT_EQ(GrJoints.Text(3, 5), "0");
}

TEST_F(EditToolsTest, LoadsNodesByClicks) {
  Command("mnuLoadRight").trigger();
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Loads");
  Click(4, 0);
  EXPECT_EQ(GrJoints.Text(2, 3), "10");
  EXPECT_EQ(UndoText(), "&Undo Load");
  Command("mnuLoadNone").trigger();
  Click(2, 2);
  EXPECT_EQ(GrJoints.Text(3, 4), "0");
}

// The arrow of 10 kN is 1 m long and stands above its node; its end is at (2, 3).
TEST_F(EditToolsTest, DragsALoadAtItsArrowsEndInRoundSteps) {
  Command("mnuLoadDown").trigger();
  Take(2, 3);
  MoveTo(2, 3.507);
  EXPECT_EQ(GrJoints.Text(3, 4), "-15");
  EXPECT_EQ(Hint(), "Load at node 3 in y: -15 kN");
  MoveTo(2, 1);
  EXPECT_EQ(GrJoints.Text(3, 4), "0");
  Drop(2, 2.61);
  EXPECT_EQ(GrJoints.Text(3, 4), "-6");
  EXPECT_EQ(UndoText(), "&Undo Drag Load");
  Command("mnuUndo").trigger();
  EXPECT_EQ(GrJoints.Text(3, 4), "-10");
}

TEST_F(EditToolsTest, SelectsByClickAndWithCtrl) {
  Command("mnuSelectMove").trigger();
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Select and Move");
  Click(2, 2);
  EXPECT_THAT(TheDisplay.Selected.nodes, ElementsAre(3));
  Click(2, 0, Qt::ControlModifier);
  EXPECT_THAT(TheDisplay.Selected.members, ElementsAre(3));
  Click(2, 2, Qt::ControlModifier);
  EXPECT_THAT(TheDisplay.Selected.nodes, IsEmpty());
  Click(5, 3);
  EXPECT_TRUE(TheDisplay.Selected.IsEmpty());
}

TEST_F(EditToolsTest, TakesHoldWithinSixPixelsHoweverFarTheViewIsZoomedOut) {
  for (int times = 0; times < 6; ++times) Command("mnuZoomOut").trigger();
  Command("mnuSelectMove").trigger();
  QTest::mouseClick(&Area(), Qt::LeftButton, {}, At(0, 0) + QPoint(-4, 0));
  EXPECT_THAT(TheDisplay.Selected.nodes, ElementsAre(1));
}

TEST_F(EditToolsTest, SelectsWithARectangle) {
  Command("mnuSelectMove").trigger();
  DragFromTo(-0.5, -0.5, 4.5, 1);
  EXPECT_THAT(TheDisplay.Selected.nodes, ElementsAre(1, 2));
  EXPECT_THAT(TheDisplay.Selected.members, ElementsAre(3));
}

TEST_F(EditToolsTest, SelectsWithKeys) {
  Command("mnuSelectMove").trigger();
  PressInArea(Qt::Key_PageDown);
  EXPECT_THAT(TheDisplay.Selected.nodes, ElementsAre(1));
  PressInArea(Qt::Key_PageUp);
  EXPECT_THAT(TheDisplay.Selected.nodes, ElementsAre(3));
  PressInArea(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_THAT(TheDisplay.Selected.nodes, ElementsAre(1, 3));
  PressInArea(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(TheDisplay.Selected.members.size(), 3U);
  QTest::keyClick(frame.get(), Qt::Key_Escape);
  EXPECT_TRUE(TheDisplay.Selected.IsEmpty());
}

TEST_F(EditToolsTest, DragsANodeToTheNearestGridPoint) {
  Command("mnuSelectMove").trigger();
  DragFromTo(2, 2, 3.2, 2.9);
  EXPECT_EQ(Node(3), "3 3");
  EXPECT_EQ(UndoText(), "&Undo Move Node");
  Command("mnuUndo").trigger();
  EXPECT_EQ(Node(3), "2 2");
}

TEST_F(EditToolsTest, SnapsToNothingWithShift) {
  Command("mnuSelectMove").trigger();
  DragFromTo(2, 2, 3.2, 2.9, Qt::ShiftModifier);
  EXPECT_NEAR(NodeTable(3, NodeX), 3.2, 0.03);
  EXPECT_NEAR(NodeTable(3, NodeY), 2.9, 0.03);
}

TEST_F(EditToolsTest, MovesAllThatIsSelectedAsOneStep) {
  Command("mnuSelectMove").trigger();
  DragFromTo(-0.5, -0.5, 4.5, 1);
  DragFromTo(4, 0, 5, -1);
  EXPECT_EQ(Node(1), "1 -1");
  EXPECT_EQ(Node(2), "5 -1");
  EXPECT_EQ(Node(3), "2 2");
  EXPECT_EQ(UndoText(), "&Undo Move Nodes");
}

TEST_F(EditToolsTest, KeepsTheResultsOfATrussThatItPutsBack) {
  Command("mnuAnalyse").trigger();
  auto& forces = Find<QCheckBox>("MbrForcesChk");
  QTest::mouseClick(&forces, Qt::LeftButton); // unticked
  const float force = MemberTable(1, MemberFieldForce);
  Command("mnuSelectMove").trigger();
  Take(2, 2);
  MoveTo(3, 3);
  EXPECT_EQ(AnalysisDone, FlagFalse);

  QTest::keyClick(frame.get(), Qt::Key_Escape);

  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), force);
  EXPECT_FALSE(forces.isChecked());
  EXPECT_TRUE(Find<QCheckBox>("ReactionsChk").isChecked());
  EXPECT_TRUE(ShowReactions);
  EXPECT_EQ(Hint(), "");
}

TEST_F(EditToolsTest, KeepsTheResultsOfATrussThatIsDraggedBackToWhereItWas) {
  Command("mnuAnalyse").trigger();
  Command("mnuSelectMove").trigger();
  Take(2, 2);
  MoveTo(3, 3);
  MoveTo(2, 2);
  Drop(2, 2);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_TRUE(ShowDeflectedShape);
}

TEST_F(EditToolsTest, SelectsNothingOfAnotherModel) {
  Command("mnuSelectMove").trigger();
  Click(2, 2);
  EXPECT_FALSE(TheDisplay.Selected.IsEmpty());
  Command("mnuNew").trigger();
  EXPECT_TRUE(TheDisplay.Selected.IsEmpty());
}

TEST_F(EditToolsTest, PutsBackOnEscape) {
  Command("mnuSelectMove").trigger();
  Take(2, 2);
  MoveTo(3, 3);
  EXPECT_EQ(Node(3), "3 3");
  QTest::keyClick(frame.get(), Qt::Key_Escape);
  EXPECT_EQ(Node(3), "2 2");
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Select and Move");
  Drop(3, 3);
  EXPECT_EQ(Node(3), "2 2");
  EXPECT_EQ(UndoText(), "&Undo");
}

TEST_F(EditToolsTest, TakesTypedCoordinatesWhileDragging) {
  Command("mnuSelectMove").trigger();
  Take(2, 2);
  MoveTo(3, 3);
  QTest::keyClicks(&Area(), "2.75");
  EXPECT_EQ(Node(3), "2.75 3");
  QTest::keyClicks(&Area(), ",-1.25");
  EXPECT_EQ(Node(3), "2.75 -1.25");
  EXPECT_EQ(Hint(), "Node 3: x = 2.75 m, y = -1.25 m   [2.75,-1.25]");
  PressInArea(Qt::Key_Backspace);
  EXPECT_EQ(Node(3), "2.75 -1.2");
  PressInArea(Qt::Key_Return);
  Drop(0, 0);
  EXPECT_EQ(Node(3), "2.75 -1.2");
  EXPECT_EQ(UndoText(), "&Undo Move Node");
}

TEST_F(EditToolsTest, RefusesADropOnAnotherNode) {
  Command("mnuSelectMove").trigger();
  DragFromTo(2, 2, 4, 0);
  EXPECT_EQ(Node(3), "2 2");
  EXPECT_EQ(Hint(), "Node 3 would lie on node 2: drop it elsewhere");
  EXPECT_EQ(UndoText(), "&Undo");
}

TEST_F(EditToolsTest, MovesByAGridStepWithTheArrowKeys) {
  Command("mnuSelectMove").trigger();
  Click(2, 2);
  PressInArea(Qt::Key_Right);
  PressInArea(Qt::Key_Up);
  EXPECT_EQ(Node(3), "3 3");
  PressInArea(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Node(3), "2.9 3");
  PressInArea(Qt::Key_Down);
  EXPECT_EQ(Node(3), "2.9 2");
}

TEST_F(EditToolsTest, MovesTheViewWithTheArrowKeysWithoutASelection) {
  Command("mnuSelectMove").trigger();
  const float left = DisplaySurface->Window().left;
  PressInArea(Qt::Key_Right);
  EXPECT_GT(DisplaySurface->Window().left, left);
}

TEST_F(EditToolsTest, EndsADragWhereItLeavesTheWindow) {
  Command("mnuSelectMove").trigger();
  Take(2, 2);
  MoveTo(3, 3);
  MoveTo(300, 3);
  EXPECT_EQ(UndoText(), "&Undo Move Node");
  MoveTo(1, 1);
  Drop(1, 1);
  EXPECT_EQ(Node(3), "3 3");
}

TEST_F(EditToolsTest, LetsCommandsWaitForTheEndOfADrag) {
  Command("mnuSelectMove").trigger();
  Take(2, 2);
  MoveTo(3, 3);
  QTest::keyClick(frame.get(), Qt::Key_F5);
  EXPECT_EQ(AnalysisDone, FlagFalse);
  Drop(3, 3);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(Node(3), "3 3");
}

TEST_F(EditToolsTest, FollowsADragLive) {
  Command("mnuLive").trigger();
  Command("mnuSelectMove").trigger();
  const std::string before = mResGr.Text(3, 1);
  Take(2, 2);
  MoveTo(2, 4);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_NE(mResGr.Text(3, 1), before);
  QTest::keyClick(frame.get(), Qt::Key_Escape);
  EXPECT_EQ(mResGr.Text(3, 1), before);
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(EditToolsTest, CopiesByMouseWithCtrl) {
  Command("mnuSelectMove").trigger();
  PressInArea(Qt::Key_A, Qt::ControlModifier);
  Take(1, 0, Qt::ControlModifier);
  MoveTo(5, 0, Qt::ControlModifier);
  Drop(5, 0);
  EXPECT_EQ(NodeCount, 5); // node 1 has been copied onto node 2
  EXPECT_EQ(MemberCount, 6);
  EXPECT_EQ(UndoText(), "&Undo Copy");
}

TEST_F(EditToolsTest, RepeatsByNumbers) {
  Command("mnuSelectMove").trigger();
  PressInArea(Qt::Key_A, Qt::ControlModifier);
  InDialog([](QDialog& asked) {
    EXPECT_EQ(asked.findChild<QLineEdit*>("stepXTxt")->text(), "4"); // as wide as the truss
    FillIn(asked, "countTxt", "2");
    Accept(asked);
  });
  Command("mnuCopies").trigger();
  EXPECT_EQ(NodeCount, 7);
  EXPECT_EQ(MemberCount, 9);
  EXPECT_EQ(Node(7), "10 2");
  EXPECT_EQ(GrJoints.Text(7, 4), "-10");
  EXPECT_EQ(GrMembers.Text(9, 4), "1000");
  EXPECT_EQ(UndoText(), "&Undo Repeat");
}

TEST_F(EditToolsTest, MirrorsWithLoadsAndSupports) {
  GrJoints.SetText(3, 3, "2");
  Command("mnuRefresh").trigger();
  Command("mnuSelectMove").trigger();
  PressInArea(Qt::Key_A, Qt::ControlModifier);
  InDialog([](QDialog& asked) { Accept(asked); });
  Command("mnuMirrorX").trigger();
  EXPECT_EQ(NodeCount, 5); // node 2 is its own image
  EXPECT_EQ(Node(4), "8 0");
  EXPECT_EQ(GrJoints.Text(4, 5), "3");
  EXPECT_EQ(GrJoints.Text(5, 3), "-2");
  EXPECT_EQ(GrJoints.Text(5, 4), "-10");
  EXPECT_EQ(UndoText(), "&Undo Mirror");
}

TEST_F(EditToolsTest, SaysThatNothingIsSelected) {
  Command("mnuCopies").trigger();
  EXPECT_THAT(Hint(), StartsWith("Nothing is selected"));
}

TEST_F(EditToolsTest, OffersEAndAOfTheBoardAfterAMemberWithout) {
  auto& offer = Find<QPushButton>("stsBar_Rigidity");
  EXPECT_FALSE(offer.isVisible());
  Command("mnuDrawNodes").trigger();
  Click(4, 2);
  Command("mnuDrawMembers").trigger();
  Click(4, 0);
  Click(4, 2);
  EXPECT_EQ(GrMembers.Text(4, 4), "");
  ASSERT_TRUE(offer.isVisible());
  QTest::mouseClick(&offer, Qt::LeftButton);
  EXPECT_FALSE(offer.isVisible());
  EXPECT_EQ(GrMembers.Text(4, 3), "200");
  EXPECT_EQ(GrMembers.Text(4, 4), "1000");
  Click(2, 2);
  Click(4, 2);
  EXPECT_EQ(GrMembers.Text(5, 4), "1000");
  EXPECT_FALSE(offer.isVisible());
}

} // namespace
} // namespace strutwright
