// Published problems and their answers; tests/data/published/README.md names the sources.  The examples that the
// program brings along show some of them at the size of a real structure: there the answers are multiplied.

#include "AnalysisState.h"
#include "EditingState.h"
#include "EventsTest.h"
#include "NativeFileSystem.h"
#include "WorkbenchState.h"
#include "modFileCommands.h"
#include "modGrids.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modRunAnalysis.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

/// The analysis computes in 32-bit floats: a result may differ by this part of the largest of its kind.
constexpr double Tolerance = 2e-4;

struct Vector {
  double x;
  double y;
};

class TextbookTest : public EventsTest {
 protected:
  TextbookTest() {
    ThePlatform().files = &disk;
    TheModel = ModelState{};
    TheAnalysis = AnalysisState{};
    TheEditing = EditingState{};
    TheWorkbench = WorkbenchState{};
    initGrids();
  }

  static bool OpenAndAnalyse(const std::string& model, const std::string& folder = PUBLISHED_DIR) {
    EXPECT_TRUE(openModel(folder + "/" + model + ".stw"));
    return runAnalysis(ScratchCopy::None);
  }

  static bool OpenAndAnalyseExample(const std::string& example) { return OpenAndAnalyse(example, EXAMPLES_DIR); }

  /// What the published answers are multiplied by from now on.
  void Scale(double ofForces, double ofDisplacements) {
    forceScale = ofForces;
    displacementScale = ofDisplacements;
  }

  static double Largest(const std::vector<float>& values) {
    double largest = 0;
    for (const float value : values) largest = std::max(largest, std::abs(static_cast<double>(value)));
    return largest;
  }

  static void ExpectAtNode(const std::vector<float>& results, int node, Vector expected) {
    const double margin = Tolerance * Largest(results);
    EXPECT_NEAR(results.at(static_cast<std::size_t>(2 * node - 1)), expected.x, margin) << "x of node " << node;
    EXPECT_NEAR(results.at(static_cast<std::size_t>(2 * node)), expected.y, margin) << "y of node " << node;
  }

  void ExpectDisplacement(int node, Vector mm) const {
    ExpectAtNode(Displacements, node, {mm.x * displacementScale, mm.y * displacementScale});
  }
  void ExpectReaction(int node, Vector kN) const {
    ExpectAtNode(Reactions, node, {kN.x * forceScale, kN.y * forceScale});
  }

  /// Axial forces of all members, in kN.
  void ExpectForces(std::vector<double> expected) const {
    ASSERT_EQ(MemberCount, static_cast<int>(expected.size()));
    for (double& force : expected) force *= forceScale;
    const double margin =
        Tolerance * std::abs(*std::max_element(expected.begin(), expected.end(),
                                               [](double a, double b) { return std::abs(a) < std::abs(b); }));
    for (int m = 1; m <= MemberCount; ++m) {
      EXPECT_NEAR(MemberForce(m), expected[static_cast<std::size_t>(m - 1)], margin) << "member " << m;
    }
  }

  void ExpectThreeBarsIndeterminate() const;
  void ExpectThreeBarsFan() const;
  void ExpectThreeBarsCorner() const;
  void ExpectTwoSkewBars() const;
  void ExpectFourNodesThreeBars() const;
  void ExpectFourSkewBars() const;

  NativeFileSystem disk;
  double forceScale = 1;
  double displacementScale = 1;
};

void TextbookTest::ExpectThreeBarsIndeterminate() const {
  ExpectDisplacement(4, {0.530092777, -0.177893638});
  ExpectForces({43.9351889, -57.5463221, -55.3114387});
  ExpectReaction(1, {-26.361113, -35.148151});
  ExpectReaction(2, {-34.527793, 46.037058});
  ExpectReaction(3, {-39.111093, 39.111093});
}

TEST_F(TextbookTest, ThreeBarsIndeterminate) {
  ASSERT_TRUE(OpenAndAnalyse("three_bars_indeterminate"));
  ExpectThreeBarsIndeterminate();
}

