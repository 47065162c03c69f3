#include "modHandFigures.h"

#include "AnalysisState.h"
#include "HandTexts.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <string>

namespace strutwright {

namespace {

std::size_t Nth(int number) { return static_cast<std::size_t>(number); }

SketchTone ToneOf(double force, double nothing) {
  if (std::abs(force) <= nothing) return SketchTone::NoForce;
  return force > 0 ? SketchTone::Tension : SketchTone::Compression;
}

std::string ForceLabel(const BodyForce& force, double nothing) {
  if (!force.isKnown) return force.name;
  const std::string value = std::abs(force.value) <= nothing ? "0" : HandNumber(force.value) + " kN";
  return force.name.empty() ? value : force.name + " = " + value;
}

/// Support code of a node, as the model has it.
float SupportOf(const HandTruss& truss, int node) {
  const bool x = truss.fixed[XFreedom(node)] != 0;
  const bool y = truss.fixed[YFreedom(node)] != 0;
  if (x) return y ? 3.0F : 2.0F;
  return y ? 1.0F : 0.0F;
}

SketchPoint PointOfNode(const HandTruss& truss, int node) {
  SketchPoint point{truss.x[Nth(node)], truss.y[Nth(node)]};
  point.name = std::to_string(node);
  return point;
}

/// All nodes, in their order, on their supports; so that node n is the point n - 1.
Sketch NodesOf(const HandTruss& truss) {
  Sketch sketch;
  for (int node = 1; node <= truss.nodeCount; ++node) {
    sketch.points.push_back(PointOfNode(truss, node));
    sketch.points.back().support = SupportOf(truss, node);
  }
  return sketch;
}

SketchLine LineOfMember(const HandMember& member, SketchTone tone) {
  SketchLine line{member.i - 1, member.j - 1, tone};
  line.number = std::to_string(member.number);
  return line;
}

double LargestLoad(const HandTruss& truss) {
  double largest = 0;
  for (int node = 1; node <= truss.nodeCount; ++node) {
    largest = std::max(largest, std::hypot(truss.load[XFreedom(node)], truss.load[YFreedom(node)]));
  }
  return largest;
}

/// An arrow that may stand where there is room.
SketchArrow OuterArrow(int point, double x, double y, double largest, SketchTone tone) {
  const double size = std::hypot(x, y);
  SketchArrow arrow{point, x / size, y / size, largest > 0 ? size / largest : 0};
  arrow.mayMove = true;
  arrow.tone = tone;
  return arrow;
}

void AddLoads(const HandTruss& truss, Sketch& sketch) {
  const double largest = LargestLoad(truss);
  for (int node = 1; node <= truss.nodeCount; ++node) {
    if (!truss.HasLoad(node)) continue;
    const double x = truss.load[XFreedom(node)];
    const double y = truss.load[YFreedom(node)];
    SketchArrow arrow = OuterArrow(node - 1, x, y, 2 * largest, SketchTone::Ink);
    arrow.label = HandNumber(std::hypot(x, y)) + " kN";
    sketch.arrows.push_back(arrow);
  }
}

double LargestOf(const FreeBody& body) {
  double largest = 0;
  for (const BodyForce& force : body.forces) {
    if (force.isKnown) largest = std::max(largest, std::abs(force.value));
  }
  return largest;
}

SketchArrow ArrowOf(const BodyForce& force, int point, const FreeBody& body, double largest) {
  const bool isNone = force.isKnown && std::abs(force.value) <= body.nothing;
  const double value = force.isKnown ? force.value : 1;
  const double sign = value < 0 ? -1 : 1;
  SketchArrow arrow{point, sign * force.line.c, sign * force.line.s};
  arrow.share = !force.isKnown ? 0.5 : largest > 0 ? std::abs(force.value) / largest : 0;
  arrow.hasHead = !isNone;
  arrow.label = ForceLabel(force, body.nothing);
  arrow.tone = SketchTone::Unknown;
  if (force.kind == ForceKind::Member) {
    arrow.pulls = sign > 0; // away from the body, on the side where the member was
    if (force.isKnown) arrow.tone = ToneOf(force.value, body.nothing);
    return arrow;
  }
  arrow.mayMove = true;
  if (force.kind == ForceKind::Load) arrow.tone = SketchTone::Ink;
  if (force.kind == ForceKind::Reaction && force.isKnown)
    arrow.tone = isNone ? SketchTone::NoForce : SketchTone::Reaction;
  return arrow;
}

std::string LowerCase(std::string text) {
  for (char& letter : text) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return text;
}

double LargestIn(const ForceDiagram& diagram) {
  double largest = 0;
  for (const DiagramLine& line : diagram.lines) largest = std::max(largest, std::abs(line.force));
  return largest;
}

SketchTone ToneOfLine(const DiagramLine& line, double largest) {
  constexpr double None = 1e-10;
  if (line.kind == ForceKind::Load) return SketchTone::Ink;
  if (line.kind == ForceKind::Reaction) return SketchTone::Reaction;
  return ToneOf(line.force, None * largest);
}

/// From the point of the space before a line to that of the space behind it.
void VectorOf(const DiagramLine& line, const ForceDiagram& diagram, double& x, double& y) {
  x = diagram.spaces[Nth(line.to)].x - diagram.spaces[Nth(line.from)].x;
  y = diagram.spaces[Nth(line.to)].y - diagram.spaces[Nth(line.from)].y;
}

double LargestOuter(const ForceDiagram& diagram) {
  double largest = 0;
  for (const DiagramLine& line : diagram.lines) {
    if (line.kind != ForceKind::Member) largest = std::max(largest, std::abs(line.force));
  }
  return largest;
}

/// The points of a force diagram as far as it is drawn.  Spaces at one place share a point and its name: "f, j".
class DiagramPoints {
 public:
  DiagramPoints(const ForceDiagram& diagram, Sketch& sketch) : Diagram(diagram), Figure(sketch) {
    constexpr double SamePlace = 1e-6;
    Same = SamePlace * LargestIn(diagram);
  }

