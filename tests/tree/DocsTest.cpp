// The documents: that what they point to is there, and that the manual leaves out no message and no key.

#include "TreeFiles.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const fs::path Tree = SOURCE_DIR;
const fs::path Manual = Tree / "docs/manual";

std::vector<fs::path> FilesBelow(const fs::path& folder, const std::string& extension) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.path().extension() == extension) files.push_back(entry.path());
  }
  return files;
}

std::vector<fs::path> Documents() {
  std::vector<fs::path> documents = FilesBelow(Tree / "docs", ".md");
  for (const char* name : {"README.md", "CONTRIBUTING.md", "examples/README.md"}) documents.push_back(Tree / name);
  return documents;
}

/// What links and pictures of a document point to within the tree, without the place in the file.
std::vector<std::string> Targets(const std::string& text) {
  static const std::regex link(R"(\]\(([^)#\s]+)[^)]*\))");
  std::vector<std::string> targets = Matches(text, link);
  std::erase_if(targets, [](const std::string& target) { return target.find("://") != std::string::npos; });
  return targets;
}

TEST(LinkTest, PointsToAFile) {
  int found = 0;
  for (const fs::path& document : Documents()) {
    for (const std::string& target : Targets(TextOf(document))) {
      ++found;
      EXPECT_TRUE(fs::exists(document.parent_path() / target)) << document << " links " << target;
    }
  }
  EXPECT_GT(found, 50);
}

TEST(LinkTest, IsFoundInText) {
  EXPECT_THAT(Targets("See [a](b.md), ![c](d/e.png) and [f](g.md#h); not [i](https://j.example) nor [k](#l)."),
              ElementsAre("b.md", "d/e.png", "g.md"));
}

TEST(ManualTest, HasEveryChapterInItsContents) {
  const std::vector<std::string> contents = Targets(TextOf(Manual / "index.md"));
  for (const fs::path& chapter : FilesBelow(Manual, ".md")) {
    if (chapter.filename() == "index.md") continue;
    EXPECT_THAT(contents, Contains(chapter.filename().string()));
  }
}

TEST(ManualTest, ShowsEveryPictureSmall) {
  std::set<std::string> shown;
  for (const fs::path& chapter : FilesBelow(Manual, ".md")) {
    for (const std::string& target : Targets(TextOf(chapter))) shown.insert(fs::path(target).filename().string());
  }
  for (const fs::path& picture : FilesBelow(Manual, ".png")) {
    EXPECT_THAT(shown, Contains(picture.filename().string()));
    EXPECT_LT(fs::file_size(picture), 150000U) << picture;
  }
}

TEST(ManualTest, HasThePagesOfTheHelpMenu) {
  const std::string menus = TextOf(Tree / "src/windows/main/Menus.cpp");
  for (const char* page : {"index", "signs", "keys"}) {
    EXPECT_THAT(menus, HasSubstr("\"" + std::string(page) + "\""));
    EXPECT_TRUE(fs::exists(Manual / (std::string(page) + ".md"))) << page;
  }
  EXPECT_THAT(TextOf(Manual / "signs.md"), testing::StartsWith("# Sign Conventions and Units\n"));
  EXPECT_THAT(TextOf(Manual / "keys.md"), testing::StartsWith("# Keyboard Shortcuts\n"));
}

