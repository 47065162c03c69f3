#include "modForceDiagram.h"

#include "AnalysisState.h"
#include "modPlanar.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace strutwright {

namespace {

constexpr int LetterCount = 26;

std::size_t Nth(int number) { return static_cast<std::size_t>(number); }

/// A load, or a reaction as a whole.
struct OuterForce {
  ForceKind kind = ForceKind::Load;
  int node = 0;
  double x = 0; ///< kN
  double y = 0;
};

std::vector<OuterForce> OuterForcesAt(const HandTruss& truss, int node, const HandForces& forces) {
  std::vector<OuterForce> outer;
  if (truss.HasLoad(node)) {
    outer.push_back({ForceKind::Load, node, truss.load[XFreedom(node)], truss.load[YFreedom(node)]});
  }
  const auto reaction = [&](std::size_t d) { return truss.fixed[d] != 0 ? forces.reactions[d] : 0; };
  const double x = reaction(XFreedom(node));
  const double y = reaction(YFreedom(node));
  if (std::hypot(x, y) > truss.nothing) outer.push_back({ForceKind::Reaction, node, x, y});
  return outer;
}

/// How far one turns clockwise from one direction to another, above 0 and up to a whole turn.
double ClockwiseTurn(double fromC, double fromS, double c, double s) {
  const double turn = std::atan2(fromS, fromC) - std::atan2(s, c);
  constexpr double whole = 2 * std::numbers::pi;
  const double positive = turn <= 0 ? turn + whole : turn;
  return positive <= 0 ? positive + whole : positive;
}

std::string LetterOf(int index) {
  const std::string letter(1, static_cast<char>('A' + index % LetterCount));
  return index < LetterCount ? letter : letter + std::to_string(index / LetterCount);
}

/// Puts the spaces together and draws line after line.
class DiagramDrawer {
 public:
  DiagramDrawer(const HandTruss& truss, const HandSolution& solution, ForceDiagram& diagram)
      : Truss(truss), Solution(solution), Diagram(diagram), Planar(FindSpaces(truss)),
        SpaceOf(Planar.faceOf.size(), -1), Given(truss.members.size(), 0), Drawn(truss.members.size(), 0),
        OuterAt(truss.x.size()), OuterLines(truss.x.size()) {}

  /// Why the outer forces can't be placed; empty where they can.
  std::string PlaceOuterForces() {
    for (int node = 1; node <= Truss.nodeCount; ++node) {
      std::vector<OuterForce> outer = OuterForcesAt(Truss, node, Solution.forces);
      if (outer.empty()) continue;
      if (!StandsOutside(node)) {
        return std::string(outer.front().kind == ForceKind::Load ? "the load" : "the reaction") + " at node " +
               std::to_string(node) + " stands inside the truss";
      }
      OuterAt[Nth(node)] = std::move(outer);
    }
    return "";
  }

  void Draw() {
    WalkRound();
    AddInnerSpaces();
    for (std::size_t k = 0; k < Solution.steps.size(); ++k) DrawStep(Solution.steps[k], k + 1);
    NameInnerSpaces();
    MeasureLines();
    CollectPolygons();
  }

 private:
  /// Where two halves of the rim meet: who comes, who goes on.
  struct Corner {
    int in = 0;
    int out = 0;
  };

  const std::vector<int>& Rim() const { return Planar.faces[Nth(Planar.outer)]; }

  bool StandsOutside(int node) const {
    const auto& halves = Planar.around[Nth(node)];
    return std::any_of(halves.begin(), halves.end(),
                       [this](int half) { return Planar.faceOf[Nth(half)] == Planar.outer; });
  }

  /// How wide the outside is at a corner of the rim, and how far into it a direction points; beyond it where it points
  /// into the truss.
  double WidthOf(const Corner& corner) const {
    const ForceLine out = LineOfHalf(Truss, corner.out);
    return TurnInto(corner, out.c, out.s);
  }