  int For(int space) {
    const auto [place, isNew] = PointOf.emplace(space, 0);
    if (isNew) place->second = Find(Diagram.spaces[Nth(space)]);
    return place->second;
  }

 private:
  int Find(const DiagramSpace& space) {
    const std::string name = LowerCase(space.letter);
    for (std::size_t k = 0; k < Figure.points.size(); ++k) {
      SketchPoint& point = Figure.points[k];
      if (std::abs(point.x - space.x) > Same || std::abs(point.y - space.y) > Same) continue;
      point.name += ", " + name;
      return static_cast<int>(k);
    }
    Figure.points.push_back({space.x, space.y, name});
    return static_cast<int>(Figure.points.size()) - 1;
  }

  const ForceDiagram& Diagram;
  Sketch& Figure;
  double Same = 0;
  std::map<int, int> PointOf;
};

} // namespace

Sketch TrussFigure(const HandTruss& truss, const HandForces& forces, const FigureMarks& marks) {
  Sketch sketch = NodesOf(truss);
  for (const int node : marks.nodes) sketch.points[Nth(node - 1)].tone = SketchTone::Marked;
  for (const HandMember& member : truss.members) {
    const bool isKnown = forces.memberKnown[Nth(member.number)] != 0;
    SketchLine line =
        LineOfMember(member, isKnown ? ToneOf(forces.members[Nth(member.number)], truss.nothing) : SketchTone::Ink);
    if (std::binary_search(marks.members.begin(), marks.members.end(), member.number)) line.tone = SketchTone::Marked;
    sketch.lines.push_back(line);
  }
  AddLoads(truss, sketch);
  sketch.stroke = marks.stroke;
  return sketch;
}

Sketch BodyFigure(const HandTruss& truss, const FreeBody& body) {
  Sketch sketch;
  std::map<int, int> pointOf;
  for (const int node : body.nodes) {
    pointOf[node] = static_cast<int>(sketch.points.size());
    sketch.points.push_back(PointOfNode(truss, node));
  }
  for (const HandMember& member : truss.members) {
    const auto i = pointOf.find(member.i);
    const auto j = pointOf.find(member.j);
    if (i == pointOf.end() || j == pointOf.end()) continue;
    SketchLine line{i->second, j->second, SketchTone::Ink};
    line.number = std::to_string(member.number);
    sketch.lines.push_back(line);
  }
  const double largest = LargestOf(body);
  for (const BodyForce& force : body.forces) {
    sketch.arrows.push_back(ArrowOf(force, pointOf[force.node], body, largest));
  }
  return sketch;
}

Sketch PolygonFigure(const FreeBody& body, const std::vector<PolygonSide>& polygon) {
  Sketch sketch;
  sketch.unit = "kN";
  const auto addPoint = [&](double x, double y) {
    SketchPoint point{x, y};
    point.isDot = false;
    sketch.points.push_back(point);
    return static_cast<int>(sketch.points.size()) - 1;
  };
  for (const PolygonSide& side : polygon) {
    const BodyForce& force = body.forces[Nth(side.force)];
    if (std::abs(force.value) <= body.nothing) continue;
    const int from = addPoint(side.x0, side.y0);
    const int to = addPoint(side.x1, side.y1);
    SketchLine line{from, to, ArrowOf(force, 0, body, 1).tone};
    line.label = force.name.empty() ? HandNumber(force.value) + " kN" : force.name;
    line.hasHead = true;
    sketch.lines.push_back(line);
  }
  return sketch;
}

Sketch ZeroFigure(const HandTruss& truss, const std::vector<ZeroMember>& zeros, std::size_t found) {
  Sketch sketch = NodesOf(truss);
  std::map<int, std::size_t> orderOf;
  for (std::size_t k = 0; k < std::min(found, zeros.size()); ++k) orderOf[zeros[k].member] = k + 1;
  for (const HandMember& member : truss.members) {
    const auto zero = orderOf.find(member.number);
    SketchLine line = LineOfMember(member, zero == orderOf.end() ? SketchTone::Ink : SketchTone::NoForce);
    if (zero != orderOf.end() && zero->second == found) line.tone = SketchTone::Marked;
    if (zero != orderOf.end()) line.label = "0";
    sketch.lines.push_back(line);
  }
  if (found > 0) sketch.points[Nth(zeros[found - 1].node - 1)].tone = SketchTone::Marked;
  AddLoads(truss, sketch);
  return sketch;
}

Sketch FormFigure(const HandTruss& truss, const ForceDiagram& diagram, std::size_t drawn) {
  Sketch sketch = NodesOf(truss);
  const double largestOfAll = LargestIn(diagram);
  std::map<int, std::size_t> lineOf;
  for (std::size_t k = 0; k < diagram.lines.size(); ++k) {
    if (diagram.lines[k].kind == ForceKind::Member) lineOf[diagram.lines[k].member] = k;
  }
  for (const HandMember& member : truss.members) {
    SketchLine line = LineOfMember(member, SketchTone::Ink);
    if (const auto found = lineOf.find(member.number); found != lineOf.end()) {
      line.key = static_cast<int>(found->second) + 1;
      if (found->second < drawn) line.tone = ToneOfLine(diagram.lines[found->second], largestOfAll);
    }
    sketch.lines.push_back(line);
  }
  const double largest = LargestOuter(diagram);
  for (std::size_t k = 0; k < diagram.lines.size(); ++k) {
    const DiagramLine& line = diagram.lines[k];
    if (line.kind == ForceKind::Member) continue;
    double x = 0, y = 0;
    VectorOf(line, diagram, x, y);
    if (!(std::hypot(x, y) > 0)) continue;
    sketch.arrows.push_back(OuterArrow(line.node - 1, x, y, largest, ToneOfLine(line, largestOfAll)));
    sketch.arrows.back().key = static_cast<int>(k) + 1;
  }
  for (const DiagramSpace& space : diagram.spaces) {
    sketch.texts.push_back({space.placeX, space.placeY, space.outX, space.outY, space.letter, SketchTone::Marked});
  }
  return sketch;
}

Sketch ForceFigure(const ForceDiagram& diagram, std::size_t drawn) {
  Sketch sketch;
  sketch.unit = "kN";
  const double largestOfAll = LargestIn(diagram);
  DiagramPoints points(diagram, sketch);
  for (std::size_t k = 0; k < std::min(drawn, diagram.lines.size()); ++k) {
    const DiagramLine& line = diagram.lines[k];
    const int from = points.For(line.from);
    SketchLine drawnLine{from, points.For(line.to), ToneOfLine(line, largestOfAll)};
    drawnLine.key = static_cast<int>(k) + 1;
    drawnLine.hasHead = line.kind != ForceKind::Member;
    if (line.kind == ForceKind::Member) drawnLine.number = std::to_string(line.member);
    sketch.lines.push_back(drawnLine);
  }
  return sketch;
}

} // namespace strutwright
