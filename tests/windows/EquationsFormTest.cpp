#include "EquationModel.h"
#include "FormFixture.h"
#include "ModelBuilder.h"
#include "Pattern.h"
#include "PublishedBars.h"
#include "modEquationCells.h"
#include "modModelStore.h"

#include <cmath>
#include <string>
#include <vector>

#include <QHeaderView>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;

class EquationsFormTest : public FormTest {
 protected:
  static void EnterFourNodesThreeBars() { SetModel(FourNodesThreeBars()); }

  void Click(const QString& button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
  std::string Caption(const QString& button) { return Find<QPushButton>(button).text().toStdString(); }

  std::string Cell(const QString& grid, int row, int column) {
    const QAbstractItemModel& model = *View(grid).model();
    return model.index(row - 1, column - 1).data().toString().toStdString();
  }

  std::vector<std::string> Row(const QString& grid, int row) {
    std::vector<std::string> cells;
    for (int column = 1; column <= View(grid).model()->columnCount(); ++column) {
      cells.push_back(Cell(grid, row, column));
    }
    return cells;
  }

  std::vector<std::string> Labels(const QString& grid, Qt::Orientation orientation) {
    const QAbstractItemModel& model = *View(grid).model();
    std::vector<std::string> labels;
    const int count = orientation == Qt::Vertical ? model.rowCount() : model.columnCount();
    for (int i = 0; i < count; ++i) labels.push_back(model.headerData(i, orientation).toString().toStdString());
    return labels;
  }

  QAction& EquationsCommand(const QString& name) { return *Find<QWidget>("frmEquations").findChild<QAction*>(name); }

  bool IsTinted(const QString& grid, int row, int column) {
    return View(grid).model()->index(row - 1, column - 1).data(Qt::BackgroundRole).isValid();
  }

  /// Pixels of the truss display in the colour of a highlight.
  int HighlightInk() {
    const QImage picture = Find<QWidget>("Disp").grab().toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == QColor(255, 140, 0) ? 1 : 0;
    }
    return count;
  }
};

TEST_F(EquationsFormTest, NamesItsButtons) {
  EXPECT_EQ(Caption("btnShowForces"), "Show Force");
  EXPECT_EQ(Caption("btnAddMember"), "Add Member 1");
  EXPECT_EQ(Caption("btnShowGlobalK"), "Show Global K");
  EXPECT_EQ(Caption("btnRestrict"), "Restrict DOFs");
  EXPECT_EQ(Caption("btnSolve"), "Solve");
  EXPECT_EQ(Caption("btnStepBack"), "Step Back");
  EXPECT_FALSE(Find<QPushButton>("btnStepBack").isEnabled());
}

TEST_F(EquationsFormTest, LaysItsGridsOutForTheModel) {
  EnterFourNodesThreeBars();

  Click("btnShowForces");

  const auto freedoms = ElementsAre("1 x", "1 y", "2 x", "2 y", "3 x", "3 y", "4 x", "4 y");
  EXPECT_THAT(Labels("grK", Qt::Vertical), freedoms);
  EXPECT_THAT(Labels("grK", Qt::Horizontal), freedoms);
  EXPECT_THAT(Labels("grForce", Qt::Vertical), freedoms);
  EXPECT_THAT(Labels("grForce", Qt::Horizontal), ElementsAre("Force (kN)"));
  EXPECT_THAT(Labels("grDisp", Qt::Vertical), freedoms);
  EXPECT_THAT(Labels("grDisp", Qt::Horizontal), ElementsAre("Disp (mm)"));
  EXPECT_EQ(Cell("grForce", 6, 1), "-80.");
}

