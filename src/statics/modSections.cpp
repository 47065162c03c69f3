#include "modSections.h"

#include "HandTexts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace strutwright {

namespace {

/// Least nearness, beside the size of the truss.
constexpr double OnTheLine = 1e-9;
constexpr const char* AskForAnother = "; draw another line";

std::size_t Spot(int number) { return static_cast<std::size_t>(number); }

/// A stroke, and what it meets.
class Stroke {
 public:
  Stroke(const HandTruss& truss, const SectionStroke& stroke, double nearness)
      : Truss(truss), Line(stroke), Length(std::hypot(stroke.x1 - stroke.x0, stroke.y1 - stroke.y0)),
        Near(std::max(nearness, OnTheLine * truss.size)) {}

  bool IsPoint() const { return !(Length > 0); }

  /// Distance of a point from the endless line, positive on its left.
  double SideOf(double x, double y) const {
    return ((Line.x1 - Line.x0) * (y - Line.y0) - (Line.y1 - Line.y0) * (x - Line.x0)) / Length;
  }

  bool MeetsNode(int node) const {
    const double x = Truss.x[Spot(node)];
    const double y = Truss.y[Spot(node)];
    const double along = ((Line.x1 - Line.x0) * (x - Line.x0) + (Line.y1 - Line.y0) * (y - Line.y0)) / Length;
    return std::abs(SideOf(x, y)) <= Near && along >= -Near && along <= Length + Near;
  }

  bool RunsAlong(const HandMember& member) const {
    const double side0 = SideOf(Truss.x[Spot(member.i)], Truss.y[Spot(member.i)]);
    const double side1 = SideOf(Truss.x[Spot(member.j)], Truss.y[Spot(member.j)]);
    if (std::abs(side0) > Near || std::abs(side1) > Near) return false;
    const double begin = AlongMember(member, Line.x0, Line.y0);
    const double end = AlongMember(member, Line.x1, Line.y1);
    return std::max(begin, end) > 0 && std::min(begin, end) < member.length;
  }

  bool Cuts(const HandMember& member) const {
    const double side0 = SideOf(Truss.x[Spot(member.i)], Truss.y[Spot(member.i)]);
    const double side1 = SideOf(Truss.x[Spot(member.j)], Truss.y[Spot(member.j)]);
    if ((side0 > 0) == (side1 > 0)) return false;
    return (SideOfMember(member, Line.x0, Line.y0) > 0) != (SideOfMember(member, Line.x1, Line.y1) > 0);
  }

 private:
  double AlongMember(const HandMember& member, double x, double y) const {
    return (x - Truss.x[Spot(member.i)]) * member.c + (y - Truss.y[Spot(member.i)]) * member.s;
  }

  double SideOfMember(const HandMember& member, double x, double y) const {
    return (y - Truss.y[Spot(member.i)]) * member.c - (x - Truss.x[Spot(member.i)]) * member.s;
  }

  const HandTruss& Truss;
  SectionStroke Line;
  double Length;
  double Near;
};

/// The nodes on the two sides of some cut members; nothing where going round leads from one end of such a member to
/// its other end.  Parts that no cut member touches belong to neither.
class TwoSides {
 public:
  TwoSides(const HandTruss& truss, const std::vector<int>& cut) : Truss(truss), IsCut(truss.members.size(), 0) {
    for (const int index : cut) IsCut[Spot(index)] = 1;
    Side.assign(truss.x.size(), 0);
    for (const int index : cut) {
      if (Side[Spot(truss.members[Spot(index)].i)] == 0) SpreadFrom(truss.members[Spot(index)].i);
    }
  }

  bool Exist() const { return Apart; }

  std::vector<int> Nodes(int side) const {
    std::vector<int> nodes;
    for (int node = 1; node <= Truss.nodeCount; ++node) {
      if (Side[Spot(node)] == side) nodes.push_back(node);
    }
    return nodes;
  }

 private:
  void SpreadFrom(int first) {
    std::vector<int> reached{first};
    Side[Spot(first)] = 1;
    for (std::size_t k = 0; k < reached.size(); ++k) {
      for (const int member : Truss.membersAt[Spot(reached[k])]) {
        const int end = Truss.members[Spot(member)].OtherEnd(reached[k]);
        const int side = IsCut[Spot(member)] != 0 ? -Side[Spot(reached[k])] : Side[Spot(reached[k])];
        if (Side[Spot(end)] == 0) {
          Side[Spot(end)] = side;
          reached.push_back(end);
        }
        if (Side[Spot(end)] != side) Apart = false;
      }
    }
  }

