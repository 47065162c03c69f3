#include "SpecialNumbers.h"
#include "modNumberText.h"

#include <array>
#include <bit>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(NumberTextTest, WritesBothZerosAsZero) {
  EXPECT_EQ(NumberText(0.0F), "0");
  EXPECT_EQ(NumberText(-0.0F), "0");
}

TEST(NumberTextTest, WritesNoTrailingZeros) {
  EXPECT_EQ(NumberText(2.5F), "2.5");
  EXPECT_EQ(NumberText(3.0F), "3");
  EXPECT_EQ(NumberText(100.0F), "100");
  EXPECT_EQ(NumberText(-0.25F), "-0.25");
}

TEST(NumberTextTest, WritesSevenSignificantDigitsAtMost) {
  EXPECT_EQ(NumberText(1.0F / 3.0F), "0.3333333");
  EXPECT_EQ(NumberText(2.0F / 3.0F), "0.6666667");
  EXPECT_EQ(NumberText(123456.78F), "123456.8");
  EXPECT_EQ(NumberText(0.1F), "0.1");
  EXPECT_EQ(NumberText(-1234567.0F), "-1234567");
}

TEST(NumberTextTest, WritesPlainDigitsBelowTenMillion) {
  EXPECT_EQ(NumberText(9999999.0F), "9999999");
  EXPECT_EQ(NumberText(-9999999.0F), "-9999999");
  EXPECT_EQ(NumberText(1000000.0F), "1000000");
}

TEST(NumberTextTest, WritesAnExponentFromTenMillionOn) {
  EXPECT_EQ(NumberText(10000000.0F), "1E+07");
  EXPECT_EQ(NumberText(1.5e9F), "1.5E+09");
  EXPECT_EQ(NumberText(-1.5e9F), "-1.5E+09");
  EXPECT_EQ(NumberText(16777216.0F), "1.677722E+07");
  EXPECT_EQ(NumberText(1e10F), "1E+10");
  EXPECT_EQ(NumberText(FLT_MAX), "3.402823E+38");
}

TEST(NumberTextTest, WritesPlainDigitsFromOneTenThousandthOn) {
  EXPECT_EQ(NumberText(0.0001F), "0.0001");
  EXPECT_EQ(NumberText(-0.0001F), "-0.0001");
  EXPECT_EQ(NumberText(0.00012345F), "0.00012345");
}

TEST(NumberTextTest, WritesAnExponentBelowOneTenThousandth) {
  EXPECT_EQ(NumberText(std::nextafter(0.0001F, 0.0F)), "9.999999E-05");
  EXPECT_EQ(NumberText(1e-5F), "1E-05");
  EXPECT_EQ(NumberText(-2.5e-12F), "-2.5E-12");
}

TEST(NumberTextTest, NamesWhatIsNotFinite) {
  EXPECT_EQ(NumberText(NaN), "NaN");
  EXPECT_EQ(NumberText(Infinity), "Infinity");
  EXPECT_EQ(NumberText(-Infinity), "-Infinity");
}

constexpr std::uint32_t Seed = 20240611;

/// Calls `check` with finite floats of random bits.
void ForRandomFloats(int count, const auto& check) {
  SCOPED_TRACE("seed " + std::to_string(Seed));
  std::mt19937 random(Seed);
  for (int i = 0; i < count; ++i) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isfinite(value)) check(value);
    if (testing::Test::HasFailure()) return;
  }
}

TEST(NumberTextTest, IsStableOnceReread) {
  ForRandomFloats(20000, [](float value) {
    const std::string text = NumberText(value);
    const auto reread = NumericValue(text);
    ASSERT_TRUE(reread) << text;
    EXPECT_EQ(NumberText(*reread), text);
  });
}

/// The number that the first seven digits of a float mean, the literal way.
double SevenDigits(float value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.6e", static_cast<double>(value));
  return std::strtod(text.data(), nullptr);
}

TEST(NumberTextTest, RoundsToSevenDigitsLikeTheExactValue) {
  ForRandomFloats(40000, [](float value) {
    int exponent = 0;
    std::frexp(value, &exponent);
    for (const float each : {value, std::remainder(value, 1e6F), std::ldexp(value, exponent % 30 - exponent)}) {
      ASSERT_EQ(std::strtod(NumberText(each).c_str(), nullptr), SevenDigits(each)) << each;
    }
  });
}

