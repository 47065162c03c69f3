#include "QtMessageBoxes.h"

#include "WidgetsFixture.h"

#include <map>

#include <QAbstractButton>
#include <QMessageBox>

namespace strutwright {
namespace {

class QtMessageBoxesTest : public WidgetsTest {
 protected:
  /// The answer to a question that the user closes with one key.
  bool AnswerTo(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    WhenShown<QMessageBox>([=](QMessageBox& box) { QTest::keyClick(box.focusWidget(), key, modifiers); });
    return boxes.Ask({MessageIcon::Question, ProgramTitle, "Do you want to delete node 2?"});
  }

  QtMessageBoxes boxes;
};

TEST_F(QtMessageBoxesTest, ShowsTitleAndTextWithOneButton) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Strutwright");
    EXPECT_EQ(box.text(), "No nodes found\nin the model");
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    EXPECT_TRUE(box.isModal());
    box.button(QMessageBox::Ok)->click();
  });
  boxes.Show({MessageIcon::None, ProgramTitle, "No nodes found\nin the model"});
}

TEST_F(QtMessageBoxesTest, ShowsEachIcon) {
  const std::map<MessageIcon, QMessageBox::Icon> icons{{MessageIcon::None, QMessageBox::NoIcon},
                                                       {MessageIcon::Information, QMessageBox::Information},
                                                       {MessageIcon::Question, QMessageBox::Question},
                                                       {MessageIcon::Exclamation, QMessageBox::Warning},
                                                       {MessageIcon::Critical, QMessageBox::Critical}};
  for (const auto& [icon, expected] : icons) {
    WhenShown<QMessageBox>([expected = expected](QMessageBox& box) {
      EXPECT_EQ(box.icon(), expected);
      box.accept();
    });
    boxes.Show({icon, ProgramTitle, "text"});
  }
}

TEST_F(QtMessageBoxesTest, ShowsMarkupAsItIsTyped) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.text(), "<b>bold</b>.stw");
    box.accept();
  });
  boxes.Show({MessageIcon::None, ProgramTitle, "<b>bold</b>.stw"});
}

TEST_F(QtMessageBoxesTest, ClosesByReturnAndByEscape) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    WhenShown<QMessageBox>([key](QMessageBox& box) { QTest::keyClick(box.focusWidget(), key); });
    boxes.Show({MessageIcon::Critical, ProgramTitle, "text"});
  }
}

TEST_F(QtMessageBoxesTest, StandsOverTheWindowThatIsThereBeforeItIsActive) {
  QWidget window;
  window.show();
  QApplication::setActiveWindow(nullptr);
  WhenShown<QMessageBox>([&window](QMessageBox& box) {
    EXPECT_EQ(box.parentWidget(), &window);
    box.close();
  });
  boxes.Show({MessageIcon::Information, ProgramTitle, "Welcome"});
}

TEST_F(QtMessageBoxesTest, AsksWithYesAndNo) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(box.icon(), QMessageBox::Question);
    box.button(QMessageBox::No)->click();
  });
  EXPECT_FALSE(boxes.Ask({MessageIcon::Question, ProgramTitle, "Delete?"}));
}

TEST_F(QtMessageBoxesTest, TakesAnswersByKeyboard) {
  EXPECT_TRUE(AnswerTo(Qt::Key_Y, Qt::AltModifier));
  EXPECT_FALSE(AnswerTo(Qt::Key_N, Qt::AltModifier));
  EXPECT_TRUE(AnswerTo(Qt::Key_Return));
}

TEST_F(QtMessageBoxesTest, TakesEscapeAndAClosedWindowForNo) {
  EXPECT_FALSE(AnswerTo(Qt::Key_Escape));
  WhenShown<QMessageBox>([](QMessageBox& box) { box.close(); });
  EXPECT_FALSE(boxes.Ask({MessageIcon::Question, ProgramTitle, "Delete?"}));
}

} // namespace
} // namespace strutwright
