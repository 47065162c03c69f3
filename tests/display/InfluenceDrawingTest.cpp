#include "ClearFixture.h"
#include "modInfluenceDrawing.h"
#include "modModelStore.h"

#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

/// Six metres wide and four high.
ModelData Gable() { return {{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 4}}, {{1, 2}, {1, 3}, {2, 3}}}; }

class InfluenceDrawingTest : public DisplayFixture {
 protected:
  InfluenceDrawingTest() {
    SetTables(Gable());
    surface.window = {-5, -6, 16, 12}; // 50 pixels a metre
  }

  Lines Drawn(const InfluenceShape& shape) {
    surface.Forget();
    DrawInfluence(surface, shape);
    return surface.ink;
  }

  Lines Texts(const InfluenceShape& shape) {
    Drawn(shape);
    return surface.Ink("text", "another colour");
  }
};

InfluenceShape Shape(const std::vector<double>& values) { return {{1, 3, 2}, values, 0, 0, {}, {}}; }

// 56 pixels below the truss, 1.12 m, begins a band of 180, 3.6 m, for ordinates from 1 to -0.5: 2.4 m for one of 1.
TEST_F(InfluenceDrawingTest, LiesBelowTheTrussInItsScale) {
  const Lines ink = Drawn(Shape({0, 1, -0.5}));
  EXPECT_THAT(ink, Contains("line 0 3.52 6 3.52 black 1"));
  EXPECT_THAT(ink, Contains("line 0 3.52 3 1.12 another colour 2"));
  EXPECT_THAT(ink, Contains("line 3 1.12 6 4.72 another colour 2"));
  EXPECT_THAT(ink, Contains("line 3 3.52 3 1.12 another colour 1")); // the ordinate under node 3
}

TEST_F(InfluenceDrawingTest, KeepsItsHeightWhenTheViewIsZoomed) {
  surface.window = {-2, -3, 8, 6};
  const Lines ink = Drawn(Shape({0, 1, -0.5}));
  EXPECT_THAT(ink, Contains("line 0 1.76 3 0.56 another colour 2"));
}

TEST_F(InfluenceDrawingTest, LabelsItsExtremes) {
  EXPECT_THAT(Texts(Shape({0, 1, -0.5})),
              ElementsAre("text 2.93 0.68 '1' another colour", "text 5.72 4.8 '-0.5' another colour"));
}

TEST_F(InfluenceDrawingTest, LabelsOnlyWhatThereIs) {
  EXPECT_THAT(Texts(Shape({0, 1, 0})), ElementsAre(HasSubstr("'1'")));
  EXPECT_THAT(Texts(Shape({0, -1, 0})), ElementsAre(HasSubstr("'-1'")));
  EXPECT_THAT(Texts(Shape({0, 0, 0})), ElementsAre(HasSubstr("'0'")));
}

TEST_F(InfluenceDrawingTest, LabelsWithFourDigits) {
  EXPECT_THAT(Texts(Shape({0, 2.0 / 3, -0.0123456})), ElementsAre(HasSubstr("'0.6667'"), HasSubstr("'-0.01235'")));
}

TEST_F(InfluenceDrawingTest, LeadsFromItsEndsAndExtremesToTheNodes) {
  Drawn(Shape({0, 1, -0.5}));
  EXPECT_THAT(surface.Ink("line", "grey"), AllOf(Contains("line 0 3.52 0 0 grey 1 dashed"),
                                                 Contains("line 3 0.68 3 -4 grey 1 dashed"), // above its label

                                                 Contains("line 6 3.52 6 0 grey 1 dashed")));
}

TEST_F(InfluenceDrawingTest, MarksWhatItIsOf) {
  InfluenceShape shape = Shape({0, 1, 0});
  EXPECT_THAT((Drawn(shape), surface.Ink("", "orange")), IsEmpty());
  shape.member = 2;
  Drawn(shape);
  EXPECT_THAT(surface.Ink("line", "orange"), ElementsAre("line 0 0 3 -4 orange 2"));
  shape.member = 0;
  shape.node = 2;
  Drawn(shape);
  EXPECT_THAT(surface.Ink("circle", "orange"), ElementsAre(testing::StartsWith("circle 6 0 ")));
}

// The longest arrow takes 46 pixels, 0.92 m; half a way up the slope lies at 2 m.
TEST_F(InfluenceDrawingTest, PutsLoadsOnTheirPath) {
  InfluenceShape shape = Shape({0, 1, 0});
  shape.loads = {{3, 100}, {1.5, 50}};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("line", "red"),
              AllOf(Contains("line 3 -4.92 3 -4 red 2"), Contains("line 1.5 -2.46 1.5 -2 red 2")));
  EXPECT_THAT(surface.Ink("text", "red"), ElementsAre(HasSubstr("'100'"), HasSubstr("'50'")));
}

// Three letters of 13 pixels, each 0.6 of that wide, in a line of 18 pixels.
TEST_F(InfluenceDrawingTest, PutsANumberOverTheMiddleOfItsLoad) {
  InfluenceShape shape = Shape({0, 1, 0});
  shape.loads = {{3, 100}};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("text", "red"), ElementsAre(testing::StartsWith("text 2.766 -5.28 ")));
}

