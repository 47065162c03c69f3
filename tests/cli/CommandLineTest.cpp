#include "CliTest.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <sys/wait.h>

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
  std::ofstream full("/dev/full");
  std::ostringstream errStream;
  std::istringstream inStream;
  EXPECT_EQ(RunCommandLine({"analyse", Reference("triangle")}, inStream, full, errStream), 2);
  EXPECT_THAT(errStream.str(), HasSubstr("could not be written"));
  std::ofstream alsoFull("/dev/full");
  EXPECT_EQ(RunCommandLine({"--help"}, inStream, alsoFull, errStream), 2);
}

int StatusOfProgram(const std::string& arguments) {
  const int status = std::system((std::string(CLI_PROGRAM) + " " + arguments).c_str()); // NOLINT: fixed arguments
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(CommandLineTest, IsTheProgramToo) {
  const std::string printed = folder.Path("printed");
  EXPECT_EQ(StatusOfProgram("analyse " + Reference("triangle") + " > " + printed), 0);
  Run({"analyse", Reference("triangle")});
  EXPECT_EQ(FileBytes(printed), out);
  EXPECT_EQ(StatusOfProgram("analyse " + Reference("empty") + " > /dev/null 2>&1"), 1);
  EXPECT_EQ(StatusOfProgram("> /dev/null 2>&1"), 2);
}

} // namespace
} // namespace strutwright
