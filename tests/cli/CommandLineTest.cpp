#include "CliTest.h"
#include "FullStream.h"
#include "PathSpelling.h"
#include "SystemShell.h"

#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::HasSubstr;

using CommandLineTest = CliTest;

TEST_F(CommandLineTest, GivesItsVersion) {
  EXPECT_EQ(Run({"--version"}), 0);
  EXPECT_EQ(out, std::string("strutwright-cli ") + STRUTWRIGHT_VERSION + "\n");
}

TEST_F(CommandLineTest, GivesHelp) {
  EXPECT_EQ(Run({"--help"}), 0);
  for (const char* word : {"analyse", "show", "make", "--version", "Exit status", "mm2"}) {
    EXPECT_THAT(out, HasSubstr(word));
  }
  EXPECT_EQ(err, "");
}

TEST_F(CommandLineTest, GivesHelpForACommand) {
  EXPECT_EQ(Run({"analyse", "--help"}), 0);
  EXPECT_THAT(out, HasSubstr("--format"));
  EXPECT_THAT(out, HasSubstr("MODEL"));
}

TEST_F(CommandLineTest, RefusesWrongUsage) {
  const std::vector<std::vector<std::string>> wrong{{},
                                                    {"frobnicate"},
                                                    {"analyse"},
                                                    {"analyse", "m.stw", "--format", "xml"},
                                                    {"analyse", "m.stw", "--unknown"},
                                                    {"show"},
                                                    {"show", "a.stw", "b.stw"},
                                                    {"make", "a.csv"},
                                                    {"make", "a.csv", "b.stw", "c"}};
  for (const auto& arguments : wrong) {
    EXPECT_EQ(Run(arguments), 2) << testing::PrintToString(arguments);
    EXPECT_EQ(out, "");
    EXPECT_THAT(err, HasSubstr("--help"));
  }
}

TEST_F(CommandLineTest, ReportsWhenItsOutputIsLost) {
  FullStream full;
  std::ostringstream errStream;
  std::istringstream inStream;
  EXPECT_EQ(RunCommandLine({"analyse", Reference("triangle")}, inStream, full, errStream), 2);
  EXPECT_THAT(errStream.str(), HasSubstr("could not be written"));
  FullStream alsoFull;
  EXPECT_EQ(RunCommandLine({"--help"}, inStream, alsoFull, errStream), 2);
}

int StatusOfProgram(const std::string& arguments) { return StatusOfCommand(NativePath(CLI_PROGRAM) + " " + arguments); }

TEST_F(CommandLineTest, IsTheProgramToo) {
  const std::string printed = folder.Path("printed");
  EXPECT_EQ(StatusOfProgram("analyse " + Reference("triangle") + " > " + printed), 0);
  Run({"analyse", Reference("triangle")});
  EXPECT_EQ(FileBytes(printed), out);
  EXPECT_EQ(StatusOfProgram("analyse " + Reference("empty") + " > " + Nowhere + " 2>&1"), 1);
  EXPECT_EQ(StatusOfProgram(std::string("> ") + Nowhere + " 2>&1"), 2);
}

} // namespace
} // namespace strutwright
