// Many models at once.

#include "CliTest.h"
#include "Commands.h"
#include "ProgressLine.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::Not;

class JobsTest : public CliTest {
 protected:
  std::vector<std::string> Command(const std::vector<std::string>& options) const {
    std::vector<std::string> arguments{"analyse"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.insert(arguments.end(), models.begin(), models.end());
    return arguments;
  }

  std::vector<std::string> models{
      Reference("triangle"),         Reference("fink_7"), folder.Path("missing.stw"), Reference("mechanism_square"),
      Reference("warren_25_random"), Reference("empty"),  Reference("triangle"),      Reference("arch_30")};
};

TEST_F(JobsTest, PrintWhatOneProcessPrintsInTheSameOrder) {
  for (const char* format : {"text", "csv", "json"}) {
    const int status = Run(Command({"--format", format}));
    const std::string results = out;
    const std::string messages = err;
    for (const char* jobs : {"1", "2", "3", "100"}) {
      EXPECT_EQ(Run(Command({"--format", format, "-j", jobs})), status);
      EXPECT_EQ(out, results) << jobs;
      EXPECT_EQ(err, messages) << jobs;
    }
    EXPECT_EQ(status, 2) << "one file is missing";
  }
}

TEST_F(JobsTest, MakeTheSamePictures) {
  EXPECT_EQ(Run(Command({"-j", "3", "--picture", folder.Path("p.svg")})), 2);
  for (const char* name : {"p-triangle.svg", "p-triangle-2.svg", "p-fink_7.svg", "p-arch_30.svg"}) {
    EXPECT_TRUE(std::filesystem::exists(folder.Path(name))) << name;
  }
  EXPECT_FALSE(std::filesystem::exists(folder.Path("p-missing.svg")));
}

#ifndef _WIN32 // there one process does all of them

TEST_F(JobsTest, GoOnBehindAModelThatEndsItsProcess) {
  const WholeAnalyseRequest request{{models, OutputFormat::Json, 2}, true, {}};
  std::istringstream noInput;
  std::ostringstream results;
  std::ostringstream messages;
  const AnswerJudge endsAtUnstable = [](AnalysisOutcome outcome) {
    if (outcome == AnalysisOutcome::Unstable) ::_exit(9);
    return CheckReport{};
  };
  EXPECT_EQ(AnalyseWholly(request, noInput, results, messages, endsAtUnstable), 3);
  EXPECT_THAT(messages.str(), HasSubstr("mechanism_square.stw: The analysis ended unexpectedly\n"));
  EXPECT_THAT(results.str(), HasSubstr("arch_30.stw"));
  EXPECT_THAT(results.str(), Not(HasSubstr("mechanism_square.stw")));
}

#endif

TEST_F(JobsTest, AreANumberFrom1To256) {
  for (const char* jobs : {"0", "257", "x", "-1"}) {
    EXPECT_EQ(Run({"analyse", "-j", jobs, Reference("triangle")}), 2) << jobs;
    EXPECT_EQ(out, "");
  }
}

TEST(ProgressLineTest, SaysHowManyAreDoneOnATerminal) {
  std::ostringstream terminal;
  {
    ProgressLine line(terminal, 3, true);
    line.Show(1);
    EXPECT_EQ(terminal.str(), "\r\033[K1 of 3 models analysed");
    line.Show(2);
    EXPECT_THAT(terminal.str(), Not(HasSubstr("2 of 3"))) << "too soon to see";
    line.Show(3);
    EXPECT_THAT(terminal.str(), testing::EndsWith("3 of 3 models analysed"));
  }
  EXPECT_THAT(terminal.str(), testing::EndsWith("\r\033[K"));
}

TEST(ProgressLineTest, WritesNothingElsewhere) {
  std::ostringstream file;
  {
    ProgressLine line(file, 3, false);
    line.Show(3);
    ProgressLine single(file, 1, true);
    single.Show(1);
  }
  EXPECT_EQ(file.str(), "");
}

} // namespace
} // namespace strutwright
