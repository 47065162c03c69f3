#include "CliTest.h"
#include "Commands.h"
#include "ModelBuilder.h"
#include "Pattern.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <new>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using nlohmann::json;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class CheckTest : public CliTest {
 protected:
  /// Stores a model and gives its path.
  std::string Made(const std::string& name, const std::string& csv) {
    PutFile(folder.Path("in.csv"), csv);
    EXPECT_EQ(Run({"make", folder.Path("in.csv"), folder.Path(name)}), 0) << err;
    return folder.Path(name);
  }

  std::string Stored(const std::string& name, const ModelData& model) {
    SetTables(model);
    PutFile(folder.Path(name), WriteModel());
    TheModel = ModelState{};
    return folder.Path(name);
  }

  /// A frame without a diagonal, so stiff that what rounding leaves of its pivot passes.
  std::string AcceptedMechanism() {
    return Made("accepted.stw", "JOINTS,x(m),y(m),ForceX (kN),ForceY (kN),Support\n"
                                "1,0,0,0,0,3\n2,3.7,1.3,0,0,3\n3,3.1,5.3,10,0,0\n4,-0.6,4,0,0,0\n"
                                "MEMBERS,Node i,Node j,E (kN/mm2),A (mm2),PS (kN)\n"
                                "1,2,3,200,5000000,0\n2,3,4,200,5000000,0\n3,4,1,200,5000000,0\n");
  }

  /// The triangle with a fourth member that is ignored, so that another one's stiffness stands in its place.
  std::string WrongAnswer() {
    return Made("wrong.stw", "JOINTS,x(m),y(m),ForceX (kN),ForceY (kN),Support\n"
                             "1,0,0,0,0,3\n2,4,0,0,0,1\n3,4,3,5,-10,0\n4,0,3,0,0,3\n"
                             "MEMBERS,Node i,Node j,E (kN/mm2),A (mm2),PS (kN)\n"
                             "1,1,2,200,1000,0\n2,2,3,200,1000,0\n3,3,1,200,1000,0\n4,4,3,-200,1000,0\n");
  }

  json CheckOf(const std::string& model) {
    Run({"analyse", "--check", "--format", "json", model});
    return json::parse(out)["check"];
  }
};

TEST_F(CheckTest, AddsItsValuesToTheJson) {
  EXPECT_EQ(Run({"analyse", "--check", "--format", "json", Reference("triangle")}), 0);
  const auto model = nlohmann::ordered_json::parse(out);
  std::string keys;
  for (const auto& item : model["check"].items()) keys += item.key() + " ";
  EXPECT_EQ(keys, "stable mechanisms indeterminacy digits residual zero_members verdict motions oddities ");
  const auto check = model["check"];
  EXPECT_EQ(check["stable"], true);
  EXPECT_EQ(check["mechanisms"], 0);
  EXPECT_EQ(check["indeterminacy"], 0);
  EXPECT_EQ(check["digits"], 6);
  EXPECT_LT(check["residual"].get<float>(), 1e-5F);
  EXPECT_EQ(check["zero_members"], nlohmann::ordered_json::array());
  EXPECT_EQ(check["verdict"], "The truss is stable and these results are right to 6 digits");
  EXPECT_EQ(check["motions"], nlohmann::ordered_json::array());
  EXPECT_EQ(check["oddities"], nlohmann::ordered_json::array());
}

TEST_F(CheckTest, ListsZeroMembersByNumber) {
  EXPECT_EQ(CheckOf(Reference("pratt_12_chords"))["zero_members"], json({15}));
}

TEST_F(CheckTest, AddsItsTextBehindTheTables) {
  Run({"analyse", Reference("triangle")});
  const std::string plain = out;
  EXPECT_EQ(Run({"analyse", "--check", Reference("triangle")}), 0);
  EXPECT_THAT(out, testing::StartsWith(plain + "The truss is stable and these results are right to 6 digits\n"
                                               "Mechanisms: 0\nStatic indeterminacy: 0\nDigits: 6\n"));
  EXPECT_THAT(out, EndsWith("Oddities of the model: 0\n\n"));
}

TEST_F(CheckTest, SaysWhatAnUnstableModelCanDo) {
  EXPECT_EQ(Run({"analyse", "--check", Reference("mechanism_square")}), 1);
  EXPECT_THAT(out,
              HasSubstr("no member or support resists this\n    Add a member from node 1 to node 3 would stop it"));
  const json check = CheckOf(Reference("mechanism_square"));
  EXPECT_EQ(check["stable"], false);
  EXPECT_EQ(check["mechanisms"], 1);
  EXPECT_TRUE(check["digits"].is_null());
  EXPECT_TRUE(check["residual"].is_null());
  EXPECT_TRUE(check["zero_members"].is_null());
  EXPECT_EQ(check["verdict"], "The truss is a mechanism: it can move in one way without stretching a member");
  ASSERT_EQ(check["motions"].size(), 1U);
  EXPECT_THAT(check["motions"][0].get<std::string>(), EndsWith("; no member or support resists this"));
}

TEST_F(CheckTest, GivesStatusThreeToAnAcceptedMechanism) {
  const std::string model = AcceptedMechanism();
  EXPECT_EQ(Run({"analyse", model}), 0);
  EXPECT_EQ(Run({"analyse", "--check", model}), 3);
  EXPECT_THAT(out, HasSubstr("so these results can't be trusted\n"));
  const json check = CheckOf(model);
  EXPECT_TRUE(check["digits"].is_null());
  EXPECT_GT(check["residual"].get<float>(), 1);
}

