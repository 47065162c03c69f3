// How long a user waits for the window with a truss of 5000 nodes and 10000 members: to open it, to read it from the
// grids, to paste its nodes, and from a key to its letter; with the memory that the analysed model then takes.

#include "AnalysisState.h"
#include "Clipboard.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "Platform.h"
#include "WindowBench.h"
#include "frmMain.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <filesystem>
#include <string>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QTableView>

#include <unistd.h>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr int Nodes = 5000;
constexpr QSize FrameSize{1600, 1000};

/// Holds 5000 rows of nodes.
class FullClipboard : public Clipboard {
 public:
  FullClipboard() {
    for (int n = 0; n < Nodes; ++n) rows += std::to_string(n) + ".5\t0.25\t0\t-12.5\t0\r\n";
  }
  std::string Text() override { return rows; }
  void SetText(const std::string& /*plain*/, const std::string& /*table*/) override {}

 private:
  std::string rows;
};

/// A folder with the model in a file, which goes with the program.
class ModelFolder {
 public:
  ModelFolder() : Path(std::filesystem::temp_directory_path() / ("strutwright-bench-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(Path);
  }
  ~ModelFolder() { std::filesystem::remove_all(Path); }
  ModelFolder(const ModelFolder&) = delete;
  ModelFolder& operator=(const ModelFolder&) = delete;

  std::string Model() const { return (Path / "model.stw").string(); }

  const std::filesystem::path Path;
};

ModelFolder& Folder() {
  static ModelFolder folder;
  return folder;
}

/// The main frame with the model open in it.
frmMain& Frame() {
  static SilentBoxes boxes;
  static NativeFileSystem files;
  static FullClipboard clipboard;
  static frmMain& frame = *new frmMain; // at the end of the process, when statics go, Qt is gone already
  if (ThePlatform().messages != nullptr) return frame;
  ThePlatform() = {.messages = &boxes, .files = &files, .clipboard = &clipboard};
  ThePlatform().programFolder = ThePlatform().dataFolder = Folder().Path.string();
  frame.resize(FrameSize);
  frame.show();
  frame.MDIForm_Load();
  SetModel(PrattTruss(Nodes));
  SaveModelFile(Folder().Model());
  openModel(Folder().Model());
  QCoreApplication::processEvents();
  return frame;
}

void OpenOnScreen(benchmark::State& state) {
  Frame();
  for ([[maybe_unused]] auto step : state) {
    openModel(Folder().Model());
    QCoreApplication::processEvents();
  }
}

void RebuildFromGrids(benchmark::State& state) {
  Frame();
  for ([[maybe_unused]] auto step : state) RebuildModelFromGrids();
}

void PasteNodes(benchmark::State& state) {
  auto* grid = Frame().findChild<QTableView*>("GrJoints");
  auto* paste = Frame().findChild<QAction*>("mnuGrid_Paste");
  for ([[maybe_unused]] auto step : state) {
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(0, 0));
    paste->trigger();
    QCoreApplication::processEvents();
  }
}

void Press(int key, const QString& text) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
  }
  QCoreApplication::processEvents();
}

void TypeOneKey(benchmark::State& state) {
  auto* grid = Frame().findChild<QTableView*>("GrJoints");
  grid->activateWindow();
  grid->setFocus();
  QCoreApplication::processEvents();
  grid->setCurrentIndex(grid->model()->index(0, 0));
  for ([[maybe_unused]] auto step : state) {
    Press(Qt::Key_5, "5");
    state.PauseTiming();
    Press(Qt::Key_Escape, "");
    state.ResumeTiming();
  }
}

/// A digit and Return: the model is read and drawn anew.
void CommitACell(benchmark::State& state) {
  auto* grid = Frame().findChild<QTableView*>("GrJoints");
  grid->setFocus();
  QCoreApplication::processEvents();
  for ([[maybe_unused]] auto step : state) {
    state.PauseTiming();
    grid->setCurrentIndex(grid->model()->index(2, 3));
    GrJoints.SetText(3, 4, "");
    Press(Qt::Key_5, "5");
    state.ResumeTiming();
    Press(Qt::Key_Return, "\r");
  }
}

void OpenAndAnalyse(benchmark::State& state) {
  Frame();
  openModel(Folder().Model());
  for ([[maybe_unused]] auto step : state) {
    Frame().runAnalysis();
    QCoreApplication::processEvents();
  }
  if (AnalysisDone == FlagFalse) state.SkipWithError("the truss should be stable");
  state.counters["MB resident"] = ResidentMegabytes();
}

BENCHMARK(OpenAndAnalyse)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenOnScreen)->Unit(benchmark::kMillisecond);
BENCHMARK(RebuildFromGrids)->Unit(benchmark::kMillisecond);
BENCHMARK(TypeOneKey)->Unit(benchmark::kMillisecond);
BENCHMARK(CommitACell)->Unit(benchmark::kMillisecond);
BENCHMARK(PasteNodes)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
} // namespace strutwright

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  return strutwright::RunBenchmarks(argc, argv);
}
