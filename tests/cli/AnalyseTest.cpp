#include "CliTest.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

using AnalyseTest = CliTest;

float FloatOf(const std::string& text) {
  float value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::vector<std::string> Lines(const std::string& text, const std::string& end) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t next = text.find(end, at);
    lines.push_back(text.substr(at, next - at));
    at = next == std::string::npos ? text.size() : next + end.size();
  }
  return lines;
}

/// The triangle's answers, as its answer file gives them.
constexpr float DxOfNode2 = 0x1.ddddep-4F;
constexpr float RxOfNode1 = -0x1.400002p+2F;
constexpr float ForceOfMember2 = -0x1.5084a4p+3F;
constexpr float StretchOfMember2 = -0x1.844444p-3F;

TEST_F(AnalyseTest, PrintsTheResultsTablesAsText) {
  EXPECT_EQ(Run({"analyse", Reference("triangle")}), 0);
  EXPECT_EQ(out, Reference("triangle") + ": ok\n"
                                         "\n"
                                         "JOINTS  Def x (mm)  Def y (mm)  ForceX (kN)  ForceY (kN)\n"
                                         "1              0.0         0.0          -5.          1.3\n"
                                         "2             0.12         0.0            .          8.8\n"
                                         "3              0.2       -0.17            .            .\n"
                                         "\n"
                                         "MEMBERS  Force (kN)  T or C  s (N/mm2)  dL (mm)\n"
                                         "1              5.83       T      5.833    0.117\n"
                                         "2            -10.52       C    -10.516    -0.19\n"
                                         "3              -1.5       C     -1.502   -0.027\n"
                                         "\n");
  EXPECT_EQ(err, "");
}

TEST_F(AnalyseTest, PrintsEveryDigitAsCsv) {
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--format", "csv"}), 0);
  const auto lines = Lines(out, "\r\n");
  ASSERT_EQ(lines.size(), 8U);
  EXPECT_EQ(lines[0], "JOINTS,Def x (mm),Def y (mm),ForceX (kN),ForceY (kN)");
  EXPECT_EQ(lines[1], "1,0,0,-5.0000005,1.2499999");
  EXPECT_EQ(lines[4], "MEMBERS,Force (kN),T or C,s (N/mm2),dL (mm)");
  const auto node2 = Lines(lines[2], ",");
  EXPECT_EQ(FloatOf(node2[1]), DxOfNode2);
  const auto member2 = Lines(lines[6], ",");
  ASSERT_EQ(member2.size(), 5U);
  EXPECT_EQ(FloatOf(member2[1]), ForceOfMember2);
  EXPECT_EQ(member2[2], "C");
  EXPECT_EQ(FloatOf(member2[4]), StretchOfMember2);
}

TEST_F(AnalyseTest, PrintsOneJsonObjectAModelOnALine) {
  EXPECT_EQ(Run({"analyse", "--format", "json", Reference("triangle")}), 0);
  ASSERT_EQ(Lines(out, "\n").size(), 1U);
  const json model = json::parse(out);
  EXPECT_EQ(model["file"], Reference("triangle"));
  EXPECT_EQ(model["result"], "ok");
  EXPECT_TRUE(model["messages"].empty());
  ASSERT_EQ(model["nodes"].size(), 3U);
  ASSERT_EQ(model["members"].size(), 3U);
  const json& node = model["nodes"][1];
  EXPECT_EQ(node["node"], 2);
  EXPECT_EQ(node["x"], 4);
  EXPECT_EQ(node["y"], 0);
  EXPECT_EQ(node["dx"].get<float>(), DxOfNode2);
  EXPECT_EQ(node["support"], 1);
  EXPECT_EQ(model["nodes"][0]["rx"].get<float>(), RxOfNode1);
  const json& member = model["members"][1];
  EXPECT_EQ(member["member"], 2);
  EXPECT_EQ(member["length"].get<float>(), 0x1.c2b1a4p+11F);
  EXPECT_EQ(member["cos"].get<float>(), -0x1.1c01aap-1F);
  EXPECT_EQ(member["sin"].get<float>(), 0x1.aa028p-1F);
  EXPECT_EQ(member["force"].get<float>(), ForceOfMember2);
  EXPECT_EQ(member["state"], "C");
  EXPECT_EQ(member["stress"].get<float>(), ForceOfMember2);
  EXPECT_EQ(member["stretch"].get<float>(), StretchOfMember2);
}

