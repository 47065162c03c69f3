#pragma once

#include "PlaceFinder.h"

#include <cstddef>
#include <vector>

namespace strutwright {

/// A straight piece between two places of a PlaceFinder.
struct Piece {
  std::size_t from = 0;
  std::size_t to = 0;
  std::size_t line = 0; ///< the line that it is, or is a part of
};

/// Parts pieces where they cross and where one ends on another, in the order of the pieces.
/// places: gets the crossings; tolerance: its own.
/// Throws ImportError where there would be more pieces than a model has members.
std::vector<Piece> SplitAtCrossings(const std::vector<Piece>& pieces, PlaceFinder& places, double tolerance);

} // namespace strutwright
