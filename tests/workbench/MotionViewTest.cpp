#include "DisplayState.h"
#include "ModelBuilder.h"
#include "RecordingSurface.h"
#include "WorkbenchFixture.h"
#include "modCheck.h"
#include "modMotionView.h"
#include "modRunAnalysis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <utility>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Le;

/// Published mechanisms, with E 200 and A 1000.
std::vector<ModelData> PublishedMechanisms() {
  return {{{{0, 0, 0, 0, 3}, {3, 0, 0, -10, 0}, {0, 4, 0, 0, 1}}, {{1, 2}, {2, 3}, {1, 3}}},
          {{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {4, 3, 10, 0, 0}, {0, 3, 0, 0, 0}}, {{1, 2}, {2, 3}, {3, 4}, {4, 1}}},
          {{{0, 0, 0, 0, 3}, {0, 4, 1, -0.5F, 0}, {0, 7, 1, -1, 0}, {0, 10, 0, 0, 3}}, {{1, 2}, {2, 3}, {3, 4}}},
          {{{0, 0, 0, 0, 1}, {4, 0, 0, 0, 1}, {2, 3, 10, 0, 1}}, {{1, 2}, {2, 3}, {3, 1}}}};
}

/// Keeps the lines as they were drawn, to the last bit.
class LineSurface : public RecordingSurface {
 public:
  void DrawLine(double x1, double y1, double x2, double y2) override { lines.push_back({x1, -y1, x2, -y2}); }
  void DrawCircle(double x, double y, double /*radius*/) override { circles.emplace_back(x, -y); }

  std::vector<std::array<double, 4>> lines;
  std::vector<std::pair<double, double>> circles;
};

class MotionViewTest : public WorkbenchFixture {
 protected:
  MotionViewTest() { TheDisplay = DisplayState{}; }

  static void Check(const ModelData& model) {
    SetModel(model);
    DropCheck();
    BringCheckUpToDate();
  }

  static std::string Shown() {
    LineSurface surface;
    DrawShownMotion(surface);
    return surface.circles.empty() ? "nothing" : std::to_string(surface.circles[0].first);
  }
};

TEST_F(MotionViewTest, ShowsOneMechanismAtATime) {
  Check(PublishedMechanisms()[2]);
  EXPECT_EQ(MotionCount(), 2);
  EXPECT_EQ(Shown(), "nothing");
  ShowMotion(2);
  EXPECT_EQ(ShownMechanism()->nodes, std::vector{3});
  EXPECT_EQ(MotionText(), "2 of 2: Node 3 can move to the right; no member or support resists this.");
  ShowMotion(3);
  EXPECT_EQ(ShownMechanism(), nullptr);
  EXPECT_EQ(MotionText(), "None: no node can move without stretching a member");
}

TEST_F(MotionViewTest, CountsTheMechanismsThatAreNotDescribed) {
  ModelData model;
  for (int n = 0; n < 30; ++n) model.nodes.push_back({static_cast<float>(n), 0});
  Check(model);
  ShowMotion(1);
  EXPECT_THAT(MotionText(), testing::StartsWith("1 of 20 (60 in all): Node 1 can move "));
}

TEST_F(MotionViewTest, SwingsFromItsWidestThroughTheModelToTheOtherSideAndBack) {
  Check(PublishedMechanisms()[1]); // 4 m wide, so 0.4 m to the right
  ShowMotion(1);
  std::vector<std::string> places{Shown()};
  for (int quarter = 0; quarter < 4; ++quarter) {
    for (int step = 0; step < StepsOfASwing / 4; ++step) SwingMotion();
    places.push_back(Shown());
  }
  EXPECT_THAT(places, ElementsAre("4.400000", "4.000000", "3.600000", "4.000000", "4.400000"));
  SwingMotion();
  EXPECT_NE(Shown(), "4.400000");
  HoldMotion();
  EXPECT_EQ(Shown(), "4.400000");
}

TEST_F(MotionViewTest, GoesWithTheReport) {
  Check(PublishedMechanisms()[1]);
  ShowMotion(1);
  DropCheck();
  EXPECT_EQ(Shown(), "nothing");
}

TEST_F(MotionViewTest, IsShownNoLongerWhereItCannotBeDrawn) {
  Check(PublishedMechanisms()[1]);
  ShowMotion(1);
  RecordingSurface surface;
  surface.failAt = 3;
  DrawShownMotion(surface);
  EXPECT_EQ(ShownMechanism(), nullptr);
}

