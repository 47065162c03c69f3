#pragma once

#include "EquilibriumMatrix.h"
#include "HandTruss.h"

#include <string>
#include <vector>

namespace strutwright {

/// What equilibrium can do with a truss.
enum class TrussKind {
  Empty,         ///< there is no node
  Mechanism,     ///< it can move without stretching a member
  Simple,        ///< determinate; joint after joint has at most two unknown forces
  Compound,      ///< determinate; simple parts joined to one body by hinges and bars
  Complex,       ///< determinate, and neither
  Indeterminate, ///< equilibrium leaves some forces open
};

/// The verdict on a truss by count and by rank.
struct Determinacy {
  TrussKind kind = TrussKind::Empty;
  int nodes = 0;                ///< n
  int members = 0;              ///< b, those that count
  int reactions = 0;            ///< r, restrained freedoms
  int degree = 0;               ///< forces that equilibrium leaves open, b + r - 2n; above 0 only where indeterminate
  int motions = 0;              ///< independent ones of a mechanism
  std::vector<double> motion;   ///< one of them (0..2 nodes), its largest entry 1; empty where there is none
  std::vector<int> movingNodes; ///< nodes that move in any of the first of them, ascending
  std::string sentence;         ///< count, verdict and reason

  bool IsDeterminate() const {
    return kind == TrussKind::Simple || kind == TrussKind::Compound || kind == TrussKind::Complex;
  }
};

/// The equations of the joints, one for each freedom that no support holds, the member forces unknown.
/// A tension F pulls both of its nodes:  A F + P = 0.
struct JointEquations {
  std::vector<int> rowOf;            ///< of each freedom (0..2 nodeCount); -1 where it is restrained
  int rows = 0;                      ///< number of equations
  std::vector<SparseColumn> columns; ///< of each member, by index in the truss
};

JointEquations EquationsOfJoints(const HandTruss& truss);

/// Judges count and rank.  Determinate is what has b + r = 2n and full rank; what is free, or not free, only because
/// its coordinates were rounded to 32 bits counts as free.  A node without member can move wherever nothing holds it.
/// Source: docs/method.md, 11.
Determinacy JudgeDeterminacy(const HandTruss& truss);

/// "simple", "compound", "complex", "indeterminate to 2", "mechanism" or "empty".
std::string KindText(const Determinacy& determinacy);

} // namespace strutwright
