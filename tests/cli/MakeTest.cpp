#include "AsUser.h"
#include "CliTest.h"

#include <algorithm>
#include <filesystem>
#include <string>

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

const std::string JointHeadings = "JOINTS,x(m),y(m),ForceX (kN),ForceY (kN),Support\r\n";
const std::string MemberHeadings = "MEMBERS,Node i,Node j,E (kN/mm2),A (mm2),PS (kN)\r\n";
const std::string Nodes = JointHeadings + "1,0,0,0,0,3\r\n2,4,0,0,0,1\r\n";
const std::string Members = MemberHeadings + "1,1,2,200,1000,0\r\n";

class MakeTest : public CliTest {
 protected:
  int Make(const std::string& csv) {
    PutFile(input, csv);
    return Run({"make", input, output});
  }

  /// Nothing is written and the message begins with file and line.
  void ExpectBadLine(const std::string& csv, int line, const std::string& reason) {
    EXPECT_EQ(Make(csv), 2);
    EXPECT_EQ(err, input + ":" + std::to_string(line) + ": " + reason + "\n");
    EXPECT_FALSE(fs::exists(output));
  }

  nlohmann::json Shown() {
    Run({"show", "--format", "json", output});
    return nlohmann::json::parse(out);
  }

  std::string input = folder.Path("in.csv");
  std::string output = folder.Path("out.stw");
};

TEST_F(MakeTest, BuildsAModel) {
  EXPECT_EQ(Make(Nodes + Members), 0);
  EXPECT_EQ(err, "");
  const nlohmann::json model = Shown();
  EXPECT_EQ(model["capacity"], 20);
  ASSERT_EQ(model["nodes"].size(), 2U);
  EXPECT_EQ(model["nodes"][1]["x"], 4);
  EXPECT_EQ(model["nodes"][1]["support"], 1);
  EXPECT_EQ(model["members"][0]["e"], 200);
}

TEST_F(MakeTest, RestoresEveryReferenceModelToTheBit) {
  for (const auto& entry : fs::directory_iterator(REFERENCE_DIR)) {
    if (entry.path().extension() != ".stw") continue;
    ASSERT_EQ(Run({"show", "--format", "csv", entry.path().string()}), 0);
    const std::string csv = out;
    ASSERT_EQ(Make(csv), 0) << entry << err;
    Run({"show", "--format", "csv", output});
    EXPECT_EQ(out, csv) << entry;
    fs::remove(output);
  }
}

TEST_F(MakeTest, TakesWhatSpreadsheetsHandBack) {
  EXPECT_EQ(Make("\xEF\xBB\xBFJOINTS,x(m),y(m),ForceX (kN),ForceY (kN),Support,,\n"
                 "\n"
                 "\"1\", 0 ,\"0\",,,3,,\n"
                 "2,4.5E+00,-.5,,1e1,1,,\n"
                 ",,,,,,,\n"
                 "MEMBERS,\"Node i\",Node j, E (kN/mm2) ,A (mm2),PS (kN)\n"
                 "1,1,2,200,1000,"),
            0)
      << err;
  const nlohmann::json model = Shown();
  EXPECT_EQ(model["nodes"][1]["x"], 4.5);
  EXPECT_EQ(model["nodes"][1]["fy"], 10);
  EXPECT_EQ(model["nodes"][1]["fx"], 0);
  EXPECT_EQ(model["members"][0]["ps"], 0);
}

TEST_F(MakeTest, BuildsAnEmptyModel) {
  EXPECT_EQ(Make(JointHeadings + MemberHeadings), 0);
  EXPECT_EQ(fs::file_size(output), 70U);
}

TEST_F(MakeTest, GivesALargeModelRoom) {
  std::string csv = JointHeadings;
  for (int n = 1; n <= 25; ++n) csv += std::to_string(n) + ",0,0,0,0,0\n";
  EXPECT_EQ(Make(csv + MemberHeadings), 0);
  EXPECT_EQ(Shown()["capacity"], 25);
}

TEST_F(MakeTest, NamesALineWithATextThatIsNoNumber) {
  ExpectBadLine(Nodes + "3,4,three,0,0,0\r\n" + Members, 4, "\"three\" in column \"y(m)\" is not a number");
  ExpectBadLine(Nodes + Members + "2,1,2,1e99,1000,0\r\n", 6, "\"1e99\" in column \"E (kN/mm2)\" is not a number");
}

TEST_F(MakeTest, NamesALineWithoutItsFirstValue) {
  ExpectBadLine(Nodes + "3,,5,0,0,0\r\n" + Members, 4, "\"\" in column \"x(m)\" is not a number");
}

TEST_F(MakeTest, NamesALineOfAnotherLength) {
  ExpectBadLine(Nodes + "3,4,5\r\n" + Members, 4, "the line has 3 values instead of 6");
  ExpectBadLine(Nodes + "3,4,5,0,0,0,7\r\n" + Members, 4, "the line has 7 values instead of 6");
}

