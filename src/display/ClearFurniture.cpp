#include "ClearFurniture.h"

#include "ClearPalette.h"
#include "LabelPlacement.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace strutwright {

namespace {

constexpr double Border = 5;      // pixels that legend and notice keep from the border
constexpr double ValueBorder = 3; // pixels that a value of an axis keeps from it
constexpr double ValueRoom = 17;  // height of the row of values
constexpr double NoticeHeight = 17;
constexpr double MinGridPitch = 14; // pixels

class FurniturePlacer {
 public:
  FurniturePlacer(const PixelSurface& surface, const PixelView& view, const ClearScene& scene, bool axes)
      : Surface(surface), View(view), Scene(scene) {
    const double room = axes ? ValueRoom : 0;
    Area = {Border + (axes ? 30 : 0), Border, view.width - Border, view.height - Border - room};
  }

  /// A rectangle of this size in a corner or in the middle of a side.
  Bounds At(int place, double width, double height) const {
    const bool top = place < 3;
    const int across = place % 3; // left, right, middle
    const double middle = (Area.left + Area.right - width) / 2;
    const double left = across == 0 ? Area.left : (across == 1 ? Area.right - width : middle);
    const double above = top ? Area.top : Area.bottom - height;
    return {left, above, left + width, above + height};
  }

  bool Fits(const Bounds& box) const { return box.Width() <= Area.Width() && box.Height() <= Area.Height() / 2; }

  bool IsFree(const Bounds& box) const {
    return std::none_of(Taken.begin(), Taken.end(), [&](const Bounds& other) { return other.Touches(box); }) &&
           !TouchesAnything(Scene, BoxOf(box).MovedBy(-1 * View.origin));
  }

  /// How many things stand round a box.
  int NeighboursOf(const Bounds& box) const {
    constexpr double Reach = 60;
    int count = 0;
    const TurnedBox wide = BoxOf(box.GrownBy(Reach)).MovedBy(-1 * View.origin);
    Scene.plane.Any(BoundsOf(wide), [&](const OccupiedBox& item) {
      count += Overlap(wide, item.box) ? 1 : 0;
      return false;
    });
    return count;
  }

  /// The freest corner where it fits, then the sides; -1 where it fits nowhere.
  int FreestPlace(double width, double height) const {
    int best = -1;
    int fewest = 0;
    for (const int place : {1, 0, 4, 3, 2, 5}) {
      const Bounds box = At(place, width, height);
      if (!Fits(box) || !IsFree(box)) continue;
      const bool isCorner = place % 3 != 2;
      const int neighbours = NeighboursOf(box) + (isCorner ? 0 : 100000);
      if (best >= 0 && neighbours >= fewest) continue;
      best = place;
      fewest = neighbours;
    }
    return best;
  }

  void Take(const Bounds& box) { Taken.push_back(box); }

  const PixelSurface& Surface;
  const PixelView& View;
  const ClearScene& Scene;

