#include "CliTest.h"
#include "ModelBuilder.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class StaticsTest : public CliTest {
 protected:
  std::string Stored(const ModelData& model) {
    SetTables(model);
    PutFile(folder.Path("model.stw"), WriteModel());
    TheModel = ModelState{};
    return folder.Path("model.stw");
  }

  json JsonOf(const ModelData& model) {
    Run({"statics", Stored(model), "--format", "json"});
    return json::parse(out);
  }
};

TEST_F(StaticsTest, PrintsADeterminateTrussAsText) {
  EXPECT_EQ(Run({"statics", Stored(Triangle())}), 0);
  EXPECT_EQ(out, folder.Path("model.stw") + R"(: simple

b + r = 3 + 3 = 6 = 2n: determinate, a simple truss: joint after joint has at most two unknown forces

Reactions
  Sum of x: R1x + 5 = 0
  Moment about node 2: -4 R1y - 3 * 5 = 0
  Moment about node 1: 4 R2y - 3 * 5 + 4 (-10) = 0
  R1x = -5 kN
  R1y = -3.75 kN
  R2y = 13.75 kN

Step 1, joint 1: Two unknown forces
  Sum of x: -5 + F1 + 0.8 F3 = 0
  Sum of y: -3.75 + 0.6 F3 = 0
  F1 = 0
  F3 = 6.25 kN (tension)

Step 2, joint 2: One unknown force: one equation gives it, the other checks
  Sum of x: 0 = 0
  Sum of y: 13.75 + F2 = 0
  F2 = -13.75 kN (compression)

Step 3, joint 3: Every force at this joint is known: it must balance
  Sum of x: 5 - 0.8 * 6.25 = 0
  Sum of y: -10 + 13.75 - 0.6 * 6.25 = 0

Members
  F1 = 0
  F2 = -13.75 kN (compression)
  F3 = 6.25 kN (tension)

Members without force
  1: At node 2 member 2 and the reaction in y act along one line, and member 1 goes across it

Force diagram, points in kN
  A (0, 0)
  B (-5, -3.75)
  C (0, -13.75)
  D (0, 0)
  A-B reaction at node 1: 6.25 kN
  B-C load at node 3: 11.18 kN
  C-A reaction at node 2: 13.75 kN
  D-A member 1: 0 kN
  D-B member 3: 6.25 kN
  D-C member 2: -13.75 kN
  Closing error 0 kN

)");
  EXPECT_EQ(err, "");
}

TEST_F(StaticsTest, PrintsTheSameAsJson) {
  const json answer = JsonOf(Triangle());
  EXPECT_EQ(answer["determinacy"], "determinate");
  EXPECT_EQ(answer["kind"], "simple");
  EXPECT_EQ(answer["degree"], 0);
  EXPECT_EQ(answer["count"], json({{"nodes", 3}, {"members", 3}, {"reactions", 3}}));
  EXPECT_EQ(answer["reactions"],
            json({{{"node", 1}, {"rx", -5}, {"ry", -3.75}}, {{"node", 2}, {"rx", 0}, {"ry", 13.75}}}));
  ASSERT_EQ(answer["joints"].size(), 3U);
  EXPECT_EQ(answer["joints"][0]["nodes"], json({1}));
  EXPECT_EQ(answer["joints"][0]["step"], "joint");
  EXPECT_EQ(answer["joints"][0]["equations"][0], json({{"title", "Sum of x"}, {"equation", "-5 + F1 + 0.8 F3 = 0"}}));
  EXPECT_EQ(answer["joints"][0]["solution"], json({"F1 = 0", "F3 = 6.25 kN (tension)"}));
  EXPECT_EQ(
      answer["members"],
      json({{{"member", 1}, {"force", 0}}, {{"member", 2}, {"force", -13.75}}, {{"member", 3}, {"force", 6.25}}}));
  EXPECT_EQ(answer["zero_members"][0]["member"], 1);
  EXPECT_EQ(answer["zero_members"][0]["node"], 2);
  EXPECT_THAT(answer["zero_members"][0]["rule"].get<std::string>(), StartsWith("At node 2 "));
  EXPECT_EQ(answer["zero_by_numbers"], json::array());
  EXPECT_EQ(answer["force_diagram"]["points"][1], json({{"space", "B"}, {"x", -5}, {"y", -3.75}}));
  EXPECT_EQ(answer["force_diagram"]["lines"][1]["force"].get<float>(), 11.18034F);
  EXPECT_EQ(answer["force_diagram"]["lines"][5],
            json({{"member", 2}, {"node", 2}, {"from", "D"}, {"to", "C"}, {"force", -13.75}}));
  EXPECT_TRUE(answer["force_diagram"]["why_not"].is_null());
  EXPECT_TRUE(answer["stop"].is_null());
}

