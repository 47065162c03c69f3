#include "ClearPalette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using Linear = std::array<double, 3>;
using Matrix3 = std::array<std::array<double, 3>, 3>;

struct Deficiency {
  const char* name;
  Matrix3 matrix;
};

// Machado, Oliveira and Fernandes, A Physiologically-based Model for Simulation of Color Vision Deficiency, IEEE
// Transactions on Visualization and Computer Graphics 15(6), 2009: severity 1.0, on linear RGB.
const std::array<Deficiency, 4> Eyes{{
    {"usual", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"protanopia",
     {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}}},
    {"deuteranopia",
     {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}}},
    {"tritanopia",
     {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}},
}};

double Linearised(int value) {
  const double part = value / 255.0;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

Linear LinearOf(Colour colour) { return {Linearised(colour.red), Linearised(colour.green), Linearised(colour.blue)}; }

Linear SeenBy(const Matrix3& matrix, const Linear& colour) {
  Linear seen{};
  for (std::size_t row = 0; row < 3; ++row) {
    double sum = 0;
    for (std::size_t column = 0; column < 3; ++column) sum += matrix.at(row).at(column) * colour.at(column);
    seen.at(row) = std::clamp(sum, 0.0, 1.0);
  }
  return seen;
}

double Luminance(const Linear& colour) { return 0.2126 * colour[0] + 0.7152 * colour[1] + 0.0722 * colour[2]; }

// Contrast as WCAG 2.1 defines it.
double ContrastOnWhite(const Linear& colour) { return 1.05 / (Luminance(colour) + 0.05); }

/// CIE L*a*b* under D65.
Linear LabOf(const Linear& rgb) {
  const auto f = [](double t) { return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116; };
  const double x = f((0.4124564 * rgb[0] + 0.3575761 * rgb[1] + 0.1804375 * rgb[2]) / 0.95047);
  const double y = f(0.2126729 * rgb[0] + 0.7151522 * rgb[1] + 0.0721750 * rgb[2]);
  const double z = f((0.0193339 * rgb[0] + 0.1191920 * rgb[1] + 0.9503041 * rgb[2]) / 1.08883);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double Difference(const Linear& a, const Linear& b) {
  const Linear first = LabOf(a);
  const Linear second = LabOf(b);
  return std::hypot(first[0] - second[0], first[1] - second[1], first[2] - second[2]);
}

TEST(ClearPaletteTest, ContrastIsThatOfKnownColours) {
  EXPECT_NEAR(ContrastOnWhite(LinearOf({0, 0, 0})), 21, 1e-9);
  EXPECT_NEAR(ContrastOnWhite(LinearOf({0, 255, 0})), 1.37, 0.01);
  EXPECT_NEAR(ContrastOnWhite(LinearOf({118, 118, 118})), 4.54, 0.01);
}

TEST(ClearPaletteTest, LinesStandOutFromWhite) {
  for (const Colour colour :
       {ClearPalette::Ink, ClearPalette::Tension, ClearPalette::Compression, ClearPalette::ZeroBar,
        ClearPalette::SteppedBack, ClearPalette::Reaction, ClearPalette::Deflected}) {
    EXPECT_GE(ContrastOnWhite(LinearOf(colour)), 3.0) << int(colour.red) << ' ' << int(colour.green);
  }
}

TEST(ClearPaletteTest, TextsCanBeRead) {
  for (const Colour colour :
       {ClearPalette::Ink, ClearPalette::Tension, ClearPalette::Compression, ClearPalette::ZeroBar,
        ClearPalette::Reaction, ClearPalette::MemberNumber, ClearPalette::AxisValue}) {
    EXPECT_GE(ContrastOnWhite(LinearOf(colour)), 4.5) << int(colour.red) << ' ' << int(colour.green);
  }
}

// A difference of 2.3 is just noticed; ten times that cannot be missed.
TEST(ClearPaletteTest, TensionAndCompressionDifferForEveryEye) {
  for (const Deficiency& eye : Eyes) {
    const Linear tension = SeenBy(eye.matrix, LinearOf(ClearPalette::Tension));
    const Linear compression = SeenBy(eye.matrix, LinearOf(ClearPalette::Compression));
    EXPECT_GT(Difference(tension, compression), 40) << eye.name;
    EXPECT_GE(ContrastOnWhite(tension), 3.0) << eye.name;
    EXPECT_GE(ContrastOnWhite(compression), 3.0) << eye.name;
  }
}

TEST(ClearPaletteTest, ReactionsDifferFromForcesForEveryEye) {
  for (const Deficiency& eye : Eyes) {
    const Linear reaction = SeenBy(eye.matrix, LinearOf(ClearPalette::Reaction));
    EXPECT_GT(Difference(reaction, SeenBy(eye.matrix, LinearOf(ClearPalette::Ink))), 15) << eye.name;
  }
}

} // namespace
} // namespace strutwright