TEST_F(InfluenceDrawingTest, LeavesOutLoadsBesideThePath) {
  InfluenceShape shape = Shape({0, 1, 0});
  shape.loads = {{-0.1, 100}, {6.1, 100}};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("line", "red"), IsEmpty());
  shape.loads = {{0, 100}, {6, 100}};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("text", "red"), SizeIs(2));
}

TEST_F(InfluenceDrawingTest, NumbersLoadsThatHaveRoom) {
  InfluenceShape shape = Shape({0, 1, 0});
  shape.loads = {{1, 300}, {1.5, 300}, {2, 300}};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("text", "red"), SizeIs(2));
}

TEST_F(InfluenceDrawingTest, TakesAPathFromTheRightToo) {
  InfluenceShape shape{{2, 3, 1}, {-0.5, 1, 0}, 0, 0, {{1.5, 50}}, {"name"}};
  const Lines ink = Drawn(shape);
  EXPECT_THAT(ink, Contains("line 6 4.72 3 1.12 another colour 2"));
  EXPECT_THAT(ink, Contains("line 1.5 -2.92 1.5 -2 red 2"));
  EXPECT_THAT(surface.Ink("text", "black"), ElementsAre(testing::StartsWith("text 0 ")));
}

TEST_F(InfluenceDrawingTest, PutsItsCaptionsBelow) {
  InfluenceShape shape = Shape({0, 1, -0.5});
  shape.captions = {"Force of member 1", "Maximum"};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("text", "black"),
              ElementsAre("text 0 5.16 'Force of member 1' black", "text 0 5.52 'Maximum' black"));
}

// The window ends at 11 m, a letter is 0.6 of 13 pixels wide.
TEST_F(InfluenceDrawingTest, MovesACaptionThatTheBorderWouldCut) {
  InfluenceShape shape = Shape({0, 1, -0.5});
  shape.captions = {std::string(80, 'x'), std::string(200, 'x')};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("text", "black"),
              ElementsAre(HasSubstr("text -1.56 "), HasSubstr("text -4.92 "))); // 624 and 4 pixels from the border
}

TEST_F(InfluenceDrawingTest, LetsNoPlumbLineRunThroughTheLabelOfTheLargestOrdinate) {
  InfluenceShape shape = Shape({1, 0, 0});
  shape.mark = LineMark{0.02, 0.99};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("line", "grey"),
              AllOf(Contains("line 0 0.68 0 0 grey 1 dashed"), Contains(HasSubstr("line 0.02 0.68 "))));
  shape.mark = LineMark{1, 0.7};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("line", "grey"), Not(Contains(HasSubstr("line 1 0.68 "))));
}

TEST_F(InfluenceDrawingTest, MayBeOfASingleNode) {
  EXPECT_THAT(Drawn({{3}, {-2}, 0, 0, {{3, 10}}, {}}), Contains("line 3 -4.92 3 -4 red 2"));
  EXPECT_THAT(surface.Ink("text", "another colour"), ElementsAre(HasSubstr("'-2'")));
}

TEST_F(InfluenceDrawingTest, NeedsAnOrdinateForEachNode) {
  EXPECT_THAT(Drawn({{}, {}, 0, 0, {}, {}}), IsEmpty());
  EXPECT_THAT(Drawn({{1, 3}, {1}, 0, 0, {}, {}}), IsEmpty());
}

TEST_F(InfluenceDrawingTest, SaysInABoxWhatFails) {
  surface.failAt = 3;
  DrawInfluence(surface, Shape({0, 1, 0}));
  EXPECT_THAT(TakeMessages(), ElementsAre(DrawingBox("the surface is lost")));
}

/// The coordinates of a line or a text of ink; y upward.
std::vector<double> PlacesOf(const std::string& ink) {
  std::istringstream text(ink);
  std::string kind;
  text >> kind;
  std::vector<double> places;
  for (double number = 0; text >> number;) places.push_back(number);
  return places;
}

TEST_F(InfluenceDrawingTest, IsFramedWithTheTruss) {
  const std::vector<ModelData> models{Gable(), PrattTruss(60), {{{0, 0, 0, 0, 3}, {1, 300}, {2, 0}}, {{1, 2}, {2, 3}}}};
  for (const ModelData& model : models) {
    SetTables(model);
    InfluenceShape shape = Shape({1, 2, -2});
    shape.captions = {"one", "two", "three"};
    const ViewWindow view = FrameInfluence(surface, shape);
    EXPECT_NEAR(view.width / view.height, 4.0 / 3, 1e-4);
    surface.window = view;
    for (const std::string& ink : Drawn(shape)) {
      const std::vector<double> places = PlacesOf(ink);
      for (std::size_t k = 0; k + 1 < places.size(); k += 2) {
        EXPECT_GE(places[k], view.left) << ink;
        EXPECT_LE(places[k], view.left + view.width) << ink;
        EXPECT_GE(places[k + 1], view.top) << ink;
        EXPECT_LE(places[k + 1], view.top + view.height) << ink;
      }
    }
  }
}

