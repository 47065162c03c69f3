// The shape of every family: counts, supports, loads, and members that neither meet nor repeat where they should not.

#include "TrussFixture.h"

#include <algorithm>
#include <limits>
#include <map>
#include <set>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

/// Runs a test on every truss of every family up to 60 bays.
template <class Test>
void ForEveryTruss(Test test) {
  for (const TrussFamily& family : TrussFamilies()) {
    for (const int bays : BayCounts(family)) {
      SCOPED_TRACE(NameOf(family, bays));
      test(family, bays, MakeTruss(family, WithBays(family, bays)));
    }
  }
}

struct Counts {
  int nodes = 0;
  int members = 0;
};

/// Counted by hand from a drawing of each family with n bays.
Counts ExpectedCounts(const std::string& name, int n) {
  if (name == "warren") return {2 * n + 1, 4 * n - 1};
  if (name == "cantilever" || name == "tower") return {2 * n + 2, 4 * n};
  if (name == "k") { // the girder's, a joint and two diagonals more for a halved vertical, less the other diagonals
    const int halved = n % 2 == 0 ? n - 2 : n - 3;
    return {2 * n + halved, 2 * n + (n - 1) + 3 * halved + n % 2};
  }
  if (name == "fink") return {2 * n - 1, 4 * n - 5};
  return {2 * n, 4 * n - 3};
}

TEST(FamiliesTest, HaveTheirNodesAndMembers) {
  ForEveryTruss([](const TrussFamily& family, int bays, const StoredModel& model) {
    const Counts counts = ExpectedCounts(std::string(family.name), bays);
    EXPECT_EQ(model.nodeCount, counts.nodes);
    EXPECT_EQ(model.memberCount, counts.members);
  });
}

TEST(FamiliesTest, AreStaticallyDeterminateAsTheyAreOffered) {
  ForEveryTruss([](const TrussFamily&, int, const StoredModel& model) { EXPECT_EQ(DegreeOfIndeterminacy(model), 0); });
}

TEST(FamiliesTest, AreDeterminateWithEverySupportButPinsAtBothEndsOfAGirder) {
  for (const TrussFamily& family : TrussFamilies()) {
    for (const SupportChoice& choice : family.supports) {
      TrussTexts texts = StandardTexts(family);
      texts.support = choice.name;
      const bool girder = family.supports.front().kind == SupportKind::PinRoller;
      const int expected = girder && choice.kind == SupportKind::PinPin ? 1 : 0;
      EXPECT_EQ(DegreeOfIndeterminacy(MakeTruss(family, texts)), expected) << family.name << " " << choice.name;
    }
  }
}

/// "node code" of every supported node.
std::vector<std::string> SupportsOf(const std::string& name, const std::string& support) {
  TrussTexts texts = WithBays(Family(name), 4);
  texts.support = support;
  const StoredModel model = MakeTruss(Family(name), texts);
  std::vector<std::string> supports;
  for (int n = 1; n <= model.nodeCount; ++n) {
    const int code = static_cast<int>(model.nodes(n, NodeSupport));
    if (code != 0) supports.push_back(std::to_string(n) + " " + std::to_string(code));
  }
  return supports;
}

TEST(FamiliesTest, RestOnTheirSupports) {
  EXPECT_THAT(SupportsOf("pratt", "pin-roller"), ElementsAre("1 3", "8 1"));
  EXPECT_THAT(SupportsOf("fink", "roller-pin"), ElementsAre("1 1", "7 3"));
  EXPECT_THAT(SupportsOf("warren", "pin-pin"), ElementsAre("1 3", "9 3"));
  EXPECT_THAT(SupportsOf("cantilever", "pin-pin"), ElementsAre("1 3", "2 3"));
  EXPECT_THAT(SupportsOf("cantilever", "pin-roller"), ElementsAre("1 3", "2 2"));
  EXPECT_THAT(SupportsOf("cantilever", "roller-pin"), ElementsAre("1 2", "2 3"));
  EXPECT_THAT(SupportsOf("tower", "pin-roller"), ElementsAre("1 3", "2 1"));
}

TEST(FamiliesTest, HaveSupportsAtTheirEnds) {
  ForEveryTruss([](const TrussFamily& family, int, const StoredModel& model) {
    EXPECT_NE(model.nodes(1, NodeSupport), 0);
    EXPECT_EQ(model.nodes(1, NodeX), 0);
    EXPECT_EQ(model.nodes(1, NodeY), 0);
    const bool girder = family.supports.front().kind == SupportKind::PinRoller;
    EXPECT_NE(model.nodes(girder ? model.nodeCount : 2, NodeSupport), 0);
  });
}

