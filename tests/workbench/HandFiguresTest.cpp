#include "ClearPalette.h"
#include "ModelBuilder.h"
#include "RecordingSurface.h"
#include "TrussFamilies.h"
#include "WorkbenchFixture.h"
#include "modHandFigures.h"
#include "modHandSolution.h"
#include "modSketch.h"

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::UnorderedElementsAre;

/// 6 m wide and 4 m high, 12 kN down at the top; the tie with 4.5 kN, two rafters with -7.5 kN.
class HandFiguresTest : public WorkbenchFixture {
 protected:
  HandFiguresTest() {
    SetModel({{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 4, 0, -12}}, {{1, 2}, {1, 3}, {2, 3}}});
    truss = ReadHandTruss();
    solution = SolveByHand(truss);
    diagram = DrawForceDiagram(truss, solution);
  }

  /// The texts of a figure as it is drawn.
  std::vector<std::string> Drawn(const Sketch& sketch) {
    surface.Forget();
    DrawSketch(surface, PlaceSketch(sketch, {0, 0, 800, 600}, surface));
    std::vector<std::string> texts;
    for (const PixelLabel& label : surface.pixelTexts) texts.push_back(label.text);
    return texts;
  }

  bool HasInk(Colour colour) const {
    const auto isOf = [colour](const auto& line) { return line.look.colour == colour; };
    return std::any_of(surface.pixelLines.begin(), surface.pixelLines.end(), isOf);
  }

  RecordingSurface surface;
  HandTruss truss;
  HandSolution solution;
  ForceDiagram diagram;
};

TEST_F(HandFiguresTest, OfTheWholeTrussCutFree) {
  FreeBody body = solution.reactions.body;
  EXPECT_THAT(Drawn(BodyFigure(truss, body)),
              UnorderedElementsAre("1", "2", "3", "1", "2", "3", "12 kN", "R1x", "R1y", "R2y"));
  for (BodyForce& force : body.forces) {
    force.isKnown = true;
    if (force.kind == ForceKind::Reaction) force.value = solution.forces.reactions[force.freedom];
  }
  EXPECT_THAT(Drawn(BodyFigure(truss, body)), IsSupersetOf({"R1x = 0", "R1y = 6 kN", "R2y = 6 kN"}));
  EXPECT_TRUE(HasInk(ClearPalette::Reaction));
}

TEST_F(HandFiguresTest, OfAJointCutFree) {
  const HandStep& step = solution.steps[0];
  EXPECT_THAT(Drawn(BodyFigure(truss, step.body)),
              UnorderedElementsAre("1", "R1x = 0", "R1y = 6 kN", "F1 = 4.5 kN", "F2 = -7.5 kN"));
  EXPECT_TRUE(HasInk(ClearPalette::Tension));
  EXPECT_TRUE(HasInk(ClearPalette::Compression));
}

// Joint 1 has 6 kN up, 7.5 kN down along the rafter, and 4.5 kN back: a 3-4-5 triangle.
TEST_F(HandFiguresTest, OfItsForcePolygonToScale) {
  const Sketch polygon = PolygonFigure(solution.steps[0].body, solution.steps[0].polygon);
  ASSERT_EQ(polygon.lines.size(), 3U);
  const SketchPoint& begin = polygon.points[static_cast<std::size_t>(polygon.lines.front().from)];
  const SketchPoint& end = polygon.points[static_cast<std::size_t>(polygon.lines.back().to)];
  EXPECT_NEAR(begin.x, end.x, 1e-12);
  EXPECT_NEAR(begin.y, end.y, 1e-12);
  EXPECT_THAT(Drawn(polygon), UnorderedElementsAre("R1y", "F1", "F2", "0.5 kN"));
  EXPECT_EQ(surface.pixelPolygons.size(), 3U); // heads
}

TEST_F(HandFiguresTest, OfATrussAsFarAsItIsKnown) {
  HandForces forces(truss);
  forces.members[1] = 4.5;
  forces.memberKnown[1] = 1;
  Drawn(TrussFigure(truss, forces, {}));
  EXPECT_TRUE(HasInk(ClearPalette::Tension));
  EXPECT_FALSE(HasInk(ClearPalette::Compression));
}

TEST_F(HandFiguresTest, OfACutWithItsLineAndItsMembers) {
  FigureMarks marks;
  marks.members = {1, 3};
  marks.stroke = SketchStroke{4, 5, 4, -1};
  const Sketch sketch = TrussFigure(truss, HandForces(truss), marks);
  EXPECT_EQ(sketch.lines[0].tone, SketchTone::Marked);
  EXPECT_EQ(sketch.lines[1].tone, SketchTone::Ink);
  Drawn(sketch);
  const auto dashed = [](const auto& line) { return line.look.dashed; };
  EXPECT_TRUE(std::any_of(surface.pixelLines.begin(), surface.pixelLines.end(), dashed));
}

