#include "modNumberText.h"

#include <cfloat>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(NumericValueTest, ReadsDigitsWithAtMostOnePoint) {
  EXPECT_EQ(NumericValue("12"), 12.0F);
  EXPECT_EQ(NumericValue("007"), 7.0F);
  EXPECT_EQ(NumericValue("1.25"), 1.25F);
  EXPECT_EQ(NumericValue("1."), 1.0F);
  EXPECT_EQ(NumericValue(".5"), 0.5F);
}

TEST(NumericValueTest, RefusesMoreThanOnePoint) {
  EXPECT_EQ(NumericValue("1.2.3"), std::nullopt);
  EXPECT_EQ(NumericValue("1..2"), std::nullopt);
  EXPECT_EQ(NumericValue("..5"), std::nullopt);
}

TEST(NumericValueTest, NeedsADigitInTheMantissa) {
  EXPECT_EQ(NumericValue("."), std::nullopt);
  EXPECT_EQ(NumericValue("-"), std::nullopt);
  EXPECT_EQ(NumericValue("+."), std::nullopt);
  EXPECT_EQ(NumericValue("e5"), std::nullopt);
  EXPECT_EQ(NumericValue(".e5"), std::nullopt);
}

TEST(NumericValueTest, FindsNoNumberInAnEmptyOrBlankText) {
  EXPECT_EQ(NumericValue(""), std::nullopt);
  EXPECT_EQ(NumericValue(" "), std::nullopt);
  EXPECT_EQ(NumericValue(" \t "), std::nullopt);
}

TEST(NumericValueTest, TakesOneSign) {
  EXPECT_EQ(NumericValue("-2.5"), -2.5F);
  EXPECT_EQ(NumericValue("+2.5"), 2.5F);
  EXPECT_EQ(NumericValue("-.5"), -0.5F);
  EXPECT_EQ(NumericValue("--2"), std::nullopt);
  EXPECT_EQ(NumericValue("+-2"), std::nullopt);
  EXPECT_EQ(NumericValue("-+2"), std::nullopt);
  EXPECT_EQ(NumericValue("2-"), std::nullopt);
}

TEST(NumericValueTest, TakesAnExponentWithOrWithoutSign) {
  EXPECT_EQ(NumericValue("1.5e3"), 1500.0F);
  EXPECT_EQ(NumericValue("1.5E3"), 1500.0F);
  EXPECT_EQ(NumericValue("1.5E+09"), 1.5e9F);
  EXPECT_EQ(NumericValue("25e-1"), 2.5F);
  EXPECT_EQ(NumericValue("1.e2"), 100.0F);
  EXPECT_EQ(NumericValue(".5e1"), 5.0F);
}

TEST(NumericValueTest, RefusesAnIncompleteExponent) {
  EXPECT_EQ(NumericValue("1e"), std::nullopt);
  EXPECT_EQ(NumericValue("1e+"), std::nullopt);
  EXPECT_EQ(NumericValue("1e-"), std::nullopt);
  EXPECT_EQ(NumericValue("1e.5"), std::nullopt);
  EXPECT_EQ(NumericValue("1e1.5"), std::nullopt);
  EXPECT_EQ(NumericValue("1e+-5"), std::nullopt);
  EXPECT_EQ(NumericValue("1e5e5"), std::nullopt);
  EXPECT_EQ(NumericValue("1d5"), std::nullopt);
}

TEST(NumericValueTest, AllowsBlanksAndTabsAround) {
  EXPECT_EQ(NumericValue("  7"), 7.0F);
  EXPECT_EQ(NumericValue("7  "), 7.0F);
  EXPECT_EQ(NumericValue("\t 7\t"), 7.0F);
  EXPECT_EQ(NumericValue(" -7 "), -7.0F);
}

TEST(NumericValueTest, RefusesBlanksInside) {
  EXPECT_EQ(NumericValue("1 2"), std::nullopt);
  EXPECT_EQ(NumericValue("- 7"), std::nullopt);
  EXPECT_EQ(NumericValue("1 e5"), std::nullopt);
  EXPECT_EQ(NumericValue("1e 5"), std::nullopt);
  EXPECT_EQ(NumericValue("1\t.5"), std::nullopt);
}

TEST(NumericValueTest, RefusesOtherWritingsOfNumbers) {
  for (const char* text :
       {"1,5", "1,000", "1'000", "1_000", "0x10", "&H10", "0b1", "1f", "5%", "$5", "1/2", "\xC2\xBD"}) {
    EXPECT_EQ(NumericValue(text), std::nullopt) << text;
  }
}