TEST_F(MakeTest, NamesALineOutOfOrder) {
  ExpectBadLine(Nodes + "4,4,5,0,0,0\r\n" + Members, 4, "node \"4\" stands where node 3 is expected");
  ExpectBadLine(Nodes + Members + "x,1,2,200,1000,0\r\n", 6, "member \"x\" stands where member 2 is expected");
}

TEST_F(MakeTest, NamesALineBeforeTheHeadings) {
  ExpectBadLine("1,0,0,0,0,3\r\n", 1, "the headings \"JOINTS\",... are expected first");
}

TEST_F(MakeTest, NamesTheSeparatorThatItExpects) {
  ExpectBadLine(Nodes + "MEMBERS;Node i;Node j;E (kN/mm2);A (mm2);PS (kN)\n", 4,
                "commas are expected between the values, not \";\"");
  ExpectBadLine(Nodes + "3;4,5;5;0;0;0\r\n" + Members, 4, "commas are expected between the values, not \";\"");
  ExpectBadLine("JOINTS;x(m);y(m)\n1\t0\t0\n", 2, "semicolons are expected between the values, not tabs");
}

TEST_F(MakeTest, NamesATableThatBeginsTwice) {
  ExpectBadLine(Nodes + Members + Nodes, 6, "the table \"JOINTS\" begins again");
}

TEST_F(MakeTest, MissesATable) {
  ExpectBadLine(Nodes, 3, "the table \"MEMBERS\" is missing");
  ExpectBadLine("", 1, "the table \"JOINTS\" is missing");
}

TEST_F(MakeTest, NamesTheLineOfAnOpenQuotationMark) {
  ExpectBadLine(Nodes + "3,\"4,5,0,0,0\r\n" + Members, 4, "a quotation mark is not closed");
  ExpectBadLine(Nodes + "3,\"4\"5,5,0,0,0\r\n" + Members, 4, "a closing quotation mark is not followed by a comma");
}

TEST_F(MakeTest, CountsLinesInsideQuotationMarks) {
  ExpectBadLine(JointHeadings + "1,\"0\r\n\r\n\",0,0,0,0\r\n", 2, "\"0\r\n\r\n\" in column \"x(m)\" is not a number");
  ExpectBadLine(JointHeadings + "1,0,0,\"\",\"0\",\"\"\r\n\"2\",\"0\",no,0,0,0\r\n", 3,
                "\"no\" in column \"y(m)\" is not a number");
}

TEST_F(MakeTest, NamesAHeadingThatIsMissing) {
  ExpectBadLine("JOINTS,x(m),ForceX (kN),ForceY (kN),Support\n", 1, "the heading \"y(m)\" is missing");
  ExpectBadLine(Nodes + "MEMBERS,Node i,Node j\r\n", 4, "the heading \"E (kN/mm2)\" is missing");
}

TEST_F(MakeTest, TakesHeadingsInAnyOrderWithTabsAndADecimalComma) {
  EXPECT_EQ(Make("Support\ty(m)\tx(m)\tJOINTS\n3\t0,5\t0\t1\n1\t0\t4,25\t2\n"
                 "A (mm2)\tNode j\tNode i\tE (kN/mm2)\tMEMBERS\n1000,5\t2\t1\t200\t1\n"),
            0)
      << err;
  const nlohmann::json model = Shown();
  EXPECT_EQ(model["nodes"][0]["y"], 0.5);
  EXPECT_EQ(model["nodes"][1]["x"], 4.25);
  EXPECT_EQ(model["nodes"][1]["support"], 1);
  EXPECT_EQ(model["members"][0]["a"], 1000.5);
  EXPECT_EQ(model["members"][0]["j"], 2);
}

TEST_F(MakeTest, TakesLoneCarriageReturnsAndBlankLines) {
  std::string csv = Nodes + "  \r\n" + Members;
  csv.erase(std::remove(csv.begin(), csv.end(), '\n'), csv.end());
  EXPECT_EQ(Make(csv), 0) << err;
  EXPECT_EQ(Shown()["nodes"].size(), 2U);
}

TEST_F(MakeTest, ReadsADrawingAsItsOptionsSay) {
  PutFile(input, "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nchord\n10\n0\n20\n0\n11\n4000\n21\n0\n0\nLINE\n8\nweb\n"
                 "10\n2000\n20\n-1000\n11\n2000\n21\n1000\n0\nENDSEC\n0\nEOF\n");
  PutFile(folder.Path("layers.csv"), "layer,E,A\nchord,210,2000\n");
  EXPECT_EQ(Run({"make", input, output, "--units", "mm", "--split", "--layers", folder.Path("layers.csv")}), 0) << err;
  EXPECT_EQ(err, input + ": Members on the layers \"web\" get E = 200 kN/mm2 and A = 1000 mm2\n");
  const nlohmann::json model = Shown();
  ASSERT_EQ(model["nodes"].size(), 5U);
  ASSERT_EQ(model["members"].size(), 4U);
  EXPECT_EQ(model["nodes"][1]["x"], 4);
  EXPECT_EQ(model["members"][0]["e"], 210);
  EXPECT_EQ(model["members"][3]["a"], 1000);
}

