#include "ClearFixture.h"
#include "ClearFraming.h"
#include "ClearTexts.h"
#include "LabelCandidates.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::SizeIs;

class ClearLabelsTest : public ClearFixture {
 protected:
  const ShownLabels& Shown(LabelKind kind) const { return outcome.labels[static_cast<std::size_t>(kind)]; }

  std::vector<int> PlacesNow() const {
    std::vector<int> places;
    for (const ClearLabel& label : Scene().labels) places.push_back(label.place);
    return places;
  }

  void Frame() {
    surface.window = *ClearFrame(surface, settings);
    DrawHere();
  }
};

// Eight equal loads on eight nodes in one place: there is room for an arrow in three places on either side.
TEST_F(ClearLabelsTest, AnArrowWithoutRoomIsCounted) {
  settings.layers.loads = true;
  SetTables({std::vector<NodeData>(8, NodeData{2, 2, 0, -10}), {}});
  Draw();
  EXPECT_THAT(Scene().arrows, SizeIs(6));
  EXPECT_EQ(Shown(LabelKind::Arrow).all, 8);
  EXPECT_LT(Shown(LabelKind::Arrow).shown, 7);
  EXPECT_EQ(outcome.notice, "showing " + std::to_string(Shown(LabelKind::Arrow).shown) +
                                " of 8 loads and reactions; zoom in or point at a member");
}

// The load's value is cut by the upper border, and a notice of full length would lie on the values of the reactions.
TEST_F(ClearLabelsTest, TheNoticeLeavesOutItsHintRatherThanHideLabels) {
  settings.layers = {true, true, true, true, true};
  settings.reactions = settings.memberForces = settings.legend = true;
  Analyse({{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 4, 0, -10}}, {{1, 2}, {1, 3}, {2, 3}}});
  surface.width = 650;
  surface.height = 310;
  surface.window = {-3.26F, -5.34F, 650 / 42.1F, 310 / 42.1F};
  DrawHere();
  EXPECT_EQ(Shown(LabelKind::Arrow).shown, 2);
  EXPECT_EQ(outcome.notice, "showing 2 of 3 loads and reactions");
  EXPECT_THAT(Texts(), testing::Contains("5 kN").Times(2));
}

// Some of the arrows stand aside, and some have no value.
TEST_F(ClearLabelsTest, AValueStandsNearestItsOwnArrowOrIsCountedAsMissing) {
  settings.layers.loads = true;
  SetTables({std::vector<NodeData>(8, NodeData{4, 3, 5, -10}), {}});
  Draw();
  const auto distance = [](const ClearLabel& label, const ClearArrow& arrow) {
    return DistanceToLine(label.box.centre, arrow.tail, arrow.tip);
  };
  int shown = 0;
  for (const ClearLabel& label : Scene().labels) {
    if (!label.IsPlaced()) continue;
    ++shown;
    for (const ClearArrow& arrow : Scene().arrows) {
      EXPECT_LE(distance(label, Scene().arrows.at(static_cast<std::size_t>(label.owner))), distance(label, arrow));
    }
  }
  EXPECT_GT(shown, 0);
  EXPECT_EQ(Shown(LabelKind::Arrow), (ShownLabels{shown, 16}));
}

TEST_F(ClearLabelsTest, AnArrowWithoutRoomThatIsOutOfViewIsNot) {
  settings.layers.loads = true;
  SetTables({std::vector<NodeData>(8, NodeData{2, 2, 0, -10}), {}});
  surface.window = {50, 50, 8, 6};
  DrawHere();
  EXPECT_EQ(Shown(LabelKind::Arrow).all, 0);
}

TEST_F(ClearLabelsTest, NumbersOfNodesWithoutDotsAreCounted) {
  settings.layers.nodeNumbers = true;
  SetTables(PrattTruss(100));
  Draw(1);
  EXPECT_FALSE(Scene().dots);
  EXPECT_EQ(Shown(LabelKind::NodeNumber).all, NodeCount);
  EXPECT_EQ(Shown(LabelKind::NodeNumber).shown, 0);
}

// A load stands in the widest angle of each of them.
TEST_F(ClearLabelsTest, ANodesNumberFindsAnotherAngleThanItsLoad) {
  settings.layers.nodeNumbers = settings.layers.loads = true;
  SetTables({{{0, 0}, {3, 0}, {6, 0}, {0, 3, 0, -10}, {3, 3, 0, -10}, {6, 3, 0, -10}},
             {{1, 2}, {2, 3}, {4, 5}, {5, 6}, {1, 4}, {2, 5}, {3, 6}, {1, 5}, {3, 5}}});
  Draw();
  EXPECT_EQ(Shown(LabelKind::NodeNumber).shown, 6);
}

TEST_F(ClearLabelsTest, ASmallTrussShowsEveryNumberBesideItsForces) {
  settings.layers = {true, true, false, true, true};
  settings.memberForces = settings.reactions = true;
  Analyse(PrattTruss(12));
  Frame();
  EXPECT_EQ(Shown(LabelKind::Force).shown, MemberCount);
  EXPECT_EQ(Shown(LabelKind::NodeNumber).shown, NodeCount);
  EXPECT_EQ(Shown(LabelKind::MemberNumber).shown, MemberCount);
  EXPECT_EQ(outcome.notice, "");
}

