// Published problems and their answers; examples/README.md names the sources.

#include "AnalysisState.h"
#include "EditingState.h"
#include "FakePlatform.h"
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

class TextbookTest : public PlatformTest {
 protected:
  TextbookTest() {
    ThePlatform().files = &disk;
    TheModel = ModelState{};
    TheAnalysis = AnalysisState{};
    TheEditing = EditingState{};
    TheWorkbench = WorkbenchState{};
    initGrids();
  }

  static bool OpenAndAnalyse(const std::string& example) {
    EXPECT_TRUE(openModel(std::string(EXAMPLES_DIR) + "/" + example + ".stw"));
    return runAnalysis(ScratchCopy::None);
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

  static void ExpectDisplacement(int node, Vector mm) { ExpectAtNode(Displacements, node, mm); }
  static void ExpectReaction(int node, Vector kN) { ExpectAtNode(Reactions, node, kN); }

  /// Axial forces of all members, in kN.
  static void ExpectForces(const std::vector<double>& expected) {
    ASSERT_EQ(MemberCount, static_cast<int>(expected.size()));
    const double margin =
        Tolerance * std::abs(*std::max_element(expected.begin(), expected.end(),
                                               [](double a, double b) { return std::abs(a) < std::abs(b); }));
    for (int m = 1; m <= MemberCount; ++m) {
      EXPECT_NEAR(MemberForce(m), expected[static_cast<std::size_t>(m - 1)], margin) << "member " << m;
    }
  }

  NativeFileSystem disk;
};

TEST_F(TextbookTest, ThreeBarsIndeterminate) {
  ASSERT_TRUE(OpenAndAnalyse("three_bars_indeterminate"));
  ExpectDisplacement(4, {0.530092777, -0.177893638});
  ExpectForces({43.9351889, -57.5463221, -55.3114387});
  ExpectReaction(1, {-26.361113, -35.148151});
  ExpectReaction(2, {-34.527793, 46.037058});
  ExpectReaction(3, {-39.111093, 39.111093});
}

TEST_F(TextbookTest, ThreeBarsFanHasItsClosedForm) {
  ASSERT_TRUE(OpenAndAnalyse("three_bars_fan"));
  const double cos30 = std::sqrt(3.0) / 2;
  const double middle = 200 / (1 + 2 * cos30 * cos30 * cos30);
  EXPECT_NEAR(middle, 86.9929035, 1e-6);
  ExpectForces({65.2446776, middle, 65.2446776});
  ExpectDisplacement(4, {0, -0.57995269});
}

TEST_F(TextbookTest, ThreeBarsCorner) {
  ASSERT_TRUE(OpenAndAnalyse("three_bars_corner"));
  ExpectDisplacement(1, {-0.00333259386, -0.001591621});
  ExpectForces({-6.56854249, -4.85281374, -1.56854249});
}

TEST_F(TextbookTest, TwoSkewBars) {
  ASSERT_TRUE(OpenAndAnalyse("two_skew_bars"));
  ExpectDisplacement(2, {0, -0.12});
  ExpectReaction(1, {-4.330127, 2.5});
  // 10 kip/in2 in both bars, shown a thousandfold because forces count as kN and areas as mm2
  EXPECT_NEAR(MemberStress(1), 10000, Tolerance * 10000);
  EXPECT_NEAR(MemberStress(2), 10000, Tolerance * 10000);
}

TEST_F(TextbookTest, CollinearBar) {
  ASSERT_TRUE(OpenAndAnalyse("collinear_bar"));
  ExpectForces({-0.6, -0.1, 0.9});
  ExpectDisplacement(2, {0, -8e-5});
  ExpectDisplacement(3, {0, -9e-5});
}

TEST_F(TextbookTest, FourNodesThreeBars) {
  ASSERT_TRUE(OpenAndAnalyse("four_nodes_three_bars"));
  ExpectDisplacement(3, {-0.397927461, -1.15233161});
  ExpectForces({-29.8445596, 57.6165803, 37.3056995});
  ExpectReaction(1, {29.845, 0});
  ExpectReaction(2, {-29.845, 22.383});
  ExpectReaction(4, {0, 57.617});
}

TEST_F(TextbookTest, FourSkewBars) {
  ASSERT_TRUE(OpenAndAnalyse("four_skew_bars"));
  ExpectDisplacement(3, {0.265165043, 0.0883883476});
  ExpectDisplacement(4, {3.47902545, -5.60034579});
  ExpectForces({13.873435, -6.93671752, 15.5109719, -20.8101526});
  ExpectReaction(1, {-9.81, -9.81});
  ExpectReaction(2, {9.81, 19.62});
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

TEST_F(TextbookTest, TwoMetalsShareALoad) {
  ASSERT_TRUE(OpenAndAnalyse("two_metals"));
  EXPECT_NEAR(MemberStress(1) / 1000, 10.152258, Tolerance * 19.695484);
  EXPECT_NEAR(MemberStress(2) / 1000, 19.695484, Tolerance * 19.695484);
  ExpectDisplacement(2, {0, -0.0145303226});
}

class MechanismTest : public TextbookTest, public testing::WithParamInterface<const char*> {};

TEST_P(MechanismTest, IsReportedUnstable) {
  EXPECT_FALSE(OpenAndAnalyse(std::string("mechanism_") + GetParam()));
  EXPECT_THAT(TakeMessages(), testing::ElementsAre(Box(MessageIcon::Critical,
                                                       "Structure is unstable - Aborting analysis\nFailed Check 2")));
}

INSTANTIATE_TEST_SUITE_P(Examples, MechanismTest,
                         testing::Values("by_arrangement", "square", "collinear_bar", "sliding_triangle"),
                         [](const auto& each) { return each.param; });

} // namespace
} // namespace strutwright
