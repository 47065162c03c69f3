#include "PlaceFinder.h"

#include <cmath>

namespace strutwright {

PlaceFinder::Cell PlaceFinder::CellOf(DrawnPlace at) const {
  return {std::floor(at.x / Tolerance), std::floor(at.y / Tolerance)};
}

std::optional<std::size_t> PlaceFinder::Find(DrawnPlace at) const {
  std::optional<std::size_t> nearest;
  double least = Tolerance;
  const Cell middle = CellOf(at);
  for (const int right : {-1, 0, 1}) {
    for (const int up : {-1, 0, 1}) {
      const auto cell = Cells.find({middle.first + right, middle.second + up});
      if (cell == Cells.end()) continue;
      for (const std::size_t place : cell->second) {
        const double distance = std::hypot(All[place].x - at.x, All[place].y - at.y);
        const bool isNearer = distance < least || (distance == least && !nearest);
        if (!isNearer) continue;
        least = distance;
        nearest = place;
      }
    }
  }
  return nearest;
}

std::size_t PlaceFinder::FindOrAdd(DrawnPlace at) {
  const auto found = Find(at);
  return found ? *found : Add(at);
}

std::size_t PlaceFinder::Add(DrawnPlace at) {
  All.push_back(at);
  Cells[CellOf(at)].push_back(All.size() - 1);
  return All.size() - 1;
}

} // namespace strutwright