/// The lines of the string literals in a piece of source, without blanks around them.
std::vector<std::string> LiteralLines(const std::string& source) {
  static const std::regex literal(R"re("((?:[^"\\]|\\.)*)")re");
  static const std::regex line(R"((?:^|\\n)\s*((?:[^\\]|\\[^n])*))");
  std::vector<std::string> lines;
  for (const std::string& text : Matches(source, literal)) {
    for (std::string each : Matches(text, line)) {
      each.erase(each.find_last_not_of(' ') + 1);
      if (!each.empty()) lines.push_back(each);
    }
  }
  return lines;
}

/// The arguments of the calls that show a message; a statement ends with a semicolon at the end of a line.
std::vector<std::string> MessageCalls(const std::string& source) {
  static const std::regex call(
      R"(\b(?:ShowMessage|AskQuestion|ShowHint|Confirm|ReportDrawingFailure)\(([^]*?)\);[^"\n]*\n)");
  return Matches(source, call);
}

TEST(MessageTest, IsFoundInSource) {
  const std::vector<std::string> calls =
      MessageCalls("  ShowMessage(Icon, \"One \" + Text(1) +\n  \" two.\\nThree\");\n  return \"four\";\n");
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_THAT(LiteralLines(calls[0]), ElementsAre("One", "two.", "Three"));
}

TEST(MessageTest, OfACallStandsInTheManual) {
  const std::string manual = TextOf(Manual / "messages.md");
  int found = 0;
  for (const fs::path& source : FilesBelow(Tree / "src", ".cpp")) {
    if (source.string().find("/src/cli/") != std::string::npos) continue;
    for (const std::string& call : MessageCalls(TextOf(source))) {
      for (const std::string& line : LiteralLines(call)) {
        ++found;
        EXPECT_THAT(manual, HasSubstr(line)) << source;
      }
    }
  }
  EXPECT_GT(found, 50);
}

/// Those that are put together elsewhere, each with the file that holds it.
const std::vector<std::pair<std::string, std::string>> OtherMessages{
    {"src/analysis/AnalysisTexts.cpp", "E-value"},
    {"src/analysis/AnalysisTexts.cpp", "A-value"},
    {"src/analysis/AnalysisTexts.cpp", "has no length"},
    {"src/analysis/AnalysisTexts.cpp", "node numbers"},
    {"src/analysis/AnalysisTexts.cpp", "E is not valid"},
    {"src/analysis/AnalysisTexts.cpp", "E and A are not valid"},
    {"src/analysis/AnalysisTexts.cpp", "area is not valid"},
    {"src/analysis/AnalysisTexts.cpp", "Structure is unstable - Aborting analysis"},
    {"src/analysis/AnalysisTexts.cpp", "Failed Check"},
    {"src/analysis/AnalysisTexts.cpp", "Error: member index of"},
    {"src/analysis/AnalysisTexts.cpp", "which does not exist:"},
    {"src/analysis/AnalysisTexts.cpp", "Solving the equations"},
    {"src/display/modPicking.cpp", "Node not found:"},
    {"src/display/modPicking.cpp", "Do you want to add this node?"},
    {"src/display/modPicking.cpp", "Member not found:"},
    {"src/display/modPicking.cpp", "The new member has no length"},
    {"src/display/modPicking.cpp", "The new member is parallel to member"},
    {"src/files/modFileCommands.cpp", "values are there; the others are read as zero."},
    {"src/files/modFileCommands.cpp", "Not finite numbers and read as zero:"},
    {"src/exchange/DxfDrawing.cpp", "a DXF file begins with a section"},
    {"src/exchange/DxfDrawing.cpp", "one entity is larger than any model"},
    {"src/exchange/DxfDrawing.cpp", "the drawing has more than 100000 lines; a model has at most 32767 members"},
    {"src/exchange/DxfDrawing.cpp", "the drawing has more than 100000 points and blocks"},
    {"src/exchange/CsvText.cpp", "a closing quotation mark is not followed by a "},
    {"src/exchange/CsvText.cpp", "the line has more than 100 values"},
    {"src/exchange/modTables.cpp", "the name of the layer is missing"},
    {"src/exchange/modImportFile.cpp", "It is no file"},
    {"src/exchange/modImportFile.cpp", "It has more than 64 MB"},
    {"src/exchange/modImportFile.cpp", "It holds no text; File > Open opens model files"},
    {"src/exchange/modImportFile.cpp", "The tolerance is no number from 0.001 to 1000000: type one in mm, such as 1"},
    {"src/model/Grid.cpp", "The grid has no cell ("},
    {"src/model/Grid.cpp", "A grid has at most 32767 data rows"},
    {"src/analysis/AnalysisTexts.cpp", "the model has no nodes"},
    {"src/statics/modPath.cpp", "numbers and ranges, such as 1-10 or 1,3,5"},
    {"src/statics/modPath.cpp", "The model has no nodes to take a path over: enter a truss first"},
    {"src/statics/modPath.cpp", ": name nodes that exist"},
    {"src/statics/modPath.cpp", "twice: name each node once"},
    {"src/statics/modPath.cpp", ": name the nodes of a path from one end to the other"},
    {"src/statics/modInfluence.cpp", "Influence lines need a stable truss, but "},
    {"src/statics/modInfluence.cpp", "The model has no nodes, so it has no influence lines: enter a truss first"},
    {"src/statics/modInfluence.cpp", ": choose one from 1 to "},
    {"src/statics/modInfluence.cpp", ": choose a node and a direction that one holds"},
    {"src/statics/HandTruss.cpp", ", which does not exist,"},
    {"src/statics/HandTruss.cpp", "has no length"},
    {"src/statics/HandTruss.cpp", "Prestress changes no force that statics alone can find: "},
    {"src/statics/modSections.cpp", "The line has no length"},
    {"src/statics/modSections.cpp", "The line runs along member "},
    {"src/statics/modSections.cpp", ", where it cuts no member clearly"},
    {"src/statics/modSections.cpp", "The line cuts no member"},
    {"src/statics/modSections.cpp", ", but leaves the truss in one piece"},
    {"src/statics/modSections.cpp", ", so no equation has one of them alone"},
    {"src/statics/modSections.cpp", "; draw another line"},
    {"src/workbench/HandStrokes.cpp", "Type the line's ends as four numbers in m, such as 4.5, 5 and 4.5, -1."},
    {"src/workbench/modHandLesson.cpp", "What can move need not be in equilibrium: "},
    {"src/workbench/modHandLesson.cpp", "The model has no nodes: enter a truss first."},
    {"src/workbench/modHandLesson.cpp", "No node is loaded: every force that equilibrium can find is 0."},
    {"src/workbench/modDrags.cpp", " would lie on node "},
    {"src/workbench/modDrags.cpp", "The nodes would lie too far away: move them less"},
    {"src/workbench/modVary.cpp", "The truss has no span to vary: enter nodes beside each other"},
    {"src/workbench/modVary.cpp", "The truss has no height to vary: enter nodes above each other"},
    {"src/workbench/modVary.cpp", ": choose one from 1 to "},
    {"src/workbench/modVary.cpp", "The list names no members, or some that do not exist: write numbers up to "},
    {"src/workbench/modVary.cpp", " in this direction: choose a node and a direction that one holds"},
    {"src/windows/vary/frmVary.cpp", "The range has no length: write two numbers, the smaller one first"},
    {"src/windows/vary/frmVary.cpp", "A span or a height stays above zero: begin the range above 0"},
    {"src/classset/modClassEntry.cpp", "Nothing differs from student to student: give a range to some quantity"},
    {"src/classset/modClassEntry.cpp", " is not whole: write where it begins, where it ends and a step"},
    {"src/classset/modClassEntry.cpp", ", which is no number: write one such as 12.5"},
    {"src/classset/modClassEntry.cpp", "Nothing is asked: choose a question"},
    {"src/classset/modClassSet.cpp", "The model has no nodes: build a truss first"},
    {"src/classset/modClassSet.cpp", "No variant can be used, because "},
    {"src/classset/modClassSet.cpp", ": widen the ranges or make their steps smaller"},
    {"src/classset/modClassSet.cpp", ": vary something that the asked values depend on"},
    {"src/classset/modStudents.cpp", "The list names no student: write a name a line"},
    {"src/classset/modStudents.cpp", "; give each student a name of one's own that can be a folder's"},
    {"src/classset/modQuestions.cpp", " is nothing to ask for: choose "},
    {"src/classset/modQuestions.cpp", "There is nothing in the model to ask for: build a truss with supports first"},
    {"src/classset/modQuestions.cpp", ": ask for a reaction that there is"},
    {"src/classset/modStudents.cpp", "A class has at most 1000 students: divide the list"},
    {"src/classset/modStudents.cpp", "The number of students must be 1 to 1000"},
    {"src/classset/modVariations.cpp", " is no range: write one such as span:18..30:1"},
    {"src/classset/modVariations.cpp", " must be above zero"},
    {"src/classset/modVariations.cpp", " ends before it begins"},
    {"src/classset/modVariations.cpp", " has more than a million values: use larger steps"},
    {"src/classset/modVariations.cpp", " must begin above zero"},
    {"src/classset/modVariations.cpp", " is varied twice: give one range for it"},
    {"src/classset/modClassFiles.cpp", " is no format: choose some of "},
    {"src/classset/ClassTable.cpp", ": its first line must be "},
    {"src/classset/ClassTable.cpp", " has more fields than headings: put a number with a comma in quotation marks"},
    {"src/classset/ClassTable.cpp", " can't be read: "},
    {"src/classset/modKey.cpp", "student and question must be given"},
    {"src/classset/modKey.cpp", "the answer is missing"},
    {"src/classset/modKey.cpp", " is no tolerance: write a number from 0 on"},
    {"src/classset/modKey.cpp", " is there twice"},
    {"src/classset/modKey.cpp", "The key has no answers"},
    {"src/classset/modMarking.cpp", " is no number"},
    {"src/classset/modMarking.cpp", " has answered "},
    {"src/classset/modMarking.cpp", "; take the key of the same class set"},
    {"src/classset/MarkSummary.cpp", " can't be read and gets no points"},
    {"src/cli/ClassCommand.cpp", "Stopped: nothing was written"},
    {"src/cli/ClassCommand.cpp", "--family must be one of "},
    {"src/cli/MarkCommand.cpp",
     "The marks would take the place of the key or the answers: choose another name for --out"},
    {"src/classset/ClassFolder.cpp", " exists already: choose a new one, so that nothing is lost"},
    {"src/windows/classset/frmClassSet.cpp", "No file would be made: choose some kind of them"},
    {"src/windows/classset/frmClassSet.cpp", " could not be written: "},
    {"src/windows/classset/frmClassSet.cpp", "Cancelled: nothing was made."},
    {"src/statics/modTrain.cpp",
     "is no axle: write its force in kN and its distance in m from the first, such as 100@3.5"},
    {"src/statics/modTrain.cpp", "has no load: give it a force above 0 kN, which acts downward"},
    {"src/statics/modTrain.cpp", "has a negative distance: measure from the first axle to the rear, from 0 m on"},
    {"src/statics/modTrain.cpp", "The train has no loads: write the force and distance of each axle, such as "},
};

TEST(MessageTest, OfAnotherPlaceStandsInTheManual) {
  const std::string manual = TextOf(Manual / "messages.md");
  for (const auto& [source, text] : OtherMessages) {
    EXPECT_THAT(TextOf(Tree / source), HasSubstr(text)) << source;
    EXPECT_THAT(manual, HasSubstr(text));
  }
}

TEST(MessageTest, OfTheEquationsStandsInTheManual) {
  const std::string source = TextOf(Tree / "src/equations/modEquationTexts.cpp");
  const std::string table = source.substr(0, source.find("std::string Fill"));
  const std::string manual = TextOf(Manual / "messages.md");
  const std::vector<std::string> sentences = Matches(table, std::regex(R"re(string_view \w+ =[^"]*"([^"]*)")re"));
  EXPECT_EQ(sentences.size(), 26U);
  for (const std::string& sentence : sentences) {
    static const std::regex between(R"((?:^|%\d)([^%]+))");
    for (const std::string& part : Matches(sentence, between)) EXPECT_THAT(manual, HasSubstr(part));
  }
}