TEST(FamiliesTest, FillTheirSpanAndHeight) {
  ForEveryTruss([](const TrussFamily& family, int bays, const StoredModel& model) {
    float right = 0;
    float top = 0;
    for (int n = 1; n <= model.nodeCount; ++n) {
      right = std::max(right, model.nodes(n, NodeX));
      top = std::max(top, model.nodes(n, NodeY));
      EXPECT_GE(model.nodes(n, NodeX), 0);
      EXPECT_GE(model.nodes(n, NodeY), 0);
    }
    EXPECT_EQ(right, family.span);
    // A parabola drawn over an odd number of bays has no node at its crown: y = h (1 - 1/n^2).
    const bool cut = family.name == "bowstring" && bays % 2 == 1;
    EXPECT_FLOAT_EQ(top, cut ? family.height * (1 - 1.0F / static_cast<float>(bays * bays)) : family.height);
  });
}

TEST(FamiliesTest, AreNumberedAlongThemselves) {
  ForEveryTruss([](const TrussFamily& family, int, const StoredModel& model) {
    const int field = family.upright ? NodeY : NodeX;
    for (int n = 2; n <= model.nodeCount; ++n) ASSERT_GE(model.nodes(n, field), model.nodes(n - 1, field));
    if (family.name == "fink") return; // its long ties reach far
    for (int m = 1; m <= model.memberCount; ++m) {
      const PlacedBar bar = BarOf(model, m);
      EXPECT_LT(bar.i, bar.j);
      EXPECT_LE(bar.j - bar.i, 5);
    }
  });
}

TEST(FamiliesTest, HaveNoMemberWithoutLengthOrTwice) {
  ForEveryTruss([](const TrussFamily&, int, const StoredModel& model) {
    std::set<std::pair<int, int>> seen;
    for (int m = 1; m <= model.memberCount; ++m) {
      const PlacedBar bar = BarOf(model, m);
      EXPECT_GT(bar.Length(), 1e-3);
      EXPECT_TRUE(seen.emplace(std::min(bar.i, bar.j), std::max(bar.i, bar.j)).second) << "member " << m;
    }
  });
}

TEST(FamiliesTest, HaveNoTwoNodesInOnePlace) {
  ForEveryTruss([](const TrussFamily&, int, const StoredModel& model) {
    std::set<std::pair<float, float>> places;
    for (int n = 1; n <= model.nodeCount; ++n) {
      EXPECT_TRUE(places.emplace(model.nodes(n, NodeX), model.nodes(n, NodeY)).second) << "node " << n;
    }
  });
}

/// Twice the area of the triangle (bar, point), by the bar's length: the point's distance from its line, with a sign.
double Offset(const PlacedBar& bar, double x, double y) {
  return ((bar.x2 - bar.x1) * (y - bar.y1) - (bar.y2 - bar.y1) * (x - bar.x1)) / bar.Length();
}

constexpr double Touching = 1e-4; // m: far below a member's length, far above what rounding to floats moves a node

bool Separates(const PlacedBar& bar, const PlacedBar& other) {
  return Offset(bar, other.x1, other.y1) * Offset(bar, other.x2, other.y2) < 0 &&
         std::fabs(Offset(bar, other.x1, other.y1)) > Touching && std::fabs(Offset(bar, other.x2, other.y2)) > Touching;
}

bool Cross(const PlacedBar& a, const PlacedBar& b) { return Separates(a, b) && Separates(b, a); }

/// Whether a point lies on a bar, away from its ends.
bool LiesInside(const PlacedBar& bar, double x, double y) {
  const double part =
      ((x - bar.x1) * (bar.x2 - bar.x1) + (y - bar.y1) * (bar.y2 - bar.y1)) / (bar.Length() * bar.Length());
  return std::fabs(Offset(bar, x, y)) < Touching && part > 1e-3 && part < 1 - 1e-3;
}

TEST(FamiliesTest, HaveNoCrossingMembers) {
  ForEveryTruss([](const TrussFamily&, int, const StoredModel& model) {
    std::vector<PlacedBar> bars;
    for (int m = 1; m <= model.memberCount; ++m) bars.push_back(BarOf(model, m));
    for (std::size_t a = 0; a < bars.size(); ++a) {
      for (std::size_t b = 0; b < a; ++b) EXPECT_FALSE(Cross(bars[a], bars[b])) << a + 1 << " and " << b + 1;
    }
  });
}

