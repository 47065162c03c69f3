// How long the check of an answer takes on 4999 nodes: whole, and its parts.

#include "LargeModels.h"
#include "Motions.h"
#include "RefinedSolution.h"
#include "modCheckAnswer.h"
#include "modFindings.h"
#include "modModelStore.h"

#include "AnalysisState.h"

#include <cmath>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr int Nodes = 4999;

ModelData SpanningGirder() { return WarrenGirder(Nodes); }
ModelData LongSpan() { return WarrenGirder(Nodes, Nodes); }
ModelData Panel() { return TriangulatedPanel(Nodes); }

/// The girder without four neighbouring members between two supports.
ModelData Broken() {
  ModelData model = SpanningGirder();
  model.members.erase(model.members.begin() + 21, model.members.begin() + 25);
  return model;
}

/// 70 x 70 nodes a metre apart, each square with one diagonal or with both; held along the lower edge.
ModelData Grid(bool bothDiagonals) {
  constexpr int side = 70;
  ModelData model;
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      const auto node = static_cast<float>(row * side + column + 1);
      model.nodes.push_back({static_cast<float>(column), static_cast<float>(row), 0, -1, row == 0 ? 3.0F : 0.0F});
      const bool inner = column + 1 < side && row + 1 < side;
      if (column + 1 < side) model.members.push_back({node, node + 1});
      if (row + 1 < side) model.members.push_back({node, node + side});
      if (inner) model.members.push_back({node, node + side + 1});
      if (inner && bothDiagonals) model.members.push_back({node + 1, node + side});
    }
  }
  return model;
}

ModelData SingleBracedGrid() { return Grid(false); }
ModelData CrossBracedGrid() { return Grid(true); }

/// One free node that is joined to all others, which are held around it.
ModelData Star() {
  ModelData model;
  model.nodes.push_back({0, 0, 0, -1, 0});
  for (int n = 2; n <= Nodes; ++n) {
    model.nodes.push_back({100 * std::cos(static_cast<float>(n)), 100 * std::sin(static_cast<float>(n)), 0, 0, 3});
    model.members.push_back({1, static_cast<float>(n)});
  }
  return model;
}

/// What a file opens as of which nothing but the counts is left.
ModelData AllZero() { return {std::vector<NodeData>(16383), std::vector<MemberData>(16383)}; }

ModelData AtOnePlace() { return {std::vector<NodeData>(16383), {}}; }

/// Members that all cross each other.
ModelData Mikado() {
  constexpr int sticks = 3500;
  ModelData model;
  for (int k = 0; k < sticks; ++k) model.nodes.push_back({0.01F * static_cast<float>(k), 0, 0, 0, 3});
  for (int k = 0; k < sticks; ++k) {
    model.nodes.push_back({0.01F * static_cast<float>(sticks - k) + 0.003F, 50, 0, 0, 3});
    model.members.push_back({static_cast<float>(k + 1), static_cast<float>(sticks + k + 1)});
  }
  return model;
}

ModelData RandomNodes(int nodes, std::mt19937& random) {
  ModelData model;
  const auto coordinate = [&random] { return static_cast<float>(Below(100000, random)) / 1000; };
  for (int n = 0; n < nodes; ++n) model.nodes.push_back({coordinate(), coordinate(), 0, -1, n < 2 ? 3.0F : 0.0F});
  return model;
}

/// 6000 members between any of 1000 nodes.
ModelData Tangle() {
  constexpr int nodes = 1000;
  std::mt19937 random(1);
  ModelData model = RandomNodes(nodes, random);
  for (int m = 0; m < 6000; ++m) {
    const int i = Below(nodes, random);
    const int j = (i + 1 + Below(nodes - 1, random)) % nodes;
    model.members.push_back({static_cast<float>(i + 1), static_cast<float>(j + 1)});
  }
  return model;
}

/// A member from each of 170 nodes to each other.
ModelData Complete() {
  std::mt19937 random(1);
  ModelData model = RandomNodes(170, random);
  for (int j = 2; j <= 170; ++j) {
    for (int i = 1; i < j; ++i) model.members.push_back({static_cast<float>(i), static_cast<float>(j)});
  }
  return model;
}

/// The girder and one node far away.
ModelData FarNode() {
  ModelData model = SpanningGirder();
  model.nodes.push_back({1e12F, 3e38F, 0, 0, 3});
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
BENCHMARK(Check<SingleBracedGrid>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<SingleBracedGrid>)->Unit(benchmark::kMillisecond);
BENCHMARK(Check<CrossBracedGrid>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<CrossBracedGrid>)->Unit(benchmark::kMillisecond);
BENCHMARK(Check<Star>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<Star>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<AllZero>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<AtOnePlace>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<Mikado>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<Tangle>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<Complete>)->Unit(benchmark::kMillisecond);
BENCHMARK(Findings<FarNode>)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright

BENCHMARK_MAIN();
