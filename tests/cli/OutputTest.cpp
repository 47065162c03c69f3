#include "Output.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>

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

std::string JsonLine(const Json& value) {
  std::ostringstream out;
  PrintJsonLine(value, out);
  return out.str();
}

TEST(JsonTest, EscapesTexts) {
  EXPECT_EQ(JsonLine("a\"b\\c\nd"), "\"a\\\"b\\\\c\\nd\"\n");
  EXPECT_EQ(JsonLine("\xC3\xA4"), "\"\xC3\xA4\"\n");
}

TEST(JsonTest, ShowsTheReplacementCharacterForWhatIsNotUtf8) { EXPECT_EQ(JsonLine("a\xFF"), "\"a\xEF\xBF\xBD\"\n"); }

TEST(ValidTextTest, KeepsWhatIsValidAndMarksTheRest) {
  EXPECT_EQ(ValidText("br\xC3\xBC\x63ke \"1\".stw"), "br\xC3\xBC\x63ke \"1\".stw");
  EXPECT_EQ(ValidText("a\xFF.stw"), "a\xEF\xBF\xBD.stw");
}

TEST(JsonTest, GivesAFloatItsShortDecimalAndAPoint) {
  EXPECT_EQ(JsonLine(JsonNumber(3)), "3.0\n");
  EXPECT_EQ(JsonLine(JsonNumber(0.1F)), "0.1\n");
  EXPECT_EQ(JsonLine(JsonNumber(-0.0F)), "0.0\n");
  EXPECT_EQ(JsonLine(JsonNumber(19.999998F)), "19.999998\n");
  EXPECT_EQ(JsonLine(JsonNumber(1e10F)), "1e+10\n");
  EXPECT_EQ(JsonLine(JsonNumber(std::numeric_limits<float>::quiet_NaN())), "null\n");
  EXPECT_EQ(JsonLine(JsonNumber(std::numeric_limits<float>::infinity())), "null\n");
}

TEST(JsonTest, ReadsBackToTheSameFloat) {
  std::uint32_t bits = 1;
  for (int i = 0; i < 20000; ++i) {
    bits = bits * 1664525U + 1013904223U;
    const auto value = std::bit_cast<float>(bits);
    if (!std::isfinite(value)) continue;
    EXPECT_EQ(Json::parse(JsonLine(JsonNumber(value))).get<float>(), value);
  }
}

TEST(JsonTest, KeepsTheOrderOfItsKeys) {
  EXPECT_EQ(JsonLine({{"b", 1}, {"a", Json::array({2, 3})}}), "{\"b\":1,\"a\":[2,3]}\n");
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