TEST_F(EquationsFormTest, FollowsThePublishedProblemStepByStep) {
  EnterFourNodesThreeBars();

  Click("btnAddMember");
  EXPECT_THAT(Row("grK", 5), ElementsAre("-75.", "0.", "0.", "0.", "75.", "0.", "0.", "0."));
  Click("btnAddMember");
  EXPECT_THAT(Row("grK", 6), ElementsAre("0.", "0.", "0.", "0.", "0.", "50.", "0.", "-50."));
  Click("btnAddMember");
  EXPECT_THAT(Row("grK", 5), ElementsAre("-75.", "0.", "-64.", "48.", "139.", "-48.", "0.", "0."));
  Click("btnRestrict");
  EXPECT_THAT(Row("grK", 6), ElementsAre("0.", "0.", "0.", "0.", "-48.", "86.", "0.", "0."));
  Click("btnSolve");
  EXPECT_EQ(Cell("grDisp", 5, 1), "-0.4");
  EXPECT_EQ(Cell("grDisp", 6, 1), "-1.15");
}

TEST_F(EquationsFormTest, NamesTheMemberToAddNext) {
  EnterFourNodesThreeBars();
  std::vector<std::string> captions;

  for (int press = 0; press < 4; ++press) {
    captions.push_back(Caption("btnAddMember"));
    Click("btnAddMember");
  }

  EXPECT_THAT(captions, ElementsAre("Add Member 1", "Add Member 2", "Add Member 3", "Clear K"));
  EXPECT_EQ(Caption("btnAddMember"), "Add Member 1");
  EXPECT_THAT(Row("grK", 5), Each(""));
}

TEST_F(EquationsFormTest, IsWorkedWithTheKeyboard) {
  EnterFourNodesThreeBars();
  Find<QPushButton>("btnShowForces").setFocus();

  Press(Qt::Key_Tab);
  Press(Qt::Key_Space);

  EXPECT_EQ(Caption("btnAddMember"), "Add Member 2");
}

TEST_F(EquationsFormTest, StepsBackToTheBeginning) {
  EnterFourNodesThreeBars();
  Click("btnAddMember");
  Click("btnShowGlobalK");

  Click("btnStepBack");
  EXPECT_EQ(Caption("btnAddMember"), "Add Member 2");
  EXPECT_EQ(Cell("grK", 5, 5), "75.");
  Click("btnStepBack");

  EXPECT_EQ(View("grK").model()->rowCount(), 0);
  EXPECT_FALSE(Find<QPushButton>("btnStepBack").isEnabled());
}

TEST_F(EquationsFormTest, TakesAPendingEditFirst) {
  EnterFourNodesThreeBars();
  ClickCell(View("GrJoints"), 3, NodeForceX);
  Type("5");

  Click("btnShowForces");

  EXPECT_EQ(Cell("grForce", 5, 1), "5.");
}

TEST_F(EquationsFormTest, TintsTheMemberThatWasAddedAndItsLabels) {
  EnterFourNodesThreeBars();

  Click("btnAddMember");

  EXPECT_TRUE(IsTinted("grK", 1, 5));
  EXPECT_FALSE(IsTinted("grK", 1, 3));
  const QAbstractItemModel& model = *View("grK").model();
  EXPECT_TRUE(model.headerData(4, Qt::Horizontal, Qt::BackgroundRole).isValid());
  EXPECT_TRUE(model.headerData(4, Qt::Vertical, Qt::BackgroundRole).isValid());
  EXPECT_FALSE(model.headerData(2, Qt::Horizontal, Qt::BackgroundRole).isValid());
}

TEST_F(EquationsFormTest, TintsWhatWasClearedAndTheSolution) {
  EnterFourNodesThreeBars();
  Click("btnShowGlobalK");
  Click("btnRestrict");
  EXPECT_TRUE(IsTinted("grK", 1, 5));
  EXPECT_FALSE(IsTinted("grK", 5, 6));

  Click("btnSolve");

  EXPECT_FALSE(IsTinted("grK", 1, 5));
  EXPECT_TRUE(IsTinted("grDisp", 6, 1));
}

