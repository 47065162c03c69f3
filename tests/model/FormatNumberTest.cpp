#include "SpecialNumbers.h"
#include "modNumberText.h"

#include <cfloat>
#include <cmath>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(FormatNumberTest, ShowsOneDigitBehindThePointOnTheDrawing) {
  EXPECT_EQ(FormatNumber(12.0F, "#0.0"), "12.0");
  EXPECT_EQ(FormatNumber(0.0F, "#0.0"), "0.0");
  EXPECT_EQ(FormatNumber(0.5F, "#0.0"), "0.5");
  EXPECT_EQ(FormatNumber(-7.31F, "#0.0"), "-7.3");
}

TEST(FormatNumberTest, ShowsTwoDigitsBehindThePointForCoordinates) {
  EXPECT_EQ(FormatNumber(3.0F, "0.00"), "3.00");
  EXPECT_EQ(FormatNumber(0.0F, "0.00"), "0.00");
  EXPECT_EQ(FormatNumber(-1.256F, "0.00"), "-1.26");
}

TEST(FormatNumberTest, ShowsTheSecondDigitOnlyWhenNeeded) {
  EXPECT_EQ(FormatNumber(1.25F, "#0.0#"), "1.25");
  EXPECT_EQ(FormatNumber(1.2F, "#0.0#"), "1.2");
  EXPECT_EQ(FormatNumber(1.001F, "#0.0#"), "1.0");
  EXPECT_EQ(FormatNumber(100.0F, "#0.0#"), "100.0");
  EXPECT_EQ(FormatNumber(0.0F, "#0.0#"), "0.0");
}

TEST(FormatNumberTest, ShowsThreeDigitsOnlyWhenNeeded) {
  EXPECT_EQ(FormatNumber(0.70710678F, "#0.0##"), "0.707");
  EXPECT_EQ(FormatNumber(1.0F, "#0.0##"), "1.0");
  EXPECT_EQ(FormatNumber(0.25F, "#0.0##"), "0.25");
  EXPECT_EQ(FormatNumber(0.305F, "#0.0##"), "0.305");
}

TEST(FormatNumberTest, ShowsNothingButThePointForAZeroReaction) {
  EXPECT_EQ(FormatNumber(0.0F, "#.#"), ".");
  EXPECT_EQ(FormatNumber(0.04F, "#.#"), ".");
  EXPECT_EQ(FormatNumber(-0.04F, "#.#"), ".");
}

TEST(FormatNumberTest, ShowsNoZeroBeforeThePointThatThePatternDoesNotAskFor) {
  EXPECT_EQ(FormatNumber(0.5F, "#.#"), ".5");
  EXPECT_EQ(FormatNumber(-0.5F, "#.#"), "-.5");
  EXPECT_EQ(FormatNumber(12.34F, "#.#"), "12.3");
}

TEST(FormatNumberTest, AlwaysShowsThePointOfThePattern) {
  EXPECT_EQ(FormatNumber(75.0F, "#0.##"), "75.");
  EXPECT_EQ(FormatNumber(0.0F, "#0.##"), "0.");
  EXPECT_EQ(FormatNumber(75.0F, "#.#"), "75.");
  EXPECT_EQ(FormatNumber(0.125F, "#0.##"), "0.13");
}

TEST(FormatNumberTest, ShowsNoPointThatThePatternLacks) {
  EXPECT_EQ(FormatNumber(75.0F, "#0"), "75");
  EXPECT_EQ(FormatNumber(0.0F, "#0"), "0");
  EXPECT_EQ(FormatNumber(74.5F, "#0"), "75");
  EXPECT_EQ(FormatNumber(0.5F, "#0"), "1");
  EXPECT_EQ(FormatNumber(0.4F, "#0"), "0");
}

TEST(FormatNumberTest, RoundsHalfAwayFromZero) {
  EXPECT_EQ(FormatNumber(2.5F, "#0"), "3");
  EXPECT_EQ(FormatNumber(-2.5F, "#0"), "-3");
  EXPECT_EQ(FormatNumber(0.25F, "#0.0"), "0.3");
  EXPECT_EQ(FormatNumber(-0.25F, "#0.0"), "-0.3");
  EXPECT_EQ(FormatNumber(0.05F, "#0.0"), "0.1");
}