TEST_F(MakeTest, NamesTheFaultOfADrawingOrOfItsOptions) {
  PutFile(input, "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\nfour\n0\nEOF\n");
  EXPECT_EQ(Run({"make", input, output}), 2);
  EXPECT_EQ(err, input + ":8: \"four\" is not a number, or too large for one\n");
  EXPECT_EQ(Run({"make", input, output, "--units", "ell"}), 2);
  EXPECT_THAT(err, HasSubstr("\"ell\" is none of mm, cm, m, in, ft"));
  EXPECT_EQ(Run({"make", input, output, "--tolerance", "0"}), 2);
  EXPECT_THAT(err, HasSubstr("\"0\" is not a number of metres from 0.000001 to 1000"));
  PutFile(folder.Path("layers.csv"), "layer,E\n");
  EXPECT_EQ(Run({"make", input, output, "--layers", folder.Path("layers.csv")}), 2);
  EXPECT_THAT(err, HasSubstr("layers.csv: Line 1: the heading \"A (mm2)\" is missing\n"));
  EXPECT_FALSE(fs::exists(output));
}

TEST_F(MakeTest, ReadsTheJsonThatShowPrints) {
  Run({"show", "--format", "json", Reference("howe_20_prestress")});
  PutFile(input, out);
  EXPECT_EQ(Run({"make", input, output}), 0) << err;
  EXPECT_EQ(FileBytes(output), FileBytes(Reference("howe_20_prestress")));
}

TEST_F(MakeTest, RefusesAnInputWithoutEnd) {
  const std::string large = TooLargeFile();
  EXPECT_EQ(Run({"make", large, output}), 2);
  EXPECT_EQ(err, large + ": The file is larger than any model\n");
}

TEST_F(MakeTest, NamesTheFirstMemberTooMany) {
  std::string csv = Nodes + MemberHeadings;
  for (int m = 1; m <= 32768; ++m) csv += std::to_string(m) + ",1,2,0,0,0\n";
  ExpectBadLine(csv, 32772, "a model has at most 32767 members");
}

TEST_F(MakeTest, NamesTheFirstNodeTooMany) {
  std::string csv = JointHeadings;
  for (int n = 1; n <= 16384; ++n) csv += std::to_string(n) + ",0,0,0,0,0\n";
  ExpectBadLine(csv, 16385, "a model has at most 16383 nodes");
}

TEST_F(MakeTest, ReplacesNothingByABadInput) {
  PutFile(output, "an older model");
  EXPECT_EQ(Make("nonsense"), 2);
  EXPECT_EQ(FileBytes(output), "an older model");
}

TEST_F(MakeTest, DoesNotReplaceWhatTheModelIsMadeFrom) {
  const std::string table = folder.Path("truss.csv");
  PutFile(table, Nodes + Members);
  EXPECT_EQ(Run({"make", table, table}), 2);
  EXPECT_EQ(err, table + ": The model would take the place of what it is made from: choose another name for it\n");
  EXPECT_EQ(FileBytes(table), Nodes + Members);
}

TEST_F(MakeTest, ReportsWhyTheInputCannotBeRead) {
  const std::string missing = folder.Path("missing.csv");
  EXPECT_EQ(Run({"make", missing, output}), 2);
  EXPECT_EQ(err, missing + ": No such file or directory\n");
}

TEST_F(MakeTest, ReportsWhyTheModelCannotBeWritten) {
  PutFile(input, Nodes + Members);
  const std::string bad = folder.Path("missing/out.stw");
  EXPECT_EQ(Run({"make", input, bad}), 2);
  EXPECT_EQ(err, bad + ": Error while saving file " + bad + "; No such file or directory\n");
}

TEST_F(MakeTest, ReportsThatTheModelMayNotBeReplaced) {
  PutFile(input, Nodes + Members);
  PutFile(output, "an older model");
  fs::permissions(output, fs::perms(0444));
  EXPECT_EQ(AsUnprivilegedUser([&] { return Run({"make", input, output}); }), 2);
  EXPECT_EQ(FileBytes(output), "an older model");
}

#ifndef _WIN32 // a full device, and a folder that its user may not write

TEST_F(MakeTest, ReportsAFullDevice) {
  PutFile(input, Nodes + Members);
  EXPECT_EQ(Run({"make", input, "/dev/full"}), 2);
  EXPECT_THAT(err, HasSubstr("No space left on device"));
}

TEST_F(MakeTest, ReportsThatTheUserMayNotWrite) {
  PutFile(input, Nodes + Members);
  fs::permissions(folder.Root(), fs::perms(0555));
  EXPECT_EQ(AsUnprivilegedUser([&] { return Run({"make", input, output}); }), 2);
}

#endif

} // namespace
} // namespace strutwright
