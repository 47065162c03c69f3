// Pointing at nodes and members, walking to them by keys, and the link between grids and drawing.

#include "DisplayFormFixture.h"

#include "AnalysisState.h"
#include "DataGridView.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "ModelBuilder.h"
#include "modModelStore.h"

#include <vector>

#include <QAccessible>
#include <QCheckBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolTip>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// The three-bar truss, framed: nodes 1 (0, 0), 2 (4, 0), 3 (2, 2), members 1-3, 2-3, 1-2.
class PointingFormTest : public DisplayFormTest {
 protected:
  PointingFormTest() {
    EnterThreeBarTruss();
    Command("mnuRefresh").trigger();
    Command("mnuZoomExtents").trigger();
  }
  ~PointingFormTest() override { QToolTip::hideText(); }

  /// The mouse rests at a world point, until the desktop asks for a tip.
  void RestAt(double x, double y) {
    QTest::mouseMove(&Area(), At(x, y));
    QHelpEvent rest(QEvent::ToolTip, At(x, y), Area().mapToGlobal(At(x, y)));
    QCoreApplication::sendEvent(&Area(), &rest);
  }
  static std::string Tip() { return QToolTip::text().toStdString(); }

  void Click(double x, double y) { QTest::mouseClick(&Area(), Qt::LeftButton, {}, At(x, y)); }

  /// The selected block of a grid: first and last row and column, header cells counted.
  static std::vector<int> Selected(const Grid& grid) {
    const GridBlock block = grid.Selection();
    return {block.firstRow, block.lastRow, block.firstColumn, block.lastColumn};
  }

  /// Whether the drawing on screen is not the picture alone, near a world point.
  bool IsMarked(double x, double y) {
    const QImage screen = Area().grab().toImage();
    const QPoint at = At(x, y) + QPoint(0, 4); // beside the line, within the band
    return screen.pixelColor(at) != Area().Surface().Image().pixelColor(at);
  }

  void ClickRowHeader(const QString& grid, int row) {
    QHeaderView& header = *View(grid).verticalHeader();
    const QPoint place(header.width() / 2, header.sectionViewportPosition(row - 1) + header.sectionSize(row - 1) / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
  }

  /// Presses something that opens a dialog, closes it and returns its title and the number it is about.
  template <class Work>
  QString DialogOf(const Work& work) {
    QString seen;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&seen] {
      QWidget* inspector = QApplication::activeModalWidget();
      if (inspector == nullptr) return;
      const auto* grid = inspector->findChild<QTableView*>("grProperties");
      seen = inspector->windowTitle() + " " + grid->model()->index(0, 0).data().toString();
      inspector->close();
    });
    watch.start(1);
    work();
    return seen;
  }
};

TEST_F(PointingFormTest, ShowsATipWhereTheMouseRestsOnANode) {
  RestAt(2, 2);
  EXPECT_TRUE(QToolTip::isVisible());
  EXPECT_EQ(Tip(), "Node 3\nPlace: x 2 m, y 2 m\nLoad: x 0 kN, y -10 kN\nSupport: none");
}

TEST_F(PointingFormTest, ShowsResultsInTheTipInBothStyles) {
  frame->runAnalysis();
  RestAt(2, 0);
  EXPECT_THAT(Tip(), StartsWith("Member 3, nodes 1-2\nL: 4.0 m\n"));
  EXPECT_THAT(Tip(), HasSubstr("\nForce: 5.0 kN T\n"));
  QToolTip::hideText();
  Command("mnuClearDrawing").trigger();
  RestAt(2, 0);
  EXPECT_THAT(Tip(), HasSubstr("\nForce: 5.0 kN T\n"));
}

TEST_F(PointingFormTest, ShowsNoTipWhereNothingIs) {
  RestAt(1, 3);
  EXPECT_EQ(Tip(), "");
}

TEST_F(PointingFormTest, LetsTheTipGoOverToWhatTheMouseMovesTo) {
  RestAt(2, 2);
  QTest::mouseMove(&Area(), At(1, 1));
  EXPECT_THAT(Tip(), StartsWith("Member 1, nodes 1-3"));
}

