#include "ClearScene.h"

#include "ClearPalette.h"
#include "ClearTexts.h"
#include "LabelPlacement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace strutwright {

namespace {

constexpr std::size_t MaxBarsForAllLooks = 60; // more get those in which usual members have room
constexpr std::size_t MaxBarsForLooks = 250;   // more get one
constexpr double MinBarForDots = 9;            // pixels of a usual member
constexpr double NumberBoxRoom = 2.5;          // pixels around a member's number
constexpr double AreaMargin = 250;             // pixels around the nodes that labels and arrows may take

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
                             scene.plane, scene.arrowsLeftOut);
}

Colour ForceColour(float force) {
  if (force == 0) return ClearPalette::ZeroBar;
  return force > 0 ? ClearPalette::Tension : ClearPalette::Compression;
}

/// The labels of a scene, in the order in which they get their places.
class LabelMaker {
 public:
  LabelMaker(ClearScene& scene, const ClearSettings& settings, const PixelSurface& surface)
      : Scene(scene), Settings(settings), Surface(surface), Decimals(ForceDecimals(LargestShown())),
        Fewest(FewestDecimals()) {}

  void MakeAll() {
    Scene.labels.reserve(Scene.arrows.size() + 2 * Scene.truss.bars.size() + Scene.truss.joints.size());
    for (const bool reactions : {true, false}) AddArrows(reactions);
    if (Settings.memberForces) AddForces();
    if (Settings.layers.nodeNumbers) {
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

  int FewestDecimals() const {
    return std::max(0, static_cast<int>(std::ceil(2 - std::log10(std::max(LargestShown(), 1e-6)))));
  }

  bool IsSmall() const { return Scene.truss.bars.size() <= MaxBarsForLooks; }

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
    std::vector<std::pair<float, int>> order; // minus its size, and the bar
    order.reserve(bars.size());
    for (const ClearBar& bar : bars) order.emplace_back(-std::fabs(bar.force), static_cast<int>(order.size()));
    std::sort(order.begin(), order.end());
    for (const auto& [size, b] : order) {
      const float force = bars[static_cast<std::size_t>(b)].force;
      Add(LabelKind::Force, b, ForceText(force, Decimals, Scene.text.compact), ForceColour(force), 0);
      const bool mayShorten =
          Scene.text.mayShorten && force != 0 && (IsSmall() || !HasNoRoom(Scene, Scene.labels.back()));
      if (mayShorten) AddShortTexts(Scene.labels.back(), force);
    }
  }

  /// Without the sign, as T and C say the same; then with fewer decimals as long as a hundredth of the largest shows.
  void AddShortTexts(ClearLabel& label, float force) const {
    for (const int decimals : {Decimals, std::min(Fewest, Decimals)}) {
      const std::string text = ShortForceText(force, decimals);
      if (!label.shorter.empty() && text == label.shorter.back().text) continue;
      label.shorter.push_back({text, Surface.TextWidth(text, Scene.text.size) / 2 + 1});
    }
  }

  ClearScene& Scene;
  const ClearSettings& Settings;
  const PixelSurface& Surface;
  int Decimals;
  int Fewest; ///< decimals of a short text
};

/// What three of four members are longer than.
double UsualLeastLength(const ClearTruss& truss) {
  if (truss.bars.empty()) return 1e9;
  std::vector<double> lengths;
  lengths.reserve(truss.bars.size());
  for (const ClearBar& bar : truss.bars) lengths.push_back(bar.length);
  const auto quarter = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 4);
  std::nth_element(lengths.begin(), quarter, lengths.end());
  return *quarter;
}

/// From the best to read to the smallest.
constexpr std::array<TextLook, 5> Looks{
    {{12, false, false}, {10, false, false}, {11, true, false}, {10, true, false}, {9, true, true}}};

/// The best look in which a usual force is no longer than most members.
std::size_t FirstLookFor(const ClearTruss& truss, const PixelSurface& surface) {
  const double length = UsualLeastLength(truss);
  const int decimals = ForceDecimals(truss.largestForce);
  const auto force = static_cast<float>(truss.largestForce);
  for (std::size_t look = 0; look + 1 < Looks.size(); ++look) {
    const std::string text = ForceText(force, decimals, Looks.at(look).compact);
    if (surface.TextWidth(text, Looks.at(look).size) < length) return look;
  }
  return Looks.size() - 1;
}

/// First that of the scene before, so that texts don't change for little.  Only few members get the time to try all.
std::vector<TextLook> LooksToTry(const ClearScene& scene, const PixelSurface& surface, const ClearScene* before) {
  const std::size_t bars = scene.truss.bars.size();
  std::vector<TextLook> looks;
  if (before != nullptr) looks.push_back(before->text);
  const std::size_t first = bars <= MaxBarsForAllLooks ? 0 : FirstLookFor(scene.truss, surface);
  const std::size_t end = bars <= MaxBarsForLooks ? Looks.size() : first + 1;
  for (std::size_t look = first; look < end; ++look) {
    if (bars > MaxBarsForAllLooks && look > first && look + 2 < end) continue;
    if (before == nullptr || Looks.at(look) != before->text) looks.push_back(Looks.at(look));
  }
  if (bars > MaxBarsForLooks) looks.resize(1);
  return looks;
}

/// Makes the scenes of one model in several looks.
class SceneMaker {
 public:
  SceneMaker(ClearScene bare, const SceneRequest& request, const PixelSurface& surface, const ClearScene* before)
      : Bare(std::move(bare)), Request(request), Surface(surface), Before(before) {}

  /// The first look in which no force is left out, otherwise the one with the fewest, which most often is the last.
  ClearScene MakeBest(const std::vector<TextLook>& looks) {
    ClearScene best;
    PlacedForces fewest{Any, false};
    for (std::size_t look = 0; looks.size() > 1 && look < looks.size() && fewest.missing > 0; ++look) {
      const bool isLast = look + 1 == looks.size();
      ClearScene scene = Bare;
      const PlacedForces placed = LabelForces(looks[look], isLast ? std::max(0, fewest.missing - 1) : 0, scene);
      if (placed.missing >= fewest.missing) continue;
      best = std::move(scene);
      fewest = placed;
    }
    if (!fewest.triedAll) {
      const TextLook look = looks.size() > 1 ? best.text : looks.front();
      best = std::move(Bare);
      LabelForces(look, Any, best);
    }
    PlaceNumbers(best, BeforeIn(best.text));
    return best;
  }

 private:
  static constexpr int Any = std::numeric_limits<int>::max();

  PlacedForces LabelForces(const TextLook& look, int mostMissing, ClearScene& scene) const {
    scene.text = look;
    LabelMaker(scene, Request.settings, Surface).MakeAll();
    return PlaceForces(scene, BeforeIn(look), mostMissing);
  }

  const std::vector<ClearLabel>* BeforeIn(const TextLook& look) const {
    return Before != nullptr && Before->text == look ? &Before->labels : nullptr;
  }

  ClearScene Bare;
  const SceneRequest& Request;
  const PixelSurface& Surface;
  const ClearScene* Before;
};

} // namespace

ClearScene MakeScene(const SceneRequest& request, const PixelSurface& surface, const ClearScene* before) {
  ClearScene bare;
  bare.truss = TakeTruss(request.settings, request.scaleX, request.scaleY);
  AddShapes(bare, request);
  const std::vector<TextLook> looks = LooksToTry(bare, surface, before);
  return SceneMaker(std::move(bare), request, surface, before).MakeBest(looks);
}

} // namespace strutwright
