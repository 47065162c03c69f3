#include "TiledBackSubstitution.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace strutwright {

namespace {

/// Sum of K(row, c) D(c) over c > row in ascending order, row counted from 0.  Where no tile is stored, the products
/// are zero, and a sum that began with +0 is not changed by any zero.
double SumRightOfDiagonal(const TiledMatrix& K, int row, const std::vector<double>& D) {
  const int group = row / TileRows;
  const int diagonal = row / TileColumns;
  double sum = 0.0;
  for (int word = diagonal / 64; word < K.Words(); ++word) {
    std::uint64_t bits = K.Stored(word, group);
    if (word == diagonal / 64) bits &= ~std::uint64_t{0} << (diagonal % 64);
    for (; bits != 0; bits &= bits - 1) {
      const int column = 64 * word + std::countr_zero(bits);
      const float* entries = TileRow(K.Find(group, column), row % TileRows);
      const double* factors = &D[static_cast<std::size_t>(TileColumns * column)];
      for (int c = column == diagonal ? row % TileColumns + 1 : 0; c < TileColumns; ++c) {
        sum += static_cast<double>(entries[c]) * factors[c];
      }
    }
  }
  return sum;
}

float EntryOf(const TiledMatrix& K, int row, int column, int c) {
  const float* tile = K.Find(row / TileRows, column);
  return tile == nullptr ? 0.0F : TileRow(tile, row % TileRows)[c];
}

} // namespace

// D(r) = (P(r) - sum of K(r, c) D(c) over c > r) / K(r, r).
Solution BackSubstituteTiled(const TiledMatrix& K, std::vector<float>& D) {
  std::vector<double> found(static_cast<std::size_t>(K.TileColumnCount() * TileColumns), 0.0);
  for (int row = K.Freedoms() - 1; row >= 0; --row) {
    const auto P = static_cast<double>(K.RightHandSide()[static_cast<std::size_t>(row)]);
    const auto diagonal = static_cast<double>(EntryOf(K, row, row / TileColumns, row % TileColumns));
    const auto value = static_cast<float>((P - SumRightOfDiagonal(K, row, found)) / diagonal);
    if (!std::isfinite(value)) return Solution::NotFinite;
    found[static_cast<std::size_t>(row)] = static_cast<double>(value);
  }
  for (std::size_t i = 1; i < D.size(); ++i) D[i] = static_cast<float>(found[i - 1]);
  return Solution::Found;
}

} // namespace strutwright
