#include "modInfluenceDrawing.h"

#include "ClearTexts.h"
#include "modClearDrawing.h"
#include "modDrawing.h"
#include "modMarks.h"
#include "modModelStore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

namespace {

// Pixels.
constexpr double InfluenceSideRoom = 40;
constexpr double TopMargin = 70; // for loads on an upper chord
constexpr double InfluenceBottomRoom = 12;
constexpr double Gap = 56;       // below the truss: its supports, and the label of the largest ordinate
constexpr double BandPart = 0.3; // of the surface's height
constexpr double TextLine = 18;
constexpr double LetterWidth = 7;
constexpr int CaptionSize = 13;         // height of the letters of a caption
constexpr double InfluenceLabelOff = 4; // from the line to its label
constexpr double LongestArrow = 46;
constexpr double ShortestArrow = 18;
constexpr double ArrowHead = 6;
constexpr double MarkRadius = 4;
constexpr double LoadWidth = 42;         // that the number of a load takes
constexpr double MinForNodeNumbers = 24; // of a usual member
constexpr double MinForMemberNumbers = 60;

constexpr Colour LineColour{0, 110, 120};

struct Extents {
  double left = std::numeric_limits<double>::infinity();
  double right = -left;
  double bottom = left;
  double top = -left;
};

Extents ExtentsOfNodes() {
  Extents extents;
  for (int n = 1; n <= NodeCount; ++n) {
    extents.left = std::min<double>(extents.left, NodeTable(n, NodeX));
    extents.right = std::max<double>(extents.right, NodeTable(n, NodeX));
    extents.bottom = std::min<double>(extents.bottom, NodeTable(n, NodeY));
    extents.top = std::max<double>(extents.top, NodeTable(n, NodeY));
  }
  return extents;
}

/// Metres a pixel.
double PixelSize(const DrawingSurface& surface) {
  return static_cast<double>(surface.Window().width) / static_cast<double>(surface.PixelWidth());
}

double BandHeight(const DrawingSurface& surface) { return BandPart * static_cast<double>(surface.PixelHeight()); }

/// What is below the truss, in pixels.
double RoomBelow(const DrawingSurface& surface, const InfluenceShape& shape) {
  return Gap + BandHeight(surface) + (static_cast<double>(shape.captions.size()) + 1.5) * TextLine +
         InfluenceBottomRoom;
}

/// Four digits are enough to read off a picture.
std::string LabelText(double value) { return ReadingText(value, 4); }

/// Draws in the world of the truss, with distances in pixels.
class InfluencePicture {
 public:
  InfluencePicture(DrawingSurface& surface, const InfluenceShape& shape, const ClearMemory* drawn)
      : Surface(surface), Shape(shape), Drawn(drawn), Pixel(PixelSize(surface)) {
    const double highest = std::max(0.0, *std::max_element(shape.values.begin(), shape.values.end()));
    const double lowest = std::min(0.0, *std::min_element(shape.values.begin(), shape.values.end()));
    const double band = BandHeight(surface) * Pixel;
    if (highest > lowest) Scale = band / (highest - lowest);
    const double top = ExtentsOfNodes().bottom - Gap * Pixel;
    Base = highest > lowest ? top - highest * Scale : top - band / 2;
    Bottom = top - band;
    FindExtremes();
  }

  void Draw() {
    DrawOrdinates();
    DrawCurve();
    LabelExtremes();
    DrawQuantity();
    DrawLoads();
    DrawMark();
    PrintCaptions();
  }

 private:
  double X(std::size_t k) const { return NodeTable(Shape.nodes[k], NodeX); }
  double Y(std::size_t k) const { return Base + Scale * Shape.values[k]; }

  void Thin(double x1, double y1, double x2, double y2, Colour colour, LineStyle style) {
    UsePen(Surface, colour);
    Surface.SetLineStyle(style);
    Surface.SetPenWidth(1);
    Surface.DrawLine(x1, -y1, x2, -y2);
    Surface.SetLineStyle(LineStyle::Solid);
  }