TEST_F(MotionViewTest, OffersTheCuresOfTheShownMotionOnly) {
  Check(PublishedMechanisms()[2]);
  ShowMotion(1);
  const Cure first = ShownMechanism()->cures.front();
  EXPECT_TRUE(IsOffered(first));
  ShowMotion(2);
  EXPECT_FALSE(IsOffered(first));
  ShowMotion(0);
  EXPECT_FALSE(IsOffered(first));
}

/// Laws of the drawn motion, on models of which each has one diagonal too few.
class DrawnMotionTest : public MotionViewTest {
 protected:
  /// Draws each motion of the model and hands over where each node comes to, less where it is, by the amplitude.
  template <typename Law>
  void ForDrawnMotions(const ModelData& model, const Law& law) {
    Check(model);
    ASSERT_GT(MotionCount(), 0);
    for (int number = 1; number <= MotionCount(); ++number) {
      ShowMotion(number);
      LineSurface surface;
      DrawShownMotion(surface);
      law(model, surface);
    }
  }

  static std::vector<ModelData> Models() {
    std::vector<ModelData> models = PublishedMechanisms();
    std::mt19937 random(4711);
    for (int number = 0; number < 20; ++number) {
      ModelData model = PrattTruss(12 + 2 * number);
      std::uniform_real_distribution<float> shift(-0.3F, 0.3F);
      for (NodeData& node : model.nodes) {
        node.x += shift(random);
        node.y += shift(random);
      }
      model.members.erase(model.members.begin() + static_cast<std::ptrdiff_t>(random() % model.members.size()));
      models.push_back(model);
    }
    return models;
  }
};

double SizeOf(const ModelData& model) {
  const auto [left, right] = std::minmax_element(model.nodes.begin(), model.nodes.end(),
                                                 [](const auto& a, const auto& b) { return a.x < b.x; });
  const auto [low, high] = std::minmax_element(model.nodes.begin(), model.nodes.end(),
                                               [](const auto& a, const auto& b) { return a.y < b.y; });
  return std::max(static_cast<double>(right->x) - left->x, static_cast<double>(high->y) - low->y);
}

TEST_F(DrawnMotionTest, StretchesNoMemberToTheFirstOrder) {
  for (const ModelData& each : Models()) {
    ForDrawnMotions(each, [](const ModelData& model, const LineSurface& surface) {
      const double amplitude = 0.1 * SizeOf(model);
      // Lines come in the order of the members that move; each drawn one is found by the member whose ends it fits.
      std::size_t drawn = 0;
      for (std::size_t m = 1; m <= model.members.size(); ++m) {
        const auto& motion = ShownMechanism()->motion;
        const auto i = static_cast<std::size_t>(model.members[m - 1].i);
        const auto j = static_cast<std::size_t>(model.members[m - 1].j);
        if (motion[2 * i - 1] == 0 && motion[2 * i] == 0 && motion[2 * j - 1] == 0 && motion[2 * j] == 0) continue;
        ASSERT_LT(drawn, surface.lines.size());
        const auto& line = surface.lines[drawn++];
        const NodeData& a = model.nodes[i - 1];
        const NodeData& b = model.nodes[j - 1];
        const double dx = static_cast<double>(b.x) - a.x;
        const double dy = static_cast<double>(b.y) - a.y;
        const double stretch = ((line[2] - b.x) - (line[0] - a.x)) * dx + ((line[3] - b.y) - (line[1] - a.y)) * dy;
        EXPECT_LE(std::abs(stretch) / std::hypot(dx, dy), 1e-9 * amplitude) << "member " << m;
      }
      EXPECT_EQ(drawn, surface.lines.size());
    });
  }
}

TEST_F(DrawnMotionTest, MovesNoSupportAndAtMostATenthOfTheSize) {
  for (const ModelData& each : Models()) {
    ForDrawnMotions(each, [](const ModelData& model, const LineSurface& surface) {
      const auto& motion = ShownMechanism()->motion;
      double largest = 0;
      std::size_t drawn = 0;
      for (std::size_t n = 1; n <= model.nodes.size(); ++n) {
        const NodeData& node = model.nodes[n - 1];
        if (motion[2 * n - 1] == 0 && motion[2 * n] == 0) continue; // not drawn: it is where it was
        const double dx = surface.circles.at(drawn).first - node.x;
        const double dy = surface.circles.at(drawn++).second - node.y;
        EXPECT_TRUE(dx == 0 || (node.support != 2 && node.support != 3)) << n;
        EXPECT_TRUE(dy == 0 || (node.support != 1 && node.support != 3)) << n;
        largest = std::max({largest, std::abs(dx), std::abs(dy)});
      }
      EXPECT_NEAR(largest, 0.1 * SizeOf(model), 1e-12 * SizeOf(model));
    });
  }
}