TEST_F(PointingFormTest, ShowsNoTipWhileTheViewIsDragged) {
  Command("mnuPan").trigger();
  QTest::mousePress(&Area(), Qt::LeftButton, {}, At(2, 2));
  QHelpEvent rest(QEvent::ToolTip, At(2, 2), Area().mapToGlobal(At(2, 2)));
  QCoreApplication::sendEvent(&Area(), &rest);
  EXPECT_EQ(Tip(), "");
  QTest::mouseRelease(&Area(), Qt::LeftButton, {}, At(2, 2));
}

TEST_F(PointingFormTest, WalksThroughNodesAndMembersByKeys) {
  Area().setFocus();
  Press(Qt::Key_N);
  EXPECT_THAT(Tip(), StartsWith("Node 1\n"));
  Press(Qt::Key_N);
  EXPECT_THAT(Tip(), StartsWith("Node 2\n"));
  Press(Qt::Key_N, Qt::ShiftModifier);
  Press(Qt::Key_N, Qt::ShiftModifier);
  EXPECT_THAT(Tip(), StartsWith("Node 3\n"));
  Press(Qt::Key_M);
  EXPECT_THAT(Tip(), StartsWith("Member 1, nodes 1-3"));
  Press(Qt::Key_M, Qt::ShiftModifier);
  EXPECT_THAT(Tip(), StartsWith("Member 3, nodes 1-2"));
}

TEST_F(PointingFormTest, ReadsTheTipOfTheWalkToAssistiveTools) {
  Area().setFocus();
  Press(Qt::Key_N);
  const QString description = QAccessible::queryAccessibleInterface(&Area())->text(QAccessible::Description);
  EXPECT_EQ(description.toStdString(), "Node 1; Place: x 0 m, y 0 m; Load: none; Support: held in x and y");
}

TEST_F(PointingFormTest, MarksWhatTheWalkHasComeTo) {
  Area().setFocus();
  Press(Qt::Key_M);
  EXPECT_TRUE(IsMarked(0.5, 0.5));
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsMarked(0.5, 0.5));
  EXPECT_EQ(Area().accessibleDescription(), "");
}

TEST_F(PointingFormTest, EndsTheWalkWhereTheDisplayLosesTheKeyboard) {
  Area().setFocus();
  Press(Qt::Key_N);
  Press(Qt::Key_Tab);
  EXPECT_NE(&Focused(), &Area());
  EXPECT_EQ(Area().accessibleDescription(), "");
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(PointingFormTest, MovesTheViewToWhatTheWalkHasComeTo) {
  Area().setFocus();
  for (int press = 0; press < 15; ++press) Press(Qt::Key_Right);
  const float width = DisplaySurface->Window().width;
  Press(Qt::Key_N);
  EXPECT_NEAR(At(0, 0).x(), Area().width() / 2, 2);
  EXPECT_FLOAT_EQ(DisplaySurface->Window().width, width);
}

TEST_F(PointingFormTest, OpensTheInspectorOfWhatTheWalkHasComeTo) {
  Area().setFocus();
  Press(Qt::Key_N);
  Press(Qt::Key_N);
  EXPECT_EQ(DialogOf([this] { Press(Qt::Key_Return); }), "Node Details 2");
}

TEST_F(PointingFormTest, OpensTheInspectorOfAMemberByTheOtherEnterToo) {
  Area().setFocus();
  Press(Qt::Key_M);
  EXPECT_EQ(DialogOf([this] { Press(Qt::Key_Enter, Qt::KeypadModifier); }), "Member Details 1");
}

TEST_F(PointingFormTest, GoesOnWithTheWalkAfterADialog) {
  Area().setFocus();
  Press(Qt::Key_N);
  DialogOf([this] { Press(Qt::Key_Return); });
  frame->activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([this] { return Area().hasFocus(); }));
  Press(Qt::Key_N);
  EXPECT_THAT(Tip(), StartsWith("Node 2\n"));
}

TEST_F(PointingFormTest, OpensNothingBeforeAWalk) {
  Area().setFocus();
  EXPECT_EQ(DialogOf([this] { Press(Qt::Key_Return); }), "");
}