  double TurnInto(const Corner& corner, double c, double s) const {
    const ForceLine in = LineOfHalf(Truss, PlanarTruss::Twin(corner.in));
    return ClockwiseTurn(in.c, in.s, c, s);
  }

  /// How far into a corner the arrow of a force stands: its shaft where it pushes, else its head; the middle of a
  /// corner that has room for neither.
  std::pair<bool, double> Standing(const Corner& corner, const OuterForce& force) const {
    const double width = WidthOf(corner);
    const double shaft = TurnInto(corner, -force.x, -force.y);
    if (shaft < width) return {true, shaft};
    const double head = TurnInto(corner, force.x, force.y);
    if (head < width) return {true, head};
    return {false, width / 2};
  }

  /// The corner of a node's rim where a force stands: the first that has room for its arrow, else the widest.
  std::size_t CornerFor(const OuterForce& force, const std::vector<std::size_t>& corners) const {
    std::size_t widest = corners.front();
    for (const std::size_t at : corners) {
      if (Standing(CornerAt(at), force).first) return at;
      if (WidthOf(CornerAt(at)) > WidthOf(CornerAt(widest))) widest = at;
    }
    return widest;
  }

  Corner CornerAt(std::size_t place) const { return {Rim()[place], Rim()[(place + 1) % Rim().size()]}; }

  /// The outer forces of each corner of the rim, clockwise.
  std::vector<std::vector<OuterForce>> ForcesByCorner() const {
    std::vector<std::vector<std::size_t>> cornersOf(Truss.x.size());
    for (std::size_t at = 0; at < Rim().size(); ++at) {
      cornersOf[Nth(HeadOf(Truss, Rim()[at]))].push_back(at);
    }
    std::vector<std::vector<OuterForce>> byCorner(Rim().size());
    for (std::size_t node = 1; node < OuterAt.size(); ++node) {
      for (const OuterForce& force : OuterAt[node]) byCorner[CornerFor(force, cornersOf[node])].push_back(force);
    }
    for (std::size_t at = 0; at < byCorner.size(); ++at) {
      const Corner corner = CornerAt(at);
      std::stable_sort(byCorner[at].begin(), byCorner[at].end(), [&](const OuterForce& a, const OuterForce& b) {
        return Standing(corner, a).second < Standing(corner, b).second;
      });
    }
    return byCorner;
  }

  /// Goes clockwise round the truss.  Each outer force ends a space and begins the next; its line joins their points.
  void WalkRound() {
    const auto byCorner = ForcesByCorner();
    const auto begin = static_cast<std::size_t>(
        std::find_if(byCorner.begin(), byCorner.end(), [](const auto& forces) { return !forces.empty(); }) -
        byCorner.begin());
    Diagram.spaces.push_back({"A", true});
    for (std::size_t k = 0; k < byCorner.size(); ++k) {
      const std::size_t at = (begin + k) % byCorner.size();
      AddCornerForces(CornerAt(at), byCorner[at]);
      const int half = Rim()[(at + 1) % Rim().size()];
      SpaceOf[Nth(half)] = static_cast<int>(Diagram.spaces.size()) - 1;
      RimOf.resize(Diagram.spaces.size());
      RimOf.back().push_back(half);
    }
    CloseWalk();
    PlaceOuterLetters();
  }

  /// Between two forces at one corner there is a space without a member: its letter stands between their arrows.
  void AddCornerForces(const Corner& corner, const std::vector<OuterForce>& forces) {
    const ForceLine in = LineOfHalf(Truss, PlanarTruss::Twin(corner.in));
    for (std::size_t k = 0; k < forces.size(); ++k) {
      AddOuterLine(forces[k]);
      if (k + 1 == forces.size()) return;
      const double turn = (Standing(corner, forces[k]).second + Standing(corner, forces[k + 1]).second) / 2;
      Diagram.spaces.back().outX = in.c * std::cos(turn) + in.s * std::sin(turn);
      Diagram.spaces.back().outY = in.s * std::cos(turn) - in.c * std::sin(turn);
    }
  }