TEST_F(InfluenceDrawingTest, FillsTheWidthWithALongTruss) {
  SetTables(PrattTruss(60)); // 29 panels
  const ViewWindow view = FrameInfluence(surface, Shape({0, 1, 0}));
  const double length = view.width * 720 / 800; // 40 pixels stay free on each side
  EXPECT_NEAR(view.left + view.width * 40 / 800, 0, 1e-4);
  EXPECT_NEAR(length, NodeTable(59, NodeX), 1e-3);
}

TEST_F(InfluenceDrawingTest, KeepsTheViewWhereThereIsNothingToFrame) {
  SetTables({});
  EXPECT_EQ(FrameInfluence(surface, Shape({0, 1, 0})), surface.window);
  SetTables({{{0, 0}, {3e38F, 0}, {-3e38F, 0}}, {}});
  EXPECT_EQ(FrameInfluence(surface, Shape({0, 1, 0})), surface.window);
}

TEST_F(InfluenceDrawingTest, FramesASingleNode) {
  SetTables({{{2, 3}}, {}});
  const ViewWindow view = FrameInfluence(surface, {{1}, {1}, 0, 0, {}, {}});
  EXPECT_GT(view.width, 0);
  EXPECT_NEAR(view.left + view.width / 2, 2, 1e-4);
}

// Members of 16/3 m: 60 pixels at 11.25 pixels a metre, 24 at 4.5.
TEST_F(InfluenceDrawingTest, HasNumbersWhereTheyCanBeRead) {
  const auto room = [this](float width) {
    surface.window.width = width;
    const ReadableNumbers numbers = NumbersWithRoom(surface);
    return std::vector<bool>{numbers.ofNodes, numbers.ofMembers};
  };
  EXPECT_THAT(room(71), ElementsAre(true, true));
  EXPECT_THAT(room(72), ElementsAre(true, false));
  EXPECT_THAT(room(177), ElementsAre(true, false));
  EXPECT_THAT(room(179), ElementsAre(false, false));
}

// The truss and the line in the clear style, 50 pixels a metre.
class ClearInfluenceTest : public ClearFixture {
 protected:
  void DrawWith(const InfluenceShape& shape) {
    settings.layers.nodeNumbers = settings.layers.memberNumbers = true;
    DrawHere();
    DrawInfluence(surface, shape, &memory);
  }

  /// How many numbers of loads lie on a number or a node of the truss.
  int CountOnTruss() const {
    int count = 0;
    for (const std::string& text : surface.Ink("text", "red")) {
      std::istringstream words(text);
      std::string word;
      double x = 0;
      double y = 0;
      words >> word >> x >> y;
      const Bounds box{x * 50, y * 50, x * 50 + 3 * 0.6 * 13, y * 50 + 13};
      const auto touches = [&box](const OccupiedBox& item) {
        return item.kind != Occupant::Bar && Overlap(item.box, BoxOf(box));
      };
      count += Scene().plane.Any(box, touches) ? 1 : 0;
    }
    return count;
  }
};

// Node 4 lies where the number of a load over it would stand.
TEST_F(ClearInfluenceTest, PutsNoNumberOfALoadOnOneOfTheTruss) {
  SetTables({{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 4}, {3, 1.1F}, {3.5F, 1.1F}}, {{1, 2}, {1, 3}, {2, 3}}});
  surface.window = {-5, -6, 16, 12};
  DrawWith({{1, 2}, {0, 0}, 0, 0, {{3, 100}, {4, 200}}, {}});
  EXPECT_THAT(surface.Ink("text", "red"), SizeIs(2));
  EXPECT_EQ(CountOnTruss(), 0);
}

TEST_F(ClearInfluenceTest, PrintsTheNumberOfTheMemberAgainThatItMarks) {
  SetTables(Gable());
  surface.window = {-5, -6, 16, 12};
  DrawWith({{1, 2}, {0, 0}, 0, 0, {}, {}});
  const std::size_t before = surface.pixelTexts.size();
  DrawWith({{1, 2}, {0, 0}, 2, 0, {}, {}});
  ASSERT_EQ(surface.pixelTexts.size(), before + 1);
  EXPECT_EQ(surface.pixelTexts.back().text, "2");
}

// At x = 1.5 the ordinate is 0.5, drawn 1.2 m long from 3.52 below.
TEST_F(InfluenceDrawingTest, MarksAPlaceWithItsValue) {
  InfluenceShape shape = Shape({0, 1, -0.5});
  shape.mark = LineMark{1.5, 0.5};
  Drawn(shape);
  EXPECT_THAT(surface.Ink("line", "red"), Contains("line 1.5 3.52 1.5 2.32 red 1"));
  EXPECT_THAT(surface.Ink("circle", "red"), SizeIs(1));
  EXPECT_THAT(surface.Ink("text", "red"), ElementsAre(HasSubstr("'0.5'")));
}

} // namespace
} // namespace strutwright
