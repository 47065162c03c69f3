// How long a whole analysis takes and what memory it needs, by size and numbering, beside general solvers in double
// precision on the same equations.

#include "AnalysisState.h"
#include "Calculix.h"
#include "GeneralSolvers.h"
#include "HeapUse.h"
#include "LargeModels.h"
#include "Platform.h"
#include "SilentBoxes.h"
#include "modAnalysis.h"
#include "modColumns.h"
#include "modModelStore.h"
#include "modRenumbering.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/resource.h>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr std::uint32_t Seed = 1;
constexpr double Megabyte = 1e6;
constexpr std::size_t Repetitions = 5;
constexpr double LongEnough = 3000;      // ms in all, after which nothing is repeated
constexpr int LargestForCalculix = 1000; // nodes, for which it takes a second

enum Numbering : int { Banded, Chords, Random, PanelRandom };

ModelData ModelOf(int numbering, int nodes) {
  std::mt19937 random(Seed);
  if (numbering == Chords) return Renumbered(WarrenGirder(nodes), ChordsOrder(nodes));
  if (numbering == Random) return Renumbered(WarrenGirder(nodes), RandomOrder(nodes, random));
  if (numbering == PanelRandom) return Renumbered(TriangulatedPanel(nodes), RandomOrder(nodes, random));
  return WarrenGirder(nodes);
}

void Prepare(const benchmark::State& state) {
  static SilentBoxes boxes;
  ThePlatform() = {.messages = &boxes};
  SetTables(ModelOf(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
  DofCount = static_cast<std::int16_t>(2 * NodeCount);
}

void Analyse() {
  if (AnalyseTruss() != AnalysisEnd::Done) throw std::runtime_error("the truss should be stable");
}

/// What this process and those it has waited for have computed so far, in ms.  Unlike the time that passes it does not
/// show what else the machine is doing.
double ProcessorTime() {
  double sum = 0;
  for (const int whose : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
    rusage usage{};
    getrusage(whose, &usage);
    for (const timeval& part : {usage.ru_utime, usage.ru_stime}) {
      sum += 1e3 * static_cast<double>(part.tv_sec) + 1e-3 * static_cast<double>(part.tv_usec);
    }
  }
  return sum;
}

/// Median of the processor times that something takes, in ms; of what takes long, of fewer.
double MedianTime(const std::function<void()>& something) {
  std::vector<double> times;
  for (double sum = 0; times.size() < Repetitions && sum < LongEnough; sum += times.back()) {
    const double began = ProcessorTime();
    something();
    times.push_back(ProcessorTime() - began);
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

/// The equations of the model in the tables, supports and loads included.
GeneralEquations EquationsOfModel() {
  AllocateAnalysisArrays();
  AssembleGlobalStiffness(GlobalStiffness);
  BuildLoadVector(LoadVector);
  ApplySupports(GlobalStiffness, LoadVector, Reactions, FixedDof);
  GeneralEquations equations{DofCount, {}, LoadVector};
  for (int row = 1; row <= DofCount; ++row) {
    for (const StiffnessMatrix::Entry& entry : GlobalStiffness.Row(row)) {
      equations.entries.push_back({row, entry.column, entry.value});
    }
  }
  return equations;
}

void Compare(benchmark::State& state) {
  const double own = MedianTime(Analyse);
  state.counters["own_ms"] = own;
  const GeneralEquations equations = EquationsOfModel();
  for (const GeneralSolver& solver : GeneralSolvers()) {
    if (!solver.suits(equations)) continue;
    const double other = MedianTime([&] { solver.solve(equations); });
    state.counters[solver.name + "_ms"] = other;
    state.counters["own/" + solver.name] = own / other;
  }
  if (!HaveCalculix() || NodeCount > LargestForCalculix) return;
  const double calculix = MedianTime(AnalyseWithCalculix);
  state.counters["ccx_ms"] = calculix;
  state.counters["own/ccx"] = own / calculix;
}

void WholeAnalysis(benchmark::State& state) {
  Prepare(state);
  Analyse();
  const std::size_t before = HeapInUse();
  ForgetHighestHeapUse();
  Analyse();
  state.counters["MB"] = static_cast<double>(HighestHeapUse() - before) / Megabyte;
  for ([[maybe_unused]] auto step : state) Analyse();
  Compare(state);
}

void Sizes(benchmark::internal::Benchmark* each) {
  for (const int numbering : {Banded, Chords, Random, PanelRandom}) {
    for (const int nodes : {100, 200, 500, 1000, 2000, 4999}) each->Args({numbering, nodes});
  }
  each->ArgNames({"numbering(banded,chords,random,panel)", "nodes"})->Unit(benchmark::kMillisecond);
}

/// What the command that numbers the nodes along the span makes of the slowest girder.
void RenumberedChords(benchmark::State& state) {
  WriteHeadings(GrJoints, JointColumns);
  WriteHeadings(GrMembers, MemberColumns);
  Prepare(state);
  const double before = MedianTime(Analyse);
  CopyModelToGrids();
  const double began = ProcessorTime();
  RenumberNodesAlongSpan();
  const double took = ProcessorTime() - began;
  for ([[maybe_unused]] auto step : state) Analyse();
  state.counters["before_ms"] = before;
  state.counters["renumbering_ms"] = took;
}

BENCHMARK(WholeAnalysis)->Apply(Sizes);
BENCHMARK(RenumberedChords)->Args({Chords, 4999})->ArgNames({"numbering", "nodes"})->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright

BENCHMARK_MAIN();
