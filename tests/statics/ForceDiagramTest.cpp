#include "HandFamilies.h"
#include "HandFixture.h"
#include "TextbookTrusses.h"
#include "modForceDiagram.h"
#include "modPlanar.h"

#include <map>
#include <set>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ForceDiagramTest : public HandFixture {
 protected:
  static ForceDiagram Drawn(const ModelData& model) {
    const HandTruss truss = HandTrussOf(model);
    return DrawForceDiagram(truss, SolveByHand(truss));
  }

  static std::string WhyNot(const ModelData& model) { return Drawn(model).whyNot; }

  static std::vector<std::string> Letters(const ForceDiagram& diagram, const std::vector<int>& spaces) {
    std::vector<std::string> letters;
    for (const int space : spaces) letters.push_back(diagram.spaces[static_cast<std::size_t>(space)].letter);
    return letters;
  }
};

TEST_F(ForceDiagramTest, LettersTheSpacesClockwise) {
  const ForceDiagram diagram = Drawn(Triangle());
  ASSERT_EQ(diagram.spaces.size(), 4U);
  // Node 1 (0, 0) has a reaction, then clockwise node 3 (4, 3) a load, node 2 (4, 0) a reaction; D is inside.
  EXPECT_EQ(Letters(diagram, {0, 1, 2, 3}), (std::vector<std::string>{"A", "B", "C", "D"}));
  EXPECT_TRUE(diagram.spaces[2].isOuter);
  EXPECT_FALSE(diagram.spaces[3].isOuter);
  EXPECT_EQ(diagram.lines[0].node, 1);
  EXPECT_EQ(diagram.lines[1].node, 3);
  EXPECT_EQ(diagram.lines[1].kind, ForceKind::Load);
  EXPECT_EQ(diagram.lines[2].node, 2);
  // A stands below the lower chord, B above the sloping member, C to the right.
  EXPECT_EQ(diagram.spaces[0].placeX, 2);
  EXPECT_EQ(diagram.spaces[0].outY, -1);
  EXPECT_NEAR(diagram.spaces[1].outX, -0.6, 1e-12);
  EXPECT_EQ(diagram.spaces[2].outX, 1);
}

TEST_F(ForceDiagramTest, PutsOuterForcesEndToEnd) {
  const ForceDiagram diagram = Drawn(Triangle());
  EXPECT_EQ(diagram.spaces[0].x, 0);
  EXPECT_NEAR(diagram.spaces[1].x, -5, 1e-12);
  EXPECT_NEAR(diagram.spaces[1].y, -3.75, 1e-12);
  EXPECT_NEAR(diagram.spaces[2].x, 0, 1e-12);
  EXPECT_NEAR(diagram.spaces[2].y, -13.75, 1e-12);
  EXPECT_LT(diagram.closingError, 1e-12);
}

TEST_F(ForceDiagramTest, DrawsOuterForcesAndThenJointAfterJoint) {
  const ForceDiagram diagram = Drawn(ThreePanels().model);
  ASSERT_EQ(diagram.lines.size(), 13U);
  std::size_t step = 0;
  for (const DiagramLine& line : diagram.lines) {
    EXPECT_GE(line.step, step);
    EXPECT_TRUE(line.byHand);
    step = line.step;
  }
  EXPECT_EQ(diagram.lines[4].member, 1);
  EXPECT_EQ(diagram.lines[5].member, 4);
  EXPECT_NEAR(diagram.lines.back().force, -800, 1e-9);
}

TEST_F(ForceDiagramTest, TakesTheForceThatASectionGave) {
  const ForceDiagram diagram = Drawn(TwoTriangles());
  EXPECT_EQ(diagram.whyNot, "");
  std::set<int> computed;
  for (const DiagramLine& line : diagram.lines) {
    if (!line.byHand) computed.insert(line.member);
  }
  EXPECT_THAT(computed, ElementsAre(3, 12, 19));
}

TEST_F(ForceDiagramTest, IsTheDualOfTheTruss) {
  std::mt19937 random(7);
  int diagrams = 0;
  for (int number = 0; number < 120; ++number) {
    SCOPED_TRACE(number);
    const HandTruss truss = HandTrussOf(SeededDeterminate(number, random).model);
    const HandSolution solution = SolveByHand(truss);
    const ForceDiagram diagram = DrawForceDiagram(truss, solution);
    if (!diagram.whyNot.empty()) continue;
    ++diagrams;
    const auto outer = static_cast<std::size_t>(std::count_if(diagram.spaces.begin(), diagram.spaces.end(),
                                                              [](const DiagramSpace& space) { return space.isOuter; }));
    const std::size_t members = truss.members.size();
    const auto nodes = static_cast<std::size_t>(truss.nodeCount);
    // One line a force, one outer space an outer force; Euler: inner spaces = members - nodes + 1.
    ASSERT_EQ(diagram.lines.size(), members + outer);
    ASSERT_EQ(diagram.spaces.size(), outer + members - nodes + 1);
    // A node is a closed polygon: one side for each of its forces.  A space is a point: one line for each of its sides.
    std::vector<std::size_t> forcesAt(nodes + 1, 0);
    std::vector<std::size_t> linesAt(diagram.spaces.size(), 0);
    for (const DiagramLine& line : diagram.lines) {
      ++forcesAt[static_cast<std::size_t>(line.node)];
      if (line.member > 0) ++forcesAt[static_cast<std::size_t>(EndOf(truss, line.member))];
      ++linesAt[static_cast<std::size_t>(line.from)];
      ++linesAt[static_cast<std::size_t>(line.to)];
    }
    for (std::size_t node = 1; node <= nodes; ++node) ASSERT_EQ(diagram.polygonOf[node].size(), forcesAt[node]);
    std::vector<std::size_t> sidesOf(diagram.spaces.size(), 0);
    for (const std::vector<int>& polygon : diagram.polygonOf) {
      for (const int space : polygon) ++sidesOf[static_cast<std::size_t>(space)];
    }
    // Around a space, nodes and lines take turns; around an outer one the polygon of the outer forces is one node more.
    for (std::size_t space = 0; space < outer; ++space) ++sidesOf[space];
    ASSERT_EQ(sidesOf, linesAt);
  }
  EXPECT_GT(diagrams, 50);
}