// The nearest float to 2.675 lies below it; the seven-digit decimal is 2.675.
TEST(FormatNumberTest, RoundsTheSevenDigitDecimal) {
  EXPECT_EQ(FormatNumber(2.675F, "0.00"), "2.68");
  EXPECT_EQ(FormatNumber(-2.675F, "0.00"), "-2.68");
  EXPECT_EQ(FormatNumber(std::nextafter(0.125F, 0.0F), "0.00"), "0.13");
  EXPECT_EQ(FormatNumber(0.1249999F, "0.00"), "0.12");
}

TEST(FormatNumberTest, ShowsNoDigitBeyondTheSeventh) {
  EXPECT_EQ(FormatNumber(123456.78F, "0.00"), "123456.80");
  EXPECT_EQ(FormatNumber(1234567.75F, "#0.0"), "1234568.0");
  EXPECT_EQ(FormatNumber(16777216.0F, "#0"), "16777220");
}

TEST(FormatNumberTest, CarriesIntoTheDigitsBefore) {
  EXPECT_EQ(FormatNumber(9.995F, "0.00"), "10.00");
  EXPECT_EQ(FormatNumber(9.96F, "#0.0"), "10.0");
  EXPECT_EQ(FormatNumber(-9.96F, "#0.0"), "-10.0");
  EXPECT_EQ(FormatNumber(0.999F, "#.#"), "1.");
  EXPECT_EQ(FormatNumber(1.996F, "#0.0#"), "2.0");
  EXPECT_EQ(FormatNumber(99.95F, "#0.0"), "100.0");
}

TEST(FormatNumberTest, GivesNoMinusSignToWhatRoundsToZero) {
  EXPECT_EQ(FormatNumber(-0.0F, "#0.0"), "0.0");
  EXPECT_EQ(FormatNumber(-0.04F, "#0.0"), "0.0");
  EXPECT_EQ(FormatNumber(-0.004F, "0.00"), "0.00");
  EXPECT_EQ(FormatNumber(-0.0004F, "#0.0##"), "0.0");
  EXPECT_EQ(FormatNumber(-0.4F, "#0"), "0");
}

TEST(FormatNumberTest, KeepsTheMinusSignOfWhatDoesNotRoundToZero) {
  EXPECT_EQ(FormatNumber(-0.05F, "#0.0"), "-0.1");
  EXPECT_EQ(FormatNumber(-0.05F, "#.#"), "-.1");
  EXPECT_EQ(FormatNumber(-0.005F, "0.00"), "-0.01");
}

TEST(FormatNumberTest, ShowsLargeValuesInFull) {
  EXPECT_EQ(FormatNumber(1.5e9F, "#0.0"), "1500000000.0");
  EXPECT_EQ(FormatNumber(-1.5e9F, "#.#"), "-1500000000.");
  EXPECT_EQ(FormatNumber(FLT_MAX, "#0"), "3402823" + std::string(32, '0'));
}

TEST(FormatNumberTest, ShowsTinyValuesAsZero) {
  for (const float value : {1e-5F, FLT_MIN, FLT_TRUE_MIN, -FLT_TRUE_MIN}) {
    EXPECT_EQ(FormatNumber(value, "#0.0##"), "0.0") << value;
    EXPECT_EQ(FormatNumber(value, "#.#"), ".") << value;
  }
}

TEST(FormatNumberTest, NamesWhatIsNotFinite) {
  for (const std::string_view pattern : {"#0.0", "0.00", "#.#", "#0"}) {
    EXPECT_EQ(FormatNumber(NaN, pattern), "NaN");
    EXPECT_EQ(FormatNumber(Infinity, pattern), "Infinity");
    EXPECT_EQ(FormatNumber(-Infinity, pattern), "-Infinity");
  }
}

} // namespace
} // namespace strutwright
