#include "FormFixture.h"
#include "FromEnvironment.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "WorkbenchState.h"
#include "modModelStore.h"

#include <array>
#include <optional>
#include <random>

#include <QAbstractButton>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>

namespace strutwright {
namespace {

/// Answers boxes and dialogs at random.
class RandomAnswers : public MessageBoxes, public FileDialog {
 public:
  explicit RandomAnswers(std::mt19937& random, const ScratchFolder& scratch) : Random(random), Scratch(scratch) {}
  void Show(const Message& /*message*/) override {}
  bool Ask(const Message& /*question*/) override { return Random() % 2 == 0; }
  std::optional<std::string> Ask(FileDialogKind /*kind*/, const FileQuestion& /*question*/) override {
    if (Random() % 3 == 0) return std::nullopt;
    return Scratch.Path("model" + std::to_string(Random() % 4) + ".stw");
  }

 private:
  std::mt19937& Random;
  const ScratchFolder& Scratch;
};

/// A user without a plan: keys, clicks, drags and commands in any order.  STRUTWRIGHT_MONKEY_SEED replays a run,
/// STRUTWRIGHT_MONKEY_EVENTS makes it longer.
class MonkeyTest : public FormTest {
 protected:
  MonkeyTest() {
    ThePlatform().messages = &answers;
    ThePlatform().dialog = &answers;
    // Menus and inspectors that an event opens wait for the user: they are closed, or answered by a key.
    QObject::connect(&patience, &QTimer::timeout, [this] { CloseWhatWaits(); });
    patience.start(1);
  }

  void CloseWhatWaits() {
    QWidget* waiting = QApplication::activePopupWidget();
    if (waiting == nullptr) waiting = QApplication::activeModalWidget();
    if (waiting == nullptr) return;
    if (PatienceChance(3)) QTest::keyClick(waiting, PatienceChance(2) ? Qt::Key_Down : Qt::Key_Return);
    if (PatienceChance(2)) waiting->close();
  }

  bool Chance(unsigned outOf) { return random() % outOf == 0; }
  /// Of its own numbers: how often the timer finds something waiting depends on the machine, what is pressed must not.
  bool PatienceChance(unsigned outOf) { return patienceRandom() % outOf == 0; }

  template <class Values>
  auto& OneOf(Values& values) {
    return values[random() % std::size(values)];
  }

  void DoSomething() {
    switch (random() % 8) {
    case 0:
    case 1: return PressKey();
    case 2: return TypeCell();
    case 3: return ClickControl();
    case 4:
    case 5: return UseMouse();
    case 6: return RunCommand();
    default: return Resize();
    }
  }

  void PressKey() {
    static constexpr std::array keys{Qt::Key_Return, Qt::Key_Escape, Qt::Key_Up,    Qt::Key_Down,  Qt::Key_Left,
                                     Qt::Key_Right,  Qt::Key_Tab,    Qt::Key_Space, Qt::Key_F3,    Qt::Key_F4,
                                     Qt::Key_F5,     Qt::Key_Minus,  Qt::Key_9,     Qt::Key_Delete};
    QTest::keyClick(&Focused(), OneOf(keys), Chance(6) ? Qt::ShiftModifier : Qt::NoModifier);
  }

  void TypeCell() {
    static const std::array<QString, 8> texts{"0", "1", "2", "3", "-10", "200", "x", "1e30"};
    const std::array grids{"GrJoints", "GrMembers"};
    QTableView& view = View(OneOf(grids));
    if (!view.isVisible() || view.model()->rowCount() == 0) return;
    const int rows = std::min(view.model()->rowCount(), 12);
    ClickCell(view, 1 + static_cast<int>(random() % static_cast<unsigned>(rows)), 1 + static_cast<int>(random() % 5));
    Type(OneOf(texts));
    if (!Chance(3)) Press(Qt::Key_Return);
  }

  void ClickControl() {
    static const std::array<QString, 14> names{"viewOpt_0", "viewOpt_1", "viewOpt_2",   "viewOpt_3",   "ReactionsChk",
                                               "DSDchk",    "gridChk",   "animateBtn",  "DBbtn",       "maxCBbtn",
                                               "nLineBtn",  "EABtn",     "nodeLoadBtn", "MbrForcesChk"};
    auto& button = Find<QAbstractButton>(OneOf(names));
    if (button.isVisible()) QTest::mouseClick(&button, Qt::LeftButton);
  }

  void UseMouse() {
    QWidget& area = Find<QWidget>("Disp");
    const auto place = [&] {
      return QPoint(static_cast<int>(random() % static_cast<unsigned>(std::max(area.width(), 1))),
                    static_cast<int>(random() % static_cast<unsigned>(std::max(area.height(), 1))));
    };
    const std::array buttons{Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    const Qt::MouseButton button = OneOf(buttons);
    QTest::mousePress(&area, button, {}, place());
    const QPoint end = place();
    QMouseEvent move(QEvent::MouseMove, end, area.mapToGlobal(end), Qt::NoButton, button, {});
    QCoreApplication::sendEvent(&area, &move);
    if (!Chance(10)) QTest::mouseRelease(&area, button, {}, end);
  }

  void RunCommand() {
    QList<QAction*> commands = frame->findChildren<QAction*>();
    QAction* command = commands[static_cast<qsizetype>(random() % static_cast<unsigned>(commands.size()))];
    if (command->objectName() == "mnuExit" || !command->objectName().startsWith("mnu")) return;
    if (command->isEnabled()) command->trigger();
  }

  void Resize() {
    if (Chance(4)) frame->resize(900 + static_cast<int>(random() % 400), 700 + static_cast<int>(random() % 200));
    clipboard.text = Chance(2) ? "1\t2\r\n3\tx\r\n" : "\"a\"\t\t5\n";
    QCoreApplication::processEvents();
  }

  void CheckInvariants() {
    ASSERT_EQ(NodeTable.Count(), NodeCount);
    ASSERT_EQ(MemberTable.Count(), MemberCount);
    ASSERT_EQ(View("GrJoints").model()->rowCount(), GrJoints.RowCount() - 1);
    ASSERT_EQ(View("mResGr").model()->rowCount(), mResGr.RowCount() - 1);
    ASSERT_GT(DisplaySurface->Window().width, 0.0F);
    const bool done = AnalysisDone != FlagFalse;
    ASSERT_EQ(LabelText("stsBar_Analysis"), done ? "Analysis Done" : "No Analysis");
    if (!done) {
      ASSERT_FALSE(ShowReactions || ShowMemberForces);
    }
  }

  void Play() {
    const unsigned presses = FromEnvironment("STRUTWRIGHT_MONKEY_EVENTS", 1000);
    std::cout << "seed " << seed << ", " << presses << " presses\n";
    for (unsigned event = 1; event <= presses; ++event) {
      SCOPED_TRACE("event " + std::to_string(event) + " of seed " + std::to_string(seed));
      DoSomething();
      CheckInvariants();
      if (HasFailure()) return;
    }
  }

  unsigned seed = FromEnvironment("STRUTWRIGHT_MONKEY_SEED", 20261121);
  std::mt19937 random{seed};
  std::mt19937 patienceRandom{seed};
  RandomAnswers answers{random, folder};
  QTimer patience;
};

TEST_F(MonkeyTest, NeverBreaksTheProgram) { Play(); }

TEST_F(MonkeyTest, NeverBreaksLiveAnalysis) {
  TheLive.mostTime = 1e9; // however slow the machine is
  Command("mnuLive").trigger();
  Play();
}

} // namespace
} // namespace strutwright
