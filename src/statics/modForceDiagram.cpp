#include "modForceDiagram.h"

#include "DiagramSpaces.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace strutwright {

namespace {

std::size_t Nth(int number) { return static_cast<std::size_t>(number); }

using ForcesAtNodes = std::vector<std::vector<OuterForce>>;

/// Why the outer forces can't be placed; empty where they can, and in `outerAt` those of each node.
std::string WhyNotPlaced(const HandTruss& truss, const PlanarTruss& planar, const HandForces& forces,
                         ForcesAtNodes& outerAt) {
  const TrussRim rim(truss, planar);
  outerAt.resize(truss.x.size());
  for (int node = 1; node <= truss.nodeCount; ++node) {
    std::vector<OuterForce> outer = OuterForcesAt(truss, node, forces);
    if (outer.empty()) continue;
    if (!rim.StandsOutside(node)) {
      return std::string(outer.front().kind == ForceKind::Load ? "the load" : "the reaction") + " at node " +
             std::to_string(node) + " stands inside the truss";
    }
    outerAt[Nth(node)] = std::move(outer);
  }
  return "";
}

/// Draws line after line between the spaces.
class DiagramDrawer {
 public:
  DiagramDrawer(const HandTruss& truss, const HandSolution& solution, const DiagramSpaces& spaces,
                ForceDiagram& diagram)
      : Truss(truss), Solution(solution), Spaces(spaces), Diagram(diagram), Given(truss.members.size(), 0),
        Drawn(truss.members.size(), 0) {
    for (const DiagramSpace& space : diagram.spaces) Known.push_back(space.isOuter ? 1 : 0);
  }

  void Draw() {
    for (std::size_t k = 0; k < Solution.steps.size(); ++k) DrawStep(Solution.steps[k], k + 1);
    NameInnerSpaces();
    MeasureLines();
  }

 private:
  bool IsKnown(int space) const { return Known[Nth(space)] != 0; }

  void SetPoint(int space, double x, double y) {
    Diagram.spaces[Nth(space)].x = x;
    Diagram.spaces[Nth(space)].y = y;
    Known[Nth(space)] = 1;
    DrawnOrder.push_back(space);
    for (const int member : Spaces.membersOf[Nth(space)]) {
      if (Given[Nth(member)] != 0) Candidates.push_back(member);
    }
  }

  void DrawStep(const HandStep& step, std::size_t number) {
    std::vector<int> members;
    if (step.kind == HandStepKind::Joint) {
      CrossAt(step.body.nodes.front());
      for (const int k : step.found) members.push_back(step.body.forces[Nth(k)].member);
    } else {
      for (const int k : step.found) GiveMember(step.body.forces[Nth(k)]);
      for (const FreeBody& joint : step.joints) {
        for (const BodyForce& force : joint.forces) GiveMember(force);
      }
    }
    DrawGiven(number);
    for (const int member : members) {
      if (member > 0) AddMemberLine(IndexOf(member), true, number);
    }
  }

  int IndexOf(int number) const {
    const auto found = std::lower_bound(Truss.members.begin(), Truss.members.end(), number,
                                        [](const HandMember& member, int wanted) { return member.number < wanted; });
    return static_cast<int>(found - Truss.members.begin());
  }

  void GiveMember(const BodyForce& force) {
    if (force.kind != ForceKind::Member) return;
    const int index = IndexOf(force.member);
    if (Drawn[Nth(index)] == 0) Give(index);
  }

  /// The space between two members at a node whose other sides are known: their lines through those points cross in
  /// the point of the space.
  void CrossAt(int node) {
    const std::vector<int>& halves = Spaces.planar.around[Nth(node)];
    for (std::size_t k = 0; k < halves.size(); ++k) {
      const int one = halves[k];
      const int other = halves[(k + 1) % halves.size()];
      const int space = Spaces.RightOf(one);
      const int left = Spaces.LeftOf(one);
      const int right = Spaces.RightOf(other);
      if (space != Spaces.LeftOf(other) || IsKnown(space) || !IsKnown(left) || !IsKnown(right)) continue;
      const ForceLine a = LineOfHalf(Truss, one);
      const ForceLine b = LineOfHalf(Truss, other);
      if (LieAlong(a, b)) continue;
      const DiagramSpace& p = Diagram.spaces[Nth(left)];
      const DiagramSpace& q = Diagram.spaces[Nth(right)];
      const double along = ((q.x - p.x) * b.s - (q.y - p.y) * b.c) / a.Sine(b);
      SetPoint(space, p.x + along * a.c, p.y + along * a.s);
    }
  }

