#include "DisplayState.h"
#include "FileState.h"
#include "FormFixture.h"
#include "PathSpelling.h"
#include "RecentFiles.h"
#include "modModelStore.h"

#include <filesystem>

#include <QLineEdit>
#include <QMenu>

namespace strutwright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// The recent files as both File menus show them.
class RecentFilesFormTest : public FormTest {
 protected:
  /// Saves the three-bar truss under a name in the scratch folder.
  std::string Model(const std::string& name) {
    EnterThreeBarTruss();
    dialog.WillChoose(folder.Path(name));
    Command("mnuSaveAs").trigger();
    return folder.Path(name);
  }

  void Open(const std::string& path) {
    dialog.WillChoose(path);
    Command("mnuOpen").trigger();
  }

  QMenu& FileMenu(const QString& child) { return *Find<QWidget>(child).findChild<QMenu*>("mnuFile"); }

  /// The full paths behind the entries that a File menu shows.
  std::vector<std::string> Paths(const QString& child = "frmGraph") {
    std::vector<std::string> paths;
    for (const QAction* action : FileMenu(child).actions()) {
      if (!action->objectName().startsWith("mnuRUF_") || !action->isVisible()) continue;
      paths.push_back(action->data().toString().toStdString());
    }
    return paths;
  }
};

TEST_F(RecentFilesFormTest, ShowsNoEntryBeforeAFileWasOpened) {
  EXPECT_THAT(Paths(), IsEmpty());
  EXPECT_FALSE(Command("mnuRUF_1").isVisible());
}

TEST_F(RecentFilesFormTest, ListsAnOpenedFileInBothMenus) {
  const std::string path = Model("bridge.stw");
  EXPECT_THAT(Paths(), IsEmpty()) << "saving lists nothing";
  Open(path);
  EXPECT_THAT(Paths("frmGraph"), ElementsAre(path));
  EXPECT_THAT(Paths("frmEquations"), ElementsAre(path));
  EXPECT_TRUE(Command("mnuBar4").isVisible());
}

TEST_F(RecentFilesFormTest, ListsTheFileThatTheProgramIsStartedOn) {
  const std::string path = Model("bridge.stw");
  StartNextRun();
  frame->OpenModel(path);
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(CurrentFileName, path);
  EXPECT_EQ(frame->windowTitle(), "bridge.stw");
  EXPECT_EQ(GridCapacity, 20);
  EXPECT_THAT(Paths(), Contains(path));
  Command("mnuUndo").trigger();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(frame->windowTitle(), "Strutwright");
}

TEST_F(RecentFilesFormTest, SaysThatTheFileThatTheProgramIsStartedOnCanNotBeOpened) {
  const std::string path = folder.Path("missing.stw");
  frame->OpenModel(path);
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::None, "Unkown error while opening file " + path)));
  EXPECT_EQ(CurrentFileName, "");
  EXPECT_EQ(frame->windowTitle(), "Strutwright");
  EXPECT_THAT(Paths(), IsEmpty());
}

TEST_F(RecentFilesFormTest, StandsBetweenItsSeparatorsAboveExit) {
  Open(Model("a.stw"));
  Open(Model("b.stw"));
  QStringList names;
  for (const QAction* action : FileMenu("frmGraph").actions()) {
    if (!action->objectName().isEmpty()) names << action->objectName();
  }
  EXPECT_EQ(names.mid(names.indexOf("mnuSaveAs")).join(' ').toStdString(),
            "mnuSaveAs mnuBar3 mnuRUF_1 mnuRUF_2 mnuBar4 mnuExit");
}

TEST_F(RecentFilesFormTest, ShowsTheCaptionWithItsKeyAndTheWholePathAsToolTip) {
  std::filesystem::create_directories(folder.Path("a & b"));
  const std::string path = Model("a & b/bridge & tunnel, long.stw");
  Open(path);
  EXPECT_EQ(Command("mnuRUF_1").text().toStdString(), "&1   ..." + NativePath("/bridge && tunnel, long.stw"));
  EXPECT_EQ(Command("mnuRUF_1").toolTip().toStdString(), path);
  EXPECT_EQ(mnuRUF[0].caption, "&1   ..." + NativePath("/bridge & tunnel, long.stw"));
}

TEST_F(RecentFilesFormTest, OpensTheChosenEntryByKeyboard) {
  const std::string path = Model("bridge.stw");
  Open(path);
  Command("mnuNew").trigger();
  QMenu& menu = FileMenu("frmGraph");
  menu.popup({0, 0});
  QTest::keyClick(&menu, Qt::Key_1);
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(CurrentFileName, path);
  EXPECT_EQ(frame->windowTitle(), "bridge.stw");
}

