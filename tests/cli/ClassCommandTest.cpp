#include "CliTest.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// All files of a folder with their bytes.
std::map<std::string, std::string> BytesIn(const std::string& place) {
  std::map<std::string, std::string> files;
  for (const auto& each : std::filesystem::recursive_directory_iterator(place)) {
    if (!each.is_regular_file()) continue;
    files[std::filesystem::relative(each.path(), place).generic_string()] = FileBytes(Utf8Of(each.path()));
  }
  return files;
}

/// Sets a variable of the environment, or takes it away where the value is "".
void SetVariable(const char* name, const std::string& value) {
#ifdef _WIN32
  _putenv_s(name, value.c_str());
#else
  if (value.empty()) {
    unsetenv(name);
  } else {
    setenv(name, value.c_str(), 1);
  }
#endif
}

class ClassCommandTest : public CliTest {
 protected:
  static std::string Bridge() { return std::string(EXAMPLES_DIR) + "/pratt_bridge.stw"; }

  int Class(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "class");
    return Run(arguments);
  }

  /// A set of a bridge for so many students, or for a list.
  int BridgeClass(const std::string& students, const std::string& place, const std::string& formats) {
    return Class({Bridge(), "--students", students, "--seed", "7", "--vary", "span:18..30:1", "--vary", "load:10..40:5",
                  "--ask", "forces:7,9", "--ask", "reactions", "--ask", "displacement:4y", "--out", folder.Path(place),
                  "--format", formats});
  }

  void ExpectRefusal(const std::vector<std::string>& arguments, const std::string& sentence) {
    EXPECT_EQ(Class(arguments), 2);
    EXPECT_EQ(err, sentence + "\n");
    EXPECT_EQ(out, "");
    EXPECT_FALSE(std::filesystem::exists(folder.Path("out")));
  }
};

TEST_F(ClassCommandTest, MakesAFolderForEachStudent) {
  PutFile(folder.Path("list.csv"), "name,mail\nAnn,a@b\n\"Lee, Bob\",c@d\n");
  EXPECT_EQ(BridgeClass(folder.Path("list.csv"), "out", "stw,csv"), 0) << err;
  EXPECT_EQ(out, folder.Path("out") + ": 2 students, seed 7\n");
  const auto files = BytesIn(folder.Path("out"));
  EXPECT_EQ(files.size(), 3U);
  EXPECT_THAT(files.at("key.csv"), StartsWith("student,question,answer,tolerance,unit\r\nAnn,force 7,"));
  EXPECT_THAT(files.at("key.csv"), HasSubstr("\r\n\"Lee, Bob\",displacement 4y,"));
  EXPECT_EQ(Run({"analyse", folder.Path("out/Lee, Bob/model.stw")}), 0) << err;
}

TEST_F(ClassCommandTest, MakesTheSameBytesOfTheSameSeed) {
  SetVariable("SOURCE_DATE_EPOCH", "1700000000");
  ASSERT_EQ(BridgeClass("1", "one", "pdf,html,moodle,tex,stw,csv"), 0) << err;
  ASSERT_EQ(BridgeClass("1", "two", "pdf,html,moodle,tex,stw,csv"), 0) << err;
  SetVariable("SOURCE_DATE_EPOCH", "");
  const auto files = BytesIn(folder.Path("one"));
  EXPECT_EQ(files.size(), 9U);
  EXPECT_EQ(files, BytesIn(folder.Path("two")));
  EXPECT_THAT(files.at("student-01/sheet.pdf"), HasSubstr("/CreationDate (D:20231114221320"));
}

TEST_F(ClassCommandTest, TakesAFamilyWithItsNumbers) {
  EXPECT_EQ(Class({"--family",  "howe",         "--height",   "4",
                   "--support", "pin-pin",      "--students", "3",
                   "--vary",    "bays:6..9:1",  "--vary",     "load:10..40:5",
                   "--ask",     "zero-members", "--ask",      "determinacy",
                   "--ask",     "k:2",          "--out",      folder.Path("out"),
                   "--format",  "csv"}),
            0)
      << err;
  EXPECT_THAT(FileBytes(folder.Path("out/key.csv")), HasSubstr("student-03,determinacy,1,0,\r\n"));
}

