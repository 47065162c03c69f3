#include "ClearScene.h"

#include "ClearPalette.h"
#include "ClearTexts.h"
#include "LabelPlacement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

namespace strutwright {

namespace {

constexpr std::size_t MaxBarsForSmallerTexts = 200;
constexpr double MinBarForDots = 9;   // pixels of a usual member
constexpr double NumberBoxRoom = 2.5; // pixels around a member's number
constexpr double AreaMargin = 250;    // pixels around the nodes that labels and arrows may take

Bounds AreaOf(const ClearTruss& truss) {
  if (truss.joints.size() < 2) return {};
  const PixelPoint first = truss.joints[1].at;
  Bounds area{first.x, first.y, first.x, first.y};
  for (std::size_t n = 1; n < truss.joints.size(); ++n) area.Take(truss.joints[n].at);
  return area.GrownBy(AreaMargin);
}

double UsualLength(const ClearTruss& truss) {
  if (truss.bars.empty()) return 1e9;
  double sum = 0;
  for (const ClearBar& bar : truss.bars) sum += bar.length;
  return sum / static_cast<double>(truss.bars.size());
}

/// A tie is a line that grows from the width of a thin pen; a strut is hollow, so it begins wider.
double WidthOf(const ClearBar& bar, const ClearTruss& truss, const ClearSettings& settings) {
  if (!settings.memberForces) return 2;
  if (bar.force == 0) return 1;
  const double share = settings.widthByForce ? std::fabs(bar.force) / truss.largestForce : 0.3;
  return bar.force > 0 ? 1.6 + 2.6 * share : 3.2 + 2.6 * share;
}

void AddShapes(ClearScene& scene, const SceneRequest& request) {
  ClearTruss& truss = scene.truss;
  for (ClearBar& bar : truss.bars) bar.width = WidthOf(bar, truss, request.settings);
  scene.dots = UsualLength(truss) >= MinBarForDots;
  scene.plane = OccupiedPlane(AreaOf(truss), 4 * truss.bars.size() + 2 * truss.joints.size());
  for (std::size_t b = 0; b < truss.bars.size(); ++b) {
    scene.plane.Add(
        {StripOf(truss.bars[b].from, truss.bars[b].to, truss.bars[b].width), Occupant::Bar, static_cast<int>(b)});
  }
  constexpr double Half = ClearSize::NodeRadius + ClearSize::NodeEdge / 2;
  for (std::size_t n = 1; scene.dots && n < truss.joints.size(); ++n) {
    scene.plane.Add({{truss.joints[n].at, {1, 0}, Half, Half}, Occupant::Node, static_cast<int>(n)});
  }
  if (request.settings.layers.supports) scene.supports = PlaceSupports(truss, scene.plane);
  scene.arrows = PlaceArrows(truss, scene.supports, request.settings.loadsScale, request.scaleX, request.longestArrow,
                             scene.plane);
}

Colour ForceColour(float force) {
  if (force == 0) return ClearPalette::ZeroBar;
  return force > 0 ? ClearPalette::Tension : ClearPalette::Compression;
}

/// The labels of a scene, in the order in which they get their places.
class LabelMaker {
 public:
  LabelMaker(ClearScene& scene, const ClearSettings& settings, const PixelSurface& surface)
      : Scene(scene), Settings(settings), Surface(surface), Decimals(ForceDecimals(LargestShown())) {}

  void MakeAll() {
    for (const bool reactions : {true, false}) AddArrows(reactions);
    if (Settings.memberForces) AddForces();
    if (Settings.layers.nodeNumbers && Scene.dots) {
      for (int n = 1; n < static_cast<int>(Scene.truss.joints.size()); ++n) {
        Add(LabelKind::NodeNumber, n, std::to_string(n), ClearPalette::Ink, 0);
      }
    }
    if (!Settings.layers.memberNumbers) return;
    for (std::size_t b = 0; b < Scene.truss.bars.size(); ++b) {
      Add(LabelKind::MemberNumber, static_cast<int>(b), std::to_string(Scene.truss.bars[b].number),
          ClearPalette::MemberNumber, NumberBoxRoom);
    }
  }

