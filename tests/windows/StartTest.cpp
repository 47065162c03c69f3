#include "FormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "modModelStore.h"

#include <QMenuBar>
#include <QSpinBox>
#include <QToolBar>

namespace strutwright {
namespace {

using testing::ElementsAre;

using StartFormTest = FormTest;

std::vector<std::string> Titles(const QMenuBar& bar) {
  std::vector<std::string> titles;
  for (const QAction* action : bar.actions()) titles.push_back(action->text().remove('&').toStdString());
  return titles;
}

TEST_F(StartFormTest, BeginsWithAnEmptyModelAndTheStartValues) {
  EXPECT_EQ(frame->windowTitle(), "Strutwright");
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(MemberCount, 0);
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_EQ(DeflectionScale, 100.0F);
  EXPECT_EQ(LoadsScale, 10.0F);
  EXPECT_EQ(GrJoints.RowCount(), 21);
  EXPECT_EQ(GrMembers.RowCount(), 21);
  EXPECT_EQ(jResGr.RowCount(), 2);
  EXPECT_EQ(mResGr.RowCount(), 2);
}

TEST_F(StartFormTest, ShowsNoAnalysisInTheStatusBar) { EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis"); }

TEST_F(StartFormTest, FramesTheStartView) {
  ASSERT_NE(DisplaySurface, nullptr);
  const ViewWindow view = DisplaySurface->Window();
  EXPECT_NEAR(view.left + view.width / 2, 4.5, 1e-4);
  EXPECT_NEAR(view.top + view.height / 2, -1.5, 1e-4);
  EXPECT_GE(view.width, 11 * 1.4F * 0.999F);
  EXPECT_GE(view.height, 3 * 1.4F * 0.999F);
}

TEST_F(StartFormTest, LeavesTheSpinnersAtTheirStart) {
  EXPECT_EQ(Find<QSpinBox>("udDeflectionScale").value(), 500);
  EXPECT_EQ(Find<QSpinBox>("udLoadsScale").value(), 500);
  EXPECT_EQ(LabelText("lblDeflectionScale"), "100 mm/mm");
  EXPECT_EQ(LabelText("lblLoadsScale"), "10 kN/m");
}

TEST_F(StartFormTest, ShowsTheMenusOfTheActiveChild) {
  EXPECT_THAT(Titles(*frame->menuBar()), ElementsAre("File", "Edit", "Drawing", "View", "Analysis", "Tools", "Help"));
  frame->ActivateEquations();
  EXPECT_THAT(Titles(*frame->menuBar()), ElementsAre("File", "Edit", "View", "Analysis", "Help"));
  frame->ActivateDisplay();
  EXPECT_EQ(Titles(*frame->menuBar()).size(), 7U);
}

TEST_F(StartFormTest, HasTenToolBarPlacesWithTheirToolTips) {
  std::vector<std::string> places;
  for (const QAction* action : Find<QToolBar>("Toolbar1").actions()) {
    places.push_back(action->isSeparator() ? "-" : action->toolTip().toStdString());
  }
  EXPECT_THAT(places, ElementsAre("New File", "Open File", "Save File", "-", "Bracefold", "Run Analysis",
                                  "Save Truss Display as Picture", "Options Box", "-", "About"));
}

TEST_F(StartFormTest, RefusesToCloseEitherChild) {
  for (const char* child : {"frmGraph", "frmEquations"}) {
    QWidget& window = Find<QWidget>(child);
    EXPECT_FALSE(window.parentWidget()->close()) << child;
    EXPECT_TRUE(window.isVisible()) << child;
    EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Critical, "Window cannot be closed"))) << child;
  }
}

TEST_F(StartFormTest, ClosesTheFrameWithoutAWord) {
  EXPECT_TRUE(frame->close());
  EXPECT_TRUE(frame->IsEnding());
}

TEST_F(StartFormTest, NamesEveryControlForPeople) {
  for (const QWidget* control : frame->findChildren<QWidget*>()) {
    const bool input = control->focusPolicy() != Qt::NoFocus && !control->objectName().startsWith("qt_");
    if (!input || control->objectName().isEmpty()) continue;
    const bool named = !control->accessibleName().isEmpty() || !control->property("text").toString().isEmpty();
    EXPECT_TRUE(named) << control->objectName().toStdString();
  }
}

} // namespace
} // namespace strutwright
