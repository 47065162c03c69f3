// How long the equations view on screen takes for a truss of 5000 nodes and 10000 members: to show the whole matrix,
// and to repaint its far corner, with the memory that the whole program then holds; and to show the working of a step.

#include "FileDialog.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "Platform.h"
#include "WindowBench.h"
#include "WorkingPane.h"
#include "frmMain.h"
#include "modModelStore.h"

#include <string>
#include <string_view>

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr int Nodes = 5000;
constexpr QSize ViewSize{1200, 700};

/// The main frame with the model in its grids and the equations view in a window of its own size.
frmMain& Frame() {
  static SilentBoxes boxes;
  static NativeFileSystem files;
  static frmMain& frame = *new frmMain; // never taken down: the application would be gone by then
  if (ThePlatform().messages != nullptr) return frame;
  ThePlatform() = {.messages = &boxes, .files = &files, .dataFolder = "/nonexistent"};
  frame.show();
  frame.MDIForm_Load();
  SetModel(PrattTruss(Nodes));
  CopyModelToGrids();
  frame.ActivateEquations();
  frame.findChild<QWidget*>("frmEquations")->parentWidget()->resize(ViewSize);
  QCoreApplication::processEvents();
  return frame;
}

void ShowGlobalKOnScreen(benchmark::State& state) {
  frmMain& frame = Frame();
  auto* button = frame.findChild<QPushButton*>("btnShowGlobalK");
  for ([[maybe_unused]] auto step : state) {
    button->click();
    QCoreApplication::processEvents();
  }
  state.counters["MB resident"] = ResidentMegabytes();
}

void RepaintFarCorner(benchmark::State& state) {
  frmMain& frame = Frame();
  frame.findChild<QPushButton*>("btnShowGlobalK")->click();
  auto* matrix = frame.findChild<QTableView*>("grK");
  for ([[maybe_unused]] auto step : state) {
    matrix->horizontalScrollBar()->setValue(0);
    matrix->verticalScrollBar()->setValue(0);
    matrix->horizontalScrollBar()->setValue(matrix->horizontalScrollBar()->maximum());
    matrix->verticalScrollBar()->setValue(matrix->verticalScrollBar()->maximum());
    matrix->viewport()->repaint();
  }
  state.counters["MB resident"] = ResidentMegabytes();
}

/// The pane alone, after a step; the step itself is measured above and by bench_equations.
void ShowWorkingOf(benchmark::State& state, const char* step) {
  frmMain& frame = Frame();
  for (const char* name : {"btnShowGlobalK", "btnRestrict", "btnSolve", "btnMemberForces", "btnReactions"}) {
    frame.findChild<QPushButton*>(name)->click();
    if (std::string_view(name) == step) break;
  }
  if (std::string_view(step) == "btnAddMember") frame.findChild<QPushButton*>(step)->click();
  auto* pane = static_cast<WorkingPane*>(frame.findChild<QTextBrowser*>("txtWorking"));
  for ([[maybe_unused]] auto round : state) {
    pane->ShowStep();
    pane->viewport()->repaint();
  }
}

BENCHMARK_CAPTURE(ShowWorkingOf, AddMember, "btnAddMember")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ShowWorkingOf, Restrict, "btnRestrict")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ShowWorkingOf, Solve, "btnSolve")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ShowWorkingOf, MemberForces, "btnMemberForces")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ShowWorkingOf, Reactions, "btnReactions")->Unit(benchmark::kMillisecond);
BENCHMARK(ShowGlobalKOnScreen)->Unit(benchmark::kMillisecond);
BENCHMARK(RepaintFarCorner)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace strutwright

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  return strutwright::RunBenchmarks(argc, argv);
}
