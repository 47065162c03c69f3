#include "BracefoldCommandLine.h"
#include "FakePlatform.h"
#include "FullStream.h"
#include "NativeFileSystem.h"
#include "PathSpelling.h"
#include "ScratchFolder.h"
#include "SystemShell.h"
#include "TrussFixture.h"
#include "modNumberText.h"

#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class BracefoldCommandLineTest : public PlatformTest {
 protected:
  BracefoldCommandLineTest() { ThePlatform().files = &disk; }

  int Run(const std::vector<std::string>& arguments) {
    std::ostringstream outStream;
    std::ostringstream errStream;
    const auto window = [this](const TrussFamily& family, const TrussTexts& texts) {
      opened = std::string(family.name);
      shown = texts;
      return 0;
    };
    const int status = RunBracefold(arguments, window, outStream, errStream);
    out = outStream.str();
    err = errStream.str();
    return status;
  }

  std::string File() const { return folder.Path("truss.stw"); }

  NativeFileSystem disk;
  ScratchFolder folder;
  std::string out;
  std::string err;
  std::string opened; ///< the family that the window was opened on
  TrussTexts shown;
};

TEST_F(BracefoldCommandLineTest, GivesItsVersion) {
  EXPECT_EQ(Run({"--version"}), 0);
  EXPECT_EQ(out, std::string("bracefold ") + STRUTWRIGHT_VERSION + "\n");
}

TEST_F(BracefoldCommandLineTest, GivesHelp) {
  EXPECT_EQ(Run({"--help"}), 0);
  for (const FieldDescription& each : TrussFields) {
    EXPECT_THAT(out, AllOf(HasSubstr("--" + std::string(each.option)), HasSubstr(std::string(each.help))));
  }
  for (const char* word :
       {"--family", "--support", "--out", "--list", "--version", "Exit status", "-100000 to 100000"}) {
    EXPECT_THAT(out, HasSubstr(word));
  }
  EXPECT_EQ(err, "");
}

TEST(BracefoldManualTest, DescribesEveryOptionWithItsLimits) {
  const std::string manual = FileBytes(MANUAL);
  for (const FieldDescription& each : TrussFields) {
    const std::size_t place = manual.find("\n.It Fl -" + std::string(each.option) + " Ar number\n");
    ASSERT_NE(place, std::string::npos) << each.option;
    const std::string text = manual.substr(place + 5, manual.find("\n.It", place + 1) - place);
    if (each.field == TrussField::Bays) {
      EXPECT_THAT(text, HasSubstr("at most " + NumberText(each.most)));
    } else {
      const std::string sign = each.least < 0 ? "\\" : "";
      EXPECT_THAT(text, HasSubstr(sign + NumberText(each.least) + " to " + NumberText(each.most)));
      EXPECT_THAT(text, HasSubstr(" " + std::string(each.unit)));
    }
  }
  for (const char* option : {"family Ar name", "support Ar kind", "out Ar file", "list", "help", "version"}) {
    EXPECT_THAT(manual, HasSubstr("\n.It Fl -" + std::string(option) + "\n"));
  }
}

TEST(BracefoldManualTest, DescribesEveryFamily) {
  const std::string manual = FileBytes(MANUAL);
  for (const TrussFamily& each : TrussFamilies()) {
    EXPECT_THAT(manual, HasSubstr("\n.It Cm " + std::string(each.name) + "\n"));
    EXPECT_EQ(each.mostSteepness, each.upright ? 20 : 2); // as the manual says
  }
  EXPECT_EQ(MinSteepness, 0.01F);
}

TEST_F(BracefoldCommandLineTest, ListsTheFamilies) {
  EXPECT_EQ(Run({"--list"}), 0);
  EXPECT_THAT(out, StartsWith("FAMILY                SPAN  HEIGHT  BAYS LEAST BAYS  TITLE\n"
                              "pratt                   24       3     8          2  Pratt truss\n"));
  EXPECT_THAT(out, HasSubstr("\ntower                    4      20     8          1  Tower\n"));
  EXPECT_EQ(opened, "");
}

