#include "Kernel.h"

#include "FloatBits.h"
#include "TiledMatrix.h"
#include "VectorKernels.h"

#include <algorithm>
#include <cstddef>

namespace strutwright {

namespace {

float Updated(float x, double f, double u) { return static_cast<float>(static_cast<double>(x) - u * f); }

bool UpdateTile(const TileUpdate& update, const double* pivotRows) {
  float* tile = update.tile;
  for (std::uint64_t pivots = update.pivots; pivots != 0; pivots &= pivots - 1) {
    const std::ptrdiff_t j = std::countr_zero(pivots);
    const double* u = pivotRows + TileColumns * j;
    for (std::ptrdiff_t r = 0; r < TileRows; ++r) {
      const double f = update.factors[TileRows * j + r];
      float* row = TileRow(tile, r);
      for (int c = 0; c < TileColumns; ++c) row[c] = Updated(row[c], f, u[c]);
    }
  }
  return std::any_of(tile, tile + TileSize, [](float x) { return BitsOfFloat(x) == NegativeZeroBits; });
}

void UpdateColumn(float* column, const double* factors, double pivotRowEntry, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) column[i] = Updated(column[i], factors[i], pivotRowEntry);
}

std::vector<Kernel> KernelsOfThisProcessor() {
  std::vector<Kernel> kernels = VectorKernels();
  kernels.push_back({"plain", UpdateTile, UpdateColumn});
  return kernels;
}

} // namespace

const std::vector<Kernel>& Kernels() {
  static const std::vector<Kernel> kernels = KernelsOfThisProcessor();
  return kernels;
}

} // namespace strutwright
