// How long the equations view takes for a truss of 5000 nodes: a press, and what a repaint asks of it.

#include "EquationsState.h"
#include "ModelBuilder.h"
#include "Platform.h"
#include "SilentBoxes.h"
#include "modEquationCells.h"
#include "modEquationSteps.h"
#include "modEquationTexts.h"

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr int Nodes = 5000;

void Prepare() {
  static SilentBoxes boxes;
  ThePlatform() = {.messages = &boxes};
  TheEquations = EquationsState{};
  SetModel(PrattTruss(Nodes));
}

void ShowGlobalK(benchmark::State& state) {
  Prepare();
  for ([[maybe_unused]] auto step : state) {
    StepShowGlobalK();
    state.PauseTiming();
    StepBack();
    state.ResumeTiming();
  }
}

void AddMember(benchmark::State& state) {
  Prepare();
  StepAddMember();
  for ([[maybe_unused]] auto step : state) StepAddMember();
}

void Restrict(benchmark::State& state) {
  Prepare();
  StepShowGlobalK();
  for ([[maybe_unused]] auto step : state) {
    StepRestrict();
    state.PauseTiming();
    StepBack();
    state.ResumeTiming();
  }
}

void Solve(benchmark::State& state) {
  Prepare();
  StepShowGlobalK();
  StepRestrict();
  for ([[maybe_unused]] auto step : state) {
    StepSolve();
    if (TheEquations.page.lastStep != EquationStep::Solve) state.SkipWithError("the truss should be stable");
  }
}

/// Texts and tints of as many cells as a large screen shows, in the far corner.
void FarCorner(benchmark::State& state) {
  constexpr int Rows = 60;
  constexpr int Columns = 30;
  Prepare();
  StepShowGlobalK();
  for ([[maybe_unused]] auto step : state) {
    for (int row = EquationRowCount() - Rows; row < EquationRowCount(); ++row) {
      for (int column = EquationRowCount() - Columns; column < EquationRowCount(); ++column) {
        benchmark::DoNotOptimize(EquationCell(EquationGrid::Stiffness, row, column));
        benchmark::DoNotOptimize(EquationTint(EquationGrid::Stiffness, row, column));
      }
    }
  }
}

void Origin(benchmark::State& state) {
  Prepare();
  StepShowGlobalK();
  const int last = EquationRowCount() - 1;
  for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(CellOrigin(last, last));
}

BENCHMARK(ShowGlobalK)->Unit(benchmark::kMillisecond);
BENCHMARK(AddMember)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(Restrict)->Unit(benchmark::kMillisecond);
BENCHMARK(Solve)->Unit(benchmark::kMillisecond);
BENCHMARK(FarCorner)->Unit(benchmark::kMillisecond);
BENCHMARK(Origin)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright

BENCHMARK_MAIN();