TEST_F(PointingFormTest, LeavesTheKeysOfTheWalkAloneWithCtrlOrAlt) {
  Area().setFocus();
  Press(Qt::Key_M, Qt::ControlModifier);
  Press(Qt::Key_N, Qt::AltModifier);
  EXPECT_EQ(Tip(), "");
  EXPECT_EQ(Area().accessibleDescription(), "");
}

TEST_F(PointingFormTest, ChoosesTheRowOfWhatIsClicked) {
  Click(2, 2);
  EXPECT_EQ(Selected(GrJoints), (std::vector<int>{3, 3, 1, 5}));
  EXPECT_TRUE(IsMarked(2, 2));
  EXPECT_EQ(&Focused(), &Area());
}

TEST_F(PointingFormTest, ChangesNoChoiceOfGridByAClick) {
  Click(2, 0); // member 3, while the joints are shown
  EXPECT_TRUE(Find<QRadioButton>("viewOpt_0").isChecked());
  EXPECT_EQ(Selected(GrMembers), (std::vector<int>{1, 1, 1, 1}));
  Find<QRadioButton>("viewOpt_1").setChecked(true);
  Click(2, 0);
  EXPECT_EQ(Selected(GrMembers), (std::vector<int>{3, 3, 1, 5}));
  EXPECT_EQ(Selected(GrJoints), (std::vector<int>{1, 1, 1, 1}));
}

