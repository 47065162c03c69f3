#pragma once

#include "PlaneGeometry.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace strutwright {

enum class Occupant : std::uint8_t { Bar, Node, Support, Arrow, Label };

/// Something in the drawing that a label must not touch.
struct OccupiedBox {
  TurnedBox box;
  Occupant kind = Occupant::Label;
  int owner = 0; ///< index of the bar, number of the node, or index of the arrow or label
};

/// What stands where, in the cells of a uniform grid: a look at a place does not meet what is far from it.
class OccupiedPlane {
 public:
  /// area: where most of it will stand; what lies beyond is found all the same, but slower.
  OccupiedPlane(const Bounds& area, std::size_t expected);

  /// Gives the item's index.
  std::size_t Add(const OccupiedBox& item);

  /// Moves an item out of everything's way.
  void Remove(std::size_t item) {
    Items[item].box = {{1e150, 1e150}, {1, 0}, 0, 0};
    Reaches[item] = {1e150, 1e150, 1e150, 1e150};
  }

  /// Whether any item whose upright bounds touch an area meets a condition; each is tried once.
  template <typename Condition>
  bool Any(const Bounds& area, Condition condition) const;

  std::size_t Count() const { return Items.size(); }
  const OccupiedBox& operator[](std::size_t item) const { return Items[item]; }

 private:
  struct Entry {
    std::uint32_t item;
    std::uint32_t next; ///< of the same cell, as index into Entries; None after the last
  };
  static constexpr std::uint32_t None = 0xFFFFFFFF;

  int ColumnOf(double x) const { return Clamped((x - Area.left) * PerPixel, Columns); }
  int RowOf(double y) const { return Clamped((y - Area.top) * PerPixel, Rows); }
  static int Clamped(double cell, int count) { return static_cast<int>(std::clamp<double>(cell, 0, count - 1)); }
  void AddTo(int row, double left, double right, std::uint32_t item);

  Bounds Area;
  double CellSize = 1;
  double PerPixel = 1; ///< cells
  int Columns = 1;
  int Rows = 1;
  std::vector<std::uint32_t> First; ///< entry of each cell, row by row
  std::vector<Entry> Entries;
  std::vector<OccupiedBox> Items;
  std::vector<Bounds> Reaches;              ///< of the items
  mutable std::vector<std::uint32_t> Tried; ///< the last look that met each item
  mutable std::uint32_t Look = 0;
};

template <typename Condition>
bool OccupiedPlane::Any(const Bounds& area, Condition condition) const {
  ++Look;
  const int right = ColumnOf(area.right);
  const int bottom = RowOf(area.bottom);
  for (int row = RowOf(area.top); row <= bottom; ++row) {
    for (int column = ColumnOf(area.left); column <= right; ++column) {
      const auto cell =
          static_cast<std::size_t>(row) * static_cast<std::size_t>(Columns) + static_cast<std::size_t>(column);
      for (std::uint32_t entry = First[cell]; entry != None; entry = Entries[entry].next) {
        const std::uint32_t item = Entries[entry].item;
        if (Tried[item] == Look) continue;
        Tried[item] = Look;
        if (Reaches[item].Touches(area) && condition(Items[item])) return true;
      }
    }
  }
  return false;
}

} // namespace strutwright
