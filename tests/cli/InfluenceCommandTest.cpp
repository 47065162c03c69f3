#include "CliTest.h"

#include <cmath>
#include <string>
#include <vector>

#include <QImage>
#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// Four bays of 3 m, 4 m high: lower nodes 1 to 5, upper nodes 6 to 8 over 2 to 4; prestressed and loaded.
constexpr const char* Bridge = "JOINTS,x(m),y(m),ForceX (kN),ForceY (kN),Support\n"
                               "1,0,0,0,0,3\n2,3,0,0,-20,0\n3,6,0,0,0,0\n4,9,0,0,0,0\n5,12,0,0,0,1\n"
                               "6,3,4,0,0,0\n7,6,4,5,0,0\n8,9,4,0,0,0\n"
                               "MEMBERS,Node i,Node j,E (kN/mm2),A (mm2),PS (kN)\n"
                               "1,1,2,200,1000,0\n2,2,3,200,1000,0\n3,3,4,200,1000,0\n4,4,5,200,1000,0\n"
                               "5,1,6,200,1000,0\n6,6,7,200,1000,30\n7,7,8,200,1000,0\n8,8,5,200,1000,0\n"
                               "9,2,6,200,1000,0\n10,3,7,200,1000,0\n11,4,8,200,1000,0\n12,6,3,200,1000,0\n"
                               "13,8,3,200,1000,0\n";

class InfluenceCommandTest : public CliTest {
 protected:
  void SetUp() override {
    PutFile(folder.Path("in.csv"), Bridge);
    ASSERT_EQ(Run({"make", folder.Path("in.csv"), Model()}), 0) << err;
  }

  std::string Model() const { return folder.Path("bridge.stw"); }