TEST_F(RecentFilesFormTest, OpensAnEntryFromTheEquationsWindow) {
  const std::string first = Model("a.stw");
  const std::string second = Model("b.stw");
  Open(first);
  Open(second);
  Find<QWidget>("frmEquations").findChild<QAction*>("mnuRUF_2")->trigger();
  EXPECT_EQ(CurrentFileName, first);
  EXPECT_THAT(Paths("frmGraph"), ElementsAre(first, second));
  EXPECT_THAT(Paths("frmEquations"), ElementsAre(first, second));
}

TEST_F(RecentFilesFormTest, OpensAnEntryAsAStepThatCanBeUndone) {
  const std::string path = Model("bridge.stw");
  Open(path);
  Command("mnuNew").trigger();
  Command("mnuRUF_1").trigger();
  Command("mnuUndo").trigger();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(frame->windowTitle(), "newTruss.stw");
}

TEST_F(RecentFilesFormTest, SaysThatAFileHasGone) {
  const std::string path = Model("bridge.stw");
  Open(path);
  std::filesystem::remove(path);
  Command("mnuRUF_1").trigger();
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::None, "Unkown error while opening file " + path)));
  EXPECT_EQ(CurrentFileName, "");
}

TEST_F(RecentFilesFormTest, SurvivesTheEndOfTheProgram) {
  const std::string path = Model("bridge.stw");
  Open(path);
  StartNextRun();
  EXPECT_THAT(Paths("frmGraph"), ElementsAre(path));
  EXPECT_THAT(Paths("frmEquations"), ElementsAre(path));
  EXPECT_TRUE(Command("mnuBar3").isVisible());
  EXPECT_FALSE(Command("mnuBar4").isVisible());
}

TEST_F(RecentFilesFormTest, OffersNoEntryWithoutAPath) {
  settings.texts["Config/noRUF"] = "2";
  StartNextRun();
  EXPECT_TRUE(Command("mnuRUF_1").isEnabled());
  EXPECT_FALSE(Command("mnuRUF_2").isEnabled());
}

TEST_F(RecentFilesFormTest, RemovesTheChosenEntryItselfWhereTheLimitWasLowered) {
  const std::string first = Model("a.stw");
  Open(first);
  Open(Model("b.stw"));
  TheRecentFiles.txtMaxFiles = "1";
  Command("mnuRUF_2").trigger();
  EXPECT_THAT(Paths(), ElementsAre(first));
  EXPECT_EQ(Find<QWidget>("frmGraph").findChild<QAction*>("mnuRUF_2"), nullptr);
}

/// Notes what is on screen under a box.
class WatchfulBoxes : public FakeMessageBoxes {
 public:
  explicit WatchfulBoxes(const std::unique_ptr<frmMain>& window) : Window(window) {}
  void Show(const Message& message) override {
    FakeMessageBoxes::Show(message);
    frameIsVisible = Window->isVisible();
    displayIsVisible = Window->findChild<QWidget*>("frmGraph")->isVisible();
  }

  bool frameIsVisible = false;
  bool displayIsVisible = false;

 private:
  const std::unique_ptr<frmMain>& Window;
};

TEST_F(RecentFilesFormTest, WelcomesTheUserOverTheShownFrame) {
  WatchfulBoxes watchful(frame);
  ThePlatform().messages = &watchful;
  settings.texts.clear();
  StartNextRun();
  EXPECT_EQ(watchful.shown.size(), 1U);
  EXPECT_TRUE(watchful.frameIsVisible);
  EXPECT_TRUE(watchful.displayIsVisible);
}

TEST_F(RecentFilesFormTest, StartsWithTheScalesAndOptionsOfTheDesign) {
  GridSpacingX = 7;
  DeflectionScale = 7;
  StartNextRun();
  EXPECT_EQ(GridSpacingX, 1.0F);
  EXPECT_EQ(DeflectionScale, 100.0F);
}

TEST_F(RecentFilesFormTest, WelcomesTheUserOfAFreshHomeUntilAFileWasOpened) {
  settings.texts.clear();
  StartNextRun();
  const auto shown = TakeMessages();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_THAT(shown[0].text, testing::StartsWith("Welcome to Strutwright.\n"));
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "3");
  StartNextRun();
  EXPECT_EQ(TakeMessages().size(), 1U) << "as long as nothing was opened";
  Open(Model("bridge.stw"));
  StartNextRun();
  EXPECT_EQ(Paths().size(), 1U);
}

} // namespace
} // namespace strutwright
