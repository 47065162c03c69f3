#pragma once

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

  /// x(i) = x(i) - f(i) u for i = 0..count - 1.
  void (*UpdateColumn)(float* column, const double* factors, double pivotRowEntry, std::size_t count);
};

/// The kernels that this processor can run, the fastest first; the last is plain C++.
const std::vector<Kernel>& Kernels();

} // namespace strutwright