/// Relative luminance as the Web Content Accessibility Guidelines define it.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one) + 0.05;
  const double b = Luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

TEST(TintColourTest, KeepsTextLegibleInLightAndDarkThemes) {
  QPalette light;
  light.setColor(QPalette::Base, Qt::white);
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(35, 38, 41));
  for (const CellTint tint : {CellTint::Added, CellTint::Cleared, CellTint::Solved}) {
    EXPECT_GT(Contrast(TintColour(tint, light), Qt::black), 7.0);
    EXPECT_GT(Contrast(TintColour(tint, dark), QColor(239, 240, 241)), 7.0);
    EXPECT_GT(Contrast(TintColour(tint, light), Qt::white), 1.2) << "the tint is seen";
    EXPECT_GT(Contrast(TintColour(tint, dark), QColor(35, 38, 41)), 1.2) << "the tint is seen";
  }
  EXPECT_EQ(TintColour(CellTint::None, dark), QColor(35, 38, 41));
}

TEST_F(EquationsFormTest, HighlightsTheMemberInTheDisplay) {
  EnterFourNodesThreeBars();
  frame->Redraw(true);
  ASSERT_EQ(HighlightInk(), 0);

  Click("btnAddMember");
  EXPECT_GT(HighlightInk(), 10);
  Press(Qt::Key_F4);
  EXPECT_GT(HighlightInk(), 10) << "another view shows it too";

  Click("btnStepBack");
  EXPECT_EQ(HighlightInk(), 0);
}

TEST_F(EquationsFormTest, ScrollsToTheCellsThatAMemberWasAddedTo) {
  SetModel(PrattTruss(40));
  for (int member = 1; member <= 30; ++member) Click("btnAddMember");
  const QTableView& view = View("grK");

  const int freedom = 2 * static_cast<int>(MemberTable(30, MemberNodeI)) - 1;

  EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(view.model()->index(freedom - 1, freedom - 1))));
}

TEST_F(EquationsFormTest, SaysInWordsWhatAStepDidAndWhatComesNext) {
  EnterFourNodesThreeBars();

  Click("btnAddMember");

  EXPECT_EQ(LabelText("lblStepDone"), "The 16 numbers of member 1 were added to K in the rows and columns of its "
                                      "freedoms, 1 x, 1 y, 3 x and 3 y.");
  EXPECT_EQ(LabelText("lblStepToCome"), "Add Member 2 adds the next member at its own freedoms.");
}

TEST_F(EquationsFormTest, NamesTheNextStepOfAModelThatIsEnteredMeanwhile) {
  EXPECT_EQ(LabelText("lblStepToCome"),
            "Enter nodes and members; then Add Member 1 or Show Global K begins the matrix.");
  EnterFourNodesThreeBars();
  ClickCell(View("GrJoints"), 1, 2);
  Type("1");
  Press(Qt::Key_Return);
  EXPECT_EQ(LabelText("lblStepToCome"),
            "Add Member 1 begins K with one member; Show Global K assembles all members at once.");
}

TEST_F(EquationsFormTest, SaysWhereTheSelectedCellComesFrom) {
  EnterFourNodesThreeBars();
  Click("btnShowGlobalK");

  ClickCell(View("grK"), 5, 5);
  EXPECT_EQ(LabelText("lblOrigin"), "K(3 x, 3 x) = 75 (member 1) + 64 (member 3) = 139 kN/mm");

  Press(Qt::Key_Left);
  EXPECT_EQ(LabelText("lblOrigin"), "K(3 x, 2 y) = 48 (member 3) = 48 kN/mm");

  Click("btnRestrict");
  EXPECT_EQ(LabelText("lblOrigin"), "K(3 x, 2 y) = 0 kN/mm, cleared: 2 y is supported");
}

