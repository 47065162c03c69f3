#include "FormFixture.h"

#include "PathSpelling.h"

#include <filesystem>

#include <QMenu>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::StartsWith;

/// The Help menu of both windows, with a manual that lies where an installed program finds it.
class HelpMenuTest : public FormTest {
 protected:
  HelpMenuTest() {
    ThePlatform().programFolder = folder.Path("bin");
    fs::create_directories(folder.Path("bin"));
    fs::create_directories(manual);
    for (const char* page : {"index", "signs", "keys"}) PutFile(Page(page), "<html></html>");
  }

  std::string Page(const std::string& name) const { return NativePath(manual + "/" + name + ".html"); }

  /// Opens the Help menu of a child window and types the keys that lead to an entry.
  void Choose(const QString& child, const QString& keys) {
    auto* help = Find<QWidget>(child).findChild<QMenu*>("mnuHelp");
    ASSERT_NE(help, nullptr);
    help->popup({0, 0});
    QTest::keyClicks(help, keys);
    EXPECT_FALSE(help->isVisible());
  }

  std::string manual = folder.Path("share/doc/strutwright/manual");
};

TEST_F(HelpMenuTest, OpensThePagesOfTheManual) {
  for (const char* key : {"m", "u", "k"}) Choose("frmGraph", key);
  EXPECT_THAT(shell.opened, ElementsAre(Page("index"), Page("signs"), Page("keys")));
}

TEST_F(HelpMenuTest, OpensThemFromTheEquationsToo) {
  frame->ActivateEquations();
  for (const char* key : {"m", "u", "k"}) Choose("frmEquations", key);
  EXPECT_THAT(shell.opened, ElementsAre(Page("index"), Page("signs"), Page("keys")));
}

TEST_F(HelpMenuTest, NamesItsEntries) {
  EXPECT_EQ(Command("mnuManual").text(), "User &Manual");
  EXPECT_EQ(Command("mnuSigns").text(), "Sign Conventions and &Units");
  EXPECT_EQ(Command("mnuKeys").text(), "&Keyboard Shortcuts");
}

TEST_F(HelpMenuTest, SaysThatAManualIsMissing) {
  fs::remove_all(manual);
  Choose("frmGraph", "m");
  EXPECT_TRUE(shell.opened.empty());
  const std::vector<Message> boxes = TakeMessages();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].icon, MessageIcon::Information);
  EXPECT_THAT(boxes[0].text, StartsWith("The manual is not installed with this copy of the program.\n"));
}

} // namespace
} // namespace strutwright
