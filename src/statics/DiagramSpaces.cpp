#include "DiagramSpaces.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace strutwright {

namespace {

constexpr int LetterCount = 26;

std::size_t SpacePlace(int number) { return static_cast<std::size_t>(number); }

/// Goes round the truss, and then through it.
class SpaceMaker {
 public:
  SpaceMaker(const HandTruss& truss, DiagramSpaces& spaces, ForceDiagram& diagram)
      : Truss(truss), Spaces(spaces), Diagram(diagram) {}

  /// Goes clockwise round the truss.  Each outer force ends a space and begins the next; its line joins their points.
  void WalkRound(const std::vector<std::vector<OuterForce>>& outerAt) {
    const TrussRim rim(Truss, Spaces.planar);
    const auto byCorner = rim.ForcesByCorner(outerAt);
    const auto begin = static_cast<std::size_t>(
        std::find_if(byCorner.begin(), byCorner.end(), [](const auto& forces) { return !forces.empty(); }) -
        byCorner.begin());
    Diagram.spaces.push_back({"A", true});
    for (std::size_t k = 0; k < byCorner.size(); ++k) {
      const std::size_t at = (begin + k) % byCorner.size();
      AddCornerForces(rim, rim.CornerAt(at), byCorner[at]);
      const int half = rim.CornerAt(at).out;
      Spaces.spaceOf[SpacePlace(half)] = static_cast<int>(Diagram.spaces.size()) - 1;
      RimOf.resize(Diagram.spaces.size());
      RimOf.back().push_back(half);
    }
    CloseWalk();
    PlaceOuterLetters();
  }

  void AddInnerSpaces() {
    for (int face = 0; face < static_cast<int>(Spaces.planar.faces.size()); ++face) {
      if (face == Spaces.planar.outer) continue;
      DiagramSpace space;
      Spaces.membersOf.resize(Diagram.spaces.size() + 1);
      for (const int half : Spaces.planar.faces[SpacePlace(face)]) {
        Spaces.spaceOf[SpacePlace(half)] = static_cast<int>(Diagram.spaces.size());
        Spaces.membersOf.back().push_back(half / 2);
        const ForceLine line = LineOfHalf(Truss, half);
        space.placeX += line.x / static_cast<double>(Spaces.planar.faces[SpacePlace(face)].size());
        space.placeY += line.y / static_cast<double>(Spaces.planar.faces[SpacePlace(face)].size());
      }
      Diagram.spaces.push_back(space);
    }
  }

 private:
  /// Between two forces at one corner there is a space without a member: its letter stands between their arrows.
  void AddCornerForces(const TrussRim& rim, const RimCorner& corner, const std::vector<OuterForce>& forces) {
    for (std::size_t k = 0; k < forces.size(); ++k) {
      AddOuterLine(forces[k]);
      if (k + 1 == forces.size()) return;
      DiagramSpace& space = Diagram.spaces.back();
      std::tie(space.outX, space.outY) = rim.Between(corner, forces[k], forces[k + 1]);
    }
  }

  void AddOuterLine(const OuterForce& force) {
    const DiagramSpace before = Diagram.spaces.back();
    const auto index = static_cast<int>(Diagram.spaces.size());
    Diagram.spaces.push_back({LetterOf(index), true, before.x + force.x, before.y + force.y});
    Diagram.spaces.back().placeX = Truss.x[SpacePlace(force.node)];
    Diagram.spaces.back().placeY = Truss.y[SpacePlace(force.node)];
    DiagramLine line{force.kind, 0, force.node, index - 1, index, std::hypot(force.x, force.y)};
    Spaces.outerLines[SpacePlace(force.node)].push_back(Diagram.lines.size());
    Diagram.lines.push_back(line);
  }

  /// The last space is the first: what their points differ by is the closing error of the outer forces.
  void CloseWalk() {
    const DiagramSpace last = Diagram.spaces.back();
    const auto index = static_cast<int>(Diagram.spaces.size()) - 1;
    Diagram.closingError = std::hypot(last.x, last.y);
    for (int& space : Spaces.spaceOf) {
      if (space == index) space = 0;
    }
    Diagram.lines.back().to = 0;
    Diagram.spaces.pop_back();
    RimOf.resize(SpacePlace(index) + 1);
    RimOf.front() = RimOf.back();
    RimOf.pop_back();
  }

  /// A letter stands at the middle member of its stretch of the rim; where two forces act at one node, at that node.
  void PlaceOuterLetters() {
    for (std::size_t k = 0; k < Diagram.spaces.size(); ++k) {
      if (RimOf[k].empty()) continue;
      const int half = RimOf[k][RimOf[k].size() / 2];
      const ForceLine line = LineOfHalf(Truss, half);
      const double length = Truss.members[SpacePlace(half / 2)].length;
      Diagram.spaces[k].placeX = line.x + line.c * length / 2;
      Diagram.spaces[k].placeY = line.y + line.s * length / 2;
      Diagram.spaces[k].outX = -line.s;
      Diagram.spaces[k].outY = line.c;
    }
  }

  const HandTruss& Truss;
  DiagramSpaces& Spaces;
  ForceDiagram& Diagram;
  std::vector<std::vector<int>> RimOf; ///< the halves of the rim that each outer space touches
};

/// The spaces from behind a member on: more than one where outer forces divide the corner.
/// left: lines of outer forces of the node, those that come out are taken away.
void AddCornerSpaces(const std::vector<DiagramLine>& lines, int first, std::vector<std::size_t>& left,
                     std::vector<int>& polygon) {
  polygon.push_back(first);
  const auto begins = [&](std::size_t line) { return lines[line].from == polygon.back(); };
  for (auto next = std::find_if(left.begin(), left.end(), begins); next != left.end();
       next = std::find_if(left.begin(), left.end(), begins)) {
    polygon.push_back(lines[*next].to);
    left.erase(next);
  }
}

} // namespace

std::string LetterOf(int index) {
  const std::string letter(1, static_cast<char>('A' + index % LetterCount));
  return index < LetterCount ? letter : letter + std::to_string(index / LetterCount);
}

DiagramSpaces AddSpaces(const HandTruss& truss, PlanarTruss planar, const std::vector<std::vector<OuterForce>>& outerAt,
                        ForceDiagram& diagram) {
  DiagramSpaces spaces;
  spaces.planar = std::move(planar);
  spaces.spaceOf.assign(spaces.planar.faceOf.size(), -1);
  spaces.outerLines.resize(truss.x.size());
  SpaceMaker maker(truss, spaces, diagram);
  maker.WalkRound(outerAt);
  maker.AddInnerSpaces();
  return spaces;
}

void CollectPolygons(const DiagramSpaces& spaces, ForceDiagram& diagram) {
  diagram.polygonOf.resize(spaces.outerLines.size());
  for (std::size_t node = 1; node < diagram.polygonOf.size(); ++node) {
    std::vector<std::size_t> left = spaces.outerLines[node];
    for (const int half : spaces.planar.around[node]) {
      AddCornerSpaces(diagram.lines, spaces.RightOf(half), left, diagram.polygonOf[node]);
    }
  }
}

} // namespace strutwright