/// How the manual calls the keys that the desktop has for a command.
const std::map<std::string, std::string> StandardKeys{
    {"New", "Ctrl+N"},        {"Open", "Ctrl+O"},     {"Save", "Ctrl+S"},      {"SaveAs", "Ctrl+Shift+S"},
    {"Quit", "Ctrl+Q"},       {"HelpContents", "F1"}, {"Copy", "Ctrl+C"},      {"Cut", "Ctrl+X"},
    {"Paste", "Ctrl+V"},      {"Delete", "Delete"},   {"SelectAll", "Ctrl+A"}, {"Undo", "Ctrl+Z"},
    {"Redo", "Ctrl+Shift+Z"}, {"Print", "Ctrl+P"},
};

/// What stands in the first column of a table of the manual's keys.
std::set<std::string> KeysOfTheManual() {
  std::set<std::string> keys;
  for (const std::string& cell : Matches(TextOf(Manual / "keys.md"), std::regex(R"(\n\| ([^|]*) \|)"))) {
    for (const std::string& key : Matches(cell + ",", std::regex(R"(\s*([^,]+),)"))) keys.insert(key);
  }
  return keys;
}

TEST(KeyTest, OfACommandStandsInTheManual) {
  const std::set<std::string> manual = KeysOfTheManual();
  const std::regex standard(R"(QKeySequence::(?!StandardKey|keyBindings)(\w+))");
  int found = 0;
  for (const fs::path& source : FilesBelow(Tree / "src/windows", ".cpp")) {
    for (const std::string& command : Matches(TextOf(source), standard)) {
      ++found;
      ASSERT_TRUE(StandardKeys.contains(command)) << command << " in " << source;
      EXPECT_THAT(manual, Contains(StandardKeys.at(command)));
    }
  }
  EXPECT_GT(found, 12);
}