TEST_F(EquationsFormTest, CopiesTheOriginOfACell) {
  EnterFourNodesThreeBars();
  EquationsCommand("mnuCopyOrigin").trigger();
  EXPECT_EQ(clipboard.text, "") << "there is no origin yet";
  Click("btnShowGlobalK");
  ClickCell(View("grK"), 5, 5);

  EquationsCommand("mnuCopyOrigin").trigger();

  EXPECT_EQ(clipboard.text, "K(3 x, 3 x) = 75 (member 1) + 64 (member 3) = 139 kN/mm");
}

TEST_F(EquationsFormTest, CopiesTheSelectionAsItIsShown) {
  EnterFourNodesThreeBars();
  Click("btnShowGlobalK");
  ClickCell(View("grK"), 5, 5);
  Press(Qt::Key_Right, Qt::ShiftModifier);
  Press(Qt::Key_Down, Qt::ShiftModifier);

  Press(Qt::Key_C, Qt::ControlModifier);

  EXPECT_EQ(clipboard.text, "139.\t-48.\r-48.\t86.");
}

TEST_F(EquationsFormTest, CopiesEveryDigitAndLatexFromTheMenu) {
  EnterFourNodesThreeBars();
  Click("btnShowGlobalK");
  Click("btnRestrict");
  Click("btnSolve");
  ClickCell(View("grDisp"), 5, 1);

  EquationsCommand("mnuCopyFullPrecision").trigger();
  EXPECT_THAT(clipboard.text, MatchesPattern("-0\\.39792[0-9]+\r\n"));

  EquationsCommand("mnuCopyLatex").trigger();
  EXPECT_EQ(clipboard.text, "\\begin{bmatrix}\n  -0.4\n\\end{bmatrix}\n");
}

TEST_F(EquationsFormTest, SelectsAndCopiesAWholeGrid) {
  EnterFourNodesThreeBars();
  Click("btnShowForces");
  ClickCell(View("grForce"), 2, 1);

  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_C, Qt::ControlModifier);

  EXPECT_EQ(clipboard.text, "0.\r0.\r0.\r0.\r0.\r-80.\r0.\r0.");
}

TEST_F(EquationsFormTest, CopiesNothingFromAnEmptyGrid) {
  clipboard.text = "kept";

  EquationsCommand("mnuGrid_Copy").trigger();

  EXPECT_EQ(clipboard.text, "kept");
}

TEST_F(EquationsFormTest, OffersItsCommandsInItsMenus) {
  Command("mnuEquations").trigger();
  QStringList names;
  for (const QAction* each : frame->menuBar()->actions()) names << each->menu()->objectName();

  EXPECT_EQ(names, (QStringList{"mnuFile", "mnuEdit", "mnuView", "mnuAnalysis", "mnuHelp"}));
  EXPECT_EQ(View("grK").actions().size(), 6) << "the grids' own menu offers what the Edit menu does";
}

TEST_F(EquationsFormTest, ScrollsToTheEndAtOnceInAWindowOfAnyHeight) {
  SetModel(PrattTruss(100));
  Click("btnShowGlobalK");
  for (const int height : {700, 707, 714, 721}) {
    frame->resize(frame->width(), height);
    QApplication::processEvents();
    for (const char* moved : {"grK", "grForce", "grDisp"}) {
      View("grK").verticalScrollBar()->setValue(0);

      View(moved).scrollToBottom();

      for (const char* name : {"grK", "grForce", "grDisp"}) {
        const QScrollBar& bar = *View(name).verticalScrollBar();
        EXPECT_EQ(bar.value(), bar.maximum()) << name << " after " << moved << " at height " << height;
      }
    }
  }
}

TEST_F(EquationsFormTest, KeepsTheCellWhileStepsChangeIt) {
  EnterFourNodesThreeBars();
  Click("btnAddMember");
  ClickCell(View("grK"), 5, 6);

  Click("btnAddMember");

  EXPECT_EQ(View("grK").currentIndex(), View("grK").model()->index(4, 5));
}

