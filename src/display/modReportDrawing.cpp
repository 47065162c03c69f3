#include "modReportDrawing.h"

#include "AnalysisState.h"
#include "modModelStore.h"
#include "modRedraw.h"
#include "modViewTransform.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace strutwright {

namespace {

constexpr int SmallWidth = ReportWidth; // logical pixels
constexpr int LargeWidth = 3 * ReportWidth / 2;
constexpr int MaxNodesOfSmallWidth = 30;
constexpr int MinHeight = 160;
constexpr double MaxHeightRatio = 0.9; // of the width
constexpr double SymbolRoom = 0.25;    // units, for markers and supports
constexpr double UnitPixels = 45;      // about what a unit takes
constexpr double TrussPart = 0.8;      // of the width, about
constexpr int SideRoom = 14;           // logical pixels
constexpr int TextRoom = 44;           // for a text that starts at the right edge
constexpr int LineRoom = 20;           // for one that starts at the lower edge
constexpr double ShapePart = 1.0 / 12; // of the truss that the largest displacement is drawn as
constexpr double ArrowPart = 1.0 / 6;  // of the truss that the longest arrow takes
constexpr double HeadPart = 0.25;      // of an arrow that its head stands off to either side
constexpr double MinForNumbers = 24;   // logical pixels of a usual member
constexpr double MinForForces = 60;

struct Box {
  double left = 0;
  double right = 0;
  double bottom = 0;
  double top = 0;