TEST_F(BracefoldCommandLineTest, WritesATruss) {
  EXPECT_EQ(Run({"--family", "howe", "--span",       "30",         "--height",        "5",   "--bays",          "6",
                 "--e",      "70",   "--chord-area", "11",         "--vertical-area", "12",  "--diagonal-area", "13",
                 "--load",   "-4.5", "--support",    "roller-pin", "--out",           File()}),
            0);
  EXPECT_EQ(out + err, "");
  TrussTexts texts;
  texts.values = {"30", "5", "6", "70", "11", "12", "13", "-4.5"};
  texts.support = "roller-pin";
  const StoredModel expected = MakeTruss(Family("howe"), texts);
  const StoredModel model = LoadModelFile(File());
  EXPECT_EQ(model.nodes, expected.nodes);
  EXPECT_EQ(model.members, expected.members);
  EXPECT_EQ(model.capacity, expected.capacity);
  EXPECT_EQ(opened, "");
}

TEST_F(BracefoldCommandLineTest, WritesEveryFamilyAsItBegins) {
  for (const TrussFamily& family : TrussFamilies()) {
    EXPECT_EQ(Run({"--family", std::string(family.name), "--out", File()}), 0) << family.name;
    EXPECT_EQ(LoadModelFile(File()).nodes, MakeTruss(family, StandardTexts(family)).nodes) << family.name;
    std::filesystem::remove(File());
  }
}

TEST_F(BracefoldCommandLineTest, NamesTheOptionThatIsWrong) {
  struct Case {
    std::string option;
    std::string value;
    std::string reason;
  };
  const std::vector<Case> cases{
      {"span", "0", "must be a number from 0.1 to 10000 m"},
      {"height", "tall", "must be a number from 0.1 to 10000 m"},
      {"height", "100", "must be a number from 0.24 to 48 m for a span of 24 m"},
      {"bays", "1", "must be a whole number from 2 to 200 for the family pratt"},
      {"e", "-1", "must be a number from 0.001 to 10000 kN/mm2"},
      {"chord-area", "0", "must be a number from 1 to 1000000 mm2"},
      {"vertical-area", "", "must be a number from 1 to 1000000 mm2"},
      {"diagonal-area", "1e9", "must be a number from 1 to 1000000 mm2"},
      {"load", "inf", "must be a number from -100000 to 100000 kN"},
      {"support", "rope", "must be one of pin-roller, roller-pin, pin-pin"},
      {"family", "prat", "must be one of pratt, howe, warren, warren-verticals, k, fink, bowstring, cantilever, tower"},
      {"out", "", "must be the name of a file"},
  };
  for (const Case& each : cases) {
    std::vector<std::string> arguments{"--" + each.option, each.value};
    if (each.option != "out") arguments.insert(arguments.end(), {"--out", File()});
    if (each.option != "family") arguments.insert(arguments.end(), {"--family", "pratt"});
    EXPECT_EQ(Run(arguments), 2) << each.option;
    EXPECT_EQ(err, "bracefold: --" + each.option + " " + each.reason + "\n");
    EXPECT_EQ(folder.EntryCount(), 0);
  }
}

TEST_F(BracefoldCommandLineTest, NeedsAFamilyForAFile) {
  EXPECT_EQ(Run({"--out", File()}), 2);
  EXPECT_EQ(err, "bracefold: --family must be given with --out\n");
}

TEST_F(BracefoldCommandLineTest, RefusesWrongUsage) {
  for (const std::vector<std::string>& wrong :
       std::vector<std::vector<std::string>>{{"--frobnicate"}, {"pratt"}, {"--span"}, {"--span", "1", "--span", "2"}}) {
    EXPECT_EQ(Run(wrong), 2) << testing::PrintToString(wrong);
    EXPECT_THAT(err, AllOf(StartsWith("bracefold: "), HasSubstr(wrong.front()), HasSubstr("--help")));
    EXPECT_EQ(out + opened, "");
  }
}

TEST_F(BracefoldCommandLineTest, ReportsWhenTheFileCannotBeWritten) {
  const std::string path = folder.Path("missing/truss.stw");
  EXPECT_EQ(Run({"--family", "k", "--out", path}), 2);
  EXPECT_EQ(err, "bracefold: " + path + ": No such file or directory\n");
}

