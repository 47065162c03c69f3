#include "Output.h"

#include <limits>
#include <sstream>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(CsvRecordTest, SeparatesByCommasAndEndsTheLine) {
  EXPECT_EQ(CsvRecord({"1", "2.5", "T"}), "1,2.5,T\r\n");
  EXPECT_EQ(CsvRecord({"", ""}), ",\r\n");
  EXPECT_EQ(CsvRecord({""}), "\r\n");
}

TEST(CsvRecordTest, QuotesWhatWouldBreakIt) {
  EXPECT_EQ(CsvRecord({"a,b", "say \"hi\"", "two\nlines"}), "\"a,b\",\"say \"\"hi\"\"\",\"two\nlines\"\r\n");
}

TEST(PreciseTextTest, HasAsManyDigitsAsAskedFor) {
  EXPECT_EQ(PreciseText(1.0 / 3), "0.333333333333");
  EXPECT_EQ(PreciseText(-1000.0 / 3, 6), "-333.333");
  EXPECT_EQ(PreciseText(0.1 + 0.2), "0.3");
  EXPECT_EQ(PreciseText(1e-7), "1e-07");
}

TEST(PreciseTextTest, HasNoMinusBeforeZero) { EXPECT_EQ(PreciseText(-0.0), "0"); }

TEST(JsonTest, EscapesTexts) {
  EXPECT_EQ(JsonText("a\"b\\c\nd"), R"("a\"b\\c\nd")");
  EXPECT_EQ(JsonText("\xC3\xA4"), "\"\xC3\xA4\"");
}

TEST(JsonTest, ShowsTheReplacementCharacterForWhatIsNotUtf8) { EXPECT_EQ(JsonText("a\xFF"), "\"a\xEF\xBF\xBD\""); }

TEST(ValidTextTest, KeepsWhatIsValidAndMarksTheRest) {
  EXPECT_EQ(ValidText("br\xC3\xBC\x63ke \"1\".stw"), "br\xC3\xBC\x63ke \"1\".stw");
  EXPECT_EQ(ValidText("a\xFF.stw"), "a\xEF\xBF\xBD.stw");
}

TEST(JsonTest, GivesTheShortestNumber) {
  EXPECT_EQ(JsonNumber(3), "3");
  EXPECT_EQ(JsonNumber(0.1F), "0.1");
  EXPECT_EQ(JsonNumber(-0.0F), "0");
  EXPECT_EQ(JsonNumber(1e10F), "1e+10");
  EXPECT_EQ(JsonNumber(std::numeric_limits<float>::quiet_NaN()), "null");
  EXPECT_EQ(JsonNumber(std::numeric_limits<float>::infinity()), "null");
}

TEST(JsonTest, BuildsObjectsAndLists) {
  EXPECT_EQ(JsonObject({}), "{}");
  EXPECT_EQ(JsonList({}), "[]");
  EXPECT_EQ(JsonObject({{"a", "1"}, {"b", JsonList({"2", "3"})}}), R"({"a":1,"b":[2,3]})");
}

TEST(PrintTableTest, LinesColumnsUp) {
  Grid grid(3, 3);
  grid.SetText(0, 0, "NAME");
  grid.SetText(0, 1, "x");
  grid.SetText(1, 0, "1");
  grid.SetText(1, 1, "12.5");
  grid.SetText(2, 0, "2");
  grid.SetText(2, 2, "Zero Bar");
  std::ostringstream out;
  PrintTable(grid, out);
  EXPECT_EQ(out.str(), "NAME     x          \n"
                       "1     12.5          \n"
                       "2           Zero Bar\n");
}

} // namespace
} // namespace strutwright