TEST(FamiliesTest, HaveNoNodeOnAMemberThatPassesIt) {
  ForEveryTruss([](const TrussFamily&, int, const StoredModel& model) {
    for (int m = 1; m <= model.memberCount; ++m) {
      const PlacedBar bar = BarOf(model, m);
      for (int n = 1; n <= model.nodeCount; ++n) {
        if (n == bar.i || n == bar.j) continue;
        EXPECT_FALSE(LiesInside(bar, model.nodes(n, NodeX), model.nodes(n, NodeY))) << m << " and node " << n;
      }
    }
  });
}

TEST(CrossingTest, WouldBeFound) {
  EXPECT_TRUE(Cross({1, 2, 0, 0, 2, 2}, {3, 4, 0, 2, 2, 0}));
  EXPECT_FALSE(Cross({1, 2, 0, 0, 2, 2}, {2, 3, 2, 2, 4, 0}));
  EXPECT_FALSE(Cross({1, 2, 0, 0, 1, 1}, {3, 4, 0, 4, 4, 0}));
  EXPECT_TRUE(LiesInside({1, 2, 0, 0, 4, 0}, 2, 0));
  EXPECT_FALSE(LiesInside({1, 2, 0, 0, 4, 0}, 4, 0));
}

/// Nodes as "x y" that carry a load, in the model's order.
std::vector<std::string> LoadedNodes(const std::string& name, int bays) {
  const StoredModel model = MakeTruss(Family(name), WithBays(Family(name), bays));
  std::vector<std::string> loaded;
  for (int n = 1; n <= model.nodeCount; ++n) {
    if (model.nodes(n, NodeForceX) == 0 && model.nodes(n, NodeForceY) == 0) continue;
    loaded.push_back(std::to_string(static_cast<int>(model.nodes(n, NodeX) * 10)) + " " +
                     std::to_string(static_cast<int>(model.nodes(n, NodeY) * 10)));
  }
  return loaded;
}

TEST(FamiliesTest, CarryTheLoadsOfOneChord) {
  EXPECT_THAT(LoadedNodes("pratt", 4), ElementsAre("60 0", "120 0", "180 0"));
  EXPECT_THAT(LoadedNodes("k", 4), ElementsAre("60 0", "120 0", "180 0"));
  EXPECT_THAT(LoadedNodes("warren", 3), ElementsAre("80 0", "160 0"));
  EXPECT_THAT(LoadedNodes("fink", 4), ElementsAre("30 15", "60 30", "90 15"));
  EXPECT_THAT(LoadedNodes("cantilever", 2), ElementsAre("60 30", "120 30"));
  EXPECT_THAT(LoadedNodes("tower", 2), ElementsAre("35 100", "30 200"));
}

TEST(FamiliesTest, AreLoadedDownwardsAndATowerToTheRight) {
  ForEveryTruss([](const TrussFamily& family, int, const StoredModel& model) {
    for (int n = 1; n <= model.nodeCount; ++n) {
      EXPECT_THAT(model.nodes(n, NodeForceX), testing::AnyOf(0, family.upright ? 10 : 0));
      EXPECT_THAT(model.nodes(n, NodeForceY), testing::AnyOf(0, family.upright ? 0 : -10));
      if (model.nodes(n, NodeSupport) == 0) continue;
      EXPECT_EQ(model.nodes(n, NodeForceX), 0);
      EXPECT_EQ(model.nodes(n, NodeForceY), 0);
    }
  });
}

TEST(FamiliesTest, WriteAPlainZeroForNoLoad) {
  TrussTexts texts = StandardTexts(Family("pratt"));
  texts[TrussField::Load] = "0";
  const StoredModel model = MakeTruss(Family("pratt"), texts);
  for (const float value : model.nodes.InOrder()) EXPECT_FALSE(std::signbit(value));
}

/// How many members have each area: chords 1, verticals 2, diagonals 3.
std::map<float, int> AreasOf(const std::string& name, int bays) {
  TrussTexts texts = WithBays(Family(name), bays);
  texts[TrussField::ChordArea] = "1";
  texts[TrussField::VerticalArea] = "2";
  texts[TrussField::DiagonalArea] = "3";
  const StoredModel model = MakeTruss(Family(name), texts);
  std::map<float, int> areas;
  for (int m = 1; m <= model.memberCount; ++m) ++areas[model.members(m, MemberA)];
  return areas;
}