 private:
  Bounds Area;
  std::vector<Bounds> Taken;
};

bool IsOwnerInView(const ClearScene& scene, const ClearLabel& label, const Bounds& area) {
  switch (label.kind) {
  case LabelKind::NodeNumber: return area.Contains(scene.truss.joints[static_cast<std::size_t>(label.owner)].at);
  case LabelKind::Arrow: return area.Contains(scene.arrows[static_cast<std::size_t>(label.owner)].tip);
  default: break;
  }
  const ClearBar& bar = scene.truss.bars[static_cast<std::size_t>(label.owner)];
  return area.Contains(0.5 * (bar.from + bar.to));
}

/// A text that is cut by more than its edge is not shown.
bool LiesIn(const Bounds& area, const Bounds& text) {
  constexpr double Edge = 2; // pixels
  return area.GrownBy(Edge).Contains({text.left, text.top}) && area.GrownBy(Edge).Contains({text.right, text.bottom});
}

/// area: what is in view; hidden: what labels give way to.  Both in the plane of the truss.
std::array<ShownLabels, LabelKinds> CountLabels(const ClearScene& scene, const Bounds& area,
                                                const std::optional<TurnedBox>& hidden) {
  std::array<ShownLabels, LabelKinds> counts;
  for (const int n : scene.arrowsLeftOut) {
    if (area.Contains(scene.truss.joints[static_cast<std::size_t>(n)].at)) ++counts[0].all;
  }
  for (const ClearLabel& label : scene.labels) {
    if (!IsOwnerInView(scene, label, area)) continue;
    ShownLabels& count = counts.at(static_cast<std::size_t>(label.kind));
    ++count.all;
    if (!label.IsPlaced() || !LiesIn(area, BoundsOf(label.box))) continue;
    if (!hidden || !Overlap(label.box, *hidden)) ++count.shown;
  }
  return counts;
}

LegendFacts FactsOf(const ClearScene& scene, const PixelView& view, const ClearSettings& settings) {
  LegendFacts facts;
  for (const ClearBar& bar : scene.truss.bars) {
    if (!settings.memberForces) break;
    facts.ties = facts.ties || bar.force > 0;
    facts.struts = facts.struts || bar.force < 0;
    facts.zeroBars = facts.zeroBars || bar.force == 0;
  }
  for (const ClearArrow& arrow : scene.arrows) {
    facts.reactions = facts.reactions || arrow.reaction;
    facts.loads = facts.loads || !arrow.reaction;
    facts.largestForce = std::max<double>(facts.largestForce, std::fabs(arrow.force));
  }
  facts.pixelsPerForce = view.scaleX / settings.loadsScale;
  facts.longestArrow = LongestArrow(view.width, view.height);
  return facts;
}

/// One entry below the other, all in a row, or in rows of so many.  In each of them a legend has so many places,
/// counted on from one to the next so that one number says both.
constexpr std::array<int, 4> LegendColumns{1, 99, 3, 2};
constexpr int PlacesOfLegend = 6;

void PlaceLegend(ClearFurniture& furniture, FurniturePlacer& placer, int before) {
  if (furniture.legend.entries.empty()) return;
  const auto tryPlace = [&](int place) {
    const int columns = LegendColumns.at(static_cast<std::size_t>(place / PlacesOfLegend));
    const LegendSize size = SizeOf(furniture.legend, columns, placer.Surface);
    const Bounds box = placer.At(place % PlacesOfLegend, size.width, size.height);
    if (!placer.Fits(box) || !placer.IsFree(box)) return false;
    furniture.legendBox = box;
    furniture.legendColumns = columns;
    furniture.legendPlace = place;
    placer.Take(box);
    return true;
  };
  if (before >= 0 && tryPlace(before)) return;
  for (int shape = 0; shape < static_cast<int>(LegendColumns.size()); ++shape) {
    const LegendSize size = SizeOf(furniture.legend, LegendColumns.at(static_cast<std::size_t>(shape)), placer.Surface);
    const int place = placer.FreestPlace(size.width, size.height);
    if (place >= 0 && tryPlace(place + shape * PlacesOfLegend)) return;
  }
}

/// As much of the notice as fits into a width.
std::string NoticeWithin(const ClearFurniture& furniture, const PixelSurface& surface, double width) {
  int kinds = static_cast<int>(LabelKinds);
  std::string notice = NoticeOf(furniture.labels, furniture.onPaper, kinds);
  while (--kinds > 0 && surface.TextWidth(notice, ClearSize::SmallText) > width) {
    notice = NoticeOf(furniture.labels, furniture.onPaper, kinds);
  }
  return notice;
}

double NoticeWidth(const std::string& notice, const PixelSurface& surface) {
  return surface.TextWidth(notice, ClearSize::SmallText) + 10;
}

std::optional<Bounds> FreePlaceOf(const std::string& notice, const FurniturePlacer& placer) {
  const double width = NoticeWidth(notice, placer.Surface);
  for (const int place : {3, 5, 4, 0, 2, 1}) {
    const Bounds box = placer.At(place, width, NoticeHeight);
    if (placer.IsFree(box)) return box;
  }
  return std::nullopt;
}

/// The notice that says most of those that have a free place: first the kinds that it counts give way, last the hint.
bool PlaceFreeNotice(ClearFurniture& furniture, FurniturePlacer& placer) {
  for (const bool hint : {!furniture.onPaper, false}) {
    for (int kinds = static_cast<int>(LabelKinds); kinds > 0; --kinds) {
      const std::string notice = NoticeOf(furniture.labels, !hint, kinds);
      if (notice.size() > furniture.notice.size()) continue;
      furniture.noticeBox = FreePlaceOf(notice, placer);
      if (!furniture.noticeBox) continue;
      furniture.notice = notice;
      return true;
    }
  }
  return false;
}

/// Before the legend, which can do without a place.  Where it has room nowhere it hides labels.
void PlaceNotice(ClearFurniture& furniture, FurniturePlacer& placer) {
  furniture.notice = NoticeWithin(furniture, placer.Surface, placer.View.width - 60);
  if (furniture.notice.empty()) return;
  if (!PlaceFreeNotice(furniture, placer)) {
    furniture.noticeBox = placer.At(3, NoticeWidth(furniture.notice, placer.Surface), NoticeHeight);
    furniture.noticeHides = true;
  }
  placer.Take(*furniture.noticeBox);
}

void AddAxisValue(ClearFurniture& furniture, FurniturePlacer& placer, const std::string& text, PixelPoint centre) {
  const double half = placer.Surface.TextWidth(text, ClearSize::SmallText) / 2;
  const Bounds box{centre.x - half - 1, centre.y - 6, centre.x + half + 1, centre.y + 6};
  const bool inside =
      box.left >= 0 && box.top >= 0 && box.right <= placer.View.width && box.bottom <= placer.View.height;
  if (!inside || !placer.IsFree(box)) return;
  placer.Take(box);
  furniture.axisValues.push_back({centre, {1, 0}, text, ClearPalette::AxisValue, ClearSize::SmallText});
}

/// Along the lower and the left border.
void PlaceAxisValues(ClearFurniture& furniture, FurniturePlacer& placer) {
  const PixelView& view = placer.View;
  const double step = AxisStep(view);
  for (const AxisValue& value : ValuesAlong(view.origin.x, view.scaleX, step, view.width)) {
    AddAxisValue(furniture, placer, value.text, {value.at, view.height - ValueBorder - 6});
  }
  for (const AxisValue& value : ValuesAlong(view.origin.y, -view.scaleY, step, view.height - ValueRoom)) {
    const double half = placer.Surface.TextWidth(value.text, ClearSize::SmallText) / 2;
    AddAxisValue(furniture, placer, value.text, {ValueBorder + half, value.at});
  }
}

void DrawNotice(PixelSurface& surface, const ClearFurniture& furniture) {
  const TurnedBox box = BoxOf(*furniture.noticeBox);
  if (furniture.noticeHides) surface.PixelPolygon(box.Corners(), ClearPalette::Ground);
  surface.PixelText({box.centre, {1, 0}, furniture.notice, ClearPalette::AxisValue, ClearSize::SmallText});
}

/// The pitch of the grid's lines along one axis, m.
double GridStep(double spacing, double scale, double axisStep) {
  return spacing > 0 && spacing * scale >= MinGridPitch ? spacing : axisStep;
}

} // namespace

