// Tables as spreadsheets write them.

#include "ImportFixture.h"
#include "modModelStore.h"
#include "modTables.h"

#include <string>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string Nodes = "JOINTS,x(m),y(m)\n1,0,0\n2,4,0\n";
const std::string Members = "MEMBERS,Node i,Node j,E (kN/mm2),A (mm2)\n1,1,2,200,1000\n";

using TablesTest = ImportTest;

TEST_F(TablesTest, TakeSemicolonsAndADecimalComma) {
  Import("Support;JOINTS;y(m);x(m)\n3;1;0,25;-1,5\nMEMBERS;Node i;Node j;E (kN/mm2);A (mm2)\n1;1;1;2,1e2;1000\n");
  EXPECT_EQ(model.nodes(1, NodeX), -1.5F);
  EXPECT_EQ(model.nodes(1, NodeY), 0.25F);
  EXPECT_EQ(model.nodes(1, NodeSupport), 3);
  EXPECT_EQ(model.members(1, MemberE), 210);
  EXPECT_THAT(remarks, IsEmpty());
}

TEST_F(TablesTest, TakeADecimalCommaInQuotationMarks) {
  Import("x,y\n\"1,5\",2\n" + Members);
  EXPECT_EQ(model.nodes(1, NodeX), 1.5F);
}

TEST_F(TablesTest, TakeTheKeysOfTheJsonInLettersOfAnyCase) {
  Import("NODE\tX\tY\tFX\tFY\tSupport\n1\t1\t2\t3\t4\t1\nmember\ti\tj\tE\tA\tPS\n1\t1\t1\t5\t6\t7\n");
  EXPECT_EQ(model.nodes(1, NodeForceY), 4);
  EXPECT_EQ(model.members(1, MemberA), 6);
  EXPECT_EQ(model.members(1, MemberPS), 7);
}

TEST_F(TablesTest, TakeUnitsThatCanBeConverted) {
  Import("x (mm),y [cm],ForceX (N)\n1500,250,500\nNode i,Node j,E (GPa),A (cm\xC2\xB2)\n1,1,210,15\n");
  EXPECT_EQ(model.nodes(1, NodeX), 1.5F);
  EXPECT_EQ(model.nodes(1, NodeY), 2.5F);
  EXPECT_EQ(model.nodes(1, NodeForceX), 0.5F);
  EXPECT_EQ(model.members(1, MemberE), 210);
  EXPECT_EQ(model.members(1, MemberA), 1500);
}

TEST_F(TablesTest, NameAUnitThatCanNotBeConverted) {
  EXPECT_EQ(FaultOf("x (kg),y\n1,2\n"),
            "Line 1: the unit in the heading \"x (kg)\" can't be converted to that of \"x(m)\"");
}

TEST_F(TablesTest, LeaveOtherColumnsOutAndSaySo) {
  Import("remark,x,y\ncorner,1,2\n" + Members);
  EXPECT_EQ(model.nodes(1, NodeY), 2);
  EXPECT_THAT(remarks, ElementsAre("The column \"remark\" is left out"));
}

TEST_F(TablesTest, NameAColumnThatStandsThereTwice) {
  EXPECT_EQ(FaultOf("x,y,X(m)\n"), "Line 1: the column \"x(m)\" stands there twice");
}

TEST_F(TablesTest, NameANumberThatIsNone) {
  EXPECT_EQ(FaultOf("x;y\n1;1,2,3\n"), "Line 2: \"1,2,3\" in column \"y(m)\" is not a number");
  EXPECT_EQ(FaultOf("x;y\n1;1.234,5\n"), "Line 2: \"1.234,5\" in column \"y(m)\" is not a number");
  EXPECT_EQ(FaultOf("x,y\n1,nan\n"), "Line 2: \"nan\" in column \"y(m)\" is not a number");
  EXPECT_EQ(FaultOf("x,y\n1e39,1\n"), "Line 2: \"1e39\" in column \"x(m)\" is not a number");
  EXPECT_EQ(FaultOf("x,y,Node i\n1,1,1\nE (MPa)\n"), "Line 3: the line has 1 values instead of 3");
}

TEST_F(TablesTest, ShortenWhatIsTooLongToRead) {
  EXPECT_EQ(FaultOf("x,y\n1," + std::string(100, 'a') + "\n"), "Line 2: \"" + std::string(25, 'a') + "..." +
                                                                   std::string(25, 'a') +
                                                                   "\" in column \"y(m)\" is not a number");
}

TEST_F(TablesTest, NameALineWithTooManyValues) {
  EXPECT_EQ(FaultOf(Nodes + std::string(100, ',') + "\n"), "Line 4: the line has more than 100 values");
}

TEST_F(TablesTest, EndAtTheFirstRowTooMany) {
  std::string many = "x,y\n";
  for (int row = 0; row < 2000000; ++row) many += "1,2\n";
  EXPECT_EQ(FaultOf(many), "Line 16385: a model has at most 16383 nodes");
}

TEST(LayerTableTest, GivesEAndAByTheNameInSmallLetters) {
  const LayerTable table = ReadLayerTable("A (cm2);Layer;E\n10,5;Chord;210\n\n8;WEB;70\n");
  ASSERT_EQ(table.size(), 2U);
  EXPECT_EQ(table.at("chord").A, 1050);
  EXPECT_EQ(table.at("web").E, 70);
}

TEST(LayerTableTest, NamesWhatIsWrong) {
  const auto fault = [](const std::string& text) {
    try {
      ReadLayerTable(text);
      return std::string();
    } catch (const ImportError& error) {
      return error.Sentence();
    }
  };
  EXPECT_EQ(fault(""), "the headings \"layer\", \"E\" and \"A\" are expected first");
  EXPECT_EQ(fault("layer,A\n"), "Line 1: the heading \"E (kN/mm2)\" is missing");
  EXPECT_EQ(fault("layer,E,A\nweb,steel,1\n"), "Line 2: \"steel\" is not a number");
  EXPECT_EQ(fault("E,A,layer\n1,2\n"), "Line 2: the name of the layer is missing");
}

} // namespace
} // namespace strutwright
