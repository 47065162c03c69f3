#pragma once

#include "ModelBuilder.h"

#include <cstdint>
#include <random>

namespace strutwright {

/// A Warren girder of triangles, numbered along the span: lower and upper nodes in turn.
/// nodes: 3 or more.  Loads on the lower chord; a pin at its first node, then a roller every `baysToSupport` bays and
/// at its last node.  All members alike.
ModelData WarrenGirder(int nodes, int baysToSupport = 10);

/// A panel of squares with one diagonal each, twice as wide as high, numbered column after column; held along its
/// lower edge and loaded on its upper one.  nodes: about a multiple of 2 k^2; the last column may be short.
ModelData TriangulatedPanel(int nodes);

/// A determinate compound girder: strips of triangles in a row, each joined to the next by a hinge at the bottom and by
/// a tie between their middles.  Numbered along the span, the ties last; a load on each lower node.
/// members: about so many; 2 strips or more.
ModelData TiedStrips(int members);

/// The same truss with its nodes in another order.
/// order: the old numbers, counted from 0, in their new order.
ModelData Renumbered(const ModelData& model, const std::vector<int>& order);

/// Orders for Renumbered: first every node of even number counted from 0, then the others: of a girder the lower chord
/// and then the upper; and any order at all.
std::vector<int> ChordsOrder(int nodes);
std::vector<int> RandomOrder(int nodes, std::mt19937& random);

/// A whole number from 0 on and below `limit`.  Unlike the distributions of the standard library it gives the same on
/// every system.
int Below(int limit, std::mt19937& random);

} // namespace strutwright
