#include "modPointing.h"

#include "DrawingSurface.h"
#include "modModelStore.h"
#include "modViewTransform.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

constexpr double RoomAroundView = 50; // pixels that a clipped line may leave the view
constexpr double InSightMargin = 12;  // pixels from the border that still count as seen

/// How a surface shows the world.
struct Projection {
  ViewWindow window;
  double scaleX;
  double scaleY;

  explicit Projection(const DrawingSurface& surface)
      : window(surface.Window()), scaleX(surface.PixelWidth() / static_cast<double>(window.width)),
        scaleY(surface.PixelHeight() / static_cast<double>(window.height)) {}

  PixelPoint At(double x, double y) const { return {(x - window.left) * scaleX, (y - window.top) * scaleY}; }
  PixelPoint OfNode(int n) const { return At(NodeTable(n, NodeX), -static_cast<double>(NodeTable(n, NodeY))); }
};

bool StandsInTable(int n) { return n >= 1 && n <= NodeCount && n <= NodeTable.Count(); }

bool IsFinite(PixelPoint point) { return std::isfinite(point.x) && std::isfinite(point.y); }

/// A member from node to node; nothing where it can't be drawn.
std::optional<PixelLineEnds> WholeMember(const Projection& projection, int m) {
  if (m < 1 || m > MemberCount) return std::nullopt;
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  if (!StandsInTable(i) || !StandsInTable(j)) return std::nullopt;
  const PixelLineEnds place{projection.OfNode(i), projection.OfNode(j)};
  if (!IsFinite(place.from) || !IsFinite(place.to)) return std::nullopt;
  return place;
}

std::optional<PixelLineEnds> WholePlace(const Projection& projection, Element element) {
  if (element.kind == ElementKind::Member) return WholeMember(projection, element.number);
  if (element.kind == ElementKind::None || !StandsInTable(element.number)) return std::nullopt;
  const PixelPoint at = projection.OfNode(element.number);
  if (!IsFinite(at)) return std::nullopt;
  return PixelLineEnds{at, at};
}

/// Finds the nearest of a kind, 1..count, that is not farther than PointingReach.
template <typename Distance>
int Nearest(int count, const Distance& distanceOf) {
  int nearest = 0;
  double least = PointingReach;
  for (int number = 1; number <= count; ++number) {
    const double distance = distanceOf(number);
    if (!(distance < least) && !(nearest == 0 && distance == least)) continue;
    nearest = number;
    least = distance;
  }
  return nearest;
}

} // namespace

Element ElementAt(const DrawingSurface& surface, double x, double y) {
  const Projection projection(surface);
  const PixelPoint mouse = projection.At(x, y);
  if (!IsFinite(mouse)) return {};
  const auto distanceTo = [&](Element element) {
    const auto place = WholePlace(projection, element);
    return place ? DistanceToLine(mouse, place->from, place->to) : HUGE_VAL;
  };
  const int n = Nearest(NodeCount, [&](int number) { return distanceTo({ElementKind::Node, number}); });
  if (n != 0) return {ElementKind::Node, n};
  const int m = Nearest(MemberCount, [&](int number) { return distanceTo({ElementKind::Member, number}); });
  return m == 0 ? Element{} : Element{ElementKind::Member, m};
}

std::optional<PixelLineEnds> PlaceOf(const DrawingSurface& surface, Element element) {
  const auto place = WholePlace(Projection(surface), element);
  if (!place) return std::nullopt;
  const Bounds view{0, 0, surface.PixelWidth(), surface.PixelHeight()};
  return PartWithin(view.GrownBy(RoomAroundView), place->from, place->to);
}

Element ElementAfter(Element from, ElementKind kind, bool forward) {
  const int count = kind == ElementKind::Node ? NodeCount : MemberCount;
  if (kind == ElementKind::None || count == 0) return {};
  const bool goesOn = from.kind == kind && from.number >= 1 && from.number <= count;
  if (!goesOn) return {kind, forward ? 1 : count};
  const int next = from.number + (forward ? 1 : -1);
  return {kind, next > count ? 1 : next < 1 ? count : next};
}

bool BringIntoView(DrawingSurface& surface, Element element) {
  const Projection projection(surface);
  const auto place = WholePlace(projection, element);
  if (!place) return false;
  const PixelPoint middle = 0.5 * (place->from + place->to);
  const Bounds view{0, 0, surface.PixelWidth(), surface.PixelHeight()};
  if (view.GrownBy(-InSightMargin).Contains(middle)) return false;
  const ViewWindow& window = projection.window;
  PanWindow(surface, window.left + middle.x / projection.scaleX, window.top + middle.y / projection.scaleY,
            window.left + static_cast<double>(window.width) / 2, window.top + static_cast<double>(window.height) / 2);
  return true;
}

} // namespace strutwright
