// How long each step from a stored model to its answers takes, for Pratt trusses of 10, 100 and 1000 nodes.

#include "AnalysisState.h"
#include "LongWork.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "Platform.h"
#include "SilentBoxes.h"
#include "modAnalysis.h"
#include "modModelFile.h"
#include "modModelStore.h"
#include "modSolver.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

/// Sets the process up with a Pratt truss of so many nodes, in the tables and in the grids.
void Prepare(const benchmark::State& state) {
  static SilentBoxes boxes;
  static NativeFileSystem disk;
  ThePlatform() = {.messages = &boxes, .files = &disk};
  SetModel(PrattTruss(static_cast<int>(state.range(0))));
  DofCount = static_cast<std::int16_t>(2 * NodeCount);
}

class ScratchFile {
 public:
  ScratchFile()
      : Path((std::filesystem::temp_directory_path() / ("strutwright-bench-" + std::to_string(getpid()))).string()) {}
  ~ScratchFile() { std::filesystem::remove(Path); }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const std::string Path;
};

void Read(benchmark::State& state) {
  Prepare(state);
  const ScratchFile file;
  SaveModelFile(file.Path);
  for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(LoadModelFile(file.Path));
}

void Write(benchmark::State& state) {
  Prepare(state);
  const ScratchFile file;
  for ([[maybe_unused]] auto step : state) SaveModelFile(file.Path);
}

void RebuildFromGrids(benchmark::State& state) {
  Prepare(state);
  for ([[maybe_unused]] auto step : state) RebuildModelFromGrids();
}

void Assembly(benchmark::State& state) {
  Prepare(state);
  AllocateAnalysisArrays();
  for ([[maybe_unused]] auto step : state) AssembleGlobalStiffness(GlobalStiffness);
}

void Solve(benchmark::State& state) {
  Prepare(state);
  AllocateAnalysisArrays();
  AssembleGlobalStiffness(GlobalStiffness);
  BuildLoadVector(LoadVector);
  ApplySupports(GlobalStiffness, LoadVector, Reactions, FixedDof);
  for ([[maybe_unused]] auto step : state) {
    LongWork work("Solving");
    const SolveOutcome outcome = SolveEquations(GlobalStiffness, Displacements, LoadVector, work);
    if (outcome != SolveOutcome::Solved) state.SkipWithError("the truss should be stable");
  }
}

void WholeAnalysis(benchmark::State& state) {
  Prepare(state);
  for ([[maybe_unused]] auto step : state) {
    if (AnalyseTruss() != AnalysisEnd::Done) state.SkipWithError("the truss should be stable");
  }
}

void Sizes(benchmark::internal::Benchmark* each) {
  each->Arg(10)->Arg(100)->Arg(1000)->ArgName("nodes")->Unit(benchmark::kMicrosecond);
}

BENCHMARK(Read)->Apply(Sizes);
BENCHMARK(Write)->Apply(Sizes);
BENCHMARK(RebuildFromGrids)->Apply(Sizes);
BENCHMARK(Assembly)->Apply(Sizes);
BENCHMARK(Solve)->Apply(Sizes);
BENCHMARK(WholeAnalysis)->Apply(Sizes);

} // namespace
} // namespace strutwright

BENCHMARK_MAIN();