TEST(KeyTest, OfAFunctionStandsInTheManual) {
  const std::set<std::string> manual = KeysOfTheManual();
  for (const fs::path& source : FilesBelow(Tree / "src", ".cpp")) {
    for (const std::string& key : Matches(TextOf(source), std::regex(R"(Qt::Key_(F\d+))"))) {
      EXPECT_THAT(manual, Contains(key)) << source;
    }
  }
  EXPECT_THAT(manual, Contains("Ctrl+R"));
  EXPECT_THAT(manual, Not(IsEmpty()));
}

/// "&" before a letter of a caption makes it a key with Alt.
TEST(KeyTest, OfTheControlBoardStandsInTheManual) {
  const std::set<std::string> manual = KeysOfTheManual();
  const std::string source = TextOf(Tree / "src/windows/main/ControlBoard.cpp");
  const std::vector<std::string> letters = Matches(source, std::regex(R"re("[^"]*&(\w)[^"]*")re"));
  EXPECT_GT(letters.size(), 12U);
  for (std::string letter : letters) {
    std::transform(letter.begin(), letter.end(), letter.begin(), [](unsigned char c) { return std::toupper(c); });
    EXPECT_THAT(manual, Contains("Alt+" + letter));
  }
}

} // namespace
} // namespace strutwright