TEST_F(ClassCommandTest, RefusesWhatCanNotBe) {
  const std::string set = Bridge();
  const std::vector<std::string> end{"--vary", "load:1..2:1", "--ask", "reactions", "--out", folder.Path("out")};
  const auto with = [&end](std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), end.begin(), end.end());
    return arguments;
  };
  ExpectRefusal(with({set, "--students", "5"}),
                set +
                    ": There are only 2 usable variants for 5 students: widen the ranges or make their steps smaller");
  ExpectRefusal(with({set, "--students", "2", "--ask", "forces:77"}),
                set + ": There is no member 77: choose one from 1 to 17");
  ExpectRefusal(with({set, "--students", folder.Path("none.csv")}),
                set + ": The list \"" + folder.Path("none.csv") + "\" can't be read: No such file or directory");
  ExpectRefusal(with({"--family", "pritt", "--students", "2"}),
                "class: --family must be one of pratt, howe, warren, warren-verticals, k, fink, bowstring, cantilever, "
                "tower");
  ExpectRefusal(with({"--family", "pratt", "--height", "0", "--students", "2"}),
                "class: No variant can be used, because the height must be a number from 0.1 to 10000 m");
  const std::string square = std::string(EXAMPLES_DIR) + "/mechanism_square.stw";
  EXPECT_EQ(Class(with({square, "--students", "2"})), 2);
  EXPECT_THAT(err,
              StartsWith(square + ": The truss is a mechanism: it can move in one way without stretching a member: "));
  PutFile(folder.Path("list.csv"), "Ann\n..\n");
  EXPECT_EQ(Class(with({set, "--students", folder.Path("list.csv")})), 2);
  EXPECT_THAT(err, HasSubstr("Line 2 of the list: the name \"..\" means another folder"));
}

TEST_F(ClassCommandTest, NeedsAModelOrAFamily) {
  EXPECT_EQ(Class({"--students", "2", "--ask", "reactions", "--out", folder.Path("out")}), 2);
  EXPECT_THAT(err, HasSubstr("MODEL or --family is required"));
  EXPECT_EQ(Class({Bridge(), "--family", "pratt", "--students", "2", "--ask", "reactions", "--out", "x"}), 2);
  EXPECT_EQ(Class({Bridge(), "--students", "2", "--out", folder.Path("out")}), 2);
  EXPECT_THAT(err, HasSubstr("--ask is required"));
}

TEST_F(ClassCommandTest, TakesNoToleranceAndNoSeedThatAreNoNumbers) {
  for (const char* percent : {"nan", "0", "51", "much"}) {
    EXPECT_EQ(
        Class({Bridge(), "--students", "2", "--ask", "reactions", "--out", folder.Path("out"), "--tolerance", percent}),
        2);
    EXPECT_THAT(err, HasSubstr("--tolerance: must be a number from 0.001 to 50"));
  }
  for (const char* seed : {"-1", "1.5", "18446744073709551616", "x"}) {
    EXPECT_EQ(Class({Bridge(), "--students", "2", "--ask", "reactions", "--out", folder.Path("out"), "--seed", seed}),
              2);
    EXPECT_THAT(err, HasSubstr("--seed: must be a whole number from 0 to 18446744073709551615"));
  }
}

#ifndef _WIN32 // there only a console sends such a signal

TEST_F(ClassCommandTest, LeavesNothingWhenItIsStopped) {
  const auto before = std::signal(SIGINT, SIG_DFL); // a shell that runs the tests in the background ignores it
  std::thread stopping([this] {
    while (folder.EntryCount() == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1)); // until it has begun
    ::kill(::getpid(), SIGINT);
  });
  EXPECT_EQ(Class({Bridge(), "--students", "900", "--vary", "span:18..30:0.1", "--vary", "load:10..40:1", "--ask",
                   "reactions", "--out", folder.Path("out"), "--format", "pdf"}),
            128 + SIGINT);
  stopping.join();
  std::signal(SIGINT, before);
  EXPECT_EQ(err, Bridge() + ": Stopped: nothing was written\n");
  EXPECT_EQ(out, "");
  EXPECT_EQ(folder.EntryCount(), 0);
}

#endif

TEST_F(ClassCommandTest, TellsEmptyColumnsFromNumbersWithACommaThatAreTorn) {
  PutFile(folder.Path("key.csv"), "student,question,answer,tolerance,unit\nAnn,force 7,-12.5,0.13,kN\n");
  PutFile(folder.Path("answers.csv"), "student,question,answer,,\nAnn,force 7,-12,5,,\n");
  EXPECT_EQ(Run({"mark", folder.Path("key.csv"), folder.Path("answers.csv")}), 0);
  EXPECT_THAT(out, HasSubstr("Ann,force 7,1,\r\n"));
  PutFile(folder.Path("answers.csv"), "time,student,question,answer,note\n1,Ann,force 7,-12,5,hm\n");
  EXPECT_EQ(Run({"mark", folder.Path("key.csv"), folder.Path("answers.csv")}), 2);
  EXPECT_EQ(
      err, "mark: Line 2 of the table of answers has more fields than headings: put a number with a comma in quotation "
           "marks\n");
}