TEST_F(StaticsTest, AgreesWithTheAnalysis) {
  int compared = 0;
  for (const char* name : {"fink_roof", "three_bars_corner", "four_nodes_three_bars"}) {
    const std::string file = std::string(EXAMPLES_DIR) + "/" + name + ".stw";
    Run({"statics", file, "--format", "json"});
    const json statics = json::parse(out)["members"];
    Run({"analyse", file, "--format", "json"});
    const json analysed = json::parse(out)["members"];
    ASSERT_EQ(statics.size(), analysed.size()) << name;
    for (std::size_t m = 0; m < statics.size(); ++m) {
      EXPECT_EQ(statics[m]["member"], analysed[m]["member"]);
      if (statics[m]["force"].is_null()) continue;
      ++compared;
      EXPECT_NEAR(statics[m]["force"].get<double>(), analysed[m]["force"].get<double>(), 1e-3);
    }
  }
  EXPECT_GT(compared, 10);
}

TEST_F(StaticsTest, LeavesOpenWhatIsIndeterminate) {
  ModelData model = Triangle();
  model.nodes[1].support = 3;
  EXPECT_EQ(Run({"statics", Stored(model)}), 0);
  EXPECT_THAT(out, HasSubstr(": indeterminate to 1\n"));
  EXPECT_THAT(out, HasSubstr("  F1 is left open\n"));
  EXPECT_THAT(out, HasSubstr("There is no force diagram: its forces are not known from equilibrium: "));
  const json answer = JsonOf(model);
  EXPECT_EQ(answer["determinacy"], "indeterminate");
  EXPECT_EQ(answer["kind"], "indeterminate to 1");
  EXPECT_EQ(answer["degree"], 1);
  EXPECT_TRUE(answer["members"][0]["force"].is_null());
  EXPECT_NEAR(answer["members"][2]["force"].get<double>(), 6.25, 1e-6);
  EXPECT_TRUE(answer["reactions"][0]["rx"].is_null());
  EXPECT_THAT(answer["stop"].get<std::string>(), HasSubstr("indeterminate to degree 1"));
  EXPECT_EQ(answer["force_diagram"]["points"], json::array());
  EXPECT_THAT(answer["force_diagram"]["why_not"].get<std::string>(), StartsWith("There is no force diagram: "));
}

TEST_F(StaticsTest, GivesStatusOneToAMechanismAndToNothing) {
  EXPECT_EQ(Run({"statics", Reference("mechanism_square")}), 1);
  EXPECT_THAT(out, HasSubstr(": mechanism\n\nb + r = "));
  EXPECT_THAT(out, HasSubstr(" can move in one way; no member or support resists this\n"));
  EXPECT_THAT(out, Not(HasSubstr("Reactions")));
  EXPECT_THAT(out, Not(HasSubstr("Members without force")));
  Run({"statics", Reference("mechanism_square"), "--format", "json"});
  EXPECT_EQ(json::parse(out)["determinacy"], "mechanism");
  EXPECT_EQ(Run({"statics", Stored({})}), 1);
  EXPECT_EQ(out, folder.Path("model.stw") + ": empty\n\nThe model has no node\n\n");
}

TEST_F(StaticsTest, NamesWhatIsLeftOut) {
  ModelData model = Triangle();
  model.members.push_back({2, 2});
  EXPECT_EQ(Run({"statics", Stored(model)}), 0);
  EXPECT_THAT(out, HasSubstr("\nMember 4 has no length and is left out\n"));
  const json answer = JsonOf(model);
  EXPECT_EQ(answer["notes"], json({"Member 4 has no length and is left out"}));
  EXPECT_TRUE(answer["members"][3]["force"].is_null());
}

TEST_F(StaticsTest, WritesNoNumberWhereAFloatHasNone) {
  ModelData model = Triangle();
  model.nodes[2].forceX = 3e38F;
  model.nodes[2].forceY = -3e38F;
  const json answer = JsonOf(model);
  // F3 = 3E+38 / 0.8, and F2 balances the load and F3: both beyond 3.4E+38.
  EXPECT_TRUE(answer["members"][1]["force"].is_null());
  EXPECT_TRUE(answer["members"][2]["force"].is_null());
  EXPECT_NEAR(answer["reactions"][0]["rx"].get<double>() / -3e38, 1, 1e-6);
}

TEST_F(StaticsTest, TakesTheModelAsAnAnalysisDoes) {
  // The grids show seven digits, and an analysis takes the model from there: 16777220 kN, not 16777215.
  ModelData model = Triangle();
  model.nodes[2].forceY = -16777215;
  EXPECT_NEAR(JsonOf(model)["members"][1]["force"].get<double>(), -16777223.75, 2);
}

TEST_F(StaticsTest, RefusesWrongUsageAndUnreadableFiles) {
  EXPECT_EQ(Run({"statics"}), 2);
  EXPECT_EQ(Run({"statics", folder.Path("missing.stw")}), 2);
  EXPECT_EQ(out, "");
  EXPECT_THAT(err, HasSubstr("missing.stw: "));
  EXPECT_EQ(Run({"statics", Stored(Triangle()), "--format", "csv"}), 2);
  EXPECT_EQ(Run({"statics", Stored(Triangle()), Stored(Triangle())}), 2);
}

} // namespace
} // namespace strutwright
