#include "CAssociate.h"
#include "EventsTest.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AssociateTest : public EventsTest {
 protected:
  AssociateTest() {
    type.Title = "Strutwright File";
    type.Class = "Strutwright.File";
    type.Extension = ".stw";
    type.AppCommand = "C:\\Apps\\truss.exe";
    type.DefaultIcon = "C:\\Apps\\Strutwright.ico";
  }

  /// What Associate throws; number 0 when it throws nothing.
  AssociateError Failure() const {
    try {
      type.Associate();
    } catch (const AssociateError& error) {
      return error;
    }
    return {0, ""};
  }

  CAssociate type;
};

TEST_F(AssociateTest, WritesNameExtensionCommandAndIconInThisOrder) {
  type.Associate();
  EXPECT_THAT(fileTypes.written, ElementsAre("Strutwright.File = Strutwright File", ".stw = Strutwright.File",
                                             "Strutwright.File\\shell\\open\\command = C:\\Apps\\truss.exe %1",
                                             "Strutwright.File\\DefaultIcon = C:\\Apps\\Strutwright.ico", "Announce"));
}

TEST_F(AssociateTest, NeedsATitle) {
  type.Title = "";
  const AssociateError error = Failure();
  EXPECT_EQ(error.number, 922);
  EXPECT_EQ(error.source, "Associate Class");
  EXPECT_STREQ(error.what(), "Associate Class - Application title not specified");
  EXPECT_THAT(fileTypes.written, IsEmpty());
}

TEST_F(AssociateTest, NeedsAClass) {
  type.Class = "";
  const AssociateError error = Failure();
  EXPECT_EQ(error.number, 926);
  EXPECT_EQ(error.source, "Associate Class");
  EXPECT_STREQ(error.what(), "Associate Class - Application Class name not specified");
  EXPECT_THAT(fileTypes.written, IsEmpty());
}

TEST_F(AssociateTest, NeedsACommand) {
  type.AppCommand = "";
  const AssociateError error = Failure();
  EXPECT_EQ(error.number, 930);
  EXPECT_EQ(error.source, "Associate Class");
  EXPECT_STREQ(error.what(), "Associate Class - Command line of the program not specified");
  EXPECT_THAT(fileTypes.written, IsEmpty());
}

TEST_F(AssociateTest, NamesTheFirstThingThatIsMissing) {
  type = {};
  EXPECT_EQ(Failure().number, 922);
  type.Title = "Strutwright File";
  EXPECT_EQ(Failure().number, 926);
  type.Class = "Strutwright.File";
  EXPECT_EQ(Failure().number, 930);
}

TEST_F(AssociateTest, ChecksNeitherExtensionNorIcon) {
  type.Extension = "";
  type.DefaultIcon = "";
  type.Associate();
  EXPECT_THAT(fileTypes.written, ElementsAre("Strutwright.File = Strutwright File", " = Strutwright.File",
                                             "Strutwright.File\\shell\\open\\command = C:\\Apps\\truss.exe %1",
                                             "Strutwright.File\\DefaultIcon = ", "Announce"));
}

TEST_F(AssociateTest, TakesABlankForAText) {
  type.Title = " ";
  type.Associate();
  EXPECT_EQ(fileTypes.written.front(), "Strutwright.File =  ");
}

} // namespace
} // namespace strutwright
