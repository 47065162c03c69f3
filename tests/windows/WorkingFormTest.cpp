#include "FormFixture.h"
#include "ModelBuilder.h"
#include "PublishedBars.h"
#include "WorkingPane.h"
#include "frmEquations.h"
#include "modExercise.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <QCheckBox>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBrowser>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class WorkingFormTest : public FormTest {
 protected:
  WorkingFormTest() {
    TheWorkingPlace = {};
    frame->ActivateEquations();
    Find<QWidget>("frmEquations").parentWidget()->showMaximized();
    SettleLayout();
  }

  static void SettleLayout() { QCoreApplication::processEvents(); }

  void Click(const QString& button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
  std::string Pane() { return Find<QTextBrowser>("txtWorking").toPlainText().toStdString(); }
  /// The names of what has a scroll bar to move.
  std::vector<std::string> Scrolled() {
    std::vector<std::string> names;
    for (const char* name : {"grK", "grDisp", "grForce", "txtWorking"}) {
      const auto& area = Find<QAbstractScrollArea>(name);
      for (const QScrollBar* bar : {area.horizontalScrollBar(), area.verticalScrollBar()}) {
        if (area.isVisible() && bar->maximum() > bar->minimum()) names.emplace_back(name);
      }
    }
    return names;
  }

  void Follow(const char* link) { emit Find<QTextBrowser>("txtWorking").anchorClicked(QUrl(link)); }
  QAction& EquationsCommand(const QString& name) { return *Find<QWidget>("frmEquations").findChild<QAction*>(name); }
};

TEST_F(WorkingFormTest, ShowsTheWorkingOfEachPress) {
  SetModel(Triangle());
  Click("btnAddMember");
  EXPECT_THAT(Pane(), HasSubstr("Member 1: node i = 1, node j = 2"));
  Click("btnShowGlobalK");
  Click("btnRestrict");
  EXPECT_THAT(Pane(), HasSubstr("node 1: support 3 holds x and y"));
  Click("btnSolve");
  EXPECT_THAT(Pane(), HasSubstr("Without the restrained freedoms K D = P is, in kN/mm and kN, and D follows in mm:"));
}

TEST_F(WorkingFormTest, GoesOnToForcesAndReactionsAndBack) {
  SetModel(Triangle());
  Click("btnShowGlobalK");
  EXPECT_FALSE(Find<QPushButton>("btnMemberForces").isEnabled());
  Click("btnRestrict");
  Click("btnSolve");
  Click("btnMemberForces");
  EXPECT_THAT(Pane(), HasSubstr("Each member's force follows"));
  Click("btnReactions");
  EXPECT_THAT(Pane(), HasSubstr("Each reaction balances"));
  Click("btnStepBack");
  EXPECT_THAT(Pane(), HasSubstr("Each member's force follows"));
  Click("btnStepBack");
  Click("btnStepBack");
  EXPECT_FALSE(Find<QPushButton>("btnReactions").isEnabled());
}

TEST_F(WorkingFormTest, ShowsWhereANumberComesFrom) {
  SetModel(Triangle());
  Click("btnShowGlobalK");
  Follow("K 3 4");
  const QModelIndex cell = View("grK").currentIndex();
  EXPECT_EQ(std::pair(cell.row(), cell.column()), std::pair(2, 3));
  Follow("P 2");
  EXPECT_EQ(View("grForce").currentIndex().row(), 1);
  Follow("node 3");
  Follow("nothing");
}

TEST_F(WorkingFormTest, ClosesAndOpensFromTheViewMenu) {
  EXPECT_TRUE(Find<QTextBrowser>("txtWorking").isVisibleTo(&Find<QWidget>("frmEquations")));
  EquationsCommand("mnuWorking").trigger();
  EXPECT_FALSE(Find<QTextBrowser>("txtWorking").isVisibleTo(&Find<QWidget>("frmEquations")));
  EquationsCommand("mnuWorking").trigger();
  EXPECT_TRUE(TheWorkingPlace.shown);
}

