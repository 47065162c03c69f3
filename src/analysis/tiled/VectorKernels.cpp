#include "VectorKernels.h"

#include "TiledMatrix.h"

#if defined(__x86_64__)

#include <immintrin.h>

// A function that uses more than the baseline instructions says so itself, so that nothing else in the program comes
// to need them.  Fused multiply-add is never asked for: it would leave out a rounding.
#define STRUTWRIGHT_AVX2 __attribute__((target("avx2")))
#define STRUTWRIGHT_AVX512 __attribute__((target("avx512f")))

namespace strutwright {

namespace {

constexpr int NegativeZero = static_cast<int>(0x80000000U);

// Each routine does what its namesake in Kernel.cpp does, so many entries at a time.

/// The entries at the end of a column that are too few for a vector.
void UpdateRest(float* column, const double* factors, double pivotRowEntry, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    column[i] = static_cast<float>(static_cast<double>(column[i]) - pivotRowEntry * factors[i]);
  }
}

namespace avx2 {

STRUTWRIGHT_AVX2 inline __m128 Updated(__m128 x, __m256d f, __m256d u) {
  return _mm256_cvtpd_ps(_mm256_sub_pd(_mm256_cvtps_pd(x), _mm256_mul_pd(u, f)));
}

STRUTWRIGHT_AVX2 inline bool HasNegativeZero(const float* tile) {
  __m256i found = _mm256_setzero_si256();
  for (int at = 0; at < TileSize; at += 8) {
    const __m256i entries = _mm256_castps_si256(_mm256_load_ps(tile + at));
    found = _mm256_or_si256(found, _mm256_cmpeq_epi32(entries, _mm256_set1_epi32(NegativeZero)));
  }
  return _mm256_movemask_epi8(found) != 0;
}

STRUTWRIGHT_AVX2 bool UpdateTile(const TileUpdate& update, const double* pivotRows) {
  for (std::uint64_t pivots = update.pivots; pivots != 0; pivots &= pivots - 1) {
    const std::ptrdiff_t j = __builtin_ctzll(pivots);
    const double* f = update.factors + TileRows * j;
    const double* u = pivotRows + TileColumns * j;
    for (int q = 0; q < TileColumns; q += 4) {
      const __m256d uq = _mm256_load_pd(u + q);
      for (std::ptrdiff_t r = 0; r < TileRows; ++r) {
        float* x = TileRow(update.tile, r) + q;
        _mm_store_ps(x, Updated(_mm_load_ps(x), _mm256_broadcast_sd(f + r), uq));
      }
    }
  }
  return HasNegativeZero(update.tile);
}

STRUTWRIGHT_AVX2 void UpdateColumn(float* column, const double* factors, double pivotRowEntry, std::size_t count) {
  const __m256d u = _mm256_set1_pd(pivotRowEntry);
  std::size_t i = 0;
  for (; i + 4 <= count; i += 4) {
    _mm_storeu_ps(column + i, Updated(_mm_loadu_ps(column + i), _mm256_loadu_pd(factors + i), u));
  }
  UpdateRest(column + i, factors + i, pivotRowEntry, count - i);
}

} // namespace avx2

namespace avx512 {

STRUTWRIGHT_AVX512 inline __m256 Updated(__m256 x, __m512d f, __m512d u) {
  return _mm512_cvtpd_ps(_mm512_sub_pd(_mm512_cvtps_pd(x), _mm512_mul_pd(u, f)));
}

/// Takes one pivot from a tile; factors, pivotRow: those of the pivot.
STRUTWRIGHT_AVX512 inline void TakePivot(float* tile, const double* factors, const double* pivotRow) {
  const __m512d u0 = _mm512_load_pd(pivotRow);
  const __m512d u1 = _mm512_load_pd(pivotRow + 8);
  for (std::ptrdiff_t r = 0; r < TileRows; ++r) {
    const __m512d f = _mm512_set1_pd(factors[r]);
    float* row = TileRow(tile, r);
    _mm256_store_ps(row, Updated(_mm256_load_ps(row), f, u0));
    _mm256_store_ps(row + 8, Updated(_mm256_load_ps(row + 8), f, u1));
  }
}

STRUTWRIGHT_AVX512 bool UpdateTile(const TileUpdate& update, const double* pivotRows) {
  float* tile = update.tile;
  const double* factors = update.factors;
  for (std::uint64_t pivots = update.pivots; pivots != 0; pivots &= pivots - 1) {
    const std::ptrdiff_t j = __builtin_ctzll(pivots);
    TakePivot(tile, factors + TileRows * j, pivotRows + TileColumns * j);
  }
  return avx2::HasNegativeZero(tile);
}

STRUTWRIGHT_AVX512 void UpdateColumn(float* column, const double* factors, double pivotRowEntry, std::size_t count) {
  const __m512d u = _mm512_set1_pd(pivotRowEntry);
  std::size_t i = 0;
  for (; i + 8 <= count; i += 8) {
    _mm256_storeu_ps(column + i, Updated(_mm256_loadu_ps(column + i), _mm512_loadu_pd(factors + i), u));
  }
  UpdateRest(column + i, factors + i, pivotRowEntry, count - i);
}

} // namespace avx512

} // namespace

std::vector<Kernel> VectorKernels() {
  std::vector<Kernel> kernels;
  if (__builtin_cpu_supports("avx512f")) {
    kernels.push_back({"AVX-512", avx512::UpdateTile, avx512::UpdateColumn});
  }
  if (__builtin_cpu_supports("avx2")) {
    kernels.push_back({"AVX2", avx2::UpdateTile, avx2::UpdateColumn});
  }
  return kernels;
}

} // namespace strutwright

#else

namespace strutwright {

std::vector<Kernel> VectorKernels() { return {}; }

} // namespace strutwright

#endif
