#include "modNumberText.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(IntegerValueTest, ReadsAnyNumericText) {
  EXPECT_EQ(IntegerValue("7"), 7);
  EXPECT_EQ(IntegerValue(" +3\t"), 3);
  EXPECT_EQ(IntegerValue("-12"), -12);
  EXPECT_EQ(IntegerValue("1.2e3"), 1200);
}

TEST(IntegerValueTest, RoundsTiesToEven) {
  EXPECT_EQ(IntegerValue("2.5"), 2);
  EXPECT_EQ(IntegerValue("3.5"), 4);
  EXPECT_EQ(IntegerValue("-2.5"), -2);
  EXPECT_EQ(IntegerValue("2.4"), 2);
  EXPECT_EQ(IntegerValue("2.6"), 3);
}

TEST(IntegerValueTest, SeesWhatIsHardlyMoreThanATie) {
  EXPECT_EQ(IntegerValue("2.50000001"), 3);
  EXPECT_EQ(IntegerValue("3.49999999"), 3);
}

TEST(IntegerValueTest, RefusesWhatSixteenBitsDoNotHold) {
  EXPECT_EQ(IntegerValue("32767.4"), 32767);
  EXPECT_EQ(IntegerValue("32767.5"), std::nullopt);
  EXPECT_EQ(IntegerValue("-32768.5"), -32768);
  EXPECT_EQ(IntegerValue("-32769"), std::nullopt);
  EXPECT_EQ(IntegerValue("1e38"), std::nullopt);
}

TEST(IntegerValueTest, TakesWhatIsTooSmallForZero) { EXPECT_EQ(IntegerValue("1e-999"), 0); }

TEST(IntegerValueTest, RefusesWhatIsNotNumeric) {
  for (const char* text : {"", " ", "x", "1 2", "0x10", "1,5", "1e39", "inf", "+-3"}) {
    EXPECT_EQ(IntegerValue(text), std::nullopt) << text;
  }
}

TEST(NumberFormTest, DoesNotCareAboutTheSize) {
  for (const char* text : {"7", " -1.5\t", ".5", "5.", "1e39", "-1e999", "40000", "1E+999999999999999999999"}) {
    EXPECT_TRUE(IsNumberForm(text)) << text;
  }
}

TEST(NumberFormTest, RefusesWhatIsNoNumber) {
  for (const char* text : {"", " ", ".", "-", "abc", "1 2", "1,5", "0x10", "1e", "inf", "nan", "+-3"}) {
    EXPECT_FALSE(IsNumberForm(text)) << text;
  }
}

} // namespace
} // namespace strutwright