TEST(NumberTextTest, RoundsAHalfToTheEvenDigit) {
  EXPECT_EQ(NumberText(1000000.5F), "1000000");
  EXPECT_EQ(NumberText(1000001.5F), "1000002");
  EXPECT_EQ(NumberText(100000.25F), "100000.2");
  EXPECT_EQ(NumberText(100000.75F), "100000.8");
  for (int sixteenths = 1; sixteenths < 3000000; sixteenths += 53) {
    const float value = static_cast<float>(sixteenths) / 16;
    ASSERT_EQ(std::strtod(NumberText(value).c_str(), nullptr), SevenDigits(value)) << value;
  }
}

TEST(ShortestTextTest, ReadsBackToExactlyTheSameFloat) {
  ForRandomFloats(100000, [](float value) {
    const std::string text = ShortestText(value);
    const auto reread = NumericValue(text);
    ASSERT_TRUE(reread) << text;
    EXPECT_EQ(std::bit_cast<std::uint32_t>(*reread), std::bit_cast<std::uint32_t>(value)) << text;
  });
}

TEST(ShortestTextTest, ReadsBackAtTheEndsOfTheRange) {
  for (const float value : {FLT_MAX, FLT_MIN, FLT_TRUE_MIN, std::nextafter(FLT_MIN, 0.0F), 1.0F / 3.0F}) {
    EXPECT_EQ(NumericValue(ShortestText(value)), value);
    EXPECT_EQ(NumericValue(ShortestText(-value)), -value);
  }
}

TEST(ShortestTextTest, HasNoMoreDigitsThanItNeeds) {
  EXPECT_EQ(ShortestText(0.1F), "0.1");
  EXPECT_EQ(ShortestText(2.5F), "2.5");
  EXPECT_EQ(ShortestText(-7.0F), "-7");
  EXPECT_EQ(ShortestText(1.0F / 3.0F), "0.33333334");
}

TEST(ShortestTextTest, WritesBothZerosAsZero) {
  EXPECT_EQ(ShortestText(0.0F), "0");
  EXPECT_EQ(ShortestText(-0.0F), "0");
}

TEST(ShortestTextTest, NamesWhatIsNotFinite) {
  EXPECT_EQ(ShortestText(NaN), "NaN");
  EXPECT_EQ(ShortestText(Infinity), "Infinity");
  EXPECT_EQ(ShortestText(-Infinity), "-Infinity");
}

struct CommaPunctuation : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

/// Number texts in a country that writes 1.234,5: whichever such locale the machine has, and one made for the test.
class NumberLocaleTest : public testing::Test {
 protected:
  NumberLocaleTest() : Before(std::locale::global(std::locale(std::locale(), new CommaPunctuation))) {
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE", "de_AT.utf8", "nl_NL.UTF-8"}) {
      if (std::setlocale(LC_ALL, name) != nullptr) break;
    }
  }
  ~NumberLocaleTest() override {
    std::locale::global(Before);
    std::setlocale(LC_ALL, "C");
  }
  NumberLocaleTest(const NumberLocaleTest&) = delete;
  NumberLocaleTest& operator=(const NumberLocaleTest&) = delete;

 private:
  std::locale Before;
};

TEST_F(NumberLocaleTest, DoesNotMatterForReading) {
  EXPECT_EQ(NumericValue("1234.5"), 1234.5F);
  EXPECT_EQ(NumericValue("1234,5"), std::nullopt);
  EXPECT_EQ(NumericValue("1.234.567"), std::nullopt);
}

TEST_F(NumberLocaleTest, DoesNotMatterForWriting) {
  EXPECT_EQ(NumberText(1234.5F), "1234.5");
  EXPECT_EQ(NumberText(1.5e9F), "1.5E+09");
  EXPECT_EQ(ShortestText(1234.5F), "1234.5");
  EXPECT_EQ(FormatNumber(1234.5F, "#0.0"), "1234.5");
}

} // namespace
} // namespace strutwright
