#include "modInfluence.h"

#include "CheckedTruss.h"
#include "Ensure.h"
#include "modMechanisms.h"
#include "modModelStore.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <utility>

namespace strutwright {

namespace {

/// What is this small beside the deflections that a line is read from is rounding.
constexpr double NoOrdinate = 1e-12;

std::size_t FreedomOf(const Quantity& quantity) {
  return quantity.alongY ? AlongY(quantity.number) : AlongX(quantity.number);
}

std::string AxisName(const Quantity& quantity) { return quantity.alongY ? "y" : "x"; }

CheckedTruss TrussWithoutPrestress() {
  CheckedTruss truss = ReadTruss();
  for (CheckedMember& member : truss.members) member.prestress = 0;
  return truss;
}

std::string WithSmallLetter(std::string sentence) {
  sentence[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(sentence[0])));
  return sentence;
}

/// What keeps a truss from having influence lines.
std::string ReasonOf(const CheckedTruss& truss) {
  if (truss.nodeCount == 0) return "The model has no nodes, so it has no influence lines: enter a truss first";
  const StabilityReport stability = JudgeStability(truss);
  if (stability.Stable()) return "";
  const Mechanism& first = stability.mechanisms.front();
  const std::string cure = first.cures.empty() ? "add what holds it" : WithSmallLetter(first.cures.front().text);
  return "Influence lines need a stable truss, but " + WithSmallLetter(first.sentence) + ": " + cure;
}

/// The nodal forces with which a member pulls while it is kept from getting 1 mm shorter.
// P = EA/L (c, s) at i, -EA/L (c, s) at j.
void PullWith(const CheckedMember& member, std::vector<double>& P) {
  const double k = member.axialRigidity / member.length;
  P[AlongX(member.i)] += k * member.c;
  P[AlongY(member.i)] += k * member.s;
  P[AlongX(member.j)] -= k * member.c;
  P[AlongY(member.j)] -= k * member.s;
}

/// The nodal forces that members exert when a freedom moves by 1 mm and all others rest: its column of K, negative.
void PushWith(const CheckedMember& member, std::size_t freedom, std::vector<double>& P) {
  const std::array<std::size_t, 4> freedoms{AlongX(member.i), AlongY(member.i), AlongX(member.j), AlongY(member.j)};
  const std::array<double, 4> b{-member.c, -member.s, member.c, member.s};
  const double k = member.axialRigidity / member.length;
  for (std::size_t p = 0; p < 4; ++p) {
    if (freedoms[p] != freedom) continue;
    for (std::size_t q = 0; q < 4; ++q) P[freedoms[q]] -= k * b[p] * b[q];
  }
}

/// What deflects the truss into the shape of the influence line.
std::vector<double> CauseOf(const Quantity& quantity, const CheckedTruss& truss) {
  std::vector<double> P(truss.FreedomCount() + 1, 0);
  if (quantity.kind == QuantityKind::Displacement) P[FreedomOf(quantity)] = -1;
  for (const CheckedMember& member : truss.members) {
    if (!member.CanCarryForce()) continue;
    if (quantity.kind == QuantityKind::Reaction) PushWith(member, FreedomOf(quantity), P);
    if (quantity.kind == QuantityKind::MemberForce && member.number == quantity.number) PullWith(member, P);
  }
  return P;
}

double LargestSize(const std::vector<double>& values) {
  double largest = 0;
  for (const double value : values) largest = std::max(largest, std::abs(value));
  return largest;
}

} // namespace

std::string QuantityFault(const Quantity& quantity) {
  const bool ofMember = quantity.kind == QuantityKind::MemberForce;
  const std::string what = ofMember ? "member" : "node";
  const int count = ofMember ? MemberCount : NodeCount;
  const std::string named = what + " " + std::to_string(quantity.number);
  if (quantity.number < 1 || quantity.number > count) {
    if (count == 0) return "There is no " + named + ", since the model has no " + what + "s: enter a truss first";
    return "There is no " + named + ": choose one from 1 to " + std::to_string(count);
  }
  if (quantity.kind == QuantityKind::Reaction && ReadTruss().fixed[FreedomOf(quantity)] == 0) {
    return "No support holds " + named + " in " + AxisName(quantity) + ": choose a node and a direction that one holds";
  }
  return "";
}

std::string QuantityName(const Quantity& quantity) {
  const std::string number = std::to_string(quantity.number);
  if (quantity.kind == QuantityKind::MemberForce) return "Force of member " + number;
  const std::string what = quantity.kind == QuantityKind::Reaction ? "Reaction" : "Displacement";
  return what + " of node " + number + " in " + AxisName(quantity);
}

std::string QuantityUnit(const Quantity& quantity) { return quantity.kind == QuantityKind::Displacement ? "mm" : "kN"; }

InfluenceLines::InfluenceLines() : Factored(TrussWithoutPrestress()) { Reason = ReasonOf(Factored.Truss()); }

// The ordinate at a node is its deflection upward: of a member's force when the member gets 1 mm shorter, of a reaction
// when the support moves 1 mm in the reaction's direction, of a displacement under -1 kN in its direction.
// Checked: against the forces, reactions and displacements under each single load.
InfluenceLine InfluenceLines::LineOf(const Quantity& quantity, const std::vector<int>& path) const {
  Ensure(Reason.empty(), "influence lines are those of a stable truss");
  const CheckedTruss& truss = Factored.Truss();
  RefinedSolution shape = Factored.Solve(CauseOf(quantity, truss));
  if (quantity.kind == QuantityKind::Reaction) shape.displacements[FreedomOf(quantity)] = 1;
  const double least = NoOrdinate * LargestSize(shape.displacements);
  InfluenceLine line{path, {}, {}, shape.uncertainty};
  for (const int node : path) {
    const double v = shape.displacements[AlongY(node)];
    line.x.push_back(truss.x[At(node)]);
    line.values.push_back(std::abs(v) > least ? v : 0);
  }
  return line;
}

} // namespace strutwright