TEST_F(ForceDiagramTest, LettersOnBehindZ) {
  std::mt19937 random(3);
  const ForceDiagram diagram = Drawn(MakeDeterminate(HandFamily::Warren, 40, random).model);
  std::set<std::string> letters;
  for (const DiagramSpace& space : diagram.spaces) letters.insert(space.letter);
  EXPECT_EQ(letters.size(), diagram.spaces.size());
  EXPECT_TRUE(letters.contains("Z"));
  EXPECT_TRUE(letters.contains("A1"));
  EXPECT_FALSE(letters.contains(""));
}

TEST_F(ForceDiagramTest, HasTwoForcesAtOneNode) {
  ModelData model = Triangle();
  model.nodes[0].forceX = 2;
  model.nodes[0].forceY = 1;
  const ForceDiagram diagram = Drawn(model);
  EXPECT_EQ(diagram.whyNot, "");
  EXPECT_EQ(diagram.polygonOf[1].size(), 4U);
  EXPECT_LT(diagram.closingError, 1e-12);
}

TEST_F(ForceDiagramTest, SaysWhyThereIsNone) {
  EXPECT_EQ(WhyNot({}), "There is no force diagram: its forces are not known from equilibrium: The model has no node");
  EXPECT_THAT(WhyNot(Square()),
              HasSubstr("There is no force diagram: its forces are not known from equilibrium: b + r"));
  ModelData model = ThreePanels().model;
  model.members.push_back({2, 6});
  EXPECT_THAT(WhyNot(model), HasSubstr("indeterminate to degree 1"));
  EXPECT_EQ(WhyNot(SubstituteMember().model), "There is no force diagram: members 5 and 7 cross");
}

TEST_F(ForceDiagramTest, SaysThatThereIsNoLoad) {
  ModelData model = Triangle();
  model.nodes[2].forceX = model.nodes[2].forceY = 0;
  EXPECT_EQ(WhyNot(model), "There is no force diagram: no node is loaded, and the diagram is a point");
}

TEST_F(ForceDiagramTest, RefusesALoadInside) {
  // A triangle with a node in its middle.
  const ModelData star{{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 6}, {3, 2, 0, -4}},
                       {{1, 3}, {2, 3}, {1, 4}, {2, 4}, {3, 4}}};
  EXPECT_EQ(WhyNot(star), "") << "without the lower chord the middle is outside";
  ModelData closed = star;
  closed.nodes.push_back({3.2F, 4});
  closed.members = {{1, 2}, {2, 3}, {1, 3}, {1, 4}, {2, 4}, {4, 5}, {3, 5}};
  EXPECT_EQ(WhyNot(closed), "There is no force diagram: the load at node 4 stands inside the truss");
}

TEST_F(ForceDiagramTest, RefusesNodesWhereThereIsNoSpace) {
  ModelData coincident = Triangle();
  coincident.nodes.push_back({4, 3});
  coincident.members.push_back({1, 4});
  coincident.members.push_back({2, 4});
  EXPECT_EQ(WhyNot(coincident), "There is no force diagram: nodes 3 and 4 lie at one place");
  ModelData onMember = Triangle();
  onMember.nodes.push_back({2, 1.5F, 0, 0, 1});
  onMember.members.push_back({2, 4});
  EXPECT_EQ(WhyNot(onMember), "There is no force diagram: node 4 lies on member 3");
  // Within a millionth of a member's length a node lies on it, above it or beside it.
  constexpr float Near = 3e-6F;
  ModelData above{{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {2, 3, 0, -4}, {2, Near, 0, 0, 2}},
                  {{1, 2}, {2, 3}, {1, 3}, {3, 4}}};
  EXPECT_EQ(WhyNot(above), "There is no force diagram: node 4 lies on member 1");
  for (NodeData& node : above.nodes) std::swap(node.x, node.y);
  above.nodes[1].support = 2;
  above.nodes[3].support = 1;
  EXPECT_EQ(WhyNot(above), "There is no force diagram: node 4 lies on member 1");
  ModelData loose = Triangle();
  loose.nodes.push_back({9, 9, 0, 0, 3});
  EXPECT_EQ(WhyNot(loose), "There is no force diagram: node 4 has no member");
  const ModelData apart{
      {{0, 0, 0, 0, 3}, {2, 2, 0, -1}, {4, 0, 0, 0, 3}, {10, 0, 0, 0, 3}, {12, 2, 0, -1}, {14, 0, 0, 0, 3}},
      {{1, 2}, {2, 3}, {4, 5}, {5, 6}}};
  EXPECT_EQ(WhyNot(apart), "There is no force diagram: its members do not hang together");
}

TEST_F(ForceDiagramTest, RefusesMembersOnEachOther) {
  const HandTruss truss = HandTrussOf({{{0, 0}, {2, 1}, {4, 0}}, {{1, 2}, {2, 1}, {2, 3}}});
  EXPECT_EQ(WhyNotPlanar(truss), "members 1 and 2 lie on each other");
}

} // namespace
} // namespace strutwright