TEST_F(AnalyseTest, NamesTheJsonKeysInTheirOrder) {
  Run({"analyse", "--format", "json", Reference("triangle")});
  const auto model = nlohmann::ordered_json::parse(out);
  const auto keys = [](const nlohmann::ordered_json& object) {
    std::string text;
    for (const auto& item : object.items()) text += item.key() + " ";
    return text;
  };
  EXPECT_EQ(keys(model), "version file result messages units nodes members ");
  EXPECT_EQ(keys(model["nodes"][0]), "node x y dx dy rx ry support ");
  EXPECT_EQ(keys(model["members"][0]), "member i j length cos sin force state stress stretch ");
}

TEST_F(AnalyseTest, GivesTheUnitOfEveryQuantityInJson) {
  Run({"analyse", "--format", "json", Reference("triangle")});
  const json units = json::parse(R"({"x":"m","y":"m","dx":"mm","dy":"mm","rx":"kN","ry":"kN","length":"mm",
                                     "force":"kN","stress":"N/mm2","stretch":"mm"})");
  EXPECT_EQ(json::parse(out)["units"], units);
  Run({"analyse", "--check", "--format", "json", Reference("triangle")});
  EXPECT_EQ(json::parse(out)["units"]["residual"], "kN");
}

// Nodes and members have the digits of the csv, a whole number a point more.
TEST_F(AnalyseTest, PrintsTheDigitsOfTheCsvInJson) {
  Run({"analyse", "--format", "csv", Reference("random_60_prestress")});
  const auto csv = Lines(out, "\r\n");
  Run({"analyse", "--format", "json", Reference("random_60_prestress")});
  for (std::size_t line = 1; csv[line].find("MEMBERS") != 0; ++line) {
    std::string dx = Lines(csv[line], ",")[1];
    if (dx.find_first_of(".e") == std::string::npos) dx += ".0";
    EXPECT_THAT(out, HasSubstr("\"dx\":" + dx + ",")) << line;
  }
}

TEST_F(AnalyseTest, ReportsAnUnstableModelByStatusResultAndMessage) {
  EXPECT_EQ(Run({"analyse", "--format", "json", Reference("mechanism_square")}), 1);
  const json model = json::parse(out);
  EXPECT_EQ(model["result"], "unstable");
  EXPECT_EQ(model["nodes"], json::array());
  EXPECT_EQ(model["members"], json::array());
  EXPECT_EQ(model["messages"], json::parse(R"([{"icon": "critical", "title": "Strutwright",
                             "text": "Structure is unstable - Aborting analysis\nFailed Check 2"}])"));
  EXPECT_EQ(err, Reference("mechanism_square") + ": Structure is unstable - Aborting analysis; Failed Check 2\n");
}

TEST_F(AnalyseTest, CallsAnEmptyModelFailed) {
  EXPECT_EQ(Run({"analyse", "--format", "json", Reference("empty")}), 1);
  EXPECT_EQ(json::parse(out)["result"], "failed");
  EXPECT_THAT(err, HasSubstr("Failed Check 0\n"));
}

TEST_F(AnalyseTest, CallsAModelFailedThatNamesAMissingNode) {
  EXPECT_EQ(Run({"analyse", "--format", "json", Reference("node_number_too_large")}), 1);
  EXPECT_EQ(json::parse(out)["result"], "failed");
  EXPECT_THAT(err, HasSubstr("Member 4 names node 4"));
}

TEST_F(AnalyseTest, ShowsTheMessagesOfTheListingOnceAndAfterTheOthers) {
  EXPECT_EQ(Run({"analyse", "--format", "json", Reference("zero_e_and_a_extra")}), 0);
  const json messages = json::parse(out)["messages"];
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0]["icon"], "information");
  EXPECT_EQ(messages[0]["text"], "Ignoring member 4 as E and A are not valid");
}

TEST_F(AnalyseTest, SaysNoMoreThanTheStatusOfAFailedModelInText) {
  EXPECT_EQ(Run({"analyse", Reference("mechanism_square")}), 1);
  EXPECT_EQ(out, Reference("mechanism_square") + ": unstable\n\n");
}

TEST_F(AnalyseTest, PrintsHeadingsOnlyOfAFailedModelInCsv) {
  EXPECT_EQ(Run({"analyse", "--format", "csv", Reference("mechanism_square")}), 1);
  EXPECT_EQ(Lines(out, "\r\n").size(), 2U);
}

