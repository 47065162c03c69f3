#include "ModelBuilder.h"
#include "WorkbenchFixture.h"
#include "modCheck.h"
#include "modCheckLists.h"
#include "modMotionView.h"

#include <stdexcept>
#include <string>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CheckListsTest : public WorkbenchFixture {
 protected:
  static void Check(const ModelData& model) {
    SetModel(model);
    DropCheck();
    BringCheckUpToDate();
  }

  static std::vector<std::string> Texts(const std::vector<CheckLine>& lines) {
    std::vector<std::string> texts;
    for (const CheckLine& line : lines) texts.push_back(line.text);
    return texts;
  }
};

TEST_F(CheckListsTest, SayInWordsThatTheyAreEmpty) {
  Check(Triangle());
  EXPECT_THAT(Texts(FindingLines()), ElementsAre("Nothing odd about the model"));
  EXPECT_FALSE(FindingLines()[0].Selects());
  ModelData model = Triangle();
  model.nodes[0].support = model.nodes[1].support = 3;
  model.members.pop_back();
  model.members.push_back({1, 3});
  model.members.erase(model.members.begin());
  Check(model);
  EXPECT_THAT(Texts(ZeroBarLines()), ElementsAre("No zero bars"));
}

TEST_F(CheckListsTest, NameTheNodesAndMembersOfAFinding) {
  ModelData model = Triangle();
  model.nodes.push_back({2, 0, 0, 0, 3});
  Check(model);
  const std::vector<CheckLine> lines = FindingLines();
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_EQ(lines[0].text, "Node 4 lies on member 1 but is not joined to it");
  EXPECT_THAT(lines[0].nodes, ElementsAre(4));
  EXPECT_THAT(lines[0].members, ElementsAre(1));
  EXPECT_EQ(lines[1].text, "Node 4 has no member");
}

TEST_F(CheckListsTest, NameZeroBarsWithTheirReasons) {
  ModelData model = Triangle();
  model.nodes[2].forceX = 0;
  model.nodes[1].support = 3;
  Check(model);
  const std::vector<CheckLine> lines = ZeroBarLines();
  ASSERT_FALSE(lines.empty());
  EXPECT_THAT(lines[0].text, testing::StartsWith("Member " + std::to_string(lines[0].members.at(0)) + ": "));
  EXPECT_TRUE(lines[0].Selects());
}

TEST_F(CheckListsTest, DoNotCallTheBarsOfAMechanismZero) {
  Check(Square());
  EXPECT_THAT(Texts(ZeroBarLines()), ElementsAre("Not looked for in a mechanism"));
}

TEST_F(CheckListsTest, NameTheCuresOfTheShownMotion) {
  Check(Square());
  EXPECT_THAT(CureLines(), IsEmpty());
  ShowMotion(1);
  EXPECT_THAT(Texts(CureLines()),
              ElementsAre("Add a member from node 1 to node 3", "Add a member from node 2 to node 4",
                          "Support node 3 in x (support code 2)", "Support node 4 in x (support code 2)"));
  EXPECT_THAT(CureLines()[0].nodes, ElementsAre(1, 3));
  EXPECT_THAT(CureLines()[2].nodes, ElementsAre(3));
  TheCheck.report.stability.mechanisms[0].cures.clear();
  EXPECT_THAT(Texts(CureLines()), ElementsAre("No single member or support would"));
}

TEST_F(CheckListsTest, SaySoWhereTheCheckHasFailed) {
  TheCheck.judge = [](AnalysisOutcome) -> CheckReport { throw std::runtime_error("no such luck"); };
  Check(Triangle());
  EXPECT_THAT(Texts(FindingLines()), ElementsAre("The check could not be made"));
  EXPECT_THAT(Texts(ZeroBarLines()), ElementsAre("The check could not be made"));
  EXPECT_EQ(MotionText(), "The check could not be made");
}

class SelectRowsTest : public WorkbenchFixture {
 protected:
  SelectRowsTest() { GrJoints.SetCurrentCell(9, 2); }

  static GridBlock SelectionOf(const std::vector<int>& rows) {
    SelectRows(GrJoints, rows);
    return GrJoints.Selection();
  }
};

TEST_F(SelectRowsTest, TakesAWholeRow) { EXPECT_EQ(SelectionOf({3}), (GridBlock{3, 1, 3, 5})); }

TEST_F(SelectRowsTest, TakesRowsThatFollowEachOther) { EXPECT_EQ(SelectionOf({3, 4, 5}), (GridBlock{3, 1, 5, 5})); }

TEST_F(SelectRowsTest, TakesTheFirstOfRowsThatDoNot) { EXPECT_EQ(SelectionOf({3, 5}), (GridBlock{3, 1, 3, 5})); }

TEST_F(SelectRowsTest, PassesOverRowsThatTheGridDoesNotHave) {
  EXPECT_EQ(SelectionOf({}), (GridBlock{9, 2, 9, 2}));
  EXPECT_EQ(SelectionOf({0}), (GridBlock{9, 2, 9, 2}));
  EXPECT_EQ(SelectionOf({21}), (GridBlock{9, 2, 9, 2}));
  EXPECT_EQ(SelectionOf({20, 21}), (GridBlock{20, 1, 20, 5}));
}

} // namespace
} // namespace strutwright