TEST(FamiliesTest, GiveEachKindOfMemberItsArea) {
  using Areas = std::map<float, int>;
  EXPECT_EQ(AreasOf("pratt", 8), (Areas{{1, 16}, {2, 7}, {3, 6}}));
  EXPECT_EQ(AreasOf("howe", 8), (Areas{{1, 16}, {2, 7}, {3, 6}}));
  EXPECT_EQ(AreasOf("warren", 8), (Areas{{1, 15}, {3, 16}}));
  EXPECT_EQ(AreasOf("warren-verticals", 8), (Areas{{1, 16}, {2, 7}, {3, 6}}));
  EXPECT_EQ(AreasOf("k", 8), (Areas{{1, 16}, {2, 13}, {3, 12}}));
  EXPECT_EQ(AreasOf("fink", 8), (Areas{{1, 13}, {2, 6}, {3, 8}}));
  EXPECT_EQ(AreasOf("bowstring", 8), (Areas{{1, 16}, {2, 7}, {3, 6}}));
  EXPECT_EQ(AreasOf("cantilever", 8), (Areas{{1, 16}, {2, 8}, {3, 8}}));
  EXPECT_EQ(AreasOf("tower", 8), (Areas{{1, 16}, {2, 8}, {3, 8}}));
}

TEST(FamiliesTest, HaveOneModulusAndNoPrestress) {
  TrussTexts texts = StandardTexts(Family("howe"));
  texts[TrussField::E] = "70.5";
  const StoredModel model = MakeTruss(Family("howe"), texts);
  for (int m = 1; m <= model.memberCount; ++m) {
    EXPECT_EQ(model.members(m, MemberE), 70.5F);
    EXPECT_EQ(model.members(m, MemberPS), 0);
  }
}

TEST(FamiliesTest, LeaveRoomInTheGrids) {
  EXPECT_EQ(MakeTruss(Family("pratt"), WithBays(Family("pratt"), 2)).capacity, 20);
  EXPECT_EQ(MakeTruss(Family("pratt"), WithBays(Family("pratt"), 8)).capacity, 29);
}

TEST(FamiliesTest, FitIntoAFileAtTheirLargest) {
  for (const TrussFamily& family : TrussFamilies()) {
    const StoredModel model = MakeTruss(family, WithBays(family, static_cast<int>(MaxBays)));
    EXPECT_GT(model.nodeCount, MaxBays) << family.name;
    EXPECT_GT(model.memberCount, MaxBays) << family.name;
    EXPECT_LE(2 * model.nodeCount, std::numeric_limits<std::int16_t>::max()) << family.name;
  }
}

TEST(FamiliesTest, AreMirrorImagesOfThemselves) {
  ForEveryTruss([](const TrussFamily& family, int bays, const StoredModel& model) {
    const bool girder = family.supports.front().kind == SupportKind::PinRoller;
    if (!girder || (bays % 2 == 1 && family.name != "warren")) return;
    for (int n = 1; n <= model.nodeCount; ++n) {
      int images = 0;
      for (int other = 1; other <= model.nodeCount; ++other) {
        images += std::fabs(family.span - model.nodes(n, NodeX) - model.nodes(other, NodeX)) < Touching &&
                          std::fabs(model.nodes(n, NodeY) - model.nodes(other, NodeY)) < Touching
                      ? 1
                      : 0;
      }
      EXPECT_EQ(images, 1) << "node " << n;
    }
  });
}

/// Directions of the diagonals of the left half, from below: 1 rises to the right, -1 falls.
std::vector<int> DiagonalsOf(const std::string& name, int bays) {
  TrussTexts texts = WithBays(Family(name), bays);
  texts[TrussField::DiagonalArea] = "7";
  const StoredModel model = MakeTruss(Family(name), texts);
  std::map<float, int> directions;
  for (int m = 1; m <= model.memberCount; ++m) {
    const PlacedBar bar = BarOf(model, m);
    if (model.members(m, MemberA) != 7) continue;
    directions[static_cast<float>(bar.x1 + bar.x2)] = (bar.x2 - bar.x1) * (bar.y2 - bar.y1) > 0 ? 1 : -1;
  }
  std::vector<int> list;
  for (const auto& [place, direction] : directions) list.push_back(direction);
  return list;
}

TEST(FamiliesTest, LeanTheirDiagonalsAsTheirNamesSay) {
  EXPECT_THAT(DiagonalsOf("pratt", 6), ElementsAre(-1, -1, 1, 1));
  EXPECT_THAT(DiagonalsOf("pratt", 5), ElementsAre(-1, -1, 1));
  EXPECT_THAT(DiagonalsOf("howe", 6), ElementsAre(1, 1, -1, -1));
  EXPECT_THAT(DiagonalsOf("howe", 5), ElementsAre(1, 1, -1));
  EXPECT_THAT(DiagonalsOf("warren-verticals", 6), ElementsAre(-1, 1, -1, 1));
  EXPECT_THAT(DiagonalsOf("warren", 2), ElementsAre(1, -1, 1, -1));
  EXPECT_THAT(DiagonalsOf("cantilever", 3), ElementsAre(-1, -1, -1));
}

} // namespace
} // namespace strutwright