  int Influence(const std::vector<std::string>& options) {
    std::vector<std::string> arguments{"influence", Model()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Run(arguments);
  }

  json Json(std::vector<std::string> options) {
    options.insert(options.end(), {"--format", "json"});
    EXPECT_EQ(Influence(options), 0) << err;
    return json::parse(out);
  }

  /// The ordinates of a line over the lower chord.
  std::vector<double> Line(const std::string& option, const std::string& what) {
    std::vector<double> values;
    const json answer = Json({"--path", "1-5", option, what});
    for (const json& at : answer["path"]) values.push_back(at["value"]);
    return values;
  }

  /// That nothing came out but one sentence about the model.
  void ExpectRefusal(const std::vector<std::string>& options, int status, const std::string& sentence) {
    EXPECT_EQ(Influence(options), status) << sentence;
    EXPECT_EQ(err, Model() + ": " + sentence + "\n");
    EXPECT_EQ(out, "");
  }
};

TEST_F(InfluenceCommandTest, PrintsCsv) {
  EXPECT_EQ(Influence({"--path", "1-5", "--member", "12", "--format", "csv"}), 0);
  EXPECT_EQ(out, "node,x,value\r\n1,0,0\r\n2,3,-0.3125\r\n3,6,0.625\r\n4,9,0.3125\r\n5,12,0\r\n");
  EXPECT_EQ(err, "");
}

TEST_F(InfluenceCommandTest, KeepsTheOrderOfThePath) {
  EXPECT_EQ(Influence({"--path", "5-3,1", "--member", "12", "--format", "csv"}), 0);
  EXPECT_EQ(out, "node,x,value\r\n5,12,0\r\n4,9,0.3125\r\n3,6,0.625\r\n1,0,0\r\n");
}

// Of the axles the heavier stands on the peak, at 6 m, and the lighter 2 m towards the slower slope, at 8 m:
// 100 0.625 + 50 (0.625 - 2/3 0.3125).  The least: the heavier on the trough, at 3 m, the lighter at 1 m.
TEST_F(InfluenceCommandTest, AddsTheExtremesOfATrain) {
  EXPECT_EQ(Influence({"--path", "1-5", "--member", "12", "--format", "csv", "--train", "50@0,100@2"}), 0);
  EXPECT_THAT(out, testing::EndsWith("5,12,0\r\ndirection,position,value\r\n"
                                     "left,1,-36.4583333333\r\nright,8,83.3333333333\r\n"));
}

TEST_F(InfluenceCommandTest, PrintsJson) {
  const json answer = Json({"--path", "1-5", "--member", "12", "--train", "50@0,100@2"});
  EXPECT_EQ(answer["file"], Model());
  EXPECT_EQ(answer["quantity"], "Force of member 12");
  EXPECT_EQ(answer["unit"], "kN");
  ASSERT_EQ(answer["path"].size(), 5U);
  EXPECT_EQ(answer["path"][1], (json{{"node", 2}, {"x", 3}, {"value", -0.3125}}));
  EXPECT_EQ(answer["minimum"]["direction"], "left");
  EXPECT_NEAR(answer["minimum"]["value"], -36.458333333, 1e-9);
  EXPECT_EQ(answer["maximum"]["direction"], "right");
  EXPECT_EQ(answer["maximum"]["position"], 8);
  EXPECT_NEAR(answer["maximum"]["value"], 83.333333333, 1e-9);
}

TEST_F(InfluenceCommandTest, HasExtremesOnlyOfATrain) {
  const json answer = Json({"--path", "1-5", "--member", "12"});
  EXPECT_FALSE(answer.contains("minimum") || answer.contains("maximum"));
}

TEST_F(InfluenceCommandTest, PrintsTables) {
  EXPECT_EQ(Influence({"--path", "1-5", "--member", "12", "--train", "50@0,100@2"}), 0);
  EXPECT_EQ(out, Model() + ": Force of member 12 for 1 kN downward\n\n"
                           "PATH  x(m)  kN per kN\n"
                           "1        0          0\n"
                           "2        3    -0.3125\n"
                           "3        6      0.625\n"
                           "4        9     0.3125\n"
                           "5       12          0\n\n"
                           "TRAIN    Direction  First axle at x(m)  Value (kN)\n"
                           "Minimum       left                   1    -36.4583\n"
                           "Maximum      right                   8     83.3333\n");
}

TEST_F(InfluenceCommandTest, IsOfAReactionOrADisplacementToo) {
  EXPECT_EQ(Line("--reaction", "1:y"), (std::vector<double>{1, 0.75, 0.5, 0.25, 0}));
  EXPECT_EQ(Line("--reaction", "1:x"), (std::vector<double>{0, 0, 0, 0, 0}));
  EXPECT_EQ(Line("--displacement", "1:y"), (std::vector<double>{0, 0, 0, 0, 0}));
  const std::vector<double> sag = Line("--displacement", "3:y");
  EXPECT_LT(sag[2], 0);
  EXPECT_NEAR(sag[1], sag[3], 1e-11);
  EXPECT_EQ(Json({"--path", "1-5", "--displacement", "3:y"})["unit"], "mm");
  // The roller goes to the right under a load.
  EXPECT_GT(Line("--displacement", "5:x")[2], 0);
}

TEST_F(InfluenceCommandTest, TakesATrainByItsName) {
  const json named = Json({"--path", "1-5", "--member", "6", "--train", "tandem"});
  EXPECT_EQ(named, Json({"--path", "1-5", "--member", "6", "--train", "300@0,300@1.2"}));
}

TEST_F(InfluenceCommandTest, RefusesPathsThatCannotBe) {
  const std::string member = "--member";
  ExpectRefusal({"--path", "1-9", member, "1"}, 2,
                "The path names node 9, but the nodes are numbered 1 to 8: name nodes that exist");
  ExpectRefusal({"--path", "1-3,2", member, "1"}, 2, "The path names node 2 twice: name each node once");
  ExpectRefusal({"--path", "1,6,2", member, "1"}, 2,
                "From node 6 to node 2 x does not go on rising: name the nodes of a path from one end to the other");
  ExpectRefusal({"--path", "a", member, "1"}, 2,
                "\"a\" is no part of a path: write node numbers and ranges, such as 1-10 or 1,3,5");
}

TEST_F(InfluenceCommandTest, RefusesQuantitiesThatAreNotThere) {
  ExpectRefusal({"--path", "1-5", "--member", "14"}, 2, "There is no member 14: choose one from 1 to 13");
  ExpectRefusal({"--path", "1-5", "--displacement", "9:x"}, 2, "There is no node 9: choose one from 1 to 8");
  ExpectRefusal({"--path", "1-5", "--reaction", "5:x"}, 2,
                "No support holds node 5 in x: choose a node and a direction that one holds");
}

TEST_F(InfluenceCommandTest, RefusesTrainsThatCannotBe) {
  const std::vector<std::pair<std::string, std::string>> wrong{
      {"", "The train has no loads: write the force and distance of each axle, such as 50@0,100@3.5"},
      {"0@0", "The axle \"0@0\" has no load: give it a force above 0 kN, which acts downward"},
      {"50@0,100@-1",
       "The axle \"100@-1\" has a negative distance: measure from the first axle to the rear, from 0 m on"},
      {"50", "\"50\" is no axle: write its force in kN and its distance in m from the first, such as 100@3.5"}};
  for (const auto& [train, sentence] : wrong) {
    ExpectRefusal({"--path", "1-5", "--member", "1", "--train", train}, 2, sentence);
  }
}

TEST_F(InfluenceCommandTest, NamesWhatIsNoQuantity) {
  for (const char* text : {"x", "1:x", "1.5", ""}) {
    EXPECT_EQ(Influence({"--path", "1-5", "--member", text}), 2);
    EXPECT_THAT(err, HasSubstr("\"" + std::string(text) + "\" is not the number of a member, such as 7"));
  }
  for (const char* text : {"3", "3:", "3:z", ":x", "a:y", "3:xy"}) {
    for (const char* option : {"--reaction", "--displacement"}) {
      EXPECT_EQ(Influence({"--path", "1-5", option, text}), 2);
      EXPECT_THAT(err, HasSubstr("\"" + std::string(text) + "\" is not a node and a direction, such as 3:x or 3:y"));
    }
  }
}

TEST_F(InfluenceCommandTest, IsOfOneQuantity) {
  EXPECT_EQ(Influence({"--path", "1-5"}), 2);
  EXPECT_EQ(Influence({"--path", "1-5", "--member", "1", "--reaction", "1:y"}), 2);
  EXPECT_EQ(Influence({"--member", "1"}), 2);
  EXPECT_EQ(Run({"influence", "--path", "1-5", "--member", "1"}), 2);
  EXPECT_EQ(out, "");
}

TEST_F(InfluenceCommandTest, SaysThatATrussIsUnstable) {
  const std::string square = Reference("mechanism_square");
  EXPECT_EQ(Run({"influence", square, "--path", "1,2", "--member", "1"}), 1);
  EXPECT_THAT(err, StartsWith(square + ": Influence lines need a stable truss, but node"));
  EXPECT_THAT(err, HasSubstr("; no member or support resists this: add a member from node 1 to node 3\n"));
  EXPECT_EQ(out, "");
}

TEST_F(InfluenceCommandTest, SaysThatAModelIsEmptyOrMissing) {
  EXPECT_EQ(Run({"influence", Reference("empty"), "--path", "1", "--member", "1"}), 2);
  EXPECT_THAT(err, HasSubstr("The model has no nodes to take a path over: enter a truss first\n"));
  EXPECT_EQ(Run({"influence", folder.Path("missing.stw"), "--path", "1", "--member", "1"}), 2);
}

TEST_F(InfluenceCommandTest, DrawsTheLineBelowTheTruss) {
  const std::string file = folder.Path("line.svg");
  EXPECT_EQ(Influence({"--path", "1-5", "--member", "12", "--picture", file, "--train", "50@0,100@2"}), 0) << err;
  const std::string svg = FileBytes(file);
  for (const char* text : {">0.625<", ">-0.3125<", ">100<", ">50<", ">Force of member 12 in kN for 1 kN downward<",
                           ">Maximum 83.3333 kN: first axle at x = 8 m, going right<",
                           ">Minimum -36.4583 kN: first axle at x = 1 m, going left<"}) {
    EXPECT_THAT(svg, HasSubstr(text));
  }
  // Neither the loads of the model nor the grid.
  EXPECT_THAT(svg, Not(HasSubstr(">-20.0<")));
  EXPECT_THAT(svg, Not(HasSubstr(">9.0<")));
}

TEST_F(InfluenceCommandTest, DrawsInTheSizeAskedFor) {
  const std::string file = folder.Path("line.png");
  EXPECT_EQ(Influence({"--path", "1-5", "--reaction", "1:y", "--picture", file, "--size", "640x480"}), 0) << err;
  EXPECT_EQ(QImage(QString::fromStdString(file)).size(), QSize(640, 480));
  EXPECT_EQ(Influence({"--path", "1-5", "--reaction", "1:y", "--size", "640x480"}), 2);
}

TEST_F(InfluenceCommandTest, SaysWhyAPictureCannotBeWritten) {
  const std::string file = folder.Path("missing/line.png");
  EXPECT_EQ(Influence({"--path", "1-5", "--member", "12", "--picture", file}), 2);
  EXPECT_EQ(err, Model() + ": Error while saving file " + file + "; No such file or directory\n");
  EXPECT_THAT(out, HasSubstr("PATH"));
}

} // namespace
} // namespace strutwright