TEST_F(CheckTest, GivesStatusThreeToAnAnswerWithoutTwoDigits) {
  const std::string model = WrongAnswer();
  EXPECT_EQ(Run({"analyse", "--check", model}), 3);
  EXPECT_EQ(CheckOf(model)["digits"], 0);
  EXPECT_EQ(CheckOf(model)["stable"], true);
}

TEST_F(CheckTest, ReportsItsStatusInCsvToo) {
  EXPECT_EQ(Run({"analyse", "--check", "--format", "csv", Reference("triangle")}), 0);
  EXPECT_THAT(out, Not(HasSubstr("stable")));
  EXPECT_EQ(Run({"analyse", "--check", "--format", "csv", AcceptedMechanism()}), 3);
}

TEST_F(CheckTest, GivesTheLargestStatusOfSeveral) {
  const std::string model = AcceptedMechanism();
  EXPECT_EQ(Run({"analyse", "--check", folder.Path("missing.stw"), model, Reference("mechanism_square")}), 3);
}

TEST_F(CheckTest, NamesOdditiesInTheJson) {
  EXPECT_EQ(CheckOf(WrongAnswer())["oddities"],
            json({"Member 4 has E = -200 and is ignored: the analysis adds the stiffness of member 3 in its place"}));
}

/// The sound truss of two chords, so flat that rounding leaves few digits.
ModelData FlatTruss(float stretch) {
  ModelData model = PrattTruss(42);
  for (NodeData& node : model.nodes) node.x *= stretch;
  return model;
}

TEST_F(CheckTest, GivesStatusThreeBelowTwoDigits) {
  const std::string two = Stored("two.stw", FlatTruss(5));
  EXPECT_EQ(CheckOf(two)["digits"], 2);
  EXPECT_EQ(Run({"analyse", "--check", two}), 0);
  const std::string one = Stored("one.stw", FlatTruss(9));
  EXPECT_EQ(CheckOf(one)["digits"], 1);
  EXPECT_EQ(Run({"analyse", "--check", one}), 3);
}

TEST_F(CheckTest, JudgesNothingThatCouldNotBeAnalysed) {
  const std::string empty = Stored("empty.stw", {});
  ModelData model = Triangle();
  model.members.push_back({1, 9});
  const std::string unknownNode = Stored("unknown.stw", model);
  for (const std::string& file : {empty, unknownNode}) {
    EXPECT_EQ(Run({"analyse", "--check", file}), 1);
    EXPECT_THAT(out, EndsWith(": failed\n\nNot checked, since the model could not be analysed\n\n"));
    Run({"analyse", "--check", "--format", "json", file});
    const json answer = json::parse(out);
    ASSERT_TRUE(answer.contains("check"));
    EXPECT_TRUE(answer["check"].is_null());
  }
}

TEST_F(CheckTest, WritesNoNumberWhereThereIsNone) {
  ModelData model = Triangle();
  model.nodes[2].forceX = 3e38F;
  model.nodes[2].forceY = -3e38F;
  const std::string file = Stored("huge.stw", model);
  Run({"analyse", "--check", file});
  EXPECT_THAT(out, HasSubstr("Largest residual of a node: no number"));
  EXPECT_THAT(out.substr(out.find("The truss")), Not(ContainsPattern("\\binf|nan")));
  EXPECT_TRUE(CheckOf(file)["residual"].is_null());
}

TEST_F(CheckTest, GoesOnWithTheNextModelWhereTheCheckFails) {
  const std::string sound = Reference("triangle");
  std::ostringstream results;
  std::ostringstream messages;
  int asked = 0;
  const AnswerJudge judge = [&asked](AnalysisOutcome outcome) {
    if (++asked == 2) throw std::bad_alloc();
    return CheckAnswer(outcome);
  };
  std::istringstream input;
  EXPECT_EQ(AnalyseWholly({{{sound, sound, sound}, OutputFormat::Json}, true, {}}, input, results, messages, judge), 1);
  EXPECT_EQ(messages.str(), sound + ": The answer could not be checked; std::bad_alloc\n");
  std::vector<std::string> checks;
  for (std::istringstream lines(results.str()); lines.good() && lines.peek() != EOF;) {
    std::string line;
    std::getline(lines, line);
    checks.push_back(json::parse(line)["check"].is_null() ? "null" : "judged");
  }
  EXPECT_EQ(checks, (std::vector<std::string>{"judged", "null", "judged"}));
}

TEST_F(CheckTest, SaysInItsTextThatTheCheckFailed) {
  std::ostringstream results;
  std::ostringstream messages;
  const AnswerJudge judge = [](AnalysisOutcome) -> CheckReport { throw std::bad_alloc(); };
  std::istringstream input;
  AnalyseWholly({{{Reference("triangle")}, OutputFormat::Text}, true, {}}, input, results, messages, judge);
  EXPECT_THAT(results.str(), EndsWith("\nThe answer could not be checked: std::bad_alloc\n\n"));
}

TEST_F(CheckTest, SaysNothingOfWhatCouldNotBeRead) {
  EXPECT_EQ(Run({"analyse", "--check", "--format", "json", folder.Path("missing.stw")}), 2);
  EXPECT_FALSE(json::parse(out).contains("check"));
}

TEST_F(CheckTest, ReportsASoundTrussThatWasGivenUp) {
  EXPECT_EQ(Run({"analyse", "--check", Reference("soft_member_sound_truss")}), 1);
  EXPECT_THAT(out, HasSubstr("The truss is stable: the analysis gave up because of its rounding"));
}

} // namespace
} // namespace strutwright
