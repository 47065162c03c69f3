#include "OccupiedPlane.h"

#include <cmath>

namespace strutwright {

namespace {

constexpr double MinCell = 24;     // pixels
constexpr double CellsPerItem = 4; // at most
constexpr double CellsAtLeast = 1024;

} // namespace

OccupiedPlane::OccupiedPlane(const Bounds& area, std::size_t expected) : Area(area) {
  const double width = std::max(area.Width(), 1.0);
  const double height = std::max(area.Height(), 1.0);
  const double most = CellsPerItem * static_cast<double>(expected) + CellsAtLeast;
  CellSize = std::max({MinCell, std::sqrt(width * height / most), width / most, height / most});
  PerPixel = 1 / CellSize;
  Columns = static_cast<int>(width / CellSize) + 1;
  Rows = static_cast<int>(height / CellSize) + 1;
  First.assign(static_cast<std::size_t>(Columns) * static_cast<std::size_t>(Rows), None);
  Items.reserve(expected);
  Reaches.reserve(expected);
  Tried.reserve(expected);
  Entries.reserve(4 * expected);
}

void OccupiedPlane::AddTo(int row, double left, double right, std::uint32_t item) {
  const int last = ColumnOf(right);
  for (int column = ColumnOf(left); column <= last; ++column) {
    std::uint32_t& first =
        First[static_cast<std::size_t>(row) * static_cast<std::size_t>(Columns) + static_cast<std::size_t>(column)];
    Entries.push_back({item, first});
    first = static_cast<std::uint32_t>(Entries.size() - 1);
  }
}

/// In each row of cells only the part of the box that lies in it: a long member stands in few cells.
std::size_t OccupiedPlane::Add(const OccupiedBox& item) {
  const auto index = static_cast<std::uint32_t>(Items.size());
  Items.push_back(item);
  Tried.push_back(0);
  const TurnedBox& box = item.box;
  const Bounds bounds = BoundsOf(box);
  Reaches.push_back(bounds);
  const int last = RowOf(bounds.bottom);
  const int first = RowOf(bounds.top);
  // The box's middle line in a row, widened by what the box stands off it across.
  const double slope = std::fabs(box.along.y) > 1e-9 ? box.along.x / box.along.y : 0;
  const double reach = box.halfHeight * (std::fabs(box.along.y) + std::fabs(slope * box.along.x));
  for (int row = first; row <= last; ++row) {
    if (first == last || slope == 0) {
      AddTo(row, bounds.left, bounds.right, index);
      continue;
    }
    const double top = Area.top + row * CellSize;
    const double x1 = box.centre.x + slope * (std::max(top, bounds.top) - box.centre.y);
    const double x2 = box.centre.x + slope * (std::min(top + CellSize, bounds.bottom) - box.centre.y);
    AddTo(row, std::max(std::min(x1, x2) - reach, bounds.left), std::min(std::max(x1, x2) + reach, bounds.right),
          index);
  }
  return index;
}

} // namespace strutwright
