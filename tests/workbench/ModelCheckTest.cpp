// What is told of a model before it becomes the open one.

#include "AnalysisState.h"
#include "WorkbenchFixture.h"
#include "modModelCheck.h"
#include "modRunAnalysis.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ModelCheckTest : public WorkbenchFixture {
 protected:
  /// The model as it is when it is not the open one.
  static StoredModel Stored(const ModelData& data) {
    SetModel(data);
    StoredModel stored = ModelInTables();
    SetModel(Square());
    return stored;
  }
};

TEST_F(ModelCheckTest, SaysThatATrussHolds) {
  EXPECT_THAT(FindingsOf(Stored(Triangle())), ElementsAre("The truss is stable"));
}

TEST_F(ModelCheckTest, SaysHowATrussCanMove) {
  EXPECT_THAT(FindingsOf(Stored(Square())),
              ElementsAre("The truss is a mechanism: it can move in one way without stretching a member",
                          HasSubstr("no member or support resists this")));
}

TEST_F(ModelCheckTest, TellsThreeMotionsAtMost) {
  ModelData bars;
  for (int k = 0; k < 5; ++k) {
    const auto x = static_cast<float>(10 * k);
    bars.nodes.push_back({x, 0, 0, 0, 3});
    bars.nodes.push_back({x + 1, 0, 0, 0, 0});
    const auto first = static_cast<float>(2 * k + 1);
    bars.members.push_back({first, first + 1});
  }
  const std::vector<std::string> findings = FindingsOf(Stored(bars));
  EXPECT_THAT(findings[0], HasSubstr("5 independent ways"));
  EXPECT_EQ(std::count_if(findings.begin(), findings.end(),
                          [](const std::string& text) { return text.find(" can move up") != std::string::npos; }),
            3);
}

TEST_F(ModelCheckTest, SaysThatThereIsNoTruss) {
  EXPECT_THAT(FindingsOf(StoredModel{}), ElementsAre("There is no truss to judge"));
}

TEST_F(ModelCheckTest, LeavesTheOpenModelAndItsResults) {
  const StoredModel other = Stored(PrattTruss(4));
  SetModel(Triangle());
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  const ModelState before = TheModel;
  const AnalysisState results = TheAnalysis;

  FindingsOf(other);

  EXPECT_EQ(TheModel.NodeTable, before.NodeTable);
  EXPECT_EQ(TheModel.MemberTable, before.MemberTable);
  EXPECT_EQ(AllTexts(GrMembers), AllTexts(before.GrMembers));
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(Displacements, results.Displacements);
}

TEST_F(ModelCheckTest, PutsOffTheCheckOfALargeTruss) {
  StoredModel large;
  large.nodeCount = MostNodesCheckedAside + 1;
  EXPECT_THAT(FindingsOf(large),
              ElementsAre("A truss of more than 5000 nodes is checked once it is imported, after Run "
                          "Analysis"));
}

} // namespace
} // namespace strutwright