TEST_F(HandFiguresTest, OfFormAndForcesWithTheSameKeys) {
  const Sketch form = FormFigure(truss, diagram, diagram.lines.size());
  const Sketch force = ForceFigure(diagram, diagram.lines.size());
  EXPECT_THAT(Drawn(form), IsSupersetOf({"A", "B", "C", "D"})); // three outer spaces and the one inside
  EXPECT_THAT(Drawn(force), IsSupersetOf({"a", "b", "c", "d"}));
  for (const SketchLine& line : form.lines) {
    const DiagramLine& meant = diagram.lines[static_cast<std::size_t>(line.key - 1)];
    EXPECT_EQ(std::to_string(meant.member), line.number);
  }
}

TEST_F(HandFiguresTest, OfForcesAsFarAsTheyAreDrawn) {
  EXPECT_TRUE(ForceFigure(diagram, 0).lines.empty());
  EXPECT_EQ(ForceFigure(diagram, 2).lines.size(), 2U);
  EXPECT_THAT(Drawn(ForceFigure(diagram, 3)), Not(Contains("d"))); // the inner space comes with the members
}

TEST_F(HandFiguresTest, NamesSpacesAtOnePlaceTogether) {
  ModelData model{{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 4, 0, -12}, {3, 0}}, {{1, 4}, {4, 2}, {1, 3}, {2, 3}, {3, 4}}};
  SetModel(model); // member 5 bears nothing: the spaces on its sides are one point
  const HandTruss other = ReadHandTruss();
  const ForceDiagram shared = DrawForceDiagram(other, SolveByHand(other));
  EXPECT_THAT(Drawn(ForceFigure(shared, shared.lines.size())), Contains("d, e"));
}

/// What of a figure with arrows is cut off or nameless.
std::vector<std::string> Faults(const Sketch& sketch, const Bounds& area, RecordingSurface& surface) {
  const PlacedSketch placed = PlaceSketch(sketch, area, surface);
  const Bounds sheet = area.GrownBy(1);
  std::vector<std::string> faults;
  for (const ClearArrow& arrow : placed.scene.arrows) {
    if (!sheet.Contains(arrow.tail) || !sheet.Contains(arrow.tip)) faults.emplace_back("an arrow leaves the sheet");
  }
  surface.Forget();
  DrawSketch(surface, placed);
  std::multiset<std::string> texts;
  for (const PixelLabel& label : surface.pixelTexts) {
    const double half = surface.TextWidth(label.text, label.size) / 2;
    const bool isInside = sheet.Contains(label.centre - PixelPoint{half, 0}) &&
                          sheet.Contains(label.centre + PixelPoint{half, 0}) &&
                          sheet.Contains(label.centre + PixelPoint{0, label.size / 2.0});
    if (!isInside) faults.push_back(label.text + " leaves the sheet");
    texts.insert(label.text);
  }
  for (const SketchArrow& arrow : sketch.arrows) {
    const auto found = texts.find(arrow.label);
    if (found == texts.end()) faults.push_back(arrow.label + " is missing");
    if (found != texts.end()) texts.erase(found);
  }
  return faults;
}

TEST_F(HandFiguresTest, ShowsEveryForceOfAJointWithItsValueInsideTheSheet) {
  std::mt19937 random(20);
  for (const KnownFamily family :
       {KnownFamily::Pratt, KnownFamily::Howe, KnownFamily::Warren, KnownFamily::FanRoof, KnownFamily::KTruss,
        KnownFamily::Cantilever, KnownFamily::RandomSimple, KnownFamily::ThreeHingedArch}) {
    SetModel(MakeTruss(family, 14, random).model);
    truss = ReadHandTruss();
    solution = SolveByHand(truss);
    EXPECT_THAT(Faults(BodyFigure(truss, solution.reactions.body), {0, 0, 590, 570}, surface), IsEmpty())
        << static_cast<int>(family);
    for (const HandStep& step : solution.steps) {
      EXPECT_THAT(Faults(BodyFigure(truss, step.body), {0, 270, 295, 570}, surface), IsEmpty())
          << static_cast<int>(family) << ", " << step.reason << ' ' << step.body.nodes.front();
    }
  }
}

TEST_F(HandFiguresTest, OfMembersWithoutForce) {
  const std::vector<ZeroMember> zeros{{2, 3, ZeroRule::OnlyMember, ""}};
  const Sketch before = ZeroFigure(truss, zeros, 0);
  EXPECT_EQ(before.lines[1].label, "");
  const Sketch after = ZeroFigure(truss, zeros, 1);
  EXPECT_EQ(after.lines[1].label, "0");
  EXPECT_EQ(after.points[2].tone, SketchTone::Marked);
  EXPECT_THAT(Drawn(after), Contains("0"));
}

} // namespace
} // namespace strutwright
