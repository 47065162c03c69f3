#include "modReportSheets.h"

#include "ClearFraming.h"
#include "modModelStore.h"
#include "modRedraw.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

constexpr double LongTruss = 3;    // times as long as high
constexpr double MostHeight = 800; // logical pixels of a sheet, with room for heading and words on the page
constexpr double MostLandscapeHeight = 500;
constexpr double LeastSheetHeight = 200;
constexpr double LeastMember = 90; // logical pixels of a usual member, for its force and its number to find room
constexpr double Repeated = 0.15;  // of a sheet
constexpr int MostSheets = 8;
constexpr double RoomBesideArrows = 70; // logical pixels, for texts
constexpr double RoomOverArrows = 45;
constexpr double ArrowPartOfTruss = 1.0 / 6;  // as FrameReport chooses its scale
constexpr double RoomBelow = 56;              // logical pixels, for a legend in a row and what is left out
constexpr double ShapePartOfTruss = 1.0 / 12; // that the largest displacement is drawn as, likewise
constexpr double ShapePartOfDepth = 0.4;      // at most, so that a long truss keeps its shape on the sheet
constexpr int Rounds = 3;                     // of finding height and margins, which depend on each other

/// Where the nodes are; every truss has a size here.
struct NodeBox {
  double left = 0;
  double bottom = 0;
  double width = 0;
  double height = 0;

  double Size() const { return std::max(width, height); }
};

NodeBox BoxOfTruss() {
  NodeBox box;
  double right = 0;
  double top = 0;
  for (int n = 1; n <= NodeCount; ++n) {
    const double x = NodeTable(n, NodeX);
    const double y = NodeTable(n, NodeY);
    box.left = n == 1 ? x : std::min(box.left, x);
    right = n == 1 ? x : std::max(right, x);
    box.bottom = n == 1 ? y : std::min(box.bottom, y);
    top = n == 1 ? y : std::max(top, y);
  }
  box.width = right - box.left;
  box.height = top - box.bottom;
  if (!(box.Size() > 0)) box.width = 1;
  return box;
}

double UsualMember() {
  double sum = 0;
  for (int m = 1; m <= MemberCount; ++m) sum += MemberTable(m, MemberFieldLength) / 1000.0;
  return MemberCount > 0 ? sum / MemberCount : 0;
}

/// How the truss lies on paper, with `along` the direction of the parts.
struct PaperPlan {
  double along; ///< m of the truss
  double across;
  double length;  ///< logical pixels of a sheet
  double breadth; ///< most of it
  double marginAlong = 0;
  double marginAcross = 0;
  double scale = 1; ///< logical pixels a m
  int count = 1;

  double Covered(int sheets) const { return length * (sheets - (sheets - 1) * Repeated); }

  /// The fewest sheets on which a usual member is long enough; or as large as the page's breadth lets it be.
  void ChooseScale(double usualMember) {
    const double most = across > 0 ? (breadth - 2 * marginAcross) / across : HUGE_VAL;
    for (count = 1;; ++count) {
      scale = std::min(most, (Covered(count) - 2 * marginAlong) / along);
      if (usualMember <= 0 || usualMember * scale >= LeastMember || scale >= most || count == MostSheets) return;
    }
  }
};

void TakeMargins(PaperPlan& plan, double width, double height) {
  const double arrow = LongestArrow(width, height);
  plan.marginAlong = arrow + RoomBesideArrows;
  plan.marginAcross = arrow + RoomOverArrows;
}