  void AddOuterLine(const OuterForce& force) {
    const DiagramSpace before = Diagram.spaces.back();
    const auto index = static_cast<int>(Diagram.spaces.size());
    Diagram.spaces.push_back({LetterOf(index), true, before.x + force.x, before.y + force.y});
    Diagram.spaces.back().placeX = Truss.x[Nth(force.node)];
    Diagram.spaces.back().placeY = Truss.y[Nth(force.node)];
    DiagramLine line{force.kind, 0, force.node, index - 1, index, std::hypot(force.x, force.y)};
    OuterLines[Nth(force.node)].push_back(Diagram.lines.size());
    Diagram.lines.push_back(line);
  }

  /// The last space is the first: what their points differ by is the closing error of the outer forces.
  void CloseWalk() {
    const DiagramSpace last = Diagram.spaces.back();
    const auto index = static_cast<int>(Diagram.spaces.size()) - 1;
    Diagram.closingError = std::hypot(last.x, last.y);
    for (int& space : SpaceOf) {
      if (space == index) space = 0;
    }
    Diagram.lines.back().to = 0;
    Diagram.spaces.pop_back();
    RimOf.resize(Nth(index) + 1);
    RimOf.front() = RimOf.back();
    RimOf.pop_back();
    Known.assign(Diagram.spaces.size(), 1);
  }

  /// A letter stands at the middle member of its stretch of the rim; where two forces act at one node, at that node.
  void PlaceOuterLetters() {
    for (std::size_t k = 0; k < Diagram.spaces.size(); ++k) {
      if (RimOf[k].empty()) continue;
      const int half = RimOf[k][RimOf[k].size() / 2];
      const ForceLine line = LineOfHalf(Truss, half);
      const double length = Truss.members[Nth(half / 2)].length;
      Diagram.spaces[k].placeX = line.x + line.c * length / 2;
      Diagram.spaces[k].placeY = line.y + line.s * length / 2;
      Diagram.spaces[k].outX = -line.s;
      Diagram.spaces[k].outY = line.c;
    }
  }

  void AddInnerSpaces() {
    for (int face = 0; face < static_cast<int>(Planar.faces.size()); ++face) {
      if (face == Planar.outer) continue;
      DiagramSpace space;
      MembersOf.resize(Diagram.spaces.size() + 1);
      for (const int half : Planar.faces[Nth(face)]) {
        SpaceOf[Nth(half)] = static_cast<int>(Diagram.spaces.size());
        MembersOf.back().push_back(half / 2);
        const ForceLine line = LineOfHalf(Truss, half);
        space.placeX += line.x / static_cast<double>(Planar.faces[Nth(face)].size());
        space.placeY += line.y / static_cast<double>(Planar.faces[Nth(face)].size());
      }
      Diagram.spaces.push_back(space);
    }
    Known.resize(Diagram.spaces.size(), 0);
  }

  int LeftOf(int half) const { return SpaceOf[Nth(half)]; }
  int RightOf(int half) const { return SpaceOf[Nth(PlanarTruss::Twin(half))]; }
  bool IsKnown(int space) const { return Known[Nth(space)] != 0; }

