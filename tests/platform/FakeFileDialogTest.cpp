// The stand-in is trusted by many tests, so it has its own.

#include "FakePlatform.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(FakeFileDialogTest, GivesItsAnswersInOrderAndKeepsTheNameOnCancel) {
  FakeFileDialog dialog;
  dialog.WillChoose("/a.stw");
  dialog.WillCancel();
  EXPECT_TRUE(dialog.ShowOpen());
  EXPECT_FALSE(dialog.ShowSave());
  EXPECT_EQ(dialog.fileName, "/a.stw");
  EXPECT_EQ(dialog.shown.at(0).kind, "open");
  EXPECT_EQ(dialog.shown.at(1).kind, "save");
  EXPECT_EQ(dialog.shown.at(1).fileName, "/a.stw");
}

TEST(FakeFileDialogTest, FailsTheTestThatDidNotExpectIt) {
  FakeFileDialog dialog;
  EXPECT_NONFATAL_FAILURE(EXPECT_FALSE(dialog.ShowOpen()), "A file dialog that the test did not expect");
}

/// A test that ends with an answer left over.
class LeftOverTest : public PlatformTest {
 public:
  void TestBody() override {}
  void EndWithAnswerLeft() {
    dialog.WillCancel();
    TearDown();
  }
};

TEST(FakeFileDialogTest, FailsTheTestThatDidNotUseItsScript) {
  LeftOverTest test;
  EXPECT_NONFATAL_FAILURE(test.EndWithAnswerLeft(), "answers that the file dialog was not asked for");
}

} // namespace
} // namespace strutwright