TEST_F(PointingFormTest, ChoosesRowsOfTheResultsToo) {
  frame->runAnalysis();
  Find<QRadioButton>("viewOpt_3").setChecked(true);
  Click(2, 0);
  EXPECT_EQ(Selected(mResGr), (std::vector<int>{3, 3, 1, 4}));
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(PointingFormTest, ChangesNothingByAClickBesideTheTruss) {
  Click(2, 2);
  Click(1, 3);
  EXPECT_EQ(Selected(GrJoints), (std::vector<int>{3, 3, 1, 5}));
  EXPECT_TRUE(IsMarked(2, 2));
}

TEST_F(PointingFormTest, ChoosesNoRowInAMode) {
  Command("mnuPan").trigger();
  Click(2, 2);
  EXPECT_EQ(Selected(GrJoints), (std::vector<int>{1, 1, 1, 1}));
}

TEST_F(PointingFormTest, OpensTheInspectorByADoubleClick) {
  EXPECT_EQ(DialogOf([this] { QTest::mouseDClick(&Area(), Qt::LeftButton, {}, At(4, 0)); }), "Node Details 2");
  EXPECT_EQ(DialogOf([this] { QTest::mouseDClick(&Area(), Qt::LeftButton, {}, At(2, 0)); }), "Member Details 3");
  EXPECT_EQ(DialogOf([this] { QTest::mouseDClick(&Area(), Qt::LeftButton, {}, At(1, 3)); }), "");
}

TEST_F(PointingFormTest, TakesTwoQuickClicksInAModeForTwoClicks) {
  Command("mnuDrawNodes").trigger();
  QTest::mouseClick(&Area(), Qt::LeftButton, {}, At(1, 1));
  QTest::mouseDClick(&Area(), Qt::LeftButton, {}, At(1, 1));
  EXPECT_EQ(NodeCount, 5);
}

TEST_F(PointingFormTest, MarksRowsThatAreChosenByTheirHeader) {
  EXPECT_FALSE(IsMarked(4, 0));
  ClickRowHeader("GrJoints", 2);
  EXPECT_TRUE(IsMarked(4, 0));
  EXPECT_FALSE(IsMarked(2, 2));
}

TEST_F(PointingFormTest, MarksTheRowsOfARange) {
  ClickCell(View("GrJoints"), 2, 1);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_TRUE(IsMarked(4, 0));
  EXPECT_TRUE(IsMarked(2, 2));
  EXPECT_FALSE(IsMarked(0, 0));
}

TEST_F(PointingFormTest, MarksARowByAClickButNotTheCurrentCellByItself) {
  ClickCell(View("GrJoints"), 2, 1);
  EXPECT_TRUE(IsMarked(4, 0));
  Press(Qt::Key_Down);
  EXPECT_FALSE(IsMarked(4, 0));
  EXPECT_FALSE(IsMarked(2, 2));
}

TEST_F(PointingFormTest, MarksNoRowThatAnEntryGoesOnTo) {
  ClickCell(View("GrJoints"), 2, 4);
  Type("0");
  Press(Qt::Key_Return);
  EXPECT_FALSE(IsMarked(4, 0));
  EXPECT_FALSE(IsMarked(2, 2));
}

TEST_F(PointingFormTest, MarksEverythingOnSelectAll) {
  Find<QRadioButton>("viewOpt_1").setChecked(true);
  View("GrMembers").setFocus();
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(IsMarked(0.5, 0.5));
  EXPECT_TRUE(IsMarked(3.5, 0.5));
}

TEST_F(PointingFormTest, MarksWhatWasChosenLastWhicheverGridIsShown) {
  ClickRowHeader("GrJoints", 2);
  Find<QRadioButton>("viewOpt_1").setChecked(true);
  EXPECT_TRUE(IsMarked(4, 0));
  ClickRowHeader("GrMembers", 1);
  EXPECT_FALSE(IsMarked(4, 0));
  EXPECT_TRUE(IsMarked(0.5, 0.5));
}

TEST_F(PointingFormTest, MarksNoRowThatTheProgramSelects) {
  frame->ShowParts({2}, {});
  frame->ShowNoParts();
  EXPECT_FALSE(IsMarked(4, 0));
}

TEST_F(PointingFormTest, MovesTheMarksWithTheView) {
  ClickRowHeader("GrJoints", 3);
  Area().setFocus();
  Press(Qt::Key_Right);
  EXPECT_TRUE(IsMarked(2, 2));
}

TEST_F(PointingFormTest, SavesNoMarkInAPicture) {
  const QImage before = Area().Surface().Image().copy();
  ClickRowHeader("GrJoints", 3);
  Area().setFocus();
  Press(Qt::Key_M);
  EXPECT_EQ(Area().Surface().Image(), before);
}

/// The offer of the clear drawing in the status bar.
class OfferFormTest : public FormTest {
 protected:
  QPushButton& Offer() { return Find<QPushButton>("stsBar_Offer"); }

  /// A Pratt truss of ten bays, whose numbers overlap in the described drawing.
  void AnalyseATangle() {
    SetModel(PrattTruss(22));
    frame->Redraw(true);
    frame->runAnalysis();
  }
};

TEST_F(OfferFormTest, OffersTheClearDrawingWhereNumbersOverlap) {
  EXPECT_FALSE(Offer().isVisible());
  AnalyseATangle();
  EXPECT_TRUE(Offer().isVisible());
  QTest::mouseClick(&Offer(), Qt::LeftButton);
  EXPECT_EQ(TheDisplay.Style, DrawingStyle::Clear);
  EXPECT_TRUE(Find<QCheckBox>("clearChk").isChecked());
  EXPECT_FALSE(Offer().isVisible());
}

TEST_F(OfferFormTest, OffersNothingWhereNumbersStandApart) {
  EnterThreeBarTruss();
  for (const char* layer : {"memberChk", "nodeChk", "loadsChk", "gridChk"}) Find<QCheckBox>(layer).setChecked(false);
  Command("mnuRefresh").trigger();
  Command("mnuZoomExtents").trigger();
  frame->runAnalysis();
  EXPECT_FALSE(Offer().isVisible());
}

TEST_F(OfferFormTest, OffersNothingInTheClearStyle) {
  frame->SwitchStyle();
  AnalyseATangle();
  EXPECT_FALSE(Offer().isVisible());
}

TEST_F(OfferFormTest, DropsTheOfferWhereTheAnalysisEndsOrTheStyleChanges) {
  AnalyseATangle();
  frame->EndAnalysis(true);
  EXPECT_FALSE(Offer().isVisible());
  AnalyseATangle();
  EXPECT_TRUE(Offer().isVisible());
  Press(Qt::Key_D, Qt::ControlModifier);
  EXPECT_FALSE(Offer().isVisible());
}

} // namespace
} // namespace strutwright
