// How long the solution by hand takes: everything, for the trusses of a lesson and for large ones; and how long its
// figures take to be placed and drawn as the window shows them.

#include "LargeModels.h"
#include "QtDrawingSurface.h"
#include "modForceDiagram.h"
#include "modHandLesson.h"
#include "modHandSolution.h"
#include "modSections.h"
#include "modSketch.h"
#include "modZeroMembers.h"

#include <cstddef>
#include <random>
#include <string>
#include <utility>

#include <QGuiApplication>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

/// A girder on two supports of about so many members.
ModelData Girder(int members) { return WarrenGirder((members + 3) / 2, members); }

/// A panel held along its lower edge: indeterminate.
ModelData Panel(int members) { return TriangulatedPanel(members / 3); }

/// A compound girder whose nodes and members are numbered in any order.
ModelData ShuffledStrips(int members) {
  std::mt19937 random(1);
  ModelData model = TiedStrips(members);
  for (std::size_t k = model.members.size() - 1; k > 0; --k) {
    std::swap(model.members[k], model.members[static_cast<std::size_t>(Below(static_cast<int>(k) + 1, random))]);
  }
  return Renumbered(model, RandomOrder(static_cast<int>(model.nodes.size()), random));
}

void Everything(benchmark::State& state, ModelData (*make)(int)) {
  SetTables(make(static_cast<int>(state.range(0))));
  for ([[maybe_unused]] auto step : state) {
    const HandTruss truss = ReadHandTruss();
    const HandSolution solution = SolveByHand(truss);
    const auto zeros = FindZeroMembers(truss);
    benchmark::DoNotOptimize(ZeroByNumbers(truss, solution.forces, zeros));
    benchmark::DoNotOptimize(DrawForceDiagram(truss, solution));
    state.SetLabel(KindText(solution.determinacy));
  }
}

/// One line right across the middle.
void Section(benchmark::State& state) {
  SetTables(Girder(static_cast<int>(state.range(0))));
  const HandTruss truss = ReadHandTruss();
  const HandSolution solution = SolveByHand(truss);
  const double x = truss.x.back() / 2 + 0.4;
  for ([[maybe_unused]] auto step : state)
    benchmark::DoNotOptimize(SectionAlong(truss, {x, -1, x, 4}, solution.forces));
}

/// The last step of a page, which shows most, on a surface as large as the window's.
void Figures(benchmark::State& state, HandTopic topic) {
  SetTables(Girder(static_cast<int>(state.range(0))));
  HandLesson lesson;
  lesson.Read();
  const int step = lesson.LastStep(topic) - (topic == HandTopic::Joints ? 1 : 0);
  QtDrawingSurface surface(590, 570);
  const auto draw = [&] {
    surface.Clear();
    DrawSheet(surface, PlaceSheet(lesson.Tell(topic, step).sheet, surface));
    benchmark::DoNotOptimize(surface.Image().constBits());
  };
  draw(); // the program's first drawing loads the fonts
  for ([[maybe_unused]] auto each : state) draw();
}

BENCHMARK_CAPTURE(Figures, Reactions, HandTopic::FirstReactions)->Arg(200)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Figures, Joints, HandTopic::Joints)->Arg(200)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Figures, Diagram, HandTopic::ForceDiagram)->Arg(200)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Everything, Girder, Girder)->Arg(200)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Everything, Panel, Panel)->Arg(200)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Everything, Compound, TiedStrips)->Arg(200)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Everything, CompoundInAnyOrder, ShuffledStrips)->Arg(200)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(Section)->Arg(200)->Arg(5000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
