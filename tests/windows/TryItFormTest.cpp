// Try It in the window of the stiffness equations: answers typed into blank cells, and by the drawing.

#include "DisplayFormFixture.h"
#include "ModelBuilder.h"
#include "PublishedBars.h"
#include "frmEquations.h"
#include "modEquationCells.h"
#include "modExercise.h"
#include "modModelStore.h"

#include <cmath>
#include <string>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class TryItFormTest : public DisplayFormTest {
 protected:
  TryItFormTest() {
    frame->ActivateEquations();
    Find<QCheckBox>("chkTryIt").click();
  }

  void Click(const QString& button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }

  /// What a cell shows when nobody types into it.
  std::string Cell(const QString& grid, int row, int column) {
    return View(grid).model()->index(row - 1, column - 1).data().toString().toStdString();
  }

  /// Types into the cell or the line that has the keyboard.
  void TypeAnswer(const std::string& text, Qt::Key key) {
    if (auto* line = qobject_cast<QLineEdit*>(&Focused())) line->selectAll();
    Type(QString::fromStdString(text));
    Press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    QCoreApplication::processEvents(); // an editor closes when the program is idle
  }

  /// The cell whose editor has the keyboard, as "row column".
  std::string Asked() {
    const QModelIndex cell = View("grK").currentIndex();
    const bool isEdited = qobject_cast<QLineEdit*>(&Focused()) != nullptr && View("grK").isAncestorOf(&Focused());
    return isEdited ? std::to_string(cell.row() + 1) + " " + std::to_string(cell.column() + 1) : "";
  }

  void ShowAllAnswers() {
    while (CurrentQuestion() != nullptr) Click("btnHint");
  }

  void SolveTriangle() {
    SetModel(Triangle());
    for (const char* step : {"btnShowGlobalK", "btnRestrict", "btnSolve"}) {
      Click(step);
      ShowAllAnswers();
    }
  }

  int HighlightInk() {
    const QImage picture = Find<QWidget>("Disp").grab().toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == QColor(255, 140, 0) ? 1 : 0;
    }
    return count;
  }
};

TEST_F(TryItFormTest, HasAnswersTypedIntoTheBlankCells) {
  SetModel(FourNodesThreeBars());
  Click("btnAddMember");
  EXPECT_EQ(Cell("grK", 1, 1), "");
  EXPECT_EQ(Cell("grK", 2, 2), "0.");
  EXPECT_EQ(LabelText("lblQuestion"), "K(1 x, 1 x) with member 1, in kN/mm?");
  ASSERT_EQ(Asked(), "1 1");

  TypeAnswer("75", Qt::Key_Return);

  EXPECT_EQ(LabelText("lblVerdict"), "\u2713 Right: 75 kN/mm.");
  EXPECT_EQ(Cell("grK", 1, 1), "75. \u2713");
  EXPECT_TRUE(View("grK").model()->index(0, 0).data(Qt::BackgroundRole).isValid());
  EXPECT_EQ(Asked(), "1 5");
  EXPECT_FALSE(Find<QLineEdit>("txtAnswer").isVisible());
}

TEST_F(TryItFormTest, MarksAWrongAnswerInItsCellAndNamesTheSlip) {
  SetModel(FourNodesThreeBars());
  Click("btnAddMember");

  TypeAnswer("-75", Qt::Key_Return);

  EXPECT_THAT(LabelText("lblVerdict"), StartsWith("\u2717 Wrong. Likely slip: the sign"));
  EXPECT_EQ(Cell("grK", 1, 1), "-75 \u2717");
  EXPECT_TRUE(View("grK").model()->index(0, 0).data(Qt::BackgroundRole).isValid());
  EXPECT_EQ(View("grK").model()->index(0, 0).data(Qt::AccessibleTextRole).toString().toStdString(), "wrong: -75");
  EXPECT_EQ(Asked(), "1 1") << "to be mended";
  TypeAnswer("abc", Qt::Key_Return);
  EXPECT_THAT(LabelText("lblVerdict"), StartsWith("That is not a number."));
  EXPECT_EQ(Cell("grK", 1, 1), "abc") << "no number is not wrong";
  EXPECT_THAT(LabelText("lblScore"), StartsWith("Right 0 of 0, 0 at the first try; tries 1, hints 0"));
}

TEST_F(TryItFormTest, GoesToTheNextBlankCellByTabAndBack) {
  SetModel(FourNodesThreeBars());
  Click("btnAddMember");
  TypeAnswer("", Qt::Key_Tab);
  EXPECT_EQ(Asked(), "1 5");
  TypeAnswer("75", Qt::Key_Tab);
  EXPECT_EQ(Asked(), "5 5");
  EXPECT_EQ(LabelText("lblVerdict"),
            "K(1 x, 3 x) with member 1, in kN/mm? \u2717 Wrong. Likely slip: the sign of the share, or the sign.");
  EXPECT_EQ(Cell("grK", 5, 1), "75 \u2717") << "the equal entry is the same question";
  TypeAnswer("75", Qt::Key_Backtab);
  EXPECT_EQ(Cell("grK", 5, 5), "75. \u2713");
  TypeAnswer("75", Qt::Key_Return);
  EXPECT_EQ(Asked(), "1 5") << "what is left";
  TypeAnswer("-75", Qt::Key_Return);
  EXPECT_EQ(Focused().objectName(), "btnAddMember") << "back at the step, for the space bar";
  Press(Qt::Key_Space);
  EXPECT_EQ(LabelText("lblQuestion"), "K(3 y, 3 y) with member 2, in kN/mm?");
}