/// Cures as edits.
class CureTest : public MotionViewTest {};

TEST_F(CureTest, OfPublishedMechanismsTakesAwayOneMotionEach) {
  for (const ModelData& model : PublishedMechanisms()) {
    Check(model);
    const auto mechanisms = TheCheck.report.stability.mechanisms;
    for (const Mechanism& mechanism : mechanisms) {
      EXPECT_FALSE(mechanism.cures.empty());
      for (const Cure& cure : mechanism.cures) {
        Check(model);
        ApplyCure(cure);
        BringCheckUpToDate();
        EXPECT_EQ(MotionCount(), static_cast<int>(mechanisms.size()) - 1) << cure.text;
      }
    }
  }
}

TEST_F(CureTest, OfAllMotionsInTurnLeavesATrussThatIsAnalysed) {
  for (const ModelData& model : PublishedMechanisms()) {
    Check(model);
    while (MotionCount() > 0) {
      const Cure cure = TheCheck.report.stability.mechanisms[0].cures[0];
      ApplyCure(cure);
      BringCheckUpToDate();
    }
    EXPECT_TRUE(runAnalysis(ScratchCopy::None));
  }
}

TEST_F(CureTest, EndsTheAnalysisAndDrawsOnce) {
  Check(PublishedMechanisms()[1]);
  events.clear();
  ApplyCure({1, 3, 0, ""});
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
}

TEST_F(CureTest, ByAMemberTakesOverTheMaterialOfOneBesideIt) {
  for (const MemberData& withoutRigidity : {MemberData{1, 2, 0, 50}, MemberData{1, 2, 50, 0}}) {
    SCOPED_TRACE("E " + std::to_string(withoutRigidity.E));
    ModelData model = PublishedMechanisms()[1];
    model.members[0] = withoutRigidity;
    model.members[1] = {2, 3, 70, 500};
    model.members[3] = {4, 1, 210, 800};
    Check(model);
    ApplyCure({2, 4, 0, ""});
    EXPECT_THAT(RowTexts(GrMembers, 5), ElementsAre("5", "2", "4", "70", "500", ""));
    EXPECT_EQ(MemberCount, 5);
  }
}

TEST_F(CureTest, ByAMemberLeavesWhatWasEnteredForIt) {
  Check(PublishedMechanisms()[1]);
  GrMembers.SetRowCount(6);
  WriteRow(GrMembers, 5, {"", "", "100", "x", "7"});
  ApplyCure({1, 3, 0, ""});
  EXPECT_THAT(RowTexts(GrMembers, 5), ElementsAre("5", "1", "3", "100", "1000", "7"));
}

TEST_F(CureTest, ByAMemberHasUsualMaterialWhereNoMemberBears) {
  Check({{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}}, {}});
  ApplyCure({1, 2, 0, ""});
  EXPECT_THAT(RowTexts(GrMembers, 1), ElementsAre("1", "1", "2", "200", "1000", ""));
}

TEST_F(CureTest, ByASupportChangesItsCodeOnly) {
  Check(PublishedMechanisms()[1]);
  const auto joints = RowTexts(GrJoints, 3);
  ApplyCure({3, 0, 2, ""});
  auto expected = joints;
  expected[NodeSupport] = "2";
  EXPECT_EQ(RowTexts(GrJoints, 3), expected);
  EXPECT_EQ(NodeTable(3, NodeSupport), 2.0F);
}

TEST_F(CureTest, OfNodesThatHaveGoneDoesNothing) {
  Check(PublishedMechanisms()[0]);
  const auto joints = AllTexts(GrJoints);
  const auto members = AllTexts(GrMembers);
  ApplyCure({4, 0, 2, ""});
  ApplyCure({1, 4, 0, ""});
  ApplyCure({0, 0, 2, ""});
  EXPECT_EQ(AllTexts(GrJoints), joints);
  EXPECT_EQ(AllTexts(GrMembers), members);
}

} // namespace
} // namespace strutwright