TEST_F(EquationsFormTest, ScrollsTheRowsOfAnEquationTogether) {
  SetModel(PrattTruss(100));
  Click("btnShowGlobalK");
  QApplication::processEvents(); // the views lay themselves out when they are idle

  View("grK").verticalScrollBar()->setValue(50);

  EXPECT_EQ(View("grForce").verticalScrollBar()->value(), 50);
  EXPECT_EQ(View("grDisp").verticalScrollBar()->value(), 50);
}

TEST_F(EquationsFormTest, CutsNoHeadingOfAVector) {
  EnterFourNodesThreeBars();
  Click("btnShowForces");
  QApplication::processEvents();

  for (const char* name : {"grForce", "grDisp"}) {
    const QTableView& view = View(name);
    EXPECT_GE(view.columnWidth(0), view.fontMetrics().horizontalAdvance("Force")) << name;
    EXPECT_GE(view.viewport()->width(), view.columnWidth(0)) << name;
    EXPECT_GE(view.horizontalHeader()->height(), 2 * view.fontMetrics().height()) << name << ": the unit stands below";
  }
}

TEST_F(EquationsFormTest, ShowsALargeMatrixWithoutKeepingItsTexts) {
  SetModel(PrattTruss(5000));

  Click("btnShowGlobalK");

  EXPECT_EQ(View("grK").model()->columnCount(), 10000);
  View("grK").scrollToBottom();
  EXPECT_NE(Cell("grK", 10000, 10000), "");
}

TEST_F(EquationsFormTest, EmptiesItsNumbersWhenAModelIsRead) {
  EnterFourNodesThreeBars();
  Click("btnShowGlobalK");
  dialog.WillChoose(std::string(EXAMPLES_DIR) + "/four_nodes_three_bars.stw");

  EquationsCommand("mnuOpen").trigger();

  EXPECT_THAT(Row("grK", 5), Each(""));
  EXPECT_THAT(Labels("grK", Qt::Vertical), testing::Contains("4 y"));
  EXPECT_EQ(Caption("btnAddMember"), "Add Member 1");
}

TEST_F(EquationsFormTest, RefusesToBeClosedFromItsFrame) {
  QWidget& view = Find<QWidget>("frmEquations");

  EXPECT_FALSE(view.parentWidget()->close());

  EXPECT_TRUE(view.isVisible());
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Critical, "Window cannot be closed")));
}

TEST_F(EquationsFormTest, RefusesToBeClosed) {
  QWidget& view = Find<QWidget>("frmEquations");

  view.close();

  EXPECT_TRUE(view.isVisible());
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Critical, "Window cannot be closed")));
}

TEST_F(EquationsFormTest, ClosesWithoutAWordWhenTheProgramEnds) {
  EXPECT_TRUE(frame->close());

  EXPECT_TRUE(frame->IsEnding());
  EXPECT_TRUE(Find<QWidget>("frmEquations").close());
  EXPECT_THAT(TakeMessages(), testing::IsEmpty());
}

/// Notes which pointer the user sees while a box is open.
class PointerSpy : public FakeMessageBoxes {
 public:
  void Show(const Message& /*message*/) override {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    shape = cursor != nullptr ? cursor->shape() : Qt::ArrowCursor;
  }
  Qt::CursorShape shape = Qt::ArrowCursor;
};

TEST_F(EquationsFormTest, ShowsTheBusyPointerWhileItWorks) {
  for (const char* button : {"btnShowForces", "btnAddMember", "btnShowGlobalK", "btnRestrict", "btnSolve"}) {
    SetModel({{{0, 0}}, {{1, 9}}}); // a box says that node 9 does not exist
    PointerSpy spy;
    ThePlatform().messages = &spy;

    Click(button);

    EXPECT_EQ(spy.shape, Qt::BusyCursor) << button;
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << button;
    ThePlatform().messages = &messages;
  }
}

} // namespace
} // namespace strutwright