TEST_F(ClassCommandTest, MarksTheAnswers) {
  PutFile(folder.Path("key.csv"),
          "student,question,answer,tolerance,unit\nAnn,force 7,12.5,0.13,kN\nBob,force 7,-3,0.03,kN\n");
  PutFile(folder.Path("answers.csv"), "student;question;answer\nAnn;force 7;12,5\nBob;force 7;3\n");
  EXPECT_EQ(Run({"mark", folder.Path("key.csv"), folder.Path("answers.csv"), "--out", folder.Path("marks.csv")}), 0);
  EXPECT_EQ(FileBytes(folder.Path("marks.csv")),
            "student,question,points,slip\r\nAnn,force 7,1,\r\nBob,force 7,0,T and C exchanged\r\n");
  EXPECT_THAT(out, StartsWith("2 students: 1 of 2 points\n\nQUESTION  Asked  Right  Wrong  No answer"));
  EXPECT_EQ(err, "");
  EXPECT_EQ(Run({"mark", folder.Path("key.csv"), folder.Path("answers.csv"), "--forgive-sign"}), 0);
  EXPECT_EQ(out, "student,question,points,slip\r\nAnn,force 7,1,\r\nBob,force 7,1,T and C exchanged\r\n");
  EXPECT_THAT(err, StartsWith("2 students: 2 of 2 points\n"));
}

// The key was made with the first version that had class sets; what a class was given must come again.
TEST_F(ClassCommandTest, MakesTheKeyOfTheExampleAgain) {
  const std::string example = std::string(EXAMPLES_DIR) + "/class/";
  EXPECT_EQ(Class({Bridge(),
                   "--students",
                   example + "students.csv",
                   "--seed",
                   "7",
                   "--vary",
                   "span:18..30:1",
                   "--vary",
                   "height:2..5:0.5",
                   "--vary",
                   "load:10..40:5",
                   "--ask",
                   "forces:7,9",
                   "--ask",
                   "reactions",
                   "--ask",
                   "displacement:4y",
                   "--ask",
                   "zero-members",
                   "--out",
                   folder.Path("out"),
                   "--format",
                   "csv"}),
            0)
      << err;
  EXPECT_EQ(FileBytes(folder.Path("out/key.csv")), FileBytes(example + "key.csv"));
  EXPECT_EQ(Run({"mark", example + "key.csv", example + "answers.csv"}), 0);
  EXPECT_THAT(err, HasSubstr("4 students: 22 of 28 points\n"));
  EXPECT_THAT(out, HasSubstr("Ben Bell,force 7,0,T and C exchanged\r\n"));
  EXPECT_THAT(out, HasSubstr("Cleo Cruz,displacement 4y,0,m for mm\r\n"));
}

TEST_F(ClassCommandTest, ListsAnswersThatCanNotBeRead) {
  PutFile(folder.Path("key.csv"), "student,question,answer,tolerance,unit\nAnn,force 7,12.5,0.13,kN\n");
  PutFile(folder.Path("answers.csv"), "student,question,answer\nAnn,force 7,lots\n");
  EXPECT_EQ(Run({"mark", folder.Path("key.csv"), folder.Path("answers.csv")}), 0);
  EXPECT_THAT(
      err,
      StartsWith("mark: Line 2: the answer \"lots\" of \"Ann\" to \"force 7\" can't be read and gets no points\n"));
  EXPECT_THAT(out, HasSubstr("Ann,force 7,0,can't be read\r\n"));
}

TEST_F(ClassCommandTest, RefusesAKeyThatDoesNotFit) {
  PutFile(folder.Path("key.csv"), "student,question,answer,tolerance,unit\nAnn,force 7,12.5,0.13,kN\n");
  PutFile(folder.Path("answers.csv"), "student,question,answer\nBob,force 7,1\n");
  EXPECT_EQ(Run({"mark", folder.Path("key.csv"), folder.Path("answers.csv"), "--out", folder.Path("marks.csv")}), 2);
  EXPECT_EQ(err, "mark: Line 2 of the answers: the key has no student \"Bob\"; take the key of the same class set\n");
  EXPECT_FALSE(std::filesystem::exists(folder.Path("marks.csv")));
  EXPECT_EQ(Run({"mark", folder.Path("key.csv"), folder.Path("none.csv")}), 2);
  EXPECT_EQ(err, "mark: \"" + folder.Path("none.csv") + "\" can't be read: No such file or directory\n");
  EXPECT_EQ(Run({"mark", folder.Path("key.csv"), folder.Path("answers.csv"), "--out", folder.Path("key.csv")}), 2);
  EXPECT_EQ(err, "mark: The marks would take the place of the key or the answers: choose another name for --out\n");
}

} // namespace
} // namespace strutwright
