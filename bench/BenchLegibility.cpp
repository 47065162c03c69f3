// How legible the drawing of a truss is, clear and as described, over trusses of all kinds, with the fonts of this
// machine; then how long placing the labels takes.
//
//   bench_legibility [--verbose | --times]
//
// --verbose names each truss that is not shown whole; --times only measures times.

#include "AnalysisState.h"
#include "ClearFraming.h"
#include "DisplayState.h"
#include "LargeModels.h"
#include "LegibilityCorpus.h"
#include "LegibilityCount.h"
#include "MessageBoxes.h"
#include "NativeFileSystem.h"
#include "Platform.h"
#include "QtDrawingSurface.h"
#include "modAnalysis.h"
#include "modModelStore.h"
#include "modRedraw.h"
#include "modViewTransform.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <numeric>
#include <string>
#include <vector>

#include <QGuiApplication>

namespace strutwright {
namespace {

/// Drops what is said: odd models are part of the corpus.
class Quiet : public MessageBoxes {
 public:
  void Show(const Message& /*message*/) override {}
  bool Ask(const Message& /*question*/) override { return false; }
};

struct Sum {
  int trusses = 0;
  int complete = 0; ///< with every force
  int members = 0;
  int forces = 0;
  LegibilityCount clear;
  LegibilityCount described;