TEST_F(TryItFormTest, TakesTheCellThatIsClicked) {
  SetModel(FourNodesThreeBars());
  Click("btnAddMember");
  ClickCell(View("grK"), 5, 1);
  EXPECT_EQ(LabelText("lblQuestion"), "K(1 x, 3 x) with member 1, in kN/mm?");
  TypeAnswer("-75", Qt::Key_Return);
  EXPECT_EQ(Cell("grK", 1, 5), "-75. \u2713");
}

TEST_F(TryItFormTest, KeepsWhatIsTypedWhileAHintIsGiven) {
  SetModel(FourNodesThreeBars());
  Click("btnAddMember");
  Type("7");
  Click("btnHint");
  EXPECT_THAT(LabelText("lblVerdict"), StartsWith("Hint 1 of 3"));
  EXPECT_EQ(Cell("grK", 1, 1), "7");
  EXPECT_THAT(LabelText("lblScore"), HasSubstr("tries 0")) << "it was not judged";
  TypeAnswer("75", Qt::Key_Return);
  EXPECT_EQ(Cell("grK", 1, 1), "75. \u2713");
}

TEST_F(TryItFormTest, LetsAGridBeLeftByEscapeAndTab) {
  SetModel(FourNodesThreeBars());
  Click("btnAddMember");
  Press(Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_EQ(Asked(), "");
  Find<QPushButton>("btnHint").setFocus();
  QTest::keyClick(&Focused(), Qt::Key_Tab);
  EXPECT_EQ(Focused().objectName(), "btnCopyScore");
}

TEST_F(TryItFormTest, NamesTheMemberThatIsLitAndTakesTheOneThatIsClicked) {
  SolveTriangle();
  Command("mnuRefresh").trigger();
  Command("mnuZoomExtents").trigger();
  ASSERT_EQ(HighlightInk(), 0);
  Click("btnMemberForces");
  EXPECT_EQ(LabelText("lblQuestion"), "Force of member 1: how much in kN, T or C?");
  EXPECT_EQ(Focused().objectName(), "txtAnswer");
  EXPECT_GT(HighlightInk(), 10);

  QTest::mouseClick(&Area(), Qt::LeftButton, {}, At(4, 1.5));

  EXPECT_EQ(LabelText("lblQuestion"), "Force of member 2: how much in kN, T or C?");
  EXPECT_EQ(Focused().objectName(), "txtAnswer");
  const double right = CurrentQuestion()->right;
  ASSERT_GT(std::abs(right), 1);
  const std::string size = NumberAsShown(static_cast<float>(std::abs(right)));
  TypeAnswer(size + (right > 0 ? " C" : " T"), Qt::Key_Return);
  EXPECT_EQ(LabelText("lblVerdict"), "\u2717 Wrong. Likely slip: T and C exchanged, or the member's ends exchanged.");
  TypeAnswer(size + (right > 0 ? " T" : " C"), Qt::Key_Return);
  EXPECT_THAT(LabelText("lblVerdict"), StartsWith("\u2713 Right: " + size + " kN"));
}

TEST_F(TryItFormTest, MarksTheNodeWhoseReactionIsAsked) {
  SolveTriangle();
  Click("btnReactions");
  EXPECT_EQ(LabelText("lblQuestion"), "Reaction at 1 x, in kN, right and up positive?");
  QTest::mouseClick(&Area(), Qt::LeftButton, {}, At(4, 0));
  EXPECT_EQ(LabelText("lblQuestion"), "Reaction at 2 y, in kN, right and up positive?");
  ShowAllAnswers();
  EXPECT_THAT(LabelText("lblQuestion"), StartsWith("That was the whole method."));
}

TEST_F(TryItFormTest, AsksForTheSupportsInItsLine) {
  SetModel(Triangle());
  Click("btnShowGlobalK");
  Click("btnRestrict");
  EXPECT_EQ(LabelText("lblQuestion"), "Which freedoms are restrained?");
  EXPECT_EQ(LabelText("lblStepDone"), "The supports were applied.");
  EXPECT_EQ(Focused().objectName(), "txtAnswer");
  TypeAnswer("1 x, 1 y, 2 y", Qt::Key_Return);
  EXPECT_EQ(Cell("grK", 1, 1), "1.");
}

TEST_F(TryItFormTest, DropsItsQuestionWithTheModel) {
  SetModel(FourNodesThreeBars());
  Click("btnAddMember");
  ASSERT_NE(CurrentQuestion(), nullptr);
  Command("mnuNew").trigger();
  EXPECT_EQ(CurrentQuestion(), nullptr);
  EXPECT_THAT(LabelText("lblQuestion"), StartsWith("Enter nodes and members"));
  EXPECT_FALSE(Find<QPushButton>("btnAnswer").isEnabled());
  Click("btnHint");
  EXPECT_EQ(LabelText("lblVerdict"), "");
}

TEST_F(TryItFormTest, ShowsEverythingAgainWhenItIsSwitchedOff) {
  SetModel(FourNodesThreeBars());
  Click("btnAddMember");
  Find<QCheckBox>("chkTryIt").click();
  EXPECT_EQ(Cell("grK", 1, 5), "-75.");
  EXPECT_TRUE(Find<QLabel>("lblStepToCome").isVisible());
  EXPECT_FALSE(Find<QLabel>("lblQuestion").isVisible());
}

TEST_F(TryItFormTest, CopiesTheScore) {
  SetModel(FourNodesThreeBars());
  Click("btnAddMember");
  TypeAnswer("75", Qt::Key_Return);
  Click("btnCopyScore");
  EXPECT_THAT(clipboard.text, StartsWith("Right 1 of 1, 1 at the first try; tries 1, hints 0; 0:0"));
  EXPECT_THAT(clipboard.text, HasSubstr("K(1 x, 1 x) with member 1, in kN/mm? right after 1 try, 0 hints\n"));
}

} // namespace
} // namespace strutwright
