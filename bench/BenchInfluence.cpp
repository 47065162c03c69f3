// How long influence lines take: of a bridge of 30 bays for every member, and a line and a train on 4999 nodes.

#include "LargeModels.h"
#include "modInfluence.h"
#include "modModelStore.h"
#include "modPath.h"
#include "modTrain.h"

#include <vector>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr int Bays = 30;

Quantity ForceOf(int member) { return {QuantityKind::MemberForce, member, false}; }

/// From the model in the tables to the lines of all its members.
void AllMembersOf30Bays(benchmark::State& state) {
  SetTables(PrattTruss(2 * (Bays + 1)));
  const std::vector<int> path = ProposePath();
  for ([[maybe_unused]] auto step : state) {
    const InfluenceLines lines;
    for (int m = 1; m <= MemberCount; ++m) benchmark::DoNotOptimize(lines.LineOf(ForceOf(m), path));
  }
  state.counters["members"] = MemberCount;
  state.counters["path"] = static_cast<double>(path.size());
}

/// The same with a train over each line, both ways.
void AllEnvelopesOf30Bays(benchmark::State& state) {
  SetTables(PrattTruss(2 * (Bays + 1)));
  const std::vector<int> path = ProposePath();
  const Train train = ReadTrain("engine").train;
  for ([[maybe_unused]] auto step : state) {
    const InfluenceLines lines;
    for (int m = 1; m <= MemberCount; ++m) benchmark::DoNotOptimize(EnvelopeOf(train, lines.LineOf(ForceOf(m), path)));
  }
}

void FactorsOf4999Nodes(benchmark::State& state) {
  SetTables(WarrenGirder(4999));
  for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(InfluenceLines().Fault().size());
}

void OneLineOf4999Nodes(benchmark::State& state) {
  SetTables(WarrenGirder(4999));
  const std::vector<int> path = ProposePath();
  const InfluenceLines lines;
  for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(lines.LineOf(ForceOf(5000), path));
}

void OneEnvelopeOf4999Nodes(benchmark::State& state) {
  SetTables(WarrenGirder(4999));
  const InfluenceLine line = InfluenceLines().LineOf(ForceOf(5000), ProposePath());
  const Train train = ReadTrain("engine").train;
  for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(EnvelopeOf(train, line));
}

BENCHMARK(AllMembersOf30Bays)->Unit(benchmark::kMillisecond);
BENCHMARK(AllEnvelopesOf30Bays)->Unit(benchmark::kMillisecond);
BENCHMARK(FactorsOf4999Nodes)->Unit(benchmark::kMillisecond);
BENCHMARK(OneLineOf4999Nodes)->Unit(benchmark::kMillisecond);
BENCHMARK(OneEnvelopeOf4999Nodes)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright

BENCHMARK_MAIN();
