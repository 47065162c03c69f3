// What the inner loops of the solver reach on data in the first-level cache, and what is left of it when a matrix that
// is full gets solved.

#include "Kernel.h"
#include "LongWork.h"
#include "Platform.h"
#include "TiledSolver.h"
#include "modSolver.h"

#include <array>
#include <cstddef>
#include <random>
#include <stdexcept>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr int FullFreedoms = 2000;

const Kernel* KernelNumber(benchmark::State& state) {
  const auto number = static_cast<std::size_t>(state.range(0));
  if (number < Kernels().size()) {
    state.SetLabel(Kernels()[number].name);
    return &Kernels()[number];
  }
  state.SkipWithError("this processor has no such kernel");
  return nullptr;
}

struct Operands {
  alignas(64) std::array<float, TileSize> tile{};
  alignas(64) std::array<double, std::size_t{TileRows} * PanelWidth> factors{};
  alignas(64) std::array<double, std::size_t{PanelWidth} * TileColumns> pivotRows{};
};

void CountUpdates(benchmark::State& state, double updates) {
  state.counters["updates/s"] = benchmark::Counter(updates, benchmark::Counter::kIsIterationInvariantRate);
}

void InFirstLevelCache(benchmark::State& state) {
  const Kernel* kernel = KernelNumber(state);
  if (kernel == nullptr) return;
  Operands operands;
  operands.tile.fill(1.0F);
  operands.factors.fill(0.25);
  for (std::size_t at = 0; at < operands.pivotRows.size(); ++at) operands.pivotRows[at] = at % 2 == 0 ? 0.1 : -0.1;
  const TileUpdate one{operands.tile.data(), operands.factors.data(), ~std::uint64_t{0}};
  for ([[maybe_unused]] auto step : state) {
    benchmark::DoNotOptimize(kernel->UpdateTile(one, operands.pivotRows.data()));
  }
  CountUpdates(state, 1.0 * PanelWidth * TileSize);
}

/// A full matrix with a heavy diagonal.
TiledMatrix FullEquations() {
  std::mt19937 random(1);
  TiledMatrix K(FullFreedoms);
  for (int row = 1; row <= FullFreedoms; ++row) {
    for (int column = 1; column <= FullFreedoms + 1; ++column) {
      K(row, column) = static_cast<float>(random() % 1000 + 1) / 1000.0F + (row == column ? FullFreedoms : 0.0F);
    }
  }
  return K;
}

void InDenseFill(benchmark::State& state) {
  const Kernel* kernel = KernelNumber(state);
  if (kernel == nullptr) return;
  std::vector<float> D(FullFreedoms + 1);
  for ([[maybe_unused]] auto step : state) {
    state.PauseTiming();
    TiledMatrix K = FullEquations();
    LongWork work("Solving");
    state.ResumeTiming();
    if (SolveTiled(K, D, PivotTolerance, *kernel, work) != Solution::Found)
      state.SkipWithError("the matrix should be sound");
  }
  const double n = FullFreedoms;
  CountUpdates(state, n * n * n / 3);
}

BENCHMARK(InFirstLevelCache)->DenseRange(0, 2)->ArgName("kernel");
BENCHMARK(InDenseFill)->DenseRange(0, 2)->ArgName("kernel")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright
