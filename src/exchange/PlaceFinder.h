#pragma once

#include "DxfDrawing.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace strutwright {

/// Places that are one within a tolerance, numbered from 0 in the order in which they came.
class PlaceFinder {
 public:
  /// tolerance: in the unit of the places, above 0.
  explicit PlaceFinder(double tolerance) : Tolerance(tolerance) {}

  /// The nearest place within the tolerance; nothing where there is none.
  std::optional<std::size_t> Find(DrawnPlace at) const;

  /// That place, or a new one.
  std::size_t FindOrAdd(DrawnPlace at);

  /// A place of its own, however near to another.
  std::size_t Add(DrawnPlace at);

  const std::vector<DrawnPlace>& Places() const { return All; }

 private:
  using Cell = std::pair<double, double>; ///< whole numbers, beyond those of any integer type
  struct CellHash {
    std::size_t operator()(const Cell& cell) const {
      return std::hash<double>()(cell.first) * 31 + std::hash<double>()(cell.second);
    }
  };

  Cell CellOf(DrawnPlace at) const;

  double Tolerance;
  std::vector<DrawnPlace> All;
  std::unordered_map<Cell, std::vector<std::size_t>, CellHash> Cells;
};

} // namespace strutwright