  void Print(double x, double y, const std::string& text, Colour colour) { PrintText(Surface, x, -y, text, colour); }

  void DrawOrdinates() {
    Thin(X(0), Base, X(Shape.nodes.size() - 1), Base, Black, LineStyle::Solid);
    for (std::size_t k = 0; k < Shape.nodes.size(); ++k) Thin(X(k), Base, X(k), Y(k), LineColour, LineStyle::Solid);
    for (const std::size_t k : {std::size_t{0}, Shape.nodes.size() - 1}) Plumb(k);
    if (Highest) Plumb(*Highest);
    if (Lowest) Plumb(*Lowest);
  }

  /// From the line up to its node.
  void Plumb(std::size_t k) {
    const double from = AboveLabel(X(k), std::max(Base, Y(k)));
    Thin(X(k), from, X(k), NodeTable(Shape.nodes[k], NodeY), Grey, LineStyle::Dashed);
  }

  /// Where a plumb line begins, that would begin here, so that it does not run through the label of the largest
  /// ordinate.
  double AboveLabel(double x, double from) const {
    if (!Highest || std::abs(x - X(*Highest)) > HalfWidthOf(*Highest) + InfluenceLabelOff * Pixel) return from;
    const double label = Y(*Highest) + InfluenceLabelOff * Pixel;
    return from <= label + TextLine * Pixel ? label + TextLine * Pixel : from;
  }

  double HalfWidthOf(std::size_t k) const {
    return LetterWidth / 2 * Pixel * static_cast<double>(LabelText(Shape.values[k]).size());
  }

  void DrawCurve() {
    UsePen(Surface, LineColour);
    Surface.SetPenWidth(2);
    for (std::size_t k = 1; k < Shape.nodes.size(); ++k) Surface.DrawLine(X(k - 1), -Y(k - 1), X(k), -Y(k));
  }

  /// A line that is zero everywhere is labelled once, above.
  void FindExtremes() {
    const auto index = [this](auto at) { return static_cast<std::size_t>(at - Shape.values.begin()); };
    const std::size_t highest = index(std::max_element(Shape.values.begin(), Shape.values.end()));
    const std::size_t lowest = index(std::min_element(Shape.values.begin(), Shape.values.end()));
    if (Shape.values[highest] > 0 || Shape.values[lowest] == 0) Highest = highest;
    if (Shape.values[lowest] < 0) Lowest = lowest;
  }

  void LabelExtremes() {
    if (Highest) Label(*Highest, InfluenceLabelOff + TextLine);
    if (Lowest) Label(*Lowest, -InfluenceLabelOff);
  }

  /// up: of the text's upper edge, in pixels.
  void Label(std::size_t k, double up) {
    Print(X(k) - HalfWidthOf(k), Y(k) + up * Pixel, LabelText(Shape.values[k]), LineColour);
  }

  void DrawQuantity() {
    const DrawingStyle style = Drawn != nullptr ? DrawingStyle::Clear : DrawingStyle::Described;
    if (Shape.member > 0) MarkMember(Surface, Shape.member, Orange, style);
    if (Shape.member > 0 && Drawn != nullptr) {
      DrawLabelsOfMember(Surface, ViewOf(Surface, Surface.Window()), *Drawn, Shape.member);
    }
    if (Shape.node > 0) MarkNode(Surface, Shape.node, Orange, style);
  }

  void DrawMark() {
    if (!Shape.mark) return;
    const double x = Shape.mark->x;
    const double y = Base + Scale * Shape.mark->value;
    Thin(x, AboveLabel(x, std::max(Base, y)), x, PathY(x), Grey, LineStyle::Dashed);
    Thin(x, Base, x, y, Red, LineStyle::Solid);
    Surface.SetPenWidth(2);
    Surface.DrawCircle(x, -y, MarkRadius * Pixel);
    Print(x + 2 * MarkRadius * Pixel, y + TextLine / 2 * Pixel, LabelText(Shape.mark->value), Red);
  }

