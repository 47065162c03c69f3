#pragma once

#include "FreeBody.h"
#include "modBalance.h"

#include <string>
#include <vector>

namespace strutwright {

/// A stroke that cuts the truss in two, from one point to another, in m.
struct SectionStroke {
  double x0 = 0;
  double y0 = 0;
  double x1 = 0;
  double y1 = 0;
};

/// A part of the truss cut free, and what it shows of the members that were cut.
struct HandSection {
  std::string whyNot;                  ///< why there is no such section, and what to do; empty where there is one
  std::vector<int> cut;                ///< numbers of the cut members, ascending
  FreeBody body;                       ///< the part with fewer forces; the cut members are unknown
  std::vector<HandEquation> equations; ///< each with one force alone, in the order of the forces
  std::vector<double> values;          ///< of these forces, kN
  std::vector<int> open;               ///< forces (indices in the body) that no equation has alone
  std::string remark;                  ///< where more than three forces are unknown: which are found, which are not
};

/// The section through everything that joins some nodes to the others.  nodes: ascending.
/// `forces` says what is known before; equations are made for the rest.
HandSection SectionAround(const HandTruss& truss, const std::vector<int>& nodes, const HandForces& forces);

/// The section along a stroke.  Of `forces` only the reactions are taken as known: every cut member is asked for.
/// nearness: how close a node counts as hit, in m.  Source: docs/method.md, 13.
HandSection SectionAlong(const HandTruss& truss, const SectionStroke& stroke, const HandForces& forces,
                         double nearness = 0);

} // namespace strutwright