// Loads a fifth, lengths 75 times, rigidity 200 * 400 for 3000 * 10 in the first bar.
TEST_F(TextbookTest, ThreeBarsIndeterminateAsAnExample) {
  ASSERT_TRUE(OpenAndAnalyseExample("three_bars_indeterminate"));
  Scale(0.2, 0.2 * 75 * (3000.0 * 10) / (200 * 400));
  ExpectThreeBarsIndeterminate();
}

void TextbookTest::ExpectThreeBarsFan() const {
  const double cos30 = std::sqrt(3.0) / 2;
  const double middle = 200 / (1 + 2 * cos30 * cos30 * cos30);
  EXPECT_NEAR(middle, 86.9929035, 1e-6);
  ExpectForces({65.2446776, middle, 65.2446776});
  ExpectDisplacement(4, {0, -0.57995269});
}

TEST_F(TextbookTest, ThreeBarsFanHasItsClosedForm) {
  ASSERT_TRUE(OpenAndAnalyse("three_bars_fan"));
  ExpectThreeBarsFan();
}

// Load a tenth, lengths 35 times, rigidity 200 * 200 for 3000 * 10.
TEST_F(TextbookTest, ThreeBarsFanHasItsClosedFormAsAnExample) {
  ASSERT_TRUE(OpenAndAnalyseExample("three_bars_fan"));
  Scale(0.1, 0.1 * 35 * (3000.0 * 10) / (200 * 200));
  ExpectThreeBarsFan();
}

void TextbookTest::ExpectThreeBarsCorner() const {
  ExpectDisplacement(1, {-0.00333259386, -0.001591621});
  ExpectForces({-6.56854249, -4.85281374, -1.56854249});
}

TEST_F(TextbookTest, ThreeBarsCorner) {
  ASSERT_TRUE(OpenAndAnalyse("three_bars_corner"));
  ExpectThreeBarsCorner();
}

// Loads twice, lengths 400 times, rigidity 200 * 150 for 30000 * 0.657.
TEST_F(TextbookTest, ThreeBarsCornerAsAnExample) {
  ASSERT_TRUE(OpenAndAnalyseExample("three_bars_corner"));
  Scale(2, 2 * 400 * (30000 * 0.657) / (200 * 150));
  ExpectThreeBarsCorner();
}

void TextbookTest::ExpectTwoSkewBars() const {
  ExpectDisplacement(2, {0, -0.12});
  ExpectReaction(1, {-4.330127, 2.5});
  ExpectForces({5, 5});
}

TEST_F(TextbookTest, TwoSkewBars) {
  ASSERT_TRUE(OpenAndAnalyse("two_skew_bars"));
  ExpectTwoSkewBars();
  // 10 kip/in2 in both bars, shown a thousandfold because forces count as kN and areas as mm2
  EXPECT_NEAR(MemberStress(1), 10000, Tolerance * 10000);
  EXPECT_NEAR(MemberStress(2), 10000, Tolerance * 10000);
}

// Load twice, lengths 40 times, rigidity 200 * 150 for 30000 * 0.5.
TEST_F(TextbookTest, TwoSkewBarsAsAnExample) {
  ASSERT_TRUE(OpenAndAnalyseExample("two_skew_bars"));
  Scale(2, 2 * 40 * (30000 * 0.5) / (200 * 150));
  ExpectTwoSkewBars();
}

TEST_F(TextbookTest, CollinearBar) {
  ASSERT_TRUE(OpenAndAnalyse("collinear_bar"));
  ExpectForces({-0.6, -0.1, 0.9});
  ExpectDisplacement(2, {0, -8e-5});
  ExpectDisplacement(3, {0, -9e-5});
}

void TextbookTest::ExpectFourNodesThreeBars() const {
  ExpectDisplacement(3, {-0.397927461, -1.15233161});
  ExpectForces({-29.8445596, 57.6165803, 37.3056995});
  ExpectReaction(1, {29.845, 0});
  ExpectReaction(2, {-29.845, 22.383});
  ExpectReaction(4, {0, 57.617});
}

TEST_F(TextbookTest, FourNodesThreeBars) {
  ASSERT_TRUE(OpenAndAnalyse("four_nodes_three_bars"));
  ExpectFourNodesThreeBars();
}