ReportSheet SheetAt(const ReportSheets& sheets, const NodeBox& box, const PaperPlan& plan, int index) {
  const double width = sheets.width / plan.scale;
  const double height = sheets.height / plan.scale;
  const double free = plan.Covered(plan.count) / plan.scale - plan.along;
  const double begin = index * (1 - Repeated) * plan.length / plan.scale - free / 2;
  const double end = begin + plan.length / plan.scale;
  const double left = sheets.upwards ? box.left + (box.width - width) / 2 : box.left + begin;
  const double below = RoomBelow / 2 / plan.scale;
  const double top = sheets.upwards ? box.bottom + end : box.bottom + (box.height + height) / 2 - below;
  const double origin = sheets.upwards ? box.bottom : box.left;
  return {{static_cast<float>(left), static_cast<float>(-top), static_cast<float>(width), static_cast<float>(height)},
          origin + std::max(begin, 0.0),
          origin + std::min(end, plan.along)};
}

float DeflectionScaleFor(const ReportFrame& described, const NodeBox& box) {
  const double most = ShapePartOfDepth * std::min(box.width, box.height) / (ShapePartOfTruss * box.Size());
  if (!(most > 0) || most >= 1) return described.deflectionScale;
  return static_cast<float>(RoundScale(described.deflectionScale * most));
}

/// With which the largest force has an arrow as long as any may get.
float LoadsScaleOn(const DrawingSurface& surface, const ReportSheets& sheets) {
  const double metre = surface.PixelWidth() / static_cast<double>(surface.Window().width);
  const double longest = LongestArrow(surface.PixelWidth(), surface.PixelHeight()) / metre;
  const auto scale = static_cast<float>(sheets.largestForce / longest);
  return std::isnormal(scale) ? scale : 1.0F;
}

} // namespace

ReportSheets LayOutSheets() {
  const NodeBox box = BoxOfTruss();
  ReportSheets sheets;
  sheets.landscape = box.width >= LongTruss * box.height && box.height > 0;
  sheets.upwards = box.height > box.width;
  sheets.width = sheets.landscape ? LandscapeWidth : ReportWidth;
  const double mostHeight = sheets.landscape ? MostLandscapeHeight : MostHeight;
  PaperPlan plan{.along = box.Size(),
                 .across = std::min(box.width, box.height),
                 .length = sheets.upwards ? mostHeight : sheets.width,
                 .breadth = sheets.upwards ? sheets.width : mostHeight};
  double height = mostHeight;
  for (int round = 0; round < Rounds; ++round) {
    TakeMargins(plan, sheets.width, height);
    plan.ChooseScale(UsualMember());
    const double margin = sheets.upwards ? plan.marginAlong : plan.marginAcross;
    const double needed =
        plan.count > 1 && sheets.upwards ? mostHeight : box.height * plan.scale + 2 * margin + RoomBelow;
    height = std::clamp(needed, LeastSheetHeight, mostHeight);
  }
  sheets.height = static_cast<int>(std::lround(height));
  const ReportFrame described = FrameReport();
  sheets.deflectionScale = DeflectionScaleFor(described, box);
  sheets.largestForce = described.loadsScale * box.Size() * ArrowPartOfTruss;
  for (int index = 0; index < plan.count; ++index) sheets.sheets.push_back(SheetAt(sheets, box, plan, index));
  return sheets;
}

void DrawSheet(DrawingSurface& surface, const ReportSheets& sheets, std::size_t index, ClearMemory& memory) {
  const ViewWindow window = sheets.sheets.at(index).window;
  if (std::isnormal(window.width) && std::isnormal(window.height)) surface.SetWindow(window);
  TrussView view{.layers = {.grid = false},
                 .reactions = true,
                 .memberForces = true,
                 .deflectedShape = true,
                 .deflectionScale = sheets.deflectionScale,
                 .loadsScale = LoadsScaleOn(surface, sheets),
                 .style = DrawingStyle::Clear,
                 .onPaper = true,
                 .memory = &memory,
                 .failures = [](const std::string& /*failure*/) {}};
  if (sheets.sheets.size() == 1) {
    if (const auto frame = ClearFrame(surface, SettingsOf(view))) surface.SetWindow(*frame);
    view.loadsScale = LoadsScaleOn(surface, sheets);
  }
  Draw(surface, view);
}

} // namespace strutwright
