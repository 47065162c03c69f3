#include "modBalance.h"

#include "HandTexts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace strutwright {

namespace {

using Wrench = std::array<double, 3>;

/// Factors are at most 1 for a sum and arms for a moment; what is smaller beside the largest is rounding.
constexpr double NoPart = 1e-10;
/// Roundings of 32-bit coordinates that make a line miss a crossing, or two lines parallel.
constexpr double RoundingsOfLines = 8;

Wrench Cross(const Wrench& a, const Wrench& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Product(const Wrench& a, const Wrench& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

double Length(const Wrench& a) { return std::sqrt(Product(a, a)); }

/// Lines seen from a point, distances by a measure, so that every part of a wrench is of size 1.
struct Viewpoint {
  double x = 0;
  double y = 0;
  double measure = 1;

  Wrench Of(const ForceLine& line) const {
    return {line.c, line.s, ((line.x - x) * line.s - (line.y - y) * line.c) / measure};
  }
};

Viewpoint ViewpointOf(const std::vector<ForceLine>& lines) {
  Viewpoint view;
  for (const ForceLine& line : lines) {
    view.x += line.x / static_cast<double>(lines.size());
    view.y += line.y / static_cast<double>(lines.size());
  }
  double farthest = 0;
  for (const ForceLine& line : lines) farthest = std::max(farthest, std::hypot(line.x - view.x, line.y - view.y));
  if (farthest > 0) view.measure = farthest;
  return view;
}

/// The point (or direction) that all lines in `others` pass through and `one` does not, as weights of an equation of
/// equilibrium: only `one` has a moment about it.  Nothing if there is no such point.
std::optional<Wrench> WeightsWithout(const std::vector<Wrench>& others, const Wrench& one, double slack) {
  if (others.empty()) return one;
  Wrench weights{};
  for (const Wrench& other : others) {
    const Wrench candidate = Cross(others.front(), other);
    if (Length(candidate) > Length(weights)) weights = candidate;
  }
  // One line, or several on top of each other: across it.
  if (Length(weights) <= slack) weights = {-others.front()[1], others.front()[0], 0};
  const double length = Length(weights);
  for (double& weight : weights) weight /= length;
  const auto isLeft = [&](const Wrench& other) { return std::abs(Product(weights, other)) > slack; };
  if (std::any_of(others.begin(), others.end(), isLeft) || !isLeft(one)) return std::nullopt;
  return weights;
}

Balance FromWeights(const Wrench& weights, const Viewpoint& view, double slack) {
  // l . w = lx c + ly s + lm ((px - x) s - (py - y) c) / measure; the point of no weight is the crossing.
  const double lm = weights[2] / view.measure;
  if (std::abs(weights[2]) <= slack) {
    const double size = std::hypot(weights[0], weights[1]);
    return {weights[0] / size, weights[1] / size, lm / size, view.x, view.y, ""};
  }
  return {0, 0, 1, view.x - weights[1] / lm, view.y + weights[0] / lm, ""};
}

std::vector<int> OtherUnknowns(const FreeBody& body, int force) {
  std::vector<int> others;
  for (int k = 0; k < static_cast<int>(body.forces.size()); ++k) {
    if (k != force && !body.forces[static_cast<std::size_t>(k)].isKnown) others.push_back(k);
  }
  return others;
}

std::string NamesOf(const FreeBody& body, const std::vector<int>& forces) {
  std::vector<std::string> names;
  for (const int k : forces) names.push_back(body.forces[static_cast<std::size_t>(k)].name);
  return ListText(names);
}

std::string DirectionTitle(const Balance& balance, const FreeBody& body, const std::vector<int>& others) {
  if (std::abs(balance.ly) <= NoPart) return "Sum of x";
  if (std::abs(balance.lx) <= NoPart) return "Sum of y";
  if (others.empty()) return "Sum along " + NamesOf(body, OtherUnknowns(body, -1));
  return "Sum across " + NamesOf(body, others);
}

std::string PointTitle(const Balance& balance, const FreeBody& body, const std::vector<int>& others, double measure) {
  for (const BodyForce& force : body.forces) {
    const auto isAt = [&](double x, double y) { return std::hypot(x - balance.x, y - balance.y) <= NoPart * measure; };
    if (isAt(force.line.x, force.line.y)) return "Moment about node " + std::to_string(force.node);
    if (force.farNode > 0 && isAt(force.farX, force.farY)) return "Moment about node " + std::to_string(force.farNode);
  }
  return "Moment about the crossing of " + NamesOf(body, others) + " at " + PlaceText(balance.x, balance.y, measure);
}

/// Turns a sum so that its first direction is positive, as one would write it.
void MakePositive(Balance& balance) {
  const double first = std::abs(balance.lx) > NoPart ? balance.lx : balance.ly;
  if (first >= 0) return;
  balance.lx = -balance.lx;
  balance.ly = -balance.ly;
  balance.lm = -balance.lm;
}

void AddKnown(const Balance& balance, const BodyForce& force, double nothing, SumText& sum, HandEquation& equation) {
  const auto shown = [nothing](double value) { return std::abs(value) <= nothing ? 0 : value; };
  if (force.kind != ForceKind::Load) {
    const double factor = FactorOf(balance, force.line);
    equation.known += factor * force.value;
    return sum.AddNumber(factor, shown(force.value));
  }
  // The parts of a load are put in as they were given.
  const auto addPart = [&](double c, double s, double part) {
    const double factor = FactorOf(balance, {force.line.x, force.line.y, c, s, 0});
    equation.known += factor * part;
    sum.AddNumber(factor, shown(part));
  };
  addPart(1, 0, force.value * force.line.c);
  addPart(0, 1, force.value * force.line.s);
}

} // namespace

Balance SumOfX() { return {1, 0, 0, 0, 0, "Sum of x"}; }

Balance SumOfY() { return {0, 1, 0, 0, 0, "Sum of y"}; }

Balance MomentAbout(double x, double y, const std::string& place) { return {0, 0, 1, x, y, "Moment about " + place}; }

double FactorOf(const Balance& balance, const ForceLine& line) {
  const double arm = (line.x - balance.x) * line.s - (line.y - balance.y) * line.c;
  return balance.lx * line.c + balance.ly * line.s + balance.lm * arm;
}

HandEquation WriteEquation(const Balance& balance, const FreeBody& body, int alone) {
  HandEquation equation{balance.title, "", {}, 0, ""};
  SumText sum;
  double largest = 0;
  for (const BodyForce& force : body.forces) largest = std::max(largest, std::abs(FactorOf(balance, force.line)));
  for (int k = 0; k < static_cast<int>(body.forces.size()); ++k) {
    const BodyForce& force = body.forces[static_cast<std::size_t>(k)];
    const double factor = FactorOf(balance, force.line);
    if (force.isKnown) {
      AddKnown(balance, force, body.nothing, sum, equation);
    } else if (k == alone || (alone < 0 && std::abs(factor) > NoPart * largest)) {
      equation.unknowns.push_back({k, factor});
      sum.AddUnknown(factor, force.name);
    }
  }
  equation.text = sum.Text() + " = 0";
  return equation;
}

std::optional<Balance> StandsAlone(const FreeBody& body, int force) {
  const std::vector<int> others = OtherUnknowns(body, force);
  const ForceLine& line = body.forces[static_cast<std::size_t>(force)].line;
  std::vector<ForceLine> lines{line};
  double slack = NoPart + RoundingsOfLines * line.doubt;
  for (const int k : others) {
    lines.push_back(body.forces[static_cast<std::size_t>(k)].line);
    slack += RoundingsOfLines * lines.back().doubt;
  }
  const Viewpoint view = ViewpointOf(lines);
  std::vector<Wrench> wrenches;
  for (std::size_t k = 1; k < lines.size(); ++k) wrenches.push_back(view.Of(lines[k]));
  const std::optional<Wrench> weights = WeightsWithout(wrenches, view.Of(line), slack);
  if (!weights) return std::nullopt;
  Balance balance = FromWeights(others.empty() ? Wrench{line.c, line.s, 0} : *weights, view, slack);
  if (balance.lm != 1) MakePositive(balance);
  balance.title =
      balance.lm == 1 ? PointTitle(balance, body, others, view.measure) : DirectionTitle(balance, body, others);
  return balance;
}

double AloneValue(const HandEquation& equation) { return -equation.known / equation.unknowns.front().factor; }

} // namespace strutwright