// Load and stiffness a fifth: lengths 5 times, sections as published.
TEST_F(TextbookTest, FourNodesThreeBarsAsAnExample) {
  ASSERT_TRUE(OpenAndAnalyseExample("four_nodes_three_bars"));
  Scale(0.2, 1);
  ExpectFourNodesThreeBars();
}

void TextbookTest::ExpectFourSkewBars() const {
  ExpectDisplacement(3, {0.265165043, 0.0883883476});
  ExpectDisplacement(4, {3.47902545, -5.60034579});
  ExpectForces({13.873435, -6.93671752, 15.5109719, -20.8101526});
  ExpectReaction(1, {-9.81, -9.81});
  ExpectReaction(2, {9.81, 19.62});
}

TEST_F(TextbookTest, FourSkewBars) {
  ASSERT_TRUE(OpenAndAnalyse("four_skew_bars"));
  ExpectFourSkewBars();
}

// Lengths and areas 7 times: the stiffness is the published one.
TEST_F(TextbookTest, FourSkewBarsAsAnExample) {
  ASSERT_TRUE(OpenAndAnalyseExample("jib_crane"));
  Scale(1, 1);
  ExpectFourSkewBars();
}

TEST_F(TextbookTest, HeatedBarBetweenFixedEnds) {
  ASSERT_TRUE(OpenAndAnalyse("heated_bar_fixed"));
  ExpectForces({-9.88848});
  EXPECT_THAT(Displacements, testing::Each(0.0F));
}

TEST_F(TextbookTest, HeatedBarFreeToGrow) {
  ASSERT_TRUE(OpenAndAnalyse("heated_bar_free"));
  EXPECT_NEAR(MemberForce(1), 0, Tolerance * 9.88848);
  ExpectDisplacement(2, {0.12, 0});
}

// The other two bars stand on the ends of the heated one and bear nothing.
TEST_F(TextbookTest, HeatedTieBetweenPinsAsAnExample) {
  ASSERT_TRUE(OpenAndAnalyseExample("heated_tie_held"));
  ExpectForces({-9.88848, 0, 0});
  EXPECT_THAT(Displacements, testing::Each(0.0F));
  ExpectReaction(1, {9.88848, 0});
}

// Four times the length and four times the heat: 16 times the published 0.12 mm.
TEST_F(TextbookTest, HeatedTieFreeToGrowAsAnExample) {
  ASSERT_TRUE(OpenAndAnalyseExample("heated_tie_free"));
  for (int m = 1; m <= MemberCount; ++m) EXPECT_NEAR(MemberForce(m), 0, Tolerance * 9.88848) << "member " << m;
  Scale(1, 16);
  ExpectDisplacement(2, {0.12, 0});
}

TEST_F(TextbookTest, TwoMetalsShareALoad) {
  ASSERT_TRUE(OpenAndAnalyse("two_metals"));
  EXPECT_NEAR(MemberStress(1) / 1000, 10.152258, Tolerance * 19.695484);
  EXPECT_NEAR(MemberStress(2) / 1000, 19.695484, Tolerance * 19.695484);
  ExpectDisplacement(2, {0, -0.0145303226});
}

class UnstableTest : public TextbookTest {
 protected:
  void ExpectUnstable() {
    EXPECT_THAT(TakeMessages(), testing::ElementsAre(Box(MessageIcon::Critical,
                                                         "Structure is unstable - Aborting analysis\nFailed Check 2")));
  }
};

class MechanismTest : public UnstableTest, public testing::WithParamInterface<const char*> {};

TEST_P(MechanismTest, IsReportedUnstable) {
  EXPECT_FALSE(OpenAndAnalyseExample(std::string("mechanism_") + GetParam()));
  ExpectUnstable();
}

INSTANTIATE_TEST_SUITE_P(Examples, MechanismTest, testing::Values("by_arrangement", "square", "sliding_triangle"),
                         [](const auto& each) { return each.param; });

TEST_F(UnstableTest, IsACollinearBarWithoutSupportsThatKeepItInLine) {
  EXPECT_FALSE(OpenAndAnalyse("mechanism_collinear_bar"));
  ExpectUnstable();
}

} // namespace
} // namespace strutwright
