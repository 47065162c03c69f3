#include "ClearFraming.h"

#include "AnalysisState.h"
#include "AxisValues.h"
#include "ClearScene.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

constexpr double SideMargin = 12;
constexpr double TextMargin = 18;   // for a label outside a chord
constexpr double ValueMargin = 34;  // left, for values of the axis
constexpr double BottomMargin = 44; // for values and a row of legend or notice
constexpr double PointWindow = 10;  // m, of a truss that is a single point
constexpr double ArrowShare = 1.0 / 6;
constexpr float MinScale = 1;
constexpr float MaxScale = 5000;

struct WorldBox {
  double left, right, bottom, top;
};

std::optional<WorldBox> BoxOfTheNodes() {
  if (NodeCount == 0) return std::nullopt;
  WorldBox box{NodeTable(1, NodeX), NodeTable(1, NodeX), NodeTable(1, NodeY), NodeTable(1, NodeY)};
  for (int n = 2; n <= NodeCount; ++n) {
    box.left = std::min<double>(box.left, NodeTable(n, NodeX));
    box.right = std::max<double>(box.right, NodeTable(n, NodeX));
    box.bottom = std::min<double>(box.bottom, NodeTable(n, NodeY));
    box.top = std::max<double>(box.top, NodeTable(n, NodeY));
  }
  return box;
}

/// How far symbols, arrows and their labels stand out over the box of the nodes, in pixels, at a scale.
struct Overhang {
  double left = TextMargin;
  double right = TextMargin;
  double top = TextMargin;
  double bottom = TextMargin;
};

Overhang OverhangAt(double scale, const WorldBox& box, const PixelSurface& surface, const ClearSettings& settings) {
  SceneRequest request{settings, scale, scale, LongestArrow(surface.PixelWidth(), surface.PixelHeight())};
  request.settings.layers.memberNumbers = request.settings.layers.nodeNumbers = false;
  request.settings.memberForces = false;
  const ClearScene scene = MakeScene(request, surface, nullptr);
  const Bounds nodes{box.left * scale, -box.top * scale, box.right * scale, -box.bottom * scale};
  Bounds all = nodes.GrownBy(TextMargin);
  for (const ClearSupport& support : scene.supports) all.Take(BoundsOf(BoxOfSupport(support)));
  for (const ClearArrow& arrow : scene.arrows) all.Take(BoundsOf(BoxOfArrow(arrow)));
  for (const ClearLabel& label : scene.labels) {
    if (label.IsPlaced()) all.Take(BoundsOf(label.box));
  }
  return {nodes.left - all.left, all.right - nodes.right, nodes.top - all.top, all.bottom - nodes.bottom};
}

Overhang WithMargins(Overhang overhang, bool axes) {
  overhang.left += axes ? ValueMargin : SideMargin;
  overhang.right += SideMargin;
  overhang.top += SideMargin;
  overhang.bottom += axes ? BottomMargin : BottomMargin / 2;
  return overhang;
}

/// Pixels a metre at which the box fills what the overhang leaves.
double ScaleFor(const WorldBox& box, const Overhang& overhang, const PixelSurface& surface) {
  const double width = std::max(16.0, surface.PixelWidth() - overhang.left - overhang.right);
  const double height = std::max(16.0, surface.PixelHeight() - overhang.top - overhang.bottom);
  const double dx = box.right - box.left;
  const double dy = box.top - box.bottom;
  if (!(dx > 0) && !(dy > 0)) return width / PointWindow;
  return std::min(dx > 0 ? width / dx : 1e30, dy > 0 ? height / dy : 1e30);
}

} // namespace

std::optional<ViewWindow> ClearFrame(const PixelSurface& surface, const ClearSettings& settings) {
  constexpr int Rounds = 3; // arrows change with the scale, and the scale with what they take up
  const std::optional<WorldBox> box = BoxOfTheNodes();
  if (!box) return std::nullopt;
  Overhang overhang = WithMargins({}, settings.layers.grid);
  double scale = ScaleFor(*box, overhang, surface);
  for (int round = 0; round < Rounds; ++round) {
    overhang = WithMargins(OverhangAt(scale, *box, surface, settings), settings.layers.grid);
    scale = ScaleFor(*box, overhang, surface);
  }
  const double width = surface.PixelWidth() / scale;
  const double height = surface.PixelHeight() / scale;
  const double midX = (box->left + box->right) / 2 + (overhang.right - overhang.left) / 2 / scale;
  const double midY = (box->bottom + box->top) / 2 + (overhang.top - overhang.bottom) / 2 / scale;
  const ViewWindow window{static_cast<float>(midX - width / 2), static_cast<float>(-midY - height / 2),
                          static_cast<float>(width), static_cast<float>(height)};
  const bool isFinite = std::isfinite(window.left) && std::isfinite(window.top) && std::isfinite(window.width) &&
                        std::isfinite(window.height);
  return isFinite && window.width > 0 && window.height > 0 ? std::optional(window) : std::nullopt;
}

std::optional<float> FittingLoadsScale(bool withReactions) {
  const std::optional<WorldBox> box = BoxOfTheNodes();
  if (!box) return std::nullopt;
  ClearSettings settings;
  settings.reactions = withReactions;
  double largest = 0;
  for (const ClearJoint& joint : TakeTruss(settings, 1, 1).joints) {
    for (const float force : {joint.loadX, joint.loadY, joint.reactionX, joint.reactionY}) {
      largest = std::max<double>(largest, std::fabs(force));
    }
  }
  const double size = std::max(box->right - box->left, box->top - box->bottom);
  if (!(largest > 0) || !(size > 0)) return std::nullopt;
  return std::clamp(static_cast<float>(largest / (ArrowShare * size)), MinScale, MaxScale);
}

} // namespace strutwright
