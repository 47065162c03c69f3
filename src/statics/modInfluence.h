#pragma once

#include "RefinedSolution.h"

#include <string>
#include <vector>

namespace strutwright {

enum class QuantityKind { MemberForce, Reaction, Displacement };

/// What an influence line is of.
struct Quantity {
  QuantityKind kind = QuantityKind::MemberForce;
  int number = 0;      ///< of the member or the node
  bool alongY = false; ///< the direction of a reaction or a displacement

  bool operator==(const Quantity&) const = default;
};

/// What is wrong with a quantity of the model in the tables, in one sentence without a full stop that says what to do;
/// empty where nothing is.
std::string QuantityFault(const Quantity& quantity);

/// "Force of member 7", "Reaction of node 1 in y", "Displacement of node 4 in x".
std::string QuantityName(const Quantity& quantity);

/// "kN" for forces and reactions, "mm" for displacements: the unit under a load; an ordinate is that for each kN.
std::string QuantityUnit(const Quantity& quantity);

/// The value of a quantity for a load of 1 kN downward at each node of a path, the truss being loaded by nothing else.
/// Between the nodes it is a straight line, as where stringers carry a deck from node to node.
struct InfluenceLine {
  std::vector<int> nodes;     ///< the path
  std::vector<double> x;      ///< m, of its nodes
  std::vector<double> values; ///< kN or mm per kN: tension positive, reactions and displacements with x right and y up
  double uncertainty = 1;     ///< relative to the largest deflection that the line was computed from

  /// Whether the digits that the command line prints are right.
  bool IsSure() const { return uncertainty <= 1e-9; }
};

/// Influence lines of the model as it was in the tables when this was made.  Its loads and its prestress play no part.
/// The equations are factorised once; a line takes one solution, whatever the length of its path.
/// Source: docs/method.md, 16.
class InfluenceLines {
 public:
  InfluenceLines();

  /// Why there are no influence lines, in one sentence without a full stop: no truss, or one that is not stable.
  /// Empty where there are.
  const std::string& Fault() const { return Reason; }

  /// A line of a truss that has them.  Path and quantity must have no fault.
  InfluenceLine LineOf(const Quantity& quantity, const std::vector<int>& path) const;

  /// The truss, its prestress left out, for loads of any kind.
  const FactoredTruss& Solver() const { return Factored; }

 private:
  std::string Reason;
  FactoredTruss Factored;
};

} // namespace strutwright
