#include "DesktopTexts.h"
#include "ScratchFolder.h"

#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::HasSubstr;

DesktopFileType TrussType() {
  return {.program = "Strutwright",
          .name = "strutwright",
          .title = "Strutwright File",
          .extension = ".stw",
          .command = "/opt/truss/strutwright",
          .icon = "/opt/truss/strutwright.svg"};
}

TEST(MimePackageTest, NamesTypeTitleIconAndPattern) {
  EXPECT_EQ(MimePackage(TrussType()), R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="application/x-strutwright">
    <comment>Strutwright File</comment>
    <icon name="application-x-strutwright"/>
    <glob pattern="*.stw" weight="60"/>
  </mime-type>
</mime-info>
)");
}

TEST(MimePackageTest, IsTheInstalledOne) {
  EXPECT_EQ(MimePackage(TrussType()), FileBytes(PACKAGING_DIR "/strutwright.xml"));
}

TEST(MimePackageTest, KeepsMarkupOutOfTexts) {
  DesktopFileType type = TrussType();
  type.title = "<Truss> & \"Co\"";
  EXPECT_THAT(MimePackage(type), HasSubstr("<comment>&lt;Truss&gt; &amp; &quot;Co&quot;</comment>"));
}

TEST(DesktopEntryTest, OpensTheTypeWithTheCommand) {
  EXPECT_EQ(DesktopEntry(TrussType()), R"([Desktop Entry]
Type=Application
Name=Strutwright
Icon=strutwright
TryExec=/opt/truss/strutwright
Exec=/opt/truss/strutwright --open %f
Terminal=false
Categories=Education;Engineering;
MimeType=application/x-strutwright;
)");
}

TEST(DesktopEntryTest, SaysOfTheProgramWhatTheInstalledOneSays) {
  const std::string installed = FileBytes(PACKAGING_DIR "/strutwright.desktop");
  std::istringstream lines(DesktopEntry(TrussType()));
  for (std::string line; std::getline(lines, line);) {
    const bool namesProgram = line.starts_with("Exec=") || line.starts_with("TryExec=");
    EXPECT_EQ(installed.find("\n" + line + "\n") == std::string::npos && !installed.starts_with(line), namesProgram)
        << line;
  }
}

TEST(DesktopEntryTest, OpensAModelAsTheInstalledOneDoes) {
  EXPECT_THAT(FileBytes(PACKAGING_DIR "/strutwright.desktop"), HasSubstr("\nExec=strutwright --open %f\n"));
}

TEST(DesktopEntryTest, EscapesThePathInEveryLine) {
  DesktopFileType type = TrussType();
  type.command = "/my trusses/back\\slash";
  EXPECT_THAT(DesktopEntry(type), HasSubstr("\nTryExec=/my trusses/back\\\\slash\n"
                                            "Exec=\"/my trusses/back\\\\\\\\slash\" --open %f\n"));
}

TEST(ExecCommandTest, LeavesAPlainPath) {
  EXPECT_EQ(ExecCommand("/usr/local/bin/strutwright-1.0_b"), "/usr/local/bin/strutwright-1.0_b");
  EXPECT_EQ(ExecCommand("/home/j\xC3\xBCrgen/strutwright"), "/home/j\xC3\xBCrgen/strutwright");
}

TEST(ExecCommandTest, QuotesWhatAShellWouldTakeForSomethingElse) {
  for (const char reserved : std::string(" '><~|&;*?#()")) {
    const std::string path = std::string("/a") + reserved + "b";
    EXPECT_EQ(ExecCommand(path), "\"" + path + "\"");
  }
}

TEST(ExecCommandTest, EscapesWithinQuotesAndThenForTheLine) {
  EXPECT_EQ(ExecCommand("/a\"b"), R"("/a\\"b")");
  EXPECT_EQ(ExecCommand("/a`b"), R"("/a\\`b")");
  EXPECT_EQ(ExecCommand("/a$b"), R"("/a\\$b")");
  EXPECT_EQ(ExecCommand("/a\\b"), R"("/a\\\\b")");
  EXPECT_EQ(ExecCommand("/a\nb\tc\rd"), R"("/a\nb\tc\rd")");
}

TEST(ExecCommandTest, DoublesThePercentSignAndHidesItFromWhoeverLooksForTheProgram) {
  EXPECT_EQ(ExecCommand("/100%f/a"), "env /100%%f/a");
  EXPECT_EQ(ExecCommand("/100 %/a"), "env \"/100 %%/a\"");
}

/// The list after strutwright.desktop has been entered for application/x-strutwright.
std::string With(const std::string& list) {
  return WithDefaultApplication(list, "application/x-strutwright", "strutwright.desktop");
}

TEST(DefaultApplicationTest, BeginsAList) {
  EXPECT_EQ(With(""), "[Default Applications]\napplication/x-strutwright=strutwright.desktop\n");
}

TEST(DefaultApplicationTest, KeepsEveryOtherLine) {
  EXPECT_EQ(With("# mine\n[Default Applications]\ntext/plain=vim.desktop\n\n[Added Associations]\nx/y=z.desktop\n"),
            "# mine\n[Default Applications]\napplication/x-strutwright=strutwright.desktop\ntext/plain=vim.desktop\n\n"
            "[Added Associations]\nx/y=z.desktop\n");
}

TEST(DefaultApplicationTest, AddsTheGroupToAListWithoutIt) {
  EXPECT_EQ(With("[Added Associations]\napplication/x-strutwright=vim.desktop;"),
            "[Added Associations]\napplication/x-strutwright=vim.desktop;\n\n"
            "[Default Applications]\napplication/x-strutwright=strutwright.desktop\n");
}

TEST(DefaultApplicationTest, LeavesWhatTheUserHasChosen) {
  for (const std::string line : {"application/x-strutwright=vim.desktop", "application/x-strutwright = vim.desktop;",
                                 "application/x-strutwright=strutwright.desktop"}) {
    for (const std::string& list : {"[Default Applications]\n" + line, "[Default Applications]\r\n" + line + "\r\n",
                                    "[Default Applications]\na/b=c\n" + line + "\n[Other]\n"}) {
      EXPECT_EQ(With(list), list);
    }
  }
}

TEST(DefaultApplicationTest, TakesNoOtherLineForAChoice) {
  for (const std::string line :
       {"application/x-strutwright=", "application/x-strutwright=;", "application/x-strutwright-old=vim.desktop",
        "#application/x-strutwright=vim.desktop", "application/x-strutwright"}) {
    EXPECT_EQ(With("[Default Applications]\n" + line + "\n"),
              "[Default Applications]\napplication/x-strutwright=strutwright.desktop\n" + line + "\n");
  }
}

TEST(DefaultApplicationTest, FindsTheGroupAtTheEndOfTheList) {
  EXPECT_EQ(With("[A]\n[Default Applications]"),
            "[A]\n[Default Applications]\napplication/x-strutwright=strutwright.desktop\n");
  EXPECT_EQ(With("[Default Applications]\n[Removed Associations]\napplication/x-strutwright=vim.desktop\n"),
            "[Default Applications]\napplication/x-strutwright=strutwright.desktop\n[Removed Associations]\n"
            "application/x-strutwright=vim.desktop\n");
}

} // namespace
} // namespace strutwright