TEST_F(BracefoldCommandLineTest, ReportsWhenItsOutputIsLost) {
  FullStream full;
  std::ostringstream errStream;
  EXPECT_EQ(RunBracefold({"--list"}, nullptr, full, errStream), 2);
  EXPECT_EQ(errStream.str(), "bracefold: the output could not be written\n");
}

TEST_F(BracefoldCommandLineTest, OpensTheWindowWithoutAFile) {
  EXPECT_EQ(Run({}), 0);
  EXPECT_EQ(opened, "pratt");
  EXPECT_EQ(shown.values, StandardTexts(Family("pratt")).values);
}

TEST_F(BracefoldCommandLineTest, OpensTheWindowOnWhatItIsGiven) {
  EXPECT_EQ(Run({"--family", "tower", "--bays", "12", "--load=-3"}), 0);
  EXPECT_EQ(opened, "tower");
  EXPECT_THAT(shown.values, ElementsAre("4", "20", "12", "200", "2000", "1000", "1200", "-3"));
  EXPECT_EQ(shown.support, "pin-pin");
}

TEST_F(BracefoldCommandLineTest, OpensNoWindowOnWhatIsWrong) {
  EXPECT_EQ(Run({"--family", "fink", "--bays", "5"}), 2);
  EXPECT_EQ(err, "bracefold: --bays must be an even number from 4 to 200 for the family fink\n");
  EXPECT_EQ(opened, "");
}

TEST_F(BracefoldCommandLineTest, GivesTheStatusOfTheWindow) {
  std::ostringstream stream;
  EXPECT_EQ(RunBracefold(
                {}, [](const TrussFamily&, const TrussTexts&) { return 1; }, stream, stream),
            1);
}

TEST_F(BracefoldCommandLineTest, IsTheProgramToo) {
  const std::string program = NativePath(BRACEFOLD_PROGRAM);
  EXPECT_EQ(StatusOfCommand(program + " --family fink --bays 12 --out " + File()), 0);
  EXPECT_EQ(LoadModelFile(File()).nodes, MakeTruss(Family("fink"), WithBays(Family("fink"), 12)).nodes);
  EXPECT_EQ(StatusOfCommand(program + " --family fink --bays 13 --out " + File() + " 2> " + Nowhere), 2);
}

TEST_F(BracefoldCommandLineTest, MakesWhatTheOtherProgramAnalyses) {
  for (const TrussFamily& family : TrussFamilies()) {
    const std::string name(family.name);
    const std::string printed = folder.Path(name + ".txt");
    EXPECT_EQ(StatusOfCommand(NativePath(BRACEFOLD_PROGRAM) + " --family " + name + " --bays 60 --out " + File()), 0);
    EXPECT_EQ(StatusOfCommand(NativePath(CLI_PROGRAM) + " analyse " + File() + " > " + printed), 0) << name;
    EXPECT_THAT(FileBytes(printed), StartsWith(File() + ": ok\n")) << name;
    std::filesystem::remove(File());
  }
}

#ifndef _WIN32 // where there is always a display

TEST_F(BracefoldCommandLineTest, SaysWhenThereIsNoDisplay) {
  const std::string printed = folder.Path("printed");
  EXPECT_EQ(StatusOfCommand("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + std::string(BRACEFOLD_PROGRAM) +
                            " 2> " + printed),
            2);
  EXPECT_EQ(FileBytes(printed),
            "bracefold: there is no display for the window; --out FILE writes a model without one\n");
}

TEST_F(BracefoldCommandLineTest, EndsInOrderWhereTheDisplayIsNotThere) {
  const std::string printed = folder.Path("printed");
  EXPECT_EQ(StatusOfCommand("env -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM DISPLAY=:9999 " +
                            std::string(BRACEFOLD_PROGRAM) + " 2> " + printed),
            1);
  EXPECT_THAT(FileBytes(printed),
              HasSubstr("bracefold: the window can't be shown; --out FILE writes a model without one\n"));
}

#endif

} // namespace
} // namespace strutwright