TEST_F(ClearLabelsTest, AShorterForceLeavesOutItsSignThenDecimals) {
  EXPECT_EQ(ShortForceText(12.34F, 1), "12.3T");
  EXPECT_EQ(ShortForceText(-12.36F, 1), "12.4C");
  EXPECT_EQ(ShortForceText(-12.36F, 0), "12C");
  EXPECT_EQ(ShortForceText(0, 1), "0");
}

TEST_F(ClearLabelsTest, AForceIsShortenedOnlyWhereItHasNoRoomOtherwise) {
  settings.memberForces = true;
  SetTables({{{0, 0}, {4, 0}}, {{1, 2}}});
  MemberTable(1, MemberFieldForce) = 123.4F;
  Draw();
  EXPECT_THAT(Texts(), Contains("+123.4 T"));
  for (const ClearLabel& label : Scene().labels) EXPECT_EQ(label.shortened, 0);
}

/// Whether each of some points has one on the other side of the x axis.
bool AreMirrored(const std::vector<PixelPoint>& points) {
  return std::all_of(points.begin(), points.end(), [&points](const PixelPoint& one) {
    return std::any_of(points.begin(), points.end(), [&one](const PixelPoint& other) {
      return std::fabs(one.x - other.x) < 1e-6 && std::fabs(one.y + other.y) < 1e-6;
    });
  });
}

TEST_F(ClearLabelsTest, AForceIsOfferedTheSamePlacesAlongBothSidesOfItsMember) {
  settings.memberForces = true;
  SetTables({{{0, 0}, {4, 1}}, {{1, 2}}});
  MemberTable(1, MemberFieldForce) = 123.4F;
  Draw();
  const ClearBar& bar = Scene().truss.bars[0];
  LabelCandidates places(Scene(), true);
  std::vector<PixelPoint> offered; // along the member and across it
  for (int place = 0; const std::optional<TurnedBox> box = places.At(Scene().labels[0], place); ++place) {
    if (box->halfLength <= 0 || box->along == PixelPoint{1, 0}) continue;
    const PixelPoint off = box->centre - bar.from;
    offered.push_back({Dot(bar.along, off), Dot(LeftOf(bar.along), off)});
  }
  EXPECT_GT(offered.size(), std::size_t{LabelCandidates::AlongPlaces});
  EXPECT_TRUE(AreMirrored(offered));
}

TEST_F(ClearLabelsTest, ANodesNumberIsOfferedTheSamePlacesOnBothSidesOfItsMember) {
  settings.layers.nodeNumbers = true;
  SetTables({{{0, 0}, {4, 0}}, {{1, 2}}});
  Draw();
  const ClearLabel& number = Scene().labels[0];
  const PixelPoint node = Scene().truss.joints[static_cast<std::size_t>(number.owner)].at;
  LabelCandidates places(Scene(), true);
  std::vector<PixelPoint> offered;
  for (int place = 0; const std::optional<TurnedBox> box = places.At(number, place); ++place) {
    offered.push_back(box->centre - node);
  }
  EXPECT_GT(offered.size(), 4U);
  EXPECT_TRUE(AreMirrored(offered));
}

// It keeps 2.5 pixels from the dot.
TEST_F(ClearLabelsTest, AMembersNumberMayStandAsFarOutAsItsNodesDotsLeaveIt) {
  settings.layers.memberNumbers = true;
  SetTables({{{0, 0}, {4, 0}}, {{1, 2}}});
  Draw();
  LabelCandidates places(Scene(), true);
  double right = 0;
  for (int place = 0; const std::optional<TurnedBox> box = places.At(Scene().labels[0], place); ++place) {
    right = std::max(right, box->centre.x + box->halfLength);
  }
  EXPECT_NEAR(right, Scene().truss.joints[2].at.x - (ClearSize::NodeRadius + 2.5), 1e-9);
}

TEST_F(ClearLabelsTest, ForcesGiveWayToNumbersOnlyAlongTheirMember) {
  settings.memberForces = settings.layers.memberNumbers = settings.layers.nodeNumbers = true;
  Analyse(PrattTruss(16));
  Frame();
  for (const ClearLabel& label : Scene().labels) {
    const bool isForce = label.kind == LabelKind::Force;
    EXPECT_TRUE(!isForce || label.place < LabelCandidates::AlongPlaces) << label.text;
  }
}

TEST_F(ClearLabelsTest, StayWhereTheyAreWhenTheSurfaceGrowsByAPixel) {
  settings.layers = {true, true, true, true, true};
  settings.memberForces = settings.reactions = true;
  Analyse(PrattTruss(20));
  Frame();
  const std::vector<int> before = PlacesNow();
  surface.width += 1;
  surface.height += 1;
  Frame();
  const std::vector<int> after = PlacesNow();
  ASSERT_EQ(after.size(), before.size());
  std::size_t moved = 0;
  for (std::size_t k = 0; k < before.size(); ++k) {
    if (before[k] >= 0 && after[k] != before[k]) ++moved;
  }
  EXPECT_LE(moved, before.size() / 50);
}

TEST_F(ClearLabelsTest, AFittedScaleMakesTheLongestArrowASixthOfTheTruss) {
  SetTables({{{0, 0, 0, 0, 3}, {6, 0, 0, -0.4F, 1}}, {{1, 2}}});
  EXPECT_FLOAT_EQ(*ScaleOfFittedArrows(false), 0.4F);
  EXPECT_EQ(*FittingLoadsScale(false), 1.0F); // what the display's scale can be at least
}

} // namespace
} // namespace strutwright
