#pragma once

#include "FreeBody.h"

#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// One way to add up the forces on a body: their parts along a direction, or their moments about a point.
struct Balance {
  double lx = 0; ///< weight of the part along x
  double ly = 0; ///< weight of the part along y
  double lm = 0; ///< weight of the moment about (x, y), positive where it turns anticlockwise
  double x = 0;  ///< m
  double y = 0;
  std::string title; ///< "Sum of x", "Moment about node 4"
};

/// An unknown force in an equation.
struct EquationTerm {
  int force = 0;     ///< index in the free body
  double factor = 0; ///< what it is multiplied with
};

/// One equation of equilibrium: the sum of the unknown terms and `known` is zero.
struct HandEquation {
  std::string title;                  ///< what is added up
  std::string text;                   ///< "0.8 F3 - F4 + 0.6 (-12.5) = 0"
  std::vector<EquationTerm> unknowns; ///< none where it is a check
  double known = 0;                   ///< what the known forces add up to, kN or kN m
  std::string solution;               ///< "F4 = 10 kN (tension)"; empty where it takes more than this equation
};

/// The sums of x and of y, and the moment about a point.
Balance SumOfX();
Balance SumOfY();
Balance MomentAbout(double x, double y, const std::string& place);

/// What a force of 1 kN along a line adds.
double FactorOf(const Balance& balance, const ForceLine& line);

/// Writes an equation with the numbers of the known forces put in.
/// alone: the force (index in the body) that is known to be the only unknown one in it; any may be where it is -1.
HandEquation WriteEquation(const Balance& balance, const FreeBody& body, int alone = -1);

/// The equation in which, of all unknown forces of the body, one stands alone: about the crossing of the others, across
/// those that are parallel, or across the only other one.  Nothing where that force goes through the same point, is
/// parallel too, or where the others have neither in common.
std::optional<Balance> StandsAlone(const FreeBody& body, int force);

/// The force that an equation with one unknown gives, kN.
double AloneValue(const HandEquation& equation);

} // namespace strutwright
