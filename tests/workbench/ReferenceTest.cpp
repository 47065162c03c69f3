// Model files with exact answers: opened, passed through the grid texts and analysed, every result must agree to the
// bit.  tests/data/reference/README.md explains the answer files.

#include "AnalysisState.h"
#include "EditingState.h"
#include "EventsTest.h"
#include "NativeFileSystem.h"
#include "ReferenceModels.h"
#include "WorkbenchState.h"
#include "modFileCommands.h"
#include "modGrids.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modRunAnalysis.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

/// What an answer file says, apart from the D, R, F and M records, which are checked one by one.
struct Answer {
  int capacity = 0;
  int nodes = 0;
  int members = 0;
  std::vector<Message> messages;
  std::string result;
  std::vector<std::string> records;
};

MessageIcon IconNamed(const std::string& name) {
  return name == "critical" ? MessageIcon::Critical : MessageIcon::Information;
}

/// A text with its "\\n" turned into line breaks.
std::string WithLineBreaks(const std::string& text) {
  std::string lines;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool lineBreak = text.compare(at, 2, "\\n") == 0;
    lines.push_back(lineBreak ? '\n' : text[at]);
    if (lineBreak) ++at;
  }
  return lines;
}

Message ReadMessage(const std::string& text) {
  const std::size_t iconEnd = text.find('|');
  const std::size_t titleEnd = text.find('|', iconEnd + 1);
  return {IconNamed(text.substr(0, iconEnd)), text.substr(iconEnd + 1, titleEnd - iconEnd - 1),
          WithLineBreaks(text.substr(titleEnd + 1))};
}

Answer ReadAnswer(const std::string& path) {
  Answer answer;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string kind;
    words >> kind >> std::ws;
    if (kind == "MODEL") words >> answer.capacity >> answer.nodes >> answer.members;
    if (kind == "RESULT") words >> answer.result;
    if (kind == "MSG") answer.messages.push_back(ReadMessage(line.substr(4)));
    if (kind == "D" || kind == "R" || kind == "F" || kind == "M") answer.records.push_back(line);
  }
  return answer;
}

float NextFloat(std::istream& words) {
  std::string text;
  words >> text;
  return std::strtof(text.c_str(), nullptr);
}

void CheckFreedom(std::istream& words, const std::vector<float>& results, bool restraintFollows) {
  std::size_t dof = 0;
  words >> dof;
  EXPECT_EQ(results.at(dof), NextFloat(words));
  if (!restraintFollows) return;
  std::string decimal;
  int restrained = 0;
  words >> decimal >> restrained;
  EXPECT_EQ(FixedDof.at(dof), restrained);
}

void CheckMemberResults(const std::string& record) {
  std::istringstream words(record);
  char kind = 0;
  int member = 0;
  words >> kind >> member;
  const std::size_t quote = record.find('"');
  const std::size_t endQuote = record.find('"', quote + 1);
  EXPECT_EQ(MemberState(member), record.substr(quote + 1, endQuote - quote - 1));
  words.seekg(static_cast<std::streamoff>(endQuote + 1));
  EXPECT_EQ(MemberStress(member), NextFloat(words));
  std::string decimal;
  words >> decimal;
  EXPECT_EQ(MemberStretch(member), NextFloat(words));
}

void CheckRecord(const std::string& record) {
  SCOPED_TRACE(record);
  std::istringstream words(record);
  char kind = 0;
  words >> kind;
  if (kind == 'D') CheckFreedom(words, Displacements, false);
  if (kind == 'R') CheckFreedom(words, Reactions, true);
  if (kind == 'M') CheckMemberResults(record);
  if (kind != 'F') return;
  int member = 0;
  int field = 0;
  words >> member >> field;
  EXPECT_EQ(MemberTable(member, field), NextFloat(words));
}

class ReferenceTest : public EventsTest, public testing::WithParamInterface<std::string> {
 protected:
  ReferenceTest() {
    ThePlatform().files = &disk;
    TheModel = ModelState{};
    TheAnalysis = AnalysisState{};
    TheEditing = EditingState{};
    TheWorkbench = WorkbenchState{};
    initGrids();
  }

  NativeFileSystem disk;
};

TEST_P(ReferenceTest, AgreesToTheBit) {
  const std::string path = std::string(REFERENCE_DIR) + "/" + GetParam();
  const Answer answer = ReadAnswer(path + ".txt");

  ASSERT_TRUE(openModel(path + ".stw"));
  const bool ok = runAnalysis(ScratchCopy::None);

  EXPECT_EQ(GridCapacity, answer.capacity);
  EXPECT_EQ(NodeCount, answer.nodes);
  EXPECT_EQ(MemberCount, answer.members);
  EXPECT_EQ(ok, answer.result == "ok");
  EXPECT_EQ(FailedCheck, answer.result == "unstable" ? std::optional(2)
                         : answer.result == "empty"  ? std::optional(0)
                                                     : std::nullopt);
  for (const std::string& record : answer.records) CheckRecord(record);
  std::vector<Message> shown = TakeMessages();
  if (answer.result == "bounds") {
    ASSERT_EQ(shown.size(), 1U); // its text is the program's own and has a test of its own
    EXPECT_EQ(shown[0].icon, MessageIcon::Critical);
    return;
  }
  EXPECT_EQ(shown, answer.messages);
  if (answer.result != "empty") {
    EXPECT_FALSE(answer.records.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(Models, ReferenceTest, testing::ValuesIn(ReferenceNames()),
                         [](const auto& each) { return each.param; });

TEST(ReferenceModelsTest, AreAllThere) { EXPECT_EQ(ReferenceNames().size(), 42U); }

} // namespace
} // namespace strutwright