TEST_F(AnalyseTest, NamesTheFileBeforeEachModelOfSeveralInCsv) {
  EXPECT_EQ(Run({"analyse", "--format", "csv", Reference("triangle"), Reference("mechanism_square")}), 1);
  const auto lines = Lines(out, "\r\n");
  ASSERT_EQ(lines.size(), 12U);
  EXPECT_EQ(lines[0], "FILE," + Reference("triangle") + ",ok,,");
  EXPECT_EQ(lines[9], "FILE," + Reference("mechanism_square") + ",unstable,,");
}

TEST_F(AnalyseTest, GoesOnAfterAModelThatCannotBeRead) {
  const std::string missing = folder.Path("missing.stw");
  EXPECT_EQ(Run({"analyse", "--format", "json", missing, Reference("mechanism_square"), Reference("triangle")}), 2);
  const auto lines = Lines(out, "\n");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(json::parse(lines[0])["result"], "failed");
  EXPECT_EQ(json::parse(lines[0])["messages"][0]["text"], "Unkown error while opening file " + missing);
  EXPECT_EQ(json::parse(lines[0])["messages"][0]["icon"], "none");
  EXPECT_EQ(json::parse(lines[2])["result"], "ok");
  EXPECT_THAT(err, testing::StartsWith(missing + ": No such file or directory\n"));
  EXPECT_THAT(err, Not(HasSubstr("Unkown error")));
}

TEST_F(AnalyseTest, StartsAfreshWithEveryModel) {
  Run({"analyse", "--format", "json", Reference("triangle")});
  const std::string alone = out;
  Run({"analyse", "--format", "json", Reference("warren_25_random"), Reference("mechanism_square"),
       Reference("triangle")});
  EXPECT_THAT(out, testing::EndsWith(alone));
}

TEST_F(AnalyseTest, AnalysesADamagedFileAndSaysSo) {
  const std::string path = folder.Path("cut.stw");
  PutFile(path, FileBytes(Reference("triangle")).substr(0, 200));
  Run({"analyse", "--format", "json", path});
  EXPECT_THAT(json::parse(out)["messages"][0]["text"], HasSubstr("Only 48 of its 64 values are there"));
}

TEST_F(AnalyseTest, SurvivesEveryLengthOfASmallModel) {
  const std::string whole = FileBytes(Reference("triangle"));
  const std::string path = folder.Path("cut.stw");
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    PutFile(path, whole.substr(0, length));
    const int status = Run({"analyse", "--format", "json", path});
    const json model = json::parse(out);
    EXPECT_EQ(status == 2, length < 6) << length;
    EXPECT_EQ(status == 0, model["result"] == "ok") << length;
    if (length < whole.size()) {
      EXPECT_FALSE(model["messages"].empty()) << length;
      EXPECT_NE(err, "") << length;
    }
  }
}

TEST_F(AnalyseTest, KeepsToALineAMessageWhateverTheFilesName) {
  const std::string odd = folder.Root() + "/no\nsuch\xFF";
  EXPECT_EQ(Run({"analyse", "--format", "json", odd}), 2);
  EXPECT_EQ(Lines(err, "\n").size(), 1U);
  EXPECT_THAT(err, HasSubstr("no; such\xEF\xBF\xBD: No such file or directory\n"));
}

TEST_F(AnalyseTest, SurvivesAFolderAndADevice) {
  EXPECT_EQ(Run({"analyse", folder.Root()}), 2);
  EXPECT_THAT(err, HasSubstr(": Is a directory\n"));
  EXPECT_EQ(Run({"analyse", "/dev/null"}), 2);
}

TEST_F(AnalyseTest, GivesNullForAResultThatIsNoNumber) {
  // So stiff that the member's matrix is beyond a 32-bit float.
  PutFile(folder.Path("in.csv"), "JOINTS,x(m),y(m),ForceX (kN),ForceY (kN),Support\n1,0,0,0,0,3\n2,1,1,5,0,0\n"
                                 "MEMBERS,Node i,Node j,E (kN/mm2),A (mm2),PS (kN)\n1,1,2,3e38,3e38,0\n");
  ASSERT_EQ(Run({"make", folder.Path("in.csv"), folder.Path("m.stw")}), 0);
  Run({"analyse", "--format", "json", folder.Path("m.stw")});
  EXPECT_TRUE(json::parse(out)["nodes"][1]["dx"].is_null());
  Run({"analyse", folder.Path("m.stw")});
  EXPECT_THAT(out, HasSubstr("NaN"));
}

} // namespace
} // namespace strutwright
