// How long a whole analysis takes and what memory it needs, by size and numbering, beside general solvers in double
// precision on the same equations.

#include "AnalysisState.h"
#include "GeneralSolvers.h"
#include "HeapUse.h"
#include "LargeModels.h"
#include "Platform.h"
#include "WindowlessHost.h"
#include "modAnalysis.h"
#include "modModelStore.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

/// Shows nothing: a benchmark's models are sound.
class SilentDesktop : public MessageBoxes, public WindowlessHost {
 public:
  void Show(const Message& message) override { throw std::runtime_error(message.text); }
  bool Ask(const Message& question) override { throw std::runtime_error(question.text); }
};

constexpr std::uint32_t Seed = 1;
constexpr double Megabyte = 1e6;
constexpr int Repetitions = 5;

enum Numbering : int { Banded, Chords, Random, PanelRandom };

ModelData ModelOf(int numbering, int nodes) {
  std::mt19937 random(Seed);
  if (numbering == Chords) return Renumbered(WarrenGirder(nodes), ChordsOrder(nodes));
  if (numbering == Random) return Renumbered(WarrenGirder(nodes), RandomOrder(nodes, random));
  if (numbering == PanelRandom) return Renumbered(TriangulatedPanel(nodes), RandomOrder(nodes, random));
  return WarrenGirder(nodes);
}

void Prepare(const benchmark::State& state) {
  static SilentDesktop desktop;
  ThePlatform() = {&desktop, &desktop, nullptr, nullptr};
  SetTables(ModelOf(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
  DofCount = static_cast<std::int16_t>(2 * NodeCount);
}

void Analyse() {
  std::int16_t ok = FlagTrue;
  AnalyseTruss(ok);
  if (ok == FlagFalse) throw std::runtime_error("the truss should be stable");
}

/// Median of the times that something takes, in ms.
double MedianTime(const std::function<void()>& something) {
  std::vector<double> times;
  for (int each = 0; each < Repetitions; ++each) {
    const auto began = std::chrono::steady_clock::now();
    something();
    times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - began).count());
  }
  std::nth_element(times.begin(), times.begin() + Repetitions / 2, times.end());
  return times[Repetitions / 2];
}

/// The equations of the model in the tables, supports and loads included.
GeneralEquations EquationsOfModel() {
  AnalysisState& state = TheAnalysis;
  const auto size = static_cast<std::size_t>(DofCount + 1);
  state.LoadVector.assign(size, 0.0F);
  state.Reactions.assign(size, 0.0F);
  state.FixedDof.assign(size, 0);
  TiledMatrix K(DofCount);
  AssembleGlobalStiffness(K);
  BuildLoadVector(LoadVector);
  ApplySupports(K, LoadVector, Reactions, FixedDof);
  return {DofCount, K.Entries(), LoadVector};
}

void Compare(benchmark::State& state) {
  const double own = MedianTime(Analyse);
  const GeneralEquations equations = EquationsOfModel();
  for (const GeneralSolver& solver : GeneralSolvers()) {
    if (!solver.suits(equations)) continue;
    const double other = MedianTime([&] { solver.solve(equations); });
    state.counters[solver.name + "_ms"] = other;
    state.counters["own/" + solver.name] = own / other;
  }
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

BENCHMARK(WholeAnalysis)->Apply(Sizes);

} // namespace
} // namespace strutwright

BENCHMARK_MAIN();