TEST_F(WorkingFormTest, StandsBesideKWhereThereIsRoom) {
  const auto& split = Find<QSplitter>("splWorking");
  const auto& pane = Find<QTextBrowser>("txtWorking");
  QWidget& window = *Find<QWidget>("frmEquations").parentWidget();
  EXPECT_EQ(split.orientation(), Qt::Horizontal);
  EXPECT_TRUE(pane.isVisible());
  window.showNormal();
  frame->resize(1180, 1300);
  window.resize(700, 700);
  SettleLayout();
  EXPECT_EQ(split.orientation(), Qt::Vertical);
  EXPECT_TRUE(pane.isVisible());
  EXPECT_TRUE(View("grK").isVisible());
  window.resize(700, 380);
  SettleLayout();
  EXPECT_FALSE(pane.isVisible()) << "K needs the room";
  EXPECT_TRUE(View("grK").isVisible());
}

TEST_F(WorkingFormTest, ShowsZerosFaintAndColumnsAsWideAsTheirNumbers) {
  SetModel(Triangle());
  Click("btnShowGlobalK");
  const QAbstractItemModel& K = *View("grK").model();
  EXPECT_EQ(K.index(0, 0).data().toString().toStdString(), "75.6");
  EXPECT_FALSE(K.index(0, 0).data(Qt::ForegroundRole).isValid());
  EXPECT_EQ(K.index(3, 1).data().toString().toStdString(), "0.");
  EXPECT_TRUE(K.index(3, 1).data(Qt::ForegroundRole).isValid());
  EXPECT_LT(View("grK").columnWidth(1), View("grK").horizontalHeader()->defaultSectionSize());
}

// What a window of 1180 x 800 has room for.

TEST_F(WorkingFormTest, ScrollsNothingOfATrussOfThreeMembersWhenMaximised) {
  for (const ModelData& model : {Triangle(), FourNodesThreeBars()}) {
    SetModel(model);
    for (const char* step : {"btnShowForces", "btnAddMember", "btnAddMember", "btnAddMember", "btnShowGlobalK",
                             "btnRestrict", "btnSolve", "btnMemberForces", "btnReactions"}) {
      Click(step);
      SettleLayout();
      EXPECT_THAT(Scrolled(), IsEmpty()) << step << " of " << model.nodes.size() << " nodes";
    }
  }
}

TEST_F(WorkingFormTest, ScrollsNothingOfItWhileItAsks) {
  SetModel(FourNodesThreeBars());
  Find<QCheckBox>("chkTryIt").click();
  for (const char* step : {"btnAddMember", "btnRestrict"}) {
    Click(step);
    Click("btnHint");
    SettleLayout();
    EXPECT_THAT(Scrolled(), IsEmpty()) << step;
  }
  while (CurrentQuestion() != nullptr) Click("btnHint");
  Click("btnAddMember");
  while (CurrentQuestion() != nullptr) Click("btnHint");
  SettleLayout();
  EXPECT_THAT(Pane(), HasSubstr("Member 2"));
  EXPECT_THAT(Scrolled(), IsEmpty());
}

TEST_F(WorkingFormTest, HasItsButtonsInOneRowWhenWideAndInTwoOtherwise) {
  const auto rows = [this] {
    std::set<int> places;
    for (const char* name : {"btnShowForces", "btnAddMember", "btnShowGlobalK", "btnRestrict", "btnSolve",
                             "btnMemberForces", "btnReactions", "btnStepBack"}) {
      places.insert(Find<QPushButton>(name).y());
    }
    return places.size();
  };
  EXPECT_EQ(rows(), 1U);
  Find<QWidget>("frmEquations").parentWidget()->showNormal();
  SettleLayout();
  EXPECT_EQ(rows(), 2U);
}

TEST_F(WorkingFormTest, StandsInPlaceOfTheGridsInASmallWindow) {
  Find<QWidget>("frmEquations").parentWidget()->showNormal();
  SetModel(Triangle());
  Click("btnShowGlobalK");
  SettleLayout();
  auto& working = Find<QCheckBox>("chkWorking");
  EXPECT_TRUE(working.isVisible());
  EXPECT_TRUE(View("grK").isVisible());
  working.click();
  EXPECT_FALSE(View("grK").isVisible());
  EXPECT_THAT(Pane(), HasSubstr("K is the sum of the matrices of all members (3)"));
  working.click();
  EXPECT_TRUE(View("grK").isVisible());
  Click("btnRestrict");
  Click("btnSolve");
  Click("btnMemberForces");
  EXPECT_FALSE(View("grK").isVisible()) << "what this step finds stands in the pane alone";
  EXPECT_THAT(Pane(), HasSubstr("f1 = "));
  Click("btnStepBack");
  EXPECT_TRUE(View("grK").isVisible());
}

