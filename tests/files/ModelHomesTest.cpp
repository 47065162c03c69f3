#include "FileState.h"
#include "modModelHomes.h"

#include <string>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

class ModelHomesTest : public testing::Test {
 protected:
  ModelHomesTest() { TheFiles = FileState{}; }
  ~ModelHomesTest() override { TheFiles = FileState{}; }

  static void Open(const std::string& fileName) {
    if (TheFiles.Opened.open != 0) LeaveModel(TheFiles.Opened.open, CurrentFileName);
    BeginModel(fileName);
    CurrentFileName = fileName;
  }

  static void SaveAs(const std::string& fileName) {
    CurrentFileName = fileName;
    TakeFileOver();
  }
};

TEST_F(ModelHomesTest, BringAModelBackWithTheFileThatItWasSavedToLast) {
  Open("bridge.stw");
  SaveAs("roof.stw");
  Open("tower.stw");
  EXPECT_EQ(FileNameOfModel(1), "roof.stw");
}

TEST_F(ModelHomesTest, TakeAFileFromThoseThatHadItWhereAnotherIsSavedOverIt) {
  Open("bridge.stw");
  Open("roof.stw");
  Open("tower.stw");
  SaveAs("bridge.stw");
  EXPECT_EQ(FileNameOfModel(1), "");
  EXPECT_EQ(FileNameOfModel(2), "roof.stw") << "nobody saved over that";
}

TEST_F(ModelHomesTest, LeaveAFileToThoseThatWereOpenedFromIt) {
  Open("bridge.stw");
  Open("bridge.stw");
  SaveAs("bridge.stw");
  EXPECT_EQ(FileNameOfModel(1), "bridge.stw");
}

} // namespace
} // namespace strutwright
