#include "FormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "FileState.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <filesystem>
#include <fstream>

#include <QImage>
#include <QMenu>
#include <QToolBar>

namespace strutwright {
namespace {

using testing::ElementsAre;

class FileFormTest : public FormTest {
 protected:
  void Tool(int place) { Find<QToolBar>("Toolbar1").actions().at(place - 1)->trigger(); }
};

TEST_F(FileFormTest, SavesAndOpensAgain) {
  EnterThreeBarTruss();
  dialog.WillChoose(folder.Path("bridge.stw"));
  Command("mnuSaveAs").trigger();
  EXPECT_EQ(frame->windowTitle(), "bridge.stw");
  Command("mnuNew").trigger();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(GrJoints.RowCount(), 1);
  dialog.WillChoose(folder.Path("bridge.stw"));
  Command("mnuOpen").trigger();
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(GrJoints.RowCount(), 4);
  EXPECT_EQ(frame->windowTitle(), "bridge.stw");
  frame->runAnalysis();
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(FileFormTest, ShowsAnOpenedModelWithoutTheOldResults) {
  EnterThreeBarTruss();
  dialog.WillChoose(folder.Path("bridge.stw"));
  Command("mnuSave").trigger();
  frame->runAnalysis();
  DeflectionScale = 300;
  dialog.WillChoose(folder.Path("bridge.stw"));
  Command("mnuOpen").trigger();
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_EQ(Ink(Qt::blue), 0);
  EXPECT_EQ(LabelText("lblDeflectionScale"), "100 mm/mm");
  EXPECT_EQ(LabelText("lblLoadsScale"), "10.0 kN/m");
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
}

TEST_F(FileFormTest, KeepsTheCapacityOnTheToolBarsOpenAndNew) {
  dialog.WillCancel();
  Tool(2);
  EXPECT_EQ(GridCapacity, 20);
  Tool(1);
  EXPECT_EQ(GridCapacity, 20);
  EXPECT_EQ(GrJoints.RowCount(), 21);
  EXPECT_EQ(frame->windowTitle(), "newTruss.stw");
}

TEST_F(FileFormTest, SetsTheCapacityToZeroOnTheMenusOpenAndGoesOnWhenItIsCancelled) {
  dialog.WillCancel();
  Command("mnuOpen").trigger();
  EXPECT_EQ(GridCapacity, 0);
  EnterThreeBarTruss();
  frame->runAnalysis();
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(FileFormTest, NumbersEveryRowOfANewModel) {
  EnterThreeBarTruss();
  dialog.WillChoose(folder.Path("bridge.stw"));
  Command("mnuSaveAs").trigger();
  dialog.WillChoose(folder.Path("bridge.stw"));
  Tool(2);
  Tool(1);
  EXPECT_EQ(GrJoints.Text(20, 0), "20");
  EXPECT_EQ(GrMembers.Text(20, 0), "20");
}

TEST_F(FileFormTest, SavesRightAfterNewBesideTheProgram) {
  Command("mnuNew").trigger();
  Tool(3);
  EXPECT_TRUE(std::filesystem::exists(folder.Path("newTruss.stw")));
}

TEST_F(FileFormTest, RefusesAFileThatIsNoneAndKeepsTheModel) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  std::ofstream(folder.Path("notes.stw")) << "\xff\xff\xff\xff\xff\xff no model";
  dialog.WillChoose(folder.Path("notes.stw"));
  Command("mnuOpen").trigger();
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::None, "Unkown error while opening file " + folder.Path("notes.stw"))));
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(GrJoints.Text(2, 1), "4");
  EXPECT_EQ(CurrentFileName, "");
}

TEST_F(FileFormTest, SavesThePictureThatIsOnScreen) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  dialog.WillChoose(folder.Path("truss.bmp"));
  Tool(7);
  const QImage picture(QString::fromStdString(folder.Path("truss.bmp")));
  EXPECT_EQ(picture.size(), Find<QWidget>("Disp").size());
}

TEST_F(FileFormTest, TakesTheGridsInBeforeItSaves) {
  ClickCell(View("GrJoints"), 1, 1);
  Type("7");
  dialog.WillChoose(folder.Path("one.stw"));
  Command("mnuSave").trigger();
  EXPECT_EQ(NodeCount, 1);
  EXPECT_EQ(std::filesystem::file_size(folder.Path("one.stw")), 6U + 2U * 6U * 4U + 10U * 4U);
}

TEST_F(FileFormTest, DrawsCoordinatesOfAnySizeWithoutHanging) {
  EnterThreeBarTruss();
  GrJoints.SetText(2, 1, "1E+30");
  GrJoints.SetText(3, 2, "-1E+30");
  Command("mnuRefresh").trigger();
  Command("mnuZoomExtents").trigger();
  GridSpacingX = 1e-6F;
  Command("mnuRefresh").trigger();
  EXPECT_THAT(TakeMessages(), testing::IsEmpty());

  GrJoints.SetText(2, 1, "4");
  GrJoints.SetText(3, 2, "3");
  Command("mnuZoomExtents").trigger();
  EXPECT_GT(Ink(Qt::black), 0);
}

TEST_F(FileFormTest, OpensMoreNodesThanAnAnalysisTakes) {
  for (const std::int16_t nodes : {std::int16_t{16384}, std::int16_t{32767}}) {
    NodeCount = nodes;
    NodeTable.Recreate(nodes);
    for (int n = 1; n <= nodes; ++n) NodeTable(n, NodeX) = static_cast<float>(n);
    PutFile(folder.Path("long.stw"), WriteModel());
    dialog.WillChoose(folder.Path("long.stw"));
    Command("mnuOpen").trigger();
    EXPECT_EQ(GrJoints.RowCount(), nodes + 1);
    EXPECT_EQ(frame->windowTitle(), "long.stw");

    frame->runAnalysis();

    EXPECT_THAT(TakeMessages(),
                ElementsAre(Box(MessageIcon::Critical, "The model has " + std::to_string(nodes) +
                                                           " nodes, but at most 16383 can be analysed.\n"
                                                           "Remove nodes and run the analysis again.")));
    EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
  }
}

TEST_F(FileFormTest, ListsTheExamplesThatLieBesideTheProgramAsACourse) {
  std::filesystem::copy(EXAMPLES_DIR, folder.Path("examples"));
  auto* menu = Find<QWidget>("frmGraph").findChild<QMenu*>("mnuFile");
  ASSERT_NE(menu, nullptr);
  emit menu->aboutToShow();
  QAction& first = Command("mnuExample_1");
  EXPECT_EQ(first.text(), "First truss, three bars");
  EXPECT_THAT(first.toolTip().toStdString(), testing::HasSubstr("pencil and paper"));
  EXPECT_EQ(Command("mnuExample_6").text(), "Fink roof, 9 m");
  EXPECT_EQ(Command("mnuExample_6").toolTip().left(7), "Rafters");
  first.trigger();
  EXPECT_GT(NodeCount, 0);
  EXPECT_EQ(frame->windowTitle(), "first_truss.stw");
  EXPECT_EQ(CurrentFileName, "");
}

} // namespace
} // namespace strutwright