TEST_F(WorkingFormTest, RemembersWhereTheBarStands) {
  SetModel(Triangle());
  Click("btnShowGlobalK");
  SettleLayout();
  auto& split = Find<QSplitter>("splWorking");
  QWidget& bar = *split.handle(1);
  const int before = split.sizes().front();
  const QPointF grip = bar.rect().center();
  const QPointF to = grip + QPointF(60, 0);
  QTest::mousePress(&bar, Qt::LeftButton, {}, grip.toPoint());
  QMouseEvent move(QEvent::MouseMove, to, bar.mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&bar, &move);
  QTest::mouseRelease(&bar, Qt::LeftButton, {}, grip.toPoint());
  const QList<int> moved = split.sizes();
  ASSERT_GT(moved.front(), before + 30);
  Click("btnAddMember");
  EXPECT_EQ(split.sizes(), moved) << "the next step leaves it there";
  const QSize size = split.size();

  StartNextRun();
  TheWorkingPlace = {};
  frame->RestorePlace();
  frame->ActivateEquations();
  Find<QWidget>("frmEquations").parentWidget()->showMaximized();
  SettleLayout();
  Find<QSplitter>("splWorking").resize(size);

  EXPECT_NEAR(Find<QSplitter>("splWorking").sizes().front(), moved.front(), 2);
}

TEST_F(WorkingFormTest, FitsTheColumnsOfKToTheirNumbers) {
  SetModel(FourNodesThreeBars());
  Click("btnShowGlobalK");
  const QTableView& K = View("grK");
  for (int column = 0; column < 8; ++column) {
    int widest = K.fontMetrics().horizontalAdvance("3 x");
    for (int row = 0; row < 8; ++row) {
      widest = std::max(widest, K.fontMetrics().horizontalAdvance(K.model()->index(row, column).data().toString()));
    }
    EXPECT_GE(K.columnWidth(column), widest) << column;
    EXPECT_LE(K.columnWidth(column), widest + 20) << column;
  }
  SetModel(PrattTruss(40));
  Click("btnShowGlobalK");
  EXPECT_EQ(K.columnWidth(0), K.horizontalHeader()->defaultSectionSize()) << "of a large truss all are alike";
}

// What the pane says where there is little to show.

TEST_F(WorkingFormTest, SaysWhatItShowsAndWhyNoMore) {
  EXPECT_THAT(Pane(), HasSubstr("There is no model yet"));
  SetModel(Square());
  for (const char* step : {"btnShowGlobalK", "btnRestrict", "btnSolve"}) Click(step);
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_THAT(Pane(), HasSubstr("K D = P has no single solution"));
  EXPECT_THAT(Pane(), HasSubstr("too small: nothing resists this motion"));
  EXPECT_FALSE(Find<QPushButton>("btnMemberForces").isEnabled());
}

TEST_F(WorkingFormTest, SaysThatAMemberIsIgnored) {
  ModelData model = Triangle();
  model.members[1].E = -200;
  SetModel(model);
  Click("btnAddMember");
  Click("btnAddMember");
  TakeMessages();
  EXPECT_THAT(Pane(), HasSubstr("Member 2 is ignored"));
  EXPECT_THAT(Pane(), HasSubstr("Member 2 was ignored, so the matrix of member 1 was added once more"));
}

TEST_F(WorkingFormTest, ShowsPrestressAndNumbersWithoutAValue) {
  SetModel({{{0, 0, 0, 0, 3}, {1, 0, 3, 0, 1}}, {{1, 2, 200, 1000, 5}}});
  Click("btnShowForces");
  EXPECT_THAT(Pane(), HasSubstr("(prestress)"));
  SetModel({{{0, 0, 0, 0, 3}, {1, 0, 0, 0, 1}}, {{1, 2, 3e38F, 3e38F}}});
  Click("btnAddMember");
  EXPECT_THAT(Pane(), HasSubstr("Some of these numbers have no value"));
}

TEST_F(WorkingFormTest, ListsAFewOfFiveHundredMembers) {
  SetModel(PrattTruss(252));
  for (const char* step : {"btnShowGlobalK", "btnRestrict", "btnSolve", "btnMemberForces"}) Click(step);
  EXPECT_THAT(Pane(), HasSubstr("The first 40 of 501 members are listed here"));
}

} // namespace
} // namespace strutwright