  void Add(const LegibilityCount& drawn, const LegibilityCount& old) {
    ++trusses;
    complete += drawn.forces == drawn.members ? 1 : 0;
    members += drawn.members;
    forces += drawn.forces;
    clear.labels += drawn.labels;
    clear.pairs += drawn.pairs;
    clear.onSymbols += drawn.onSymbols;
    clear.nearerToOthers += drawn.nearerToOthers;
    described.labels += old.labels;
    described.pairs += old.pairs;
  }
};

void Print(const char* group, const Sum& sum) {
  std::printf("  %-34s %5d %9d %7d %6.1f %8d %6d %6d %6d | %7d %7d\n", group, sum.trusses, sum.complete, sum.members,
              sum.members > 0 ? 100.0 * sum.forces / sum.members : 100.0, sum.clear.labels, sum.clear.pairs,
              sum.clear.onSymbols, sum.clear.nearerToOthers, sum.described.labels, sum.described.pairs);
}

struct Look {
  const CorpusTruss* truss;
  LegibilityCount clear;
  LegibilityCount described;
};

void PrintGroups(const std::vector<Look>& looks) {
  const auto sum = [&](const char* name, auto belongs) {
    Sum all;
    for (const Look& look : looks) {
      if (belongs(look)) all.Add(look.clear, look.described);
    }
    Print(name, all);
  };
  const auto made = [](const Look& look) { return !look.truss->random && !look.truss->reference; };
  sum("families, examples, up to 60", [&](const Look& look) { return made(look) && look.clear.members <= 60; });
  sum("families, examples, 61 to 100",
      [&](const Look& look) { return made(look) && look.clear.members > 60 && look.clear.members <= 100; });
  sum("families, more", [&](const Look& look) { return made(look) && look.clear.members > 100; });
  sum("random, up to 60", [](const Look& look) { return look.truss->random && look.clear.members <= 60; });
  sum("random, 61 to 100",
      [](const Look& look) { return look.truss->random && look.clear.members > 60 && look.clear.members <= 100; });
  sum("random, more", [](const Look& look) { return look.truss->random && look.clear.members > 100; });
  sum("reference models", [](const Look& look) { return look.truss->reference; });
  sum("all", [](const Look&) { return true; });
}

void LookAt(const std::vector<CorpusTruss>& corpus, double width, double height, const TextMetrics& metrics,
            bool verbose) {
  std::vector<Look> looks;
  for (const CorpusTruss& truss : corpus) {
    if (OpenAnalysed(truss) == 0) continue;
    looks.push_back({&truss, CountClear(width, height, metrics), CountDescribed(width, height, metrics)});
    const LegibilityCount& clear = looks.back().clear;
    const bool faulty = clear.pairs + clear.onSymbols + clear.nearerToOthers > 0;
    if (verbose && (faulty || clear.forces < clear.members)) {
      std::printf("    %-28s %4d members, %4d forces, %d pairs, %d on symbols, %d nearer to others\n",
                  truss.name.c_str(), clear.members, clear.forces, clear.pairs, clear.onSymbols, clear.nearerToOthers);
    }
  }
  std::printf("%g x %g\n  %-34s %5s %9s %7s %6s %8s %6s %6s %6s | described:\n", width, height, "group", "count",
              "complete", "members", "forces", "labels", "pairs", "on sym", "nearer");
  PrintGroups(looks);
}

/// Processor time of this program up to now, ms.
double ProcessorTime() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// Median processor time of some work, ms.
template <typename Work>
double MedianTime(Work work) {
  std::array<double, 15> times{};
  for (double& time : times) {
    const double start = ProcessorTime();
    work();
    time = ProcessorTime() - start;
  }
  std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
  return times[times.size() / 2];
}

/// Of making a scene with all its labels.
double PlacementTime(const PixelSurface& surface) {
  const ClearSettings settings = EverythingShown();
  const PixelView view = ViewOf(surface, *ClearFrame(surface, settings));
  const SceneRequest request{settings, view.scaleX, view.scaleY, LongestArrow(view.width, view.height)};
  return MedianTime([&] { static_cast<void>(MakeScene(request, surface, nullptr)); });
}

/// Of drawing everything anew, with the places of labels kept where the style keeps any.
double RedrawTime(QtDrawingSurface& surface, DrawingStyle style) {
  ClearMemory memory;
  TrussView view{.reactions = true,
                 .memberForces = true,
                 .deflectedShape = true,
                 .extents = ExtentsOfModel(1),
                 .frameExtents = true,
                 .style = style,
                 .memory = &memory};
  const auto draw = [&] {
    Draw(surface, view);
    static_cast<void>(surface.Image());
  };
  draw();
  view.frameExtents = false;
  return MedianTime(draw);
}

void PrintTimes() {
  QtDrawingSurface surface(1600, 1000);
  for (const int nodes : {52, 1000, 3420}) {
    SetTables(nodes == 52 ? PrattTruss(nodes) : TriangulatedPanel(nodes));
    AnalyseTruss();
    std::printf("placement of %5d members: %6.2f ms\n", MemberCount, PlacementTime(surface));
  }
  std::printf("redraw of 4999 nodes with kept places: %.1f ms, as described: %.1f ms\n",
              RedrawTime(surface, DrawingStyle::Clear), RedrawTime(surface, DrawingStyle::Described));
}

void Run(const std::string& option) {
  Quiet desktop;
  NativeFileSystem files;
  ThePlatform() = {.messages = &desktop};
  ThePlatform().files = &files;
  if (option == "--times") return PrintTimes();
  std::vector<int> bays(37);
  std::iota(bays.begin(), bays.end(), 4);
  std::vector<CorpusTruss> corpus = FamilyTrusses(bays);
  for (const auto& more : {TrussesIn(EXAMPLES_DIR, false), TrussesIn(REFERENCE_DIR, true), RandomTrusses(200)}) {
    corpus.insert(corpus.end(), more.begin(), more.end());
  }
  const QtDrawingSurface fonts(1, 1);
  const TextMetrics metrics = [&](const std::string& text, int size) { return fonts.TextWidth(text, size); };
  LookAt(corpus, 1024, 768, metrics, option == "--verbose");
  LookAt(corpus, 660, 390, metrics, option == "--verbose");
  LookAt(corpus, 1600, 1000, metrics, option == "--verbose");
  PrintTimes();
}

} // namespace
} // namespace strutwright

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  strutwright::Run(argc > 1 ? argv[1] : "");
  return 0;
}
