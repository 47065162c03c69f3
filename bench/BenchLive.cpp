// How long live analysis takes from an event of the mouse to the picture: a node of a Pratt truss is dragged with every
// layer on, on the display that the environment names.  The argument is the number of members; the nodes are numbered
// along the span.

#include "AnalysisState.h"
#include "Clipboard.h"
#include "DisplayArea.h"
#include "DisplayState.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "Platform.h"
#include "WindowBench.h"
#include "WorkbenchState.h"
#include "frmMain.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <filesystem>
#include <stdexcept>
#include <string>

#include <QAction>
#include <QApplication>
#include <QMouseEvent>

#include <unistd.h>

#include <benchmark/benchmark.h>

namespace strutwright {
namespace {

constexpr QSize LiveFrameSize{1600, 1000};

/// A folder of the program's own, which goes with it.
class LiveFolder {
 public:
  LiveFolder() : Path(std::filesystem::temp_directory_path() / ("strutwright-live-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(Path);
  }
  ~LiveFolder() { std::filesystem::remove_all(Path); }
  LiveFolder(const LiveFolder&) = delete;
  LiveFolder& operator=(const LiveFolder&) = delete;

  const std::filesystem::path Path;
};

/// The main frame, live, in the mode that drags nodes.
frmMain& LiveFrame() {
  static SilentBoxes boxes;
  static NativeFileSystem files;
  static LiveFolder folder;
  static frmMain& frame = *new frmMain; // at the end of the process, when statics go, Qt is gone already
  if (ThePlatform().messages != nullptr) return frame;
  ThePlatform() = {.messages = &boxes, .files = &files};
  ThePlatform().programFolder = ThePlatform().dataFolder = folder.Path.string();
  frame.resize(LiveFrameSize);
  frame.show();
  frame.MDIForm_Load();
  frame.SwitchLive(true);
  return frame;
}

/// Opens a girder with about so many members.
void OpenGirder(int members) {
  LiveFrame(); // which sets the platform up
  SetModel(PrattTruss(2 * ((members + 3) / 4)));
  const std::string path = ThePlatform().programFolder + "/model.stw";
  SaveModelFile(path);
  LiveFrame().OpenModel(path);
  LiveFrame().findChild<QAction*>("mnuSelectMove")->trigger();
  QCoreApplication::processEvents();
}

DisplayArea& Area() { return *static_cast<DisplayArea*>(LiveFrame().findChild<QWidget*>("Disp")); }

void SendMouse(QEvent::Type type, const QPoint& place, Qt::MouseButton button, Qt::MouseButtons held) {
  QMouseEvent event(type, place, Area().mapToGlobal(place), button, held, {});
  QCoreApplication::sendEvent(&Area(), &event);
  QCoreApplication::processEvents();
}

/// A node of the lower chord near the middle goes up and down by some pixels.
void DragANode(benchmark::State& state) {
  OpenGirder(static_cast<int>(state.range(0)));
  const int n = NodeCount / 2;
  GridSpacingX = GridSpacingY = 0; // each step moves the node
  const QPoint start = Area().Surface().ToPixel(NodeTable(n, NodeX), -NodeTable(n, NodeY)).toPoint();
  const float before = NodeTable(n, NodeY);
  SendMouse(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
  int step = 0;
  for ([[maybe_unused]] auto each : state) {
    step = (step + 1) % 10;
    SendMouse(QEvent::MouseMove, start + QPoint(5, 5 + step), Qt::NoButton, Qt::LeftButton);
    Area().repaint();
  }
  if (NodeTable(n, NodeY) == before) state.SkipWithError("the drag did not begin");
  if (AnalysisDone == FlagFalse || TheLive.paused) state.SkipWithError("there are no results");
  SendMouse(QEvent::MouseButtonRelease, start, Qt::LeftButton, Qt::NoButton);
  state.counters["members"] = MemberCount;
}

BENCHMARK(DragANode)->Arg(200)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

} // namespace
} // namespace strutwright

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
