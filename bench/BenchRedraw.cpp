// How long a redraw of a large model with every layer takes on the surface that the truss display shows, at rest and
// while the view is dragged.

#include "AnalysisState.h"
#include "DisplayState.h"
#include "ModelBuilder.h"
#include "Platform.h"
#include "QtDrawingSurface.h"
#include "WindowBench.h"
#include "modModelStore.h"
#include "modRedraw.h"
#include "modViewTransform.h"

#include <cstddef>
#include <cstdint>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr int Columns = 100;
constexpr int Rows = 50;

/// 5000 nodes on a lattice a metre wide, each with a load, and 10000 members between neighbours; supports below.
ModelData Lattice() {
  ModelData model;
  const auto node = [](int column, int row) { return static_cast<float>(row * Columns + column + 1); };
  for (int row = 0; row < Rows; ++row) {
    for (int column = 0; column < Columns; ++column) {
      model.nodes.push_back({.x = static_cast<float>(column),
                             .y = static_cast<float>(row),
                             .forceX = 0,
                             .forceY = -5,
                             .support = row == 0 ? 3.0F : 0.0F});
      const int right = (column + 1) % Columns;
      const int up = (row + 1) % Rows;
      model.members.push_back({.i = node(column, row), .j = node(right, row)});
      model.members.push_back({.i = node(column, row), .j = node(column, up)});
    }
  }
  return model;
}

/// Results of the size of real ones: their values decide only where things are drawn.
void MakeUpResults() {
  DofCount = static_cast<std::int16_t>(2 * NodeCount);
  const auto size = static_cast<std::size_t>(DofCount) + 1;
  Displacements.assign(size, 1.5F);
  Reactions.assign(size, 12.5F);
  for (int m = 1; m <= MemberCount; ++m) MemberTable(m, MemberFieldForce) = m % 2 == 0 ? 7.5F : -7.5F;
  AnalysisDone = FlagTrue;
  ShowReactions = ShowMemberForces = ShowDeflectedShape = true;
}

/// A surface with the model on it and the whole of it in view.
class Screen {
 public:
  Screen() {
    static SilentBoxes boxes;
    ThePlatform() = {.messages = &boxes};
    SetTables(Lattice());
    MakeUpResults();
    DisplaySurface = &surface;
    Draw(true);
  }
  ~Screen() { DisplaySurface = nullptr; }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  void Draw(bool zoomToExtents) {
    RedrawDisplay(&surface, zoomToExtents);
    benchmark::DoNotOptimize(surface.Image().constBits());
  }

  QtDrawingSurface surface{1600, 1000};
};

void Redraw(benchmark::State& state) {
  Screen screen;
  for ([[maybe_unused]] auto step : state) screen.Draw(true);
}

/// Each step drags the view by some pixels; the argument says how many times as large as all of it the model shows.
void Pan(benchmark::State& state) {
  Screen screen;
  const double zoom = 1.0 / static_cast<double>(state.range(0));
  ZoomAbout(screen.surface, Columns / 2.0, -Rows / 2.0, zoom);
  const double pixel = screen.surface.Window().width / screen.surface.PixelWidth();
  double direction = 1;
  for ([[maybe_unused]] auto step : state) {
    PanWindow(screen.surface, 0, 0, direction * 5.3 * pixel, direction * 3.1 * pixel);
    direction = -direction;
    screen.Draw(false);
  }
  state.counters["frames per second"] = benchmark::Counter(1, benchmark::Counter::kIsIterationInvariantRate);
}

BENCHMARK(Redraw)->Unit(benchmark::kMillisecond);
BENCHMARK(Pan)->Arg(1)->Arg(2)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  return strutwright::RunBenchmarks(argc, argv);
}