  /// Draws the members whose forces were computed before, as far as they begin at a known point.
  void DrawGiven(std::size_t step) {
    while (!Candidates.empty()) {
      const int member = Candidates.back();
      Candidates.pop_back();
      if (Given[Nth(member)] == 0 || (!IsKnown(Spaces.LeftOf(2 * member)) && !IsKnown(Spaces.RightOf(2 * member))))
        continue;
      Given[Nth(member)] = 0;
      DrawFromOneSide(member);
      AddMemberLine(member, false, step);
    }
  }

  void Give(int member) {
    Given[Nth(member)] = 1;
    Candidates.push_back(member);
  }

  void DrawFromOneSide(int member) {
    const int left = Spaces.LeftOf(2 * member);
    const int right = Spaces.RightOf(2 * member);
    if (IsKnown(left) && IsKnown(right)) return;
    const HandMember& each = Truss.members[Nth(member)];
    const double force = Solution.forces.members[Nth(each.number)];
    const int from = IsKnown(left) ? left : right;
    const double sign = IsKnown(left) ? force : -force;
    const DiagramSpace& p = Diagram.spaces[Nth(from)];
    SetPoint(IsKnown(left) ? right : left, p.x + sign * each.c, p.y + sign * each.s);
  }

  void AddMemberLine(int member, bool byHand, std::size_t step) {
    if (Drawn[Nth(member)] != 0) return;
    if (!IsKnown(Spaces.LeftOf(2 * member)) || !IsKnown(Spaces.RightOf(2 * member))) {
      // The joint had no known point to begin at: the line waits until a neighbour has one.
      Give(member);
      return;
    }
    Drawn[Nth(member)] = 1;
    const HandMember& each = Truss.members[Nth(member)];
    Diagram.lines.push_back({ForceKind::Member, each.number, each.i, Spaces.LeftOf(2 * member),
                             Spaces.RightOf(2 * member), 0, byHand, step});
  }

  /// Inner spaces get the letters behind those of the outer ones, in the order in which their points were found.
  void NameInnerSpaces() {
    auto letter = static_cast<int>(
        std::count_if(Diagram.spaces.begin(), Diagram.spaces.end(), [](const auto& space) { return space.isOuter; }));
    for (const int space : DrawnOrder) Diagram.spaces[Nth(space)].letter = LetterOf(letter++);
  }

  void MeasureLines() {
    for (DiagramLine& line : Diagram.lines) {
      if (line.kind != ForceKind::Member) continue;
      const HandMember& member = Truss.members[Nth(IndexOf(line.member))];
      const double dx = Diagram.spaces[Nth(line.to)].x - Diagram.spaces[Nth(line.from)].x;
      const double dy = Diagram.spaces[Nth(line.to)].y - Diagram.spaces[Nth(line.from)].y;
      line.force = dx * member.c + dy * member.s;
      Diagram.closingError = std::max(Diagram.closingError, std::abs(dy * member.c - dx * member.s));
    }
  }

  const HandTruss& Truss;
  const HandSolution& Solution;
  const DiagramSpaces& Spaces;
  ForceDiagram& Diagram;
  std::vector<char> Known;     ///< points of the spaces
  std::vector<char> Given;     ///< members, by index, whose force was computed before they are drawn
  std::vector<int> Candidates; ///< those of them that may have a known point
  std::vector<char> Drawn;     ///< members
  std::vector<int> DrawnOrder; ///< inner spaces as their points were found
};

std::string WhyNoDiagram(const HandTruss& truss, const HandSolution& solution) {
  if (!solution.determinacy.IsDeterminate()) {
    return "its forces are not known from equilibrium: " + solution.determinacy.sentence;
  }
  const bool isLoaded = std::any_of(truss.load.begin(), truss.load.end(), [](double load) { return load != 0; });
  if (!isLoaded) return "no node is loaded, and the diagram is a point";
  return WhyNotPlanar(truss);
}

} // namespace

ForceDiagram DrawForceDiagram(const HandTruss& truss, const HandSolution& solution) {
  ForceDiagram diagram;
  diagram.whyNot = WhyNoDiagram(truss, solution);
  if (diagram.whyNot.empty()) {
    PlanarTruss planar = FindSpaces(truss);
    ForcesAtNodes outerAt;
    diagram.whyNot = WhyNotPlaced(truss, planar, solution.forces, outerAt);
    if (diagram.whyNot.empty()) {
      const DiagramSpaces spaces = AddSpaces(truss, std::move(planar), outerAt, diagram);
      DiagramDrawer(truss, solution, spaces, diagram).Draw();
      CollectPolygons(spaces, diagram);
    }
  }
  if (!diagram.whyNot.empty()) diagram.whyNot = "There is no force diagram: " + diagram.whyNot;
  return diagram;
}

} // namespace strutwright