bool ClearFurniture::Hides(const TurnedBox& label) const {
  return noticeHides && noticeBox && Overlap(label, BoxOf(*noticeBox));
}

std::string NoticeOf(const std::array<ShownLabels, LabelKinds>& labels, bool onPaper, int most) {
  constexpr std::array<const char*, LabelKinds> Names{"loads and reactions", "forces", "node numbers",
                                                      "member numbers"};
  std::string notice;
  // Forces first: they are what one looks for.
  for (const std::size_t kind : {1U, 0U, 2U, 3U}) {
    const ShownLabels& count = labels.at(kind);
    if (count.shown >= count.all || most-- <= 0) continue;
    notice += notice.empty() ? "showing " : ", ";
    notice += std::to_string(count.shown) + " of " + std::to_string(count.all) + " " + Names.at(kind);
  }
  return notice.empty() || onPaper ? notice : notice + "; zoom in or point at a member";
}

ClearFurniture FurnitureOf(const PixelSurface& surface, const PixelView& view, const ClearSettings& settings,
                           const ClearScene& scene, int legendPlace) {
  ClearFurniture furniture;
  furniture.onPaper = settings.onPaper;
  FurniturePlacer placer(surface, view, scene, settings.layers.grid);
  const Bounds area = Bounds{0, 0, view.width, view.height}.MovedBy(-1 * view.origin);
  furniture.labels = CountLabels(scene, area, std::nullopt);
  PlaceNotice(furniture, placer);
  if (furniture.noticeHides) {
    furniture.labels = CountLabels(scene, area, BoxOf(*furniture.noticeBox).MovedBy(-1 * view.origin));
    furniture.notice = NoticeWithin(furniture, surface, furniture.noticeBox->Width());
  }
  if (settings.legend) {
    furniture.legend = MakeLegend(settings, FactsOf(scene, view, settings));
    PlaceLegend(furniture, placer, legendPlace);
  }
  if (settings.layers.grid) PlaceAxisValues(furniture, placer);
  return furniture;
}

void DrawFurniture(PixelSurface& surface, const ClearFurniture& furniture) {
  for (const PixelLabel& value : furniture.axisValues) surface.PixelText(value);
  if (furniture.legendBox) {
    DrawLegend(surface, furniture.legend, furniture.legendColumns,
               {furniture.legendBox->left, furniture.legendBox->top});
  }
  if (furniture.noticeBox) DrawNotice(surface, furniture);
}

void DrawClearGrid(PixelSurface& surface, const PixelView& view, const ClearSettings& settings) {
  const LineLook look{ClearPalette::GridLine, 1, settings.gridDashed};
  const double step = AxisStep(view);
  const double stepX = GridStep(settings.gridSpacingX, view.scaleX, step);
  const double stepY = GridStep(settings.gridSpacingY, view.scaleY, step);
  for (const AxisValue& value : ValuesAlong(view.origin.x, view.scaleX, stepX, view.width)) {
    surface.PixelLine({value.at, 0}, {value.at, view.height}, look);
  }
  for (const AxisValue& value : ValuesAlong(view.origin.y, -view.scaleY, stepY, view.height)) {
    surface.PixelLine({0, value.at}, {view.width, value.at}, look);
  }
}

} // namespace strutwright
