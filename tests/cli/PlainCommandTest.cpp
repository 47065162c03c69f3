// The part of the command line that starts fast, and how it goes on as the whole program.

#include "PlainCommandLine.h"

#include "CliTest.h"
#include "FullStream.h"
#include "PathSpelling.h"
#include "Pattern.h"
#include "SystemShell.h"

#include <filesystem>
#include <optional>
#include <utility>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class PlainCommandTest : public CliTest {
 protected:
  std::optional<int> RunPlain(const std::vector<std::string>& arguments) {
    std::istringstream inStream(in);
    std::ostringstream outStream;
    std::ostringstream errStream;
    const std::optional<int> status = RunPlainCommand(arguments, inStream, outStream, errStream);
    plainOut = outStream.str();
    plainErr = errStream.str();
    left = static_cast<std::size_t>(inStream.rdbuf()->in_avail());
    return status;
  }

  std::string plainOut;
  std::string plainErr;
  std::size_t left = 0; ///< of standard input
};

TEST_F(PlainCommandTest, DoesWhatTheWholeProgramDoes) {
  const std::string good = Reference("triangle");
  const std::string bad = Reference("mechanism_square");
  const std::vector<std::vector<std::string>> all{{"--version"},
                                                  {"analyse", good},
                                                  {"analyse", "--format", "json", good, bad, "missing.stw"},
                                                  {"analyse", "--format", "csv", "-j", "2", bad, good},
                                                  {"show", good},
                                                  {"show", good, "--format", "csv"},
                                                  {"show", good, "--format", "json"},
                                                  {"show", good, "--format", "dxf", "--deflection-scale", "7"},
                                                  {"make", good, "-"},
                                                  {"make", "missing.dxf", "-"}};
  for (const auto& arguments : all) {
    const std::optional<int> status = RunPlain(arguments);
    EXPECT_EQ(status, Run(arguments)) << arguments[0];
    EXPECT_EQ(plainOut, out);
    EXPECT_EQ(plainErr, err);
  }
}

TEST_F(PlainCommandTest, LeavesEverythingElseToTheWholeProgram) {
  const std::string model = Reference("triangle");
  in = "JOINTS";
  const std::vector<std::vector<std::string>> all{{},
                                                  {"--help"},
                                                  {"analyse", "--help"},
                                                  {"analyse"},
                                                  {"analyse", "--check", "-"},
                                                  {"analyse", "-", "--picture", "p.svg"},
                                                  {"analyse", "-", "--report", "r.pdf"},
                                                  {"analyse", "-", "--working", "w.tex"},
                                                  {"analyse", "-j", "0", "-"},
                                                  {"show", "-", "--format", "tikz"},
                                                  {"show", "-", "--deflection-scale", "7"},
                                                  {"make", "-"},
                                                  {"statics", "-"},
                                                  {"influence", "-", "--path", "1-2", "--member", "1"},
                                                  {"class", "-"},
                                                  {"mark", "-", "-"},
                                                  {"completion", "bash"},
                                                  {"nonsense"}};
  for (const auto& arguments : all) {
    EXPECT_EQ(RunPlain(arguments), std::nullopt) << testing::PrintToString(arguments);
    EXPECT_EQ(plainOut + plainErr, "");
    EXPECT_EQ(left, in.size());
  }
}

TEST_F(PlainCommandTest, SaysThatItsOutputCouldNotBeWritten) {
  std::istringstream inStream;
  std::ostringstream errStream;
  FullStream full;
  EXPECT_EQ(RunPlainCommand({"--version"}, inStream, full, errStream), 2);
  EXPECT_EQ(errStream.str(), "strutwright-cli: the output could not be written\n");
}

/// The built program, in a process of its own.
class PlainProgramTest : public CliTest {
 protected:
  const std::filesystem::path program = PathOf(CLI_PROGRAM).make_preferred();
  const std::string ending = Utf8Of(program.extension()); ///< of programs on this system
};

TEST_F(PlainProgramTest, LoadsNothingThatDrawsOrChecks) {
#ifdef _WIN32
  const std::string libraries = FileBytes(CLI_PROGRAM); // it holds their names
  EXPECT_THAT(libraries, HasSubstr("KERNEL32.dll"));
#else
  const auto [status, libraries] = OutcomeOfCommand("LD_TRACE_LOADED_OBJECTS=1 " + program.string());
  EXPECT_EQ(status, 0);
  EXPECT_THAT(libraries, HasSubstr("libc.so"));
#endif
  for (const char* heavy : {"Qt6", "spqr", "cholmod", "lapack", "blas"}) {
    EXPECT_THAT(libraries, Not(HasSubstr(heavy)));
  }
}

TEST_F(PlainProgramTest, GoesOnAsTheWholeProgram) {
  Run({"statics", Reference("triangle")});
  EXPECT_EQ(OutcomeOfCommand(program.string() + " statics " + Reference("triangle")), std::pair(0, out));
  const auto [status, printed] = OutcomeOfCommand(program.string() + " analyse --check - --format json < " +
                                                  NativePath(Reference("mechanism_square")));
  EXPECT_EQ(status, 1);
  EXPECT_THAT(printed, HasSubstr("\"mechanisms\":1"));
  EXPECT_EQ(OutcomeOfCommand(program.string() + " nonsense").first, 2);
}

#ifndef _WIN32 // where both lie in one folder

TEST_F(PlainProgramTest, FindsTheWholeProgramWhereItIsInstalled) {
  for (const char* each : {"usr/bin", "usr/libexec/strutwright"})
    std::filesystem::create_directories(folder.Path(each));
  std::filesystem::copy(program, folder.Path("usr/bin"));
  std::filesystem::create_symlink(program.string() + "-whole",
                                  folder.Path("usr/libexec/strutwright/strutwright-cli-whole"));
  std::filesystem::create_symlink(folder.Path("usr/bin/strutwright-cli"), folder.Path("link"));

  const auto [status, printed] = OutcomeOfCommand(folder.Path("link") + " --help");

  EXPECT_EQ(status, 0);
  EXPECT_THAT(printed, StartsWith("Analyses plane pin-jointed trusses"));
}

#endif

TEST_F(PlainProgramTest, SaysWhereTheWholeProgramShouldBe) {
  std::filesystem::create_directory(folder.Path("bin"));
  std::filesystem::copy(program, folder.Path("bin"));

  const auto [status, printed] = OutcomeOfCommand(folder.Path("bin/strutwright-cli" + ending) + " statics -");

  EXPECT_EQ(status, 2);
  EXPECT_EQ(printed, "strutwright-cli: " + folder.Path("libexec/strutwright/strutwright-cli-whole" + ending) +
                         ": No such file or directory; install the program again\n");
}

TEST_F(PlainProgramTest, SaysWhyTheWholeProgramCannotBeStarted) {
  std::filesystem::copy(program, folder.Root());
  const std::string whole = folder.Path("strutwright-cli-whole" + ending);
  PutFile(whole, "no program");

  const auto [status, printed] = OutcomeOfCommand(folder.Path("strutwright-cli" + ending) + " --help");

  EXPECT_EQ(status, 2);
#ifdef _WIN32
  EXPECT_THAT(printed, MatchesPattern("strutwright-cli: .*: .+; install the program again\n"));
#else
  EXPECT_EQ(printed, "strutwright-cli: " + whole + ": Permission denied; install the program again\n");
#endif
}

} // namespace
} // namespace strutwright