  const HandTruss& Truss;
  std::vector<char> IsCut;
  std::vector<int> Side; ///< (0..nodeCount) 1 and -1; 0 where no cut member leads
  bool Apart = true;
};

std::string Refusal(const HandTruss& truss, const Stroke& stroke) {
  if (stroke.IsPoint()) return "The line has no length" + std::string(AskForAnother);
  for (const HandMember& member : truss.members) {
    if (stroke.RunsAlong(member)) {
      return "The line runs along member " + std::to_string(member.number) + AskForAnother;
    }
  }
  for (int node = 1; node <= truss.nodeCount; ++node) {
    if (stroke.MeetsNode(node)) {
      return "The line goes through node " + std::to_string(node) + ", where it cuts no member clearly" + AskForAnother;
    }
  }
  return "";
}

std::vector<std::string> UnknownNames(const FreeBody& body, const std::vector<int>& forces) {
  std::vector<std::string> names;
  for (const int k : forces) names.push_back(body.forces[Spot(k)].name);
  return names;
}

/// What three equations do for more than three unknown forces.
std::string RemarkOn(const HandSection& section) {
  const std::size_t unknowns = section.equations.size() + section.open.size();
  if (unknowns <= 3) return "";
  const std::string count = std::to_string(unknowns) + " forces are unknown, and a body has three equations";
  const std::string open = ListText(UnknownNames(section.body, section.open));
  if (section.equations.empty()) return count + ": none of " + open + " stands alone in one";
  std::vector<std::string> found;
  for (const HandEquation& equation : section.equations) {
    found.push_back(section.body.forces[Spot(equation.unknowns.front().force)].name);
  }
  if (section.open.empty()) return count + ", yet each of " + ListText(found) + " stands alone in one";
  return count + ": " + ListText(found) + (found.size() == 1 ? " still stands" : " still stand") + " alone, " + open +
         (section.open.size() == 1 ? " does not" : " do not");
}

/// Two or three lines in which no force stands alone: why.
std::string WhyOpen(const HandSection& section) {
  if (!section.equations.empty() || section.open.size() > 3 || section.open.empty()) return "";
  const auto lineOf = [&](int k) { return section.body.forces[Spot(k)].line; };
  const bool parallel = std::all_of(section.open.begin(), section.open.end(),
                                    [&](int k) { return LieAlong(lineOf(section.open.front()), lineOf(k)); });
  const std::string names = ListText(UnknownNames(section.body, section.open));
  return names + (parallel ? " are parallel" : " meet in a point") + ", so no equation has one of them alone" +
         AskForAnother;
}

void Decide(int force, HandSection& section) {
  const std::optional<Balance> balance = StandsAlone(section.body, force);
  if (!balance) {
    section.open.push_back(force);
    return;
  }
  HandEquation equation = WriteEquation(*balance, section.body, force);
  const BodyForce& unknown = section.body.forces[Spot(force)];
  section.values.push_back(AloneValue(equation));
  equation.solution =
      ForceText(unknown.name, section.values.back(), unknown.kind == ForceKind::Member, section.body.nothing);
  section.equations.push_back(std::move(equation));
}

std::vector<int> NumbersOf(const HandTruss& truss, const std::vector<int>& indices) {
  std::vector<int> numbers;
  for (const int index : indices) numbers.push_back(truss.members[Spot(index)].number);
  return numbers;
}

HandForces WithoutMembers(const HandForces& forces) {
  HandForces known = forces;
  std::fill(known.memberKnown.begin(), known.memberKnown.end(), 0);
  return known;
}

} // namespace

HandSection SectionAround(const HandTruss& truss, const std::vector<int>& nodes, const HandForces& forces) {
  HandSection section;
  section.body = CutFree(truss, nodes, forces);
  for (int k = 0; k < static_cast<int>(section.body.forces.size()); ++k) {
    const BodyForce& force = section.body.forces[Spot(k)];
    if (force.kind == ForceKind::Member) section.cut.push_back(force.member);
    if (!force.isKnown) Decide(k, section);
  }
  std::sort(section.cut.begin(), section.cut.end());
  section.remark = RemarkOn(section);
  section.whyNot = WhyOpen(section);
  return section;
}

HandSection SectionAlong(const HandTruss& truss, const SectionStroke& stroke, const HandForces& forces,
                         double nearness) {
  HandSection section;
  const Stroke line(truss, stroke, nearness);
  section.whyNot = Refusal(truss, line);
  if (!section.whyNot.empty()) return section;
  std::vector<int> cut;
  for (int index = 0; index < static_cast<int>(truss.members.size()); ++index) {
    if (line.Cuts(truss.members[Spot(index)])) cut.push_back(index);
  }
  section.cut = NumbersOf(truss, cut);
  if (cut.empty()) {
    section.whyNot = "The line cuts no member" + std::string(AskForAnother);
    return section;
  }
  const TwoSides sides(truss, cut);
  if (!sides.Exist()) {
    section.whyNot = "The line cuts " + MemberNames(section.cut) + ", but leaves the truss in one piece" +
                     AskForAnother + " right across it";
    return section;
  }
  const HandForces known = WithoutMembers(forces);
  const std::vector<int> one = sides.Nodes(1);
  const std::vector<int> other = sides.Nodes(-1);
  const bool fewer = CutFree(truss, other, known).forces.size() < CutFree(truss, one, known).forces.size();
  return SectionAround(truss, fewer ? other : one, known);
}

} // namespace strutwright
