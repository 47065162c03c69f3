#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace strutwright {

/// Pivots that are eliminated together.
inline constexpr int PanelWidth = 64;

/// A tile and what to take from it.
struct TileUpdate {
  float* tile;           ///< 4 x 16
  const double* factors; ///< 4 to each pivot, one for each row
  std::uint64_t pivots;  ///< bit j set where pivot j, 0..63, takes part
};

/// The inner loops of elimination for one kind of processor.  All kinds give the same bits: each product and each
/// difference is formed in double, each difference is rounded to a float at once, and every entry gets its updates in
/// the order of the pivots.
struct Kernel {
  const char* name;

  /// x = x - f u for every entry of a tile, for one pivot after another.  Source: docs/method.md, 5, (11).
  /// pivotRows: 16 to each pivot, one for each column.  Everything is aligned to 64 bytes.
  /// True when the tile then holds a zero with a minus sign.
  bool (*UpdateTile)(const TileUpdate& update, const double* pivotRows);

  /// The same for two different tiles, side by side: while one waits for its last difference, the other gets on.
  std::array<bool, 2> (*UpdateTwoTiles)(const TileUpdate& one, const TileUpdate& other, const double* pivotRows);

  /// x(i) = x(i) - f(i) u for i = 0..count - 1.
  void (*UpdateColumn)(float* column, const double* factors, double pivotRowEntry, std::size_t count);
};

/// A Kernel::UpdateTwoTiles that works on one after the other.
template <bool (*UpdateTile)(const TileUpdate&, const double*)>
std::array<bool, 2> UpdateInTurn(const TileUpdate& one, const TileUpdate& other, const double* pivotRows) {
  const bool first = UpdateTile(one, pivotRows);
  return {first, UpdateTile(other, pivotRows)};
}

/// The kernels that this processor can run, the fastest first; the last is plain C++.
const std::vector<Kernel>& Kernels();

} // namespace strutwright
