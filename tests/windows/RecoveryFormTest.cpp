#include "FormFixture.h"

#include "FileState.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <filesystem>

#include <QMenu>
#include <QPushButton>
#include <QTimer>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

/// What the window does to keep the model; the next run is the same process with another window.
class RecoveryFormTest : public FormTest {
 protected:
  QTimer& Timer() { return Find<QTimer>("RecoveryTimer"); }
  bool IsKept() const { return fs::exists(kept); }
  void GenerateElevenNodes() { Find<QPushButton>("nLineBtn").click(); }

  /// Lets the seconds go by that the timer waits for; false where it does not run.
  bool LetTimerFire() {
    if (!Timer().isActive()) return false;
    Timer().setInterval(0);
    return QTest::qWaitFor([this] { return !Timer().isActive(); });
  }

  /// Opens the File menu of a child window; whether its entry can be chosen.
  bool IsOffered(const QString& child) {
    auto& window = Find<QWidget>(child);
    emit window.findChild<QMenu*>("mnuFile")->aboutToShow();
    return window.findChild<QAction*>("mnuRestore")->isEnabled();
  }

  std::string kept = folder.Path("data/unsaved-1.stw");
};

TEST_F(RecoveryFormTest, KeepsAChangeThreeSecondsLater) {
  GenerateElevenNodes();
  EXPECT_EQ(Timer().interval(), 3000);
  EXPECT_TRUE(Timer().isSingleShot());
  EXPECT_FALSE(IsKept());
  EXPECT_TRUE(LetTimerFire());
  EXPECT_EQ(LoadModelFile(kept).nodeCount, 11);
}

TEST_F(RecoveryFormTest, DoesNotPutTheTimeOffWithEveryChange) {
  GenerateElevenNodes();
  Timer().setInterval(100000);
  const int id = Timer().timerId();
  GenerateElevenNodes();
  EXPECT_EQ(Timer().timerId(), id);
}

TEST_F(RecoveryFormTest, KeepsACellEdit) {
  ClickCell(View("GrJoints"), 1, 1);
  Type("7");
  Press(Qt::Key_Return);
  EXPECT_TRUE(LetTimerFire());
  EXPECT_EQ(LoadModelFile(kept).nodes(1, NodeX), 7.0F);
}

TEST_F(RecoveryFormTest, KeepsNothingAfterTheLastUndo) {
  GenerateElevenNodes();
  EXPECT_TRUE(LetTimerFire());
  Command("mnuUndo").trigger();
  EXPECT_TRUE(LetTimerFire());
  EXPECT_FALSE(IsKept());
}

TEST_F(RecoveryFormTest, KeepsNothingAfterASave) {
  GenerateElevenNodes();
  EXPECT_TRUE(LetTimerFire());
  dialog.WillChoose(folder.Path("line.stw"));
  Command("mnuSave").trigger();
  EXPECT_TRUE(LetTimerFire());
  EXPECT_FALSE(IsKept());
}

TEST_F(RecoveryFormTest, KeepsTheModelAtTheEndAtOnceAndAsksNothing) {
  GenerateElevenNodes();
  frame->close();
  EXPECT_EQ(LoadModelFile(kept).nodeCount, 11);
  EXPECT_FALSE(Timer().isActive());
}

TEST_F(RecoveryFormTest, KeepsWhatStandsInTheEditBoxAtTheEnd) {
  ClickCell(View("GrJoints"), 1, 1);
  Type("7");
  frame->close();
  EXPECT_EQ(LoadModelFile(kept).nodes(1, NodeX), 7.0F);
}

/// A box that stays open long enough for the timer.
class LongBox : public FakeMessageBoxes {
 public:
  explicit LongBox(QTimer& timer) : Timer(timer) {}

  void Show(const Message& message) override {
    FakeMessageBoxes::Show(message);
    Timer.start(0);
    QCoreApplication::processEvents();
    waited = Timer.isActive();
  }

  bool waited = false;

 private:
  QTimer& Timer;
};

TEST_F(RecoveryFormTest, WaitsWhileABoxIsOpen) {
  EnterThreeBarTruss();
  LongBox box(Timer());
  ThePlatform().messages = &box;
  ShowMessage(MessageIcon::Information, "half-way");
  ThePlatform().messages = &messages;
  EXPECT_TRUE(box.waited);
  EXPECT_FALSE(IsKept());
  EXPECT_TRUE(LetTimerFire());
  EXPECT_TRUE(IsKept());
}

TEST_F(RecoveryFormTest, OffersAndSaysNothingWhereNothingWasLeft) {
  EXPECT_FALSE(Command("mnuRestore").isEnabled());
  EXPECT_EQ(Command("mnuRestore").text(), "&Restore Unsaved Model");
  StartNextRun();
  EXPECT_FALSE(Command("mnuRestore").isEnabled());
  EXPECT_FALSE(IsOffered("frmGraph"));
  EXPECT_FALSE(IsOffered("frmEquations"));
  EXPECT_EQ(LabelText("stsBar_Hint"), "");
}

TEST_F(RecoveryFormTest, OffersWhatTheLastRunLeftInBothChildren) {
  GenerateElevenNodes();
  StartNextRun();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_TRUE(Command("mnuRestore").isEnabled());
  EXPECT_TRUE(IsOffered("frmGraph"));
  EXPECT_TRUE(IsOffered("frmEquations"));
  EXPECT_EQ(LabelText("stsBar_Hint"), "A model was left unsaved: File > Restore Unsaved Model brings it back");
}

TEST_F(RecoveryFormTest, RestoresAsOneStepThatCanBeUndone) {
  GenerateElevenNodes();
  StartNextRun();
  Command("mnuRestore").trigger();
  EXPECT_EQ(NodeCount, 11);
  EXPECT_EQ(frame->windowTitle(), "Restored model");
  EXPECT_FALSE(IsOffered("frmGraph"));
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Restore");
  Command("mnuUndo").trigger();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(frame->windowTitle(), "Strutwright");
}

TEST_F(RecoveryFormTest, SavesARestoredModelUnderANameThatItAsksFor) {
  GenerateElevenNodes();
  StartNextRun();
  Command("mnuRestore").trigger();
  dialog.WillChoose(folder.Path("line.stw"));
  Command("mnuSave").trigger();
  EXPECT_EQ(LoadModelFile(folder.Path("line.stw")).nodeCount, 11);
  StartNextRun();
  EXPECT_FALSE(Command("mnuRestore").isEnabled());
}

TEST_F(RecoveryFormTest, ShowsTheMessageOfOpenForADamagedFile) {
  GenerateElevenNodes();
  StartNextRun();
  PutFile(kept, "no");
  Command("mnuRestore").trigger();
  EXPECT_EQ(TakeMessages(), std::vector{Box(MessageIcon::None, "Unkown error while opening file " + kept)});
  EXPECT_EQ(frame->windowTitle(), "Strutwright");
  EXPECT_FALSE(IsOffered("frmGraph"));
}

TEST_F(RecoveryFormTest, GoesOnWhereTheDataFolderCanNotBeMade) {
  PutFile(folder.Path("file"), "");
  ThePlatform().dataFolder = folder.Path("file/strutwright");
  GenerateElevenNodes();
  EXPECT_TRUE(LetTimerFire());
  EXPECT_FALSE(IsOffered("frmGraph"));
  frame->close();
  EXPECT_EQ(NodeCount, 11);
}

} // namespace
} // namespace strutwright