 private:
  double LargestShown() const {
    double largest = Scene.truss.largestForce;
    for (const ClearArrow& arrow : Scene.arrows) largest = std::max<double>(largest, std::fabs(arrow.force));
    return largest;
  }

  void Add(LabelKind kind, int owner, std::string text, Colour colour, double room) {
    const int size = kind == LabelKind::MemberNumber ? Scene.text.size - 1 : Scene.text.size;
    const double width = Surface.TextWidth(text, size);
    Scene.labels.push_back({kind, owner, std::move(text), colour, width / 2 + 1 + room, size / 2.0 + room / 2, -1, {}});
  }

  void AddArrows(bool reactions) {
    for (std::size_t a = 0; a < Scene.arrows.size(); ++a) {
      const ClearArrow& arrow = Scene.arrows[a];
      if (arrow.reaction != reactions) continue;
      Add(LabelKind::Arrow, static_cast<int>(a), LoadText(arrow.force, Decimals),
          reactions ? ClearPalette::Reaction : ClearPalette::Ink, 0);
    }
  }

  void AddForces() {
    const std::vector<ClearBar>& bars = Scene.truss.bars;
    std::vector<int> order(bars.size());
    std::iota(order.begin(), order.end(), 0);
    const auto size = [&](int b) { return std::fabs(bars[static_cast<std::size_t>(b)].force); };
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return size(a) > size(b); });
    for (const int b : order) {
      const float force = bars[static_cast<std::size_t>(b)].force;
      Add(LabelKind::Force, b, ForceText(force, Decimals, Scene.text.compact), ForceColour(force), 0);
    }
  }

  ClearScene& Scene;
  const ClearSettings& Settings;
  const PixelSurface& Surface;
  int Decimals;
};

int MissingForces(const ClearScene& scene) {
  const auto isMissing = [](const ClearLabel& label) { return label.kind == LabelKind::Force && !label.IsPlaced(); };
  return static_cast<int>(std::count_if(scene.labels.begin(), scene.labels.end(), isMissing));
}

void LabelAs(ClearScene& scene, const TextLook& text, const SceneRequest& request, const PixelSurface& surface,
             const ClearScene* before) {
  scene.text = text;
  LabelMaker(scene, request.settings, surface).MakeAll();
  PlaceLabels(scene, before != nullptr && before->text == text ? &before->labels : nullptr);
}

/// The looks to try: first that of the scene before, so that texts don't change for little; then from the best to read
/// to the smallest.
std::vector<TextLook> LooksToTry(const ClearScene& scene, const ClearScene* before) {
  constexpr std::array<TextLook, 5> Looks{{{12, false}, {10, false}, {11, true}, {10, true}, {9, true}}};
  std::vector<TextLook> looks;
  if (before != nullptr) looks.push_back(before->text);
  for (const TextLook& look : Looks) {
    if (before == nullptr || look != before->text) looks.push_back(look);
    if (scene.truss.bars.size() > MaxBarsForSmallerTexts) break;
  }
  return looks;
}

} // namespace

ClearScene MakeScene(const SceneRequest& request, const PixelSurface& surface, const ClearScene* before) {
  ClearScene bare;
  bare.truss = TakeTruss(request.settings, request.scaleX, request.scaleY);
  AddShapes(bare, request);
  const std::vector<TextLook> looks = LooksToTry(bare, before);
  ClearScene best;
  int fewest = -1;
  for (const TextLook& look : looks) {
    ClearScene scene = bare;
    LabelAs(scene, look, request, surface, before);
    const int missing = MissingForces(scene);
    if (fewest >= 0 && missing >= fewest) continue;
    best = std::move(scene);
    fewest = missing;
    if (missing == 0) break;
  }
  return best;
}

} // namespace strutwright