  void SetPoint(int space, double x, double y) {
    Diagram.spaces[Nth(space)].x = x;
    Diagram.spaces[Nth(space)].y = y;
    Known[Nth(space)] = 1;
    DrawnOrder.push_back(space);
    for (const int member : MembersOf[Nth(space)]) {
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
    const std::vector<int>& halves = Planar.around[Nth(node)];
    for (std::size_t k = 0; k < halves.size(); ++k) {
      const int one = halves[k];
      const int other = halves[(k + 1) % halves.size()];
      const int space = RightOf(one);
      if (space != LeftOf(other) || IsKnown(space) || !IsKnown(LeftOf(one)) || !IsKnown(RightOf(other))) continue;
      const ForceLine a = LineOfHalf(Truss, one);
      const ForceLine b = LineOfHalf(Truss, other);
      if (LieAlong(a, b)) continue;
      const DiagramSpace& p = Diagram.spaces[Nth(LeftOf(one))];
      const DiagramSpace& q = Diagram.spaces[Nth(RightOf(other))];
      const double along = ((q.x - p.x) * b.s - (q.y - p.y) * b.c) / a.Sine(b);
      SetPoint(space, p.x + along * a.c, p.y + along * a.s);
    }
  }

  /// Draws the members whose forces were computed before, as far as they begin at a known point.
  void DrawGiven(std::size_t step) {
    while (!Candidates.empty()) {
      const int member = Candidates.back();
      Candidates.pop_back();
      if (Given[Nth(member)] == 0 || (!IsKnown(LeftOf(2 * member)) && !IsKnown(RightOf(2 * member)))) continue;
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
    const int left = LeftOf(2 * member);
    const int right = RightOf(2 * member);
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
    if (!IsKnown(LeftOf(2 * member)) || !IsKnown(RightOf(2 * member))) {
      // The joint had no known point to begin at: the line waits until a neighbour has one.
      Give(member);
      return;
    }
    Drawn[Nth(member)] = 1;
    const HandMember& each = Truss.members[Nth(member)];
    Diagram.lines.push_back(
        {ForceKind::Member, each.number, each.i, LeftOf(2 * member), RightOf(2 * member), 0, byHand, step});
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

  /// Around a node clockwise: the spaces between its members, and at the rim those between its outer forces too.
  void CollectPolygons() {
    Diagram.polygonOf.resize(Truss.x.size());
    for (std::size_t node = 1; node < Diagram.polygonOf.size(); ++node) {
      std::vector<std::size_t> left = OuterLines[node];
      for (const int half : Planar.around[node]) AddCornerSpaces(RightOf(half), left, Diagram.polygonOf[node]);
    }
  }

  /// The spaces from behind a member on: more than one where outer forces divide the corner.
  /// left: lines of outer forces of the node, those that come out are taken away.
  void AddCornerSpaces(int first, std::vector<std::size_t>& left, std::vector<int>& polygon) const {
    polygon.push_back(first);
    const auto begins = [&](std::size_t line) { return Diagram.lines[line].from == polygon.back(); };
    for (auto next = std::find_if(left.begin(), left.end(), begins); next != left.end();
         next = std::find_if(left.begin(), left.end(), begins)) {
      polygon.push_back(Diagram.lines[*next].to);
      left.erase(next);
    }
  }

  const HandTruss& Truss;
  const HandSolution& Solution;
  ForceDiagram& Diagram;
  PlanarTruss Planar;
  std::vector<int> SpaceOf;                     ///< on the left of each half
  std::vector<std::vector<int>> RimOf;          ///< the halves of the rim that each outer space touches
  std::vector<char> Known;                      ///< points of the spaces
  std::vector<std::vector<int>> MembersOf;      ///< indices, around each inner space
  std::vector<char> Given;                      ///< members, by index, whose force was computed before they are drawn
  std::vector<int> Candidates;                  ///< those of them that may have a known point
  std::vector<char> Drawn;                      ///< members
  std::vector<std::vector<OuterForce>> OuterAt; ///< (0..nodeCount)
  std::vector<std::vector<std::size_t>> OuterLines; ///< (0..nodeCount): lines of the diagram, clockwise
  std::vector<int> DrawnOrder;                      ///< inner spaces as their points were found
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
    DiagramDrawer drawer(truss, solution, diagram);
    diagram.whyNot = drawer.PlaceOuterForces();
    if (diagram.whyNot.empty()) drawer.Draw();
  }
  if (!diagram.whyNot.empty()) diagram.whyNot = "There is no force diagram: " + diagram.whyNot;
  return diagram;
}

} // namespace strutwright
