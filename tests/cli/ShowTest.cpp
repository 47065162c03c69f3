#include "CliTest.h"

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using ShowTest = CliTest;

TEST_F(ShowTest, PrintsTheInputTablesAsText) {
  EXPECT_EQ(Run({"show", Reference("triangle")}), 0);
  EXPECT_EQ(out, "JOINTS  x(m)  y(m)  ForceX (kN)  ForceY (kN)  Support\n"
                 "1          0     0            0            0        3\n"
                 "2          4     0            0            0        1\n"
                 "3          2     3            5          -10        0\n"
                 "\n"
                 "MEMBERS  Node i  Node j  E (kN/mm2)  A (mm2)  PS (kN)\n"
                 "1             1       2         200     1000        0\n"
                 "2             2       3         200     1000        0\n"
                 "3             1       3         200     1000        0\n");
}

TEST_F(ShowTest, PrintsTheInputTablesAsCsv) {
  EXPECT_EQ(Run({"show", "--format", "csv", Reference("prestress_between_fixed")}), 0);
  EXPECT_THAT(out, testing::StartsWith("JOINTS,x(m),y(m),ForceX (kN),ForceY (kN),Support\r\n1,"));
  EXPECT_THAT(out, testing::HasSubstr("\r\nMEMBERS,Node i,Node j,E (kN/mm2),A (mm2),PS (kN)\r\n1,1,2,"));
}

TEST_F(ShowTest, PrintsTheInputTablesAsJson) {
  EXPECT_EQ(Run({"show", "--format", "json", Reference("triangle")}), 0);
  const auto model = nlohmann::json::parse(out);
  EXPECT_EQ(model["capacity"], 20);
  EXPECT_EQ(model["units"],
            nlohmann::json::parse(R"({"x":"m","y":"m","fx":"kN","fy":"kN","e":"kN/mm2","a":"mm2","ps":"kN"})"));
  EXPECT_EQ(model["nodes"][2], nlohmann::json::parse(R"({"node":3,"x":2,"y":3,"fx":5,"fy":-10,"support":0})"));
  EXPECT_EQ(model["members"][1], nlohmann::json::parse(R"({"member":2,"i":2,"j":3,"e":200,"a":1000,"ps":0})"));
}

TEST_F(ShowTest, PrintsADrawingWithItsDeflectedShape) {
  EXPECT_EQ(Run({"show", "--format", "dxf", Reference("triangle")}), 0) << err;
  EXPECT_THAT(out, testing::StartsWith("0\r\nSECTION\r\n"));
  EXPECT_THAT(out, testing::HasSubstr("LINE\r\n8\r\ndeflected\r\n"));
  EXPECT_THAT(out, testing::HasSubstr("POINT\r\n8\r\nsupport_3\r\n"));
  EXPECT_EQ(Run({"show", "--format", "dxf", "--deflection-scale", "0", Reference("triangle")}), 0) << err;
  EXPECT_THAT(out, testing::Not(testing::HasSubstr("deflected")));
}

TEST_F(ShowTest, SaysWhatADrawingHasNoPlaceFor) {
  const std::string model = Reference("node_number_too_large");
  EXPECT_EQ(Run({"show", "--format", "dxf", model}), 0);
  EXPECT_THAT(err, testing::StartsWith(model + ": Member "));
  EXPECT_THAT(err, testing::HasSubstr(" is not in the drawing, because it names a node that is not there\n"));
}

TEST_F(ShowTest, PrintsADrawingForLatex) {
  EXPECT_EQ(Run({"show", "--format", "tikz", Reference("triangle")}), 0) << err;
  EXPECT_THAT(out, testing::HasSubstr("\\begin{tikzpicture}"));
}

TEST_F(ShowTest, TakesAScaleForADrawingOnly) {
  EXPECT_EQ(Run({"show", "--deflection-scale", "10", Reference("triangle")}), 2);
  EXPECT_THAT(err, testing::HasSubstr("--format dxf"));
  EXPECT_EQ(Run({"show", "--format", "dxf", "--deflection-scale", "-1", Reference("triangle")}), 2);
  EXPECT_THAT(err, testing::HasSubstr("\"-1\" is not a number from 0 to 5000"));
}

TEST_F(ShowTest, ReportsWhatCannotBeRead) {
  const std::string missing = folder.Path("missing.stw");
  EXPECT_EQ(Run({"show", missing}), 2);
  EXPECT_EQ(out, "");
  EXPECT_EQ(err, missing + ": No such file or directory\n");
}

} // namespace
} // namespace strutwright