  bool IsOverPath(double x) const {
    const auto [left, right] = std::minmax({X(0), X(Shape.nodes.size() - 1)});
    return x >= left - Pixel && x <= right + Pixel;
  }

  /// Where the deck lies.
  double PathY(double x) const {
    for (std::size_t k = 1; k < Shape.nodes.size(); ++k) {
      const double share = (x - X(k - 1)) / (X(k) - X(k - 1));
      if (share > 1 && k + 1 < Shape.nodes.size()) continue;
      const double y = NodeTable(Shape.nodes[k - 1], NodeY);
      const double next = NodeTable(Shape.nodes[k], NodeY);
      return y + std::clamp(share, 0.0, 1.0) * (next - y);
    }
    return NodeTable(Shape.nodes[0], NodeY);
  }

  /// A load on the path with its arrow.
  struct StandingLoad {
    double x = 0;
    double force = 0;
    double tip = 0;  ///< y
    double tail = 0; ///< y
  };

  std::vector<StandingLoad> StandingLoads() const {
    double largest = 0;
    for (const PathLoad& load : Shape.loads) largest = std::max(largest, load.force);
    std::vector<StandingLoad> standing;
    for (const PathLoad& load : Shape.loads) {
      if (!IsOverPath(load.x)) continue;
      const double tip = PathY(load.x);
      const double length = std::max(ShortestArrow, LongestArrow * load.force / largest);
      standing.push_back({load.x, load.force, tip, tip + Pixel * length});
    }
    return standing;
  }

  void DrawLoads() {
    const std::vector<StandingLoad> loads = StandingLoads();
    for (const StandingLoad& load : loads) {
      Surface.SetPenWidth(2);
      DrawArrow(Surface, ArrowHead * Pixel, load.x, -load.tail, load.x, -load.tip, Red);
      Taken.push_back({load.x / Pixel - ArrowHead, -load.tail / Pixel, load.x / Pixel + ArrowHead, -load.tip / Pixel});
    }
    double numbered = -std::numeric_limits<double>::infinity();
    for (const StandingLoad& load : loads) {
      if (std::abs(load.x - numbered) < LoadWidth * Pixel) continue;
      numbered = load.x;
      PrintLoad(load);
    }
  }

  /// Above the arrow; where a number of the truss or of another load stands there, beside it or higher.
  void PrintLoad(const StandingLoad& load) {
    const std::string text = LabelText(load.force);
    const double width = Surface.TextWidth(text, CaptionSize);
    const PixelPoint above{load.x / Pixel - width / 2, -load.tail / Pixel - TextLine};
    const double aside = width / 2 + ArrowHead + 1;
    const std::array<PixelPoint, 7> offsets{{{0, 0},
                                             {aside, TextLine},
                                             {-aside, TextLine},
                                             {aside, 2 * TextLine},
                                             {-aside, 2 * TextLine},
                                             {0, -TextLine},
                                             {0, -2 * TextLine}}};
    PixelPoint place = above;
    for (const PixelPoint offset : offsets) {
      const PixelPoint corner = above + offset;
      if (!IsFree({corner.x, corner.y, corner.x + width, corner.y + TextLine})) continue;
      place = corner;
      break;
    }
    Taken.push_back({place.x, place.y, place.x + width, place.y + TextLine});
    Print(place.x * Pixel, -place.y * Pixel, text, Red);
  }

  /// Whether no number, node or load stands in a box, in pixels; the described drawing keeps no note of its own.
  bool IsFree(const Bounds& box) const {
    const auto touches = [&box](const Bounds& other) { return other.Touches(box); };
    if (Drawn == nullptr) return true;
    if (std::any_of(Taken.begin(), Taken.end(), touches)) return false;
    return !Drawn->Last().plane.Any(
        box, [&box](const OccupiedBox& item) { return item.kind != Occupant::Bar && Overlap(item.box, BoxOf(box)); });
  }

