#pragma once

#include "PlaneGeometry.h"

#include <cstdint>
#include <optional>

namespace strutwright {

class DrawingSurface;

// What the mouse points at, and the walk through the elements by keys.  In pixels, so that it is the same at every zoom
// and in both styles; the modes of the mouse pick by PickRadius instead.

/// How far from an element the mouse may be to point at it, in pixels.
inline constexpr double PointingReach = 6;

enum class ElementKind : std::uint8_t { None, Node, Member };

/// A node or a member, by its number.
struct Element {
  ElementKind kind = ElementKind::None;
  int number = 0;

  bool IsNone() const { return kind == ElementKind::None; }
  bool operator==(const Element&) const = default;
};

/// The nearest node within PointingReach of a point of the surface, else the nearest member; of two that are equally
/// near the first in number order.  Nothing where neither is.
Element ElementAt(const DrawingSurface& surface, double x, double y);

/// The part of an element that is in view or near it, in pixels, of a node twice its point; nothing where none is, and
/// where the model has no such element or a number of it can't be drawn.
std::optional<PixelLineEnds> PlaceOf(const DrawingSurface& surface, Element element);

/// The element of a kind that comes after this one in number order, or before it; after the last comes the first.
/// From an element of another kind, and from none, it begins at the first or the last.  Nothing where there is none.
Element ElementAfter(Element from, ElementKind kind, bool forward);

/// Moves the window so that the middle of an element is seen, if it was not.  Returns whether the window moved.
bool BringIntoView(DrawingSurface& surface, Element element);

} // namespace strutwright