  void Take(double x, double y) {
    left = std::min(left, x);
    right = std::max(right, x);
    bottom = std::min(bottom, y);
    top = std::max(top, y);
  }
  double Width() const { return right - left; }
  double Height() const { return top - bottom; }
  double Size() const { return std::max(Width(), Height()); }
};

/// The two forces at a node that are drawn as arrows: the load and, where a support holds the node, the reaction.
double LargestForceX(int n) {
  const float code = NodeTable(n, NodeSupport);
  const double reaction = code == 2 || code == 3 ? std::fabs(Reactions.at(XFreedom(n))) : 0.0;
  return std::max<double>(std::fabs(NodeTable(n, NodeForceX)), reaction);
}

double LargestForceY(int n) {
  const float code = NodeTable(n, NodeSupport);
  const double reaction = code == 1 || code == 3 ? std::fabs(Reactions.at(YFreedom(n))) : 0.0;
  return std::max<double>(std::fabs(NodeTable(n, NodeForceY)), reaction);
}

Box BoxOfNodes() {
  Box box;
  if (NodeCount > 0) box = {NodeTable(1, NodeX), NodeTable(1, NodeX), NodeTable(1, NodeY), NodeTable(1, NodeY)};
  for (int n = 1; n <= NodeCount; ++n) box.Take(NodeTable(n, NodeX), NodeTable(n, NodeY));
  return box;
}

double WidthFor(int nodes) { return nodes > MaxNodesOfSmallWidth ? LargeWidth : SmallWidth; }

/// A single point has no size to be brought to another one.
float UnitFor(double size) {
  const auto unit = static_cast<float>(WidthFor(NodeCount) * TrussPart / UnitPixels / size);
  return std::isnormal(unit) ? unit : 1.0F;
}

void ChooseScales(ReportFrame& frame, double size) {
  double displacement = 0;
  double force = 0;
  for (int n = 1; n <= NodeCount; ++n) {
    const double dx = Displacements.at(XFreedom(n));
    const double dy = Displacements.at(YFreedom(n));
    displacement = std::max({displacement, std::fabs(dx), std::fabs(dy)});
    force = std::max({force, LargestForceX(n), LargestForceY(n)});
  }
  const double room = size > 0 ? size : 1;
  if (displacement > 0) frame.deflectionScale = static_cast<float>(RoundScale(1000 * room * ShapePart / displacement));
  if (force > 0) frame.loadsScale = static_cast<float>(1 / RoundScale(room * ArrowPart / force));
}

/// In units.  Arrows lie above and to the right of their node.
Box BoxOfDrawing(const ReportFrame& frame) {
  Box box{1e30, -1e30, 1e30, -1e30};
  const auto take = [&](double x, double y) { box.Take(x * frame.unit, y * frame.unit); };
  for (int n = 1; n <= NodeCount; ++n) {
    const double x = NodeTable(n, NodeX);
    const double y = NodeTable(n, NodeY);
    const double scale = frame.deflectionScale / 1000.0;
    take(x, y);
    take(x + scale * Displacements.at(XFreedom(n)), y + scale * Displacements.at(YFreedom(n)));
    const double right = LargestForceX(n) / frame.loadsScale;
    const double up = LargestForceY(n) / frame.loadsScale;
    take(x + right, y + right * HeadPart);
    take(x + up * HeadPart, y + up);
    take(x - up * HeadPart, y - right * HeadPart);
  }
  return {box.left - SymbolRoom, box.right + SymbolRoom, box.bottom - SymbolRoom, box.top + SymbolRoom};
}

/// The box in the middle of what the texts at its edges leave of the surface.
void Frame(ReportFrame& frame, const Box& box) {
  frame.width = static_cast<int>(WidthFor(NodeCount));
  const double across = frame.width - SideRoom - TextRoom;
  const double mostHeight = frame.width * MaxHeightRatio;
  const double needed = box.Height() * across / box.Width() + SideRoom + LineRoom;
  frame.height = static_cast<int>(std::lround(std::clamp<double>(needed, MinHeight, mostHeight)));
  const double down = frame.height - SideRoom - LineRoom;
  const double metre = std::max(box.Width() / across, box.Height() / down); // units a pixel
  const double left = box.left - SideRoom * metre - (across * metre - box.Width()) / 2;
  const double top = box.top + SideRoom * metre + (down * metre - box.Height()) / 2;
  const ViewWindow window{static_cast<float>(left), static_cast<float>(-top), static_cast<float>(frame.width * metre),
                          static_cast<float>(frame.height * metre)};
  if (std::isfinite(window.width) && std::isfinite(window.height)) frame.window = window;
}

/// Logical pixels of a usual member as it is drawn.
double DrawnLength(const ReportFrame& frame) {
  double sum = 0;
  for (int m = 1; m <= MemberCount; ++m) sum += MemberTable(m, MemberFieldLength) / 1000.0;
  return MemberCount == 0 ? 0 : sum / MemberCount * frame.unit * frame.width / frame.window.width;
}

} // namespace

double RoundScale(double value) {
  if (!(value > 0) || !std::isfinite(value)) return 1;
  const double power = std::pow(10.0, std::floor(std::log10(value)));
  for (const double step : {5.0, 2.0}) {
    if (step * power <= value) return step * power;
  }
  return power;
}

ReportFrame FrameReport() {
  ReportFrame frame;
  const double size = BoxOfNodes().Size();
  frame.unit = UnitFor(size);
  ChooseScales(frame, size);
  Frame(frame, BoxOfDrawing(frame));
  frame.numbers = DrawnLength(frame) >= MinForNumbers;
  frame.forces = DrawnLength(frame) >= MinForForces;
  return frame;
}

void DrawReport(DrawingSurface& surface, const ReportFrame& frame) {
  const ModelLayers layers{.grid = false, .memberNumbers = frame.numbers, .nodeNumbers = frame.numbers};
  const auto leaveOut = [](const std::string& /*failure*/) {};
  surface.SetWindow(frame.window);
  Draw(surface, {.layers = layers,
                 .reactions = true,
                 .memberForces = frame.forces,
                 .deflectedShape = true,
                 .deflectionScale = frame.deflectionScale * frame.unit,
                 .loadsScale = frame.loadsScale / frame.unit,
                 .unit = frame.unit,
                 .extents = ExtentsOfModel(frame.unit),
                 .failures = leaveOut});
}

} // namespace strutwright