TEST(NumericValueTest, RefusesWordsForNumbers) {
  for (const char* text : {"inf", "-inf", "Infinity", "nan", "NaN", "nan(1)", "True", "one", "abc", "n1"}) {
    EXPECT_EQ(NumericValue(text), std::nullopt) << text;
  }
}

TEST(NumericValueTest, RefusesATextWithSomethingBehindTheNumber) {
  EXPECT_EQ(NumericValue("12kN"), std::nullopt);
  EXPECT_EQ(NumericValue("12;"), std::nullopt);
  EXPECT_EQ(NumericValue(std::string_view("12\0", 3)), std::nullopt);
  EXPECT_EQ(NumericValue("12\n13"), std::nullopt);
}

TEST(NumericValueTest, ReadsOnlyWhatTheViewCovers) {
  EXPECT_EQ(NumericValue(std::string_view("1234").substr(0, 2)), 12.0F);
}

TEST(NumericValueTest, TakesTheLargestFloat) {
  EXPECT_EQ(NumericValue("3.4028235e38"), FLT_MAX);
  EXPECT_EQ(NumericValue("-3.4028235e38"), -FLT_MAX);
  EXPECT_EQ(NumericValue("340282350000000000000000000000000000000"), FLT_MAX);
}

TEST(NumericValueTest, RefusesWhatIsTooLargeForAFloat) {
  EXPECT_EQ(NumericValue("3.4028236e38"), std::nullopt);
  EXPECT_EQ(NumericValue("1e39"), std::nullopt);
  EXPECT_EQ(NumericValue("-1e39"), std::nullopt);
  EXPECT_EQ(NumericValue("0.001e42"), std::nullopt);
  EXPECT_EQ(NumericValue("1" + std::string(60, '0')), std::nullopt);
}

TEST(NumericValueTest, TakesWhatIsTooSmallForAFloatForZero) {
  EXPECT_EQ(NumericValue("1e-60"), 0.0F);
  EXPECT_EQ(NumericValue("-1e-60"), 0.0F);
  EXPECT_EQ(NumericValue("1e-46"), 0.0F);
  EXPECT_EQ(NumericValue("1000e-63"), 0.0F);
  EXPECT_EQ(NumericValue("0." + std::string(60, '0') + "1"), 0.0F);
}

TEST(NumericValueTest, KeepsDenormals) {
  EXPECT_EQ(NumericValue("1e-40"), 1e-40F);
  EXPECT_EQ(NumericValue("1.4e-45"), FLT_TRUE_MIN);
  EXPECT_NE(NumericValue("1e-40"), 0.0F);
}

TEST(NumericValueTest, CopesWithExponentsThatNoIntegerHolds) {
  EXPECT_EQ(NumericValue("1e99999999999999999999"), std::nullopt);
  EXPECT_EQ(NumericValue("-1e+99999999999999999999"), std::nullopt);
  EXPECT_EQ(NumericValue("1e-99999999999999999999"), 0.0F);
  EXPECT_EQ(NumericValue("1e99999999999"), std::nullopt);
  EXPECT_EQ(NumericValue("1e-99999999999"), 0.0F);
}

TEST(NumericValueTest, TakesZeroWithAnyExponentForZero) {
  EXPECT_EQ(NumericValue("0e99999999999"), 0.0F);
  EXPECT_EQ(NumericValue("0e99999999999999999999"), 0.0F);
  EXPECT_EQ(NumericValue("0.00e-99999999999999999999"), 0.0F);
  EXPECT_EQ(NumericValue("1e0000000000000000000000001"), 10.0F);
}

TEST(NumericValueTest, WeighsLongMantissasAgainstTheirExponent) {
  EXPECT_EQ(NumericValue("1" + std::string(60, '0') + "e-60"), 1.0F);
  EXPECT_EQ(NumericValue("0." + std::string(60, '0') + "1e61"), 1.0F);
}

// 16777217 lies half-way between two floats; the last digit of the second text decides.
TEST(NumericValueTest, RoundsOnceToTheNearestFloat) {
  EXPECT_EQ(NumericValue("16777217"), 16777216.0F);
  EXPECT_EQ(NumericValue("16777217.0000000000000000000001"), 16777218.0F);
  EXPECT_EQ(NumericValue("0.1"), 0.1F);
}

} // namespace
} // namespace strutwright