  void PrintCaptions() {
    double y = Bottom - (InfluenceLabelOff + TextLine) * Pixel;
    for (const std::string& caption : Shape.captions) {
      Print(LeftOfCaption(caption), y, caption, Black);
      y -= TextLine * Pixel;
    }
  }

  /// Below the line's left end; where it would be cut at the right border, as far left as it must be.
  double LeftOfCaption(const std::string& caption) const {
    const ViewWindow window = Surface.Window();
    const double border = InfluenceLabelOff * Pixel;
    const double room = static_cast<double>(window.width) - border - Surface.TextWidth(caption, CaptionSize) * Pixel;
    const double left = std::min(std::min(X(0), X(Shape.nodes.size() - 1)), window.left + room);
    return std::max(left, window.left + border);
  }

  DrawingSurface& Surface;
  const InfluenceShape& Shape;
  const ClearMemory* Drawn;
  double Pixel;                       ///< m
  double Scale = 0;                   ///< m for an ordinate of 1
  double Base = 0;                    ///< y of the ordinate 0
  double Bottom = 0;                  ///< y of the lowest ordinate
  std::optional<std::size_t> Highest; ///< the ordinates that are labelled
  std::optional<std::size_t> Lowest;
  std::vector<Bounds> Taken; ///< by loads and their numbers, in pixels from the origin of the truss
};

} // namespace

ViewWindow FrameInfluence(const DrawingSurface& surface, const InfluenceShape& shape) {
  if (NodeCount == 0) return surface.Window();
  const Extents truss = ExtentsOfNodes();
  const double width = static_cast<double>(surface.PixelWidth());
  const double height = static_cast<double>(surface.PixelHeight());
  // A small surface has no room beside all this, and then the truss overlaps it.
  const double across = std::max(width - 2 * InfluenceSideRoom, width / 4);
  const double down = std::max(height - TopMargin - RoomBelow(surface, shape), height / 8);
  double pixel = std::max((truss.right - truss.left) / across, (truss.top - truss.bottom) / down);
  if (!(pixel > 0)) pixel = 1 / across;
  const double spare = down - (truss.top - truss.bottom) / pixel;
  const double left = (truss.left + truss.right - width * pixel) / 2;
  const double top = truss.top + (TopMargin + spare / 2) * pixel;
  const ViewWindow window{static_cast<float>(left), static_cast<float>(-top), static_cast<float>(width * pixel),
                          static_cast<float>(height * pixel)};
  const bool fits = std::isfinite(window.left) && std::isfinite(window.top) && std::isnormal(window.width) &&
                    std::isnormal(window.height);
  return fits ? window : surface.Window();
}

ReadableNumbers NumbersWithRoom(const DrawingSurface& surface) {
  double sum = 0;
  for (int m = 1; m <= MemberCount; ++m) {
    const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
    const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
    if (std::min(i, j) < 1 || std::max(i, j) > NodeCount) continue;
    const double dx = NodeTable(j, NodeX) - NodeTable(i, NodeX);
    const double dy = NodeTable(j, NodeY) - NodeTable(i, NodeY);
    sum += std::hypot(dx, dy);
  }
  const double pixels = MemberCount == 0 ? MinForMemberNumbers : sum / MemberCount / PixelSize(surface);
  return {pixels >= MinForNodeNumbers, pixels >= MinForMemberNumbers};
}

void DrawInfluence(DrawingSurface& surface, const InfluenceShape& shape, const ClearMemory* drawn) {
  if (shape.nodes.empty() || shape.nodes.size() != shape.values.size()) return;
  TryDrawing([&] { InfluencePicture(surface, shape, drawn).Draw(); });
}

} // namespace strutwright
