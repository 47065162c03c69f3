// What of a DXF file is read, and what is refused.

#include "DxfDrawing.h"
#include "ImportFixture.h"
#include "modModelStore.h"

#include <fstream>
#include <sstream>
#include <string>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

using DxfTest = ImportTest;

const std::string Polyline = "  0\nLWPOLYLINE\n  8\nweb\n 90\n3\n";

TEST_F(DxfTest, MakesMembersOfLines) {
  Import(DxfText().Line("0", 0, 0, 4, 0).Line("0", 4, 0, 4, 3));
  ASSERT_EQ(model.nodeCount, 3);
  ASSERT_EQ(model.memberCount, 2);
  EXPECT_EQ(model.nodes(3, NodeY), 3);
  EXPECT_EQ(model.members(2, MemberNodeI), 2);
  EXPECT_EQ(model.members(2, MemberNodeJ), 3);
}

TEST_F(DxfTest, MakesATrussOfADrawingOfLibreCad) {
  std::ifstream file(std::string(DRAWINGS_DIR) + "/librecad.dxf", std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();

  Import(text.str());

  ASSERT_EQ(model.nodeCount, 3);
  EXPECT_EQ(model.nodes(2, NodeX), 4) << "4000 mm";
  EXPECT_EQ(model.nodes(3, NodeX), 2);
  EXPECT_EQ(model.nodes(3, NodeY), 1.5F);
  EXPECT_EQ(model.nodes(1, NodeSupport), 3);
  EXPECT_EQ(model.nodes(2, NodeSupport), 1);
  ASSERT_EQ(model.memberCount, 3);
  EXPECT_EQ(model.members(3, MemberNodeI), 3);
  EXPECT_EQ(model.members(3, MemberNodeJ), 1);
  EXPECT_THAT(remarks, Contains("Left out: 1 CIRCLE"));
}

TEST_F(DxfTest, MakesMembersOfTheSidesOfPolylines) {
  const std::string corners = "10\n0\n20\n0\n10\n4\n20\n0\n10\n4\n20\n3\n";
  Import(DxfText().Add(Polyline + "70\n0\n" + corners));
  EXPECT_EQ(model.memberCount, 2);
  Import(DxfText().Add(Polyline + "70\n1\n" + corners));
  EXPECT_EQ(model.memberCount, 3);
  Import(DxfText().Add(Polyline + "70\n1\n230\n-1\n" + corners));
  EXPECT_EQ(model.nodes(2, NodeX), -4);
}

TEST_F(DxfTest, MakesMembersOfOldPolylines) {
  Import(
      DxfText().Add("0\nPOLYLINE\n8\nweb\n66\n1\n70\n1\n0\nVERTEX\n8\nweb\n10\n0\n20\n0\n0\nVERTEX\n8\nweb\n10\n4\n20\n"
                    "0\n0\nVERTEX\n8\nweb\n10\n4\n20\n3\n0\nSEQEND\n8\nweb\n"));
  EXPECT_EQ(model.memberCount, 3);
  EXPECT_EQ(model.nodes(3, NodeY), 3);
}

TEST_F(DxfTest, CountsAndNamesWhatItLeavesOut) {
  Import(DxfText()
             .Line("0", 0, 0, 4, 0)
             .Add("0\nARC\n8\n0\n0\nTEXT\n8\n0\n1\nhi\n0\nARC\n8\n0\n")
             .Add(Polyline + "10\n0\n20\n0\n42\n0.5\n10\n4\n20\n3\n10\n5\n20\n3\n")
             .Add("0\nLINE\n67\n1\n10\n1\n20\n1\n11\n2\n21\n2\n")
             .Point("grid", 0, 0)
             .Point("door", 1, 0, "INSERT"));
  EXPECT_EQ(model.memberCount, 2);
  EXPECT_THAT(remarks, ElementsAre("Left out: 2 ARC, 1 ARC in a polyline, 1 INSERT, 1 LINE on paper, 1 POINT, 1 TEXT",
                                   HasSubstr("Members on the layers \"0\", \"web\" get E = 200")));
}

TEST_F(DxfTest, CountsWhatItLeavesOutOfALayerCalledDeflected) {
  Import(DxfText()
             .Line("0", 0, 0, 4, 0)
             .Line("Deflected", 0, 0, 4, 1)
             .Line("DEFLECTED", 0, 0, 4, 2)
             .Add("  0\nLWPOLYLINE\n  8\ndeflected\n 10\n0\n 20\n0\n 10\n1\n 20\n1\n"));
  EXPECT_EQ(model.memberCount, 1);
  EXPECT_THAT(remarks, Contains("Left out: 3 LINE on the layer deflected"));
}

TEST_F(DxfTest, LeavesOutWhatBlocksHold) {
  Import("0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nb\n0\nLINE\n10\n9\n20\n9\n11\n8\n21\n8\n0\nENDBLK\n0\nENDSEC\n" +
         std::string(DxfText().Line("0", 0, 0, 4, 0)));
  EXPECT_EQ(model.memberCount, 1);
}

TEST_F(DxfTest, SaysThatAHeightIsLeftOut) {
  Import(DxfText().Add("0\nLINE\n8\n0\n10\n0\n20\n0\n30\n0\n11\n1\n21\n0\n31\n2\n"));
  EXPECT_THAT(remarks[0], "1 line or corner has a height z, which is left out");
}

TEST_F(DxfTest, TakesTheUnitOfTheDrawingOrTheOneAskedFor) {
  Import(DxfText().Unit(4).Line("0", 0, 0, 4000, 0));
  EXPECT_EQ(model.nodes(2, NodeX), 4);
  Import(DxfText().Unit(4).Line("0", 0, 0, 10, 0), {.metres = MetresOfUnit("ft")});
  EXPECT_EQ(model.nodes(2, NodeX), 3.048F);
  Import(DxfText().Unit(0).Line("0", 0, 0, 4, 0));
  EXPECT_EQ(model.nodes(2, NodeX), 4);
  EXPECT_EQ(remarks[0], "The drawing names no unit that is known here; it is read in metres");
}

TEST_F(DxfTest, NamesWhatIsWrong) {
  const std::string head = "0\nSECTION\n2\nENTITIES\n";
  EXPECT_EQ(FaultOf(head + "0\nLINE\n10\n1e400\n0\nENDSEC\n0\nEOF\n"),
            "Line 8: \"1e400\" is not a number, or too large for one");
  EXPECT_EQ(FaultOf(head + "0\nLINE\n10\nnan\n0\nEOF\n"), "Line 8: \"nan\" is not a number, or too large for one");
  EXPECT_EQ(FaultOf(head + "0\nLINE\n10\n1e39\n11\n0\n0\nENDSEC\n0\nEOF\n"),
            "a coordinate of the drawing is too large");
  EXPECT_EQ(FaultOf(head + "0\nLINE\n10\n"), "Line 7: the drawing ends in the middle");
  EXPECT_EQ(FaultOf(head + "0\nLINE\n10\n1\n"), "Line 8: the drawing ends in the middle");
  EXPECT_EQ(FaultOf(head + "zero\nLINE\n"), "Line 5: a DXF group code is expected, not \"zero\"");
  EXPECT_EQ(FaultOf(DxfText()), "the drawing has no line");
  EXPECT_EQ(FaultOf(DxfText().Add("0\nCIRCLE\n8\n0\n")), "the drawing has no line to make a member of, only 1 CIRCLE");
  EXPECT_EQ(FaultOf("hello", "a.dxf"), "Line 1: a DXF file begins with a section");
  EXPECT_EQ(FaultOf("AutoCAD Binary DXF\r\n"), "this is a binary DXF file; save the drawing as DXF in text (ASCII)");
}

TEST_F(DxfTest, TakesNoMoreThanAModelCanHold) {
  DxfText lines;
  for (int k = 0; k < 32768; ++k) lines.Line("0", k, 0, k, 1);
  EXPECT_EQ(FaultOf(lines), "a model has at most 32767 members");
  std::string corners = Polyline;
  for (int k = 0; k < 130000; ++k) corners += "10\n1\n20\n1\n";
  EXPECT_THAT(FaultOf(DxfText().Add(corners)), HasSubstr(": one entity is larger than any model"));
}

TEST_F(DxfTest, PromisesOfSizesAreNotBelieved) {
  Import(DxfText().Add("0\nLWPOLYLINE\n8\n0\n90\n2000000000\n10\n0\n20\n0\n10\n1\n20\n0\n"));
  EXPECT_EQ(model.memberCount, 1);
}

} // namespace
} // namespace strutwright
