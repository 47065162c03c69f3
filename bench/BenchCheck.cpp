// How long the check of an answer takes on 4999 nodes: whole, and its parts.

#include "LargeModels.h"
#include "Motions.h"
#include "RefinedSolution.h"
#include "modCheckAnswer.h"
#include "modFindings.h"
#include "modModelStore.h"

#include "AnalysisState.h"

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr int Nodes = 4999;

ModelData SpanningGirder() { return WarrenGirder(Nodes); }
ModelData LongSpan() { return WarrenGirder(Nodes, Nodes); }
ModelData Panel() { return TriangulatedPanel(Nodes); }

/// The girder without one of its members between two supports.
ModelData Broken() {
  ModelData model = SpanningGirder();
  model.members.erase(model.members.begin() + 21, model.members.begin() + 25);
  return model;
}

/// Results of zero stand in for those of an analysis: the check takes as long with any.
void Prepare(const ModelData& model) {
  SetTables(model);
  Displacements.assign(2 * model.nodes.size() + 1, 0.0F);
  Reactions = Displacements;
}

template <ModelData (*Model)()>
void Check(benchmark::State& state) {
  Prepare(Model());
  for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(CheckAnswer(AnalysisOutcome::Done));
}

template <ModelData (*Model)()>
void Rank(benchmark::State& state) {
  Prepare(Model());
  const CheckedTruss truss = ReadTruss();
  for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(FindMotions(truss, 1));
}

template <ModelData (*Model)()>
void RefineOnly(benchmark::State& state) {
  Prepare(Model());
  const CheckedTruss truss = ReadTruss();
  for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(Refine(truss));
}

template <ModelData (*Model)()>
void Findings(benchmark::State& state) {
  Prepare(Model());
  const CheckedTruss truss = ReadTruss();
  for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(FindOddities(truss));
}

BENCHMARK(Check<SpanningGirder>)->Unit(benchmark::kMillisecond);
BENCHMARK(Rank<SpanningGirder>)->Unit(benchmark::kMillisecond);
BENCHMARK(RefineOnly<SpanningGirder>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<SpanningGirder>)->Unit(benchmark::kMillisecond);
BENCHMARK(Check<LongSpan>)->Unit(benchmark::kMillisecond);
BENCHMARK(Rank<LongSpan>)->Unit(benchmark::kMillisecond);
BENCHMARK(Check<Panel>)->Unit(benchmark::kMillisecond);
BENCHMARK(Rank<Panel>)->Unit(benchmark::kMillisecond);
BENCHMARK(RefineOnly<Panel>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<Panel>)->Unit(benchmark::kMillisecond);
BENCHMARK(Check<Broken>)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright

BENCHMARK_MAIN();
